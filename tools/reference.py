"""Writes the manual's reference: a page for each class and one for the module's own values and
functions, from what the module on the path says of itself. See tools/stubs.py for the same."""

import ast
import os
import re

import reference_text
import stubs
from common import Problem
from reference_text import Links

os.environ.setdefault("SDL_VIDEODRIVER", "dummy")

MODULE_PAGE = "module"

# Every class has its place in one group; the order is the reader's.
GROUPS = (
    ("Scene", "What is drawn, and in which order.", "GameLayer GameNode"),
    (
        "Pictures and text",
        "Nodes that show something; they are the bases of all widgets.",
        "GUI_Image GUI_Label",
    ),
    (
        "Widgets",
        "Buttons, fields, bars, lists and windows.",
        "GUI_Button GUI_CheckButton GUI_RadioButton GUI_Edit GUI_Text GUI_Scale GUI_HScrollBar "
        "GUI_VScrollBar GUI_HProgressBar GUI_VProgressBar GUI_ListBox GUI_ComboBox GUI_MsgBox "
        "GUI_Tree TreeItemNode",
    ),
    (
        "Characters and maps",
        "Figures of several parts that move by key frames, and grounds made of tiles.",
        "GameCharacter TiledMap",
    ),
    (
        "Particles",
        "Fire, rain, sparks: many short-lived pictures.",
        "ParticleEmitter Particle",
    ),
    (
        "Actions",
        "What happens to a node over time; GameNode.RunAction plays them.",
        "MoveToAction MoveByAction ScaleToAction ScaleByAction RotateToAction RotateByAction "
        "BlinkAction CallBackAction GAction ActionPlayer",
    ),
    ("Resources", "Files found by their names.", "PyGameResManager"),
)

_ALIAS = re.compile(r'^(_\w+): TypeAlias = "([^"]+)"$', re.M)
_ACCESSOR = re.compile(r"(?:Return|Set) `(\w+)`(?: and `(\w+)`)?")


class Types:
    """Replaces the short names of the stubs' head, which is not there to be looked at."""

    def __init__(self, head):
        self.names = dict(_ALIAS.findall(head))
        self.names["_ElementTree"] = "xml.etree.ElementTree"

    def plain(self, signature):
        text = re.sub(r"\b_\w+\b", lambda m: self.names.get(m.group(), m.group()), signature)
        # What is left are type variables.
        return re.sub(r"(?<![\w.])_([A-Z]\w*)", r"\1", text)


def pages(rows, head, defaults):
    """The pages' texts by their names. `defaults` gives a class's by the name of the attribute."""
    complete(rows)
    grouped = [name for _, _, names in GROUPS for name in names.split()]
    classes = [row["name"] for row in rows if row["kind"] == "class"]
    if sorted(grouped) != sorted(classes):
        wrong = sorted(set(grouped) ^ set(classes))
        raise Problem("classes and tools/reference.py's groups disagree: " + ", ".join(wrong))
    links, types = Links(rows), Types(head)
    texts = {"index.md": _index(links), MODULE_PAGE + ".rst": _module(rows, head, links, types)}
    for row in rows:
        if row["kind"] == "class":
            texts[row["name"] + ".rst"] = _class(row, links, types, defaults(row))
    return texts


def head_values(head):
    """The values with a text that only the stubs' head declares: name, type and text."""
    for node in ast.walk(ast.parse(head)):
        body = getattr(node, "body", [])
        for variable, text in zip(body, body[1:]) if isinstance(body, list) else ():
            if isinstance(variable, ast.AnnAssign) and isinstance(text, ast.Expr):
                type_ = ast.get_source_segment(head, variable.annotation)
                yield variable.target.id, type_, text.value.value


def complete(rows):
    """Raises Problem for what has no text."""
    entries = [(row["name"], row) for row in rows]
    entries += [
        (f"{row['name']}.{each['name']}", each) for row in rows for each in row.get("members", ())
    ]
    empty = [name for name, entry in entries if not re.search(r"\w", entry["doc"] or "")]
    if empty:
        raise Problem("no text says what this is: " + ", ".join(empty))


def _title(text, line="="):
    return f"{text}\n{line * len(text)}\n\n"


def _indented(text):
    return "\n".join("   " + line if line else "" for line in text.split("\n"))


def _entry(directive, head, body, **options):
    lines = [f".. py:{directive}:: {head}"]
    lines += [f"   :{name}: {value}" for name, value in options.items() if value is not None]
    return "\n".join(lines) + "\n\n" + _indented(body).rstrip() + "\n\n"


def _index(links):
    """In Markdown, so that the manual's pages link to it as to one of theirs."""
    parts = [
        "# Reference\n\n```{py:module} Tessora\n```\n\n",
        "Here is every class, method, attribute and value of the module. A class's page lists\n"
        "what the class adds to its base; the end of the page names what it inherits. Positions\n"
        "and sizes are in pixels, angles in degrees, times in seconds, unless an entry says\n"
        "otherwise. After the equals sign of an attribute stands what a new object holds.\n\n",
    ]
    for title, about, names in GROUPS:
        parts += [f"## {title}\n\n", reference_text.text(about, links), "\n\n"]
        parts.append("```{list-table}\n:widths: 30 70\n:class: classes\n\n")
        for name in names.split():
            first = reference_text.first_sentence(links.rows[name]["doc"])
            parts.append(f"* - {links.role(name)}\n")
            parts.append(f"  - {reference_text.text(first, links, name)}\n")
        parts += ["```\n\n", _toctree(names.split())]
    parts += [
        "## Module values and functions\n\n",
        f"[Module values and functions]({MODULE_PAGE}.rst) has what stands in the module itself,\n"
        "such as :py:data:`~Tessora.Res`. The :ref:`index <genindex>` lists all names by the\n"
        "alphabet.\n\n",
        _toctree([MODULE_PAGE]),
    ]
    text = "".join(parts).replace(reference_text.APART, "")
    return re.sub(r":([a-z]+(?::[a-z]+)?):(?=`)", r"{\1}", text)


def _toctree(names):
    return "```{toctree}\n:hidden:\n\n" + "".join(f"{name}\n" for name in names) + "```\n\n"


def _module(rows, head, links, types):
    import Tessora

    from reference_defaults import shown

    parts = [
        _title("Module values and functions"),
        ".. py:currentmodule:: Tessora\n\n",
        'A script may replace these values: ``Tessora.Res = Tessora.PyGameResManager("assets")``.\n'
        "The module also hands on the names of ``pygame.locals`` and ``pygame.math``.\n\n",
        _title("Values", "-"),
    ]
    for name, type_, doc in head_values(head):
        parts.append(_entry("data", name, reference_text.text(doc, links), type=type_))
    for row in rows:
        if row["kind"] == "value":
            default = shown(getattr(Tessora, row["name"]))
            parts.append(_variable("data", row["name"], row, default, links, types, None))
    parts.append(_title("Functions", "-"))
    for row in rows:
        if row["kind"] == "function":
            parts.append(_function("function", row["name"], row, links, types, None))
    return "".join(parts)


def _class(row, links, types, defaults):
    name = row["name"]
    parts = [_title(name), ".. py:currentmodule:: Tessora\n\n"]
    body = reference_text.text(row["doc"], links, name, _parameters(row["signature"]))
    bases = links.chain(name)[1:]
    if bases:
        body += "\n\nBase: " + ", which is a ".join(f":py:class:`{each}`" for each in bases) + "."
    derived = [each for each, other in links.rows.items() if other.get("base") == name]
    if derived:
        body += "\n\nDerived: " + ", ".join(f":py:class:`{each}`" for each in derived) + "."
    parts.append(_entry("class", name + types.plain(row["signature"]), body))

    data, methods = _parted(row["members"])
    for title, members in (("Attributes", data), ("Methods", methods)):
        if members:
            parts.append(_title(title, "-"))
        for member in members:
            head = f"{name}.{member['name']}"
            if member["kind"] == "method":
                parts.append(_function("method", head, member, links, types, name))
            else:
                default = defaults[member["name"]]
                parts.append(_variable("attribute", head, member, default, links, types, name))
    if bases:
        parts.append(_title("Inherited", "-"))
        taken = set(links.members[name])
        for base in bases:
            parts.append(_inherited(base, taken, links))
            taken.update(links.members[base])
    return "".join(parts)


def _parted(members):
    """Attributes, each with its accessors behind it, and the other methods."""
    data, methods, attribute = [], [], None
    for member in members:
        if member["kind"] != "method":
            attribute = member["name"]
            data.append(member)
            continue
        named = _ACCESSOR.match(member["doc"])
        (data if named and attribute in named.groups() else methods).append(member)
    return data, methods


def _variable(directive, head, row, default, links, types, owner):
    # The default stands apart here, as it was read from an object.
    told = reference_text.sentence(row["doc"].partition(" Default ")[0])
    body = reference_text.text(told, links, owner, {row["name"]})
    if default.words:
        body += f"\n\nDefault: {reference_text.text(default.words, links)}."
    return _entry(directive, head, body, type=types.plain(row["type"]), value=default.code)


def _function(directive, head, row, links, types, owner):
    own = {*_parameters(row["signature"]), row["name"]}
    if _ACCESSOR.match(row["doc"]):
        own.difference_update(_ACCESSOR.match(row["doc"]).groups())
    body = reference_text.text(reference_text.sentence(row["doc"]), links, owner, own)
    return _entry(directive, head + types.plain(row["signature"]), body)


def _parameters(signature):
    return set(re.findall(r"(\w+): ", signature))


def _inherited(base, taken, links):
    names = sorted(set(links.members[base]) - taken, key=str.lower)
    listed = ", ".join(links.role(name, base) for name in names)
    return f"From :py:class:`{base}`: {listed}.\n\n"


def write(folder):
    """The reference of the module on the path, as pages in the folder."""
    import pygame
    import Tessora

    import reference_defaults

    pygame.init()
    pygame.display.set_mode((640, 480))
    head = stubs.HEAD.read_text(encoding="utf-8")
    folder.mkdir(parents=True)
    texts = pages(Tessora.__declarations__(), head, reference_defaults.defaults)
    for name, text in texts.items():
        (folder / name).write_text(text, encoding="utf-8")
    pygame.quit()
