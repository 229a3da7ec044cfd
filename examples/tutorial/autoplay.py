"""Plays a game of the tutorial where there is no display, and does nothing where there is one.

With TESSORA_HEADLESS=1 it plays anywhere. Its clicks are pygame's events; frames and random
numbers are the same in every run. It saves what is to be seen after six seconds.
"""

import atexit
import os
import random
import sys
import zlib

import pygame
import Tessora

DELAY = 1 / 60
PICTURE_SECONDS, LONGEST_SECONDS = 6.3, 120.0


def is_wanted():
    asked = os.environ.get("TESSORA_HEADLESS") == "1"
    display = os.environ.get("DISPLAY") or os.environ.get("WAYLAND_DISPLAY")
    return asked or (sys.platform.startswith("linux") and not display)


class Clock:
    """Stands in for pygame.time.Clock: every frame takes the same time."""

    def tick(self, framerate=0):
        return 1000 * DELAY


def wait(seconds):
    for _ in range(round(seconds / DELAY)):
        yield


class Player:
    def __init__(self, name):
        self.name = name
        self.flip = pygame.display.flip
        self.script = self.play()
        self.frames = self.checksum = 0
        self.pointer = 5, 5
        self.clicks = {}

    def next_frame(self):
        self.flip()
        screen = pygame.display.get_surface()
        self.checksum = zlib.crc32(pygame.image.tostring(screen, "RGB"), self.checksum)
        self.frames += 1
        if self.frames == round(PICTURE_SECONDS / DELAY):
            pygame.image.save(screen, self.name + ".png")
            print("wrote " + os.path.abspath(self.name + ".png"))
            texts = [node.GetText() for node in self.nodes() if hasattr(node, "GetText")]
            print("to be read: " + ", ".join(texts))
            print(f"sounds: {getattr(Tessora.Res, 'soundPlayCount', 0)}")
            if not self.buttons():
                self.leave()
        if self.frames == round(LONGEST_SECONDS / DELAY):
            print("the game has not come to its end")
            self.leave()
        next(self.script)

    def leave(self):
        pygame.event.post(pygame.event.Event(pygame.QUIT))

    def nodes(self, hidden=False):
        main = sys.modules["__main__"]
        names = {**vars(main), **vars(getattr(main, "game", main))}
        found = [value for value in names.values() if isinstance(value, Tessora.GameLayer)]
        layers = {id(layer): layer for layer in found if hidden or layer.IsVisible()}
        return [node for layer in layers.values() for node in layer.GetAllGameNode().values()]

    def buttons(self):
        return [node for node in self.nodes(hidden=True) if node.GetNodeType() == "Button"]

    def target(self):
        """The flyer or button that was clicked least; every fifth click goes to a moth."""
        found = [node for node in self.nodes() if node.PickDownFunction or node.PickUpFunction]
        moths = [node for node in found if type(node).__name__ == "Moth"]
        if moths and sum(self.clicks.values()) % 5 == 4:
            return moths[0]
        others = [node for node in found if node not in moths]
        return min(others, key=lambda node: self.clicks.get(node, 0), default=None)

    def post(self, kind, **values):
        pygame.event.post(pygame.event.Event(kind, pos=self.pointer, **values))

    def play(self):
        yield from wait(1)
        while True:
            node = self.target()
            if node:
                self.clicks[node] = self.clicks.get(node, 0) + 1
                box = node.GetSizeRect()
                self.pointer = int(node.WX + box.width / 2), int(node.WY + box.height / 2)
                self.post(pygame.MOUSEMOTION, rel=(0, 0), buttons=(0, 0, 0))
                self.post(pygame.MOUSEBUTTONDOWN, button=1)
                yield from wait(0.1)
                self.post(pygame.MOUSEBUTTONUP, button=1)
            yield from wait(0.3)

    def report(self):
        print(f"{self.frames} frames, checksum {self.checksum:08x}")


def start():
    os.environ["SDL_VIDEODRIVER"] = os.environ["SDL_AUDIODRIVER"] = "dummy"
    random.seed(1)
    player = Player(os.path.splitext(os.path.basename(sys.argv[0]))[0])
    pygame.time.Clock = Clock
    pygame.display.flip = player.next_frame
    pygame.mouse.get_pos = lambda: player.pointer
    atexit.register(player.report)


if is_wanted():
    start()
