"""The project's own rules for C++ sources, on small good and bad samples."""

import pytest

import lint_rules


def faults(rule, path, text, **others):
    """The faults of one rule in a file, beside which there are others, named without ending."""
    files = {f"engine/gui/{name}.cpp": source for name, source in others.items()}
    return list(rule(path, text, files.get))


HEADER = """\
struct Image : GameNode {
  // Drawing: image_drawing.cpp, image_border.cpp
  void draw(Screen screen);
  // The border alone.
  [[nodiscard]] std::function<void(int)> border(Screen screen,
                                                int width = size()) const;
  Image(const Image&) = delete;
  bool is_plain() { return plain; }

  void elsewhere();
};

// Colours: image_colors.cpp
Color mixed(Color one, Color other);
"""
DRAWING = "void Image::draw(Screen screen) {\n  border(screen);\n}\n"
BORDER = "std::function<void(int)> Image::border(Screen, int) const {}\n"
COLORS = "Color mixed(Color one, Color other) {}\n"


def homes(drawing=DRAWING, border=BORDER, colors=COLORS):
    sources = {"image_drawing": drawing, "image_border": border, "image_colors": colors}
    return faults(
        lint_rules.method_homes,
        "engine/gui/image.hpp",
        HEADER,
        **{name: text for name, text in sources.items() if text is not None},
    )


def test_methods_in_the_files_that_the_header_names_are_good():
    assert homes() == []


PLACES = "is not defined in image_drawing.cpp, image_border.cpp"
OF_A_LABEL = "void Label::border(Screen screen) {\n  Image::border(screen);\n}\n"
ONLY_CALLED = "Color mixed(Color one);\nColor x = mixed(a);\n"
ELSEWHERE = {
    "in a comment": ({"drawing": "// " + DRAWING}, (3, f"Image::draw {PLACES}")),
    "of another class": ({"border": OF_A_LABEL}, (5, f"Image::border {PLACES}")),
    "function": ({"colors": ONLY_CALLED}, (14, "mixed is not defined in image_colors.cpp")),
}


@pytest.mark.parametrize("name", ELSEWHERE)
def test_a_method_that_lives_elsewhere_is_a_fault(name):
    sources, fault = ELSEWHERE[name]
    assert homes(**sources) == [fault]


def test_files_are_named_from_the_header_s_folder():
    header = "struct A {\n  // Time: ../core/time.cpp\n  void update();\n};\n"
    files = {"engine/core/time.cpp": "void A::update() {}\n"}
    assert list(lint_rules.method_homes("engine/gui/a.hpp", header, files.get)) == []


def test_a_file_that_is_not_there_is_a_fault():
    assert homes(border=None, drawing=DRAWING + BORDER) == [
        (2, "there is no image_border.cpp beside this header")
    ]


LABEL, HEADER_FILE = "engine/gui/label.cpp", "engine/gui/label.hpp"
API, BORROWED = lint_rules.interpreter_api, lint_rules.borrowed_values
FLOORS, CALLS = lint_rules.room_floors, lint_rules.script_calls
GOOD = {
    "in a comment": (API, LABEL, "Ref text = read(node);  // no PyObject*, no get()"),
    "in a string": (API, LABEL, 'fail("PyObject.get()");'),
    "other names": (API, LABEL, "PyGameResManager manager; Pyramid base; map.get(key);"),
    "host": (API, "engine/host/ref.hpp", "PyObject* get() { return Py_None; }"),
    "entry point": (API, "module/tessora.cpp", "PyMODINIT_FUNC PyInit_Tessora() {}"),
    "names": (API, LABEL, "raise(PyExc_TypeError); Py_ssize_t size = 0;"),
    "module": (API, HEADER_FILE, "void register_label(PyObject* module);"),
    "parameters": (BORROWED, LABEL, "void f(Value x, Value y = none());"),
    "owned": (BORROWED, LABEL, "  Ref text = read(node);"),
    "alias": (BORROWED, LABEL, "  Value alias = text;"),
    "alias in braces": (BORROWED, LABEL, "  Value plain{other};"),
    "loop": (BORROWED, LABEL, "  for (Value child : children(node)) use(child);"),
    "function": (BORROWED, LABEL, "Value find(Node& node);"),
    "commented out": (BORROWED, LABEL, "  // Value x = read(node);"),
    "borrowed in host": (BORROWED, "engine/host/list.cpp", "  Value item = get(list);"),
    "gui from gui": (FLOORS, HEADER_FILE, '#include "engine/gui/button.hpp"'),
    "image": (FLOORS, HEADER_FILE, '#include "engine/image/image.hpp"'),
    "resources": (FLOORS, "engine/image/a.hpp", '#include "engine/resources/b.hpp"'),
    "render": (FLOORS, "engine/core/node.hpp", '#include "engine/render/canvas.hpp"'),
    "host from render": (FLOORS, "engine/render/canvas.hpp", '#include "engine/host/ref.hpp"'),
    "gui from module": (FLOORS, "module/tessora.cpp", '#include "engine/gui/label.hpp"'),
    "module from module": (FLOORS, "module/tessora.cpp", '#include "module/imports.hpp"'),
    "nested": (CALLS, LABEL, "void f() {\n  message::SetX(node, a.call(x));\n}"),
    "chained": (CALLS, LABEL, "void f() {\n  a.call(x).call(y);\n}"),
    "and": (
        CALLS,
        LABEL,
        "void f() {\n  b = a.call(x).is_true() && message::IsOver(n).is_true();\n}",
    ),
    "terms": (CALLS, LABEL, "void f() {\n  Number n = ask(message::GetWX, node) + read(x);\n}"),
    "statements": (CALLS, LABEL, "void f() {\n  a.call(x); b.call(y);\n}"),
}


@pytest.mark.parametrize("name", GOOD)
def test_good_code(name):
    rule, path, text = GOOD[name]
    assert faults(rule, path, text + "\n") == []


BORROWS = "text borrows what nothing owns: use a Ref"
# The second line is at fault.
BAD = {
    "object": (API, LABEL, "\nvoid f(PyObject* x);", "PyObject belongs to engine/host"),
    "call": (API, LABEL, "\nauto size = PyList_Size(x);", "PyList_Size belongs to"),
    "private": (API, LABEL, "\n_PyObject_GC_TRACK(x);", "_PyObject_GC_TRACK belongs to"),
    "reference": (API, LABEL, "\nuse(text.get());", ".get() belongs to engine/host"),
    "pointer": (API, LABEL, "\nuse(text->get());", "->get() belongs to engine/host"),
    "equals": (BORROWED, LABEL, "{\n  Value text = read(node);", BORROWS),
    "braces": (BORROWED, LABEL, "{\n  const Value text{node.read(slot)};", BORROWS),
    "parentheses": (BORROWED, LABEL, "{\n  host::Value text(read(node));", BORROWS),
    "condition": (BORROWED, LABEL, "{\n  if (Value text = find(node)) use(text);", BORROWS),
    "item": (BORROWED, LABEL, "{\n  const host::Value text = names[index];", BORROWS),
    "two lines": (BORROWED, LABEL, "{\n  Value text =\n      a ? other : read(node);", BORROWS),
    "arguments": (CALLS, LABEL, "{\n  f(message::GetWX(node), message::GetWY(node));\n}", ""),
    "operands": (CALLS, LABEL, "{\n  Number sum = a.call(x) + b.call(y);\n}", ""),
    "attribute and call": (CALLS, LABEL, "{\n  pair(node.attr(x), other.call(y));\n}", ""),
}
BAD_INCLUDES = [
    ("engine/host/ref.hpp", "engine/core/node.hpp", "host may not include from core"),
    ("engine/render/canvas.hpp", "engine/core/node.hpp", "render may not include from core"),
    ("engine/core/node.hpp", "engine/actions/action.hpp", "core may not include from actions"),
    ("engine/image/image.hpp", "engine/gui/label.hpp", "image may not include from gui"),
    ("engine/tilemap/map.hpp", "engine/gui/label.hpp", "tilemap may not include from gui"),
    (HEADER_FILE, "module/imports.hpp", "gui may not include from module"),
    (HEADER_FILE, "button.hpp", "button.hpp is not named from the root"),
    (HEADER_FILE, "engine/attic/old.hpp", "engine/attic has no floor"),
]
for path, target, message in BAD_INCLUDES:
    BAD[message] = (FLOORS, path, f'#include <vector>\n#include "{target}"', message)


@pytest.mark.parametrize("name", BAD)
def test_bad_code(name):
    rule, path, text, message = BAD[name]
    ((line, found),) = faults(rule, path, text + "\n")
    assert (line, found[: len(message)]) == (2, message)


def test_faults_are_lines_for_the_terminal(tmp_path):
    source = tmp_path / "engine" / "gui" / "label.cpp"
    source.parent.mkdir(parents=True)
    source.write_text('#include "module/imports.hpp"\n', encoding="utf-8")
    assert lint_rules.check(tmp_path, [source], lint_rules.ALL) == [
        "engine/gui/label.cpp:1: gui may not include from module, which is no floor below"
    ]
