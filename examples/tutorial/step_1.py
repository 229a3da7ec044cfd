"""Step 1: a window, and pictures in it."""

import autoplay  # noqa: F401  plays the game where there is no display

# isort: split
import os

import pygame
import Tessora

pygame.init()
screen = pygame.display.set_mode((640, 480))
pygame.display.set_caption("Firefly Jar")
clock = pygame.time.Clock()

folder = os.path.dirname(os.path.abspath(__file__))
Tessora.Res = Tessora.PyGameResManager(os.path.join(folder, "assets"))
layer = Tessora.GameLayer()


def add_picture(x, y, file):
    picture = Tessora.GUI_Image(None, x, y)
    picture.SetImage(file)
    picture.AutoImageSize(True)
    layer.AddGameNode(picture)
    return picture


add_picture(0, 0, "meadow.png")
firefly = add_picture(280, 160, "firefly_1.png")
add_picture(265, 320, "jar.png")
add_picture(0, 384, "grass.png")

running = True
while running:
    for event in pygame.event.get():
        if event.type == pygame.QUIT:
            running = False
    layer.update(clock.tick(60) / 1000)
    layer.draw(screen)
    pygame.display.flip()
pygame.quit()
