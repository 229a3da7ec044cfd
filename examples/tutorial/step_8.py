"""Step 8: the finished game, ready to be bundled for friends."""

import autoplay  # noqa: F401  plays the game where there is no display

# isort: split
import json
import os
import random
import sys

import pygame
import Tessora

SIZE = WIDTH, HEIGHT = 640, 480
# A bundle says where its files are; without one they lie beside the script.
FOLDER = getattr(sys, "_MEIPASS", os.path.dirname(os.path.abspath(__file__)))
ASSETS = os.path.join(FOLDER, "assets")


def play_sound(file):
    if pygame.mixer.get_init():
        Tessora.Res.PlaySound(file)


class Picture(Tessora.GUI_Image):
    def __init__(self, x, y, *files):
        super().__init__(None, x, y)
        self.SetImage(list(files), 0.08)
        self.SetAutoSwitch(len(files) > 1)
        self.AutoImageSize(True)


class Text(Tessora.GUI_Label):
    def __init__(self, y, text, size, align="center"):
        super().__init__(None, 16, y, text)
        self.SetFont(pygame.font.Font(None, size), "")
        self.SetStyle("hollow", False)
        self.SetTextColor(255, 240, 206)
        self.SetTextHAlign(align)
        self.SetWidth(WIDTH - 32)
        self.SetHeight(size)


class Button(Tessora.GUI_Button):
    def __init__(self, y, text, action):
        super().__init__(None, 220, y, text)
        self.SetFont(pygame.font.Font(None, 30), "")
        self.SetImage("button.png")
        self.SetImage_Hover("button_over.png")
        self.SetImage_Click("button_down.png")
        self.AutoImageSize(True)
        self.DropBGColor()
        self.SetStyle("hollow", False)
        self.SetTextColor(255, 240, 206)
        self.SetTextColor_Hover(255, 255, 255)
        self.SetTextColor_Click(255, 214, 92)
        self.action = action
        self.SetPickUpFunction(self.clicked_on)

    def clicked_on(self, node):
        play_sound("click.wav")
        self.action()


class Flyer(Picture):
    """Flies from place to place, for about `hop` seconds each time."""

    def __init__(self, hop, *files):
        super().__init__(random.choice((-80, WIDTH)), random.randint(20, 260), *files)
        self.hop = hop
        self.fly_on()

    def fly_on(self, params=None):
        x, y = random.randint(10, 550), random.randint(20, 260)
        way = Tessora.MoveToAction(random.uniform(0.7, 1.2) * self.hop, x, y)
        self.RunAction(way, Tessora.CallBackAction(0, self.fly_on))


class Firefly(Flyer):
    def __init__(self, hop, on_caught):
        super().__init__(hop, "firefly_1.png", "firefly_2.png")
        self.on_caught = on_caught
        self.SetPickDownFunction(self.caught)

    def caught(self, node):
        self.SetPickDownFunction(None)
        x, y = random.randint(272, 328), random.randint(344, 400)
        into_jar = Tessora.MoveToAction(0.4, x, y)
        self.RunAction(into_jar, Tessora.ScaleToAction(0.2, 0.5, 0.5))
        self.on_caught(self)

    def escape(self):
        self.SetSXY(1, 1)
        self.SetPickDownFunction(self.caught)
        self.fly_on()


class Moth(Flyer):
    def __init__(self, hop, on_touched):
        super().__init__(hop, "moth_1.png", "moth_2.png")
        self.SetPickDownFunction(on_touched)


class Game:
    def __init__(self):
        self.running = True
        with open(os.path.join(ASSETS, "levels.json"), encoding="utf-8") as file:
            self.levels = json.load(file)
        self.number, self.time_left, self.in_jar = 0, 0.0, []
        self.back, self.play = Tessora.GameLayer(), Tessora.GameLayer()
        self.front, self.hud = Tessora.GameLayer(), Tessora.GameLayer()
        self.title, self.result = Tessora.GameLayer(), Tessora.GameLayer()
        self.layers = [self.back, self.play, self.front, self.hud]
        self.layers += [self.title, self.result]

        self.meadow = Picture(0, 0, "meadow.png")
        self.grass = Picture(0, 384, "grass.png")
        self.back.AddGameNode(self.meadow)
        self.front.AddGameNode(Picture(265, 320, "jar.png"))
        self.front.AddGameNode(self.grass)
        self.score_label = Text(8, "", 36, "left")
        self.time_label = Text(8, "", 36, "right")
        self.hud.AddGameNode(self.score_label)
        self.hud.AddGameNode(self.time_label)

        self.title.AddGameNode(Text(70, "Firefly Jar", 84))
        self.title.AddGameNode(Button(180, "Play", lambda: self.start(0)))
        self.title.AddGameNode(Button(248, "Quit", self.quit))
        self.result_label = Text(90, "", 44)
        self.result.AddGameNode(self.result_label)
        self.go_on = Button(180, "", self.show)
        self.result.AddGameNode(self.go_on)
        self.show(self.title)

    def show(self, active):
        self.active = active
        self.title.SetVisible(active is self.title)
        self.result.SetVisible(active is self.result)
        self.hud.SetVisible(active is self.play)

    def start(self, number):
        self.number, self.level = number, self.levels[number]
        self.play.CleanUpGameNode()
        for _ in range(self.level["fireflies"]):
            self.add_firefly()
        for _ in range(self.level["moths"]):
            self.play.AddGameNode(Moth(self.level["hop"], self.moth_touched))
        self.meadow.SetBGColor(*self.level["light"])
        self.grass.SetBGColor(*self.level["light"])
        self.in_jar, self.time_left = [], self.level["seconds"]
        self.show_score()
        self.show(self.play)

    def add_firefly(self):
        self.play.AddGameNode(Firefly(self.level["hop"], self.caught))

    def show_score(self):
        name, wanted = self.level["name"], self.level["wanted"]
        self.score_label.SetText(f"{name}: {len(self.in_jar)} of {wanted}")

    def finish(self, won):
        play_sound("win.wav" if won else "oops.wav")
        name, last = self.level["name"], self.number == len(self.levels) - 1
        text = f"{name}: the jar is full!" if won else "The time is up"
        self.result_label.SetText(text)
        if won and last:
            self.go_on.SetText("Menu")
            self.go_on.action = lambda: self.show(self.title)
        else:
            self.go_on.SetText("Next night" if won else "Try again")
            self.go_on.action = lambda: self.start(self.number + won)
        self.show(self.result)

    def quit(self):
        self.running = False

    def caught(self, firefly):
        play_sound("catch.wav")
        self.in_jar.append(firefly)
        self.show_score()
        if len(self.in_jar) == self.level["wanted"]:
            self.finish(won=True)
        else:
            self.add_firefly()

    def moth_touched(self, moth):
        play_sound("oops.wav")
        if self.in_jar:
            self.in_jar.pop().escape()
            self.show_score()

    def handle(self, event):
        if event.type == pygame.QUIT:
            self.quit()
        elif event.type == pygame.KEYDOWN and event.key == pygame.K_ESCAPE:
            if self.active is self.title:
                self.quit()
            else:
                self.show(self.title)
        elif event.type == pygame.MOUSEBUTTONDOWN and event.button == 1:
            self.active.OnPickDownFunction(*event.pos)
        elif event.type == pygame.MOUSEBUTTONUP and event.button == 1:
            self.active.OnPickUpFunction(*event.pos)

    def update(self, delay):
        for layer in self.layers:
            layer.update(delay)
        if self.active is self.play:
            self.time_left -= delay
            self.time_label.SetText(f"{self.time_left:.0f}")
            if self.time_left <= 0:
                self.finish(won=False)

    def draw(self, screen):
        for layer in self.layers:
            layer.draw(screen)


pygame.init()
pygame.display.set_icon(pygame.image.load(os.path.join(ASSETS, "firefly_1.png")))
pygame.display.set_caption("Firefly Jar")
screen = pygame.display.set_mode(SIZE)
Tessora.Res = Tessora.PyGameResManager(ASSETS)
if pygame.mixer.get_init():
    Tessora.Res.PlayMusic("night.wav", -1)
game = Game()
clock = pygame.time.Clock()
while game.running:
    for event in pygame.event.get():
        game.handle(event)
    game.update(clock.tick(60) / 1000)
    game.draw(screen)
    pygame.display.flip()
pygame.quit()
