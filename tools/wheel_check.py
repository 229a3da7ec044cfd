"""Builds the source package and from it a wheel, as an author's pip would, installs that into an
environment of its own, and sees that the module imports there, that a type checker finds its stubs
and that all of them have the version of CMakeLists.txt."""

import os
import shutil
import subprocess
import sys
import tarfile

import version_check
from common import (
    BUILD,
    ROOT,
    TOOLS,
    Problem,
    base_python,
    clean_environment,
    run,
    stubtest_command,
)

FOLDER = BUILD / "wheel-check"
DIST = FOLDER / "dist"

# What a source package holds beside the sources of engine/ and module/.
PACKAGED = """
    CHANGELOG.md CMakeLists.txt LICENSE PKG-INFO README.md Tessora.pyi docs/demo.png py.typed
    pyproject.toml
""".split()
# Pictures that the README shows.
PACKAGED += [f"docs/{path.name}" for path in sorted((ROOT / "docs").glob("thumb_*.png"))]

SCRIPT = """\
import Tessora

node = Tessora.GameNode(None, 1, 2)
node.SetX(3)
assert node.GetXY() == (3, 2), node.GetXY()
"""

VERSIONS = """\
import sys
from importlib.metadata import version

import Tessora

found = Tessora.__version__, version("Tessora")
sys.exit(found != (sys.argv[1], sys.argv[1]) and f"module and package have the versions {found}")
"""

# A type checker that has not found the stubs takes the module for "Any" and lets this pass.
WRONG = """\
import Tessora

Tessora.GameNode(None).NoSuchMethod()
"""


def main():
    version_check.check_here()
    if FOLDER.exists():
        shutil.rmtree(str(FOLDER))
    FOLDER.mkdir(parents=True)
    run([base_python(), "-m", "venv", FOLDER / "venv"])
    python = FOLDER / "venv" / ("Scripts" if os.name == "nt" else "bin") / "python"
    pip = [python, "-m", "pip", "--disable-pip-version-check", "-q"]
    for group in ("package", "test", "stubs"):
        run([*pip, "install", "-r", TOOLS / f"requirements-{group}.txt"])
    print("Building the source package ...", flush=True)
    run([python, "-m", "build", "--sdist", "--outdir", DIST, "."])
    source = only("*.tar.gz")
    check_contents(source)
    print(f"Building a wheel from {source.name} ...", flush=True)
    run([*pip, "wheel", "--no-deps", "--wheel-dir", DIST, source])
    wheel = only("*.whl")
    print(f"Installing {wheel.name} ...", flush=True)
    run([*pip, "install", "--no-deps", wheel])
    check_installed(python)


def only(pattern):
    (path,) = DIST.glob(pattern)
    return path


def check_contents(source):
    with tarfile.open(str(source)) as package:
        found = {name.split("/", 1)[1] for name in package.getnames()}
    expected = set(PACKAGED)
    for top in ("engine", "module"):
        for end in ("*.cpp", "*.hpp"):
            expected |= {path.relative_to(ROOT).as_posix() for path in (ROOT / top).rglob(end)}
    faults = [f"lacks {name}" for name in sorted(expected - found)]
    faults += [f"holds {name}" for name in sorted(found - expected)]
    if faults:
        raise Problem(f"{source.name} " + ", ".join(faults) + ".")


def check_installed(python):
    right, wrong = FOLDER / "right.py", FOLDER / "wrong.py"
    right.write_text(SCRIPT, encoding="utf-8")
    wrong.write_text(WRONG, encoding="utf-8")
    env = clean_environment(SDL_VIDEODRIVER="dummy", SDL_AUDIODRIVER="dummy")
    env.pop("PYTHONPATH", None)
    env.pop("MYPYPATH", None)
    run([python, right], cwd=FOLDER, env=env)
    run([python, "-c", VERSIONS, version_check.version()], cwd=FOLDER, env=env)
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
