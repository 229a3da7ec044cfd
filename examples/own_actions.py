"""Actions of one's own: fade, glide, together, repeat and ease, each a small class.

The classes need nothing but the engine: a game may copy this file and import them.
"""

import math

import Tessora


class TimedAction(Tessora.GAction):
    """Base of actions that change a node bit by bit, in `duration` seconds.

    A subclass says where the change begins, in `begin`, and how the node is when the
    part `t` of the time is over, from 0 to 1, in `show`.
    """

    def __init__(self, duration):
        super().__init__()
        self.duration = duration

    def Run(self):
        self.begin()
        super().Run()

    def update(self, delay):
        if not self.running or self.over:
            return
        super().update(delay)
        t = min(self.runtime / self.duration, 1) if self.duration > 0 else 1
        self.show(t)
        self.over = t >= 1


class FadeToAction(TimedAction):
    """Fades a widget's picture to an opacity from 0 (clear) to 255."""

    def __init__(self, duration, alpha):
        super().__init__(duration)
        self.last = alpha

    def begin(self):
        self.first = self.targetNode.alpha

    def show(self, t):
        self.targetNode.alpha = self.first + (self.last - self.first) * t


class GlideToAction(TimedAction):
    """Moves a node's anchor to `x`, `y` in its parent, wherever anchor and parent are."""

    def __init__(self, duration, x, y):
        super().__init__(duration)
        self.last = x, y

    def begin(self):
        self.first = self.targetNode.GetXY()

    def show(self, t):
        self.targetNode.SetXY(*(a + (b - a) * t for a, b in zip(self.first, self.last)))


class Together(Tessora.GAction):
    """Plays actions at the same time, and is over when all of them are."""

    def __init__(self, *actions):
        super().__init__()
        self.actions = actions

    def SetTarget(self, targetNode):
        super().SetTarget(targetNode)
        for action in self.actions:
            action.SetTarget(targetNode)

    def Run(self):
        for action in self.actions:
            action.Run()
        super().Run()

    def update(self, delay):
        if not self.running or self.over:
            return
        super().update(delay)
        for action in self.actions:
            action.update(delay)
        self.over = all(action.IsOver() for action in self.actions)


class Repeat(Tessora.ActionPlayer):
    """Plays actions one after another, `times` times over; None means for ever."""

    def __init__(self, times, *actions):
        super().__init__()
        self.times = times
        self.actions = actions

    def SetTarget(self, targetNode):
        super().SetTarget(targetNode)
        self.AddActions(self.actions)

    def Run(self):
        self.rounds = 0
        super().Run()

    def update(self, delay):
        if not self.running or self.over:
            return
        super().update(delay)
        if self.over:
            self.rounds += 1
            if self.times is None or self.rounds < self.times:
                super().Run()


class Ease(TimedAction):
    """Plays an action that has a `duration` at a changing speed.

    `curve` turns the part of the time that is over into the part of the way that is
    done; both go from 0 to 1.
    """

    def __init__(self, action, curve):
        super().__init__(action.duration)
        self.action = action
        self.curve = curve

    def SetTarget(self, targetNode):
        super().SetTarget(targetNode)
        self.action.SetTarget(targetNode)

    def begin(self):
        self.action.Run()

    def show(self, t):
        # A curve may reach 1 before its end, as a bounce does.
        self.action.over = False
        self.action.runtime = self.curve(t) * self.duration
        self.action.update(0)


def start_slowly(t):
    return t * t


def smooth(t):
    return t * t * (3 - 2 * t)


def bounce(t):
    return 1 - abs(math.cos(3.5 * math.pi * t)) * (1 - t) ** 2


class Blink(Tessora.BlinkAction):
    """A BlinkAction that counts anew whenever it is run, and so can be repeated."""

    def Run(self):
        self.blinkindex = 0
        super().Run()


def demo_actions():
    """What each star of the demo does, by name."""
    turn = Tessora.RotateByAction(0.5, 90), Tessora.RotateByAction(0.5, -90)
    grow = Tessora.ScaleToAction(0.5, 1.5, 1.5), Tessora.ScaleToAction(0.5, 1, 1)
    fall = Ease(GlideToAction(1.5, 544, 290), bounce), GlideToAction(0.5, 544, 90)
    return {
        "fade": Repeat(None, FadeToAction(1, 30), FadeToAction(1, 255)),
        "together": Together(Repeat(None, *turn), Repeat(None, *grow)),
        "repeat": Repeat(None, GlideToAction(0.5, 392, 230), GlideToAction(0.5, 392, 150)),
        "ease": Repeat(None, *fall),
    }


def build(layer):
    from example_window import FONT

    for i, (name, action) in enumerate(demo_actions().items()):
        star = Tessora.GUI_Image(None, 88 + 152 * i, 150)
        star.LoadImageFramesPList("sprites.plist")
        star.AutoImageSize(True)
        star.SetImageAnchor("center")
        layer.AddGameNode(star)
        label = Tessora.GUI_Label(None, 38 + 152 * i, 340, name, FONT, 18)
        label.SetStyle("hollow", False)
        label.SetTextColor(255, 244, 222)
        layer.AddGameNode(label)
        star.RunAction(action)


if __name__ == "__main__":
    from example_window import run

    run("own_actions", build)
