"""The widgets written in Python draw, react and copy as the guide says."""

import sys
from pathlib import Path

import pygame
import pytest
import Tessora

FOLDER = str(Path(__file__).resolve().parents[2] / "examples")
ON, OFF = (92, 190, 120), (96, 84, 140)


@pytest.fixture
def own_widget(screen, monkeypatch):
    monkeypatch.syspath_prepend(FOLDER)
    monkeypatch.setattr(Tessora, "Res", Tessora.PyGameResManager(FOLDER))
    font = Path(pygame.__file__).parent / pygame.font.get_default_font()
    Tessora.Res.AddNewResFile(str(font))
    # The dummy video driver's own pointer cannot be moved.
    monkeypatch.setattr(pygame.mouse, "get_pos", lambda: (-1, -1))
    import own_widget

    yield own_widget
    for name in ("own_widget", "example_window"):
        sys.modules.pop(name)


def colour(screen, x, y):
    return tuple(screen.get_at((x, y)))[:3]


def click(node, x, y):
    node.OnPickDownFunction(x, y)
    node.OnPickUpFunction(x, y)


def test_a_switch_under_a_scaled_parent_is_drawn_and_pressed_where_it_lies(own_widget, screen):
    panel = own_widget.panel(20, 20, 150, 80, 2)
    switch = own_widget.Switch(panel, 10, 10, "Sound")
    told = []
    switch.SetPickUpFunction(lambda node: told.append(node.IsOn()))
    panel.draw(screen)
    assert colour(screen, 100, 54) == OFF and switch.caption.GetWX() == 30 + 58 * 2
    click(panel, 127, 54)  # outside
    click(panel, 125, 54)
    assert told == [True]
    panel.update(1.0)
    panel.draw(screen)
    assert colour(screen, 60, 54) == ON


def test_a_disabled_switch_keeps_its_state(own_widget, screen):
    switch = own_widget.Switch(None, 0, 0)
    switch.SetEnable(False)
    click(switch, 10, 10)
    switch.OnKeyDownFunction("space")
    assert not switch.IsOn() and not switch.IsFocusIn()


def test_a_pressed_switch_takes_the_space_bar(own_widget):
    switch = own_widget.Switch(None, 0, 0)
    click(switch, 10, 10)
    switch.OnKeyDownFunction("space")
    switch.OnKeyDownFunction("a")
    assert not switch.IsOn()


def test_a_copied_bar_is_painted_alone(own_widget, screen):
    bar, other = own_widget.HealthBar(None, 0, 0), own_widget.HealthBar(None, 0, 0)
    bar.SetHealth(0.5)
    bar.CopyTo(other)
    other.SetY(50)
    bar.SetHealth(0.0)
    bar.update(5.0)
    bar.draw(screen)
    other.draw(screen)
    assert other.GetHealth() == 0.5
    assert colour(screen, 10, 8) == (24, 18, 46)
    assert colour(screen, 10, 58) == tuple(other.color())[:3]


def test_the_ring_follows_the_camera(own_widget, screen):
    ring = own_widget.Ring(None, 50, 50, radius=20)
    ring.draw(screen, 10, 0, 2.0)
    assert (ring.WX, ring.WY) == (110, 100)
    assert colour(screen, 149, 100) == (255, 214, 102)
