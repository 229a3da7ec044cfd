"""Widgets written in Python: a switch that slides, a health bar, a ring that marks its place.

Press a switch, or press it and then the space bar. A press on the bar hurts it. The children of
the panel on the right are scaled by 2; the bar in it is turned, too.
"""

import math

import pygame
import Tessora
from example_window import FONT, run

INK, GOLD, BACK, PALE = (255, 244, 222), (255, 214, 102), (24, 18, 46), (255, 214, 190)
ON, OFF, KNOB, GREY = (92, 190, 120), (96, 84, 140), (255, 250, 240), (120, 116, 130)


class Switch(Tessora.GUI_Image):
    """A switch with a caption; `SetPickUpFunction(f)`: `f(switch)` after a change."""

    SLIDE = 0.15  # seconds from one end to the other

    def __init__(self, parent=None, x=0, y=0, text=""):
        super().__init__(parent, x, y)
        self.NodeType = "Switch"
        self.SetWidth(48)
        self.SetHeight(24)
        self.on = False
        self.place = 0.0  # of the knob: 0 at the left, 1 at the right
        self.caption = Tessora.GUI_Label(self, 0, 0, text, FONT, 16)
        self.caption.SetStyle("hollow", False)
        self.caption.SetTextHAlign("left")
        self.caption.SetTextColor(*INK)
        self.caption.SetWidth(120)
        self.caption.SetHeight(24)
        # A press on the caption is no press on the switch.
        self.caption.EnablePickDownEvent(False)
        self.caption.EnablePickUpEvent(False)

    def IsOn(self):
        return self.on

    def SetOn(self, on, at_once=True):
        self.on = bool(on)
        if at_once:
            self.place = float(self.on)

    def update(self, delay):
        super().update(delay)
        step = delay / self.SLIDE
        goal = float(self.on)
        self.place += max(-step, min(step, goal - self.place))

    def drawBGColor(self, screen, color):
        """Draws in place of a plain image's box; where it lies is known by now."""
        wide, high = self.width * self.WSX, self.height * self.WSY
        rect = pygame.Rect(self.WX, self.WY, wide, high)
        mixed = pygame.Color(*OFF).lerp(pygame.Color(*ON), self.place)
        color = mixed if self.enable else GREY
        pygame.draw.rect(screen, color, rect, border_radius=rect.h // 2)
        radius = rect.h / 2
        x = rect.x + radius + (rect.w - rect.h) * self.place
        hovered = rect.collidepoint(pygame.mouse.get_pos())
        less = 4 if self.clicked else 2 if hovered else 3
        radius -= less * self.WSY
        pygame.draw.circle(screen, KNOB, (x, rect.centery), radius)

    def draw_children(self, screen, offsetX=0, offsetY=0, scale=1.0):
        # A scaled parent scales its children, but does not move them.
        self.caption.SetXY((self.width + 10) * self.GetWSX(), 0)
        super().draw_children(screen, offsetX, offsetY, scale)

    def OnPickDownFunction(self, x, y):
        self.SetFocusIn(self.enable and self.checkClick(x, y))
        return super().OnPickDownFunction(x, y) if self.enable else None

    def OnPickUpFunction(self, x, y):
        # Changed first, so that the callback sees the new state.
        if self.enable and self.clicked and self.checkClick(x, y):
            self.SetOn(not self.on, at_once=False)
        return super().OnPickUpFunction(x, y)

    def OnKeyDownFunction(self, key):
        if self.focusIn and self.enable and key == "space":
            self.SetOn(not self.on, at_once=False)
            if self.PickUpFunction:
                self.PickUpFunction(self)
        else:
            super().OnKeyDownFunction(key)

    def CopyTo(self, other):
        super().CopyTo(other)
        if isinstance(other, Switch):
            other.SetOn(self.on)
            self.caption.CopyTo(other.caption)


class HealthBar(Tessora.GUI_Image):
    """A bar painted into a picture, which scales, turns and fades like any other."""

    LAG = 0.6  # of the whole bar, that the pale rest shrinks by in a second

    def __init__(self, parent=None, x=0, y=0):
        super().__init__(parent, x, y)
        self.NodeType = "HealthBar"
        self.health = self.shown = 1.0
        self.canvas = None
        self.SetSize(120, 16)

    def SetSize(self, width, height):
        # A new one, never the one of a copy: surfaces are shared.
        self.canvas = pygame.Surface((width, height), pygame.SRCALPHA)
        self.SetImage([self.canvas])
        self.AutoImageSize(True)
        self.DropBGColor()
        self.paint()

    def GetHealth(self):
        return self.health

    def SetHealth(self, health):
        self.health = self.Clamp(health, 0.0, 1.0)
        self.shown = max(self.shown, self.health)
        self.paint()

    def update(self, delay):
        super().update(delay)
        if self.shown > self.health:
            self.shown = max(self.health, self.shown - self.LAG * delay)
            self.paint()

    def paint(self):
        """Painting into the picture is enough: the next draw sees it."""
        width, height = self.canvas.get_size()
        inside = pygame.Rect(2, 2, width - 4, height - 4)
        self.canvas.fill((0, 0, 0, 0))
        pygame.draw.rect(self.canvas, BACK, (0, 0, width, height), border_radius=4)
        for share, color in ((self.shown, PALE), (self.health, self.color())):
            filled = (*inside.topleft, inside.w * share, inside.h)
            pygame.draw.rect(self.canvas, color, filled)

    def color(self):
        low, full = pygame.Color(226, 70, 70), pygame.Color(110, 200, 100)
        return low.lerp(full, self.health)

    def CopyTo(self, other):
        super().CopyTo(other)
        if isinstance(other, HealthBar):
            other.health, other.shown = self.health, self.shown
            other.SetSize(*self.canvas.get_size())


class Ring(Tessora.GameNode):
    """A ring that beats around its place; it has no size and takes no presses."""

    def __init__(self, parent=None, x=0, y=0, radius=20):
        super().__init__(parent, x, y)
        self.NodeType = "Ring"
        self.radius = radius
        self.time = 0.0

    def update(self, delay):
        super().update(delay)
        self.time += delay

    def draw(self, screen, offsetX=0, offsetY=0, scale=1.0):
        # The base finds the place on the screen and draws the children.
        super().draw(screen, offsetX, offsetY, scale)
        if self.IsVisible():
            radius = self.radius * self.WSX * (1 + 0.1 * math.sin(self.time * 6))
            pygame.draw.circle(screen, GOLD, (self.WX, self.WY), radius, 3)


def label(x, y, text, size=18):
    made = Tessora.GUI_Label(None, x, y, text, FONT, size)
    made.SetStyle("hollow", False)
    made.SetTextHAlign("left")
    made.SetTextColor(*INK)
    made.SetWidth(300)
    made.SetHeight(size + 8)
    return made


def panel(x, y, width, height, scale):
    made = Tessora.GUI_Image(None, x, y)
    made.SetWidth(width)
    made.SetHeight(height)
    made.SetSXY(scale, scale)
    made.SetBGColor(60, 48, 104)
    return made


def build(layer):
    status = label(30, 350, "Press a switch, or the bars")
    sound, music = Switch(None, 30, 60, "Sound"), Switch(None, 30, 100, "Music")
    locked = Switch(None, 30, 140, "Locked")
    music.SetOn(True)
    locked.SetEnable(False)

    def tell(switch):
        status.SetText(switch.caption.GetText() + (": on" if switch.IsOn() else ": off"))

    for switch in (sound, music, locked):
        switch.SetPickUpFunction(tell)
    bar = HealthBar(None, 30, 200)
    bar.SetHealth(0.8)
    bar.SetPickDownFunction(lambda node: node.SetHealth(node.GetHealth() - 0.25))

    large = panel(270, 60, 165, 130, 2.0)
    copy = Switch(large, 30, 30, "")
    music.CopyTo(copy)
    copy.SetXY(30, 30)
    turned = HealthBar(large, 40, 160)
    bar.CopyTo(turned)
    turned.SetXY(40, 160)
    turned.SetAngle(12)

    nodes = [label(30, 20, "As they are"), label(270, 20, "Children of a panel, scaled by 2")]
    nodes += [sound, music, locked, bar, Ring(None, 70, 290), large, status]
    for node in nodes:
        layer.AddGameNode(node)


SCRIPT = (
    (0.3, pygame.MOUSEBUTTONDOWN, (50, 70)),
    (0.4, pygame.MOUSEBUTTONUP, (50, 70)),
    (1.0, pygame.MOUSEBUTTONDOWN, (340, 120)),
    (1.1, pygame.MOUSEBUTTONUP, (340, 120)),
    (2.2, pygame.MOUSEBUTTONDOWN, (60, 208)),
    (2.3, pygame.MOUSEBUTTONUP, (60, 208)),
)

if __name__ == "__main__":
    run("own_widget", build, SCRIPT)
