"""Drawing and updating a node."""

import pygame
import pytest
import Tessora as T
from helpers import Recorder, ink, make_node

OVERLAYS = ["rectvisible", "anchorvisible", "editrectvisible"]
STEPS = "draw draw_begin drawsize drawAnchor drawDragRect draw_children update".split()
LOG = []


def noting(name, method):
    return lambda self, *args: (LOG.append((self.userData, name, *args)), method(self, *args))[1]


Noted = type("Noted", (T.GameNode,), {n: noting(n, getattr(T.GameNode, n)) for n in STEPS})


def family():
    root, child = Noted(None), Noted(None)
    root.userData, child.userData, root.children = "r", "c", [child]
    LOG.clear()
    return root, child


def test_steps_of_a_draw(screen):
    root, child = family()
    root.dragcornerindex = child.dragcornerindex = 3
    root.draw(screen, 5, 6, 2)
    camera = (screen, 5, 6, 2)
    steps = [("draw", *camera), ("draw_begin", *camera[1:]), ("drawsize", screen)]
    steps += [("drawAnchor", screen, 2), ("drawDragRect", screen, 6, 3), ("draw_children", *camera)]
    assert [(name, *step) for name in "rc" for step in steps] == LOG
    # Without overlays the surface is not touched.
    T.GameNode.draw(root, scale=3, offsetY=1, offsetX=0, screen=None)
    assert root.WY == 1 and root.WSX == child.WSX == 3


class Flag:
    def __init__(self, answer):
        self.answer = answer

    def __eq__(self, other):
        return self.answer if other is True else NotImplemented


@pytest.mark.parametrize("flag", [True, 1, 1.0, Flag([5]), 2, "yes", None, Flag([])])
def test_flags_are_equalities(screen, flag):
    (root, child), shown = family(), bool(flag == True)  # noqa: E712
    for hidden, other in ((child, root), (root, child)):
        LOG.clear()
        hidden.visible, other.visible = flag, True
        root.draw(screen, 0, 0, 1.0)
        assert (("c", "draw_begin", 0, 0, 1.0) in LOG) is shown
    # Hidden nodes keep their stale values but are updated.
    root.x = 10
    root.update(0.5)
    assert root.WX == 0 and LOG[-2:] == [("r", "update", 0.5), ("c", "update", 0.5)]
    for overlay in OVERLAYS:
        screen.fill((0, 0, 0))
        make_node(None, x=60, y=50, width=80, height=40, **{overlay: flag}).draw(screen)
        assert (ink(screen).width > 0) is shown


@pytest.mark.parametrize("delay", [0.25, None, "late", 10**30, []])
def test_update_order(delay):
    log = []
    root = make_node(None, UpdateFunction=lambda delay: log.append(("r", delay)))
    for name in "ab":
        child = make_node(root, visible=False)
        child.SetUpdateFunction(lambda delay, name=name: log.append((name, delay)))
    root.ActionPlayer = Recorder()
    root.ActionPlayer.calls = log
    root.update(delay=delay)
    assert log == [("a", delay), ("b", delay), ("update", (delay,)), ("r", delay)]


@pytest.fixture(params=[(0, 0, 1.0), (20, 10, 1.5)], ids=["plain", "camera"])
def canvas(request, screen):
    """Draws a node of 80 x 40 about 60, 50 on a surface of its own; gives it and the place."""

    def draw(**overlay):
        surface = screen.copy()
        node = make_node(None, x=60, y=50, width=80, height=40, anchorx=0.5, anchory=0.5, **overlay)
        node.drawToSurface(surface, *request.param)
        assert ink(screen).size == (0, 0)
        place = (node.WX, node.WY, node.width * node.WSX, node.height * node.WSY)
        return surface, pygame.Rect(place)

    return draw


@pytest.mark.parametrize("overlay", ["rectvisible", "editrectvisible"])
def test_rectangles_outline_the_node(canvas, overlay):
    surface, drawn = canvas(**{overlay: True})
    assert drawn.inflate(14, 14).contains(ink(surface))
    assert ink(surface).contains(drawn.inflate(-4, -4))
    for x, y in (drawn.topleft, drawn.midtop, drawn.midright, drawn.bottomright):
        spot = pygame.Rect(x - 6, y - 6, 12, 12).clip(surface.get_rect())
        assert ink(surface.subsurface(spot)).size != (0, 0), (x, y)


def test_a_small_marker_shows_the_anchor(canvas):
    surface, drawn = canvas(anchorvisible=True)
    area = ink(surface)
    assert 0 < area.width <= 60 and 0 < area.height <= 60
    assert area.inflate(4, 4).collidepoint(drawn.center)


@pytest.mark.parametrize("overlay", OVERLAYS)
def test_what_cannot_be_drawn_on_is_refused(overlay):
    node = make_node(None, width=80, height=40, **{overlay: True})
    pytest.raises((TypeError, AttributeError), node.draw, "screen")
