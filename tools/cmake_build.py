"""Builds the module with CMake: one folder per Python version and flavour, incrementally."""

import json
import os
import re
import shutil
import subprocess
import sys
import sysconfig
from pathlib import Path

from common import (
    BUILD,
    ROOT,
    Problem,
    base_python,
    clean_environment,
    find_program,
    output_of,
    run,
)

CMAKE_MINIMUM = (3, 20)
ON_WINDOWS = os.name == "nt"

_CPP20_PROBE = """
#include <concepts>
#include <span>
#include <string_view>
template <std::integral T> T twice(T value) { return 2 * value; }
int main() { return twice(static_cast<int>(std::span<const char>(std::string_view()).size())); }
"""


class Build:
    """One build folder. Its record holds all that the configuration depends on: when any of
    it changes (another compiler, another CMake), the folder is made anew."""

    def __init__(self, environment, flavour="release", options=(), compiler=None):
        self.environment = environment
        self.options = list(options)
        self.compiler = compiler
        self.folder = BUILD / f"{sys.implementation.cache_tag}-{flavour}"
        self.record_file = self.folder / "tessora.json"
        self.compiler_version = None
        self.cmake = None

    def check_host(self):
        header = Path(sysconfig.get_path("include")) / "Python.h"
        if not header.exists():
            raise Problem(
                f"{base_python()} has no header files (Python.h): install them "
                "(Debian, Ubuntu: apt install python3-dev)."
            )
        self.compiler, self.compiler_version = self._find_compiler()

    def list_sources(self):
        """Brings the list of compile commands up to date with the files that are there."""
        self.configure()
        if output_of([self.cmake, "-S", str(ROOT), "-B", str(self.folder)]) is None:
            raise Problem("CMake could not list the sources; `make clean` and try again.")
        if not (self.folder / "compile_commands.json").exists():
            raise Problem(
                "CMake writes no list of compile commands for Visual Studio: install clang or "
                "MinGW and name it in CXX (set CXX=clang++)."
            )

    def configure(self):
        self.cmake, version = self._find_cmake()
        generator = self._find_generator()
        arguments = [
            f"-DPython_EXECUTABLE={base_python()}",
            "-DTESSORA_WARNINGS_AS_ERRORS=ON",
        ]
        if self.compiler:
            arguments.append(f"-DCMAKE_CXX_COMPILER={self.compiler}")
        arguments += generator + self.options
        record = [str(ROOT), self.cmake, version, self.compiler_version, sys.version, *arguments]
        # CMake takes these over when it configures.
        record += [os.environ.get(name, "") for name in ("CXXFLAGS", "LDFLAGS")]
        if self._recorded() == record and (self.folder / "CMakeCache.txt").exists():
            return
        if self.compiler:
            self._check_cpp20()
        if self.folder.exists():
            shutil.rmtree(str(self.folder))
        self.folder.mkdir(parents=True)
        print(f"Configuring {self.folder.relative_to(ROOT)} ...", flush=True)
        done = subprocess.run(
            [self.cmake, "-S", str(ROOT), "-B", str(self.folder), *arguments],
            env=clean_environment(),
            stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT,
            text=True,
        )
        if done.returncode:
            sys.stderr.write(done.stdout)
            raise Problem("CMake could not configure the build (its own words are above).")
        compiler = re.search(r"CXX compiler identification is (.*)", done.stdout)
        if compiler:
            print(f"Compiler: {compiler.group(1)}", flush=True)
        self.record_file.write_text(json.dumps(record), encoding="utf-8")

    def build(self):
        self.configure()
        env = clean_environment()
        env.setdefault("CMAKE_BUILD_PARALLEL_LEVEL", str(os.cpu_count() or 1))
        command = [self.cmake, "--build", str(self.folder), "--config", "Release"]
        run(command, env=env)
        if not self.module_folder():
            raise Problem(f"The build left no module in {self.folder}.")

    def module_folder(self):
        """Where the built module lies (generators for several configurations add a folder)."""
        pattern = "Tessora*.pyd" if ON_WINDOWS else "Tessora*.so"
        for folder in (self.folder, self.folder / "Release"):
            if any(folder.glob(pattern)):
                return folder
        return None

    def run_environment(self, **changes):
        """Variables under which a script imports the module just built, and no other."""
        folder = str(self.module_folder())
        path = [folder, os.environ["PYTHONPATH"]] if os.environ.get("PYTHONPATH") else [folder]
        changes.update(PYTHONPATH=os.pathsep.join(path), TESSORA_MODULE_DIR=folder)
        return clean_environment(**changes)

    def _recorded(self):
        try:
            return json.loads(self.record_file.read_text(encoding="utf-8"))
        except (OSError, ValueError):
            return None

    def _find_cmake(self):
        path, version = _cmake_on_path(None)
        if not path:
            self.environment.add("build")
            path, version = _cmake_on_path(str(self.environment.scripts()))
        if not path:
            raise Problem("CMake 3.20 or newer is missing: install cmake.")
        return path, version

    def _find_compiler(self):
        """The compiler's path and version; no path for Visual C++, which CMake finds itself.

        Visual C++ goes before a MinGW that is on the path: it is what `pip install` uses there.
        """
        names = [self.compiler] if self.compiler else []
        if not names and os.environ.get("CXX"):
            names = [os.environ["CXX"]]
        if ON_WINDOWS and not names:
            visual = _visual_cpp_version()
            if visual:
                return None, visual
        path, version = find_program(*(names or ["c++", "g++", "clang++"]))
        if not path:
            called = f" called {names[0]}" if names else ""
            if ON_WINDOWS:
                advice = 'Visual Studio 2022 or its build tools, "Desktop development with C++".'
            else:
                advice = (
                    "g++ 12 or clang 14 or newer "
                    "(Debian, Ubuntu: apt install g++; macOS: xcode-select --install)."
                )
            raise Problem(f"No C++ compiler{called}: install {advice}")
        return path, version

    def _check_cpp20(self):
        done = subprocess.run(
            [self.compiler, "-std=c++20", "-fsyntax-only", "-x", "c++", "-"],
            input=_CPP20_PROBE,
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
            text=True,
        )
        if done.returncode:
            raise Problem(
                f"{self.compiler} does not compile C++20 with its standard library: "
                "install g++ 12 or clang 14 or newer (Debian, Ubuntu: apt install g++)."
            )

    def _find_generator(self):
        if not self.compiler:
            return []  # CMake's own choice is the newest Visual Studio.
        ninja, _ = find_program("ninja")
        if ninja:
            return ["-GNinja", f"-DCMAKE_MAKE_PROGRAM={ninja}"]
        make, _ = find_program("make", "gmake") if not ON_WINDOWS else (None, None)
        if make:
            return ["-GUnix Makefiles", f"-DCMAKE_MAKE_PROGRAM={make}"]
        self.environment.add("build")
        ninja = self.environment.scripts() / ("ninja.exe" if ON_WINDOWS else "ninja")
        return ["-GNinja", f"-DCMAKE_MAKE_PROGRAM={ninja}"]


def _visual_cpp_version():
    """The version of the newest Visual Studio with a C++ compiler, or None."""
    programs = os.environ.get("PROGRAMFILES(X86)")
    if not programs:
        return None
    query = Path(programs) / "Microsoft Visual Studio" / "Installer" / "vswhere.exe"
    tools = "Microsoft.VisualStudio.Component.VC.Tools.x86.x64"
    options = ["-latest", "-products", "*", "-requires", tools, "-property", "installationVersion"]
    return output_of([query, *options]) or None


def _cmake_on_path(folder):
    path = shutil.which("cmake", path=folder)
    printed = output_of([path, "--version"]) if path else None
    if not printed:
        return None, None
    version = printed.split()[2]
    numbers = tuple(int(part) for part in version.split("-")[0].split(".")[:2])
    return (path, version) if numbers >= CMAKE_MINIMUM else (None, None)
