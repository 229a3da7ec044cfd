"""The writer of Tessora.pyi: declarations in, Python text out."""

import ast
import runpy

import pytest

import stubs
from common import ROOT, Problem

HEAD = "from __future__ import annotations\n\nPass: Any\n"


def value(name="speed", type="float", doc="Pixels per second."):
    return {"kind": "value", "name": name, "type": type, "doc": doc}


def attribute(name, type="float", doc="Pixels."):
    return {"kind": "attribute", "name": name, "type": type, "doc": doc}


def method(name, signature="() -> None", doc="Do it."):
    return {"kind": "method", "name": name, "signature": signature, "doc": doc}


def a_class(*members, name="Node", base=None, signature="(x: float = 0)"):
    row = {"kind": "class", "name": name, "base": base, "doc": "A node.", "signature": signature}
    return {**row, "members": list(members)}


def lines(*declarations):
    text = stubs.stub_text(HEAD, declarations)
    ast.parse(text)
    return text[len(HEAD) :].strip("\n").split("\n")


def test_the_head_comes_first():
    assert stubs.stub_text(HEAD, [value()]).startswith(HEAD)


def test_a_value_is_followed_by_its_description():
    assert lines(value()) == ["speed: float", '"""Pixels per second."""']


def test_a_function_has_its_signature_and_docstring():
    row = {"kind": "function", "name": "f", "signature": "(x: int, *y: str) -> bool", "doc": "Ask."}
    assert lines(row) == ["def f(x: int, *y: str) -> bool:", '    """Ask."""']


def test_a_class_names_its_base_and_has_its_constructor_between_data_and_methods():
    found = lines(a_class(attribute("x"), method("Go"), base="Thing"))
    assert [line for line in found if line] == [
        "@_disjoint_base",
        "class Node(Thing):",
        '    """A node."""',
        "    x: float",
        '    """Pixels."""',
        "    def __init__(self, x: float = 0) -> None: ...",
        "    def Go(self) -> None:",
        '        """Do it."""',
    ]


def test_a_class_without_methods_ends_with_its_constructor():
    found = lines(a_class(attribute("x"), signature="()"))
    assert found[-1] == "    def __init__(self) -> None: ..."


def test_a_property_is_read_and_written():
    row = {"kind": "property", "name": "X", "type": "float", "doc": "Place."}
    found = [line.strip() for line in lines(a_class(row)) if line]
    assert found[3:8] == [
        "@property",
        "def X(self) -> float:",
        '"""Place."""',
        "@X.setter",
        "def X(self, value: float) -> None: ...",
    ]


@pytest.mark.parametrize(
    ("text", "shown"),
    [
        ("One line.", '"""One line."""\n'),
        ('"flat" or "raised"', '""" "flat" or "raised" """\n'),
        ("Back\\slash", '"""Back\\\\slash"""\n'),
        ("word " * 30, '"""' + ("word " * 19).strip() + "\n" + ("word " * 11).strip() + '\n"""\n'),
        ("First.\n\nSecond\nline.", '"""First.\n\nSecond line.\n"""\n'),
        ("First:\n\n- a list\n- kept", '"""First:\n\n- a list\n- kept\n"""\n'),
        ("First.\n\n>>> x = 1\n>>> x\n1", '"""First.\n\n>>> x = 1\n>>> x\n1\n"""\n'),
    ],
    ids=["short", "quotation marks", "backslash", "filled", "paragraphs", "list", "example"],
)
def test_docstrings_are_filled(text, shown):
    assert stubs.docstring(text) == shown


@pytest.mark.parametrize(
    ("declarations", "message"),
    [
        ([value(doc=" ")], "speed has no docstring"),
        ([value(type="list[")], "speed: no valid declaration"),
        ([value(), value()], "speed is declared twice"),
        ([value("Pass")], "Pass is declared twice"),
        ([a_class(method("Go"), method("Go"))], "Node.Go is declared twice"),
        ([a_class(method("Go", "(x -> None"))], "Node.Go: no valid declaration"),
        ([a_class(method("Go", "(x)"))], "Node.Go: the signature has no result type"),
        ([a_class(signature="x: float")], "Node: no valid declaration"),
    ],
    ids=[
        "no docstring",
        "broken type",
        "value twice",
        "value of the head",
        "method twice",
        "broken signature",
        "no result type",
        "broken constructor",
    ],
)
def test_faults_are_named(declarations, message):
    with pytest.raises(Problem, match=message):
        stubs.stub_text(HEAD, declarations)


def test_the_real_head_declares_what_the_classes_need():
    text = stubs.HEAD.read_text(encoding="utf-8")
    assert "_disjoint_base" in stubs.stub_text(text, [a_class()])


def test_the_stubs_can_be_executed():
    names = runpy.run_path(str(ROOT / "Tessora.pyi"))
    assert issubclass(names["GUI_Button"], names["GameNode"])
