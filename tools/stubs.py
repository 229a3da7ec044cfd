"""Writes Tessora.pyi: the docstring of the module on the path, the head from tools/stub_head.pyi,
then what the module says of its contents. --check compares instead."""

import argparse
import ast
import difflib
import inspect
import subprocess
import sys
import textwrap

from common import ROOT, TOOLS, Problem

STUB = ROOT / "Tessora.pyi"
HEAD = TOOLS / "stub_head.pyi"
WIDTH = 96


def stub_text(head, declarations):
    """The whole file, but for the layout of long lines, which is the formatter's."""
    parts = []
    taken = _assigned_names(head)
    for row in declarations:
        if row["name"] in taken:
            raise Problem(f"{row['name']} is declared twice, by the module or by {HEAD.name}.")
        taken.add(row["name"])
        parts.append(_MODULE_ROWS[row["kind"]](row))
    return head.rstrip("\n") + "\n\n" + "".join(parts)


def laid_out(text):
    """The text as the formatter lays it out, with the project's settings."""
    done = subprocess.run(
        [sys.executable, "-m", "ruff", "format", "--quiet", "--stdin-filename", str(STUB), "-"],
        cwd=str(ROOT),
        input=text.encode(),
        capture_output=True,
    )
    if done.returncode:
        raise Problem("ruff does not lay the stubs out:\n" + done.stderr.decode(errors="replace"))
    return done.stdout.decode()


def docstring(text, indent=""):
    """A docstring's lines: paragraphs are filled; lists, examples, indented lines are kept."""
    text = inspect.cleandoc(text).strip().replace("\\", "\\\\").replace('"""', '\\"\\"\\"')
    paragraphs = []
    for paragraph in text.split("\n\n"):
        kept = (" ", "- ", ">>> ")
        is_prose = not any(line.startswith(kept) for line in paragraph.split("\n"))
        paragraphs.append(_filled(paragraph, WIDTH - len(indent)) if is_prose else paragraph)
    body = "\n\n".join(paragraphs)
    if "\n" in body:
        body += "\n"
    # A quotation mark must not touch those around the text.
    before = " " if body.startswith('"') else ""
    after = " " if body.endswith('"') else ""
    return textwrap.indent(f'"""{before}{body}{after}"""', indent) + "\n"


def _filled(paragraph, width):
    return textwrap.fill(
        " ".join(paragraph.split()), width, break_on_hyphens=False, break_long_words=False
    )


def _assigned_names(head):
    names = set()
    for node in ast.walk(ast.parse(head)):
        if isinstance(node, ast.Name) and isinstance(node.ctx, ast.Store):
            names.add(node.id)
        elif isinstance(node, (ast.FunctionDef, ast.ClassDef)):
            names.add(node.name)
    return names


def _variable(row, owner="", indent=""):
    where = owner + row["name"]
    _parsed(where, f"{row['name']}: {row['type']}")
    text = f"{indent}{row['name']}: {row['type']}\n"
    return text + docstring(_documented(where, row), indent)


def _function(row, owner="", indent=""):
    where = owner + row["name"]
    signature = _with_self(row["signature"]) if owner else row["signature"]
    definition = f"def {row['name']}{signature}:"
    if _parsed(where, definition + " ...").returns is None:
        raise Problem(f"{where}: the signature has no result type: {row['signature']}")
    body = docstring(_documented(where, row), indent + "    ")
    return f"\n{indent}{definition}\n{body}"


def _property(row, owner):
    where, name = owner + row["name"], row["name"]
    _parsed(where, f"{name}: {row['type']}")
    return (
        f"\n    @property\n    def {name}(self) -> {row['type']}:\n"
        + docstring(_documented(where, row), " " * 8)
        + f"    @{name}.setter\n    def {name}(self, value: {row['type']}) -> None: ...\n"
    )


def _constructor(row):
    definition = f"def __init__{_with_self(row['signature'])} -> None: ..."
    _parsed(row["name"], definition)
    return f"\n    {definition}\n"


def _class(row):
    """The constructor stands before the methods, after the data."""
    name = row["name"]
    # A row of a class brings its accessors along: the attributes stand before all methods.
    order = ("attribute", "method", "property")
    members = sorted(row["members"], key=lambda member: order.index(member["kind"]))
    base = f"({row['base']})" if row["base"] else ""
    parts = [
        f"\n@_disjoint_base\nclass {name}{base}:\n",
        docstring(_documented(name, row), "    "),
        "\n",
    ]
    first_method = next(
        (place for place, each in enumerate(members) if each["kind"] == "method"), len(members)
    )
    taken = {"__init__"}
    for place, member in enumerate([*members, None]):
        if place == first_method:
            parts.append(_constructor(row))
        if member is None:
            break
        if member["name"] in taken:
            raise Problem(f"{name}.{member['name']} is declared twice.")
        taken.add(member["name"])
        parts.append(_MEMBER_ROWS[member["kind"]](member, name + "."))
    return "".join(parts)


_MODULE_ROWS = {"value": _variable, "function": _function, "class": _class}
_MEMBER_ROWS = {
    "attribute": lambda row, owner: _variable(row, owner, "    "),
    "method": lambda row, owner: _function(row, owner, "    "),
    "property": _property,
}


def _with_self(signature):
    inner = signature[1:]
    return "(self" + ("" if inner.startswith(")") else ", ") + inner


def _documented(where, row):
    if not (row["doc"] or "").strip():
        raise Problem(f"{where} has no docstring.")
    return row["doc"]


def _parsed(where, statement):
    try:
        return ast.parse(statement).body[0]
    except SyntaxError:
        raise Problem(f"{where}: no valid declaration: {statement}") from None


def written():
    import Tessora

    if not hasattr(Tessora, "__declarations__"):
        raise Problem(f"{Tessora.__file__} does not say what it declares.")
    body = stub_text(HEAD.read_text(encoding="utf-8"), Tessora.__declarations__())
    return laid_out(docstring(Tessora.__doc__) + "\n" + body)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--check", action="store_true", help="compare, and write nothing")
    check = parser.parse_args().check
    new = written()
    if not check:
        STUB.write_bytes(new.encode())
        return
    old = STUB.read_text(encoding="utf-8")
    if old != new:
        lines = difflib.unified_diff(
            old.split("\n"), new.split("\n"), STUB.name, "the module's", lineterm="", n=1
        )
        print("\n".join(lines))
        raise Problem(f"{STUB.name} is not what the module says: `make stubs` writes it.")


if __name__ == "__main__":
    try:
        main()
    except Problem as problem:
        sys.exit(f"error: {problem}")
