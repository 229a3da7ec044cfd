"""Builds the manual into build/docs/html: the pages of docs/, the pictures that the modules in
docs/pictures draw, and the reference that the module on the path writes of itself."""

import argparse
import os
import shutil
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

import page_links
import reference
from common import BUILD, ROOT, TOOLS, Problem, clean_environment

DOCS = ROOT / "docs"
OUT = BUILD / "docs"
SOURCE = OUT / "source"
HTML = OUT / "html"

# Folders that pages take listings from, by the same relative paths as in the repository.
BESIDE = ("examples",)

_NOT_STAGED = shutil.ignore_patterns("__pycache__", "*.pyc")


def stage():
    """A copy of the sources to build from, so that nothing is ever written into docs/."""
    if OUT.exists():
        shutil.rmtree(str(OUT))
    shutil.copytree(str(DOCS), str(SOURCE), ignore=_NOT_STAGED)
    for name in BESIDE:
        shutil.copytree(str(ROOT / name), str(OUT / name), ignore=_NOT_STAGED)


def picture_modules():
    """What draws the pictures; scenes.py is what they share."""
    return sorted(path for path in (DOCS / "pictures").glob("*.py") if path.name != "scenes.py")


def draw(module, folder):
    """Run one module of pictures in a process of its own; returns what it complains about."""
    done = subprocess.run(
        [sys.executable, str(TOOLS / "picture.py"), str(module), str(folder)],
        env=clean_environment(PYTHONIOENCODING="utf-8"),
        cwd=str(ROOT),
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        encoding="utf-8",
    )
    return f"docs/pictures/{module.name}:\n{done.stdout}" if done.returncode else ""


def draw_all():
    modules, folder = picture_modules(), SOURCE / "pictures"
    with ThreadPoolExecutor(os.cpu_count() or 1) as pool:
        faults = [text for text in pool.map(lambda module: draw(module, folder), modules) if text]
    if faults:
        raise Problem("pictures that cannot be drawn:\n" + "\n".join(faults))
    print(f"{len(modules)} modules of pictures drawn", flush=True)


def build(draft):
    # A broken link, too, is a warning (-n).
    strict = [] if draft else ["-W", "--keep-going"]
    command = [sys.executable, "-m", "sphinx", "-b", "html", "-q", "-n", *strict]
    command += ["-d", str(OUT / "doctrees"), str(SOURCE), str(HTML)]
    if subprocess.call(command, cwd=str(ROOT), env=clean_environment()):
        raise Problem("the pages have faults (Sphinx's own words are above).")


def check_links(draft):
    faults = page_links.faults(HTML)
    print("".join(fault + "\n" for fault in faults), end="", flush=True)
    if faults and not draft:
        raise Problem("the pages have links that lead nowhere.")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--draft", action="store_true", help="build in spite of warnings")
    draft = parser.parse_args().draft
    stage()
    reference.write(SOURCE / "reference")
    draw_all()
    build(draft)
    check_links(draft)
    print(f"the manual is in {HTML.relative_to(ROOT) / 'index.html'}")


if __name__ == "__main__":
    try:
        main()
    except Problem as problem:
        sys.exit(f"error: {problem}")
