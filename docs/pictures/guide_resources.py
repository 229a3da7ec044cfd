"""What is seen when a file is found, and when it is not."""

import random

import pygame
import Tessora
from parts.looks import FONT, cells, look


def image(name, *calls):
    def make():
        widget = Tessora.GUI_Image()
        widget.SetImage(name)
        widget.AutoImageSize(True)
        for call, *arguments in calls:
            getattr(widget, call)(*arguments)
        return widget

    return look(make)


def button(name):
    def make():
        widget = Tessora.GUI_Button(None, 0, 0, "Play", FONT, 16)
        widget.SetImage(name)
        widget.SetWidth(90)
        widget.SetHeight(36)
        return widget

    return look(make)


def emitter(surface, x, y):
    random.seed(2)
    made = Tessora.ParticleEmitter(None, x, y + 40)
    made.InitPS_Fire()
    made.Run()
    for _ in range(60):
        made.update(1 / 60)
    back = pygame.Rect(x - 60, y - 50, 120, 110)
    pygame.draw.rect(surface, (20, 16, 40), back)
    surface.set_clip(back)
    for particle in made.ParticleArray:
        particle.draw(surface)
    surface.set_clip(None)


def picture():
    return cells(
        [
            ('SetImage("hero.png"):\nfound', image("hero.png")),
            ('SetImage("helo.png"):\nnot found', image("helo.png")),
            ('not found, style\n"hollow": nothing', image("helo.png", ("SetStyle", "hollow"))),
            ("a button's picture\nnot found", button("helo.png")),
            ('"fire.png" of a\npreset not found', emitter),
        ],
        5,
        (150, 170),
        5,
    )
