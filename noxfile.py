"""The tests on every supported Python that this machine has (make test-all)."""

import os
import sys

import nox

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "tools"))
import hosts

FOUND = hosts.find()
NAMES = list(FOUND)
if not NAMES:
    sys.exit("error: no Python from 3.8 on with header files found on this machine.")

nox.needs_version = ">=2024.10.9"
nox.options.default_venv_backend = "venv"
nox.options.reuse_existing_virtualenvs = True
nox.options.error_on_missing_interpreters = True

# Sessions carry short names, and a bare "python3.8" on the path may be a version manager's
# placeholder that does not run: the folders of those found come first.
os.environ["PATH"] = os.pathsep.join(
    [os.path.dirname(path) for path in FOUND.values()] + [os.environ["PATH"]]
)

missing = [name for name in hosts.SUPPORTED if name not in FOUND]
if missing:
    print("Not on this machine, so not tested: Python " + ", ".join(missing))


def run_tests(session):
    session.run("python", "tools/dev.py", "--here", "test", *session.posargs)


@nox.session(python=NAMES)
def tests(session):
    session.install("-r", "tools/requirements-test.txt")
    run_tests(session)


@nox.session(python=sorted({NAMES[0], NAMES[-1]}, key=NAMES.index))
def tests_ce(session):
    """With pygame-ce, on the oldest and the newest Python."""
    session.install("-r", "tools/requirements-test-ce.txt")
    run_tests(session)
