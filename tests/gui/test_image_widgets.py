"""Image widgets: their pictures and frames, the viewport, borders and outlines."""

from types import SimpleNamespace

import pygame
import pytest
import Tessora as T
from helpers import ink
from picture_oracle import LOOK, Place, assert_draws, assert_same, assert_widget, dress, outcome

IMAGES = {name: pygame.Surface((10 + index, 20)) for index, name in enumerate("abc")}
FILES = [("a", "a"), (["a", "b"], "ab"), (("c", "a", "c"), "cac"), ([], ""), (["?", "b"], "?b")]
FILES += [(IMAGES["c"], "c"), (None, "")]


@pytest.mark.parametrize(("files", "names"), FILES)
def test_files_and_surfaces(screen, monkeypatch, files, names):
    asked, expected = [], [IMAGES.get(name) for name in names]
    res = SimpleNamespace(LoadImage=lambda name: asked.append(name) or IMAGES.get(name))
    monkeypatch.setattr(T, "Res", res)
    widget = dress(T.GUI_Image(), imageIndex=1, imageDelay=0.05, imageSwitchDelay=9)
    widget.SetImage(files)
    assert (list(widget.imageArray or []), widget.imageCount) == (expected, len(expected))
    assert widget.image is (expected[0] if expected else None)
    assert (widget.imageIndex, widget.imageDelay, widget.imageSwitchDelay) == (1, 0.05, 0.1)
    assert asked == ([] if files is None or files is IMAGES["c"] else list(names))
    widget.AutoImageSize(autosize=True)
    widget.SetImage(imagefiles=["b"], switchdelay=4)
    assert (widget.imageSwitchDelay, widget.imagefiles) == (4, ["b"])
    assert (widget.width, widget.height) == (11, 20)
    res.LoadImage = lambda name: 1 / 0
    assert outcome(widget.SetImage, "a.png") is ZeroDivisionError
    monkeypatch.undo()
    assert outcome(widget.SetImage, "a.png") is AttributeError
    assert_widget(widget, screen)


def animated(**changes):
    frames = [image.copy() for image in IMAGES.values()]
    widget = dress(T.GUI_Image(), imageArray=frames, imageCount=3, imageAutoSwitch=True)
    return dress(widget, **{"imageSwitchDelay": 0.25, "image": frames[0], **changes}), frames


# Changed attributes, delays, and then: index, what is left of the delay, frame shown.
UPDATES = [({}, [0.125], 0, 0.125, 0), ({}, [0.25], 1, 0.0, 1), ({}, [10.0, 0, 0], 0, 9.25, 0)]
UPDATES += [({}, [0.75, 0.0], 2, 0.25, 2), ({}, [-1.0, 0.25], 0, -0.75, 0)]
UPDATES += [({"imageCount": 1}, [5.0], 0, 0, 0), ({"imageAutoSwitch": False}, [5.0], 0, 0, 0)]
UPDATES += [({"imageAutoSwitch": 1.0}, [0.25], 1, 0, 1), ({"imageAutoSwitch": 2}, [0.25], 0, 0, 0)]
UPDATES += [({"imageIndex": 7}, [0.25], 2, 0, 2), ({"imageIndex": -3}, [0.25], -2, 0, 0)]
UPDATES += [({"imageSwitchDelay": 0}, [0.5] * 4, 1, 2.0, 1)]
UPDATES += [({"imageIndex": 3**60 + 1}, [0.25], 2, 0, 2), ({"imageIndex": 7.5}, [0.25], 2.5, 0, 0)]


@pytest.mark.parametrize(("changes", "delays", "index", "rest", "shown"), UPDATES)
def test_frames_advance_one_per_update(changes, delays, index, rest, shown):
    widget, frames = animated(**changes)
    for delay in delays:
        widget.update(delay)
    assert (widget.imageIndex, widget.imageDelay) == (index, rest)
    assert widget.image is frames[shown]


def test_single_frames_and_mirrors(screen):
    (source, frames), (mirror, own) = animated(), animated()
    for index in (2, 0, 1, -1, 3, 2**70, None, "1", 0.5, [1]):
        source.SwitchImage(index)
        assert (source.image, source.imageIndex) == (frames[index if index in (0, 2) else 1], 0)
    source.SwitchImage(0)
    mirror.UseImage(source, True)
    assert (mirror.originalImage, mirror.image, mirror.autosize) == (source, frames[0], True)
    source.update(0.25)
    assert (mirror.image, mirror.width) == (frames[0], 10)
    # A mirror does not play its own frames, until it is none.
    mirror.update(9.0)
    assert (mirror.image, mirror.width) == (frames[1], 11)
    assert (mirror.imageIndex, mirror.imageDelay) == (0, 0)
    dress(mirror, originalImage=None).update(0.25)
    assert (mirror.image, mirror.imageIndex) == (own[1], 1)
    mirror.UseImage(SimpleNamespace(GetImage=lambda: IMAGES["c"]), False)
    assert_widget(mirror, screen)
    assert outcome(mirror.UseImage, None, True) is AttributeError
    assert outcome(source.update, "soon") is TypeError
    assert outcome(animated(imageIndex=float("inf"))[0].update, 0.25) is OverflowError


PLACES = [(150, 60, True), (0, 60, True), (-0.25, 60, False), (300, 60, True), (300.25, 60, False)]
PLACES += [(150, -50, True), (150, -50.5, False), (150, 130, True), (150, 131, False)]


def test_viewport():
    widget, scene = T.GUI_Image(None), SimpleNamespace(GetViewPort=lambda: (1, 2, "x"))
    widget.OnLoad(scene)
    assert outcome(widget.CheckInViewPort) in (TypeError, ValueError)
    scene.GetViewPort = lambda: (100, 50, 200, 80)
    for x, y, inside in PLACES:
        dress(widget, x=x, y=y, WSX=1.0)
        assert widget.CheckInViewPort() is inside
        assert dress(widget, WSX=2.0).CheckInViewPort() is (inside or x == -0.25)


LIGHT, DARK, SOLID, GROUND = (218, 218, 218), (64, 64, 64), (10, 200, 30), (90, 20, 150)
STYLES = {"raised": [LIGHT, LIGHT, DARK, DARK], "sunken": [DARK, DARK, LIGHT, LIGHT]}
STYLES.update(solid=[SOLID] * 4, flat=[GROUND] * 4, unknown=[GROUND] * 4)


# A widget at 40, 30 sized 100 x 60 with nothing inside, on a plain ground.
def plain(screen, style="flat", **changes):
    screen.fill(GROUND)
    widget = dress(T.GUI_Image(None, 40, 30), style=style, borderVisible=True, height=60)
    return dress(widget, **{"bgColor": None, "borderColor": pygame.Color(*SOLID), **changes})


def shown(widget, screen, places):
    widget.draw(screen, 0, 0, 1.0)
    return [tuple(screen.get_at(place))[:3] for place in places]


# The sides of a border in the box; whose colour the corners have is left open.
def assert_border(screen, box, width, colors):
    left, top, right, bottom = colors
    expected = screen.copy()
    expected.fill(GROUND)
    expected.fill(left, (box.left, box.top, width, box.height))
    expected.fill(right, (box.right - width, box.top, width, box.height))
    expected.fill(top, (box.left, box.top, box.width, width))
    expected.fill(bottom, (box.left, box.bottom - width, box.width, width))
    for x in (box.left, box.right - width):
        for y in (box.top, box.bottom - width):
            for surface in (screen, expected):
                surface.fill(GROUND, (x, y, width, width))
    assert_same(screen, expected)


CAMERAS = [(0, 0, 1.0), (10, 5, 1.5), (-3, 2, 0.5)]
# Boxes that start or end between two pixels: they are cut as the background is.
CAMERAS += [(-40.5, -30.75, 1.0), (-40.999, 0, 1.0), (-27.1, -17.1, 1.004), (0.9, 0.9, 1.009)]


@pytest.mark.parametrize("style", STYLES)
@pytest.mark.parametrize("width", [1, 2, 5])
@pytest.mark.parametrize("camera", CAMERAS, ids=str)
def test_borders_lie_inside_the_box(screen, style, width, camera):
    plain(screen, style, borderwidth=width).draw(screen, *camera)
    box = pygame.Rect(Place(dict(LOOK, x=40, y=30, height=60), camera).rect)
    assert_border(screen, box, width, STYLES[style])


@pytest.mark.parametrize("style", ["raised", "sunken", "solid"])
def test_a_background_and_its_border_cover_the_same_pixels(screen, style):
    for x in (-0.9, -0.1, 12.9, 12.1):
        inks = []
        for look in (style, "flat"):
            color = pygame.Color(1, 2, 3)
            plain(screen, look, x=x, y=x, bgColor=color, sx=1.004, sy=1.07).draw(screen, 0, 0, 1.0)
            inks.append(ink(screen, GROUND))
        assert inks[0] == inks[1]


@pytest.mark.parametrize("style", STYLES)
def test_borders_turn_with_the_widget(screen, style):
    # A quarter turn to the left: the left side goes to the bottom, the top to the left.
    widget = plain(screen, style, width=60, borderwidth=8, angle=90)
    left, top, right, bottom = STYLES[style]
    found = shown(widget, screen, [(43, 60), (70, 33), (96, 60), (70, 86)])
    for color, wanted in zip(found, (top, right, bottom, left)):
        assert max(abs(a - b) for a, b in zip(color, wanted)) <= 12


@pytest.mark.parametrize("style", STYLES)
def test_no_border(screen, style):
    for changes in ({"borderVisible": 2}, {"borderwidth": 0}):
        assert shown(plain(screen, style, **changes), screen, [(90, 30)]) == [GROUND]


@pytest.mark.parametrize("flag", [True, 1, False, None, 2])
def test_focus_border_and_collision_outlines(screen, monkeypatch, flag):
    color, shows = (10, 250, 20), flag in (True, 1)
    for name in ("g_pygameControl_BorderColor", "g_pygameControl_CollColor"):
        monkeypatch.setattr(T, name, pygame.Color(*color))
    rect = Place(dict(LOOK, x=40, y=30, height=60), (7.5, -3.25, 1.25)).rect
    draw = (lambda target: pygame.draw.rect(target, color, rect, 2)) if shows else id
    assert_draws(plain(screen, focusIn=flag), screen, draw, (7.5, -3.25, 1.25))
    widget = plain(screen, coll_visible=flag)
    for rect in ((10, 5, 40, 20), pygame.Rect(60, 30, 20, 20)):
        widget.AddCollRect(collName="body", rect=rect)
        widget.AddCollRect("empty", (0, 0, 9, 9))
    widget.CleanCollRect("empty")
    edges = ((70, 35), (50, 45), (89, 45), (70, 54), (110, 60), (100, 70), (119, 70), (110, 79))
    assert shown(widget, screen, edges) == [color if shows else GROUND] * 8
    assert shown(widget, screen, [(70, 45), (110, 70), (45, 35), (40, 30)]) == [GROUND] * 4
    assert (len(widget.GetCollRect("body")), widget.GetCollRect("empty")) == (2, [])
    widget = plain(screen, coll_visible=flag, sy=2.0)
    widget.AddCollRect("body", (10, 5, 40, 20))
    assert shown(widget, screen, [(70, 40), (70, 79)]) == [color if shows else GROUND] * 2
    plain(screen, width=60, angle=90, focusIn=flag).draw(screen, 0, 0, 1.0)
    for side in ((60, 28, 10, 6), (60, 86, 10, 6), (38, 50, 6, 10), (96, 50, 6, 10)):
        assert (ink(screen.subsurface(side), GROUND).size != (0, 0)) is shows
    # Turned, the square is as wide as its diagonal.
    plain(screen, width=80, height=80, angle=45, focusIn=flag).draw(screen, 0, 0, 1.0)
    assert abs(ink(screen, GROUND).width - 113 * shows) <= 4
