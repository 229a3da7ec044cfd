"""What the source package may hold."""

import tarfile

import pytest

import wheel_check
from common import ROOT, Problem

SOURCES = [
    path.relative_to(ROOT).as_posix()
    for top in ("engine", "module")
    for path in (ROOT / top).rglob("*.[ch]pp")
]


@pytest.fixture
def package(tmp_path):
    """Makes a source package of empty files with these names."""

    def make(names):
        target = tmp_path / "tessora-1.tar.gz"
        with tarfile.open(str(target), "w:gz") as archive:
            for name in names:
                archive.addfile(tarfile.TarInfo("tessora-1/" + name))
        return target

    return make


def test_sources_and_what_the_build_reads_are_good(package):
    wheel_check.check_contents(package([*wheel_check.PACKAGED, *SOURCES]))


def test_a_file_too_many_is_a_fault(package):
    names = [*wheel_check.PACKAGED, *SOURCES, "build/notes.txt"]
    with pytest.raises(Problem, match=r"holds build/notes\.txt\.$"):
        wheel_check.check_contents(package(names))


def test_a_missing_source_is_a_fault(package):
    names = [*wheel_check.PACKAGED, *SOURCES[1:]]
    with pytest.raises(Problem, match=f"lacks {SOURCES[0]}\\.$"):
        wheel_check.check_contents(package(names))
