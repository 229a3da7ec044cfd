"""The pictures of the guide to atlases."""

import os
import sys
from pathlib import Path

import pygame
import scenes
import Tessora

EXAMPLES = Path(__file__).resolve().parents[2] / "examples"
sys.path.insert(0, str(EXAMPLES))

import pack_atlas  # noqa: E402

BLUE = (70, 110, 190)
CLEAR = (232, 228, 240)


def enlarged(picture, times):
    width, height = picture.get_size()
    return pygame.transform.scale(picture, (width * times, height * times))


def chequered(size):
    surface = pygame.Surface(size)
    surface.fill(CLEAR)
    for x in range(0, size[0], 16):
        for y in range(x % 32, size[1], 32):
            surface.fill((246, 244, 250), (x, y, 16, 16))
    return surface


def frames():
    """An animation's frames side by side, with their numbers."""
    screen = scenes.window(700, 120)
    runner = Tessora.GUI_Image(None, 0, 0)
    runner.LoadImageFramesPList("sprites.plist")
    runner.AutoImageSize(True)
    for moment in range(8):
        runner.SwitchImage(moment % 4)
        runner.SetXY(40 + 82 * moment, 14)
        runner.draw(screen)
        middle = runner.GetX() + 24
        scenes.caption(screen, f"{moment * 0.1:.1f} s", middle, 82, 13, align="center")
        scenes.caption(screen, f"frame {moment % 4}", middle, 98, 13, scenes.ACCENT, "center")
    return screen.copy()


def whole_and_cut():
    """A frame in its whole size, what is left of it, and the offset between the middles."""
    screen = scenes.window(700, 300)
    whole = pygame.Rect(60, 30, 240, 240)
    screen.blit(chequered(whole.size), whole)
    piece = enlarged(pygame.image.load(os.path.join(scenes.ASSETS, "coin.png")), 4)
    area = piece.get_bounding_rect()
    piece = piece.subsurface(area)
    place = piece.get_rect(bottomleft=(whole.left + 100, whole.bottom - 90))
    screen.blit(piece, place)
    pygame.draw.rect(screen, BLUE, whole, 2)
    pygame.draw.rect(screen, scenes.ACCENT, place, 2)
    pygame.draw.circle(screen, BLUE, whole.center, 5)
    pygame.draw.circle(screen, scenes.ACCENT, place.center, 5)
    right, down = place.centerx - whole.centerx, place.centery - whole.centery
    scenes.arrow(screen, (340, 60), (304, 60), BLUE)
    scenes.caption(screen, "sourceSize {60,60}: the whole picture,\nwhat the widget shows", 348, 48)
    scenes.arrow(screen, (340, 120), (place.right + 4, place.top + 20))
    scenes.caption(
        screen, "frame {{0,0},{30,30}}: what is on\nthe sheet, without clear borders", 348, 108
    )
    text = f"offset {{{right / 4:g},{-down / 4:g}}}: from the middle\nof the whole to the middle of"
    scenes.caption(screen, text + "\nwhat is left; up is positive", 348, 180, color=scenes.ACCENT)
    return screen.copy()


def turned():
    screen = scenes.window(700, 230)
    upright = pygame.image.load(os.path.join(scenes.ASSETS, "tree.png"))
    upright = upright.subsurface(upright.get_bounding_rect())
    lying = pygame.transform.rotate(upright, -90)
    for picture, left, text in (
        (lying, 60, "on the sheet: it takes {h} x {w} pixels"),
        (upright, 430, "the frame: {w} x {h} pixels"),
    ):
        large = enlarged(picture, 2)
        place = large.get_rect(midleft=(left, 106))
        screen.blit(chequered(place.size), place)
        screen.blit(large, place)
        pygame.draw.rect(screen, scenes.ACCENT, place, 2)
        words = text.format(w=upright.get_width(), h=upright.get_height())
        scenes.caption(screen, words, place.centerx, 206, align="center")
    scenes.arrow(screen, (290, 106), (410, 106), BLUE, "turned back")
    scenes.caption(screen, "counter-clockwise", 350, 112, 14, BLUE, "center")
    return screen.copy()


def packed():
    folder = EXAMPLES / "platformer" / "assets"
    pictures = {path.name: pygame.image.load(str(path)) for path in folder.glob("*.png")}
    small = {name: each for name, each in pictures.items() if max(each.get_size()) <= 256}
    sheet, contents = pack_atlas.pack(small)
    screen = scenes.window(sheet.get_width() * 2 + 40, sheet.get_height() * 2 + 40)
    screen.blit(chequered((sheet.get_width() * 2, sheet.get_height() * 2)), (20, 20))
    screen.blit(enlarged(sheet, 2), (20, 20))
    for entry in contents["frames"].values():
        text = entry["frame"].replace("{", "").replace("}", "")
        x, y, width, height = (int(number) for number in text.split(","))
        if entry["rotated"]:
            width, height = height, width
        color = BLUE if entry["rotated"] else scenes.ACCENT
        pygame.draw.rect(screen, color, (20 + 2 * x, 20 + 2 * y, 2 * width, 2 * height), 1)
    return screen.copy()


def pictures():
    scenes.window()
    return {
        "frames": frames(),
        "offset": whole_and_cut(),
        "rotated": turned(),
        "packed": packed(),
    }
