"""A picture may be painted at any time, by anything that reaches it; the next draw shows it."""

from types import SimpleNamespace

import pygame
import pytest
import Tessora as T
from picture_oracle import assert_draws, assert_same, assert_widget, draw_widget, dress, noise

LOOKS = [{"width": 24, "height": 24, "bgColor": None}, {"width": 24, "height": 24}]
LOOKS += [{"width": 18, "height": 30}, {"width": 24, "height": 24, "angle": 30.0}]
LOOKS += [{"bgColor": pygame.Color(255, 128, 0)}, {"width": 40, "height": 24, "alpha": 128}]
PAINTS = {
    "fill": lambda s: s.fill((10, 200, 30, 140)),
    "fill a corner": lambda s: s.fill((10, 200, 30, 140), (23, 23, 1, 1)),
    "set_at lowest bit": lambda s: s.set_at((5, 5), [c ^ 1 for c in s.get_at((5, 5))]),
    "blits": lambda s: s.blits([(noise((8, 8), 77), (4, 4))]),
    "set_alpha": lambda s: s.set_alpha(None if s.get_alpha() == 120 else 60),
    "set_colorkey": lambda s: s.set_colorkey(None if s.get_colorkey() else s.get_at((2, 2))),
    "subsurface": lambda s: s.subsurface((5, 6, 7, 8)).subsurface((1, 1, 2, 2)).fill((0, 0, 200)),
    "pixel array": lambda s: pygame.PixelArray(s).__setitem__((3, 4), 0x7F010203),
    "buffer": lambda s: s.get_buffer().write(bytes(range(16)), 96),
    # Sums and histograms stay as they were.
    "same bytes elsewhere": lambda s: s.get_buffer().write(s.get_buffer().raw[::-1], 0),
    "upside down": lambda s: s.blit(pygame.transform.flip(s, False, True), (0, 0)),
    "stripes change places": lambda s: s.get_buffer().write(
        s.get_buffer().raw[640:1280] + s.get_buffer().raw[:640], 0
    ),
    "another size": lambda s: s.__init__((300, 200), 0),
    "another format": lambda s: s.__init__((24, 24), pygame.SRCALPHA, 16),
}
KINDS = {"alpha": (pygame.SRCALPHA, 32), "opaque": (0, 32), "24 bits": (0, 24)}
KINDS.update(keyed=(0, 32), faded=(0, 32), sheet=(pygame.SRCALPHA, 32))


@pytest.mark.parametrize("kind", KINDS)
@pytest.mark.parametrize("paint", PAINTS)
def test_painting_between_two_draws(screen, paint, kind):
    for look in LOOKS:
        surface = noise((24, 24), 1, *KINDS[kind])
        surface.fill((200, 0, 200), (3, 3, 12, 12))
        surface.set_colorkey((200, 0, 200) if kind == "keyed" else None)
        surface.set_alpha(120 if kind == "faded" else None)
        shared = kind == "sheet" and not paint.startswith("another")
        image = surface.subsurface((2, 2, 22, 22)) if shared else surface
        widget = dress(T.GUI_Image(None, 15, 10), image=image, **look)
        assert_widget(widget, screen)
        assert_widget(widget, screen)
        PAINTS[paint](surface)
        assert_widget(widget, screen)
        surface.fill((200, 100, 0, 128), (2, 2, 10, 5))
        assert_widget(widget, screen)


@pytest.mark.parametrize("look", LOOKS, ids=str)
def test_open_views_and_surfaces_that_are_easily_confused(screen, look):
    image, opaque = noise((24, 24), 1), noise((24, 24), 1, 0, 32)
    widget = dress(T.GUI_Image(None, 9, 9), image=image, **look)
    memory, raw = memoryview(image.get_view("0")), image.get_buffer().raw
    memory[400] ^= 255
    assert_widget(widget, screen)
    del memory
    array = pygame.PixelArray(image)
    for index in range(3):
        array[index, 2] = (0, 9, 255 - index, 255)
        # A locked surface is refused by some of the calls; the engine refuses it as they do.
        assert_widget(widget, screen)
    array.close()
    dress(widget, **{"width": 100, **look})
    for picture in (opaque, image, *(noise((24, 24), seed) for seed in range(9)), image):
        assert_widget(widget, screen, image=picture)
    for order in ("argb", "rgba", "bgra"):
        masks = [255 << 8 * order.index(channel) for channel in "rgba"]
        image.__init__((24, 24), pygame.SRCALPHA, 32, masks)
        image.get_buffer().write(raw, 0)
        image.fill((200, 0, 200, 0), (0, 0, 12, 12))
        assert_widget(widget, screen)
    for key in (200, 201, 200):
        opaque.fill((200, 0, 200), (0, 0, 12, 12))
        opaque.set_colorkey((200, 0, key))
        assert_widget(widget, screen, image=opaque)
        assert_widget(widget, screen)


STEPS = "draw draw_begin draw_children drawStyle drawFocusBorder drawDragRect drawAnchor"
STEPS += " drawCollInfo drawBGColor IsVisible GetWX GetWSX GetWAngle AddBatchCount"


@pytest.mark.parametrize("look", LOOKS, ids=str)
@pytest.mark.parametrize("step", STEPS.split())
def test_painting_from_a_callback_between_two_users_of_the_picture(screen, step, look):
    def paint(*args):
        image.fill(color)
        return getattr(T.GUI_Image, step)(painter, *args) if step != "AddBatchCount" else None

    image, parent = noise((24, 24), 1), dress(T.GUI_Image(None), style="hollow")
    dress(T.GUI_Image(parent, 10, 10), image=image, **look)
    painter, scene = dress(T.GUI_Image(parent), bgColor=None), SimpleNamespace()
    dress(T.GUI_Image(parent, 70, 10), image=image, **look)
    painter.OnLoad(scene)
    setattr(scene if step == "AddBatchCount" else painter, step, paint)
    for color in ((255, 0, 0, 255), (0, 255, 0, 100)):
        looks = [{"x": x, "y": 10, "image": image.copy(), **look} for x in (10, 70)]
        looks[1]["image"].fill(color)
        assert_draws(parent, screen, lambda t, all=looks: [draw_widget(t, **k) for k in all])


# What the engine itself paints in a frame is seen by the pictures drawn later in it: pictures on
# the screen itself, on a part of it, or beside the target on one sheet.
@pytest.mark.parametrize("look", LOOKS, ids=str)
@pytest.mark.parametrize("area", [(0, 0, 320, 240), (20, 10, 24, 24), (200, 90, 24, 24)])
def test_drawing_into_the_memory_of_the_picture(screen, look, area):
    sheets = [noise((320, 240), 5, pygame.SRCALPHA * (area[0] == 200)) for _ in range(2)]
    sheets[0] = sheets[0] if area[0] == 200 else screen
    sheets[0].blit(sheets[1], (0, 0))
    sheets[1] = sheets[0].copy()
    (source, target), (plain_source, plain) = ((s.subsurface(area), s) for s in sheets)
    red = {"x": 5, "y": 5, "width": 30, "height": 30, "bgColor": pygame.Color(255, 0, 0)}
    looks, parent = [{**look, "x": x, "y": 90} for x in (60, 205)], T.GUI_Image(None)
    dress(parent, style="hollow")
    for child in (looks[0], red, looks[1]):
        dress(T.GUI_Image(parent), image=None if child is red else source, **child)
    for _ in range(3):
        for child in (looks[0], red, looks[1]):
            draw_widget(plain, image=None if child is red else plain_source, **child)
        parent.drawToSurface(target, 0, 0, 1.0)
        assert_same(*sheets)


# More finished pictures than any reasonable store would keep.
def test_many_large_pictures_stay_exact(screen):
    widget, images = T.GUI_Image(None, -100, -100), [noise((16, 16), seed) for seed in range(12)]
    for image in images * 2:
        width = 1400 + images.index(image)
        assert_widget(widget, screen, image=image, width=width, height=900, bgColor=None)
        images[1].fill((9, width % 7, 9, 200))
