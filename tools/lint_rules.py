"""The project's own rules for C++ sources, which no other tool knows.

A rule takes a file's path from the root, its text, and a function that reads another file (None if
there is none); it yields the line and the message of every fault.
"""

import posixpath
import re
from bisect import bisect_right

# Rooms by floor. A file includes from its own room and from lower floors.
FLOORS = (
    ("host",),
    ("object",),
    ("pixels",),
    ("render",),
    ("core",),
    ("resources", "actions"),
    ("image",),
    ("gui", "tilemap", "particles", "character"),
    ("bars",),
    ("panels",),
)
# Rooms that may look into another one on their floor.
NEIGHBOURS = {"tilemap": ("character",)}

# The layer over Python: calls and values, and on top of these the engine's classes as types.
HOST_ROOMS = ("engine/host/", "engine/object/")

# Where Python's interface is spelled out although it is not engine/host: the module's entry point
# and imports, and memory of surfaces.
INTERPRETER_FILES = (
    "module/tessora.cpp",
    "module/imports.cpp",
    "module/imports.hpp",
    "engine/pixels/surface_memory.cpp",
    "engine/pixels/surface_memory.hpp",
)

_NO_CODE = re.compile(
    r"//[^\n]*|/\*.*?\*/|\"(?:\\.|[^\"\\\n])*\"|(?<![0-9a-fA-F])'(?:\\.|[^'\\\n])*'", re.S
)


def code_only(text):
    """The text with comments, strings and characters blanked, every other place unchanged."""
    return _NO_CODE.sub(lambda match: re.sub(r"[^\n]", " ", match.group()), text)


class _Lines:
    """Line numbers by place in a text."""

    def __init__(self, text):
        self.starts = [0] + [match.end() for match in re.finditer("\n", text)]

    def at(self, place):
        return bisect_right(self.starts, place)


# "// Drawing: image_drawing.cpp, image_border.cpp" names the home of the declarations up to the
# next empty line or the end of the part.
_HOME = re.compile(r"\s*// .*: ([\w./]+\.cpp(?:, [\w./]+\.cpp)*)$")
_END_OF_GROUP = re.compile(r"\s*$|\s*(public|protected|private):|\s*}")
_CLASS = re.compile(r"(?:struct|class) (\w+)[^;]*$")


def method_homes(path, text, read):
    """What a header declares under the name of a source file is defined in that file."""
    if not path.endswith(".hpp"):
        return
    class_name, homes, group = None, None, []
    for number, line in enumerate([*text.split("\n"), ""], 1):
        found = _HOME.match(line)
        if homes and (found or _END_OF_GROUP.match(line)):
            yield from _missing_from(homes, class_name, group, path, read)
            homes = None
        if found:
            homes, group = (number, found.group(1).split(", ")), []
        elif homes:
            group.append((number, line))
        if line.startswith(("struct ", "class ")) and _CLASS.match(line):
            class_name = _CLASS.match(line).group(1)
        elif line.startswith("}"):
            class_name = None


def _missing_from(homes, class_name, group, path, read):
    line, names = homes
    texts = []
    for name in names:
        source = read(posixpath.normpath(posixpath.join(posixpath.dirname(path), name)))
        if source is None:
            yield line, f"there is no {name} beside this header"
        else:
            texts.append(code_only(source))
    prefix = class_name + "::" if class_name else ""
    for number, name in _declared(group):
        # A definition starts in the first column; calls are indented.
        if not any(_defines(source, class_name, name) for source in texts):
            yield number, f"{prefix}{name} is not defined in {', '.join(names)}"


def _defines(source, class_name, name):
    """Whether the source defines the function, of a class under its name or an alias."""
    owner = ""
    if class_name:
        aliases = re.findall(rf"\busing (\w+) = {class_name};", source)
        owner = rf"(?:{'|'.join([class_name, *aliases])})::"
    called = owner + re.escape(name)
    return re.search(rf"^(?:[^\s#][^=\n]*[\s&*])?{called}\s*\([^;{{}}]*{{", source, re.M)


def _declared(group):
    """The functions that are declared and not defined in these lines."""
    text = code_only("\n".join(line for _, line in group))
    lines = _Lines(text)
    # Arguments of templates may hold brackets of their own.
    before = None
    while text != before:
        before, text = text, re.sub(r"<[^<>;{}]*>", lambda found: " " * len(found.group()), text)
    for found in re.finditer(r"(~?\w+|operator\W+?)\s*\([^;{}]*;", text):
        if not re.search(r"=\s*(default|delete)\s*;$", found.group()):
            yield group[lines.at(found.start()) - 1][0], found.group(1)


# Names of exceptions, and the module that a class is declared in, are no interface to speak of.
_INTERPRETER = re.compile(
    r"\b_?Py(?!Game|Exc_|_ssize_t\b)(?!Object\* module\b)[A-Z_]\w*|(?:\.|->)get\(\)"
)


def interpreter_api(path, text, read):
    """Python's C interface and the pointers inside references belong to engine/host."""
    if path.startswith(HOST_ROOMS) or path in INTERPRETER_FILES:
        return
    text = code_only(text)
    lines = _Lines(text)
    for found in _INTERPRETER.finditer(text):
        yield lines.at(found.start()), f"{found.group()} belongs to engine/host"


_BORROWED = re.compile(
    r"(?:\b(?:static|const|constexpr)\s+)*\b(?:host::)?Value\s+(?:const\s+)?(\w+)\s*([={(])([^;]*)"
)
_STARTS_STATEMENT = re.compile(r"(?:^|[;{})\]:]|\b(?:if|while|for|switch)\s*\()\s*$")


def borrowed_values(path, text, read):
    """A Value borrows: a variable that takes a call's result would outlive what owns it."""
    if not path.startswith("engine/") or path.startswith(HOST_ROOMS):
        return
    text = code_only(text)
    lines = _Lines(text)
    for found in _BORROWED.finditer(text):
        name, opening, initialiser = found.groups()
        if opening == "(" and not _is_local(path, text, found.start()):
            continue  # a function that returns a Value
        is_statement = _STARTS_STATEMENT.search(text, max(0, found.start() - 80), found.start())
        # A walk holds what it gives until it ends.
        held = ".next()" in initialiser
        if is_statement and not held and re.search(r"[\w>\])]\s*\(|\[", initialiser):
            yield (
                lines.at(found.start(1)),
                f"{name} borrows what nothing owns: use a Ref",
            )


def _is_local(path, text, place):
    line_start = text.rfind("\n", 0, place) + 1
    return path.endswith(".cpp") and text[line_start : line_start + 1] == " "


# Calls that reach scripts at once. Terms (read(), ask()) wait until their formula is computed.
_SCRIPT_CALL = re.compile(r"\bmessage::\w+\s*\(|\.base<[^;]*?>\s*\(|\.(?:call|attr|set_attr)\s*\(")
_SEQUENCED = re.compile(r"&&|\|\||\?|<<")


def script_calls(path, text, read):
    """C++ leaves the order of calls in an expression open: one that a script can see at a time.

    A call inside the arguments of another comes first, a call on another's result comes after
    it, and && || ? keep their order.
    """
    if not path.startswith("engine/") or path.startswith(HOST_ROOMS):
        return
    text = code_only(text)
    lines = _Lines(text)
    for statement in re.finditer(r"[^;{}]+", text):
        spans = []
        for found in _SCRIPT_CALL.finditer(statement.group()):
            start = statement.start() + found.start()
            end = _closing(text, statement.start() + found.end() - 1)
            for _, other_end in spans:
                nested = start < other_end
                chained = text[other_end:start].strip() == ""
                if not nested and not chained and not _SEQUENCED.search(text[other_end:start]):
                    yield lines.at(start), "two calls that scripts can see stand in one expression"
            spans.append((start, end))


def _closing(text, place):
    """The place behind the bracket that closes the one at this place."""
    depth = 0
    for index in range(place, len(text)):
        depth += {"(": 1, ")": -1}.get(text[index], 0)
        if depth == 0:
            return index + 1
    return len(text)


_INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.M)


def room_floors(path, text, read):
    """Includes name a file from the root, and point to the own room or to a lower floor."""
    lines = _Lines(text)
    for found in _INCLUDE.finditer(text):
        line, target = lines.at(found.start(1)), found.group(1)
        try:
            own, other = _floor(path), _floor(target)
        except LookupError as error:
            yield line, str(error.args[0])
            continue
        room, other_room = _room(path), _room(target)
        if room != other_room and other >= own and other_room not in NEIGHBOURS.get(room, ()):
            yield line, f"{room} may not include from {other_room}, which is no floor below"


def _room(path):
    return "module" if path.startswith("module/") else path.split("/")[1]


def _floor(path):
    if path.startswith("module/"):
        return len(FLOORS)
    if not path.startswith("engine/") or path.count("/") < 2:
        raise LookupError(f"{path} is not named from the root, as engine/ROOM/FILE")
    for number, rooms in enumerate(FLOORS):
        if _room(path) in rooms:
            return number
    raise LookupError(f"engine/{_room(path)} has no floor in tools/lint_rules.py")


ALL = (method_homes, interpreter_api, borrowed_values, script_calls, room_floors)


def check(root, paths, rules=ALL):
    """The faults of these files, as lines for the terminal."""

    def read(name):
        path = root / name
        return path.read_text(encoding="utf-8") if path.is_file() else None

    faults = []
    for path in paths:
        name = path.relative_to(root).as_posix()
        text = read(name)
        for rule in rules:
            faults += [f"{name}:{line}: {message}" for line, message in rule(name, text, read)]
    return faults
