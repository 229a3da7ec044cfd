"""The constructors of bars, lists and panels as plain Python classes."""

import pygame

from .plain import GUI_WINDOW_BGCOLOR
from .plain_widgets import GUI_Button, GUI_Image, GUI_Label

GREY = (168, 168, 168, 255)


def placed(widget, width, height, on_press=None):
    widget.width = width
    widget.height = height
    widget.PickDownFunction = on_press
    return widget


class GUI_CheckButton(GUI_Button):
    def __init__(self, parent=None, x=0, y=0, text="", fontname="Arial", fontsize=16):
        GUI_Button.__init__(self, parent, x, y, text, fontname, fontsize)
        self.NodeType = "CheckButton"
        self.width = 120
        self.height = 20
        self.bgColor = GUI_WINDOW_BGCOLOR
        self.CheckValue = False
        self.HAlign = "left"
        self.VAlign = "center"
        for state in ("", "_hover", "_click"):
            setattr(self, f"textColor{state}_checked", getattr(self, "textColor" + state))
            setattr(self, f"bgColor{state}_checked", getattr(self, "bgColor" + state))
            setattr(self, f"image{state}_checked", None)
        for state in ("", "_hover", "_click"):
            setattr(self, "image_checkbox" + state, None)
            setattr(self, f"image_checkbox{state}_checked", None)
        self.checkboxVisible = True
        self.SetStyle("flat")


class GUI_Edit(GUI_Label):
    def __init__(self, parent=None, x=0, y=0, text="", fontname="Arial", fontsize=16):
        GUI_Label.__init__(self, parent, x, y, text, fontname, fontsize)
        self.NodeType = "Edit"
        self.cursorColor = pygame.Color(255, 255, 255, 255)
        self.bgColor = pygame.Color(96, 96, 96, 255)
        self.bgColor_focusIn = pygame.Color(96, 96, 96, 255)
        self.image_focusIn = None
        self.image_focusIn_File = ""
        self.cursorPos = 0
        self.cursorshowtime = 0.5
        self.cursorlasttime = 0.0
        self.cursorvisible = False
        self.text_begin_index = 0
        self.text_end_index = 0
        self.max_char_count = 50
        self.HAlign = "left"
        self.VAlign = "center"
        self.ReturnCallBackFunc = None
        self.SetStyle("sunken")


class ScrollBar(GUI_Image):
    def __init__(self, parent=None, x=0, y=0):
        GUI_Image.__init__(self, parent, x, y)
        self.width, self.height = self.size
        self.bgColor = pygame.Color(*GREY)
        last = 100 if self.width > 20 else 0, 100 if self.height > 20 else 0
        middle = last[0] // 5, last[1] // 5
        self.FirstButton = placed(GUI_Button(self, 0, 0), 20, 20, self.step_back)
        self.MidButton = placed(GUI_Button(self, *middle), 20, 20, self.pick)
        self.MidButtonPicked = False
        self.LastButton = placed(GUI_Button(self, *last), 20, 20, self.step_on)
        self.minvalue = 0
        self.maxvalue = 100
        self.currvalue = 0
        self.step = 10
        self.rulerVisible = True
        self.SetStyle("raised")

    def step_back(self, node=None):
        self.currvalue = max(self.minvalue, self.currvalue - self.step)

    def step_on(self, node=None):
        self.currvalue = min(self.maxvalue, self.currvalue + self.step)

    def pick(self, node=None):
        self.MidButtonPicked = True


class GUI_HScrollBar(ScrollBar):
    size = (120, 20)


class GUI_VScrollBar(ScrollBar):
    size = (20, 120)


class GUI_Scale(GUI_Image):
    def __init__(self, parent=None, x=0, y=0):
        GUI_Image.__init__(self, parent, x, y)
        self.width = 120
        self.height = 20
        self.font = pygame.font.SysFont("Arial", 16, False, False)
        self.textColor = pygame.Color("white")
        self.texttopgap = 2
        self.textalign_V = "bottom"
        self.bgColor = pygame.Color(*GREY)
        self.Button = placed(GUI_Button(self, 0, 0), 20, 20, self.pick)
        self.ButtonPicked = False
        self.minvalue = 0
        self.maxvalue = 100
        self.currvalue = 50
        self.step = 20
        self.rulerVisible = True
        self.SetStyle("sunken")

    def pick(self, node=None):
        self.ButtonPicked = True


class ProgressBar(GUI_Label):
    def __init__(self, parent=None, x=0, y=0, text="", fontname="Arial", fontsize=16):
        GUI_Label.__init__(self, parent, x, y, text, fontname, fontsize)
        self.width, self.height = self.size
        self.textColor = pygame.Color("white")
        self.ProgressImage = GUI_Label(self)
        self.ProgressImage.bgColor = pygame.Color(64, 0, 0, 255)
        self.PositionImage = GUI_Label(self)
        self.PositionImage.bgColor = pygame.Color(128, 128, 128, 255)
        self.PositionImage.visible = False
        self.bgColor = pygame.Color(255, 255, 255, 255)
        self.minvalue = 0
        self.maxvalue = 100
        self.currvalue = 50
        self.SetStyle("sunken")


class GUI_HProgressBar(ProgressBar):
    size = (100, 20)


class GUI_VProgressBar(ProgressBar):
    size = (20, 100)


class GUI_ListBox(GUI_Image):
    def __init__(self, parent=None, x=0, y=0):
        GUI_Image.__init__(self, parent, x, y)
        self.width = 120
        self.height = 100
        self.lineArray = []
        self.lineCount = 0
        self.selectedIndex = -1
        self.lineHeight = 20
        self.linegap = 2
        self.showlineCount = int(self.height / (self.lineHeight + self.linegap))
        self.lineIndex = 0
        self.itemBGColor = pygame.Color(255, 255, 255, 255)
        self.textColor = pygame.Color("black")
        self.HAlign = "left"
        self.VAlign = "center"
        self.font = pygame.font.SysFont("Arial", 16, False, False)
        self.VScrollBar = GUI_VScrollBar(self, self.width - 20, 0)
        self.VScrollBar.visible = False
        self.VScrollBarVisible = True
        self.SetStyle("sunken")


class GUI_ComboBox(GUI_Image):
    def __init__(self, parent=None, x=0, y=0):
        GUI_Image.__init__(self, parent, x, y)
        self.width = 120
        self.height = 120
        self.enable = True
        self.Edit = placed(GUI_Edit(self, 0, 0), 100, 20)
        self.Edit.bgColor = pygame.Color(255, 255, 255, 255)
        self.Button = placed(GUI_Button(self, 100, 0), 20, 20)
        self.Button.PickUpFunction = self.toggle
        self.DropList = placed(GUI_ListBox(self, 0, 20), 120, 100)
        self.DropList.visible = False
        self.DropList.PickUpFunction = self.toggle
        self.DropList.SetStyle("solid")

    def toggle(self, node=None):
        self.DropList.visible = not self.DropList.visible


class GUI_MsgBox(GUI_Label):
    def __init__(self, parent=None, x=0, y=0, text="", fontname="Arial", fontsize=16):
        GUI_Label.__init__(self, parent, x, y, text, fontname, fontsize)
        self.width = 160
        self.height = 100
        self.bgColor = pygame.Color(239, 239, 239, 255)
        self.Title = placed(GUI_Label(self, 20, 30, text, "Microsoft YaHei UI", 13), 120, 23)
        self.OKButton = GUI_Button(self, 60, 66, "OK", "Microsoft YaHei UI", 13)
        placed(self.OKButton, 60, 23, self.hide)
        self.CloseButton = GUI_Button(self, 129, 1, "X", "Microsoft YaHei UI", 13)
        placed(self.CloseButton, 30, 23, self.hide)
        self.CloseButton.SetStyle("flat")
        for part in (self.Title, self.OKButton, self.CloseButton):
            part.bgColor = pygame.Color(239, 239, 239, 255)
            part.textColor = pygame.Color(0, 0, 0, 255)
        self.SetStyle("raised")

    def hide(self, node=None):
        self.visible = False


class GUI_Tree(GUI_Image):
    def __init__(self, parent=None, x=0, y=0):
        GUI_Image.__init__(self, parent, x, y)
        self.width = 20
        self.height = 100
        self.SetStyle("sunken")
        self.RootItemNode = None
        self.font = pygame.font.SysFont("Arial", 16, False, False)
        self.textColor = pygame.Color("black")


class TreeItemNode:
    def __init__(self, itemText="", itemValue=None, itemImage=None):
        self.itemText = itemText
        self.itemValue = itemValue
        self.itemImage = itemImage
        self.itemChildren = []
        self.itemopen = False
