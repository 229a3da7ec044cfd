"""What the project's helper scripts share: places, running programs, plain error lines."""

import os
import shutil
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
TOOLS = ROOT / "tools"
BUILD = ROOT / "build"

# What a calling "make" leaves in the environment confuses the builds that run inside it.
_MAKE_VARIABLES = ("MAKEFLAGS", "MFLAGS", "MAKELEVEL", "MAKEOVERRIDES", "GNUMAKEFLAGS")


class Problem(Exception):
    """Something that the user has to put right; the message says what, in one line."""


def clean_environment(**changes):
    env = {name: value for name, value in os.environ.items() if name not in _MAKE_VARIABLES}
    env.update(changes)
    return env


def run(command, env=None, cwd=ROOT):
    """Run a program in the foreground; its failure ends this one with the same exit code."""
    sys.stdout.flush()
    code = subprocess.call([str(part) for part in command], env=env or clean_environment(), cwd=cwd)
    if code:
        raise SystemExit(code if code > 0 else 128 - code)


def output_of(command, env=None):
    """A program's standard output, or None when it cannot be run or fails.

    A command on the path need not work: version managers leave placeholders there that only
    print an error.
    """
    try:
        done = subprocess.run(
            [str(part) for part in command],
            env=env or clean_environment(),
            cwd=str(ROOT),
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            stderr=subprocess.DEVNULL,
            text=True,
        )
    except OSError:
        return None
    return done.stdout.strip() if done.returncode == 0 else None


def find_program(*names, check="--version"):
    """The first of the named programs that is there and really runs, with what it printed."""
    for name in names:
        path = shutil.which(name)
        if path:
            printed = output_of([path, check])
            if printed is not None:
                return path, printed
    return None, None


def base_python():
    """The interpreter that the running one's virtual environment, if any, was made from."""
    if os.name == "nt":
        candidates = [Path(sys.base_prefix) / "python.exe"]
    else:
        folder = Path(sys.base_prefix) / "bin"
        major, minor = sys.version_info[:2]
        candidates = [folder / f"python{major}.{minor}", folder / "python3"]
    for candidate in candidates:
        if candidate.exists():
            return candidate
    return Path(sys.executable)


def stubtest_command(python):
    """Compares the type stubs that mypy finds with the module that the interpreter finds."""
    command = [python, "-m", "mypy.stubtest", "Tessora"]
    command += ["--allowlist", TOOLS / "stubtest-allowlist.txt"]
    if sys.version_info < (3, 10):
        old = TOOLS / "stubtest-allowlist-old.txt"
        command += ["--allowlist", old, "--ignore-unused-allowlist"]
    return command
