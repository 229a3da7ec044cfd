"""A script's property in place of any attribute of a widget."""

import pygame
import pytest
import Tessora as T

pygame.font.init()
ATTRIBUTES = list(vars(T.GUI_Button()))


def storing(name, log):
    def write(self, value):
        log.append(value)
        self.__dict__["own_" + name] = value

    return property(lambda self: self.__dict__["own_" + name], write)


@pytest.mark.parametrize("name", ATTRIBUTES)
def test_it_gets_what_the_attribute_would_hold(screen, name):
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


@pytest.mark.parametrize("name", ATTRIBUTES)
def test_frames_are_loaded_through_it(screen, tmp_path, monkeypatch, name):
    (tmp_path / "one.plist").write_bytes(
        b"<plist><dict><key>frames</key><dict><key>a</key><dict><key>frame</key>"
        b"<string>{{1,2},{3,4}}</string></dict></dict></dict></plist>"
    )
    pygame.image.save(pygame.Surface((9, 9)), str(tmp_path / "one.png"))
    monkeypatch.setattr(T, "Res", T.PyGameResManager(str(tmp_path)))
    widget = type("Own", (T.GUI_Button,), {name: storing(name, [])})()
    widget.LoadImageFramesPList("one.plist")
    assert widget.GetImage().get_size() == (3, 4) and widget.GetPlistFile() == "one.plist"
