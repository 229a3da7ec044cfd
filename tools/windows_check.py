"""Compiles and links every source for 64-bit Windows with MinGW.

No Windows Python is needed: its header files differ from other systems' by pyconfig.h alone, and
tools/windows/pyconfig.h stands in for that one. The import library is made from the names that
the objects ask for, so the link shows that nothing else is missing.
"""

import os
import re
import shutil
import subprocess
import sysconfig
from concurrent.futures import ThreadPoolExecutor

from common import BUILD, ROOT, TOOLS, Problem, find_program

PREFIX = "x86_64-w64-mingw32-"
FOLDER = BUILD / "windows"
FLAGS = ["-std=c++20", "-static", "-O1", "-Wall", "-Wextra", "-Wpedantic", "-Wshadow", "-Werror"]


def check():
    compiler, _ = find_program(PREFIX + "g++")
    if not compiler:
        raise Problem(
            f"No {PREFIX}g++: install MinGW-w64 (Debian, Ubuntu: apt install g++-mingw-w64-x86-64)."
        )
    headers = _windows_headers()
    sources = sorted(path for top in ("engine", "module") for path in (ROOT / top).rglob("*.cpp"))
    if not sources:
        raise Problem("No sources under engine/ and module/.")
    shutil.rmtree(str(FOLDER / "objects"), ignore_errors=True)
    (FOLDER / "objects").mkdir(parents=True)
    print(f"Compiling {len(sources)} files for Windows ...", flush=True)

    definition = f'-DTESSORA_VERSION="{_version()}"'

    def compile_one(source):
        name = "-".join(source.relative_to(ROOT).with_suffix(".o").parts)
        target = FOLDER / "objects" / name
        command = [compiler, *FLAGS, definition, "-I", str(ROOT), "-isystem", str(headers)]
        command += ["-c", str(source), "-o", str(target)]
        return subprocess.call(command) == 0, str(target)

    with ThreadPoolExecutor(os.cpu_count() or 1) as pool:
        results = list(pool.map(compile_one, sources))
    if not all(good for good, _ in results):
        raise Problem("The sources do not compile for Windows (see above).")
    _link(compiler, [target for _, target in results])
    print("Compiles and links for 64-bit Windows.")


def _version():
    """The project's, which CMake hands to the compiler."""
    text = (ROOT / "CMakeLists.txt").read_text(encoding="utf-8")
    return re.search(r"project\(Tessora VERSION ([0-9.]+)", text).group(1)


def _windows_headers():
    """This Python's header files with the Windows pyconfig.h in place of its own."""
    target = FOLDER / "include"
    shutil.rmtree(str(target), ignore_errors=True)
    shutil.copytree(sysconfig.get_path("include"), str(target))
    shutil.copyfile(str(TOOLS / "windows" / "pyconfig.h"), str(target / "pyconfig.h"))
    return target


def _link(compiler, objects):
    listing = subprocess.check_output([PREFIX + "nm", "-u", *objects], universal_newlines=True)
    names = sorted(set(re.findall(r"\b__imp_(_?Py\w+)", listing)))
    version = sysconfig.get_config_var("py_version_nodot")
    definition = FOLDER / "python.def"
    text = f"LIBRARY python{version}.dll\nEXPORTS\n" + "\n".join(names) + "\n"
    definition.write_text(text, encoding="ascii")
    library = FOLDER / "libpython.dll.a"
    subprocess.check_call([PREFIX + "dlltool", "-d", str(definition), "-l", str(library)])
    module = FOLDER / "Tessora.pyd"
    command = [compiler, "-shared", "-static", *objects, str(library), "-o", str(module)]
    if subprocess.call(command):
        raise Problem("The sources do not link for Windows (see above).")
    exports = subprocess.check_output([PREFIX + "objdump", "-p", str(module)]).decode()
    if not re.search(r"\bPyInit_Tessora\b", exports):
        raise Problem("The Windows module does not export PyInit_Tessora.")
