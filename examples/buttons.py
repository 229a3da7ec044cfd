"""Buttons: three states, colours, pictures, and a callback for the finished click."""

import pygame
import Tessora
from example_window import FONT, run


class Counter(Tessora.GUI_Label):
    def __init__(self, x, y):
        super().__init__(None, x, y, "", FONT, 28)
        self.SetWidth(560)
        self.SetHeight(50)
        self.SetStyle("hollow", False)
        self.SetTextColor(255, 244, 222)
        self.clicks = 0
        self.count(None)

    def count(self, button):
        """Called with the button that was clicked."""
        if button is not None:
            self.clicks += 1
        name = button.GetText() if button is not None else "nothing"
        self.SetText(f"{self.clicks} clicks, the last on {name}")


def button(layer, x, y, text, on_click):
    made = Tessora.GUI_Button(None, x, y, text, FONT, 20)
    made.SetWidth(200)
    made.SetHeight(56)
    made.SetPickUpFunction(on_click)
    layer.AddGameNode(made)
    return made


def build(layer):
    counter = Counter(40, 30)
    layer.AddGameNode(counter)

    button(layer, 80, 120, "Plain", counter.count)

    coloured = button(layer, 360, 120, "Coloured", counter.count)
    coloured.SetBGColor(255, 138, 150)
    coloured.SetBGColor_Hover(255, 190, 150)
    coloured.SetBGColor_Click(190, 70, 120)
    coloured.SetTextColor_Click(255, 255, 255)
    coloured.SetStyle("solid")
    coloured.SetBorderColor(255, 244, 222)

    pictured = button(layer, 72, 220, "Pictured", counter.count)
    pictured.SetImage("button.png")
    pictured.SetImage_Hover("button_hover.png")
    pictured.SetImage_Click("button_click.png")
    pictured.AutoImageSize(True)
    # A button tints its pictures with its background colour; without one they show as they are.
    pictured.DropBGColor()
    pictured.SetStyle("hollow", False)

    bare = button(layer, 360, 230, "Only text", counter.count)
    bare.SetStyle("hollow", False)
    bare.SetTextColor(255, 214, 102)
    bare.SetTextColor_Hover(255, 255, 255)
    bare.SetTextColor_Click(255, 138, 150)

    disabled = button(layer, 220, 320, "Disabled", counter.count)
    disabled.SetEnable(False)
    disabled.SetTextColor(110, 110, 110)


SCRIPT = (
    (0.5, pygame.MOUSEMOTION, (180, 250)),
    (0.6, pygame.MOUSEBUTTONDOWN, (180, 250)),
    (0.8, pygame.MOUSEBUTTONUP, (180, 250)),
    (1.0, pygame.MOUSEBUTTONDOWN, (450, 150)),
    (1.2, pygame.MOUSEBUTTONUP, (450, 150)),
    (1.4, pygame.MOUSEBUTTONDOWN, (320, 350)),
    (1.5, pygame.MOUSEBUTTONUP, (320, 350)),
    (2.0, pygame.MOUSEBUTTONDOWN, (180, 150)),
    (2.1, pygame.MOUSEMOTION, (180, 260)),
)

if __name__ == "__main__":
    run("buttons", build, SCRIPT)
