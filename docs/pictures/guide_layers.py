"""The pictures of the guide to layers."""

import pygame
import scenes
import Tessora

BLUE = (70, 110, 190)
FONT = pygame.font.get_default_font()
SIZE = 340, 220


def sky():
    return scenes.layer(scenes.image("sky.png", 0, 0, autosize=False, width=340, height=220))


def world(width=340):
    layer = Tessora.GameLayer()
    for x in range(0, width, 32):
        ground = scenes.image("tiles.png", x, 188)
        ground.image = ground.image.subsurface((32, 0, 32, 32))
        ground.width = 32
        layer.AddGameNode(ground)
    for x in range(30, width, 150):
        layer.AddGameNode(scenes.image("tree.png", x, 188, anchor="ws"))
    for x in range(120, width, 150):
        layer.AddGameNode(scenes.image("coin.png", x, 120))
    return layer


def add_hero(layer, x):
    hero = scenes.image("hero.png", x, 188, anchor="s")
    layer.AddGameNode(hero)
    return hero


def hud():
    label = Tessora.GUI_Label(None, 210, 10, "Coins: 3", FONT, 20)
    label.SetWidth(120)
    label.SetHeight(32)
    label.SetStyle("raised")
    label.SetBGColor(250, 240, 200)
    label.SetTextColor(*scenes.INK)
    return scenes.layer(label)


def shown(*layers):
    screen = scenes.window(*SIZE)
    for layer in layers:
        scenes.play(screen, layer)
    pygame.draw.rect(screen, scenes.FAINT, screen.get_rect(), 1)
    return screen.copy()


def stack():
    middle = world()
    add_hero(middle, 210)
    return scenes.sheet(
        (
            ("sky", shown(sky())),
            ("world", shown(middle)),
            ("hud", shown(hud())),
            ("all three, in this order", shown(sky(), middle, hud())),
        ),
        2,
    )


def camera():
    wide = 720
    layer = world(wide)
    hero = add_hero(layer, 510)
    screen = scenes.window(wide, 220, scenes.SKY)
    scenes.play(screen, layer)
    whole = screen.copy()
    left = hero.GetX() - SIZE[0] / 2
    pygame.draw.rect(whole, scenes.ACCENT, (left, 0, SIZE[0], 220), 3)
    scenes.arrow(whole, (0, 20), (left, 20), text="", both=True)
    scenes.caption(whole, "340 pixels", left / 2, 26, color=scenes.ACCENT, align="center")
    screen = scenes.window(*SIZE, color=scenes.SKY)
    layer.scrollPosX = -left
    scenes.play(screen, layer)
    view = screen.copy()
    pygame.draw.rect(view, scenes.ACCENT, view.get_rect(), 3)
    return scenes.sheet((("the layer's world", whole), ("the window: scrollPosX = -340", view)), 1)


def scroll():
    width, height = 200, 130
    snaps = []
    layer = Tessora.GameLayer()
    for x in (-width, 0, width):
        copy = scenes.image("sky.png", x, 0, autosize=False, width=width, height=height)
        layer.AddGameNode(copy)
        layer.AddGameNode(scenes.image("tree.png", x + 110, 128, anchor="ws"))
    layer.OnLoad(scenes.Scene((width, height)))
    layer.SetAutoScroll(1, 60)
    for seconds in (0, 1, 1, 1.3, 0.1, 1):
        screen = scenes.window(width, height)
        for _ in range(round(seconds * 60)):
            layer.update(1 / 60)
        screen.fill(scenes.PAPER)
        layer.draw(screen)
        snaps.append((f"scrollPosX {layer.scrollPosX:.0f}", screen.copy()))
    return scenes.sheet(snaps, 3)


def shapes():
    layer = world()
    add_hero(layer, 210)
    layer.AddPoint("spawn", 0, 210, 60)
    layer.AddRect("reach", 0, 150, 100, 270, 200)
    layer.AddLine("drop", 0, 210, 60, 210, 188)
    screen = scenes.window(*SIZE, color=scenes.SKY)
    scenes.play(screen, layer)
    return screen.copy()


def zoom():
    class ZoomLayer(Tessora.GameLayer):
        zoom = 1.0

        def draw(self, screen):
            for number in self.SortGameNodeInstanceIDArray:
                node = self.GetGameNode(number)
                node.draw(screen, self.scrollPosX, self.scrollPosY, self.zoom)

    def view(amount):
        layer = ZoomLayer()
        for node in world().GetAllGameNode().values():
            layer.AddGameNode(node)
        add_hero(layer, 200)
        layer.zoom = amount
        layer.scrollPosX = 170 - 170 * amount
        layer.scrollPosY = 188 - 188 * amount
        screen = scenes.window(*SIZE, color=scenes.SKY)
        layer.draw(screen)
        return screen.copy()

    return scenes.sheet((("zoom 1", view(1.0)), ("zoom 1.5", view(1.5))), 2)


def pictures():
    scenes.window()
    return {
        "stack": stack(),
        "camera": camera(),
        "scroll": scroll(),
        "shapes": shapes(),
        "zoom": zoom(),
    }
