"""The writer of the manual's reference: declarations in, pages out."""

import pygame
import pytest
import Tessora

import reference
import reference_defaults
import reference_text
import stubs
from common import Problem

ROWS = Tessora.__declarations__()
HEAD = stubs.HEAD.read_text(encoding="utf-8")
LINKS = reference_text.Links(ROWS)


@pytest.fixture(scope="module")
def pages():
    pygame.init()
    pygame.display.set_mode((64, 48))
    return reference.pages(ROWS, HEAD, reference_defaults.defaults)


def entries(page):
    heads = [line.split(":: ", 1)[1] for line in page.split("\n") if line.startswith(".. py:")]
    return [head.split("(")[0] for head in heads]


def test_every_declaration_has_one_entry(pages):
    for row in ROWS:
        if row["kind"] == "class":
            members = [f"{row['name']}.{member['name']}" for member in row["members"]]
            expected = sorted(["Tessora", row["name"], *members])
            assert sorted(entries(pages[row["name"] + ".rst"])) == expected
    others = [row["name"] for row in ROWS if row["kind"] != "class"]
    others += [name for name, _, _ in reference.head_values(HEAD)]
    assert sorted(entries(pages["module.rst"])) == sorted(["Tessora", *others])


def test_an_entry_has_type_default_and_text(pages):
    expected = ".. py:attribute:: GUI_Image.alpha\n   :type: float\n   :value: 255\n\n   "
    at = pages["GUI_Image.rst"].index(expected) + len(expected)
    assert pages["GUI_Image.rst"][at].isupper()


def test_a_default_is_told_once(pages):
    assert [name for name, text in pages.items() if " Default " in text] == []


def test_the_short_names_of_the_stubs_are_spelt_out(pages):
    assert "str | os.PathLike[str]" in pages["PyGameResManager.rst"]
    assert not [name for name, text in pages.items() if "_ImageFiles" in text or "_T]" in text]


@pytest.mark.parametrize("doc", ["", " \n", "."])
def test_an_empty_text_is_refused(doc):
    member = {"kind": "attribute", "name": "speed", "type": "int", "doc": doc}
    row = {"kind": "class", "name": "Lamp", "base": None, "doc": "A lamp.", "signature": "()"}
    with pytest.raises(Problem, match=r"Lamp\.speed"):
        reference.complete([{**row, "members": [member]}])


def test_a_class_without_a_group_is_refused():
    row = {"kind": "class", "name": "Lamp", "base": None, "doc": "A lamp.", "signature": "()"}
    with pytest.raises(Problem, match="Lamp"):
        reference.pages([*ROWS, {**row, "members": []}], "", {})


ALPHA = ":py:attr:`~Tessora.GUI_Image.alpha`"
TEXTS = [
    ("Set `alpha` to `value`.", f"Set {ALPHA} to ``value``."),
    ("Like `alpha`s.", f"Like {ALPHA}\\ s."),
    ("See SetXY.", "See :py:meth:`~Tessora.GameNode.SetXY`."),
    ("With Update().", "With Update()."),
    ("See GUI_Image.SetImage.", "See :py:meth:`~Tessora.GUI_Image.SetImage`."),
    ('Kind, "GameNode".', 'Kind, ``"GameNode"``.'),
    ("Names on_ and 2 * 3 | 4.", "Names on\\_ and 2 \\* 3 \\| 4."),
    ("First.\n\n    a = 1\n    b = 2", "First.\n\n.. code-block:: python\n\n   a = 1\n   b = 2"),
    ("    a = 1\n\n    b = 2", ".. code-block:: python\n\n   a = 1\n\n   b = 2"),
    ("All:\n\n- one\n- `alpha`", f"All:\n\n- one\n- {ALPHA}"),
]


@pytest.mark.parametrize(("doc", "expected"), TEXTS, ids=[doc for doc, _ in TEXTS])
def test_a_docstring_becomes_markup_with_links(doc, expected):
    assert reference_text.text(doc, LINKS, "GUI_Label", {"value"}) == expected


def test_defaults_are_what_a_new_object_holds(pages):
    rows = {row["name"]: row for row in ROWS}
    move = reference_defaults.defaults(rows["MoveToAction"])
    assert move["duration"].words == "from the argument `duration`"
    assert move["dstPostion"].words == "from the arguments `x` and `y`"
    image = reference_defaults.defaults(rows["GUI_Image"])
    assert image["bgColor"].code == "pygame.Color(255, 255, 255, 255)"


def test_values_of_the_head_with_a_text_are_found():
    head = 'x: int\n"""Pixels."""\nif True:\n    y: list[int]\n    """Sizes."""\nz: Any\n_w = 1\n'
    found = [("x", "int", "Pixels."), ("y", "list[int]", "Sizes.")]
    assert list(reference.head_values(head)) == found
