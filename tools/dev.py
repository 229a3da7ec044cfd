"""The project's commands (see the Makefile): python tools/dev.py test, demo, bench, ..."""

import argparse
import os
import subprocess
import sys
from pathlib import Path

import windows_check
from cmake_build import Build
from common import ROOT, Problem, find_program, run, stubtest_command
from environment import CurrentEnvironment, VirtualEnvironment

HEADLESS = {"SDL_VIDEODRIVER": "dummy", "SDL_AUDIODRIVER": "dummy"}

# What one run of the randomised tests does under the sanitizers, unless the caller says.
ASAN_FUZZ_STEPS = "20000"


def prepare(environment, *groups, **options):
    """The module built, and an environment with these requirements to run it in. What the
    machine lacks for the build is said first, before anything is fetched."""
    build = Build(environment, **options)
    build.check_host()
    environment.ensure(*groups)
    build.build()
    return build


def test(environment, args, group="test"):
    build = prepare(environment, group)
    command = [environment.python, "-X", "dev", "-m", "pytest", *args]
    run(command, env=build.run_environment(**HEADLESS))


def test_ce(environment, args):
    test(environment.beside("-ce"), args, "test-ce")


def demo(environment, args):
    game, args = (args[0], args[1:]) if args else ("star_catcher", args)
    script = ROOT / "examples" / game / "main.py"
    if not script.is_file():
        games = ", ".join(sorted(path.parent.name for path in script.parents[1].glob("*/main.py")))
        raise Problem(f"there is no game {game}; there are {games}.")
    build = prepare(environment, "test")
    run([environment.python, script, *args], env=build.run_environment())


def run_script(environment, args):
    if not args or not args[0]:
        raise Problem("which script? make run FILE=game.py (Windows: py tools\\dev.py run game.py)")
    script = Path(args[0]).resolve()
    if not script.is_file():
        raise Problem(f"there is no file {script}.")
    build = prepare(environment, "test")
    # In the caller's folder, where a game run by hand would look for its files.
    run([environment.python, script, *args[1:]], env=build.run_environment(), cwd=os.getcwd())


def bench(environment, args):
    build = prepare(environment, "test")
    run([environment.python, "-m", "benchmarks", *args], env=build.run_environment(**HEADLESS))


def build_only(environment, args):
    prepare(environment, options=args)


def clang(environment, args):
    name = os.environ.get("CLANGXX", "clang++")
    path, _ = find_program(name)
    if not path:
        raise Problem(
            f"No {name}: install clang 14 or newer (Debian, Ubuntu: apt install clang), "
            "or name it in CLANGXX."
        )
    prepare(environment, flavour="clang", options=args, compiler=path)


def asan(environment, args):
    if not sys.platform.startswith("linux"):
        raise Problem("make asan runs on Linux only: it preloads the sanitizers' run-time library.")
    build = prepare(environment, "test", flavour="asan", options=["-DTESSORA_SANITIZE=ON"])
    env = build.run_environment(
        # Python's own allocator would hide overruns inside its pools.
        PYTHONMALLOC="malloc",
        # The interpreter itself keeps memory at exit, so the report of leaks says nothing about
        # the engine; the tests count allocated blocks and objects instead.
        ASAN_OPTIONS="detect_leaks=0:abort_on_error=0:strict_string_checks=1",
        UBSAN_OPTIONS="print_stacktrace=1",
        **HEADLESS,
    )
    env.setdefault("TESSORA_FUZZ_STEPS", ASAN_FUZZ_STEPS)
    preload = os.pathsep.join(_sanitizer_libraries(build.compiler))
    # Only the tests get the library: set here it would reach this script's other programs too.
    command = ["env", "LD_PRELOAD=" + preload, str(environment.python)]
    # Captured, a report would die with the process that it is about.
    run([*command, "-m", "pytest", "--capture=sys", "-p", "no:faulthandler", *args], env=env)


def _sanitizer_libraries(compiler):
    """The run-time libraries that must be in the process before the interpreter starts. The
    C++ library is one: the sanitizer looks for its exception functions at the very start."""
    with_clang = "clang" in subprocess.check_output([compiler, "--version"]).decode().lower()
    if with_clang:
        machine = os.uname().machine
        names = [f"libclang_rt.asan-{machine}.so", "libstdc++.so.6"]
    else:
        names = ["libasan.so", "libubsan.so", "libstdc++.so.6"]
    found = []
    for name in names:
        command = [compiler, "-print-file-name=" + name]
        path = Path(subprocess.check_output(command).decode().strip())
        if not path.is_absolute():
            package = "libclang-rt-dev" if with_clang else "g++"
            raise Problem(f"{compiler} has no {name}: install it (Debian: apt install {package}).")
        found.append(str(path.resolve()))
    return found


def stubs(environment, args):
    build = prepare(environment, "test", "ruff")
    command = [environment.python, ROOT / "tools" / "stubs.py", *args]
    run(command, env=build.run_environment(**HEADLESS))


def stubs_check(environment, args):
    build = prepare(environment, "test", "ruff", "stubs")
    env = build.run_environment(MYPYPATH=str(ROOT), **HEADLESS)
    run([environment.python, ROOT / "tools" / "stubs.py", "--check"], env=env)
    run([environment.python, "-m", "mypy"], env=env)
    run([*stubtest_command(environment.python), *args], env=env)


def docs(environment, args):
    build = prepare(environment, "test", "docs")
    command = [environment.python, ROOT / "tools" / "docs.py", *args]
    run(command, env=build.run_environment(PYGAME_HIDE_SUPPORT_PROMPT="1", **HEADLESS))


def wheel_check(environment, args):
    environment.ensure()
    run([environment.python, ROOT / "tools" / "wheel_check.py", *args])


def lint(environment, args):
    build = Build(environment)
    build.check_host()
    environment.ensure("lint", "ruff")
    build.list_sources()
    command = [environment.python, ROOT / "tools" / "lint.py", "--build", build.folder]
    run(command + args)


def format_sources(environment, args):
    environment.ensure("lint", "ruff")
    run([environment.python, ROOT / "tools" / "lint.py", "--fix", *args])


def test_all(environment, args):
    environment.ensure("nox")
    run([environment.python, "-m", "nox", *args])


def check_for_windows(environment, args):
    windows_check.check()


COMMANDS = {
    "asan": asan,
    "bench": bench,
    "build": build_only,
    "clang": clang,
    "demo": demo,
    "docs": docs,
    "format": format_sources,
    "lint": lint,
    "run": run_script,
    "stubs": stubs,
    "stubs-check": stubs_check,
    "test": test,
    "test-all": test_all,
    "test-ce": test_ce,
    "wheel-check": wheel_check,
    "windows-check": check_for_windows,
}


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    place = parser.add_mutually_exclusive_group()
    place.add_argument("--venv", default=".venv", help="virtual environment to make and use")
    place.add_argument("--here", action="store_true", help="use the running environment as it is")
    parser.add_argument("command", choices=sorted(COMMANDS))
    parser.add_argument("args", nargs=argparse.REMAINDER, help="handed on to the command's tool")
    options = parser.parse_args()
    environment = CurrentEnvironment() if options.here else VirtualEnvironment(ROOT / options.venv)
    try:
        COMMANDS[options.command](environment, options.args)
    except Problem as problem:
        sys.exit(f"error: {problem}")
    except KeyboardInterrupt:
        sys.exit(130)


if __name__ == "__main__":
    main()
