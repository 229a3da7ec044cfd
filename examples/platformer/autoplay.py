"""Plays the game without a display: it looks ahead and presses keys, and saves a picture."""

import os
import sys
import time

import pygame

DELAY = 1 / 60
PATIENCE = 180.0  # seconds of the game after which it is lost
TILE = 32


def is_wanted():
    asked = os.environ.get("TESSORA_HEADLESS") == "1"
    display = os.environ.get("DISPLAY") or os.environ.get("WAYLAND_DISPLAY")
    return asked or (sys.platform.startswith("linux") and not display)


def use_dummy_drivers():
    os.environ["SDL_VIDEODRIVER"] = os.environ["SDL_AUDIODRIVER"] = "dummy"


def press(key):
    pygame.event.post(pygame.event.Event(pygame.KEYDOWN, key=key))


def release(key):
    pygame.event.post(pygame.event.Event(pygame.KEYUP, key=key))


def is_blocked(game, x, y):
    return game.walls.GetTileCollision(*game.walls.GetTile_RC(x, y))


def wants_to_jump(game):
    """Whether a wall, a pit or a beetle is near ahead."""
    fox = game.player
    feet, front = fox.y + 48, fox.x + 30
    wall = is_blocked(game, front + 14, feet - 8) or is_blocked(game, front + 14, feet - 40)
    pit = not any(is_blocked(game, front + 4, feet + down * TILE) for down in range(1, 5))
    beetle = any(
        0 < beetle.x - front < 56 and abs(beetle.y - fox.y) < 60 for beetle in game.beetles
    )
    return wall or pit or beetle


def play(game, picture="platformer.png"):
    frames, moment, best, idle = 0, None, -1, 0.0
    started = time.perf_counter()
    press(pygame.K_RIGHT)
    while game.running:
        if game.on_ground() and wants_to_jump(game):
            press(pygame.K_SPACE)
        for event in pygame.event.get():
            game.handle_event(event)
        game.update(DELAY)
        game.draw()
        pygame.display.flip()
        frames += 1
        # The liveliest moment makes the picture.
        left = -game.world.scrollPosX
        inside = [thing for thing in game.coins + game.beetles if left < thing.x < left + 760]
        lively = (
            len(inside) + 4 * (not game.on_ground()) + 3 * any(b in inside for b in game.beetles)
        )
        if lively > best:
            best, moment = lively, game.screen.copy()
        idle += DELAY if game.finished else 0.0
        if idle > 1.5 or game.seconds > PATIENCE:
            release(pygame.K_RIGHT)
            pygame.event.post(pygame.event.Event(pygame.QUIT))
    seconds = time.perf_counter() - started
    pygame.image.save(moment, picture)
    name, kind = os.path.splitext(picture)
    pygame.image.save(game.screen, name + "_end" + kind)
    print(f"{frames} frames in {seconds:.1f} s: {frames / seconds:.0f} frames per second")
    result = "home" if game.finished else f"lost at {game.player.x:.0f}"
    print(f"{result} with {game.gathered} coins after {game.seconds:.1f} s")
    print(f"wrote {os.path.abspath(picture)}")
