"""What stands on the stage: pictures that fade, portraits, typed text, buttons, a curtain."""

import pygame
import Tessora

FONT = pygame.font.get_default_font()
CREAM, GOLD = (255, 244, 222), (255, 214, 102)
# The moods in which there are pictures of the people, the usual one first.
MOODS = {"mira": ("calm", "glad", "startled"), "tobin": ("stern", "sad", "glad")}


class FadeTo(Tessora.GAction):
    """Takes the opacity of a picture to `alpha` (0 to 255) in so many seconds."""

    def __init__(self, duration, alpha):
        super().__init__()
        self.duration, self.alpha = duration, alpha

    def Run(self):
        super().Run()
        self.begin = self.targetNode.alpha

    def update(self, delay):
        super().update(delay)
        done = min(1.0, self.runtime / self.duration)
        self.targetNode.alpha = int(self.begin + (self.alpha - self.begin) * done)
        self.over = done == 1.0


class Picture(Tessora.GUI_Image):
    """A picture in its own size and colours."""

    def __init__(self, x, y, image, anchor="wn"):
        super().__init__(None, x, y)
        self.SetImage(image)
        self.AutoImageSize(True)
        self.SetImageAnchor(anchor)
        self.SetStyle("hollow", False)
        self.DropBGColor()


class Portrait(Picture):
    """A person at one side of the stage, who is brighter while speaking."""

    PLACES = {"left": 200, "right": 600}

    def __init__(self, who, side):
        # A shared surface per mood: nothing is looked up when the mood changes.
        super().__init__(self.PLACES[side], 464, f"{who}_{MOODS[who][0]}.png", "s")
        self.who = who
        self.moods = {mood: Tessora.Res.LoadImage(f"{who}_{mood}.png") for mood in MOODS[who]}
        self.alpha = 0
        self.RunAction(FadeTo(0.35, 255))

    def speak(self, speaker, mood):
        if speaker == self.who:
            self.SetImage([self.moods[mood]])
            self.DropBGColor()
        else:
            # A tint: what is white becomes this colour.
            self.SetBGColor(150, 150, 176)


class Line(Tessora.GUI_Label):
    """A line of text without a box."""

    def __init__(self, parent, x, y, width, size, color=CREAM, align="left"):
        super().__init__(parent, x, y, "", FONT, size)
        self.SetWidth(width)
        self.SetHeight(size + 8)
        self.SetStyle("hollow", False)
        self.SetTextColor(*color)
        self.SetTextHAlign(align)


class TypedText(Tessora.GameNode):
    """Lines of text that appear letter by letter."""

    def __init__(self, parent, x, y, width, rows=3, size=20):
        super().__init__(parent, x, y)
        self.room = width
        self.speed = 60  # letters per second
        self.rows = [Line(self, 0, row * (size + 12), width, size) for row in range(rows)]
        self.texts, self.shown = [], 0.0

    def say(self, text):
        font, self.texts, self.shown = self.rows[0].font, [""], 0.0
        for word in text.split():
            longer = f"{self.texts[-1]} {word}".strip()
            if font.size(longer)[0] > self.room - 8:
                self.texts.append(word)
            else:
                self.texts[-1] = longer
        self.show()

    def is_typing(self):
        return self.shown < sum(map(len, self.texts))

    def finish(self):
        self.shown = sum(map(len, self.texts))
        self.show()

    def update(self, delay):
        super().update(delay)
        if self.is_typing():
            self.shown += self.speed * delay
            self.show()

    def show(self):
        left = int(self.shown)
        for row, text in zip(self.rows, self.texts + [""] * len(self.rows)):
            row.SetText(text[: max(0, left)])
            left -= len(text)


class Button(Tessora.GUI_Button):
    """Every button of the game looks like this one."""

    def __init__(self, y, text, action):
        super().__init__(None, 220, y, text, FONT, 20)
        self.SetImage("button.png")
        self.SetImage_Hover("button_hover.png")
        self.SetImage_Click("button_click.png")
        self.AutoImageSize(True)
        # A button tints its pictures with its background colour; without one they stay as drawn.
        self.DropBGColor()
        self.SetStyle("hollow", False)
        self.SetTextColor(*CREAM)
        self.SetTextColor_Hover(60, 24, 40)
        self.SetTextColor_Click(*GOLD)
        self.action = action
        self.SetPickUpFunction(lambda button: self.pressed and self.action())

    # A click counts only where press and release hit.
    pressed = False

    def OnPickDownFunction(self, x, y):
        taken = super().OnPickDownFunction(x, y)
        self.pressed = taken is not None
        return taken

    def OnPickUpFunction(self, x, y):
        taken = super().OnPickUpFunction(x, y)
        self.pressed = False
        return taken


class Curtain(Picture):
    """Black over everything: it falls, something happens behind it, it rises."""

    def __init__(self, size):
        super().__init__(0, 0, [pygame.Surface(size)])
        self.alpha = 0
        self.moving = False

    def change(self, behind):
        self.moving = True
        self.RunAction(
            FadeTo(0.4, 255),
            Tessora.CallBackAction(0, lambda params: behind()),
            FadeTo(0.4, 0),
            Tessora.CallBackAction(0, self.opened),
        )

    def opened(self, params):
        self.moving = False
