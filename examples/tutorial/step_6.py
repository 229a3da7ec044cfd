"""Step 6: a menu before the game, a clock in it and a result after it."""

import autoplay  # noqa: F401  plays the game where there is no display

# isort: split
import os
import random

import pygame
import Tessora

SIZE = WIDTH, HEIGHT = 640, 480
SECONDS = 20
ASSETS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "assets")


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


class Firefly(Picture):
    def __init__(self, on_caught):
        x, y = random.choice((-80, WIDTH)), random.randint(20, 260)
        super().__init__(x, y, "firefly_1.png", "firefly_2.png")
        self.on_caught = on_caught
        self.SetPickDownFunction(self.caught)
        self.fly_on()

    def fly_on(self, params=None):
        x, y = random.randint(10, 550), random.randint(20, 260)
        way = Tessora.MoveToAction(random.uniform(0.8, 1.4), x, y)
        self.RunAction(way, Tessora.CallBackAction(0, self.fly_on))

    def caught(self, node):
        self.SetPickDownFunction(None)
        x, y = random.randint(272, 328), random.randint(344, 400)
        into_jar = Tessora.MoveToAction(0.4, x, y)
        self.RunAction(into_jar, Tessora.ScaleToAction(0.2, 0.5, 0.5))
        self.on_caught()


class Game:
    def __init__(self):
        self.running = True
        self.score, self.time_left = 0, 0.0
        self.back, self.play = Tessora.GameLayer(), Tessora.GameLayer()
        self.front, self.hud = Tessora.GameLayer(), Tessora.GameLayer()
        self.title, self.result = Tessora.GameLayer(), Tessora.GameLayer()
        self.layers = [self.back, self.play, self.front, self.hud]
        self.layers += [self.title, self.result]

        self.back.AddGameNode(Picture(0, 0, "meadow.png"))
        self.front.AddGameNode(Picture(265, 320, "jar.png"))
        self.front.AddGameNode(Picture(0, 384, "grass.png"))
        self.score_label = Text(8, "", 36, "left")
        self.time_label = Text(8, "", 36, "right")
        self.hud.AddGameNode(self.score_label)
        self.hud.AddGameNode(self.time_label)

        self.title.AddGameNode(Text(70, "Firefly Jar", 84))
        self.title.AddGameNode(Button(180, "Play", self.start))
        self.title.AddGameNode(Button(248, "Quit", self.quit))
        self.result_label = Text(90, "", 44)
        self.result.AddGameNode(self.result_label)
        self.result.AddGameNode(Button(180, "Menu", lambda: self.show(self.title)))
        self.show(self.title)

    def show(self, active):
        self.active = active
        self.title.SetVisible(active is self.title)
        self.result.SetVisible(active is self.result)
        self.hud.SetVisible(active is self.play)

    def start(self):
        self.play.CleanUpGameNode()
        for _ in range(4):
            self.play.AddGameNode(Firefly(self.caught))
        self.score, self.time_left = 0, SECONDS
        self.score_label.SetText("Fireflies: 0")
        self.show(self.play)

    def quit(self):
        self.running = False

    def caught(self):
        play_sound("catch.wav")
        self.score += 1
        self.score_label.SetText(f"Fireflies: {self.score}")
        self.play.AddGameNode(Firefly(self.caught))

    def handle(self, event):
        if event.type == pygame.QUIT:
            self.quit()
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
                self.result_label.SetText(f"{self.score} fireflies!")
                play_sound("win.wav")
                self.show(self.result)

    def draw(self, screen):
        for layer in self.layers:
            layer.draw(screen)


pygame.init()
screen = pygame.display.set_mode(SIZE)
pygame.display.set_caption("Firefly Jar")
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
