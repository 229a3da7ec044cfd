"""Every widget in one window, alive: what one is told, another shows."""

import pygame
import Tessora
from example_window import FONT, run

SIZE = (800, 560)
INK = (255, 244, 222)
PANEL = (60, 48, 104)
COLORS = {"Amber": (255, 190, 60), "Rose": (255, 138, 150), "Sky": (120, 190, 255)}


class Window:
    def __init__(self, layer):
        self.layer = layer
        self.status = self.caption(20, 524, "Click, type and drag.", 560, 22)
        self.pictures_and_buttons()
        self.choices()
        self.typing()
        self.values()
        self.hierarchy()
        self.lists()
        self.dialog = Dialog(self)

    def add(self, widget, width=None, height=None):
        """Put a top-level widget into the layer, in this size."""
        if width is not None:
            widget.SetWidth(width)
            widget.SetHeight(height)
        self.layer.AddGameNode(widget)
        return widget

    def caption(self, x, y, text, width=220, size=16):
        label = Tessora.GUI_Label(None, x, y, text, FONT, size)
        label.SetStyle("hollow", False)
        label.SetTextColor(*INK)
        label.SetTextHAlign("left")
        return self.add(label, width, size + 8)

    def tell(self, text):
        self.status.SetText(text)

    # GUI_Image, GUI_Label, GUI_Button
    def pictures_and_buttons(self):
        self.caption(20, 14, "Image, label, button")
        self.picture = self.add(Tessora.GUI_Image(None, 20, 44))
        self.picture.SetImage("button.png")
        self.picture.SetWidth(92)
        self.picture.SetHeight(40)
        button = Tessora.GUI_Button(None, 128, 46, "Ask me", FONT, 16)
        button.SetPickUpFunction(lambda node: self.dialog.ask("Start again?"))
        self.add(button, 100, 36)

    # GUI_CheckButton, GUI_RadioButton
    def choices(self):
        self.caption(20, 98, "Check and radio buttons")
        self.checks = []
        for index, text in enumerate(("Fill by itself", "Show the picture")):
            check = Tessora.GUI_CheckButton(None, 20, 126 + 26 * index, text, FONT, 14)
            check.SetTextColor_Checked(0, 90, 0)
            check.SetBGColor_Checked(200, 230, 200)
            check.SetPickUpFunction(self.checked)
            check.SetChecked(True)
            self.checks.append(self.add(check, 220, 22))
        # The radio buttons of one parent are a group.
        group = self.add(Tessora.GUI_Image(None, 20, 184), 220, 78)
        group.SetBGColor(*PANEL)
        for index, name in enumerate(COLORS):
            radio = Tessora.GUI_RadioButton(group, 4, 4 + 24 * index, name, FONT, 14)
            radio.SetBGColor(*COLORS[name])
            radio.SetWidth(212)
            radio.SetHeight(22)
            radio.SetRadioValue(index == 0)
            radio.SetPickUpFunction(self.picked_color)

    def checked(self, check):
        self.picture.SetVisible(self.checks[1].IsChecked())
        self.tell(f"{check.GetText()}: {'yes' if check.IsChecked() else 'no'}")

    def picked_color(self, radio):
        self.picture.SetBGColor(*COLORS[radio.GetText()])
        self.tell(f"The picture is {radio.GetText().lower()} now")

    # GUI_Edit, GUI_Text
    def typing(self):
        self.caption(270, 14, "Edit: Return adds a line")
        edit = self.add(Tessora.GUI_Edit(None, 270, 44, "", FONT, 16), 240, 30)
        edit.SetTextColor(*INK)
        edit.SetReturnCallBackFunc(lambda *args: self.entered(edit))
        self.caption(270, 84, "Text")
        text = Tessora.GUI_Text(None, 270, 112, "", FONT, 15)
        text.SetTextColor(255, 255, 255)
        text.SetMaxCharCount(2000)
        self.add(text, 240, 150)
        text.SetText("A text of many lines, broken at words where it is too wide.\n\nType here.")

    def entered(self, edit):
        self.list.AddTextLine(edit.GetText())
        self.list.SetSelectedIndex(self.list.lineCount - 1)
        edit.SetText("")
        edit.SetCursorPosition(0)

    # GUI_Scale, GUI_HScrollBar, GUI_VScrollBar, GUI_HProgressBar, GUI_VProgressBar
    def values(self):
        self.caption(20, 276, "Scale and progress bars")
        self.scale = self.add(Tessora.GUI_Scale(None, 20, 306), 220, 20)
        self.scale.SetStep(5)
        self.across = Tessora.GUI_HProgressBar(None, 20, 358)
        self.across.SetPositionImageVisible(True)
        self.add(self.across, 220, 20)
        self.caption(20, 392, "Scroll bars")
        self.scroll = self.add(Tessora.GUI_HScrollBar(None, 20, 430), 150, 20)
        self.scroll.SetUserData(0)
        self.scroll.SetPickUpFunction(self.scrolled)
        self.upright = self.add(Tessora.GUI_VScrollBar(None, 186, 392), 20, 120)
        self.upright.SetValue(50)
        self.down = self.add(Tessora.GUI_VProgressBar(None, 220, 392), 20, 120)
        self.down.SetUpdateFunction(self.update)

    def scrolled(self, bar):
        # A scroll bar tells of every release, because it may end a drag anywhere.
        if bar.GetValue() != bar.GetUserData():
            bar.SetUserData(bar.GetValue())
            self.tell(f"Scrolled to {bar.GetValue()}")

    def update(self, delay):
        if self.checks[0].IsChecked():
            self.scale.SetValue((self.scale.GetValue() + 10 * delay) % 100)
        self.across.SetValue(self.scale.GetValue())
        self.down.SetValue((self.scroll.GetValue() + self.upright.GetValue()) / 2)
        self.scale.SetValue(round(self.scale.GetValue(), 1))

    # GUI_Tree, TreeItemNode
    def hierarchy(self):
        self.caption(270, 276, "Tree")
        tree = self.add(Tessora.GUI_Tree(None, 270, 306), 240, 206)
        tree.CreateFont(FONT, 15)
        tree.InsertItem(None, "Game")
        for parent, texts in (("Game", ("Levels", "Sounds")), ("Levels", ("Meadow", "Cave"))):
            for text in texts:
                tree.InsertItem(parent, text)
            tree.RootItemNode.LookForItemNode(parent).ExpandChildItem()
        tree.InsertItem("Sounds", "Catch")
        tree.RootItemNode.AppendChildItem(Tessora.TreeItemNode("Picture", None, "button.png"))

    # GUI_ListBox, GUI_ComboBox
    def lists(self):
        self.caption(540, 14, "List box")
        self.list = self.add(Tessora.GUI_ListBox(None, 540, 44), 240, 200)
        self.list.CreateFont(FONT, 15)
        for index in range(1, 13):
            self.list.AddTextLine(f"Line {index}")
        self.list.SetSelectedIndex(2)
        self.list.SetPickUpFunction(lambda box: self.tell(box.GetSelectedText()))
        self.caption(540, 276, "Combo box")
        # Last, so that the open list lies over all else.
        self.combo = self.add(Tessora.GUI_ComboBox(None, 540, 306), 240, 150)
        self.combo.CreateFont(FONT, 15)
        for name in ("Windowed", "Full screen", "Borderless", "Small", "Tall", "Wide", "Huge"):
            self.combo.AddTextLine(name)
        self.combo.SetSelectedIndex(0)
        self.combo.PickDropListFunction()


# GUI_MsgBox
class Dialog(Tessora.GUI_MsgBox):
    def __init__(self, window):
        super().__init__(None, 600, 456)
        self.window = window
        for part, text in ((self.Title, ""), (self.OKButton, "OK"), (self.CloseButton, "X")):
            part.CreateFont(FONT, 13)
            part.SetText(text)
        self.ask("Every widget is here.")
        window.layer.AddGameNode(self)

    def ask(self, text):
        self.SetText(text)
        self.SetVisible(True)

    def Button_6_onCommand(self, node=None):
        super().Button_6_onCommand(node)
        self.window.tell(f"The dialog was closed with {node.GetText()}")


SCRIPT = (
    (0.3, pygame.MOUSEBUTTONDOWN, (390, 58)),
    (0.4, pygame.MOUSEBUTTONUP, (390, 58)),
    (0.5, pygame.KEYDOWN, pygame.K_h),
    (0.6, pygame.KEYDOWN, pygame.K_i),
    (0.8, pygame.MOUSEBUTTONDOWN, (770, 316)),
    (0.9, pygame.MOUSEBUTTONUP, (770, 316)),
    (1.2, pygame.MOUSEBUTTONDOWN, (130, 240)),
    (1.3, pygame.MOUSEBUTTONUP, (130, 240)),
    (1.5, pygame.MOUSEBUTTONDOWN, (50, 440)),
    (1.6, pygame.MOUSEMOTION, (95, 480)),
    (1.8, pygame.MOUSEBUTTONUP, (95, 480)),
    (2.0, pygame.MOUSEBUTTONDOWN, (770, 316)),
    (2.1, pygame.MOUSEBUTTONUP, (770, 316)),
    (2.2, pygame.MOUSEMOTION, (640, 374)),
)

if __name__ == "__main__":
    run("widgets", Window, SCRIPT, SIZE)
