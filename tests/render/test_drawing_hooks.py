"""Overridden drawing steps, a script's own surface classes, and screens that have only blit."""

import pygame
import pytest
import Tessora as T
from picture_oracle import (
    LOOK,
    Place,
    assert_same,
    assert_widget,
    draw_widget,
    dress,
    faded,
    finished,
    noise,
    pixels,
    scenery,
)

WHITE = pygame.Color(255, 255, 255, 255)
IMAGE_STEPS = ["draw_begin", "drawimage", "drawBGColor", "drawText", "drawStyle", "drawFocusBorder"]
IMAGE_STEPS += ["drawDragRect", "drawAnchor", "drawCollInfo", "draw_children"]
TAIL = ["drawStyle", "drawFocusBorder", "drawDragRect", "drawAnchor", "drawCollInfo"]
TAIL += ["draw_children"]


def recording(base, calls):
    """A subclass that notes every drawing step with its arguments and then runs it."""

    def step(name):
        def method(self, *args):
            calls.append((name, args))
            return getattr(base, name)(self, *args)

        return method

    names = [name for name in IMAGE_STEPS if hasattr(base, name)]
    return type("Recording", (base,), {name: step(name) for name in names})


@pytest.mark.parametrize("image", [None, "picture"])
@pytest.mark.parametrize(
    ("base", "middle"),
    [
        (T.GUI_Image, {None: ["drawBGColor"], "picture": ["drawimage"]}),
        (T.GUI_Label, {None: ["drawBGColor", "drawText"], "picture": ["drawimage", "drawText"]}),
        (
            T.GUI_Button,
            {
                None: ["drawBGColor", "drawText"],
                "picture": ["drawBGColor", "drawimage", "drawText"],
            },
        ),
    ],
)
def test_order_and_arguments_of_the_steps(screen, monkeypatch, base, middle, image):
    monkeypatch.setattr(pygame.mouse, "get_pos", lambda: (319, 239))
    calls = []
    widget = recording(base, calls)(None, 10, 20)
    picture = noise((8, 8), 1) if image else None
    dress(widget, image=picture, dragcornerindex=-1)
    widget.draw(screen, 3, 4, 0.5)
    assert [name for name, _ in calls] == ["draw_begin"] + middle[image] + TAIL
    arguments = dict(calls)
    assert arguments["draw_begin"] == (3, 4, 0.5)
    assert arguments["drawDragRect"] == (screen, 6, -1)
    assert arguments["draw_children"] == (screen, 3, 4, 0.5)
    assert arguments["drawAnchor"][0] is screen
    for name in ("drawStyle", "drawFocusBorder", "drawCollInfo"):
        assert arguments[name] == (screen,)
    if "drawimage" in arguments:
        assert arguments["drawimage"][0] is screen
        assert arguments["drawimage"][1] is picture
    if "drawBGColor" in arguments:
        assert arguments["drawBGColor"] == (screen, widget.bgColor)
    if "drawText" in arguments:
        assert arguments["drawText"] == (screen, widget.text, widget.textColor)


@pytest.mark.parametrize("alpha", [0, 1, 128, 254])
def test_a_faded_picture_reaches_an_overridden_drawimage(screen, alpha):
    class Widget(T.GUI_Image):
        def drawimage(self, surface, image):
            seen.append(image)
            super().drawimage(surface, image)

    seen = []
    widget = dress(Widget(None, 10, 20), alpha=alpha, image=noise((8, 9), 1))
    place = Place(dict(LOOK, x=10, y=20))
    assert_widget(widget, screen, place=place)
    assert seen[-1] is not widget.image
    assert_same(seen[-1], faded(widget.image, alpha))
    seen[-1].fill((255, 0, 0, 255))
    assert_widget(widget, screen, place=place)
    assert_same(seen[-1], faded(widget.image, alpha))


def test_drawimage_replaced_on_the_instance_and_on_the_class(screen, monkeypatch):
    widget = dress(T.GUI_Image(None, 10, 20), image=noise((8, 9), 1))
    seen = []
    widget.drawimage = lambda surface, image: seen.append((surface, image))
    reference = scenery(screen).copy()
    widget.draw(screen, 0, 0, 1.0)
    assert seen == [(screen, widget.image)]
    assert_same(screen, reference)
    del widget.drawimage
    assert_widget(widget, screen)
    monkeypatch.setattr(T.GUI_Image, "drawimage", lambda *args: seen.append(args))
    widget.draw(screen, 0, 0, 1.0)
    assert seen[1:] == [(widget, screen, widget.image)]
    monkeypatch.undo()
    assert_widget(widget, screen)


def test_the_steps_can_be_called_by_a_script(screen):
    widget = T.GUI_Image(None, 40, 30)
    image = noise((21, 17), 1)
    widget.draw_begin(5, 6, 0.75)
    reference = scenery(screen).copy()
    draw_widget(reference, (5, 6, 0.75), x=40, y=30, image=image)
    widget.drawimage(screen, image)
    assert_same(screen, reference)
    draw_widget(reference, (5, 6, 0.75), x=40, y=30, bgColor=(1, 2, 3))
    widget.drawBGColor(screen, (1, 2, 3))
    widget.drawBGColor(screen, None)
    assert_same(screen, reference)


class Canvas(pygame.Surface):
    """A surface that notes its blits and paints over the sources that it was given."""

    def __init__(self, *args):
        super().__init__(*args)
        self.blits_seen = []

    def blit(self, source, dest, *args, **kwargs):
        self.blits_seen.append(source)
        result = super().blit(source, dest, *args, **kwargs)
        source.fill((255, 0, 255, 255))
        return result


LOOKS = [{}, {"width": 8, "height": 9, "bgColor": None}, {"angle": 30.0}, {"alpha": 100}]


@pytest.mark.parametrize("look", LOOKS, ids=str)
def test_a_screen_may_paint_over_what_it_was_given(screen, look):
    canvas = Canvas((120, 120), 0, 32)
    picture = noise((8, 9), 1)
    kept = pixels(picture)
    widgets = [dress(T.GUI_Image(None, 5, 5), image=picture, **look) for _ in range(2)]
    for widget in widgets * 2:
        plain = pygame.Surface((120, 120), 0, 32)
        draw_widget(plain, x=5, y=5, image=picture, **look)
        canvas.fill((0, 0, 0))
        widget.draw(canvas, 0, 0, 1.0)
        assert_same(canvas, plain)
        assert pixels(picture) == kept
    assert len(canvas.blits_seen) == 4


class FakeScreen:
    def __init__(self):
        self.calls = []

    def blit(self, source, dest, area=None, special_flags=0):
        self.calls.append((source, tuple(dest)[:2], special_flags))


@pytest.mark.parametrize("flag", [pygame.BLEND_MULT, pygame.BLEND_ADD, pygame.BLEND_SUB])
@pytest.mark.parametrize("look", LOOKS, ids=str)
def test_a_screen_that_only_has_blit(screen, look, flag):
    fake = FakeScreen()
    widget = dress(T.GUI_Image(None, -5.75, 5.5), image=noise((8, 9), 1), blendtype=flag, **look)
    place = Place(dict(LOOK, x=-5.75, y=5.5, **look), (1, 2, 1.5))
    image = faded(widget.image, 100) if "alpha" in look else widget.image
    picture = finished(place, image, look.get("bgColor", WHITE))
    for _ in range(2):
        widget.draw(fake, 1, 2, 1.5)
    assert len(fake.calls) == 2
    for source, corner, special_flags in fake.calls:
        assert_same(source, picture)
        assert [int(value) for value in corner] == [int(value) for value in place.corner(picture)]
        assert special_flags == (0 if flag == pygame.BLEND_MULT else flag)


def test_pictures_kept_by_a_screen_never_change(screen):
    fake = FakeScreen()
    image = noise((8, 9), 1)
    widget = dress(T.GUI_Image(None), image=image)
    for change in range(4):
        widget.draw(fake, 0, 0, 1.0)
        image.fill((change * 60, 2, 3, 200))
    copies = [pixels(source) for source, _, _ in fake.calls]
    widget.draw(fake, 0, 0, 1.0)
    assert [pixels(source) for source, _, _ in fake.calls[:4]] == copies
    assert len(set(copies)) == 4


class Picture(pygame.Surface):
    """A picture that is redrawn by the script whenever it is copied from."""

    def copy(self):
        raise AssertionError("a script's copy() is none of the drawing's business")


def test_a_picture_of_a_scripts_own_class(screen):
    picture = Picture((8, 9), pygame.SRCALPHA)
    picture.blit(noise((8, 9), 1), (0, 0))
    widget = T.GUI_Image(None, 5, 5)
    assert_widget(widget, screen, image=picture)
    picture.fill((1, 2, 3, 99))
    assert_widget(widget, screen)


@pytest.mark.parametrize("bad", [None, 5, object(), "screen"], ids=repr)
@pytest.mark.parametrize(
    "look", [{"image": "picture"}, {}, {"borderVisible": True, "style": "solid"}]
)
def test_bad_screens(screen, bad, look):
    widget = dress(T.GUI_Image(None, 5, 5), **look)
    if widget.image:
        widget.image = noise((8, 9), 1)
    with pytest.raises((TypeError, AttributeError)):
        widget.draw(bad, 0, 0, 1.0)
    assert_widget(widget, screen, borderVisible=False)


@pytest.mark.parametrize("step", [*TAIL, "draw_begin", "drawimage", "IsVisible", "GetWX"])
def test_an_error_in_a_step_leaves_the_engine_usable(screen, step):
    widget = dress(T.GUI_Image(None, 5, 5), image=noise((8, 9), 1))

    def fail(*args):
        raise LookupError("from the script")

    setattr(widget, step, fail)
    for _ in range(3):
        with pytest.raises(LookupError, match="from the script"):
            widget.draw(screen, 0, 0, 1.0)
    delattr(widget, step)
    assert_widget(widget, screen)


def test_the_scene_counts_drawn_widgets(screen):
    class Scene:
        count = 0

        def AddBatchCount(self):
            self.count += 1

    scene = Scene()
    parent = T.GUI_Image(None)
    T.GUI_Label(parent)
    hidden = T.GUI_Button(parent)
    T.GUI_Button(hidden)
    hidden.SetVisible(False)
    parent.OnLoad(scene)
    parent.draw(screen, 0, 0, 1.0)
    assert scene.count == 2
    hidden.SetVisible(True)
    parent.draw(screen, 0, 0, 1.0)
    assert scene.count == 6
    parent.OnLoad(object())
    parent.draw(screen, 0, 0, 1.0)
    assert scene.count == 6
