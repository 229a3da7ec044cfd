"""What help() tells: a text for everything, defaults that are true, examples that run."""

import ast
import doctest
import inspect
import io
import re

import pygame
import pytest
import Tessora as T
from helpers import engine_classes

ROWS = T.__declarations__()
CLASS_ROWS = [row for row in ROWS if row["kind"] == "class"]
CLASSES = [getattr(T, row["name"]) for row in CLASS_ROWS]
BY_NAME = [row["name"] for row in CLASS_ROWS]


@pytest.fixture
def names(screen, tmp_path, monkeypatch):
    """What the examples take for granted: a screen, a node, and files by their names."""
    for name in ("hero.png", "run_0.png", "run_1.png", "fire.png"):
        pygame.image.save(pygame.Surface((48, 64)), str(tmp_path / name))
    monkeypatch.chdir(tmp_path)
    monkeypatch.setattr(T, "Res", T.PyGameResManager(str(tmp_path)))
    return {"Tessora": T, "pygame": pygame, "screen": screen, "node": T.GameNode(None, 10, 20)}


def test_every_text_begins_with_a_whole_sentence():
    told = {row["name"]: row["doc"] for row in ROWS}
    for row in CLASS_ROWS:
        told.update((row["name"] + "." + each["name"], each["doc"]) for each in row["members"])
    is_whole = re.compile(r'([A-Z`"]|pygame\.).*\.').fullmatch
    assert [
        n for n, doc in told.items() if not is_whole(" ".join(doc.split("\n\n")[0].split()))
    ] == []


def test_members_carry_their_text():
    for row, cls in zip(CLASS_ROWS, CLASSES):
        for each in row["members"]:
            assert inspect.getdoc(vars(cls)[each["name"]]) == inspect.cleandoc(each["doc"])


# From the declaration: Python 3.9 drops the signatures of such classes.
def new_object(row):
    made = ast.parse(f"def make{row['signature']}: pass").body[0].args
    needed = made.args[: len(made.args) - len(made.defaults)]
    values = {"parent": None, "resdir": "no such folder"}
    return getattr(T, row["name"])(*[values.get(each.arg, 1) for each in needed])


@pytest.mark.parametrize("row", CLASS_ROWS, ids=BY_NAME)
def test_the_default_of_an_attribute_is_the_one_that_is_told(row, screen):
    new = new_object(row)
    for each in row["members"]:
        told = re.search(r"Default (.+)\.$", each["doc"])
        other = re.search(r"at first the one in `(\w+)`", each["doc"])
        if each["kind"] == "attribute" and told:
            expected = eval(told.group(1).replace("`", ""), {"pygame": pygame, **vars(T)})
            assert getattr(new, each["name"]) == expected, each["name"]
        elif each["kind"] == "attribute" and other:
            assert getattr(new, each["name"]) is getattr(new, other.group(1)), each["name"]


@pytest.mark.parametrize("cls", CLASSES, ids=BY_NAME)
def test_the_example_of_a_class_runs(cls, names):
    example = doctest.DocTestParser().get_doctest(cls.__doc__, names, cls.__name__, None, None)
    report = io.StringIO()
    failed, tried = doctest.DocTestRunner(verbose=False).run(example, out=report.write)
    assert tried > 0 and failed == 0, report.getvalue()


def test_the_first_page_names_every_class():
    assert [name for name in BY_NAME if not re.search(rf"\b{name}\b", T.__doc__)] == []
    assert {cls.__name__ for cls in engine_classes(T)} == set(BY_NAME)


def test_the_program_of_the_first_page_runs(screen, tmp_path, monkeypatch):
    program = [line[4:] for line in T.__doc__.split("\n") if line.startswith("    ") or not line]
    press = pygame.event.Event(pygame.MOUSEBUTTONDOWN, pos=(30, 30), button=1)
    release = pygame.event.Event(pygame.MOUSEBUTTONUP, pos=(30, 30), button=1)
    batches = [[], [press, release], [pygame.event.Event(pygame.QUIT)]]
    monkeypatch.setattr(pygame.event, "get", lambda: batches.pop(0))
    monkeypatch.setattr(T, "Res", None)
    monkeypatch.chdir(tmp_path)
    found = {}
    with pytest.raises(SystemExit):
        exec("\n".join(program), found)
    assert batches == []
    assert found["screen"].get_at((30, 100)) == (255, 255, 255)
    assert isinstance(T.Res, T.PyGameResManager)
