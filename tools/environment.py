"""The virtual environment that the commands run in, made and repaired as needed."""

import hashlib
import json
import os
import shutil
import subprocess
import sys
from pathlib import Path

from common import TOOLS, Problem, base_python, clean_environment, output_of

_UNREACHABLE = (
    "(from versions: none)",
    "NewConnectionError",
    "Temporary failure in name resolution",
    "Max retries exceeded",
    "Connection refused",
    "ProxyError",
    "Read timed out",
)


def requirements_file(group):
    return TOOLS / f"requirements-{group}.txt"


def _pip_install(python, group):
    print(f"Installing {requirements_file(group).name} ...", flush=True)
    command = [str(python), "-m", "pip", "install", "--disable-pip-version-check"]
    command += ["--no-input", "--retries", "2", "-r", str(requirements_file(group))]
    done = subprocess.run(
        command,
        env=clean_environment(),
        stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        text=True,
    )
    if done.returncode == 0:
        return
    if any(sign in done.stdout for sign in _UNREACHABLE):
        raise Problem(
            f"pip cannot get the packages of tools/{requirements_file(group).name}: connect this "
            "machine to a package index, or name a reachable one in PIP_INDEX_URL."
        )
    sys.stderr.write(done.stdout)
    raise Problem(f"pip failed on tools/{requirements_file(group).name}.")


class CurrentEnvironment:
    """The environment of the running interpreter, which its owner has already filled."""

    python = Path(sys.executable)

    def scripts(self):
        return self.python.parent

    def ensure(self, *groups):
        pass

    def add(self, group):
        _pip_install(self.python, group)

    def beside(self, suffix):
        return self


class VirtualEnvironment:
    """A virtual environment of the running interpreter's Python.

    Its record says which Python it was made from and which requirement files it holds. The record
    is away while anything is being installed, so that an interrupted run is noticed and the
    environment made anew.
    """

    def __init__(self, folder):
        self.folder = Path(folder)
        self.record_file = self.folder / "tessora.json"
        self.python = self.scripts() / ("python.exe" if os.name == "nt" else "python")
        # A moved environment does not work either: its programs name their interpreter.
        self.host = f"{base_python()} {sys.version} {self.folder}"

    def scripts(self):
        return self.folder / ("Scripts" if os.name == "nt" else "bin")

    def ensure(self, *groups):
        record = self._load() or self._create()
        for group in groups:
            digest = hashlib.sha256(requirements_file(group).read_bytes()).hexdigest()
            if record["installed"].get(group) != digest:
                self.record_file.unlink()
                try:
                    _pip_install(self.python, group)
                    record["installed"][group] = digest
                except Problem:
                    # pip gave up by itself: what was there before still is.
                    self._save(record)
                    raise
                self._save(record)

    def add(self, group):
        self.ensure(group)

    def beside(self, suffix):
        """Another environment, for requirements that do not go together with those here."""
        return VirtualEnvironment(self.folder.with_name(self.folder.name + suffix))

    def _load(self):
        try:
            record = json.loads(self.record_file.read_text(encoding="utf-8"))
            fits = record["host"] == self.host and isinstance(record["installed"], dict)
        except (OSError, ValueError, KeyError, TypeError):
            return None
        return record if fits and output_of([self.python, "-c", ""]) is not None else None

    def _create(self):
        if self.folder.exists():
            if not self._is_environment():
                raise Problem(f"{self.folder} exists and is no virtual environment: move it away.")
            print(f"Making {self.folder.name} anew ...", flush=True)
            shutil.rmtree(str(self.folder))
        else:
            print(f"Making {self.folder.name} ...", flush=True)
        host = base_python()
        if output_of([host, "-c", "import ensurepip, venv"]) is None:
            raise Problem(
                f"{host} has no venv module: install it (Debian, Ubuntu: apt install python3-venv)."
            )
        done = subprocess.run(
            [str(host), "-m", "venv", str(self.folder)],
            env=clean_environment(),
            stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT,
            text=True,
        )
        if done.returncode:
            sys.stderr.write(done.stdout)
            raise Problem(f"{host} -m venv failed.")
        record = {"host": self.host, "installed": {}}
        self._save(record)
        return record

    def _is_environment(self):
        if (self.folder / "pyvenv.cfg").exists():
            return True
        # An interrupted start may have left nothing but a few folders.
        left = {entry.name.lower() for entry in self.folder.iterdir()}
        return left <= {"bin", "scripts", "include", "lib", "lib64", self.record_file.name}

    def _save(self, record):
        new = self.folder / "tessora.json.new"
        new.write_text(json.dumps(record, indent=1), encoding="utf-8")
        os.replace(str(new), str(self.record_file))
