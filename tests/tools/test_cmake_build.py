"""Which compiler and generator the build takes."""

import pytest

import cmake_build
from common import Problem

MINGW = ("C:/mingw/bin/g++.exe", "g++ 12.2.0")
NINJA = ["-GNinja", "-DCMAKE_MAKE_PROGRAM=C:/ninja.exe"]


class Environment:
    """No environment: nothing may be installed for these tests."""

    def add(self, group):
        raise AssertionError(group)


@pytest.fixture
def windows(monkeypatch):
    """A Windows machine with Visual Studio, MinGW and Ninja."""
    found = {"visual": "17.9.1", "g++": MINGW, "ninja": ("C:/ninja.exe", "1.11")}

    def find_program(*names, **options):
        return next((found[name] for name in names if name in found), (None, None))

    monkeypatch.delenv("CXX", raising=False)
    monkeypatch.setattr(cmake_build, "ON_WINDOWS", True)
    monkeypatch.setattr(cmake_build, "find_program", find_program)
    monkeypatch.setattr(cmake_build, "_visual_cpp_version", lambda: found.get("visual"))
    return found


def chosen(compiler=None):
    """The compiler, its version and CMake's generator."""
    build = cmake_build.Build(Environment(), compiler=compiler)
    build.compiler, version = build._find_compiler()
    return build.compiler, version, build._find_generator()


VISUAL = (None, "17.9.1", [])
CHOICES = {
    "Visual C++ before MinGW": (True, {}, None, VISUAL),
    "MinGW alone": (False, {}, None, (*MINGW, NINJA)),
    "named by CXX": (True, {"CXX": "g++"}, None, (*MINGW, NINJA)),
    "named by the caller": (True, {}, "g++", (*MINGW, NINJA)),
}


@pytest.mark.parametrize("name", CHOICES)
def test_the_compiler_that_is_taken(windows, monkeypatch, name):
    visual, env, named, wanted = CHOICES[name]
    windows["visual"] = visual and windows["visual"]
    for key, value in env.items():
        monkeypatch.setenv(key, value)
    assert chosen(named) == wanted


def test_a_machine_without_a_compiler_is_told_what_to_install(windows):
    windows.clear()
    with pytest.raises(Problem, match="No C\\+\\+ compiler: install Visual Studio"):
        chosen()
