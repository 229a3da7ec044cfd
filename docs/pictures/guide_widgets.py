"""Every widget in its looks."""

import pygame
import Tessora
from parts.looks import FONT, cells, example, look, pointer, use
from scenes import INK

RED, GREY, AMBER = (190, 50, 60), (180, 180, 180), (255, 190, 60)


def sized(widget, width, height, *calls):
    """The widget in a size, after some calls: (name of the method, arguments...)."""
    widget.SetWidth(width)
    widget.SetHeight(height)
    for name, *arguments in calls:
        getattr(widget, name)(*arguments)
    return widget


def made(kind, width, height, text, *calls):
    return lambda: sized(kind(None, 0, 0, text, FONT, 16), width, height, *calls)


def image(*calls, width=90, height=64):
    return lambda: sized(Tessora.GUI_Image(), width, height, *calls)


def disc(size, color=(255, 214, 102)):
    """A round face, painted large and made smaller so that its edge is smooth."""
    large = pygame.Surface((4 * size, 4 * size), pygame.SRCALPHA)
    large.fill((*color, 0))
    pygame.draw.circle(large, color, (2 * size, 2 * size), 2 * size - 4)
    for x in (size * 1.3, size * 2.7):
        pygame.draw.circle(large, INK, (x, size * 1.6), size * 0.3)
    pygame.draw.circle(large, INK, (2 * size, 2.4 * size), size, 0, False, False, True, True)
    return pygame.transform.smoothscale(large, (size, size))


def face(*calls, **state):
    def make():
        widget = Tessora.GUI_Image()
        widget.SetImage(disc(56))
        widget.AutoImageSize(True)
        for name, *arguments in calls:
            getattr(widget, name)(*arguments)
        return widget

    return look(make, **state)


def images():
    return cells(
        [
            ("no picture", look(image())),
            ("SetBGColor", look(image(("SetBGColor", *AMBER)))),
            ("border: solid", look(image(("SetStyle", "solid"), ("SetBorderColor", *INK)))),
            ("focus", look(image(("SetBGColor", *AMBER)), focusIn=True)),
            ("hollow, border on", look(image(("SetStyle", "hollow")))),
            ("a picture", face()),
            ("tint: SetBGColor", face(("SetBGColor", 110, 160, 255))),
            ("alpha = 110", face(alpha=110)),
            ("SetAngle(30)", face(("SetAngle", 30))),
            ("stretched", face(("SetWidth", 130), ("SetHeight", 40))),
        ],
        5,
        (148, 110),
    )


def label(text, *calls):
    return look(made(Tessora.GUI_Label, 136, 44, text, *calls))


def labels():
    hollow = ("SetStyle", "hollow", False)
    return cells(
        [
            ("as made", label("Score: 10")),
            ("hollow, coloured", label("Score: 10", hollow, ("SetTextColor", *RED))),
            ("left", label("Score: 10", ("SetTextHAlign", "left"))),
            ("right, bottom", label("Score: 10", ("SetTextHAlign", "right"),
                                    ("SetTextVAlign", "bottom"))),
            ("bold, underlined", label("Score: 10", ("CreateFont", FONT, 16, True, False, True))),
            ('SetShowChar("*")', label("secret", ("SetShowChar", "*"))),
            ("SetAngle(10)", label("Score: 10", ("SetAngle", 10))),
            ("too long: not cut", label("A rather long line of text", ("SetBGColor", *AMBER))),
        ],
        4,
        (182, 96),
    )  # fmt: skip


def buttons():
    make = made(Tessora.GUI_Button, 100, 36, "Play")
    pictured = made(
        Tessora.GUI_Button, 100, 36, "Play",
        ("SetImage", "button.png"), ("SetImage_Hover", "button_hover.png"),
        ("SetImage_Click", "button_click.png"), ("DropBGColor",), ("SetStyle", "hollow", False),
        ("SetTextColor", 255, 244, 222), ("SetTextColor_Hover", 110, 30, 84),
        ("SetTextColor_Click", 255, 214, 102),
    )  # fmt: skip
    grey = ("SetBGColor_Hover", 168, 168, 168), ("SetTextColor_Hover", 120, 120, 120)
    disabled = made(
        Tessora.GUI_Button, 100, 36, "Play", ("SetEnable", False), *grey,
        ("SetTextColor", 120, 120, 120),
    )  # fmt: skip
    tinted = made(Tessora.GUI_Button, 100, 36, "Play", ("SetImage", "button.png"))
    return cells(
        [
            ("normal", look(make)),
            ("hovered", look(make, hovered=True)),
            ("pressed", look(make, pressed=True)),
            ("focus", look(make, focusIn=True)),
            ("disabled, greyed\nby the script", look(disabled)),
            ("pictures: normal", look(pictured)),
            ("hovered", look(pictured, hovered=True)),
            ("pressed", look(pictured, pressed=True)),
            ("focus", look(pictured, focusIn=True)),
            ("without DropBGColor\nthe picture is grey", look(tinted)),
        ],
        5,
        (148, 92),
    )


def check(*calls):
    return made(Tessora.GUI_CheckButton, 120, 24, "Sound", *calls)


CHECKED = (
    ("SetBGColor_Checked", 200, 230, 200),
    ("SetBGColor_Hover_Checked", 170, 205, 170),
    ("SetBGColor_Click_Checked", 140, 175, 140),
    ("SetTextColor_Checked", 0, 90, 0),
)


def checks():
    plain, coloured = check(), check(*CHECKED)
    boxless = check(*CHECKED, ("SetCheckBoxVisible", False))
    hollow = check(("SetStyle", "hollow", False))
    boxes = {"image_checkbox": disc(24, GREY), "image_checkbox_checked": disc(24)}
    return cells(
        [
            ("normal", look(plain)),
            ("hovered", look(plain, hovered=True)),
            ("pressed", look(plain, pressed=True)),
            ("checked, no checked\ncolours: no mark", look(plain, CheckValue=True)),
            ("focus", look(plain, focusIn=True)),
            ("checked", look(coloured, CheckValue=True)),
            ("checked, hovered", look(coloured, CheckValue=True, hovered=True)),
            ("checked, pressed", look(coloured, CheckValue=True, pressed=True)),
            ("box hidden, checked", look(boxless, CheckValue=True)),
            ("pictures for\nthe box, checked", look(hollow, CheckValue=True, **boxes)),
        ],
        5,
        (148, 92),
    )


def radios():
    make = made(Tessora.GUI_RadioButton, 120, 24, "Easy")

    def group(surface, x, y):
        parent = sized(Tessora.GUI_Image(None, x - 65, y - 42), 130, 84, ("SetBGColor", *AMBER))
        for index, text in enumerate(("Easy", "Normal", "Hard")):
            button = Tessora.GUI_RadioButton(parent, 5, 4 + 26 * index, text, FONT, 15)
            sized(button, 120, 24, ("SetRadioValue", index == 1), ("SetStyle", "hollow", False))
        parent.draw(surface)

    return cells(
        [
            ("normal", look(make)),
            ("hovered", look(make, hovered=True)),
            ("pressed", look(make, pressed=True)),
            ("chosen", look(make, RadioValue=True)),
            ("a group, hollow", group),
        ],
        5,
        (148, 124),
    )


def edit(text, *calls):
    return made(Tessora.GUI_Edit, 128, 30, text, ("SetTextColor", 255, 255, 255), *calls)


# The cursor shows from the first draw on; then it blinks by the clock.
FOCUS = {"focusIn": True}


def edits():
    long = "A text that is longer than the edit"
    light = ("SetBGColor", 255, 255, 255), ("SetTextColor", 0, 0, 0), ("SetCursorColor", 0, 0, 0)
    blue = (*light, ("SetBGColor_Focus", 214, 230, 255))
    return cells(
        [
            ("as made", look(made(Tessora.GUI_Edit, 128, 30, "black on grey"))),
            ("white text", look(edit("hero"))),
            ("focus: cursor\nat the end", look(edit("hero"), **FOCUS, cursorPos=4)),
            ("a long text", look(edit(long), **FOCUS, cursorPos=len(long))),
            ('SetShowChar("*")', look(edit("hero", ("SetShowChar", "*")))),
            ("light", look(edit("hero", *blue))),
            ("light, focus", look(edit("hero", *blue), **FOCUS, cursorPos=2)),
        ],
        4,
        (180, 92),
    )


def texts():
    words = "A text of many lines, broken at words where it is too wide.\n\nType here."

    def make(*calls):
        return lambda: sized(
            Tessora.GUI_Text(None, 0, 0, "", FONT, 15), 200, 120,
            ("SetTextColor", 255, 255, 255), ("SetText", words), *calls,
        )  # fmt: skip

    def low():
        return sized(make()(), 200, 50)

    return cells(
        [
            ("white text", look(make())),
            ("focus", look(make(), **FOCUS, cursorPos=6, cursorRow=0)),
            ("whole lines that fit", look(low)),
        ],
        3,
        (240, 164),
    )


def scale(*calls):
    return lambda: sized(Tessora.GUI_Scale(), 130, 20, ("SetTextColor", *INK), *calls)


def scales():
    return cells(
        [
            ("dark text", look(scale())),
            ('SetTextAlign("top")', look(scale(("SetTextAlign", "top")))),
            ('SetTextAlign("center")', look(scale(("SetTextAlign", "center")))),
            ("rulerVisible = False", look(scale(), rulerVisible=False)),
            ("range 0 to 10, step 1, 7",
             look(scale(("SetRange", 0, 10), ("SetStep", 1), ("SetValue", 7)))),
        ],
        5,
        (148, 92),
    )  # fmt: skip


def scrollbars():
    def bar(kind, width, height, value):
        return look(lambda: sized(kind(), width, height, ("SetValue", value)))

    def dragged(surface, x, y):
        widget = sized(Tessora.GUI_HScrollBar(None, x - 60, y - 10), 120, 20, ("SetValue", 50))
        pygame.mouse.get_pos = lambda: (x + 4, y + 6)
        widget.MidButton.clicked = True
        widget.draw(surface)
        pointer(surface, x + 4, y + 6)

    across, upright = Tessora.GUI_HScrollBar, Tessora.GUI_VScrollBar
    return cells(
        [
            ("as made: value 0", bar(across, 120, 20, 0)),
            ("value 100", bar(across, 120, 20, 100)),
            ("thumb pressed", dragged),
            ("upright, value 0", bar(upright, 20, 120, 0)),
            ("upright, value 40", bar(upright, 20, 120, 40)),
        ],
        5,
        (148, 160),
    )


def progress():
    def bar(kind, width, height, *calls):
        return look(lambda: sized(kind(), width, height, *calls))

    def coloured(surface, x, y):
        widget = sized(Tessora.GUI_HProgressBar(None, x - 60, y - 10), 120, 20, ("SetValue", 70))
        widget.SetBGColor(60, 48, 104)
        widget.ProgressImage.SetBGColor(92, 190, 120)
        widget.draw(surface)

    across, upright = Tessora.GUI_HProgressBar, Tessora.GUI_VProgressBar
    return cells(
        [
            ("as made: value 50", bar(across, 120, 20)),
            ("with the marker", bar(across, 120, 20, ("SetPositionImageVisible", True))),
            ("own colours, 70", coloured),
            ("a picture, 80",
             bar(across, 120, 20, ("SetProgressImages", "button.png"), ("SetValue", 80))),
            ("upright: fills\nfrom the top, 30", bar(upright, 20, 100, ("SetValue", 30))),
        ],
        5,
        (148, 150),
    )  # fmt: skip


def lines(box, texts=("Meadow", "Cave", "Castle", "Moon", "Sea", "Sky")):
    box.CreateFont(FONT, 15)
    for text in texts:
        box.AddTextLine(text)
    return box


def lists():
    def make(*calls, count=4):
        texts = ("Meadow", "Cave", "Castle", "Moon", "Sea", "Sky")[:count]
        return lambda: sized(lines(Tessora.GUI_ListBox(), texts), 120, 92, *calls)

    chosen = ("SetSelectedIndex", 1)
    amber = ("SetItemBGColor", *AMBER), ("SetBGColor", *AMBER)
    return cells(
        [
            ("as made", look(make())),
            ("a line selected", look(make(chosen))),
            ("a line hovered", look(make(chosen), hovered=True)),
            ("scroll bar", look(make(chosen, ("SetVScrollBarVisible", True), count=6))),
            ("SetItemBGColor", look(make(chosen, *amber))),
        ],
        5,
        (148, 132),
    )


def combos():
    def make(*calls):
        def combo():
            box = sized(lines(Tessora.GUI_ComboBox()), 130, 110, ("SetSelectedIndex", 1), *calls)
            box.PickDropListFunction()
            return box

        return combo

    def opened():
        box = make()()
        box.ClickBtnFunction()
        return box

    def fresh():
        return sized(lines(Tessora.GUI_ComboBox()), 130, 110)

    return cells(
        [
            ("as made", look(fresh)),
            ("after a choice", look(make())),
            ("open", look(opened)),
            ("open, a line hovered", look(opened, hovered=True)),
        ],
        4,
        (182, 156),
    )


def boxes():
    def make(*calls):
        def box():
            widget = Tessora.GUI_MsgBox(None, 0, 0, "Play again?")
            for part in (widget.Title, widget.OKButton, widget.CloseButton):
                part.CreateFont(FONT, 13)
            widget.OKButton.SetText("OK")
            return widget

        return box

    def over(part, clicked=False):
        def draw(surface, x, y):
            widget = make()()
            widget.SetXY(x - 80, y - 50)
            button = getattr(widget, part)
            tip = (
                widget.GetX() + button.GetX() + button.GetWidth() * 0.6,
                widget.GetY() + button.GetY() + button.GetHeight() * 0.5,
            )
            pygame.mouse.get_pos = lambda: tip
            button.clicked = clicked
            widget.draw(surface)
            pointer(surface, int(tip[0]), int(tip[1]))

        return draw

    return cells(
        [
            ("as shown", look(make())),
            ("OK hovered", over("OKButton")),
            ("OK pressed", over("OKButton", True)),
            ("close hovered", over("CloseButton")),
        ],
        4,
        (182, 146),
    )


def trees():
    def make(opened):
        def tree():
            widget = sized(Tessora.GUI_Tree(), 170, 120)
            widget.CreateFont(FONT, 15)
            widget.InsertItem(None, "Game")
            for parent, text in (("Game", "Levels"), ("Game", "Sounds"), ("Levels", "Meadow")):
                widget.InsertItem(parent, text, None, disc(40) if text == "Meadow" else None)
            for text in opened:
                widget.RootItemNode.LookForItemNode(text).ExpandChildItem()
            return widget

        return tree

    return cells(
        [
            ("as made: closed", look(make(()))),
            ("the root open", look(make(("Game",)))),
            ("an item with a picture", look(make(("Game", "Levels")))),
        ],
        3,
        (240, 164),
    )


def styles():
    shown = []
    for style in ("flat", "raised", "sunken", "solid", "hollow"):
        shown.append((f'"{style}"', look(image(("SetBGColor", *AMBER), ("SetStyle", style)))))
    for style in ("flat", "raised", "sunken", "solid", "hollow"):
        make = made(Tessora.GUI_Button, 100, 36, "Play", ("SetStyle", style))
        shown.append((f'button, "{style}"', look(make)))
    return cells(shown, 5, (148, 104))


def panels():
    """Panels over a picture, of which only one is seen through."""

    def sky(surface, x, y):
        picture = Tessora.Res.LoadImage("hills_near.png")
        back = pygame.Surface((200, 120))
        back.fill((120, 170, 230))
        back.blit(pygame.transform.smoothscale(picture, (400, 120)), (0, 0))
        surface.blit(back, (x - 100, y - 60))

    def color(surface, x, y):
        sky(surface, x, y)
        panel = sized(Tessora.GUI_Image(None, x - 70, y - 40), 140, 80)
        panel.SetBGColor(40, 20, 90, 120)
        panel.draw(surface)

    def picture(surface, x, y):
        sky(surface, x, y)
        dark = pygame.Surface((8, 8), pygame.SRCALPHA)
        dark.fill((40, 20, 90, 120))
        panel = sized(Tessora.GUI_Image(None, x - 70, y - 40), 140, 80)
        panel.SetImage(dark)
        panel.DropBGColor()
        panel.draw(surface)

    def faded(surface, x, y):
        sky(surface, x, y)
        panel = Tessora.GUI_Image(None, x - 70, y - 40)
        panel.SetImage("button.png")
        sized(panel, 140, 80, ("DropBGColor",))
        panel.alpha = 110
        panel.draw(surface)

    return cells(
        [
            ("SetBGColor(40, 20, 90, 120):\nopaque all the same", color),
            ("a picture of one see-through\ncolour, stretched", picture),
            ("a picture with alpha = 110", faded),
        ],
        3,
        (240, 180),
    )


def window():
    """All of them, a little smaller than they are."""
    whole = example("widgets", 1.0, (800, 560), [(0.3, 390, 58), (0.6, 770, 316)], "Window")
    return pygame.transform.smoothscale(whole, (700, 490))


def pictures():
    use("star_catcher/assets")
    made = (images, labels, buttons, checks, radios, edits, texts, scales, scrollbars, progress)
    made += (lists, combos, boxes, trees, styles, panels, window)
    return {draw.__name__: draw() for draw in made}
