"""clang-format, clang-tidy, ruff and the project's own rules over the whole repository, as
errors."""

import argparse
import hashlib
import json
import os
import shlex
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import lint_rules
from common import BUILD, ROOT, clean_environment

SCRIPTS = Path(sys.executable).parent
PASSED = BUILD / "lint-passed"


def sources(*patterns):
    return sorted(
        path for top in ("engine", "module") for end in patterns for path in (ROOT / top).rglob(end)
    )


def tool(name):
    return str(SCRIPTS / name)


def call(title, command):
    print(title, flush=True)
    return subprocess.call(command, cwd=str(ROOT)) == 0


def layout(fix):
    files = [str(path) for path in sources("*.cpp", "*.hpp")]
    mode = ["-i"] if fix else ["--dry-run", "-Werror"]
    return not files or call("clang-format", [tool("clang-format"), *mode, *files])


def ruff(fix):
    checked = call("ruff check", [tool("ruff"), "check", "--quiet", *(["--fix"] if fix else [])])
    mode = [] if fix else ["--check", "--diff"]
    return call("ruff format", [tool("ruff"), "format", "--quiet", *mode]) and checked


def own_rules():
    print("rules of the project", flush=True)
    faults = lint_rules.check(ROOT, sources("*.cpp", "*.hpp"))
    print("".join(fault + "\n" for fault in faults), end="", flush=True)
    return not faults


def tidy(build):
    """clang-tidy on every source, in parallel. A file that passed is not looked at again until
    it, a header, the settings, its compile command or the tool changes."""
    program = tool("clang-tidy")
    entries = json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
    version = subprocess.check_output([program, "--version"])
    common = hashlib.sha256(version)
    for path in [ROOT / ".clang-tidy", *sources("*.hpp")]:
        common.update(path.read_bytes())

    def check(entry):
        stamp = common.copy()
        stamp.update(_command(entry).encode())
        stamp.update(Path(entry["file"]).read_bytes())
        mark = PASSED / stamp.hexdigest()
        if mark.exists():
            return mark, None
        done = subprocess.run(
            [program, "--quiet", "-p", str(build), entry["file"]],
            cwd=str(ROOT),
            env=clean_environment(),
            stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT,
        )
        if done.returncode == 0:
            mark.touch()
        return mark, done

    PASSED.mkdir(parents=True, exist_ok=True)
    print(f"clang-tidy ({len(entries)} files)", flush=True)
    good, marks = True, set()
    with ThreadPoolExecutor(os.cpu_count() or 1) as pool:
        for mark, done in pool.map(check, entries):
            marks.add(mark)
            if done is not None and done.returncode:
                good = False
                sys.stdout.write(done.stdout.decode(errors="replace"))
                sys.stdout.flush()
    for mark in set(PASSED.iterdir()) - marks:
        mark.unlink()
    return good


def _command(entry):
    return entry.get("command") or shlex.join(entry["arguments"])


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", type=Path, help="folder with compile_commands.json")
    parser.add_argument("--fix", action="store_true", help="lay out the sources, no other checks")
    options = parser.parse_args()
    good = [layout(options.fix), ruff(options.fix)]
    if not options.fix:
        good += [own_rules(), tidy(options.build)]
    if not all(good):
        sys.exit("error: lint found the faults above.")


if __name__ == "__main__":
    main()
