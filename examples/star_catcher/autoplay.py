"""Plays Star Catcher without a display: scripted events, frames per second, one picture."""

import os
import sys
import time

import pygame

DELAY = 1 / 60


def is_wanted():
    asked = os.environ.get("TESSORA_HEADLESS") == "1"
    display = os.environ.get("DISPLAY") or os.environ.get("WAYLAND_DISPLAY")
    return asked or (sys.platform.startswith("linux") and not display)


def use_dummy_drivers():
    os.environ["SDL_VIDEODRIVER"] = os.environ["SDL_AUDIODRIVER"] = "dummy"


class Hand:
    """A pointer that glides to its targets and clicks; all it does are pygame events."""

    def __init__(self):
        self.x, self.y = 400.0, 300.0
        # The dummy video driver has no pointer of its own.
        pygame.mouse.get_pos = self.position

    def position(self):
        return int(self.x), int(self.y)

    def post(self, kind, **values):
        pygame.event.post(pygame.event.Event(kind, pos=self.position(), **values))

    def glide(self, x, y):
        """Go a part of the way; true on arrival."""
        away_x, away_y = x - self.x, y - self.y
        self.x, self.y = self.x + 0.35 * away_x, self.y + 0.35 * away_y
        self.post(pygame.MOUSEMOTION, rel=(0, 0), buttons=(0, 0, 0))
        return abs(away_x) + abs(away_y) < 12

    def click(self):
        self.post(pygame.MOUSEBUTTONDOWN, button=1)
        yield from wait(0.08)
        self.post(pygame.MOUSEBUTTONUP, button=1)
        yield

    def click_at(self, x, y):
        while not self.glide(x, y):
            yield
        yield from wait(0.5)
        yield from self.click()


def wait(seconds):
    for _ in range(round(seconds / DELAY)):
        yield


def flyers_in_view(game):
    nodes = [node for node in game.play.GetAllGameNode().values() if hasattr(node, "kind")]
    return [node for node in nodes if 50 < node.GetX() < 750 and 60 < node.GetY() < 340]


def bursts_at_best(game):
    nodes = game.play.GetAllGameNode().values()
    return any(node.GetNodeType() == "Image" and node.GetSX() > 1.45 for node in nodes)


def catch_flyers(game, hand):
    while game.active is game.play:
        yield from wait(0.4)
        targets = [node for node in flyers_in_view(game) if node.kind != "grump"]
        if targets:
            target = max(targets, key=lambda node: node.GetY())
            while target.GetY() < 400 and not hand.glide(*target.GetXY()):
                yield
            yield from hand.click()
        yield


def whole_game(game, hand):
    """From the title through one round and its result into the next round, then out."""
    yield from wait(1.0)
    yield from hand.click_at(290, 372)
    yield from catch_flyers(game, hand)
    yield from wait(2.0)
    yield from hand.click_at(292, 304)
    yield from wait(1.0)
    pygame.event.post(pygame.event.Event(pygame.QUIT))
    yield


def play(game, picture="demo.png"):
    script = whole_game(game, Hand())
    frames, liveliest, moment = 0, 0, None
    started = time.perf_counter()
    while game.running:
        next(script)
        for event in pygame.event.get():
            game.handle_event(event)
        game.update(DELAY)
        game.draw()
        pygame.display.flip()
        frames += 1
        lively = len(flyers_in_view(game)) if bursts_at_best(game) else 0
        if game.active is game.play and lively > liveliest:
            liveliest, moment = lively, game.screen.copy()
    seconds = time.perf_counter() - started
    pygame.image.save(moment, picture)
    print(f"{frames} frames in {seconds:.1f} s: {frames / seconds:.0f} frames per second")
    print(f"wrote {os.path.abspath(picture)}")
