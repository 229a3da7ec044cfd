"""Anchors, colours, blend modes and styles of widgets."""

import pygame
import pytest
import Tessora as T

ANCHORS = {"wn": (0, 0), "n": (0.5, 0), "en": (1.0, 0), "w": (0, 0.5), "center": (0.5, 0.5)}
ANCHORS.update({"e": (1.0, 0.5), "ws": (0, 1.0), "s": (0.5, 1.0), "es": (1.0, 1.0), "ne": (0, 0)})


@pytest.mark.parametrize("keyword", ANCHORS)
def test_anchor_keywords_in_any_case(keyword):
    widget, calls = T.GUI_Image(), []
    widget.SetAXY = lambda *axy: calls.append(axy)
    widget.SetImageAnchor(keyword.upper())
    assert (widget.imageAnchor, calls) == (keyword, [ANCHORS[keyword]])
    pytest.raises(AttributeError, widget.SetImageAnchor, None)


@pytest.mark.parametrize("name", ["ADD", "add", "SUB", "Sub", "MULT", "", None, 5])
def test_blend_names_count_in_their_own_case(name):
    widget, flags = T.GUI_Image(), {"ADD": pygame.BLEND_ADD, "SUB": pygame.BLEND_SUB}
    widget.SetBlendType("SUB" if name != "SUB" else "ADD")
    widget.SetBlendType(name)
    assert widget.GetBlendType() == flags.get(name, pygame.BLEND_MULT)


@pytest.mark.parametrize("arguments", [("flat",), ("hollow", False), (None,)], ids=str)
def test_a_style_switches_the_border(arguments):
    widget = T.GUI_Image()
    widget.SetStyle(*arguments)
    assert (widget.style, widget.borderVisible) == (arguments[0], len(arguments) == 1)
