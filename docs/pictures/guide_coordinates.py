"""The pictures of the guide to coordinates."""

import pygame
import scenes
import Tessora

BLUE = (70, 110, 190)
FONT = pygame.font.get_default_font()


def box(parent, x, y, width, height, color, anchor="wn"):
    made = Tessora.GUI_Image(parent, x, y)
    made.SetWidth(width)
    made.SetHeight(height)
    made.SetBGColor(*color)
    made.SetImageAnchor(anchor)
    return made


def places():
    screen = scenes.window(700, 300)
    scenes.grid(screen, 100)
    field = box(None, 100, 50, 560, 220, (214, 226, 244))
    hero = scenes.image("hero.png", 200, 100)
    hero.SetParent(field)
    scenes.play(screen, scenes.layer(field))
    scenes.arrow(screen, (0, 30), (100, 30), BLUE, both=True)
    scenes.caption(screen, "x = 100", 50, 8, 14, BLUE, "center")
    scenes.dot(screen, (100, 50), BLUE)
    scenes.caption(screen, "field", 112, 56, 15, BLUE, bold=True)
    scenes.arrow(screen, (100, 150), (300, 150), text="x = 200")
    scenes.arrow(screen, (300, 50), (300, 150), text="y = 100")
    scenes.dot(screen, (300, 150))
    scenes.caption(
        screen, "hero\nSetXY(200, 100) in the field:\non the screen at (300, 150)", 360, 160
    )
    return screen.copy()


def anchors():
    screen = scenes.window(700, 266)
    keywords = (("wn", "n", "en"), ("w", "center", "e"), ("ws", "s", "es"))
    nodes, marks = [], []
    for row, names in enumerate(keywords):
        for column, name in enumerate(names):
            x, y = 130 + 220 * column, 20 + 110 * row
            nodes.append(scenes.image("hero.png", x, y, anchor=name))
            marks.append((name, (x, y)))
    scenes.play(screen, scenes.layer(*nodes))
    for (name, place), node in zip(marks, nodes):
        pygame.draw.rect(screen, BLUE, node.GetSizeRect(), 1)
        scenes.dot(screen, place)
        scenes.caption(screen, f'"{name}"', place[0] + 56, place[1] - 10, color=scenes.ACCENT)
    return screen.copy()


def family(scale=1.0, angle=0, parent_anchor="wn", x=60, y=40):
    screen = scenes.window(220, 200)
    parent = scenes.image("tree.png", x, y, anchor=parent_anchor)
    child = scenes.image("coin.png", 70, 90)
    child.SetParent(parent)
    parent.SetSXY(scale, scale)
    parent.SetAngle(angle)
    scenes.play(screen, scenes.layer(parent))
    left, top = int(parent.GetWX()), int(parent.GetWY())
    pygame.draw.line(screen, scenes.ACCENT, (left, top), (left + 70, top + 90), 1)
    scenes.dot(screen, (left, top), BLUE)
    scenes.dot(screen, (left + 70, top + 90))
    return screen.copy()


def children():
    return scenes.sheet(
        (
            ("the coin is a child,\nat (70, 90) in the tree", family()),
            ("parent.SetSXY(1.5, 1.5):\nboth grow, the coin stays", family(1.5)),
            ("parent.SetAngle(30):\nboth turn, the coin stays", family(angle=30)),
        )
    )


def middle():
    return scenes.sheet(
        (
            ('anchor "center",\nscale 1', family(1, 0, "center", 90, 90)),
            ('anchor "center",\nscale 1.5', family(1.5, 0, "center", 90, 90)),
        ),
        2,
    )


def picking():
    screen = scenes.window(700, 230)
    straight = scenes.image("tree.png", 60, 50)
    turned = scenes.image("tree.png", 280, 50, angle=50)
    off = scenes.image("tree.png", 520, 50, anchor="s", angle=50)
    off.SetXY(552, 146)
    scenes.play(screen, scenes.layer(straight, turned, off))
    for node in (straight, turned, off):
        area = (node.WX, node.WY, node.width * node.WSX, node.height * node.WSY)
        pygame.draw.rect(screen, scenes.ACCENT, area, 2)
    scenes.dot(screen, (552, 146), BLUE)
    scenes.caption(screen, "drawn and hit\nat the same place", 92, 170, align="center")
    scenes.caption(screen, "angle 50: the hit\nrectangle stays", 312, 170, align="center")
    scenes.caption(
        screen, 'anchor "s": it turns about\nits middle all the same', 552, 170, align="center"
    )
    return screen.copy()


def order():
    def stack(change):
        screen = scenes.window(222, 130)
        layer = Tessora.GameLayer()
        ids = []
        for index, color in enumerate(((230, 120, 110), (120, 180, 120), (110, 150, 220))):
            node = Tessora.GUI_Label(None, 8 + 58 * index, 10 + 28 * index, str(index), FONT, 24)
            node.SetWidth(90)
            node.SetHeight(56)
            node.SetStyle("solid")
            node.SetBGColor(*color)
            node.SetBorderColor(*scenes.INK)
            ids.append(layer.AddGameNode(node))
        change(layer, ids)
        scenes.play(screen, layer)
        return screen.copy()

    return scenes.sheet(
        (
            ("added in the order 0, 1, 2", stack(lambda layer, ids: None)),
            ("LayerUpGameNode(0)", stack(lambda layer, ids: layer.LayerUpGameNode(ids[0]))),
            ("LayerDownGameNode(2)", stack(lambda layer, ids: layer.LayerDownGameNode(ids[2]))),
        )
    )


def pictures():
    return {
        "places": places(),
        "anchors": anchors(),
        "children": children(),
        "middle": middle(),
        "picking": picking(),
        "order": order(),
    }
