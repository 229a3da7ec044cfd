"""Overridden drawing steps, screens and surfaces of a script's own, and display restarts."""

from types import SimpleNamespace

import picture_oracle as oracle
import pygame
import pytest
import Tessora as T
from helpers import Scene, failures
from picture_oracle import LOOK, Place, assert_same, assert_widget, draw_widget, dress, noise

TAIL = "drawStyle drawFocusBorder drawDragRect drawAnchor drawCollInfo draw_children".split()
STEPS = ["draw_begin", "drawBGColor", "drawimage", "drawText", *TAIL]
LOOKS = [{}, {"width": 8, "height": 9, "bgColor": None}, {"angle": 30.0}, {"alpha": 100}]


@pytest.mark.parametrize("image", [None, noise((8, 8), 1)])
@pytest.mark.parametrize("base", [T.GUI_Image, T.GUI_Label, T.GUI_Button])
def test_order_and_arguments_of_the_steps(screen, base, image):
    def recorded(name, step):
        return lambda *args: calls.append((name, *args)) or step(*args)

    calls, widget = [], dress(base(None, 10, 20), image=image, dragcornerindex=-1)
    for name in STEPS:
        setattr(widget, name, recorded(name, getattr(widget, name, None)))
    widget.draw(screen, 3, 4, 0.5)
    filled, written = base is T.GUI_Button or not image, base is not T.GUI_Image
    expected = [("draw_begin", 3, 4, 0.5)] + [("drawBGColor", screen, widget.bgColor)] * filled
    expected += [("drawimage", screen, image)] * bool(image)
    expected += [("drawText", screen, "", pygame.Color("black"))] * written
    anchors = [call for call in calls if call[:2] == ("drawAnchor", screen)]
    expected += [("drawStyle", screen), ("drawFocusBorder", screen)]
    expected += [("drawDragRect", screen, 6, -1), *anchors, ("drawCollInfo", screen)]
    expected.append(("draw_children", screen, 3, 4, 0.5))
    assert (calls, len(anchors)) == (expected, 1)


def test_drawimage_overridden_and_replaced(screen, monkeypatch):
    class Widget(T.GUI_Image):
        def drawimage(self, surface, image):
            seen.append(image)
            super().drawimage(surface, image)

    seen, place = [], Place(dict(LOOK, x=10, y=20))
    for alpha in (0, 1, 128, 128, 254):
        widget = dress(Widget(None, 10, 20), alpha=alpha, image=noise((8, 9), 1))
        assert_widget(widget, screen, place=place)
        assert_same(seen[-1], oracle.faded(widget.image, alpha))
        seen[-1].fill((255, 0, 0, 255))
    widget = T.GUI_Image(None)
    monkeypatch.setattr(T.GUI_Image, "drawimage", lambda *args: seen.append(args))
    dress(widget, image=seen[0]).draw(screen, 0, 0, 1.0)
    assert seen[-1] == (widget, screen, widget.image)
    monkeypatch.undo()
    assert_widget(widget, screen)


# Paints over what it is given, and refuses to be copied.
class Canvas(pygame.Surface):
    copy = None

    def blit(self, source, *args, **kwargs):
        super().blit(source, *args, **kwargs)
        source.fill((255, 0, 255, 255))


@pytest.mark.parametrize("flag", [pygame.BLEND_MULT, pygame.BLEND_ADD])
@pytest.mark.parametrize("look", LOOKS, ids=str)
def test_screens_and_pictures_of_a_scripts_own(screen, look, flag):
    blits, plains, source = [], [], Canvas((8, 9), pygame.SRCALPHA)
    fake = SimpleNamespace(blit=lambda *args, **flags: blits.append((args, flags)))
    widget = dress(T.GUI_Image(None, -5.75, 5.5), image=source, blendtype=flag, **look)
    place = Place(dict(LOOK, x=-5.75, y=5.5, **look), (1, 2, 1.5))
    for change in range(3):
        source.fill((change * 60, 2, 3, 200))
        canvas, plain = Canvas((120, 120), 0, 32), pygame.Surface((120, 120), 0, 32)
        draw_widget(plain, place=place, image=source, blendtype=flag, **look)
        plains.append(oracle.pixels(plain))
        for target in (canvas, fake):
            widget.draw(target, 1, 2, 1.5)
        assert oracle.pixels(canvas) == plains[-1]
    # What a screen keeps never changes.
    for wanted, (args, flags) in zip(plains, blits):
        target = pygame.Surface((120, 120), 0, 32)
        target.blit(*args, **flags)
        assert oracle.pixels(target) == wanted


@pytest.mark.parametrize("step", [*TAIL, "draw_begin", "drawimage", "IsVisible", "GetWX"])
def test_an_error_in_a_step_leaves_the_engine_usable(screen, step):
    widget = dress(T.GUI_Image(None, 5, 5), image=noise((8, 9), 1))
    setattr(widget, step, lambda *args: 1 / 0)
    for _ in range(2):
        assert oracle.outcome(widget.draw, screen, 0, 0, 1.0) is ZeroDivisionError
    delattr(widget, step)
    for bad in (None, 5, "screen"):
        assert oracle.outcome(widget.draw, bad, 0, 0, 1.0) in (TypeError, AttributeError)
    assert_widget(widget, screen)


def test_the_scene_counts_drawn_widgets(screen):
    counted, parent = [], T.GUI_Image(None)
    T.GUI_Label(T.GUI_Button(parent))
    parent.OnLoad(SimpleNamespace(AddBatchCount=lambda: counted.append(1)))
    for visible, total in ((True, 3), (False, 4)):
        parent.children[0].SetVisible(visible)
        parent.draw(screen, 0, 0, 1.0)
        assert len(counted) == total
    scene = Scene()
    parent.OnLoad(scene)
    parent.SetInnerBindingEvent("Render", "drawn", None)
    parent.draw(screen, 0, 0, 1.0)
    assert scene.calls == [("on_drawn", {})]
    parent.OnLoad(object())
    parent.draw(screen, 0, 0, 1.0)


RESTARTS = """
from picture_oracle import assert_widget, dress, noise, outcome
looks = [{}, {"width": 24, "height": 24, "bgColor": None}, {"angle": 30.0}, {"alpha": 100}]
old = [dress(T.GUI_Image(None, 9, 9), image=noise((24, 24), 1), **look) for look in looks]
label = T.GUI_Label(None, 5, 5, "text")
modes = [((200, 100), 0, 16), ((320, 240), pygame.RESIZABLE, 24), ((50, 40), 0, 32)]
for turn, mode in enumerate(modes * 3):
    for widget in old:
        assert_widget(widget, screen)
    label.draw(screen, 0, 0, 1.0)
    old[0].image.fill((turn, 2, 3, 4))
    if turn > 2:
        pygame.quit() if turn % 2 else pygame.display.quit()
        for widget in old:
            outcome(widget.draw, pygame.Surface((100, 100), 0, 32), 0, 0, 1.0)
        pygame.init()
    screen = pygame.display.set_mode(*mode)
    label.CreateFont("Arial", 20, False, False, False, False)
"""


def test_display_restarts():
    assert failures({"restarts": RESTARTS}) == {}
