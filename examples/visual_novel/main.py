"""The Lamp at the Point: a story with portraits, typed text, choices and three endings.

A click, Return or the space bar goes on; Escape opens the menu. Without a display, or with
TESSORA_HEADLESS=1, the story plays itself and saves `visual_novel.png`.
"""

import os

import autoplay
import pygame
import Tessora
from stage import FONT, GOLD, Button, Curtain, FadeTo, Line, Picture, Portrait, TypedText
from story import NAMES, STORY

SIZE = WIDTH, HEIGHT = 800, 480
ASSETS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "assets")
SPEEDS = {"calm": 35, "quick": 90}
LAMP = (600, 89)  # in the picture of the night


class Game:
    """The scene: it owns the layers and takes the steps of the story."""

    def __init__(self, screen):
        self.screen = screen
        self.running = True
        self.found = set()
        self.answers, self.portraits = {}, {}
        self.paused = self.waiting_for_place = False
        self.speed = "calm"
        Tessora.Res = Tessora.PyGameResManager(ASSETS)
        Tessora.Res.AddNewResFile(os.path.join(os.path.dirname(pygame.__file__), FONT))
        self.layers = [Tessora.GameLayer() for _ in range(5)]
        self.back, self.people, self.front, self.menu, self.top = self.layers
        for layer in self.layers:
            layer.OnLoad(self)
        self.build_box()
        self.curtain = self.add(self.top, Curtain(SIZE))
        self.show_title()

    def GetSceneSize(self):
        return SIZE

    def add(self, layer, node):
        layer.AddGameNode(node)
        return node

    # The stage

    def build_box(self):
        # A press that no button takes goes on with the story.
        page = self.add(self.front, Tessora.GameNode(None))
        page.SetWidth(WIDTH)
        page.SetHeight(HEIGHT)
        page.SetPickUpFunction(lambda node: self.go_on())
        box = self.add(self.front, Picture(20, 316, "box.png"))
        self.name = Line(box, 26, 12, 300, 20, GOLD)
        self.text = TypedText(box, 26, 44, 700)
        self.hint = Picture(736, 440, "next.png", "center")
        self.add(self.front, self.hint)
        self.bob()

    def bob(self, params=None):
        down, up = Tessora.MoveByAction(0.4, 0, 6), Tessora.MoveByAction(0.4, 0, -6)
        # A move starts from the top left corner, so the anchor is taken out again.
        self.hint.SetImageAnchor("wn")
        self.hint.SetXY(724, 431)
        self.hint.RunAction(down, up, Tessora.CallBackAction(0, self.bob))

    def set_place(self, file):
        for layer in (self.back, self.people):
            layer.OnDestroy()
        self.portraits = {}
        self.add(self.back, Picture(0, 0, file))

    def light(self):
        beam = self.add(self.back, Picture(*LAMP, "beam.png", "center"))
        beam.SetBlendType("ADD")
        self.sweep({"beam": beam})

    def sweep(self, params):
        """Seen from the side, a beam that turns is now long, now short."""
        beam = params["beam"]
        short, long = Tessora.ScaleToAction(1.6, 0.06, 1), Tessora.ScaleToAction(1.6, 1.3, 1)
        beam.RunAction(short, long, Tessora.CallBackAction(0, self.sweep, beam=beam))

    # The menus

    def show_title(self):
        self.playing, self.answers = False, {}
        self.front.SetVisible(False)
        self.set_place("night.png")
        self.light()
        self.clear_menu()
        for x, y, color in ((3, 3, (20, 16, 44)), (0, 0, GOLD)):
            title = self.add(self.menu, Line(None, x, 150 + y, WIDTH, 46, color, "center"))
            title.SetText("The Lamp at the Point")
        if self.found:
            line = self.add(self.menu, Line(None, 0, 206, WIDTH, 18, align="center"))
            line.SetText(f"Endings found: {len(self.found)} of 3")
        self.add(self.menu, Button(252, "Begin", lambda: self.change(self.begin)))
        self.speed_button = self.add(self.menu, Button(312, "", self.change_speed))
        self.add(self.menu, Button(372, "Leave", self.quit))
        self.show_speed()

    def clear_menu(self):
        self.menu.OnDestroy()

    def change_speed(self):
        self.speed = "quick" if self.speed == "calm" else "calm"
        self.show_speed()

    def show_speed(self):
        self.text.speed = SPEEDS[self.speed]
        self.speed_button.SetText(f"Text: {self.speed}")

    def quit(self):
        self.running = False

    def pause(self):
        """While the menu is there, the layers below are drawn but not updated."""
        self.paused = True
        self.clear_menu()
        self.add(self.menu, Button(180, "Go on", self.resume))
        self.add(self.menu, Button(240, "To the title", lambda: self.change(self.show_title)))

    def resume(self):
        self.paused = False
        self.clear_menu()
        if self.answers:
            self.show_answers()

    # The story

    def change(self, behind):
        """Do something behind the curtain."""
        self.curtain.change(behind)

    def begin(self):
        self.clear_menu()
        self.playing, self.paused = True, False
        self.play("start")

    def play(self, scene):
        self.answers = {}
        self.steps = iter(STORY[scene])
        self.front.SetVisible(True)
        self.step()

    def step(self):
        kind, *values = next(self.steps)
        getattr(self, "step_" + kind)(*values)

    def step_place(self, file):
        self.front.SetVisible(False)
        self.change(lambda: self.set_place(file))
        self.waiting_for_place = True

    def step_enter(self, who, side):
        self.portraits[who] = self.add(self.people, Portrait(who, side))
        self.step()

    def step_leave(self, who):
        portrait = self.portraits.pop(who)
        remove = Tessora.CallBackAction(0, self.remove, node=portrait)
        portrait.RunAction(FadeTo(0.35, 0), remove)
        self.step()

    def remove(self, params):
        self.people.DelGameNode(params["node"].GetInstanceID())

    def step_say(self, who, mood, text):
        self.front.SetVisible(True)
        self.name.SetText(NAMES.get(who, ""))
        self.text.say(text)
        for portrait in self.portraits.values():
            portrait.speak(who, mood)

    def step_light(self):
        self.light()
        self.step()

    def step_ask(self, answers):
        self.answers = answers
        self.show_answers()

    def show_answers(self):
        for row, (answer, scene) in enumerate(self.answers.items()):
            button = Button(24 + 60 * row, answer, lambda scene=scene: self.chose(scene))
            self.add(self.menu, button)

    def chose(self, scene):
        self.clear_menu()
        self.play(scene)

    def step_end(self, title):
        self.found.add(title)
        self.name.SetText("The end")
        self.text.say(title)
        self.steps = iter([("title",)])

    def step_title(self):
        self.change(self.show_title)

    def go_on(self):
        if self.answers:
            return
        if self.text.is_typing():
            self.text.finish()
        else:
            self.step()

    # The frame

    def handle_event(self, event):
        if event.type == pygame.QUIT:
            self.running = False
        elif self.curtain.moving:
            return
        elif event.type == pygame.MOUSEBUTTONDOWN:
            for layer in (self.menu, self.front):
                layer.OnPickDownFunction(*event.pos)
        elif event.type == pygame.MOUSEBUTTONUP:
            # What a button changes must not take the same release: the story is asked first.
            layers = (self.menu,) if self.menu.GetGameNodeCount() else (self.front,)
            for layer in layers:
                layer.OnPickUpFunction(*event.pos)
        elif event.type == pygame.KEYDOWN and self.playing:
            self.handle_key(event.key)

    def handle_key(self, key):
        if key == pygame.K_ESCAPE:
            self.resume() if self.paused else self.pause()
        elif key in (pygame.K_RETURN, pygame.K_SPACE) and not self.paused:
            self.go_on()

    def update(self, delay):
        held = self.playing and self.paused
        for layer in (self.menu, self.top) if held else self.layers:
            layer.update(delay)
        if self.playing:
            self.hint.SetVisible(not self.text.is_typing() and not self.answers)
            if self.waiting_for_place and not self.curtain.moving:
                self.waiting_for_place = False
                self.step()

    def draw(self):
        for layer in self.layers:
            layer.draw(self.screen)


def main():
    if autoplay.is_wanted():
        autoplay.use_dummy_drivers()
    pygame.init()
    pygame.display.set_caption("The Lamp at the Point")
    game = Game(pygame.display.set_mode(SIZE))
    if autoplay.is_wanted():
        return autoplay.play(game)
    clock = pygame.time.Clock()
    while game.running:
        for event in pygame.event.get():
            game.handle_event(event)
        game.update(clock.tick(60) / 1000)
        game.draw()
        pygame.display.flip()


if __name__ == "__main__":
    main()
    pygame.quit()
