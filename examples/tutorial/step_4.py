"""Step 4: many fireflies, and a score."""

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
back, front = Tessora.GameLayer(), Tessora.GameLayer()


class Picture(Tessora.GUI_Image):
    def __init__(self, x, y, *files):
        super().__init__(None, x, y)
        self.SetImage(list(files), 0.08)
        self.SetAutoSwitch(len(files) > 1)
        self.AutoImageSize(True)


class Text(Tessora.GUI_Label):
    def __init__(self, x, y, text, size):
        super().__init__(None, x, y, text)
        self.SetFont(pygame.font.Font(None, size), "")
        self.SetStyle("hollow", False)
        self.SetTextColor(255, 240, 206)
        self.SetTextHAlign("left")
        self.SetWidth(300)
        self.SetHeight(size)


class Firefly(Picture):
    def __init__(self):
        x, y = random.choice((-80, 640)), random.randint(20, 260)
        super().__init__(x, y, "firefly_1.png", "firefly_2.png")
        self.SetPickDownFunction(self.caught)
        self.fly_on()

    def fly_on(self, params=None):
        x, y = random.randint(10, 550), random.randint(20, 260)
        way = Tessora.MoveToAction(random.uniform(0.8, 1.4), x, y)
        self.RunAction(way, Tessora.CallBackAction(0, self.fly_on))

    def caught(self, node):
        global score
        self.SetPickDownFunction(None)
        x, y = random.randint(272, 328), random.randint(344, 400)
        into_jar = Tessora.MoveToAction(0.4, x, y)
        self.RunAction(into_jar, Tessora.ScaleToAction(0.2, 0.5, 0.5))
        score += 1
        label.SetText(f"Fireflies: {score}")
        back.AddGameNode(Firefly())


score = 0
label = Text(16, 8, "Fireflies: 0", 36)
back.AddGameNode(Picture(0, 0, "meadow.png"))
for _ in range(4):
    back.AddGameNode(Firefly())
front.AddGameNode(Picture(265, 320, "jar.png"))
front.AddGameNode(Picture(0, 384, "grass.png"))
front.AddGameNode(label)

running = True
while running:
    for event in pygame.event.get():
        if event.type == pygame.QUIT:
            running = False
        elif event.type == pygame.MOUSEBUTTONDOWN and event.button == 1:
            back.OnPickDownFunction(*event.pos)
        elif event.type == pygame.MOUSEBUTTONUP and event.button == 1:
            back.OnPickUpFunction(*event.pos)
    delay = clock.tick(60) / 1000
    for layer in (back, front):
        layer.update(delay)
        layer.draw(screen)
    pygame.display.flip()
pygame.quit()
