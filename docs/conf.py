"""Sphinx's settings for the manual; `make docs` builds it."""

import re
from pathlib import Path

_ROOT = next(
    folder for folder in Path(__file__).resolve().parents if (folder / "CMakeLists.txt").is_file()
)
_CMAKE = (_ROOT / "CMakeLists.txt").read_text(encoding="utf-8")

project = "Tessora"
version = release = re.search(r"project\(Tessora VERSION ([0-9.]+)", _CMAKE).group(1)
copyright = "the authors of Tessora"

extensions = ["myst_parser"]
myst_enable_extensions = ["attrs_inline", "colon_fence", "deflist"]
myst_heading_anchors = 3
exclude_patterns = ["assets", "pictures", "_static"]

highlight_language = "python"
add_module_names = False
maximum_signature_line_length = 80
toc_object_entries_show_parents = "hide"
# Names of others, for which no inventory is at hand offline, and type variables.
nitpick_ignore_regex = [("py:.*", r"(pygame|os|xml)\..*|Self|T|Key|Value")]

html_theme = "furo"
html_title = f"Tessora {version}"
html_static_path = ["_static"]
html_css_files = ["tessora.css"]
html_copy_source = False
html_show_sourcelink = False
# Furo's own styles only: nothing on a page comes from the network.
html_theme_options = {
    "light_css_variables": {
        "color-brand-primary": "#6a35a8",
        "color-brand-content": "#6a35a8",
        "color-brand-visited": "#6a35a8",
        "color-api-name": "var(--color-foreground-primary)",
    },
    "dark_css_variables": {
        "color-brand-primary": "#c9a2f2",
        "color-brand-content": "#c9a2f2",
        "color-brand-visited": "#c9a2f2",
        "color-api-name": "var(--color-foreground-primary)",
    },
}
