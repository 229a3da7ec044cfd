"""The README as a package index shows it."""

import fnmatch
import re

import pytest

from index_readme import README, with_absolute_links


@pytest.mark.parametrize(
    ("before", "after"),
    [
        ("![A game](docs/demo.png)", "![A game](https://h/o/n/raw/v1/docs/demo.png)"),
        ("see [LICENSE](LICENSE).", "see [LICENSE](https://h/o/n/blob/v1/LICENSE)."),
        ("[Installing](#installing)", "[Installing](#installing)"),
        ("[pygame](https://www.pygame.org)", "[pygame](https://www.pygame.org)"),
        ("f(x)[0](y", "f(x)[0](y"),
    ],
    ids=["picture", "file", "heading", "absolute", "no link"],
)
def test_relative_links_become_absolute(before, after):
    assert with_absolute_links(before, "https://h/o/n", "v1") == after


def test_the_pictures_of_the_readme_become_absolute():
    text = with_absolute_links(README.read_text(encoding="utf-8"), "https://h/o/n", "v1")
    pictures = re.findall(r"!\[[^\]]*\]\(([^)]*)\)", text)
    assert pictures
    assert all(address.startswith("https://") for address in pictures)


def test_every_picture_of_the_readme_is_there_and_in_the_source_package():
    pictures = re.findall(r"!\[[^\]]*\]\(([^)]*)\)", README.read_text(encoding="utf-8"))
    settings = (README.parent / "pyproject.toml").read_text(encoding="utf-8")
    packed = re.findall(r'"/(docs/[^"]+)"', settings)
    for picture in pictures:
        largest = 40_000 if "thumb_" in picture else 150_000
        assert (README.parent / picture).stat().st_size < largest
        assert any(fnmatch.fnmatch(picture, pattern) for pattern in packed), picture
    thumbnails = [path.name for path in (README.parent / "docs").glob("thumb_*.png")]
    assert sorted(thumbnails) == sorted(name[5:] for name in pictures if "thumb_" in name)
