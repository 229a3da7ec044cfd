"""Compares the docstrings of Tessora.pyi, which editors show, with those of the module on the
path; --fix copies the module's into the file."""

import argparse
import ast
import inspect
import sys
import textwrap

import Tessora

from common import ROOT

STUB = ROOT / "Tessora.pyi"
WIDTH = 96


def documented(tree):
    """Every documented statement of the stub: its name, the object that it describes, its
    docstring's statement or None."""
    yield from _members(tree.body, Tessora, "")
    for node in tree.body:
        if isinstance(node, ast.ClassDef):
            yield from _members(node.body, getattr(Tessora, node.name), node.name + ".")


def _members(body, owner, prefix):
    for node, after in zip(body, [*body[1:], None]):
        if isinstance(node, ast.AnnAssign):
            name, candidate = node.target.id, after
        elif isinstance(node, (ast.ClassDef, ast.FunctionDef)):
            name, candidate = node.name, node.body[0]
            if any(isinstance(each, ast.Attribute) for each in getattr(node, "decorator_list", [])):
                continue  # a property's setter
        else:
            continue
        # Values of the module carry no description of their own, and a class describes its
        # constructor.
        is_value = not prefix and isinstance(node, ast.AnnAssign)
        if name.startswith("_") or is_value:
            continue
        yield prefix + name, inspect.getattr_static(owner, name), _docstring(candidate)


def _docstring(node):
    is_text = isinstance(node, ast.Expr) and isinstance(node.value, ast.Constant)
    return node if is_text and isinstance(node.value.value, str) else None


def words(text):
    return " ".join(text.split())


def laid_out(text, column):
    indent = " " * column
    paragraphs = (words(paragraph) for paragraph in inspect.cleandoc(text).split("\n\n"))
    wrapped = (textwrap.fill(each, WIDTH - column, break_on_hyphens=False) for each in paragraphs)
    body = "\n\n".join(wrapped)
    if "\n" in body:
        body += "\n"
    # A quotation mark must not touch those around the text.
    body = (" " if body[0] == '"' else "") + body + (" " if body[-1] == '"' else "")
    return textwrap.indent(f'"""{body}"""', indent).split("\n")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--fix", action="store_true")
    fix = parser.parse_args().fix
    source = STUB.read_text(encoding="utf-8")
    lines = source.split("\n")
    faults = []
    # From the end, so that the places of those before stay right.
    for name, target, node in reversed(list(documented(ast.parse(source)))):
        text = target.__doc__
        if not text:
            faults.append(f"{name}: the module has no docstring")
        elif node is None:
            faults.append(f"{name}: Tessora.pyi has no docstring")
        elif words(node.value.value) != words(text):
            if fix:
                lines[node.lineno - 1 : node.end_lineno] = laid_out(text, node.col_offset)
            else:
                faults.append(
                    f"{name}: the docstrings differ (tools/dev.py stubs-docs copies the module's)"
                )
    if fix:
        STUB.write_bytes("\n".join(lines).encode())
    if faults:
        sys.exit("\n".join(reversed(faults)))


if __name__ == "__main__":
    main()
