"""The code on the pages of the manual, and on the README's, runs and prints what stands there."""

import os
import shutil
import subprocess
import sys
from pathlib import Path

import pytest

import page_code
from common import Problem

ROOT = Path(__file__).resolve().parents[2]
DOCS = ROOT / "docs"
PAGES = [*sorted(DOCS.rglob("*.md")), ROOT / "README.md"]

# Pages whose code does not begin with the first fence, and what it takes for granted there: the
# README's first one is the game that tests/examples/test_readme.py plays.
OPTIONS = {"README.md": ["1", "class Scene: pass\nscene, nodes = Scene(), []"]}


def name_of(page):
    return page.relative_to(DOCS if DOCS in page.parents else ROOT).as_posix()


def run_page(page, folder, *options):
    paths = os.pathsep.join(entry for entry in sys.path if entry)
    command = [sys.executable, page_code.__file__, str(page), *options]
    done = subprocess.run(
        command,
        cwd=str(folder),
        env=dict(os.environ, PYTHONPATH=paths, PYTHONIOENCODING="utf-8"),
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        encoding="utf-8",
        timeout=240,
    )
    return done.returncode, done.stdout


@pytest.mark.parametrize("page", PAGES, ids=name_of)
def test_the_code_of_a_page_runs(tmp_path, page):
    text, name = page.read_text(encoding="utf-8"), name_of(page)
    if not any(fence.language == "python" for fence in page_code.fences(text)):
        return
    folder = tmp_path / "files"
    shutil.copytree(str(DOCS / "assets"), str(folder), ignore=shutil.ignore_patterns("*.py"))
    code, printed = run_page(page, folder, *OPTIONS.get(name, []))
    assert code == 0, printed


def ran(tmp_path, text):
    page = tmp_path / "page.md"
    page.write_text(text, encoding="utf-8")
    return run_page(page, tmp_path)


def test_a_fence_that_fails_is_told_by_its_page_and_line(tmp_path):
    code, printed = ran(tmp_path, "# A page\n\n```python\nx = 1\nx.missing\n```\n")
    assert code and "page.md:4 fails" in printed and 'page.md", line 5' in printed


def test_a_page_says_what_its_code_prints(tmp_path):
    text = "```python\nprint(6 * 7)\n```\n\n```text\n{}\n```\n"
    assert ran(tmp_path, text.format(42)) == (0, "")
    code, printed = ran(tmp_path, text.format(43))
    assert code and "page.md:6 prints something else:\n42" in printed


def test_a_loop_ends_by_a_quit_and_the_next_fence_goes_on(tmp_path):
    loop = "while True:\n    for event in pygame.event.get():\n        kind = event.type\n"
    loop += (
        "        if kind == pygame.QUIT:\n            pygame.quit()\n            raise SystemExit\n"
    )
    after = "assert kind == pygame.QUIT and screen.get_size() == (640, 480)\nlayer.draw(screen)\n"
    assert ran(tmp_path, f"```python\n{loop}```\n\n```python\n{after}```\n") == (0, "")


def test_code_inside_an_admonition_runs(tmp_path):
    code, printed = ran(tmp_path, "````{note}\nSo:\n\n```python\nboom\n```\n````\n")
    assert code and "page.md:5 fails" in printed


@pytest.mark.parametrize("text", ["```\nx\n```\n", "```{code-block} python\nx\n```\n", "```sh\n"])
def test_code_that_would_not_run_is_refused(text):
    with pytest.raises(Problem):
        page_code.fences(text)
