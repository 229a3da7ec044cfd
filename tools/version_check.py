"""The version in CMakeLists.txt is the newest section of the change log; for a release it is the
tag's, too, and the section says no longer that it is not released.

    python tools/version_check.py [TAG]
"""

import re
import sys

from common import ROOT, Problem


def version():
    return re.search(r"project\(Tessora VERSION ([0-9.]+)", _text("CMakeLists.txt")).group(1)


def check(number, changes, tag=None):
    """`changes` is the change log's text."""
    newest = re.search(r"^## (\S+)(.*)$", changes, re.M)
    if not newest or newest.group(1) != number:
        raise Problem(
            f"CMakeLists.txt has version {number}, but CHANGELOG.md begins with "
            f"{newest.group(1) if newest else 'no section'}."
        )
    if tag is None:
        return
    if tag != "v" + number:
        raise Problem(f"the tag is {tag}, but CMakeLists.txt has version {number}.")
    if "not released" in newest.group(2):
        raise Problem(f"CHANGELOG.md calls {number} not released.")


def check_here(tag=None):
    check(version(), _text("CHANGELOG.md"), tag)


def _text(name):
    return (ROOT / name).read_text(encoding="utf-8")


if __name__ == "__main__":
    try:
        check_here(*sys.argv[1:])
    except Problem as problem:
        sys.exit(f"error: {problem}")
