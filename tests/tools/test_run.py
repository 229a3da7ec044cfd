"""make run: a script of the user's with the module just built."""

import os
from types import SimpleNamespace

import pytest

import dev
from common import Problem

ENVIRONMENT = SimpleNamespace(python="python")


@pytest.fixture
def commands(monkeypatch):
    """The commands that would have been run, as (command, folder)."""
    found = []
    build = SimpleNamespace(run_environment=dict)
    monkeypatch.setattr(dev, "prepare", lambda environment, *groups: build)
    monkeypatch.setattr(dev, "run", lambda command, env, cwd: found.append((command, cwd)))
    return found


def test_a_script_is_run_in_the_caller_s_folder(tmp_path, monkeypatch, commands):
    monkeypatch.chdir(tmp_path)
    (tmp_path / "my game.py").touch()
    dev.run_script(ENVIRONMENT, ["my game.py", "--fast"])
    ((command, folder),) = commands
    assert command == ["python", (tmp_path / "my game.py").resolve(), "--fast"]
    assert os.path.samefile(folder, str(tmp_path))


@pytest.mark.parametrize(
    ("arguments", "message"),
    [([], "which script"), ([""], "which script"), (["no.py"], "there is no file .*no.py")],
    ids=["nothing", "empty name", "unknown file"],
)
def test_a_script_that_is_not_there_is_asked_for(commands, arguments, message):
    with pytest.raises(Problem, match=message):
        dev.run_script(ENVIRONMENT, arguments)
    assert commands == []
