"""Finds the Python versions of this machine: on the path, with pyenv, with Windows' launcher."""

import json
import os
import shutil
import sys
from pathlib import Path

from common import base_python, output_of

SUPPORTED = ("3.8", "3.9", "3.10", "3.11", "3.12", "3.13")

_IDENTIFY = (
    "import json, sys, sysconfig, os; "
    "print(json.dumps([list(sys.version_info[:3]), sys.version_info.releaselevel, "
    "sys.executable, "
    "os.path.exists(os.path.join(sysconfig.get_paths()['include'], 'Python.h'))]))"
)


def _identify(command):
    printed = output_of([*command, "-c", _IDENTIFY])
    try:
        version, level, path, has_headers = json.loads(printed or "")
    except ValueError:
        return None
    if level != "final" or not has_headers:
        return None
    return tuple(version), path


def _candidates():
    for name in SUPPORTED:
        if shutil.which("python" + name):
            yield ["python" + name]
        if os.name == "nt" and shutil.which("py"):
            yield ["py", "-" + name]
    root = os.environ.get("PYENV_ROOT") or output_of(["pyenv", "root"])
    if root:
        program = "python.exe" if os.name == "nt" else os.path.join("bin", "python")
        for folder in sorted(Path(root).glob("versions/*")):
            if folder.name.startswith("3.") and (folder / program).exists():
                yield [str(folder / program)]
    yield [str(base_python())]


def find():
    """A dictionary from "3.8", "3.9", ... to an interpreter that runs and has its headers; of
    several the newest."""
    found = {}
    for command in _candidates():
        host = _identify(command)
        if host:
            name = ".".join(str(part) for part in host[0][:2])
            if name in SUPPORTED and host > found.get(name, ((), "")):
                found[name] = host
    return {name: found[name][1] for name in SUPPORTED if name in found}


def main():
    """Print the path of one Python: python hosts.py oldest | newest | 3.8 ..."""
    wanted = sys.argv[1]
    found = find()
    names = list(found)
    if wanted in ("oldest", "newest") and names:
        wanted = names[0 if wanted == "oldest" else -1]
    if wanted not in found:
        sys.exit(f"error: no Python {wanted} with header files found on this machine.")
    print(found[wanted])


if __name__ == "__main__":
    main()
