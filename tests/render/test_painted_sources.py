"""A picture may be painted at any time, by anything that reaches it; the next draw shows it."""

import gc

import pygame
import pytest
import Tessora as T
from picture_oracle import (
    LOOK,
    WHITE,
    Place,
    assert_draws,
    assert_same,
    assert_widget,
    draw_image,
    draw_widget,
    dress,
    noise,
    pixels,
    scenery,
)

LOOKS = [{"width": 24, "height": 24, "bgColor": None}, {"width": 24, "height": 24}]
LOOKS += [{"width": 18, "height": 30}, {"width": 24, "height": 24, "angle": 30.0}]
LOOKS += [{"bgColor": pygame.Color(255, 128, 0)}, {"width": 40, "height": 24, "alpha": 128}]


def poke_pixel_array(surface):
    array = pygame.PixelArray(surface)
    array[3, 4] = surface.map_rgb((1, 200, 3, 255))
    array.close()


def exchange_halves(surface):
    """Same pixels in another place: sums and histograms stay as they were."""
    left, right = (surface.subsurface((x, 0, 12, 24)).copy() for x in (0, 12))
    surface.fill((0, 0, 0, 0))
    surface.blit(right, (0, 0))
    surface.blit(left, (12, 0))


PAINTS = {
    "fill": lambda s: s.fill((10, 200, 30, 140)),
    "fill a corner": lambda s: s.fill((10, 200, 30, 140), (23, 23, 1, 1)),
    "set_at": lambda s: s.set_at((0, 0), (1, 2, 3, 255)),
    "set_at lowest bit": lambda s: s.set_at((5, 5), [c ^ 1 for c in s.get_at((5, 5))]),
    "draw": lambda s: pygame.draw.line(s, (255, 0, 0), (0, 0), (20, 9)),
    "blits": lambda s: s.blits([(noise((8, 8), 77), (4, 4))]),
    "scroll": lambda s: s.scroll(3, -2),
    "set_alpha": lambda s: s.set_alpha(60),
    "set_alpha none": lambda s: s.set_alpha(None),
    "set_colorkey": lambda s: s.set_colorkey(s.get_at((2, 2))),
    "set_colorkey run-length": lambda s: s.set_colorkey((200, 0, 200), pygame.RLEACCEL),
    "set_colorkey none": lambda s: s.set_colorkey(None),
    "subsurface": lambda s: s.subsurface((5, 6, 7, 8)).subsurface((1, 1, 2, 2)).fill((0, 0, 200)),
    "pixel array": poke_pixel_array,
    "buffer": lambda s: s.get_buffer().write(bytes(range(16)), 96),
    "exchange": exchange_halves,
    "another size": lambda s: s.__init__((300, 200), 0),
    "another format": lambda s: s.__init__((24, 24), pygame.SRCALPHA, 16),
}


def source(kind):
    """The picture, and the surface that is painted."""
    depth = 24 if kind == "24 bits" else 32
    flags = pygame.SRCALPHA if kind in ("alpha", "sheet") else 0
    surface = noise((24, 24), 1, flags, depth)
    surface.fill((200, 0, 200), (3, 3, 12, 12))
    if kind == "keyed":
        surface.set_colorkey((200, 0, 200))
    elif kind == "faded":
        surface.set_alpha(120)
    return (surface.subsurface((2, 2, 22, 22)) if kind == "sheet" else surface), surface


@pytest.mark.parametrize("kind", ["alpha", "opaque", "keyed", "faded", "24 bits", "sheet"])
@pytest.mark.parametrize("paint", sorted(PAINTS))
def test_painting_between_two_draws(screen, paint, kind):
    for look in LOOKS:
        image, painted = source(kind)
        if kind == "sheet" and paint.startswith("another"):
            continue
        widget = dress(T.GUI_Image(None, 15, 10), image=image, **look)
        assert_widget(widget, screen)
        assert_widget(widget, screen)
        PAINTS[paint](painted)
        assert_widget(widget, screen)
        assert_widget(widget, screen)
        if paint.startswith("another"):
            image.fill((200, 100, 0, 128), (2, 2, 10, 5))
            assert_widget(widget, screen)


@pytest.mark.parametrize("look", LOOKS, ids=str)
def test_painting_through_open_views(screen, look):
    image = noise((24, 24), 1)
    widget = dress(T.GUI_Image(None, 9, 9), image=image, **look)
    memory = memoryview(image.get_view("0"))
    for index in range(4):
        memory[400 + index] ^= 255
        assert_widget(widget, screen)
    del memory
    array = pygame.PixelArray(image)
    for index in range(3):
        array[index, 2] = image.map_rgb((255, index, 9, 255))
        # A locked surface is refused by some of the calls; the engine refuses it as they do.
        assert_widget(widget, screen)
    array.close()
    assert_widget(widget, screen)


@pytest.mark.parametrize("look", LOOKS, ids=str)
def test_surfaces_that_are_easily_confused(screen, look):
    widget = dress(T.GUI_Image(None, 15, 10), **look)
    for seed in range(12):
        widget.image = None
        gc.collect()
        assert_widget(widget, screen, image=noise((24, 24), seed))
    image, opaque = noise((24, 24), 3), pygame.Surface((24, 24), 0, 32)
    raw = image.get_buffer().raw
    opaque.get_buffer().write(raw, 0)
    for picture in (image, opaque, image):
        assert_widget(widget, screen, image=picture)
    for order in ("bgra", "argb", "abgr", "rgba", "bgra"):
        masks = [255 << 8 * order.index(channel) for channel in "rgba"]
        image.__init__((24, 24), pygame.SRCALPHA, 32, masks)
        image.get_buffer().write(raw, 0)
        assert_widget(widget, screen)
    for key in ((200, 0, 200, 255), (200, 0, 200, 0), (200, 0, 201), None, (200, 0, 200)):
        opaque.fill((200, 0, 200), (0, 0, 12, 12))
        opaque.set_colorkey(key)
        assert_widget(widget, screen, image=opaque)
    palette = noise((24, 24), 2, 0, 8)
    assert_widget(widget, screen, image=palette)
    palette.set_palette_at(int(palette.get_at_mapped((4, 4))), (255, 255, 0))
    assert_widget(widget, screen)


class Painter(T.GUI_Image):
    """Paints into a picture in the middle of a draw, in the step that it is told."""

    step = target = color = None


def overridden(step):
    def method(self, *args):
        result = getattr(T.GUI_Image, step)(self, *args)
        if step == self.step:
            self.target.fill(self.color)
        return result

    return method


STEPS = "draw draw_begin draw_children drawStyle drawFocusBorder drawDragRect drawAnchor"
STEPS += " drawCollInfo drawBGColor IsVisible GetWX GetWSX GetWAngle"
for _step in STEPS.split():
    setattr(Painter, _step, overridden(_step))


@pytest.mark.parametrize("look", LOOKS, ids=str)
@pytest.mark.parametrize("step", STEPS.split())
def test_painting_from_a_callback_between_two_users_of_the_picture(screen, step, look):
    image = noise((24, 24), 1)
    parent = dress(T.GUI_Image(None), style="hollow")
    first, painter, last = T.GUI_Image(parent, 10, 10), Painter(parent), T.GUI_Image(parent, 70, 10)
    dress(painter, bgColor=None, step=step, target=image)
    dress(first, image=image, **look)
    dress(last, image=image, **look)
    for color in ((255, 0, 0, 255), (0, 255, 0, 100)):
        painter.color = color
        before, after = image.copy(), image.copy()
        after.fill(color)

        def expected(target, pictures=((10, before), (70, after))):
            for x, picture in pictures:
                draw_widget(target, x=x, y=10, image=picture, **look)

        assert_draws(parent, scenery(screen), expected)


def test_painting_from_the_scene_from_a_number_and_from_the_attribute(screen):
    image, states = noise((24, 24), 1), []

    class Scene:
        def AddBatchCount(self):
            image.set_at((len(states), 2), (255, 255, 255, 255))
            states.append(image.copy())

    parent = dress(T.GUI_Image(None), style="hollow")
    for index in range(3):
        child = dress(T.GUI_Image(parent, 10 + 30 * index, 5), image=image, width=24, height=24)
        child.OnLoad(Scene())
    reference = scenery(screen).copy()
    shown = [image.copy(), *states]
    parent.draw(screen, 0, 0, 1.0)
    shown += states
    for index in range(3):
        place = Place(dict(LOOK, x=10 + 30 * index, y=5, width=24, height=24))
        draw_image(reference, place, shown[index], WHITE)
    assert_same(screen, reference)

    class Width(float):
        def __mul__(self, other):
            image.fill((0, 80, 255, 200))
            return float(self) * other

    painted = image.copy()
    painted.fill((0, 80, 255, 200))
    widget = dress(T.GUI_Image(None, 5, 5), image=image, height=24, width=Width(24.0))
    place = Place(dict(LOOK, x=5, y=5, width=24.0, height=24))
    scenery(screen)
    assert_draws(widget, screen, lambda target: draw_image(target, place, painted, WHITE))

    class Living(T.GUI_Image):
        image = property(lambda self: image.fill(self.color) and image, lambda self, value: None)

    widget = dress(Living(None, 9, 9), width=24, height=24)
    for color in ((255, 0, 0, 255), (0, 255, 0, 255), (0, 0, 255, 60)):
        assert_widget(widget, screen, color=color)


@pytest.mark.parametrize("look", LOOKS, ids=str)
@pytest.mark.parametrize("area", [None, (20, 10, 40, 30)])
def test_the_screen_as_its_own_picture(screen, look, area):
    """What the engine itself paints in a frame is seen by the pictures drawn later in it."""
    plain = scenery(screen).copy()
    source, plain_source = (s if area is None else s.subsurface(area) for s in (screen, plain))
    parent = dress(T.GUI_Image(None), style="hollow")
    red = {"x": 5, "y": 5, "width": 30, "height": 30, "bgColor": pygame.Color(255, 0, 0)}
    mirrors = [{**look, "x": 60 + 50 * index, "y": 90} for index in range(2)]
    for child in ({**mirrors[0], "image": source}, red, {**mirrors[1], "image": source}):
        dress(T.GUI_Image(parent), **child)
    for turn in range(3):
        draw_widget(plain, **mirrors[0], image=plain_source)
        draw_widget(plain, **red)
        draw_widget(plain, **mirrors[1], image=plain_source)
        parent.draw(screen, 0, 0, 1.0)
        assert_same(screen, plain)
        for surface in (screen, plain):
            surface.fill((turn * 90, 200, 10), (10 + turn, 12, 9, 9))


@pytest.mark.parametrize("look", LOOKS, ids=str)
def test_drawing_into_pictures(screen, look):
    """Into the sheet that holds the widget's own picture, and into the picture of another."""
    sheets = [noise((120, 60), 1), noise((120, 60), 1)]
    targets = [sheet.subsurface((0, 0, 80, 60)) for sheet in sheets]
    sources = [sheet.subsurface((40, 10, 40, 30)) for sheet in sheets]
    widget = dress(T.GUI_Image(None, 30, 5), **look, image=sources[0])
    shown = dress(T.GUI_Image(None, 50, 40), image=sheets[0], **look)
    for _ in range(3):
        widget.drawToSurface(targets[0], 0, 0, 1.0)
        draw_widget(targets[1], x=30, y=5, **look, image=sources[1])
        assert_same(sheets[0], sheets[1])
        assert_widget(shown, screen)


@pytest.mark.parametrize("name", ["smoothscale", "rotozoom"])
def test_replaced_functions_of_pygame_are_the_ones_called(screen, monkeypatch, name):
    widget = dress(T.GUI_Image(None, 9, 9), image=noise((24, 24), 1), angle=10.0)
    assert_widget(widget, screen)
    result, calls = pygame.Surface((30, 30), pygame.SRCALPHA), []
    result.fill((0, 255, 0, 255))
    monkeypatch.setattr(pygame.transform, name, lambda _, *args: calls.append(args) or result)
    for _ in range(2):
        screen.fill((0, 0, 0))
        widget.draw(screen, 0, 0, 1.0)
        assert screen.get_at((59, 59)).g > 200
    assert calls == ([(10.0, 1)] * 2 if name == "rotozoom" else [((100, 100),)] * 2)
    monkeypatch.undo()
    assert_widget(widget, screen)


def test_many_large_pictures_stay_exact_and_sources_unchanged(screen):
    """More finished pictures than any reasonable store would keep."""
    images = [noise((16, 16), seed) for seed in range(12)]
    before = [pixels(image) for image in images]
    widget = T.GUI_Image(None, -100, -100)
    for turn in range(2):
        for index, image in enumerate(images):
            values = {"width": 1400 + index, "height": 900, "bgColor": None}
            assert_widget(widget, screen, image=image, **values)
            assert pixels(image) == before[index]
        images[turn].fill((9, 9, 9, 200))
        before[turn] = pixels(images[turn])
