"""Checks that what the pages of a built site link to is there, and that it works offline."""

from html.parser import HTMLParser
from pathlib import Path
from urllib.parse import unquote, urlsplit

# Elements whose address the browser loads by itself.
_LOADED = ("audio", "iframe", "img", "script", "source", "video")


class _Page(HTMLParser):
    def __init__(self, text):
        super().__init__(convert_charrefs=True)
        self.anchors, self.links, self.loaded = set(), [], []
        self.feed(text)

    def handle_starttag(self, tag, attrs):
        values = dict(attrs)
        self.anchors.update(values[name] for name in ("id", "name") if values.get(name))
        for name in ("href", "src"):
            if values.get(name) is not None:
                self.links.append((self.getpos()[0], values[name]))
        if tag in _LOADED and values.get("src"):
            self.loaded.append(values["src"])
        elif tag == "link" and values.get("rel") in ("stylesheet", "icon", "preload"):
            self.loaded.append(values.get("href", ""))


def faults(folder):
    """A line for every link that leads nowhere, in all pages below the folder."""
    folder = Path(folder).resolve()
    pages = {
        path: _Page(path.read_text(encoding="utf-8")) for path in sorted(folder.rglob("*.html"))
    }
    found = []
    for path, page in pages.items():
        where = path.relative_to(folder).as_posix()
        for line, link in page.links:
            if not _resolves(link, path, pages):
                found.append(f"{where}:{line}: {link} leads nowhere")
        for link in page.loaded:
            if urlsplit(link).netloc:
                found.append(f"{where}: {link} is loaded from the network")
    return found


def _resolves(link, path, pages):
    parts = urlsplit(link)
    if parts.scheme or parts.netloc:
        return True
    target = (path.parent / unquote(parts.path)).resolve() if parts.path else path
    if target.is_dir():
        target = target / "index.html"
    if not target.is_file():
        return False
    # "#" alone is the top of the page.
    return (
        not parts.fragment
        or target not in pages
        or unquote(parts.fragment) in pages[target].anchors
    )
