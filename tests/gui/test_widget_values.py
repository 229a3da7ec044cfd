"""Anchors, blend modes and styles of widgets; a script's property in place of any attribute."""

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


pygame.font.init()


def storing(name, log):
    def write(self, value):
        log.append(value)
        self.__dict__["own_" + name] = value

    return property(lambda self: self.__dict__["own_" + name], write)


@pytest.mark.parametrize("name", vars(T.GUI_Button()))
def test_it_gets_what_the_attribute_would_hold(screen, tmp_path, monkeypatch, name):
    written = []
    cls = type("Own", (T.GUI_Button,), {name: storing(name, written)})
    widget, plain = cls(), T.GUI_Button()
    assert type(getattr(widget, name)) is type(getattr(plain, name))
    if name not in ("font", "InnerBindingEventArray", "children"):
        assert written[-1] == getattr(plain, name)
    for _ in range(2):
        widget.draw(screen, 0, 0, 1.0)
    widget.CopyTo(plain)
    T.GUI_Button().CopyTo(widget)
    # Frames are loaded through it.
    (tmp_path / "one.plist").write_bytes(
        b"<plist><dict><key>frames</key><dict><key>a</key><dict><key>frame</key>"
        b"<string>{{1,2},{3,4}}</string></dict></dict></dict></plist>"
    )
    pygame.image.save(pygame.Surface((9, 9)), str(tmp_path / "one.png"))
    monkeypatch.setattr(T, "Res", T.PyGameResManager(str(tmp_path)))
    widget = cls()
    widget.LoadImageFramesPList("one.plist")
    assert widget.GetImage().get_size() == (3, 4) and widget.GetPlistFile() == "one.plist"
