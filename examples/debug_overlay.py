"""A debug overlay for a whole layer: frames per second, the number of nodes, and their rectangles.

F1 switches it. A node's rectangle is what presses hit; its dot is the anchor. Under the mouse a
node tells its kind, its place and its size.
"""

import time
from collections import deque

import pygame
import Tessora
from example_window import FONT, HEIGHT, WIDTH, run

COLORS = {"Image": (120, 220, 255), "Label": (255, 214, 102), "Button": (255, 138, 150)}
OTHER = (190, 255, 150)


def family(node, seen=True):
    """A node and all its descendants, each with whether it is seen."""
    seen = seen and node.IsVisible()
    yield node, seen
    for child in node.children:
        yield from family(child, seen)


class DebugOverlay(Tessora.GameNode):
    """Draws over a layer what its nodes are; add it to a layer of its own, above."""

    def __init__(self, layer):
        super().__init__(None)
        self.watched = layer
        self.font = pygame.font.Font(None, 18)
        self.frames = deque(maxlen=60)
        self.SetKeyDownFunction("f1", lambda: self.SetVisible(not self.IsVisible()))

    def draw(self, screen, offsetX=0, offsetY=0, scale=1.0):
        if not self.IsVisible():
            return
        self.frames.append(time.perf_counter())
        tops = self.watched.GetAllGameNode().values()
        nodes = [found for top in tops for found in family(top)]
        pointed = None
        for node, seen in nodes:
            if seen:
                # The values of the last draw, which are those that a press is compared with.
                area = pygame.Rect(node.WX, node.WY, node.width * node.WSX, node.height * node.WSY)
                color = COLORS.get(node.GetNodeType(), OTHER)
                pygame.draw.rect(screen, color, area, 1)
                anchor = area.x + node.GetAXW() * node.WSX, area.y + node.GetAYH() * node.WSY
                pygame.draw.circle(screen, color, anchor, 3)
                if area.collidepoint(pygame.mouse.get_pos()):
                    pointed = node, area
        if pointed is not None:
            self.tell(screen, *pointed)
        self.write(screen, 8, 8, [self.rate(), f"{len(nodes)} nodes, F1 hides this"])

    def rate(self):
        if len(self.frames) < 2:
            return "... frames per second"
        seconds = self.frames[-1] - self.frames[0]
        return f"{(len(self.frames) - 1) / seconds:.0f} frames per second"

    def tell(self, screen, node, area):
        pygame.draw.rect(screen, (255, 255, 255), area, 2)
        lines = [
            f"{type(node).__name__} {node.GetInstanceID()}",
            f"at {node.GetX():.0f}, {node.GetY():.0f}, angle {node.GetWAngle():.0f}",
            f"{node.width:.0f} x {node.height:.0f}, scale {node.GetWSX():.2f}",
        ]
        self.write(screen, area.right + 6, area.y, lines)

    def write(self, screen, x, y, lines):
        texts = [self.font.render(line, True, (255, 255, 255)) for line in lines]
        width, step = max(text.get_width() for text in texts), self.font.get_linesize()
        x = min(x, screen.get_width() - width - 14)
        panel = pygame.Surface((width + 12, len(texts) * step + 8), pygame.SRCALPHA)
        panel.fill((0, 0, 0, 190))
        screen.blit(panel, (x, y))
        for row, text in enumerate(texts):
            screen.blit(text, (x + 6, y + 4 + row * step))


def build(layer, above):
    for x, kind in ((120, "star"), (330, "comet"), (520, "grump")):
        sprite = Tessora.GUI_Image(None, x, 150)
        sprite.LoadImageFramesPList("sprites.plist")
        sprite.LoadAnimationPlist("animations.plist", kind)
        sprite.SetAutoSwitch(True)
        sprite.AutoImageSize(True)
        sprite.SetImageAnchor("center")
        sprite.SetUpdateFunction(lambda delay, node=sprite: node.SetAngle(node.angle + 30 * delay))
        layer.AddGameNode(sprite)
    panel = Tessora.GUI_Image(None, 120, 240)
    panel.SetWidth(400)
    panel.SetHeight(110)
    panel.SetBGColor(60, 48, 104)
    layer.AddGameNode(panel)
    for x, text in ((24, "Play"), (212, "Options")):
        button = Tessora.GUI_Button(panel, x, 34, text, FONT, 18)
        button.SetWidth(164)
        button.SetHeight(42)
    title = Tessora.GUI_Label(None, WIDTH / 2, HEIGHT - 24, "The layer below", FONT, 16)
    title.SetWidth(200)
    title.SetHeight(24)
    title.SetImageAnchor("center")
    title.SetStyle("hollow", False)
    title.SetTextColor(255, 244, 222)
    layer.AddGameNode(title)
    above.AddGameNode(DebugOverlay(layer))


SCRIPT = ((0.5, pygame.MOUSEMOTION, (120, 150)),)

if __name__ == "__main__":
    run("debug_overlay", build, SCRIPT, layers=2)
