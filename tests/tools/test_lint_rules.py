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


@pytest.mark.parametrize(
    ("sources", "fault"),
    [
        (
            {"drawing": "// void Image::draw(Screen screen) {}\n"},
            (3, "Image::draw is not defined in image_drawing.cpp, image_border.cpp"),
        ),
        (
            {"border": "void Label::border(Screen screen) {\n  Image::border(screen);\n}\n"},
            (5, "Image::border is not defined in image_drawing.cpp, image_border.cpp"),
        ),
        (
            {"colors": "Color mixed(Color one);\nColor x = mixed(a);\n"},
            (14, "mixed is not defined in image_colors.cpp"),
        ),
    ],
    ids=["in a comment", "of another class", "function"],
)
def test_a_method_that_lives_elsewhere_is_a_fault(sources, fault):
    assert homes(**sources) == [fault]


def test_files_are_named_from_the_header_s_folder():
    header = "struct A {\n  // Time: ../core/time.cpp\n  void update();\n};\n"
    files = {"engine/core/time.cpp": "void A::update() {}\n"}
    assert list(lint_rules.method_homes("engine/gui/a.hpp", header, files.get)) == []


def test_a_file_that_is_not_there_is_a_fault():
    assert homes(border=None, drawing=DRAWING + BORDER) == [
        (2, "there is no image_border.cpp beside this header")
    ]


@pytest.mark.parametrize(
    ("path", "text"),
    [
        ("engine/gui/label.cpp", "Ref text = read(node);  // no PyObject*, no get()\n"),
        ("engine/gui/label.cpp", 'fail("PyObject.get()");\n'),
        ("engine/gui/label.cpp", "PyGameResManager manager; Pyramid base; map.get(key);\n"),
        ("engine/host/ref.hpp", "PyObject* get() { return Py_None; }\n"),
        ("module/tessora.cpp", "PyMODINIT_FUNC PyInit_Tessora() {}\n"),
        ("engine/gui/label.cpp", "raise(PyExc_TypeError); Py_ssize_t size = 0;\n"),
        ("engine/gui/label.hpp", "void register_label(PyObject* module);\n"),
    ],
    ids=["comment", "string", "other names", "host", "entry point", "names", "module"],
)
def test_code_without_the_interpreter_is_good(path, text):
    assert faults(lint_rules.interpreter_api, path, text) == []


@pytest.mark.parametrize(
    ("text", "name"),
    [
        ("\nvoid f(PyObject* x);\n", "PyObject"),
        ("\nauto size = PyList_Size(x);\n", "PyList_Size"),
        ("\n_PyObject_GC_TRACK(x);\n", "_PyObject_GC_TRACK"),
        ("\nuse(text.get());\n", ".get()"),
        ("\nuse(text->get());\n", "->get()"),
    ],
    ids=["object", "function", "private", "reference", "pointer"],
)
def test_the_interpreter_in_engine_code_is_a_fault(text, name):
    found = faults(lint_rules.interpreter_api, "engine/gui/label.cpp", text)
    assert found == [(2, f"{name} belongs to engine/host")]


@pytest.mark.parametrize(
    "text",
    [
        "void f(Value x, Value y = none());\n",
        "  Ref text = read(node);\n",
        "  Value alias = text;\n",
        "  Value plain{other};\n",
        "  for (Value child : children(node)) use(child);\n",
        "Value find(Node& node);\n",
        "  // Value x = read(node);\n",
    ],
    ids=["parameters", "owned", "alias", "alias in braces", "loop", "function", "comment"],
)
def test_a_value_that_outlives_nothing_is_good(text):
    assert faults(lint_rules.borrowed_values, "engine/gui/label.cpp", text) == []


@pytest.mark.parametrize(
    "text",
    [
        "{\n  Value text = read(node);\n",
        "{\n  const Value text{node.read(slot)};\n",
        "{\n  host::Value text(read(node));\n",
        "{\n  if (Value text = find(node)) use(text);\n",
        "{\n  const host::Value text = names[index];\n",
        "{\n  Value text =\n      condition ? other : read(node);\n",
    ],
    ids=["equals", "braces", "parentheses", "condition", "item", "two lines"],
)
def test_a_value_that_takes_a_call_s_result_is_a_fault(text):
    found = faults(lint_rules.borrowed_values, "engine/gui/label.cpp", text)
    assert found == [(2, "text borrows what nothing owns: use a Ref")]


def test_host_may_keep_borrowed_values():
    text = "  Value item = get(list);\n"
    assert faults(lint_rules.borrowed_values, "engine/host/list.cpp", text) == []


@pytest.mark.parametrize(
    ("path", "target"),
    [
        ("engine/gui/label.hpp", "engine/gui/button.hpp"),
        ("engine/gui/label.hpp", "engine/image/image.hpp"),
        ("engine/image/image.hpp", "engine/resources/resource_manager.hpp"),
        ("engine/core/node.hpp", "engine/render/canvas.hpp"),
        ("engine/render/canvas.hpp", "engine/host/ref.hpp"),
        ("module/tessora.cpp", "engine/gui/label.hpp"),
        ("module/tessora.cpp", "module/imports.hpp"),
    ],
    ids=lambda name: name.split("/")[-2],
)
def test_an_include_from_a_floor_below_is_good(path, target):
    assert faults(lint_rules.room_floors, path, f'#include "{target}"\n') == []


@pytest.mark.parametrize(
    ("path", "target", "message"),
    [
        ("engine/host/ref.hpp", "engine/core/node.hpp", "host may not include from core"),
        ("engine/render/canvas.hpp", "engine/core/node.hpp", "render may not include from core"),
        ("engine/core/node.hpp", "engine/actions/action.hpp", "core may not include from actions"),
        ("engine/image/image.hpp", "engine/gui/label.hpp", "image may not include from gui"),
        ("engine/tilemap/map.hpp", "engine/gui/label.hpp", "tilemap may not include from gui"),
        ("engine/gui/label.hpp", "module/imports.hpp", "gui may not include from module"),
        ("engine/gui/label.hpp", "button.hpp", "button.hpp is not named from the root"),
        ("engine/gui/label.hpp", "engine/attic/old.hpp", "engine/attic has no floor"),
    ],
    ids=["host", "render", "core", "image", "same floor", "module", "bare name", "unknown room"],
)
def test_an_include_from_elsewhere_is_a_fault(path, target, message):
    text = f'#include <vector>\n#include "{target}"\n'
    ((line, found),) = faults(lint_rules.room_floors, path, text)
    assert (line, found[: len(message)]) == (2, message)


def test_faults_are_lines_for_the_terminal(tmp_path):
    source = tmp_path / "engine" / "gui" / "label.cpp"
    source.parent.mkdir(parents=True)
    source.write_text('#include "module/imports.hpp"\n', encoding="utf-8")
    assert lint_rules.check(tmp_path, [source], lint_rules.ALL) == [
        "engine/gui/label.cpp:1: gui may not include from module, which is no floor below"
    ]


@pytest.mark.parametrize(
    "statement",
    [
        "f(message::GetWX(node), message::GetWY(node));",
        "Number sum = a.call(x) + b.call(y);",
        "pair(node.attr(x), other.call(y));",
    ],
    ids=["arguments", "operands", "attribute and call"],
)
def test_two_script_calls_in_one_expression_are_found(statement):
    text = "void f() {\n  " + statement + "\n}\n"
    assert [line for line, _ in faults(lint_rules.script_calls, "engine/gui/a.cpp", text)] == [2]


@pytest.mark.parametrize(
    "statement",
    [
        "message::SetX(node, a.call(x));",
        "a.call(x).call(y);",
        "return a.call(x).is_true() && message::IsOver(node).is_true();",
        "Number sum = ask(message::GetWX, node) + read(x);",
        "a.call(x); b.call(y);",
    ],
    ids=["nested", "chained", "sequenced", "terms", "statements"],
)
def test_script_calls_with_an_order_are_good(statement):
    text = "void f() {\n  " + statement + "\n}\n"
    assert faults(lint_rules.script_calls, "engine/gui/a.cpp", text) == []
