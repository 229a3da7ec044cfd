"""Actions: timed changes of a node, played one after another, and repeated for ever."""

import Tessora
from example_window import FONT, run
from Tessora import (
    BlinkAction,
    CallBackAction,
    MoveByAction,
    MoveToAction,
    RotateByAction,
    RotateToAction,
    ScaleByAction,
    ScaleToAction,
)

# Each tile: what it shows, its colour, and its actions for a tile at x, y.
TILES = (
    ("MoveTo", "#ff8a96", lambda x, y: (MoveToAction(0.6, x, y + 60), MoveToAction(0.6, x, y))),
    ("MoveBy", "#ffab6b", lambda x, y: (MoveByAction(0.4, 40, 30), MoveByAction(0.8, -40, -30))),
    ("ScaleTo", "#ffd666", lambda x, y: (ScaleToAction(0.5, 1.3, 0.7), ScaleToAction(0.5, 1, 1))),
    ("ScaleBy", "#b9e07a", lambda x, y: (ScaleByAction(0.7, 0.3, 0.3), ScaleToAction(0.3, 1, 1))),
    ("RotateTo", "#6fd3b8", lambda x, y: (RotateToAction(0.5, 40), RotateToAction(0.5, -40))),
    ("RotateBy", "#6fbdf5", lambda x, y: (RotateByAction(1.5, 360),)),
    ("Blink", "#a99bff", lambda x, y: (BlinkAction(1.5, 3),)),
    ("CallBack", "#e58be0", lambda x, y: (CallBackAction(0.5, None),)),
)


class Tile(Tessora.GUI_Label):
    def __init__(self, x, y, text, colour, actions):
        super().__init__(None, x, y, text, FONT, 18)
        self.place = x, y
        self.actions = actions
        self.rounds = 0
        self.SetWidth(110)
        self.SetHeight(64)
        self.SetBGColor(*(int(colour[i : i + 2], 16) for i in (1, 3, 5)))
        self.SetTextColor(44, 24, 72)
        if text.startswith(("Scale", "Rotate")):
            # Scaled about its centre. Moves start from the top left corner: they need no anchor.
            self.SetXY(x + 55, y + 32)
            self.SetImageAnchor("center")

    def play(self, params=None):
        """Play the actions, and the next round after them.

        Actions can be run again and start afresh, with two exceptions: a BlinkAction goes on
        counting its blinks, and a CallBackAction that its own function runs again is over as soon
        as the function returns. Every round takes new ones.
        """
        self.rounds += 1
        if self.text.startswith("CallBack"):
            self.SetText(f"CallBack {self.rounds}")
        self.SetVisible(True)
        self.RunAction(*self.actions(*self.place), CallBackAction(0, self.play))


def build(layer):
    for i, (text, colour, actions) in enumerate(TILES):
        tile = Tile(45 + 147 * (i % 4), 70 + 170 * (i // 4), text, colour, actions)
        layer.AddGameNode(tile)
        tile.play()


if __name__ == "__main__":
    run("actions", build)
