"""A figure of six parts that walks to and fro and waves when it is pressed."""

import pygame
import Tessora
from example_window import FONT, HEIGHT, WIDTH, run

FRAME = 1 / 30  # seconds
SKIN, SHIRT, TROUSERS, SHADE = (244, 196, 160), (255, 138, 150), (86, 110, 200), (60, 78, 150)
GROUND = HEIGHT - 60
# The parts in the order in which they are drawn: what is behind comes first.
ARM_BEHIND, LEG_BEHIND, LEG, BODY, HEAD, ARM = range(6)
# Where each part has its middle, from the figure's feet.
PLACES = {ARM_BEHIND: (2, -92), LEG_BEHIND: (2, -56), LEG: (-2, -56), BODY: (0, -78)}
PLACES.update({HEAD: (0, -124), ARM: (-2, -92)})


def limb(color, length, end):
    """A limb that hangs from the middle of its picture, about which it turns."""
    picture = pygame.Surface((28, 2 * length), pygame.SRCALPHA)
    pygame.draw.rect(picture, color, (7, length - 7, 14, length), border_radius=7)
    pygame.draw.rect(picture, end, (6, 2 * length - 16, 16, 14), border_radius=6)
    return picture


def body():
    picture = pygame.Surface((36, 58), pygame.SRCALPHA)
    pygame.draw.rect(picture, SHIRT, (0, 0, 36, 46), border_radius=14)
    pygame.draw.rect(picture, TROUSERS, (4, 36, 28, 20), border_radius=8)
    return picture


def head():
    picture = pygame.Surface((46, 46), pygame.SRCALPHA)
    pygame.draw.circle(picture, SKIN, (23, 23), 20)
    pygame.draw.circle(
        picture, (110, 64, 40), (21, 20), 22, draw_top_right=True, draw_top_left=True
    )
    pygame.draw.rect(picture, SKIN, (18, 16, 25, 12), border_radius=6)
    pygame.draw.circle(picture, (40, 30, 30), (34, 22), 3)
    pygame.draw.arc(picture, (160, 60, 60), (26, 24, 14, 12), 3.6, 5.8, 2)
    return picture


PICTURES = {
    ARM_BEHIND: limb((200, 100, 120), 40, (200, 150, 120)),
    LEG_BEHIND: limb(SHADE, 56, (40, 30, 50)),
    LEG: limb(TROUSERS, 56, (60, 40, 60)),
    BODY: body(),
    HEAD: head(),
    ARM: limb((255, 160, 170), 40, SKIN),
}

# By frame: how far the front leg has swung, and how high the body is. The other limbs follow.
WALK = {0: (0, 0), 6: (28, 4), 12: (0, 0), 18: (-28, 4), 24: (0, 0)}
# By frame: the angle of the arm that waves, and that of the head.
WAVE = {0: (0, 0), 8: (115, -6), 14: (150, -6), 20: (115, -6), 26: (150, -6), 32: (115, -6)}
WAVE[42] = (0, 0)


class Figure(Tessora.GameCharacter):
    def __init__(self, x, y):
        super().__init__(None, x, y)
        self.SetImageAnchor("center")
        self.SetWidth(0)
        self.SetHeight(0)
        for action in ("walk", "wave"):
            self.AddAction(action, FRAME)
        for frame, (swing, sink) in WALK.items():
            arms = {ARM: -swing, ARM_BEHIND: swing}
            self.pose("walk", frame, sink, {LEG: swing, LEG_BEHIND: -swing, **arms})
        for frame, (arm, tilt) in WAVE.items():
            self.pose("wave", frame, 0, {ARM: arm, HEAD: tilt})
        self.SetKeyFrame_RectList("walk", 0, [(-20, -144, 40, 144)])
        self.SetRectListVisible(False)
        self.SetCharacterBindingVar("speed", 70)
        self.SetPickDownFunction(Figure.wave)

    def pose(self, action, frame, sink, angles):
        self.AddKeyFrame(action, frame, 1)
        for part, (x, y) in PLACES.items():
            if frame == 0:
                self.SetKeyFrame_Image(action, 0, PICTURES[part], part)
            self.SetKeyFrame_Position(action, frame, (x, y + sink), part)
            self.SetKeyFrame_Rotate(action, frame, angles.get(part, 0), part)

    def walk(self, direction):
        (self.Move_Right if direction > 0 else self.Move_Left)()
        self.SetFlipX(direction < 0)
        self.PlayAction("walk", True)

    def wave(self):
        direction = self.moveDir[0] or 1
        self.StopMove()
        self.PlayAction("wave", False, self.walk, direction=direction)

    def update(self, delay):
        super().update(delay)
        self.SetX(self.GetX() + self.moveDir[0] * self.GetCharacterBindingVar("speed") * delay)
        if not 60 <= self.GetX() <= WIDTH - 60 and self.isMoveState():
            self.SetX(min(max(self.GetX(), 60), WIDTH - 60))
            self.walk(-self.moveDir[0])


def build(layer):
    ground = Tessora.GUI_Image(None, 0, GROUND)
    ground.SetWidth(WIDTH)
    ground.SetHeight(HEIGHT - GROUND)
    ground.SetBGColor(84, 70, 140)
    ground.SetStyle("flat", False)
    layer.AddGameNode(ground)
    text = Tessora.GUI_Label(None, 40, 24, "Press a figure: it waves", FONT, 26)
    text.SetWidth(560)
    text.SetStyle("hollow", False)
    text.SetTextColor(255, 244, 222)
    layer.AddGameNode(text)
    for x, direction, first_frame in ((70, 1, 10), (215, 1, 0), (570, -1, 3)):
        figure = Figure(x, GROUND)
        figure.walk(direction)
        figure.SetCurrFrame(first_frame)
        layer.AddGameNode(figure)


SCRIPT = ((1.5, pygame.MOUSEBUTTONDOWN, (320, GROUND - 76)),)

if __name__ == "__main__":
    run("character", build, SCRIPT)
