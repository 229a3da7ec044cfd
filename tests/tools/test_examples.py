"""make examples, make example: every example with what it shows, and one of them run."""

import os
from types import SimpleNamespace

import pytest

import dev
import examples
from common import Problem

ENVIRONMENT = SimpleNamespace(python="python")


@pytest.fixture
def runs(monkeypatch):
    """The runs there would have been, as (command, environment, folder)."""
    found = []
    monkeypatch.setattr(dev, "prepare", lambda *_: SimpleNamespace(run_environment=dict))
    monkeypatch.setattr(dev, "run", lambda command, env, cwd: found.append((command, env, cwd)))
    return found


def test_every_example_says_in_a_line_what_it_shows():
    found = examples.find()
    assert {"buttons", "layers", "particles", "platformer", "visual_novel"} < set(found)
    assert "example_window" not in found
    for name, path in found.items():
        assert len(examples.summary(path)) > 20, name
    assert len(examples.listing().splitlines()) == len(found)


def test_the_gallery_shows_every_example():
    page = (examples.ROOT / "docs" / "gallery.md").read_text(encoding="utf-8")
    for name in examples.find():
        if not name.startswith("tutorial/"):
            assert f"make example NAME={name}\n" in page, name
            assert f"/pictures/gallery_{name}.png" in page, name


@pytest.mark.parametrize("name", ["buttons", "star_catcher"])
def test_an_example_is_run_in_the_caller_s_folder(tmp_path, monkeypatch, runs, name):
    monkeypatch.chdir(tmp_path)
    dev.run_example(ENVIRONMENT, [name, "--fast"])
    (((_, script, option), env, folder),) = runs
    assert (script, option, env) == (examples.find()[name], "--fast", {})
    assert os.path.samefile(folder, str(tmp_path))


def test_an_example_can_be_asked_for_its_picture(runs):
    dev.run_example(ENVIRONMENT, ["buttons", "--picture"])
    (((_, script), env, _),) = runs
    assert script.name == "buttons.py"
    assert env["TESSORA_HEADLESS"] == "1" and env["SDL_VIDEODRIVER"] == "dummy"


@pytest.mark.parametrize(
    ("arguments", "message"),
    [([], "which example"), ([""], "which example"), (["no"], "no example no[^$]*buttons  ")],
    ids=["nothing", "empty name", "unknown"],
)
def test_an_example_that_is_not_there_is_asked_for_with_the_list(runs, arguments, message):
    with pytest.raises(Problem, match=message):
        dev.run_example(ENVIRONMENT, arguments)
    assert runs == []
