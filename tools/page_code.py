"""Runs the Python fences of a page, one after another in one namespace.

    page_code.py PAGE [FIRST [BEFORE]]

FIRST is the number of the first fence to run, from 0, and BEFORE is code for what the page takes
for granted. The working folder holds the files that the page's code loads. A loop that reads
events gets QUIT after a few frames; SystemExit ends a fence, and the next one goes on. A text fence
right below a Python fence is what that one prints.
"""

import collections
import contextlib
import io
import re
import sys
import traceback
from pathlib import Path

from common import Problem

Fence = collections.namedtuple("Fence", "line language source follows")

FRAMES = 8

_MARK = re.compile(r"\s*(`{3,}|~{3,}|:{3,})\s*(.*?)\s*$")


def fences(text):
    """The code fences of a page, with those inside admonitions and the like. `line` is that of
    the first line of code; `follows` tells whether only empty lines part it from the one before.

    Raises Problem for code that would not be run: a fence that names no language, or a directive
    for code.
    """
    found, containers, opened = [], [], None
    gap = False
    for number, line in enumerate(text.split("\n"), 1):
        mark = _MARK.match(line)
        if opened:
            if mark and not mark.group(2) and mark.group(1).startswith(opened[0]):
                follows = gap and bool(found)
                found.append(Fence(opened[2], opened[1], "\n".join(opened[3]), follows))
                opened, gap = None, True
            else:
                opened[3].append(line)
        elif not mark:
            gap = gap and not line.strip()
        elif mark.group(2).startswith("{"):
            if re.match(r"\{(code|code-block|sourcecode|code-cell)\}", mark.group(2)):
                raise Problem(f"line {number}: code is a plain fence or a literalinclude")
            containers.append(mark.group(1))
            gap = False
        elif mark.group(2) and mark.group(1)[0] != ":":
            opened = mark.group(1), mark.group(2).split()[0], number + 1, []
        elif containers and mark.group(1) == containers[-1]:
            containers.pop()
            gap = False
        else:
            raise Problem(f"line {number}: a fence without a language")
    if opened or containers:
        raise Problem("a fence is not closed")
    return found


class Page:
    def __init__(self, path):
        # Here, so that the fences can be read without pygame.
        import pygame
        import Tessora

        self.path = Path(path)
        self.pygame = pygame
        self.names = {"__name__": "__main__", "pygame": pygame, "Tessora": Tessora}
        self._ready()
        self.names["layer"] = Tessora.GameLayer()
        Tessora.Res = Tessora.PyGameResManager(".")
        self._get, self._calls = pygame.event.get, 0
        pygame.event.get = self._events

    def _ready(self):
        """A fence may have ended with pygame.quit()."""
        if self.pygame.display.get_surface() is None:
            self.pygame.init()
            self.names["screen"] = self.pygame.display.set_mode((640, 480))

    def _events(self, *args, **keywords):
        found = self._get(*args, **keywords)
        self._calls += 1
        if self._calls % FRAMES == 0:
            found.append(self.pygame.event.Event(self.pygame.QUIT))
        return found

    def run(self, fence):
        """Returns what the fence printed."""
        # Empty lines before it, so that a traceback tells the page's lines.
        code = compile("\n" * (fence.line - 1) + _dedent(fence.source), str(self.path), "exec")
        self._ready()
        self._calls = 0
        printed = io.StringIO()
        try:
            with contextlib.redirect_stdout(printed):
                exec(code, self.names)
        except SystemExit:
            pass
        return printed.getvalue()


def _dedent(source):
    rows = source.split("\n")
    indent = min((len(row) - len(row.lstrip()) for row in rows if row.strip()), default=0)
    return "\n".join(row[indent:] for row in rows)


def _lines(text):
    return [line.rstrip() for line in _dedent(text).strip().split("\n")]


def main():
    path, options = Path(sys.argv[1]), sys.argv[2:]
    page, printed, number = Page(path), None, -1
    first = int(options[0]) if options else 0
    exec("".join(options[1:]), page.names)
    for fence in fences(path.read_text(encoding="utf-8")):
        where = f"{path}:{fence.line}"
        number += fence.language == "python"
        if fence.language != "python":
            compared = printed is not None and fence.follows and fence.language == "text"
            if compared and _lines(printed) != _lines(fence.source):
                sys.exit(f"the code above {where} prints something else:\n{printed}")
            printed = None
        elif number >= first:
            try:
                printed = page.run(fence)
            except BaseException:
                traceback.print_exc()
                sys.exit(f"the code at {where} fails")


if __name__ == "__main__":
    main()
