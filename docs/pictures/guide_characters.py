"""A figure's parts, the key frames of an action, and what lies between them."""

import sys

import pygame
import Tessora
from parts.looks import ROOT, SOFT, quiet
from scenes import ACCENT, INK, caption, dot, window

sys.path.insert(0, str(ROOT / "examples"))
NAMES = ("arm behind", "leg behind", "leg", "body", "head", "arm")


def figure(x, y, action, frame):
    """The figure of examples/character.py at a frame of an action."""
    from character import Figure

    made = Figure(x, y)
    with quiet():
        made.PlayAction(action)
        made.SetCurrFrame(frame)
        made.update(0)
    return made


def parts():
    from character import PICTURES, PLACES

    screen = window(640, 300)
    for index, name in enumerate(NAMES):
        x, y = 60 + index % 3 * 112, 62 + index // 3 * 130
        picture = PICTURES[index]
        screen.blit(picture, picture.get_rect(center=(x, y)))
        caption(screen, f"{index}: {name}", x, y + 56, 13, SOFT, "center")
    x, y = 500, 236
    figure(x, y, "walk", 0).draw(screen)
    for index, (dx, dy) in PLACES.items():
        left = index in (0, 1)
        end = (x - 70 if left else x + 70, y + dy + (4 if index == 3 else -6 if index == 5 else 0))
        pygame.draw.line(screen, SOFT, (x + dx, y + dy), end)
        pygame.draw.circle(screen, ACCENT, (x + dx, y + dy), 3)
        caption(screen, str(index), end[0] + (-12 if left else 6), end[1] - 9, 14, INK)
    dot(screen, (x, y), INK)
    caption(screen, "the figure's own place", x, y + 12, 13, SOFT, "center")
    return screen.copy()


def keys():
    screen = window(756, 260)
    frames = (0, 4, 8, 11, 14, 20, 32, 37, 42)
    for column, frame in enumerate(frames):
        x = 44 + 84 * column
        made = figure(x, 170, "wave", frame)
        made.draw(screen)
        is_key = made.IsKeyFrame("wave", frame)
        caption(screen, str(frame), x, 184, 15, ACCENT if is_key else SOFT, "center", is_key)
        caption(screen, "key frame" if is_key else "between", x, 206, 12, SOFT, "center")
    pygame.draw.line(screen, SOFT, (20, 232), (736, 232))
    caption(screen, "frames, 1/30 second each", 20, 238, 12, SOFT)
    return screen.copy()


def modes():
    screen = window(756, 212)
    for row, mode in enumerate((1, 0)):
        y = 76 + 96 * row
        made = Tessora.GameCharacter(None, 0, 0)
        made.SetImageAnchor("center")
        made.SetWidth(0)
        made.SetHeight(0)
        made.AddAction("go", 0.1)
        made.SetKeyFrame_Image("go", 0, "coin.png")
        for frame, place in ((0, (220, y)), (6, (460, y - 44)), (12, (700, y))):
            made.AddKeyFrame("go", frame, mode)
            made.SetKeyFrame_Position("go", frame, place)
        caption(screen, f"change mode {mode}", 16, y - 24, 15, INK)
        with quiet():
            made.PlayAction("go")
            for frame in range(13):
                made.SetCurrFrame(frame)
                made.update(0)
                part = made.imageDict[0]
                part.alpha = 255 if frame % 6 == 0 else 90
                made.draw(screen)
                if mode or frame % 6 == 0:
                    caption(screen, str(frame), int(part.GetX()), int(part.GetY()) + 16, 12,
                            SOFT, "center")  # fmt: skip
    return screen.copy()


def pictures():
    return {"parts": parts(), "keys": keys(), "modes": modes()}
