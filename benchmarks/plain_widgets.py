"""The engine's image, label and button as a straightforward Python class hierarchy."""

# Flags are compared by equality, as the engine's interface has it.
# ruff: noqa: E711, E712

import pygame

from .plain import GUI_WINDOW_BGCOLOR, GameNode


def faded(image, alpha):
    fade = pygame.Surface(image.get_size()).convert_alpha()
    fade.fill((255, 255, 255, alpha))
    fade.blit(image, (0, 0), special_flags=pygame.BLEND_RGBA_MULT)
    return fade


def finished(image, size, angle, color):
    """The scaled, turned and tinted picture, ready to be blitted."""
    picture = pygame.transform.smoothscale(image, size)
    if angle != 0:
        picture = pygame.transform.rotozoom(picture, angle, 1)
    picture = picture.convert_alpha()
    if color != None:
        tint = pygame.Surface(picture.get_size()).convert_alpha()
        tint.fill(color)
        picture.blit(tint, (0, 0), special_flags=pygame.BLEND_RGBA_MULT)
    return picture


class GUI_Image(GameNode):
    def __init__(self, parent, x=0, y=0):
        GameNode.__init__(self, parent, x, y)
        self.NodeType = "Image"
        self.bgColor = pygame.Color(255, 255, 255, 255)
        self.alpha = 255
        self.image = None
        self.imageArray = None
        self.imageFrameRectArray = {}
        self.imagefiles = None
        self.imageCount = 0
        self.imageIndex = 0
        self.imageDelay = 0
        self.imageSwitchDelay = 0.1
        self.imageAutoSwitch = False
        self.plistFile = None
        self.currActionName = None
        self.originalImage = None
        self.autosize = False
        self.blendtype = pygame.BLEND_MULT
        self.width = 100
        self.height = 100
        self.borderwidth = 2
        self.borderVisible = False
        self.borderColor = GUI_WINDOW_BGCOLOR
        self.borderColor_LT = pygame.Color(218, 218, 218, 255)
        self.borderColor_RB = pygame.Color(64, 64, 64, 255)
        self.imageAnchor = "wn"
        self.coll_visible = False
        self.coll_rectArray = {}
        self.style = "flat"
        self.WSX = 1.0
        self.WSY = 1.0
        self.WAngle = 0.0
        self.WX = self.GetWX()
        self.WY = self.GetWY()
        self.enable = True

    def SetStyle(self, style, borderVisible=True):
        self.style = style
        self.borderVisible = borderVisible

    def GetImage(self):
        return self.image

    def SwitchImage(self, index):
        if 0 <= index < len(self.imageArray):
            self.image = self.imageArray[index]

    def update(self, delay):
        if self.originalImage != None:
            self.image = self.originalImage.GetImage()
        elif self.imageAutoSwitch == True and self.imageCount > 1:
            self.imageDelay += delay
            if self.imageDelay >= self.imageSwitchDelay:
                self.imageIndex += 1
                while self.imageIndex >= self.imageCount:
                    self.imageIndex -= self.imageCount
                self.SwitchImage(self.imageIndex)
                self.imageDelay -= self.imageSwitchDelay
        GameNode.update(self, delay)

    def draw(self, screen, offsetX=0, offsetY=0, scale=1.0):
        if self.IsVisible() == True:
            if self.alpha > 0:
                self.draw_begin(offsetX, offsetY, scale)
            self.draw_picture(screen)
            self.draw_overlays(screen, offsetX, offsetY, scale)

    def draw_picture(self, screen):
        if self.style != None and self.blendtype != None and self.image != None:
            if self.alpha != 255:
                self.drawimage(screen, faded(self.image, self.alpha))
            else:
                self.drawimage(screen, self.image)
        if self.image == None and self.style != "hollow":
            self.drawBGColor(screen, self.bgColor)

    def draw_overlays(self, screen, offsetX, offsetY, scale):
        self.drawStyle(screen)
        self.drawFocusBorder(screen)
        self.drawDragRect(screen, 6, self.dragcornerindex)
        self.drawAnchor(screen)
        self.drawCollInfo(screen)
        self.draw_children(screen, offsetX, offsetY, scale)
        if self.sceneInstance != None:
            if hasattr(self.sceneInstance, "AddBatchCount"):
                self.sceneInstance.AddBatchCount()
            self.CallInnerEvent("Render")

    def drawimage(self, screen, image):
        size = (int(self.width * self.WSX), int(self.height * self.WSY))
        picture = finished(image, size, self.WAngle, self.bgColor)
        width, height = picture.get_size()
        place = (
            self.WX + self.width / 2 * self.WSX - width / 2,
            self.WY + self.height / 2 * self.WSY - height / 2,
        )
        if self.blendtype != pygame.BLEND_MULT:
            screen.blit(picture, place, special_flags=self.blendtype)
        else:
            screen.blit(picture, place)

    def drawn_box(self):
        return (self.WX, self.WY, self.width * self.WSX, self.height * self.WSY)

    def drawBGColor(self, screen, bgColor):
        if bgColor != None:
            pygame.draw.rect(screen, bgColor, self.drawn_box(), 0)

    def drawStyle(self, screen):
        if self.borderVisible != True or self.IsVisible() != True:
            return
        if self.style == "solid":
            pygame.draw.rect(screen, self.borderColor, self.drawn_box(), self.borderwidth)
        elif self.style == "raised":
            self.drawRelief(screen, self.borderColor_LT, self.borderColor_RB)
        elif self.style == "sunken":
            self.drawRelief(screen, self.borderColor_RB, self.borderColor_LT)

    def drawRelief(self, screen, lefttop, rightbottom):
        left, top, width, height = self.drawn_box()
        right = left + width - 1
        bottom = top + height - 1
        line = pygame.draw.line
        for step in range(self.borderwidth):
            line(screen, lefttop, (left + step, top), (left + step, bottom), 1)
            line(screen, lefttop, (left, top + step), (right, top + step), 1)
        for step in range(self.borderwidth):
            line(screen, rightbottom, (right - step, top), (right - step, bottom), 1)
            line(screen, rightbottom, (left, bottom - step), (right, bottom - step), 1)

    def drawFocusBorder(self, screen):
        if self.focusIn == True:
            pygame.draw.rect(screen, pygame.Color(255, 0, 255), self.drawn_box(), 2)

    def drawCollInfo(self, screen):
        if self.coll_visible == True:
            for rects in self.coll_rectArray.values():
                for rect in rects:
                    pygame.draw.rect(screen, pygame.Color(0, 255, 255), rect, 1)


class GUI_Label(GUI_Image):
    def __init__(self, parent=None, x=0, y=0, text="", fontname="Arial", fontsize=16):
        GUI_Image.__init__(self, parent, x, y)
        self.NodeType = "Label"
        self.text = text
        self.font = pygame.font.SysFont(fontname, fontsize, False, False)
        self.fontname = fontname
        self.fontsize = fontsize
        self.fontbold = False
        self.fontitalic = False
        self.fontunderline = False
        self.strikethrough = False
        self.font.set_underline(False)
        self.font.set_strikethrough(False)
        self.textColor = pygame.Color("black")
        self.HAlign = "center"
        self.VAlign = "center"
        self.textleftgap = 2
        self.texttopgap = 2
        self.textVisible = True
        self.showChar = None

    def drawText(self, screen, text, textColor):
        if self.textVisible != True:
            return
        if self.showChar != None:
            text = self.showChar * len(text)
        width, height = self.font.size(text)
        picture = self.font.render(text, True, textColor).convert_alpha()
        if self.HAlign == "left":
            left = self.textleftgap
        elif self.HAlign == "right":
            left = self.width - width
        else:
            left = (self.width - width) * 0.5
        if self.VAlign == "top":
            top = self.texttopgap
        elif self.VAlign == "bottom":
            top = self.height - height
        else:
            top = (self.height - height) * 0.5
        size = (int(width * self.WSX), int(height * self.WSY))
        picture = pygame.transform.smoothscale(picture, size)
        screen.blit(picture, (self.WX + left * self.WSX, self.WY + top * self.WSY))

    def draw(self, screen, offsetX=0, offsetY=0, scale=1.0):
        if self.IsVisible() == True:
            if self.alpha > 0:
                self.draw_begin(offsetX, offsetY, scale)
            self.draw_picture(screen)
            self.drawText(screen, self.text, self.textColor)
            self.draw_overlays(screen, offsetX, offsetY, scale)


class GUI_Button(GUI_Label):
    def __init__(self, parent=None, x=0, y=0, text="", fontname="Arial", fontsize=16):
        GUI_Label.__init__(self, parent, x, y, text, fontname, fontsize)
        self.NodeType = "Button"
        self.PickDownFunction = None
        self.PickUpFunction = None
        self.textColor = pygame.Color("black")
        self.bgColor = pygame.Color(168, 168, 168, 255)
        self.textColor_hover = pygame.Color("black")
        self.bgColor_hover = pygame.Color(128, 128, 128, 255)
        self.image_hover = None
        self.image_hover_File = None
        self.image_click_File = None
        self.textColor_click = pygame.Color("black")
        self.bgColor_click = pygame.Color(96, 96, 96, 255)
        self.image_click = None
        self.borderVisible = True
        self.SetStyle("raised")

    def draw(self, screen, offsetX=0, offsetY=0, scale=1.0):
        if self.IsVisible() != True:
            return
        self.draw_begin(offsetX, offsetY, scale)
        if self.style != None:
            if self.clicked == True:
                self.drawState(screen, self.bgColor_click, self.image_click, self.textColor_click)
            elif (
                self.drawn_rect().collidepoint(pygame.mouse.get_pos()) and self.NodeType == "Button"
            ):
                self.drawState(screen, self.bgColor_hover, self.image_hover, self.textColor_hover)
            else:
                self.drawState(screen, self.bgColor, self.image, self.textColor)
        self.draw_overlays(screen, offsetX, offsetY, scale)

    def drawState(self, screen, bgColor, image, textColor):
        if self.style != "hollow":
            self.drawBGColor(screen, bgColor)
        if image != None:
            self.drawimage(screen, image)
        self.drawText(screen, self.text, textColor)
