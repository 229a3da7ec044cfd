"""The modules of docs/pictures draw pictures that fit on a page."""

import pytest

import docs


@pytest.mark.parametrize("module", docs.picture_modules(), ids=lambda module: module.stem)
def test_a_module_draws_its_pictures(tmp_path, module):
    assert docs.draw(module, tmp_path) == ""
    assert [path for path in tmp_path.iterdir() if path.stem.startswith(module.stem)]


SURFACE = "import pygame\n\n\ndef picture():\n    return pygame.Surface((761, 10))\n"
FAULTS = [("wide", SURFACE, "at most 760"), ("none", "def pictures():\n    return {}\n", "no pic")]
FAULTS += [("broken", "def picture():\n    boom()\n", "boom"), ("empty", "", "no attribute")]


@pytest.mark.parametrize(("name", "text", "told"), FAULTS, ids=[fault[0] for fault in FAULTS])
def test_a_module_without_a_fitting_picture_is_refused(tmp_path, name, text, told):
    (tmp_path / (name + ".py")).write_text(text, encoding="utf-8")
    assert told in docs.draw(tmp_path / (name + ".py"), tmp_path)
