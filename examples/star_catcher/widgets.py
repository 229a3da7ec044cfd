"""The widgets of Star Catcher: text, pictures, sprites and buttons in its own look."""

import pygame
import Tessora

FONT = pygame.font.get_default_font()
CREAM, GOLD, ROSE, SHADOW = (255, 244, 222), (255, 214, 102), (255, 138, 150), (38, 18, 66)


def play_sound(name):
    """A machine without sound plays the game all the same."""
    if pygame.mixer.get_init():
        Tessora.Res.PlaySound(name)


class Text(Tessora.GUI_Label):
    """A centred line of text with a shadow, readable on any background."""

    def __init__(self, x, y, text, size, colour=CREAM):
        super().__init__(None, x, y, text, FONT, size)
        self.SetWidth(300)
        self.SetHeight(size + 8)
        self.SetImageAnchor("center")
        self.SetStyle("hollow", False)
        self.SetTextColor(*colour)

    def drawText(self, screen, text, textColor):
        self.WX, self.WY = self.WX + 2, self.WY + 2
        super().drawText(screen, text, pygame.Color(*SHADOW))
        self.WX, self.WY = self.WX - 2, self.WY - 2
        super().drawText(screen, text, textColor)


class Picture(Tessora.GUI_Image):
    def __init__(self, x, y, file):
        super().__init__(None, x, y)
        self.SetImage(file)
        self.AutoImageSize(True)
        self.DropBGColor()


class Sprite(Tessora.GUI_Image):
    """Shows what an animated model shows, centred on its place."""

    def __init__(self, parent, x, y, model):
        super().__init__(parent, x, y)
        self.UseImage(model, True)
        self.SetImageAnchor("center")


class Sparks(Tessora.ParticleEmitter):
    """A short burst of sparks in one colour."""

    def __init__(self, x, y, tint):
        super().__init__(None, x, y)
        self.InitPS_Explosion()
        # The surface instead of its name: nothing is looked up or printed for each spark.
        self.SetImage(Tessora.Res.LoadImage("fire.png"))
        self.SetBlendType("ADD")
        self.Duration, self.EmissionRate = 0.1, 400
        self.BeginColor = pygame.Color(*tint)
        self.EndColor = pygame.Color(*(part // 2 for part in tint), 0)
        self.BeginColorVar = self.EndColorVar = pygame.Color(0, 0, 0, 0)
        self.Speed, self.SpeedVar, self.Gravity = 190, 110, pygame.math.Vector2(0, 260)
        self.Run()

    def draw(self, screen, offsetX=0, offsetY=0, scale=1.0):
        # The emitter's own draw writes its counter at the mouse, where the net is.
        for spark in list(self.ParticleArray):
            spark.draw(screen, offsetX, offsetY, scale)
            if spark.IsDead():
                self.ParticleArray.remove(spark)
                self.RemoveChild(spark)
                self.ParticleCount -= 1


class Button(Tessora.GUI_Button):
    def __init__(self, x, y, text, action):
        super().__init__(None, x, y, text, FONT, 24)
        self.SetImage("button.png")
        self.SetImage_Hover("button_hover.png")
        self.SetImage_Click("button_click.png")
        self.AutoImageSize(True)
        self.SetStyle("hollow", False)
        self.DropBGColor()
        self.SetTextColor(*CREAM)
        self.SetTextColor_Hover(110, 30, 84)
        self.SetTextColor_Click(*GOLD)
        self.action = action
        self.SetPickUpFunction(self.click)

    def click(self, button):
        play_sound("click.wav")
        self.action()
