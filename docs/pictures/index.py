"""The first page's picture: pictures that are scaled, turned and tinted, and some widgets."""

import pygame
import Tessora
from scenes import image, layer, play, window


def label(text, x, y, width, size=20):
    node = Tessora.GUI_Label(None, x, y, text, pygame.font.get_default_font(), size)
    node.SetWidth(width)
    node.SetHeight(34)
    return node


def picture():
    screen = window(640, 320)
    field = layer()

    def add(node):
        field.AddGameNode(node)
        return node

    add(image("sky.png", 0, -120))
    ground = add(Tessora.GUI_Image(None, 0, 256))
    ground.SetWidth(640)
    ground.SetHeight(64)
    ground.SetBGColor(108, 180, 92)
    for x, scale in ((60, 0.9), (150, 1.2), (560, 1.1), (470, 0.8)):
        tree = add(image("tree.png", x, 262 - round(40 * scale), anchor="center"))
        tree.SetSXY(scale, scale)
    for index in range(5):
        coin = add(image("coin.png", 286 + 44 * index, 170 - 26 * min(index, 4 - index)))
        coin.alpha = 255 - 40 * index
    hero = add(image("hero.png", 232, 228, anchor="center"))
    hero.SetSXY(1.5, 1.5)
    jumper = add(image("hero.png", 396, 226, anchor="center"))
    jumper.SetAngle(20)
    jumper.SetBGColor(190, 225, 255)

    score = add(label("Coins: 12", 16, 16, 130))
    score.SetStyle("hollow")
    button = add(Tessora.GUI_Button(None, 508, 16, "Pause", pygame.font.get_default_font(), 18))
    button.SetWidth(116)
    button.SetHeight(36)
    bar = add(Tessora.GUI_HProgressBar(None, 250, 20, "", pygame.font.get_default_font(), 14))
    bar.SetWidth(180)
    bar.SetHeight(28)
    bar.SetValue(70)
    return play(screen, field)
