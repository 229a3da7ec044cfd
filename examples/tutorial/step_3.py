"""Step 3: a click sends the firefly into the jar."""

import autoplay  # noqa: F401  plays the game where there is no display

# isort: split
import os
import random

import pygame
import Tessora

pygame.init()
screen = pygame.display.set_mode((640, 480))
pygame.display.set_caption("Firefly Jar")
clock = pygame.time.Clock()

folder = os.path.dirname(os.path.abspath(__file__))
Tessora.Res = Tessora.PyGameResManager(os.path.join(folder, "assets"))
layer = Tessora.GameLayer()


def add_picture(x, y, *files):
    picture = Tessora.GUI_Image(None, x, y)
    picture.SetImage(list(files), 0.08)
    picture.SetAutoSwitch(len(files) > 1)
    picture.AutoImageSize(True)
    layer.AddGameNode(picture)
    return picture


def fly_on(params=None):
    x, y = random.randint(10, 550), random.randint(20, 260)
    way = Tessora.MoveToAction(random.uniform(0.8, 1.4), x, y)
    firefly.RunAction(way, Tessora.CallBackAction(0, fly_on))


def catch(node):
    node.SetPickDownFunction(None)
    into_jar = Tessora.MoveToAction(0.4, 282, 372)
    node.RunAction(into_jar, Tessora.ScaleToAction(0.2, 0.5, 0.5))


add_picture(0, 0, "meadow.png")
firefly = add_picture(280, 160, "firefly_1.png", "firefly_2.png")
firefly.SetPickDownFunction(catch)
add_picture(265, 320, "jar.png")
add_picture(0, 384, "grass.png")
fly_on()

running = True
while running:
    for event in pygame.event.get():
        if event.type == pygame.QUIT:
            running = False
        elif event.type == pygame.MOUSEBUTTONDOWN and event.button == 1:
            layer.OnPickDownFunction(*event.pos)
        elif event.type == pygame.MOUSEBUTTONUP and event.button == 1:
            layer.OnPickUpFunction(*event.pos)
    layer.update(clock.tick(60) / 1000)
    layer.draw(screen)
    pygame.display.flip()
pygame.quit()
