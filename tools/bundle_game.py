"""Bundles the tutorial's game with PyInstaller, as its author would, and lets script and bundle
play themselves to the end without a display: all that they draw must be the same."""

import argparse
import os
import re
import shutil
import subprocess
import sys

from common import BUILD, ROOT, Problem, clean_environment

GAME = ROOT / "examples" / "tutorial"
SCRIPT = GAME / "step_8.py"
NAME = "firefly_jar"
FOLDER = BUILD / "bundle-check"

# What a friend's machine does not have: the paths on which a developer's Python finds modules.
_DEVELOPERS = ("PYTHONPATH", "PYTHONHOME", "VIRTUAL_ENV", "TESSORA_MODULE_DIR", "LD_LIBRARY_PATH")


def bundle(one_file):
    command = [sys.executable, "-m", "PyInstaller", "--noconfirm", "--clean", "--log-level", "WARN"]
    command += ["--name", NAME, "--additional-hooks-dir", str(GAME)]
    command += ["--add-data", f"{GAME / 'assets'}{os.pathsep}assets"]
    for option in ("distpath", "workpath", "specpath"):
        command += [f"--{option}", str(FOLDER / option)]
    print(f"Bundling {SCRIPT.relative_to(ROOT)} ...", flush=True)
    if subprocess.call([*command, *(["--onefile"] if one_file else []), str(SCRIPT)]):
        raise Problem("PyInstaller could not make the bundle (its own words are above).")
    program = NAME + (".exe" if os.name == "nt" else "")
    built = FOLDER / "distpath" / (program if one_file else NAME)
    # Away from where it was made, where nothing of the project lies beside it.
    moved = FOLDER / "friend" / built.name
    shutil.move(str(built), str(moved))
    return moved if one_file else moved / program


def play(command, folder, **environment):
    """Returns the picture that the game saved, as bytes, and the last line that it printed."""
    folder.mkdir(parents=True)
    env = clean_environment(TESSORA_HEADLESS="1", **environment)
    done = subprocess.run(
        [str(part) for part in command],
        cwd=str(folder),
        env={name: value for name, value in env.items() if value is not None},
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        encoding="utf-8",
        errors="replace",
        timeout=300,
    )
    pictures = list(folder.glob("*.png"))
    lines = done.stdout.splitlines()
    ended = lines and re.match(r"\d+ frames, checksum \w+$", lines[-1])
    if done.returncode or not pictures or not ended or "not come to its end" in done.stdout:
        raise Problem(f"{command[-1]} did not play to its end:\n{done.stdout}")
    print(f"{folder.name}: {lines[-1]}", flush=True)
    return pictures[0].read_bytes(), lines[-1]


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--onefile", action="store_true", help="one program in place of a folder")
    options = parser.parse_args()
    if FOLDER.exists():
        shutil.rmtree(str(FOLDER))
    (FOLDER / "friend").mkdir(parents=True)
    expected = play([sys.executable, SCRIPT], FOLDER / "script")
    program = bundle(options.onefile)
    found = play([program], FOLDER / "bundle", **dict.fromkeys(_DEVELOPERS))
    if found != expected:
        raise Problem(
            "the bundle draws something else than the script: compare the pictures in "
            "build/bundle-check/script and build/bundle-check/bundle."
        )
    size = sum(path.stat().st_size for path in (FOLDER / "friend").rglob("*") if path.is_file())
    print(f"The bundle draws what the script draws; it has {size / 1e6:.0f} MB: {program}")


if __name__ == "__main__":
    try:
        main()
    except Problem as problem:
        sys.exit(f"error: {problem}")
