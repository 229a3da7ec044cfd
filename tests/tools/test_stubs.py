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


DOCSTRINGS = {
    "short": ("One line.", "One line."),
    "quotation marks": ('"flat" or "raised"', ' "flat" or "raised" '),
    "backslash": ("Back\\slash", "Back\\\\slash"),
    "filled": ("word " * 30, ("word " * 19).strip() + "\n" + ("word " * 11).strip() + "\n"),
    "paragraphs": ("First.\n\nSecond\nline.", "First.\n\nSecond line.\n"),
    "list": ("First:\n\n- a list\n- kept", "First:\n\n- a list\n- kept\n"),
    "example": ("First.\n\n>>> x = 1\n>>> x\n1", "First.\n\n>>> x = 1\n>>> x\n1\n"),
}


@pytest.mark.parametrize("name", DOCSTRINGS)
def test_docstrings_are_filled(name):
    text, shown = DOCSTRINGS[name]
    assert stubs.docstring(text) == f'"""{shown}"""\n'


FAULTS = {
    "speed has no docstring": [value(doc=" ")],
    "speed: no valid declaration": [value(type="list[")],
    "speed is declared twice": [value(), value()],
    "Pass is declared twice": [value("Pass")],
    "Node.Go is declared twice": [a_class(method("Go"), method("Go"))],
    "Node.Go: no valid declaration": [a_class(method("Go", "(x -> None"))],
    "Node.Go: the signature has no result type": [a_class(method("Go", "(x)"))],
    "Node: no valid declaration": [a_class(signature="x: float")],
}


@pytest.mark.parametrize("message", FAULTS)
def test_faults_are_named(message):
    with pytest.raises(Problem, match=message):
        stubs.stub_text(HEAD, FAULTS[message])


def test_the_real_head_declares_what_the_classes_need():
    text = stubs.HEAD.read_text(encoding="utf-8")
    assert "_disjoint_base" in stubs.stub_text(text, [a_class()])


def test_the_stubs_can_be_executed():
    names = runpy.run_path(str(ROOT / "Tessora.pyi"))
    assert issubclass(names["GUI_Button"], names["GameNode"])
