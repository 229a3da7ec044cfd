"""The check of a built site's links."""

import pytest

import page_links

FINE = ["other.html#here", "#top", "#", "https://example.org/x", "mailto:a@example.org", "folder"]
DEAD = ["missing.html", "other.html#there", "#nowhere", "a%20b.png"]


def faults(tmp_path, body):
    (tmp_path / "folder").mkdir()
    (tmp_path / "folder" / "index.html").write_text("<p>", encoding="utf-8")
    (tmp_path / "other.html").write_text('<p id="here">', encoding="utf-8")
    (tmp_path / "page.html").write_text('<h1 id="top">' + body, encoding="utf-8")
    return page_links.faults(tmp_path)


@pytest.mark.parametrize("link", FINE)
def test_a_link_to_something_is_fine(tmp_path, link):
    assert faults(tmp_path, f'<a href="{link}">') == []


@pytest.mark.parametrize("link", DEAD)
def test_a_link_to_nothing_is_told(tmp_path, link):
    assert faults(tmp_path, f'<a href="{link}">') == [f"page.html:1: {link} leads nowhere"]


@pytest.mark.parametrize("tag", ['link rel="stylesheet" href', "script src", "img src"])
def test_what_comes_from_the_network_is_told(tmp_path, tag):
    told = "page.html: https://example.org/x is loaded from the network"
    assert faults(tmp_path, f'<{tag}="https://example.org/x">') == [told]
