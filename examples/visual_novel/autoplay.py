"""Reads the story without a display: it clicks and presses keys, and saves a picture."""

import os
import sys
import time

import pygame

DELAY = 1 / 60
PATIENCE = 20000  # frames after which something must be wrong
# Which answers to choose, a story each.
WAYS = ((0, 0), (0, 1), (1,))


def is_wanted():
    asked = os.environ.get("TESSORA_HEADLESS") == "1"
    display = os.environ.get("DISPLAY") or os.environ.get("WAYLAND_DISPLAY")
    return asked or (sys.platform.startswith("linux") and not display)


def use_dummy_drivers():
    os.environ["SDL_VIDEODRIVER"] = os.environ["SDL_AUDIODRIVER"] = "dummy"


def wait(seconds):
    for _ in range(round(seconds / DELAY)):
        yield


def click(x, y):
    # The dummy video driver has no pointer of its own.
    pygame.mouse.get_pos = lambda: (x, y)
    for kind in (pygame.MOUSEBUTTONDOWN, pygame.MOUSEBUTTONUP):
        pygame.event.post(pygame.event.Event(kind, pos=(x, y), button=1))
        yield from wait(0.1)


def press(key):
    pygame.event.post(pygame.event.Event(pygame.KEYDOWN, key=key))
    yield from wait(0.1)


def button(game, text):
    found = [node for node in game.menu.GetAllGameNode().values() if node.GetText() == text]
    return found[0].GetX() + 180, found[0].GetY() + 24


def read(game, answers):
    """From the title to an ending and back."""
    yield from click(*button(game, "Begin"))
    answers = list(answers)
    while game.playing or game.curtain.moving:
        yield
        if game.curtain.moving or not game.playing:
            continue
        if game.answers:
            yield from wait(0.5)
            yield from click(*button(game, list(game.answers)[answers.pop(0)]))
        elif game.text.is_typing() and len(game.found) > 0:
            yield from press(pygame.K_SPACE)
        elif not game.text.is_typing():
            yield from wait(0.2)
            yield from click(400, 400)


def whole_game(game):
    yield from wait(1.0)
    yield from click(*button(game, "Text: calm"))
    for way in WAYS:
        yield from read(game, way)
        yield from wait(0.5)
    # Into the story once more, and out of it by its menu.
    yield from click(*button(game, "Begin"))
    yield from wait(2.5)
    yield from press(pygame.K_ESCAPE)
    yield from wait(0.3)
    yield from click(*button(game, "To the title"))
    yield from wait(1.5)
    yield from click(*button(game, "Leave"))
    yield from wait(0.5)


def play(game, picture="visual_novel.png"):
    script, frames, pictures = whole_game(game), 0, {}
    started = time.perf_counter()
    while game.running:
        next(script)
        for event in pygame.event.get():
            game.handle_event(event)
        game.update(DELAY)
        game.draw()
        pygame.display.flip()
        frames += 1
        assert frames < PATIENCE
        both = len(game.portraits) == 2 and not game.curtain.moving
        if game.answers and both and "" not in pictures:
            pictures[""] = game.screen.copy()
        elif game.found and "_end" not in pictures:
            pictures["_end"] = game.screen.copy()
    seconds = time.perf_counter() - started
    for end, moment in pictures.items():
        pygame.image.save(moment, picture.replace(".png", end + ".png"))
    print(f"{frames} frames in {seconds:.1f} s: {frames / seconds:.0f} frames per second")
    print(f"{len(game.found)} endings found")
    print(f"wrote {os.path.abspath(picture)}")
