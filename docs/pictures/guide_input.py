"""The pictures of the guide to input."""

import contextlib
import io

import pygame
import scenes
import Tessora

FONT = pygame.font.get_default_font()
RED, GREEN, BLUE = (230, 120, 110), (120, 180, 120), (110, 150, 220)
PRESSED = (255, 216, 96)


def card(parent, x, y, color):
    made = Tessora.GUI_Image(parent, x, y)
    made.SetWidth(100)
    made.SetHeight(80)
    made.SetBGColor(*color)
    made.SetStyle("solid")
    made.SetBorderColor(*scenes.INK)
    made.SetPickDownFunction(lambda node: node.SetBGColor(*PRESSED))
    return made


def pointer(surface, x, y):
    shape = ((0, 0), (0, 17), (4, 13), (7, 20), (10, 19), (7, 12), (13, 12))
    corners = [(x + right, y + down) for right, down in shape]
    pygame.draw.polygon(surface, (255, 255, 255), corners)
    pygame.draw.polygon(surface, (0, 0, 0), corners, 1)


def pressed(nodes_of):
    screen = scenes.window(220, 140)
    layer = scenes.layer(*nodes_of())
    layer.draw(screen)
    with contextlib.redirect_stdout(io.StringIO()):
        layer.OnPickDownFunction(100, 80)
    layer.draw(screen)
    pointer(screen, 100, 80)
    return screen.copy()


def top_nodes():
    return card(None, 20, 14, RED), card(None, 70, 44, BLUE)


def siblings():
    root = Tessora.GameNode(None)
    card(root, 20, 14, RED)
    card(root, 70, 44, BLUE)
    return (root,)


def deaf():
    root = Tessora.GameNode(None)
    card(root, 20, 14, RED)
    card(root, 70, 44, BLUE).EnablePickDownEvent(False)
    return (root,)


def overlap():
    return scenes.sheet(
        (
            ("two nodes of a layer:\nboth are pressed", pressed(top_nodes)),
            ("two children: the\nupper one only", pressed(siblings)),
            ("EnablePickDownEvent(False)\nfor the upper child", pressed(deaf)),
        )
    )


def handles():
    screen = scenes.window(520, 240)
    node = scenes.image("tree.png", 60, 30)
    node.SetSXY(1.6, 1.6)
    node.SetEditRectVisible(True)
    scenes.play(screen, scenes.layer(node))
    for index in range(9):
        x = node.WX + index % 3 / 2 * node.width * node.WSX
        y = node.WY + index // 3 / 2 * node.height * node.WSY
        right, down = (-20, 8, 10)[index % 3], (-22, -8, 8)[index // 3]
        color = (255, 255, 255) if index == 4 else scenes.ACCENT
        scenes.caption(screen, str(index), int(x) + right, int(y) + down, 15, color)
    text = "handle 4 moves the node,\nthe others change its size;\nthe opposite edges stay"
    scenes.caption(screen, text, 240, 80)
    return screen.copy()


def focus():
    screen = scenes.window(640, 90)
    nodes = []
    for index, (text, has_focus) in enumerate((("Ada", True), ("Grace", False))):
        edit = Tessora.GUI_Edit(None, 30 + 300 * index, 24, text, FONT, 20)
        edit.SetWidth(260)
        edit.SetHeight(40)
        edit.SetBGColor(225, 220, 235)
        edit.SetBGColor_Focus(255, 255, 255)
        edit.SetTextColor(*scenes.INK)
        edit.SetFocusIn(has_focus)
        nodes.append(edit)
    scenes.play(screen, scenes.layer(*nodes))
    return screen.copy()


def pictures():
    scenes.window()
    return {"overlap": overlap(), "handles": handles(), "focus": focus()}
