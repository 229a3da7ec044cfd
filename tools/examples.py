"""The examples: what there is, what each shows, and the picture that one draws headless."""

import ast
import os
import re
import subprocess
import sys

from common import ROOT, Problem, clean_environment

FOLDER = ROOT / "examples"
# Parts of other examples, which show nothing by themselves.
_HELPERS = ("example_window",)
HEADLESS = {"SDL_VIDEODRIVER": "dummy", "SDL_AUDIODRIVER": "dummy", "TESSORA_HEADLESS": "1"}


def find():
    """The examples by their names: scripts, and folders with a main.py."""
    scripts = [path for path in FOLDER.glob("*.py") if path.stem not in _HELPERS]
    scripts += FOLDER.glob("tutorial/step_*.py")
    games = {path.parent: path for path in FOLDER.glob("**/main.py")}
    games.update((path.with_suffix(""), path) for path in scripts)
    return {
        folder.relative_to(FOLDER).as_posix(): path
        for folder, path in sorted(games.items(), key=lambda item: item[0].as_posix())
    }


def summary(path):
    """The first line of a script's docstring."""
    docstring = ast.get_docstring(ast.parse(path.read_text(encoding="utf-8")))
    return (docstring or "").partition("\n")[0]


def listing():
    found = find()
    width = max(map(len, found))
    return "".join(f"{name:{width}}  {summary(path)}\n" for name, path in found.items())


def script(name):
    found = find()
    path = found.get(name.replace("\\", "/"))
    if path is None:
        how = "which example? make example NAME=buttons (Windows: py tools\\dev.py example buttons)"
        said = f"there is no example {name}." if name else how
        raise Problem(f"{said} There are\n{listing()}".rstrip())
    return path


def draw(name, folder, python=sys.executable, env=None):
    """Play an example headless in a folder; the path of the picture that it writes there."""
    done = subprocess.run(
        [str(python), str(script(name))],
        cwd=str(folder),
        env=dict(env or clean_environment(), **HEADLESS),
        stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        text=True,
    )
    written = re.findall(r"^wrote (.+)$", done.stdout, re.M)
    if done.returncode or not written:
        raise Problem(f"the example {name} drew no picture:\n{done.stdout}")
    return os.path.join(str(folder), written[-1])
