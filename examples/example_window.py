"""The window and the frame loop that the short examples share.

Without a display, or with TESSORA_HEADLESS=1, `run` plays a script of events for a few seconds and
saves what is drawn then.
"""

import os
import sys

import pygame
import Tessora

SIZE = WIDTH, HEIGHT = 640, 400
BACKGROUND = (36, 26, 72)
ASSETS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "star_catcher", "assets")
FONT = pygame.font.get_default_font()
HEADLESS_SECONDS = 2.5
DELAY = 1 / 60


class Scene:
    def GetSceneSize(self):
        return SIZE


def is_headless():
    asked = os.environ.get("TESSORA_HEADLESS") == "1"
    display = os.environ.get("DISPLAY") or os.environ.get("WAYLAND_DISPLAY")
    return asked or (sys.platform.startswith("linux") and not display)


def play(kind, value):
    """Post an event of the mouse at a position, or of a key."""
    if kind in (pygame.KEYDOWN, pygame.KEYUP):
        pygame.event.post(pygame.event.Event(kind, key=value))
        return
    pygame.mouse.get_pos = lambda: value
    values = {"rel": (0, 0), "buttons": (0, 0, 0)} if kind == pygame.MOUSEMOTION else {"button": 1}
    pygame.event.post(pygame.event.Event(kind, pos=value, **values))


def handle(layer, event):
    if event.type == pygame.MOUSEBUTTONDOWN:
        layer.OnPickDownFunction(*event.pos)
    elif event.type == pygame.MOUSEBUTTONUP:
        layer.OnPickUpFunction(*event.pos)
    elif event.type == pygame.KEYDOWN:
        layer.OnKeyDownFunction(pygame.key.name(event.key))
    elif event.type == pygame.KEYUP:
        layer.OnKeyUpFunction(pygame.key.name(event.key))


def run(name, build, script=(), size=SIZE, layers=1):
    """`build(layer)` fills the layer, or with more `layers` so many of them, the lowest first;
    `script` holds (seconds, kind of event, position or key)."""
    headless = is_headless()
    if headless:
        os.environ["SDL_VIDEODRIVER"] = os.environ["SDL_AUDIODRIVER"] = "dummy"
    pygame.init()
    pygame.display.set_caption(name)
    screen = pygame.display.set_mode(size)
    Tessora.Res = Tessora.PyGameResManager(ASSETS)
    Tessora.Res.AddNewResFile(os.path.join(os.path.dirname(pygame.__file__), FONT))
    scene, planes = Scene(), [Tessora.GameLayer() for _ in range(layers)]
    for layer in planes:
        layer.OnLoad(scene)
    build(*planes)

    clock, played, running, waiting = pygame.time.Clock(), 0.0, True, list(script)
    while running:
        delay = DELAY if headless else clock.tick(60) / 1000
        while headless and waiting and waiting[0][0] <= played:
            play(*waiting.pop(0)[1:])
        for event in pygame.event.get():
            running = running and event.type != pygame.QUIT
            for layer in planes:
                handle(layer, event)
        for layer in planes:
            layer.update(delay)
        screen.fill(BACKGROUND)
        for layer in planes:
            layer.draw(screen)
        pygame.display.flip()
        played += delay
        if headless and played >= HEADLESS_SECONDS:
            pygame.image.save(screen, name + ".png")
            print("wrote " + os.path.abspath(name + ".png"))
            running = False
    pygame.quit()
