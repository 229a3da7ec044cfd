"""Labels: fonts, alignment, password characters. Buttons: the look of each state, clicks."""

from types import SimpleNamespace

import pygame
import pytest
import Tessora as T
from helpers import ink
from picture_oracle import LOOK, BlockFont, Place, assert_draws, draw_widget, dress, noise, outcome

PAPER, INK = (255, 255, 255), pygame.Color(200, 10, 10)


# Without background, at 40, 30, sized 100 x 60, with gaps of 7 and 5.
def label(font=None, **changes):
    widget = dress(T.GUI_Label(None, 40, 30, "words"), bgColor=None, height=60, texttopgap=5)
    widget.SetFont(font=font or BlockFont(), fontname="blocks")
    return dress(widget, textColor=pygame.Color(*INK), textleftgap=7, **changes)


def drawn_box(screen, widget, *camera):
    screen.fill(PAPER)
    widget.draw(screen, *(camera or (0, 0, 1.0)))
    return ink(screen, PAPER)


HORIZONTAL = {"left": 7, "center": (100 - 30) * 0.5, "right": 70}
VERTICAL = {"top": 5, "center": (60 - 10) * 0.5, "bottom": 50}


@pytest.mark.parametrize("halign", HORIZONTAL)
@pytest.mark.parametrize("valign", VERTICAL)
def test_alignment(screen, halign, valign):
    widget = label(HAlign=halign, VAlign=valign, alpha=128)
    far_x, far_y = 7 * (halign == "right"), 5 * (valign == "bottom")
    for camera in ((0, 0, 1.0), (5, -4, 1.0), (3, 2, 1.5), (1.25, 0.75, 0.5)):
        box, place = drawn_box(screen, widget, *camera), Place(dict(LOOK, x=40, y=30), camera)
        left, top = HORIZONTAL[halign] * place.WSX, VERTICAL[valign] * place.WSY
        assert box.size == (int(30 * place.WSX), int(10 * place.WSY))
        assert 0 <= int(place.WX + left) - box.left <= far_x
        assert 0 <= int(place.WY + top) - box.top <= far_y
        assert screen.get_at(box.center) == INK
    # A quarter turn to the left about the centre of the widget, 200, 120.
    box = drawn_box(screen, dress(widget, angle=90, sx=2.0, sy=2.0, x=100, y=60))
    assert max(abs(box.width - 20), abs(box.height - 60)) <= 3
    assert -2 <= box.bottom - (220 - 2 * HORIZONTAL[halign]) <= 2 + 2 * far_x
    assert -2 <= 2 * VERTICAL[valign] + 140 - box.left <= 2 + 2 * far_y


SHOWN = [("abc", "*", "***"), ("abc", None, "abc"), ("", "*", ""), ("", None, "")]


@pytest.mark.parametrize(("text", "char", "shown"), [*SHOWN, ("ab", "xy", "xyxy")])
def test_password_characters(screen, text, char, shown):
    widget = label(text=text)
    widget.SetShowChar(char)
    assert drawn_box(screen, widget).width == 6 * len(shown)
    widget.drawText(screen, "d", PAPER)
    assert widget.font.rendered == [(shown, INK)][: len(text)] + [(char or "d", PAPER)]
    assert drawn_box(screen, dress(widget, textVisible=None)).width == 0


def test_bad_text(screen):
    widget, font = label(), pygame.font.Font(None, 30)
    wrong = (TypeError, ValueError, AttributeError, pygame.error)
    for bad in ({"sx": -1.0}, {"sx": 1, "font": None}, {"font": font, "text": 5}, {"text": "a\0b"}):
        assert outcome(dress(widget, **bad).draw, screen, 0, 0, 1.0) in wrong
    assert drawn_box(screen, dress(widget, text="fine")).height > 9


FILES = dict.fromkeys(("Hero.ttf", "HERO.TTF", "h.Otf", "h.ttf.bak", "a.ttfont", ".otf"), True)
FILES.update(dict.fromkeys(("Arial", "ttf", "hero_ttf", "hero.tt", ""), False))


@pytest.mark.parametrize("name", FILES)
def test_where_a_font_comes_from(screen, monkeypatch, name):
    asked, system, flags = [], [], []
    font = SimpleNamespace(set_underline=flags.append)
    fonts = SimpleNamespace(GetFont=lambda *args: asked.append(args) or font)
    monkeypatch.setattr(T, "Res", fonts)
    monkeypatch.setattr(pygame.font, "SysFont", lambda *args: system.append(args) or font)
    widget = T.GUI_Label(None, 0, 0, "x", name, 11)
    widget.CreateFont(fontname=name, fontsize=9, bold=0, italic=1, underline=True, strikethrough=2)
    calls = [(name, 11, False, False), (name, 9, 0, 1)]
    assert (asked, system) == ((calls, []) if FILES[name] else ([], calls))
    flags.append((widget.fontbold, widget.fontitalic, widget.fontunderline, widget.strikethrough))
    assert (widget.fontname, widget.fontsize, flags[-2:]) == (name, 9, [True, (0, 1, True, 2)])
    assert outcome(widget.CreateFont, None, 5, False, False, False, False) is AttributeError


AWAY, INSIDE = (300, 200), (60, 50)
COLORS = {"": (10, 20, 200, 255), "_hover": (20, 200, 30, 255), "_click": (200, 30, 40, 255)}


def button(images=False, **changes):
    widget = dress(T.GUI_Button(None, 40, 30), borderVisible=False, height=60)
    for state, color in COLORS.items():
        dress(widget, **{name + state: pygame.Color(*color) for name in ("bgColor", "textColor")})
        setattr(widget, "image" + state, noise((20, 10), state) if images else None)
    return dress(widget, **changes)


def assert_state(widget, screen, state, *camera):
    look, camera = {name: getattr(widget, name) for name in LOOK}, camera or (0, 0, 1.0)
    background, image = getattr(widget, "bgColor" + state), getattr(widget, "image" + state)

    def expected(target):
        if widget.style is not None:
            draw_widget(target, camera, **dict(look, image=None, bgColor=background))
            if image is not None:
                draw_widget(target, camera, **dict(look, image=image, alpha=255))

    screen.blit(noise((320, 240), 7, 0, 32), (0, 0))
    assert_draws(widget, screen, expected, camera)


CASES = [("", AWAY, 0), ("_hover", INSIDE, 0), ("_click", INSIDE, True), ("_click", AWAY, 1)]
CASES += [("", AWAY, 2), ("_hover", INSIDE, "yes"), ("", (140, 60), 0), ("", (60, 90), 0)]
CASES += [("_hover", (40, 30), 0), ("", (39, 30), 0), ("_hover", (139.9, 89), 0)]
LOOKS = [{}, {"angle": 20.0}, {"bgColor": None}, {"alpha": 128}, {"alpha": 0, "image": None}]
LOOKS += [{"style": "hollow"}, {"style": None}, {"blendtype": pygame.BLEND_ADD}]


# A button's pictures are not faded, and a state without a picture has none.
@pytest.mark.parametrize(("state", "place", "clicked"), CASES)
def test_states(screen, pointer, state, place, clicked):
    pointer.place = place
    for changes in LOOKS:
        for images in (False, True):
            assert_state(button(images, clicked=clicked, **changes), screen, state)
    pointer.place = place[0] * 2 + 10, place[1] * 2 + 5
    assert_state(button(clicked=clicked), screen, state, 10, 5, 2.0)
    pointer.place = INSIDE
    for changes in ({"NodeType": "CheckButton"}, {"NodeType": None}, {"sx": -1.0}, {"sx": 0}):
        assert_state(button(**changes), screen, "")


def test_flow_of_a_click(screen, pointer):
    widget, events, captions = button(text="Go"), [], []
    widget.drawText = lambda surface, *args: captions.append(args)
    widget.SetPickDownFunction(lambda node: events.append(("down", node, node.IsClicked())))
    widget.SetPickUpFunction(lambda node: events.append(("up", node, node.IsClicked())))
    widget.draw(screen, 0, 0, 1.0)
    assert widget.OnPickDownFunction(*AWAY) is None
    for pointer.place, up, state in ((INSIDE, widget, "_hover"), (AWAY, None, "")):
        assert widget.OnPickDownFunction(*INSIDE) is widget
        assert_state(widget, screen, "_click")
        assert widget.OnPickUpFunction(*pointer.place) is up
        assert_state(widget, screen, state)
    assert events == [("down", widget, False), ("up", widget, False), ("down", widget, False)]
    states = ("", "_click", "_hover", "_click", "")
    assert captions == [("Go", getattr(widget, "textColor" + state)) for state in states]


def test_disabled_and_failing_buttons(screen, pointer):
    events, widget = [], button(clicked=True)
    child = T.GUI_Image(dress(widget, PickDownFunction=events.append, PickUpFunction=events.append))
    widget.draw(screen, 0, 0, 1.0)
    for enable, pressed in ((False, None), (True, child)):
        widget.SetEnable(enable)
        assert widget.OnPickDownFunction(*INSIDE) is pressed
        assert (child.clicked, events) == (enable, [])
        widget.OnPickUpFunction(*AWAY)
        assert not widget.clicked
    dress(widget, enable=False, visible=False, clicked=True).OnPickUpFunction(*INSIDE)
    assert widget.clicked and dress(widget, enable=True, visible=True, clicked=False)
    for pointer.place, widget.bgColor_hover in (("xy", None), (INSIDE, "?"), (None, None)):
        assert outcome(widget.draw, screen, 0, 0, 1.0) in (TypeError, ValueError)
