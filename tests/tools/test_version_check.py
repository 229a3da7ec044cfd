"""Version, change log and tag of a release agree."""

import pytest

import version_check
from common import Problem

CHANGES = "# Changes\n\n## 1.2.0\n\n- One.\n\n## 1.1.0\n"
FAULTS = [
    pytest.param("1.1.0", CHANGES, None, "begins with 1.2.0", id="an older section"),
    pytest.param("1.2.0", "# Changes\n", None, "begins with no section", id="no section"),
    pytest.param("1.2.0", CHANGES, "v1.2.1", "the tag is v1.2.1", id="another tag"),
    pytest.param("1.2", "## 1.2 (not released)\n", "v1.2", "not released", id="not released"),
]


def test_the_repository_agrees_with_itself():
    version_check.check_here()


def test_a_release_that_agrees_is_good():
    version_check.check("1.2.0", CHANGES, "v1.2.0")


@pytest.mark.parametrize(("number", "changes", "tag", "fault"), FAULTS)
def test_what_differs_is_named(number, changes, tag, fault):
    with pytest.raises(Problem, match=fault):
        version_check.check(number, changes, tag)
