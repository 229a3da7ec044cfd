"""The pictures of the guide to the scene."""

import pygame
import scenes
import Tessora

FONT = pygame.font.get_default_font()
GREEN, GREY = (112, 184, 100), (190, 186, 200)
VIEW = 200, 20, 320, 180


class Game:
    def GetViewPort(self):
        return VIEW


def plate(layer, x, y, width, height, text, color=(250, 240, 200), size=15):
    label = Tessora.GUI_Label(None, x, y, text, FONT, size)
    label.SetWidth(width)
    label.SetHeight(height)
    label.SetStyle("solid")
    label.SetBorderColor(*scenes.INK)
    label.SetBGColor(*color)
    label.SetTextColor(*scenes.INK)
    layer.AddGameNode(label)
    return label


def calls():
    screen = scenes.window(740, 360)
    layer = Tessora.GameLayer()
    plate(layer, 20, 20, 200, 320, "your scene", (214, 226, 244), 18)
    for y, name in (
        (30, "GameLayer"),
        (106, "GUI_Image ..."),
        (182, "TiledMap"),
        (258, "GameCharacter"),
    ):
        plate(layer, 580, y, 140, 60, name)
    scenes.play(screen, layer)
    for y, text in (
        (48, "GetSceneSize(), while it scrolls by itself"),
        (78, "on_<Layer>_<function>()"),
        (124, "AddBatchCount(), GetViewPort()"),
        (154, "on_<function>(), of every node"),
        (212, "GetLayerResNode(index)"),
        (288, "SetPlayer(character)"),
    ):
        scenes.arrow(screen, (576, y), (226, y))
        scenes.caption(screen, text, 400, y - 19, 14, scenes.ACCENT, "center")
    return screen.copy()


def viewport():
    screen = scenes.window(720, 220)
    layer = Tessora.GameLayer()
    layer.OnLoad(Game())
    for x, y in ((40, 60), (122, 130), (230, 50), (330, 110), (410, 30), (502, 150), (560, 80)):
        label = plate(layer, x, y, 90, 40, "")
        inside = label.CheckInViewPort()
        label.SetText("true" if inside else "false")
        label.SetBGColor(*(GREEN if inside else GREY))
    scenes.play(screen, layer)
    pygame.draw.rect(screen, scenes.ACCENT, VIEW, 3)
    scenes.caption(screen, "GetViewPort()", 204, 24, color=scenes.ACCENT)
    return screen.copy()


def pictures():
    scenes.window()
    return {"calls": calls(), "viewport": viewport()}
