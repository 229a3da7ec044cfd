"""The README as a package index shows it."""

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
