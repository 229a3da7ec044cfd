import pygame
import pytest
import Tessora as T
from helpers import Recorder, Scene, ink


class Noted(T.GameNode):
    """Notes every step of a frame under its name."""

    log = []

    def __init__(self, parent, name):
        T.GameNode.__init__(self, parent)
        self.name = name


def noting(method):
    def step(self, *args):
        Noted.log.append((self.name, method) + args)
        return getattr(T.GameNode, method)(self, *args)

    return step


for _name in "draw draw_begin drawsize drawAnchor drawDragRect draw_children update".split():
    setattr(Noted, _name, noting(_name))


@pytest.fixture
def log():
    Noted.log = []
    return Noted.log


def test_steps_of_a_draw(screen, log):
    root, scene = Noted(None, "r"), Scene()
    root.dragcornerindex = 3
    child = Noted(root, "c")
    child.IsVisible = lambda: log.append("asked") or True
    root.OnLoad(scene)
    root.SetInnerBindingEvent("Render", "drawn", None)
    assert root.draw(screen, 5, 6, 2) is None
    assert log == [
        ("r", "draw", screen, 5, 6, 2),
        ("r", "draw_begin", 5, 6, 2),
        ("r", "drawsize", screen),
        ("r", "drawAnchor", screen, 2),
        ("r", "drawDragRect", screen, 6, 3),
        ("r", "draw_children", screen, 5, 6, 2),
        "asked",
        ("c", "draw", screen, 5, 6, 2),
        "asked",
        ("c", "draw_begin", 5, 6, 2),
        ("c", "drawsize", screen),
        ("c", "drawAnchor", screen, 2),
        ("c", "drawDragRect", screen, 6, -2),
        ("c", "draw_children", screen, 5, 6, 2),
    ]
    assert scene.calls == [("on_drawn", {})]


def test_draw_defaults_and_keywords(screen):
    node = T.GameNode(None, 10, 10)
    node.draw(screen)
    assert (node.WX, node.WY, node.WSX) == (10, 10, 1)
    node.draw(scale=2, offsetY=1, offsetX=0, screen=screen)
    assert (node.WX, node.WY, node.WSX) == (20, 21, 2)
    with pytest.raises(TypeError):
        node.draw()


def test_no_surface_is_touched_without_overlays():
    screen = Recorder()
    parent = T.GameNode(None)
    T.GameNode(parent)
    parent.draw(screen, 0, 0, 1.0)
    assert screen.calls == []


@pytest.mark.parametrize("flag, shown", [(1, True), (1.0, True), (2, False), ("yes", False)])
def test_visible_is_an_equality(screen, log, flag, shown):
    root = Noted(None, "r")
    child = Noted(root, "c")
    child.SetVisible(flag)
    root.draw(screen, 0, 0, 1.0)
    assert (("c", "draw_begin", 0, 0, 1.0) in log) is shown
    log.clear()
    root.SetVisible(flag)
    child.SetVisible(True)
    root.draw(screen, 0, 0, 1.0)
    assert (("c", "draw_begin", 0, 0, 1.0) in log) is shown


def test_flag_objects_decide_by_their_equality(screen, log):
    class Flag:
        def __init__(self, answer):
            self.answer = answer

        def __eq__(self, other):
            return self.answer if other is True else NotImplemented

    node = Noted(None, "n")
    node.visible = Flag(True)
    node.draw(screen)
    node.visible = Flag([])
    node.draw(screen)
    assert [entry[1] for entry in log].count("draw_begin") == 1

    class Broken:
        def __eq__(self, other):
            raise LookupError("compare")

    node.visible = Broken()
    with pytest.raises(LookupError):
        node.draw(screen)


def test_hidden_nodes_keep_stale_values_but_are_updated(screen, log):
    root = Noted(None, "r")
    child = Noted(root, "c")
    root.SetXY(10, 10)
    root.SetVisible(False)
    root.draw(screen, 1, 1, 1.0)
    root.update(0.5)
    assert root.WX == child.WX == 0.0
    assert log[1:] == [("r", "update", 0.5), ("c", "update", 0.5)]


def test_update_order():
    log = []
    root = T.GameNode(None)
    for name in "ab":
        child = T.GameNode(root)
        child.UpdateFunction = lambda delay, name=name: log.append((name, delay))
        child.SetVisible(False)
    root.ActionPlayer = Recorder()
    root.ActionPlayer.calls = log
    root.SetUpdateFunction(lambda delay: log.append(("r", delay)))
    assert root.update(delay=0.25) is None
    assert log == [("a", 0.25), ("b", 0.25), ("update", (0.25,)), ("r", 0.25)]


@pytest.mark.parametrize("delay", [None, "late", 10**30, float("nan"), []])
def test_update_hands_the_delay_on_as_it_is(delay):
    log = []
    root = T.GameNode(None)
    T.GameNode(root).SetUpdateFunction(log.append)
    root.update(delay)
    assert len(log) == 1 and log[0] is delay


@pytest.mark.parametrize("function", [0, "", 5, False])
def test_whatever_is_not_none_is_called(function):
    node = T.GameNode(None)
    node.UpdateFunction = function
    with pytest.raises(TypeError):
        node.update(1)
    node.UpdateFunction = None
    node.update(1)


def test_an_error_in_a_callback_ends_the_frame_only():
    log = []
    root = T.GameNode(None)
    first, second = T.GameNode(root), T.GameNode(root)
    first.UpdateFunction = lambda delay: [].pop()
    second.UpdateFunction = log.append
    with pytest.raises(IndexError):
        root.update(1)
    first.UpdateFunction = None
    root.update(2)
    assert log == [2]


def test_run_action_order():
    log = []

    class Node(T.GameNode):
        pass

    node = Node(None)
    node.ActionPlayer = Recorder()
    node.RunAction("a", "b")
    assert node.ActionPlayer.calls == [("CleanUp", ()), ("AddActions", (("a", "b"),)), ("Run", ())]
    node.ActionPlayer = None
    node.RunAction(T.CallBackAction(0, log.append, a=1), T.CallBackAction(0, log.append))
    player = node.ActionPlayer
    assert type(player) is T.ActionPlayer and player.targetNode is node
    node.update(0)
    node.RunAction(T.CallBackAction(0, log.append, b=2))
    assert node.ActionPlayer is player and len(player.ActionArray[0]) == 1
    node.update(0)
    node.update(0)
    assert log == [{"a": 1}, {"b": 2}]


def test_run_action_without_actions():
    node = T.GameNode(None)
    with pytest.raises(IndexError):
        node.RunAction()
    assert node.ActionPlayer.ActionArray == ((),)
    with pytest.raises(AttributeError):
        node.update(1)
    node.RunAction(T.CallBackAction(5, None))
    node.update(1)
    with pytest.raises(IndexError):
        node.RunAction()
    with pytest.raises(IndexError):
        node.update(1)
    with pytest.raises(TypeError):
        node.RunAction(action=T.GAction())
    with pytest.raises(AttributeError):
        node.RunAction(5)


def test_render_event_survives_missing_entries(screen):
    node, scene = T.GameNode(None), Scene()
    node.OnLoad(scene)
    node.CleanUpInnerBindingEvent()
    node.draw(screen)
    node.OnLoad(object())
    node.SetInnerBindingEvent("Render", "drawn", None)
    node.draw(screen)
    assert scene.calls == []


def boxed(**values):
    node = T.GameNode(None, 60, 50)
    node.SetWidth(80)
    node.SetHeight(40)
    for name, value in values.items():
        setattr(node, name, value)
    return node


@pytest.mark.parametrize("camera", [(0, 0, 1.0), (20, 10, 1.5)])
def test_size_rectangle_overlay(screen, camera):
    node = boxed(rectvisible=True)
    node.draw(screen, *camera)
    drawn = pygame.Rect(node.WX, node.WY, node.width * node.WSX, node.height * node.WSY)
    area = ink(screen)
    assert drawn.inflate(4, 4).contains(area) and area.contains(drawn.inflate(-4, -4))
    assert screen.get_at(drawn.center)[:3] == (0, 0, 0)


@pytest.mark.parametrize("anchor", [(0, 0), (0.5, 0.5), (1, 1)])
def test_anchor_overlay(screen, anchor):
    node = boxed(anchorvisible=True)
    node.SetAXY(*anchor)
    node.draw(screen, 10, 5, 1.0)
    area = ink(screen)
    assert 0 < area.width <= 40 and 0 < area.height <= 40
    assert area.inflate(4, 4).collidepoint(70, 55)


def test_edit_rectangle_overlay(screen):
    node = boxed(editrectvisible=True)
    node.draw(screen, 0, 0, 1.0)
    drawn = pygame.Rect(60, 50, 80, 40)
    area = ink(screen)
    assert drawn.inflate(14, 14).contains(area) and area.contains(drawn.inflate(-4, -4))
    for x in (drawn.left, drawn.centerx, drawn.right):
        for y in (drawn.top, drawn.centery, drawn.bottom):
            spot = pygame.Rect(0, 0, 12, 12)
            spot.center = x, y
            assert ink(screen.subsurface(spot)).size != (0, 0), (x, y)


@pytest.mark.parametrize("overlay", ["rectvisible", "anchorvisible", "editrectvisible"])
@pytest.mark.parametrize("flag", [1, 2, "yes", None])
def test_overlay_flags_are_equalities(screen, overlay, flag):
    node = boxed(**{overlay: flag})
    node.draw(screen)
    assert (ink(screen).width > 0) is (flag == 1)


@pytest.mark.parametrize("overlay", ["rectvisible", "anchorvisible", "editrectvisible"])
@pytest.mark.parametrize("number", [float("nan"), float("inf"), -1e20, 10**30, 2**31, "wide"])
@pytest.mark.parametrize("attribute", ["x", "width", "sx", "anchorx"])
def test_overlays_of_impossible_places_fail_in_an_ordinary_way(screen, overlay, number, attribute):
    node = boxed(**{overlay: True, attribute: number})
    try:
        node.draw(screen)
    except (TypeError, ValueError, OverflowError, pygame.error):
        pass
    setattr(node, attribute, 1)
    node.draw(screen)
    assert ink(screen).width > 0


@pytest.mark.parametrize("surface", [None, 5, "screen"])
def test_overlays_need_a_surface(screen, surface):
    node = boxed(rectvisible=True)
    with pytest.raises((TypeError, AttributeError)):
        node.draw(surface)
    node.draw(screen)
    assert ink(screen).width > 0


def test_draw_to_surface(screen, log):
    canvas = pygame.Surface((200, 150))
    root = boxed(rectvisible=True)
    child = T.GameNode(root, 5, 5)
    root.drawToSurface(canvas, 10, 0, 1.0)
    assert ink(screen).size == (0, 0) and ink(canvas).width >= 76
    assert (root.WX, child.WX) == (70, 75)
    canvas.fill((0, 0, 0))
    child.SetWidth(9)
    child.SetHeight(9)
    child.SetSizeRectVisible(True)
    root.drawToSurface_children(canvas, 0, 0, 1.0)
    assert child.WX == 65 and root.WX == 70 and 0 < ink(canvas).width < 20
    root.drawToSurface(canvas)
    assert root.WX == 60


@pytest.mark.parametrize("method", ["draw", "draw_children", "update", "GetAllChildrens"])
def test_a_node_below_itself_is_a_recursion_error(screen, method):
    node = T.GameNode(None)
    node.AddChild(node)
    arguments = {"update": (1,), "GetAllChildrens": ()}.get(method, (screen, 0, 0, 1.0))
    with pytest.raises(RecursionError):
        getattr(node, method)(*arguments)
    node.children = []
    getattr(node, method)(*arguments)
