"""Trees and links far deeper than any recursion: an ordinary error at worst, never a crash."""

import pytest
from helpers import script_output

SETUP = """
import gc
import os
import sys
os.environ["SDL_VIDEODRIVER"] = "dummy"
import pygame
import Tessora as T
pygame.init()
screen = pygame.display.set_mode((64, 48))
DEPTH = {depth}
root = last = T.{cls}
for _ in range(DEPTH):
    node = T.{cls}
    node.parent = last
    last.children.append(node)
    last = node
def attempt(act):
    try:
        act()
    except RecursionError:
        pass
def count():
    return sum(isinstance(thing, T.GameNode) for thing in gc.get_objects())
"""

ACTS = [
    "last.GetWX()",
    "last.GetWXY()",
    "last.GetWSXY()",
    "last.GetWAngle()",
    "last.GetCenterXY()",
    "last.GetSizeRect()",
    "last.draw(screen, 0, 0, 1.0)",
    "root.draw(screen, 0, 0, 1.0)",
    "root.drawToSurface(screen, 0, 0, 1.0)",
    "root.update(0.1)",
    "root.OnLoad('scene')",
    "root.OnPickDownFunction(500, 500)",
    "root.OnPickUpFunction(500, 500)",
    "root.OnEditRectDraging(1, 1)",
    "root.GetAllChildrens()",
    "root.GetLeft()",
    "root.GetTop()",
    "root.GetRight()",
    "root.GetBottom()",
    "root.RemoveAllChildren()",
    "root.OnDestroy()",
    "T.GameNode(last)",
]


@pytest.mark.parametrize("cls", ["GameNode(None)", "GUI_Image(None, 0, 0)"])
def test_every_recursion_ends_in_order_and_the_tree_is_freed(cls):
    depth = 100000 if cls.startswith("GameNode") else 20000
    script = SETUP.format(depth=depth, cls=cls)
    for act in ACTS:
        script += f"attempt(lambda: {act})\n"
    script += """
small = T.GameNode(None, 3)
print(T.GameNode(small, 4).GetWX())
small.children = []
root = last = node = None
gc.collect()
gc.collect()
print(count())
"""
    assert script_output(script) == ["7.0", "1"]


LINKS = {
    "children only": "node.parent = None",
    "parents only": "node.parent.children = []",
    "user data": "node.parent.children = []; node.parent.userData = node; node.parent = None",
    "own attribute": "node.parent.children = []; node.parent.next = node; node.parent = None",
    "callback": "node.parent.children = []; node.parent.UpdateFunction = node.update;"
    " node.parent = None",
    "table": "node.parent.children = []; node.parent.BindingVarArray['n'] = node;"
    " node.parent = None",
    "mapping": "node.parent.children = []; node.parent.userData = vars(node); node.parent = None",
}


@pytest.mark.parametrize("collected", [True, False])
@pytest.mark.parametrize("link", sorted(LINKS))
def test_long_chains_are_freed(link, collected):
    script = SETUP.format(depth=100000, cls="GameNode(None)")
    script += f"""
node = root
while node.children:
    node = node.children[0]
chain = []
while node is not root:
    above = node.parent
    {LINKS[link]}
    node = above
keep = last if {link!r} == "parents only" else root
root = last = node = above = None
if {collected!r}:
    keep.loop = keep
keep = None
gc.collect()
gc.collect()
print(count())
"""
    assert script_output(script) == ["0"]


def test_deep_trees_in_a_thread_with_a_small_stack():
    script = SETUP.format(depth=5000, cls="GameNode(None)")
    script += """
import threading
threading.stack_size(2 * 1024 * 1024)
def work():
    for act in (lambda: root.update(1), lambda: last.GetWX(), lambda: root.draw(screen)):
        attempt(act)
    print("done")
thread = threading.Thread(target=work)
thread.start()
thread.join()
"""
    assert script_output(script) == ["done"]


def test_long_action_chains():
    lines = script_output(
        """
import gc
import Tessora as T
first = last = T.ActionPlayer()
for _ in range(100000):
    player = T.ActionPlayer()
    player.SetTarget("target")
    last.SetTarget("target")
    last.ActionArray = ([player],)
    last.running, last.over, last.runtime = True, False, 0
    last = player
last.ActionArray = None
last.running, last.over, last.runtime = True, False, 0
for act in (lambda: first.Run(), lambda: first.update(1)):
    try:
        act()
    except RecursionError:
        pass
first = last = player = None
gc.collect()
print(sum(isinstance(thing, T.ActionPlayer) for thing in gc.get_objects()))
"""
    )
    assert lines == ["0"]


# Objects in each other's places, so that an engine call comes round to itself.
LOOPS = {
    "own player": "node.ActionPlayer = node; node.update(1)",
    "players of each other": "node.ActionPlayer = child; child.ActionPlayer = node; node.update(1)",
    "own update function": "node.UpdateFunction = node.update; node.update(1)",
    "own callback": "node.draw = node.update; node.UpdateFunction = node.draw; node.update(1)",
    "own child": "node.children = [node]; node.RemoveAllChildren()",
    "own parent": "node.parent = node; node.GetWAngle()",
    "layer in itself": "layer.GameNodeDict[0] = layer; layer.update(1)",
    "loading layer": "layer.GameNodeDict[0] = layer; layer.OnLoad('scene')",
    "destroyed layer": "layer.GameNodeDict[0] = layer; layer.OnDestroy()",
    "pressed layer": "layer.GameNodeDict[0] = layer; layer.OnPickDownFunction(1, 1)",
    "released layer": "layer.GameNodeDict[0] = layer; layer.OnPickUpFunction(1, 1)",
    "dragged layer": "layer.GameNodeDict[0] = layer; layer.OnEditRectDraging(1, 1)",
    "key in a layer": "layer.GameNodeDict[0] = layer; layer.OnKeyDownFunction(1)",
    "layer as child": "layer.GameNodeDict[0] = node; node.children = [layer]; node.update(1)",
    "player as child": "player.ActionArray = ([node],); node.children = [player]; node.update(1)",
    "own action": "player.ActionArray = ([player],); player.Run()",
    "mirror": "image.UseImage(image, True); image.originalImage = image; image.update(1); loop()",
}


@pytest.mark.parametrize("loop", sorted(LOOPS))
def test_loops_through_other_objects(loop):
    script = SETUP.format(depth=1, cls="GameNode(None)")
    script += f"""
node, layer, image = T.GameNode(None), T.GameLayer(), T.GUI_Image(None, 0, 0)
child = T.GameNode(node)
player = T.ActionPlayer()
player.SetTarget(node)
player.AddActions([T.GAction()])
player.Run()
def loop():
    loop()
try:
    {LOOPS[loop]}
except RecursionError:
    print("RecursionError")
"""
    assert script_output(script) == ["RecursionError"]
