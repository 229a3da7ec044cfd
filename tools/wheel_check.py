"""Builds a wheel as an author's pip would, installs it into an environment of its own, and sees
that the module imports there and that a type checker finds its stubs."""

import os
import shutil
import subprocess
import sys

from common import BUILD, TOOLS, Problem, base_python, clean_environment, run, stubtest_command

FOLDER = BUILD / "wheel-check"

SCRIPT = """\
import Tessora

node = Tessora.GameNode(None, 1, 2)
node.SetX(3)
assert node.GetXY() == (3, 2), node.GetXY()
"""

# A type checker that has not found the stubs takes the module for "Any" and lets this pass.
WRONG = """\
import Tessora

Tessora.GameNode(None).NoSuchMethod()
"""


def main():
    if FOLDER.exists():
        shutil.rmtree(str(FOLDER))
    FOLDER.mkdir(parents=True)
    pip = ["-m", "pip", "--disable-pip-version-check", "-q"]
    run([base_python(), "-m", "venv", FOLDER / "venv"])
    python = FOLDER / "venv" / ("Scripts" if os.name == "nt" else "bin") / "python"
    print("Building a wheel ...", flush=True)
    run([python, *pip, "wheel", "--no-deps", "--wheel-dir", FOLDER / "dist", "."])
    wheels = list((FOLDER / "dist").glob("*.whl"))
    print(f"Installing {wheels[0].name} ...", flush=True)
    for group in ("test", "stubs"):
        run([python, *pip, "install", "-r", TOOLS / f"requirements-{group}.txt"])
    run([python, *pip, "install", "--no-deps", *wheels])

    right, wrong = FOLDER / "right.py", FOLDER / "wrong.py"
    right.write_text(SCRIPT, encoding="utf-8")
    wrong.write_text(WRONG, encoding="utf-8")
    env = clean_environment(SDL_VIDEODRIVER="dummy", SDL_AUDIODRIVER="dummy")
    env.pop("PYTHONPATH", None)
    env.pop("MYPYPATH", None)
    run([python, right], cwd=FOLDER, env=env)
    mypy = [python, "-m", "mypy", "--strict"]
    run([*mypy, right], cwd=FOLDER, env=env)
    found = subprocess.run(
        [str(part) for part in [*mypy, wrong]],
        cwd=str(FOLDER),
        env=env,
        stdout=subprocess.PIPE,
        text=True,
    )
    if "NoSuchMethod" not in found.stdout:
        raise Problem("mypy does not find the installed stubs:\n" + found.stdout)
    run(stubtest_command(python), cwd=FOLDER, env=env)


if __name__ == "__main__":
    try:
        main()
    except Problem as problem:
        sys.exit(f"error: {problem}")
