"""Particle effects: every preset, or a definition file, follows the mouse.

    python particles.py [FILE.plist]

1 to 9 and 0 choose a preset, space starts it again, up and down choose a parameter, left and right
or its slider change it, S saves the effect as effect.plist. Without a display a sheet of all
presets is saved.
"""

import os
import random
import sys

import pygame
import Tessora
from example_window import ASSETS, DELAY, FONT, is_headless

SIZE = WIDTH, HEIGHT = 960, 640
NIGHT, INK, CHOSEN = (14, 12, 26), (230, 226, 240), (255, 214, 102)
PRESETS = ["Comet", "Galaxy", "Explosion", "Flower", "Sun", "Rain", "Snow", "Smoke", "Fire"]
PRESETS += ["FireWork"]
# Parameters with their ranges and steps.
KNOBS = {
    "EmissionRate": (1, 400, 5),
    "Life": (1, 100, 1),
    "BeginSize": (1, 200, 2),
    "Speed": (-600, 600, 10),
    "DirectionVar": (0, 360, 5),
    "Radialaccel": (-2000, 2000, 20),
    "Tangentialaccel": (-2000, 2000, 20),
}


def use_resources():
    Tessora.Res = Tessora.PyGameResManager(ASSETS)
    Tessora.Res.AddNewResFile(os.path.join(os.path.dirname(pygame.__file__), FONT))


def use_preset(emitter, name):
    getattr(emitter, "InitPS_" + name)()
    emitter.Run()


class Line(Tessora.GUI_Label):
    def __init__(self, y, text=""):
        super().__init__(None, 16, y, text, FONT, 16)
        self.SetWidth(420)
        self.SetHeight(22)
        self.SetStyle("hollow", False)
        self.SetTextHAlign("left")
        self.SetTextColor(*INK)


def make_slider(name, y):
    """A slider for a parameter, where the engine has sliders."""
    if not hasattr(Tessora, "GUI_Scale"):
        return None
    slider = Tessora.GUI_Scale(None, 200, y)
    least, most, step = KNOBS[name]
    slider.SetWidth(200)
    slider.SetHeight(16)
    slider.SetRange(least, most)
    slider.SetStep(step)
    slider.rulerVisible = False
    return slider


class Viewer:
    """The scene: an emitter at the mouse, and lines and sliders with its parameters."""

    def __init__(self, file=None):
        self.layer = Tessora.GameLayer()
        self.layer.OnLoad(self)
        self.emitter = Tessora.ParticleEmitter(None, WIDTH / 2, HEIGHT / 2)
        self.layer.AddGameNode(self.emitter)
        self.title = Line(12)
        self.lines = {name: Line(40 + 22 * row) for row, name in enumerate(KNOBS)}
        for line in (self.title, *self.lines.values()):
            self.layer.AddGameNode(line)
        self.sliders = {name: make_slider(name, 43 + 22 * row) for row, name in enumerate(KNOBS)}
        self.sliders = {name: slider for name, slider in self.sliders.items() if slider}
        for name, slider in self.sliders.items():
            slider.SetUpdateFunction(lambda delay, name=name: self.follow_slider(name))
            self.layer.AddGameNode(slider)
        self.knob = next(iter(KNOBS))
        if file is None:
            self.choose(PRESETS[0])
        else:
            Tessora.Res.AddNewResFile(os.path.abspath(file))
            self.emitter.LoadFromFile(os.path.basename(file))
            self.title.SetText(file)
        self.bind_keys()
        self.show()

    def GetSceneSize(self):
        return SIZE

    def bind_keys(self):
        bind = self.emitter.SetKeyDownFunction
        for number, name in enumerate(PRESETS, 1):
            bind(getattr(pygame, f"K_{number % 10}"), lambda name=name: self.choose(name))
        bind(pygame.K_SPACE, self.restart)
        bind(pygame.K_UP, lambda: self.next_knob(-1))
        bind(pygame.K_DOWN, lambda: self.next_knob(1))
        bind(pygame.K_LEFT, lambda: self.turn(-1))
        bind(pygame.K_RIGHT, lambda: self.turn(1))
        bind(pygame.K_s, self.save)

    def choose(self, name):
        use_preset(self.emitter, name)
        self.title.SetText(name)
        self.show()

    def restart(self):
        self.emitter.LifeTime = 0
        self.emitter.Run()

    def next_knob(self, step):
        names = list(KNOBS)
        self.knob = names[(names.index(self.knob) + step) % len(names)]
        self.show()

    def turn(self, direction):
        least, most, step = KNOBS[self.knob]
        value = self.emitter.GetData(self.knob) + direction * step
        self.emitter.SetData(self.knob, max(least, min(most, value)))
        self.show()

    def follow_slider(self, name):
        if self.sliders[name].ButtonPicked:
            self.knob = name
            self.emitter.SetData(name, self.sliders[name].GetValue())
            self.show()

    def save(self):
        self.emitter.SaveToFile("effect.plist")
        self.title.SetText("saved " + os.path.abspath("effect.plist"))

    def show(self):
        for name, line in self.lines.items():
            line.SetText(f"{name}  {self.emitter.GetData(name):g}")
            line.SetTextColor(*(CHOSEN if name == self.knob else INK))
        for name, slider in self.sliders.items():
            if not slider.ButtonPicked:
                slider.SetValue(self.emitter.GetData(name))

    def handle(self, event):
        if event.type == pygame.MOUSEMOTION:
            # The sliders' side leaves the effect where it is.
            if event.pos[0] > 420:
                self.emitter.SetXY(*event.pos)
        elif event.type == pygame.MOUSEBUTTONDOWN:
            self.layer.OnPickDownFunction(*event.pos)
        elif event.type == pygame.MOUSEBUTTONUP:
            self.layer.OnPickUpFunction(*event.pos)
        elif event.type == pygame.KEYDOWN:
            self.layer.OnKeyDownFunction(event.key)


# Where in its picture a preset stands, and when it is at its best.
CELL = (480, 360)
PLACES = {"Rain": (240, 0), "Snow": (240, 0), "Smoke": (240, 330), "Fire": (240, 330)}
PLACES.update(FireWork=(240, 350), Comet=(150, 250))
MOMENTS = {"Explosion": 0.6, "FireWork": 4.0}


def picture_of(name):
    canvas = pygame.Surface(CELL)
    canvas.fill(NIGHT)
    emitter = Tessora.ParticleEmitter(None, *PLACES.get(name, (240, 180)))
    use_preset(emitter, name)
    # What is drawn counts: the dead leave when they are drawn.
    for _ in range(int(MOMENTS.get(name, 5.0) / DELAY)):
        emitter.update(DELAY)
        canvas.fill(NIGHT)
        emitter.draw(canvas)
    return canvas


def save_sheet(file):
    random.seed(7)
    # An emitter writes its counter at the mouse.
    pygame.mouse.get_pos = lambda: (-1000, -1000)
    columns, width, height = 5, 190, 143
    sheet = pygame.Surface((columns * width, 2 * (height + 24)))
    font = pygame.font.Font(FONT and pygame.font.match_font(FONT), 18)
    for index, name in enumerate(PRESETS):
        left, top = index % columns * width, index // columns * (height + 24)
        picture = pygame.transform.smoothscale(picture_of(name), (width - 4, height - 4))
        sheet.blit(picture, (left + 2, top + 26))
        sheet.blit(font.render(name, True, CHOSEN), (left + 8, top + 4))
    pygame.image.save(sheet, file)
    print("wrote " + os.path.abspath(file))


def main():
    headless = is_headless()
    if headless:
        os.environ["SDL_VIDEODRIVER"] = os.environ["SDL_AUDIODRIVER"] = "dummy"
    pygame.init()
    pygame.display.set_caption("Particles")
    screen = pygame.display.set_mode(SIZE)
    use_resources()
    if headless:
        save_sheet("particles.png")
        return
    viewer, clock, running = Viewer(*sys.argv[1:2]), pygame.time.Clock(), True
    while running:
        delay = clock.tick(60) / 1000
        for event in pygame.event.get():
            viewer.handle(event)
            running = running and event.type != pygame.QUIT
        viewer.layer.update(delay)
        screen.fill(NIGHT)
        viewer.layer.draw(screen)
        pygame.display.flip()
    pygame.quit()


if __name__ == "__main__":
    main()
