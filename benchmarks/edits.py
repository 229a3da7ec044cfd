"""Check buttons and edits: still ones, and keys typed into short and long texts."""

import pygame
import Tessora

from .drawing import check_same_picture, display
from .measure import Pair, at_most


def filled(size, color):
    face = pygame.Surface(size).convert()
    face.fill(color)
    return face


def text_face(font, text, color):
    return font.render(text, True, color).convert_alpha()


def check_box(side, color):
    face = pygame.Surface((side, side)).convert_alpha()
    face.fill((0, 0, 0, 0))
    near, far = side * 0.1, side - side * 0.1 - 1
    corners = [(near, near), (far, near), (far, far), (near, far)]
    for start, end in (corners[:2], (corners[0], corners[3]), corners[1:3], corners[3:1:-1]):
        pygame.draw.line(face, color, start, end, 2)
    return face


def check_buttons(count):
    layer, faces, box = Tessora.GameLayer(), [], check_box(18, (64, 64, 64, 255))
    for index in range(count):
        x, y = 125 * (index % 10), 30 * (index // 10)
        widget = Tessora.GUI_CheckButton(None, x, y, f"check {index}")
        layer.AddGameNode(widget)
        caption = text_face(widget.font, widget.text, widget.textColor)
        top = int((20 - widget.font.size(widget.text)[1]) * 0.5 + y)
        faces += [(filled((120, 20), widget.bgColor), (x, y)), (box, (x, y + 1))]
        faces.append((caption, (x + 20, top)))
    return layer, faces


def edits(count):
    layer, faces = Tessora.GameLayer(), []
    for index in range(count):
        x, y = 125 * (index % 10), 30 * (index // 10)
        widget = Tessora.GUI_Edit(None, x, y, f"edit {index}")
        widget.SetWidth(120)
        widget.SetHeight(26)
        layer.AddGameNode(widget)
        ground = filled((120, 26), widget.bgColor)
        light, dark = widget.borderColor_LT, widget.borderColor_RB
        for rect in ((0, 0, 2, 26), (0, 0, 120, 2)):
            ground.fill(dark, rect)
        for rect in ((118, 0, 2, 26), (0, 24, 120, 2)):
            ground.fill(light, rect)
        top = int((26 - widget.font.size(widget.text)[1]) * 0.5 + y)
        faces.append((ground, (x, y)))
        faces.append((text_face(widget.font, widget.text, widget.textColor), (x + 2, top)))
    return layer, faces


def still(make, count):
    screen = display()
    layer, faces = make(count)
    frames = [lambda: layer.draw(screen), lambda: screen.blits(faces)]
    check_same_picture(screen, frames)
    return frames


PARAGRAPH = "Words of a line, some of them short and others a little longer, fill it. " * 3 + "\n"


def typing(widget_class, length):
    """A key into the middle of a text, and its removal."""
    text = (PARAGRAPH * (length // len(PARAGRAPH) + 1))[:length]
    widget = widget_class(None, 0, 0, text)
    widget.SetWidth(400)
    widget.SetHeight(200)
    widget.SetMaxCharCount(2 * length)
    widget.SetFocusIn(True)
    widget.SetCursorPosition(length // len(PARAGRAPH) // 2 * len(PARAGRAPH) + 30)

    def type_one():
        widget.OnKeyDownFunction("a")
        widget.OnKeyDownFunction("backspace")

    return type_one


def typing_long_and_short(widget_class):
    return typing(widget_class, 10000), typing(widget_class, 1000)


def benchmarks():
    goal = at_most(1.5)
    yield Pair("check buttons: Surface.blits", lambda: still(check_buttons, 100), 100, goal)
    yield Pair("edits: Surface.blits", lambda: still(edits, 50), 50, goal)
    for name, cls in (("edit", Tessora.GUI_Edit), ("text box", Tessora.GUI_Text)):
        yield Pair(
            f"keys into 10,000 characters, {name}: 1,000",
            lambda cls=cls: typing_long_and_short(cls),
            2,
            goal,
        )
