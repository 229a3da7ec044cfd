"""Star Catcher: thirty seconds, a net and a sky full of stars.

Without a display, or with TESSORA_HEADLESS=1, the game plays itself and saves `demo.png`.
"""

import math
import os
import random

import autoplay
import pygame
import Tessora
from widgets import CREAM, FONT, GOLD, ROSE, Button, Picture, Sparks, Sprite, Text, play_sound

SIZE = WIDTH, HEIGHT = 800, 480
ROUND_SECONDS = 30.0
STARS_EARNED_AT = (100, 200, 300)
ASSETS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "assets")

# What flies past: points, sound, tint of its burst, and how often it comes.
KINDS = {
    "star": (10, "catch.wav", (255, 255, 255), 10),
    "comet": (30, "comet.ogg", (120, 210, 255), 2),
    "grump": (-20, "oops.wav", (220, 90, 255), 3),
}


class Flyer(Tessora.GameNode):
    """Something to catch: this node travels, its child is the sprite that rocks and pops."""

    def __init__(self, kind, model, x, y, on_caught):
        super().__init__(None, x, y)
        self.kind = kind
        self.on_caught = on_caught
        self.sprite = Sprite(self, 0, 0, model)
        self.sprite.SetPickDownFunction(self.caught)

    def rock(self, params=None):
        swing = (Tessora.RotateToAction(0.7, 14), Tessora.RotateToAction(0.7, -14))
        self.sprite.RunAction(*swing, Tessora.CallBackAction(0, self.rock))

    def caught(self, sprite):
        sprite.SetPickDownFunction(None)
        swell, vanish = Tessora.ScaleToAction(0.07, 1.4, 1.4), Tessora.ScaleToAction(0.16, 0, 0)
        sprite.RunAction(swell, vanish)
        self.on_caught(self)


class Game:
    """The scene: it owns the layers, and they ask it for its size and call its events."""

    def __init__(self, screen, seed=None):
        self.screen = screen
        self.random = random.Random(seed)
        self.running = True
        self.score = self.best = 0
        self.time_left = self.next_flyer = 0.0
        Tessora.Res = Tessora.PyGameResManager(ASSETS)
        Tessora.Res.AddNewResFile(os.path.join(os.path.dirname(pygame.__file__), FONT))

        names = ("Sky", "FarHills", "Play", "NearHills", "Title", "Result", "Hud")
        self.layers = [Tessora.GameLayer() for name in names]
        for layer, name in zip(self.layers, names):
            layer.SetLayerName(name)
            layer.OnLoad(self)
        self.sky, self.far, self.play, self.near, self.title, self.result, self.hud = self.layers

        self.models = {kind: self.build_model(kind) for kind in (*KINDS, "burst", "net", "clock")}
        self.build_background()
        self.build_title()
        self.build_hud()
        self.build_result()
        self.play.SetBindingEvent("TimeUp", "time_up", "")
        self.show(self.title)
        if pygame.mixer.get_init():
            Tessora.Res.PlayMusic("music.ogg", -1)

    def GetSceneSize(self):
        return SIZE

    def build_model(self, kind):
        """A hidden, animated widget: sprites mirror it, bursts start as copies of it."""
        model = Tessora.GUI_Image(None)
        model.LoadImageFramesPList("sprites.plist")
        model.LoadAnimationPlist("animations.plist", kind)
        model.SetAutoSwitch(kind != "burst")
        model.AutoImageSize(True)
        model.SetImageAnchor("center")
        model.SetVisible(False)
        return self.add(self.sky, model)

    def build_background(self):
        self.add(self.sky, Picture(0, 0, "sky.png"))
        # The scroll runs from +width to -width: two copies, each twice as wide, cover all of it.
        for layer, file, height, speed in (
            (self.far, "hills_far.png", 200, 12),
            (self.near, "hills_near.png", 130, 30),
        ):
            self.add(layer, Picture(-WIDTH, HEIGHT - height, file))
            self.add(layer, Picture(WIDTH, HEIGHT - height, file))
            layer.SetAutoScroll(1, speed)

    def build_title(self):
        self.bob({"node": self.add(self.title, Picture(62, 44, "title.png"))})
        for x, kind in ((180, "star"), (400, "comet"), (620, "grump")):
            points = KINDS[kind][0]
            self.add(self.title, Sprite(None, x, 226, self.models[kind]))
            self.add(self.title, Text(x, 288, f"{points:+d}", 24, GOLD if points > 0 else ROSE))
        play = self.add(self.title, Button(182, 336, "Play", self.start))
        play.SetKeyDownFunction(pygame.K_RETURN, self.start)
        self.add(self.title, Button(402, 336, "Quit", self.quit))

    def build_hud(self):
        self.add(self.hud, Sprite(None, 40, 36, self.models["star"])).SetSXY(0.7, 0.7)
        self.add(self.hud, Sprite(None, WIDTH - 106, 36, self.models["clock"]))
        self.score_label = self.add(self.hud, Text(76, 36, "0", 30, GOLD))
        self.time_label = self.add(self.hud, Text(WIDTH - 78, 36, "", 30))
        for label in (self.score_label, self.time_label):
            label.SetTextHAlign("left")
            label.SetImageAnchor("w")
        self.time_label.SetUpdateFunction(self.tick)
        self.net = self.add(self.hud, Sprite(None, WIDTH / 2, HEIGHT / 2, self.models["net"]))

    def build_result(self):
        self.add(self.result, Picture((WIDTH - 460) / 2, 38, "panel.png"))
        self.result_label = self.add(self.result, Text(WIDTH / 2, 104, "", 40))
        self.best_label = self.add(self.result, Text(WIDTH / 2, 248, "", 22, GOLD))
        self.earned = [Sprite(None, x, 184, self.models["star"]) for x in (304, 400, 496)]
        for star in self.earned:
            self.add(self.result, star)
        again = self.add(self.result, Button(184, 268, "Play again", self.start))
        again.SetKeyDownFunction(pygame.K_RETURN, self.start)
        self.add(self.result, Button(400, 268, "Menu", lambda: self.show(self.title)))

    def add(self, layer, node):
        layer.AddGameNode(node)
        return node

    def remove_after(self, node, *actions):
        node.RunAction(*actions, Tessora.CallBackAction(0, self.remove, node=node))

    def remove(self, params):
        self.play.DelGameNode(params["node"].GetInstanceID())

    def bob(self, params):
        down, up = Tessora.MoveByAction(1.5, 0, 10), Tessora.MoveByAction(1.5, 0, -10)
        params["node"].RunAction(down, up, Tessora.CallBackAction(0, self.bob, **params))

    def show(self, active):
        """Choose the layer that takes the input, and with it what is seen."""
        self.active = active
        self.title.SetVisible(active is self.title)
        self.result.SetVisible(active is self.result)
        self.hud.SetVisible(active is self.play)
        self.play.SetVisible(active is not self.title)
        pygame.mouse.set_visible(active is not self.play)

    def start(self):
        self.play.CleanUpGameNode()
        self.score, self.time_left, self.next_flyer = 0, ROUND_SECONDS, 0.0
        self.score_label.SetText("0")
        self.time_label.SetTextColor(*CREAM)
        self.time_label.SetVisible(True)
        self.show(self.play)

    def quit(self):
        self.running = False

    def tick(self, delay):
        self.next_flyer -= delay
        if self.next_flyer <= 0:
            self.next_flyer = self.random.uniform(0.3, 0.5)
            weights = [kind[3] for kind in KINDS.values()]
            self.launch(self.random.choices(list(KINDS), weights)[0])
        before, self.time_left = self.time_left, max(0.0, self.time_left - delay)
        self.time_label.SetText(str(math.ceil(self.time_left)))
        if before > 5 >= self.time_left:
            self.time_label.SetTextColor(*ROSE)
            self.time_label.RunAction(Tessora.BlinkAction(5, 10))
        if self.time_left == 0:
            self.play.CallEvent("TimeUp")

    def launch(self, kind):
        pick = self.random.uniform
        x, y = (-70, pick(40, 200)) if kind == "comet" else (pick(60, WIDTH - 60), -50)
        flyer = self.add(self.play, Flyer(kind, self.models[kind], x, y, self.caught))
        if kind == "comet":
            drop = pick(60, 180)
            flyer.SetAngle(-math.degrees(math.atan2(drop, WIDTH + 140)))
            path = [Tessora.MoveToAction(pick(2.4, 3.2), WIDTH + 70, y + drop)]
        else:
            flyer.rock()
            drift, seconds = pick(-60, 60), pick(1.6, 2.2)
            bends = ((x + drift, 180), (x - drift, 360), (x + drift, HEIGHT + 60))
            path = [Tessora.MoveToAction(seconds, *bend) for bend in bends]
        self.remove_after(flyer, *path)

    def caught(self, flyer):
        points, sound, tint, _ = KINDS[flyer.kind]
        play_sound(sound)
        self.score = max(0, self.score + points)
        self.score_label.SetText(str(self.score))
        grow, shrink = Tessora.ScaleToAction(0.06, 1.3, 1.3), Tessora.ScaleToAction(0.12, 1, 1)
        self.score_label.RunAction(grow, shrink)
        self.remove_after(flyer, Tessora.RotateByAction(0.25, 200))

        burst = self.add(self.play, Tessora.GUI_Image(None))
        self.models["burst"].CopyTo(burst)
        burst.SetXY(*flyer.GetXY())
        burst.SetVisible(True)
        burst.SetAutoSwitch(True)
        burst.SetBGColor(*tint)
        burst.SetBlendType("ADD")
        self.remove_after(burst, Tessora.ScaleByAction(0.34, 0.9, 0.9))

        x, y = flyer.GetXY()
        sparks = self.add(self.play, Sparks(x, y, tint))
        self.remove_after(sparks, Tessora.MoveByAction(0.6, 0, 0))
        popup = Text(x, y - 50, f"{points:+d}", 26, GOLD if points > 0 else ROSE)
        self.add(self.play, popup)
        swell, blink = Tessora.ScaleToAction(0.5, 1.4, 1.4), Tessora.BlinkAction(0.3, 3)
        self.remove_after(popup, swell, blink)

    def on_Play_time_up(self):
        self.best = max(self.best, self.score)
        self.result_label.SetText(f"Score {self.score}")
        self.best_label.SetText(f"Best {self.best}")
        for i, star in enumerate(self.earned):
            shade = 255 if self.score >= STARS_EARNED_AT[i] else 70
            star.SetBGColor(shade, shade, shade)
            star.SetSXY(0, 0)
            swell = Tessora.ScaleToAction(0.4 + 0.3 * i, 1.3, 1.3)
            star.RunAction(swell, Tessora.ScaleToAction(0.12, 1, 1))
        play_sound("ending.ogg")
        self.show(self.result)

    def handle_event(self, event):
        if event.type == pygame.QUIT:
            self.quit()
        elif event.type == pygame.KEYDOWN:
            self.active.OnKeyDownFunction(event.key)
        elif event.type == pygame.MOUSEMOTION:
            self.net.SetXY(*event.pos)
        elif event.type == pygame.MOUSEBUTTONDOWN and event.button == 1:
            swing, back = Tessora.RotateToAction(0.06, 40), Tessora.RotateToAction(0.12, 0)
            self.net.RunAction(swing, back)
            self.active.OnPickDownFunction(*event.pos)
        elif event.type == pygame.MOUSEBUTTONUP and event.button == 1:
            self.active.OnPickUpFunction(*event.pos)

    def update(self, delay):
        for layer in self.layers:
            layer.update(delay)

    def draw(self):
        for layer in self.layers:
            layer.draw(self.screen)


def main():
    headless = autoplay.is_wanted()
    if headless:
        autoplay.use_dummy_drivers()
    pygame.init()
    pygame.display.set_caption("Star Catcher")
    game = Game(pygame.display.set_mode(SIZE), seed=7 if headless else None)
    if headless:
        autoplay.play(game)
    clock = pygame.time.Clock()
    while game.running:
        delay = clock.tick(60) / 1000
        for event in pygame.event.get():
            game.handle_event(event)
        game.update(delay)
        game.draw()
        pygame.display.flip()
    pygame.quit()


if __name__ == "__main__":
    main()
