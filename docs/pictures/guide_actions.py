"""The pictures of the guide to actions: moments of a movement, one after another."""

import sys
from pathlib import Path

import pygame
import scenes
import Tessora

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "examples"))

import own_actions as own  # noqa: E402

MOMENTS = 5
NAME_WIDTH, CELL, HEIGHT = 220, 100, 92


def rows(entries, seconds=1.0):
    """A row of moments for every (text, function of a node); the node is 40 pixels wide."""
    screen = scenes.window(NAME_WIDTH + CELL * MOMENTS, 30 + HEIGHT * len(entries))
    for moment in range(MOMENTS):
        x = NAME_WIDTH + CELL * moment + CELL // 2
        scenes.caption(screen, f"{moment / (MOMENTS - 1):g} s", x, 6, 13, align="center")
    for row, (text, start) in enumerate(entries):
        top = 30 + HEIGHT * row
        scenes.caption(screen, text, 10, top + 28, 14)
        for moment in range(MOMENTS):
            left = NAME_WIDTH + CELL * moment
            area = pygame.Rect(left + 4, top + 4, CELL - 8, HEIGHT - 8)
            pygame.draw.rect(screen, (232, 228, 240), area)
            screen.set_clip(area)
            node = scenes.image("coin.png", left + 50, top + 46, anchor="center")
            node.SetXY(left + 50, top + 46)
            start(node)
            for _ in range(round(60 * seconds * moment / (MOMENTS - 1))):
                node.update(1 / 60)
            node.draw(screen)
            screen.set_clip(None)
    return screen.copy()


def moved(dx, dy):
    """Where a node stands, off its middle."""
    return lambda node: node.SetXY(node.GetX() + dx, node.GetY() + dy)


def corner_move(node):
    # An anchor in the corner, with which the engine's moves begin where the node is.
    node.SetImageAnchor("wn")
    moved(-42, -42)(node)
    node.RunAction(Tessora.MoveByAction(1, 50, 50))


def glide(curve=None):
    def start(node):
        moved(0, -24)(node)
        action = own.GlideToAction(1, node.GetX(), node.GetY() + 48)
        node.RunAction(own.Ease(action, curve) if curve else action)

    return start


def run(*actions):
    return lambda node: node.RunAction(*(make() for make in actions))


def kinds():
    return rows(
        (
            ("MoveByAction(1, 50, 50)", corner_move),
            ("ScaleToAction(1, 2, 2)", run(lambda: Tessora.ScaleToAction(1, 2, 2))),
            ("RotateByAction(1, 180)", run(lambda: Tessora.RotateByAction(1, 180))),
            ("BlinkAction(1, 2)", run(lambda: Tessora.BlinkAction(1, 2))),
            (
                "ScaleToAction(0.5, 2, 2),\nRotateByAction(0.5, 90)",
                run(
                    lambda: Tessora.ScaleToAction(0.5, 2, 2),
                    lambda: Tessora.RotateByAction(0.5, 90),
                ),
            ),
        )
    )


def added():
    def repeat():
        turn = Tessora.ScaleToAction(0.25, 2, 2), Tessora.ScaleToAction(0.25, 1, 1)
        return own.Repeat(2, *turn)

    def together():
        return own.Together(Tessora.ScaleToAction(1, 2, 2), Tessora.RotateByAction(1, 180))

    return rows(
        (
            ("FadeToAction(1, 0)", run(lambda: own.FadeToAction(1, 0))),
            ("GlideToAction(1, x, y)", glide()),
            ("Together(scale, rotate)", run(together)),
            ("Repeat(2, grow, shrink)", run(repeat)),
            ("Ease(glide, bounce)", glide(own.bounce)),
        )
    )


def curves():
    parts = []
    for curve in (lambda t: t, own.start_slowly, own.smooth, own.bounce):
        screen = scenes.window(160, 130)
        pygame.draw.rect(screen, (232, 228, 240), (10, 10, 140, 110))
        points = [(10 + 140 * i / 70, 120 - 110 * curve(i / 70)) for i in range(71)]
        pygame.draw.lines(screen, scenes.ACCENT, False, points, 3)
        name = "none" if curve.__name__ == "<lambda>" else curve.__name__
        parts.append((name, screen.copy()))
    return scenes.sheet(parts, 4)


def jump():
    def hero(x):
        node = scenes.image("hero.png", x, 90, anchor="center")
        node.RunAction(Tessora.MoveByAction(1, 100, 0))
        return node

    def shown(seconds):
        screen = scenes.window(220, 150)
        node = hero(90)
        if seconds is not None:
            node.update(seconds)
        node.draw(screen)
        scenes.dot(screen, (90, 90))
        return screen.copy()

    return scenes.sheet(
        (
            ("at (90, 90),\nbefore the first update", shown(None)),
            ("after the first update:\nmoved by half its size", shown(0.0)),
            ("after one second", shown(1.0)),
        )
    )


def pictures():
    scenes.window()
    return {"kinds": kinds(), "added": added(), "curves": curves(), "jump": jump()}
