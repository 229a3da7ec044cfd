"""Trees and links far deeper than any recursion: an ordinary error at worst, never a crash."""

import pytest
from helpers import script_output

SETUP = """
import gc, os, sys, threading
os.environ["SDL_VIDEODRIVER"] = "dummy"
import pygame
import Tessora as T
pygame.init()
screen = pygame.display.set_mode((64, 48))
def attempt(act):
    try:
        exec(act, globals())
    except RecursionError:
        return "RecursionError"
def count():
    gc.collect()
    gc.collect()
    return sum(isinstance(thing, (T.GameNode, T.GAction)) for thing in gc.get_objects())
def chain(make, depth):
    nodes = [make() for _ in range(depth)]
    for above, node in zip(nodes, nodes[1:]):
        node.parent = above
        above.children.append(node)
    return nodes[0], nodes[-1]
"""
ACTS = """last.GetWX() last.GetWXY() last.GetWSXY() last.GetWAngle() last.GetCenterXY()
last.GetSizeRect() last.draw(screen,0,0,1.0) root.draw(screen,0,0,1.0) root.update(0.1)
root.drawToSurface(screen,0,0,1.0) root.OnLoad('scene') root.OnPickDownFunction(500,500)
root.OnPickUpFunction(500,500) root.OnEditRectDraging(1,1) root.GetAllChildrens() root.GetLeft()
root.GetTop() root.GetRight() root.GetBottom() T.GameNode(last) root.RemoveAllChildren()
root.OnDestroy()"""


@pytest.mark.parametrize("make, depth", [("T.GameNode(None)", 100000), ("T.GUI_Image()", 20000)])
def test_every_recursion_ends_in_order_and_the_tree_is_freed(make, depth):
    script = f"""
root, last = chain(lambda: {make}, {depth})
for act in {ACTS.split()!r}:
    attempt(act)
print(T.GameNode(T.GameNode(None, 3), 4).GetWX())
root = last = None
print(count())
root, last = chain(lambda: {make}, 5000)
"""
    assert script_output(SETUP + script) == ["7.0", "0"]


# The limit that a script may raise is no measure of the machine's stack.
LIMITS = {"small stack": (512 * 1024, 1000), "large stack": (2 << 20, 1000)}
LIMITS.update({"raised limit": (0, 1000000), "raised limit in a small stack": (512 * 1024, 100000)})
DEEP_ACTS = ["root.update(1)", "last.GetWX()", "root.draw(screen)", "root.GetAllChildrens()"]
OVERRIDING = """
class Node(T.GameNode):
    def update(self, delay):
        super().update(delay)
    def draw(self, *args):
        T.GameNode.draw(self, *args)
    def GetWX(self):
        return self.GetWPX() + self.x
"""


@pytest.mark.parametrize("make", ["T.GameNode", "Node"], ids=["plain", "overriding"])
@pytest.mark.parametrize("name", LIMITS)
def test_the_machines_stack_is_not_used_up(name, make):
    size, limit = LIMITS[name]
    script = f"""
def work():
    sys.setrecursionlimit({limit})
    root, last = chain(lambda: {make}(None), 60000)
    globals().update(root=root, last=last)
    for act in {DEEP_ACTS!r}:
        print(attempt(act), flush=True)
threading.stack_size({size})
thread = threading.Thread(target=work)
thread.start() if {size} else work()
"""
    ended = script_output(SETUP + OVERRIDING + script)
    # A machine's stack may be large enough for all of it.
    allowed = {"RecursionError"} if limit == 1000 else {"RecursionError", "None"}
    assert len(ended) == len(DEEP_ACTS) and set(ended) <= allowed


def test_every_thread_has_its_own_depth_and_stack():
    script = """
def work():
    for limit, depth in ((1000, 600), (1000000, 60000)):
        sys.setrecursionlimit(limit)
        globals().update(root=chain(lambda: T.GameNode(None), depth)[0])
        print(attempt("root.update(1)"))
inside, leave = threading.Event(), threading.Event()
# The sanitizers' frames are larger.
threading.stack_size((8 if "ASAN_OPTIONS" in os.environ else 1) << 20)
waiting, last = chain(lambda: T.GameNode(None), 600)
last.SetUpdateFunction(lambda delay: (inside.set(), leave.wait(20)))
threads = [threading.Thread(target=waiting.update, args=(1,)), threading.Thread(target=work)]
threads[0].start()
inside.wait(20)
threads[1].start()
threads[1].join()
leave.set()
threads[0].join()
"""
    assert script_output(SETUP + script) == ["None", "RecursionError"]


LINKS = """node.children = [last]|node.parent = last|node.userData = last|node.next = last
node.UpdateFunction = last.update|node.BindingVarArray['n'] = last|node.userData = vars(last)
node.ActionPlayer = T.ActionPlayer(); node.ActionPlayer.SetTarget(last)"""


@pytest.mark.parametrize("link", LINKS.replace("\n", "|").split("|"))
def test_long_chains_are_freed(link):
    script = f"""
for collected in (False, True):
    first = last = T.GameNode(None)
    for _ in range(100000):
        node = T.GameNode(None)
        {link}
        last = node
    if collected:
        first.loop = last
    first = last = node = None
    print(count())
"""
    assert script_output(SETUP + script) == ["0", "0"]


# Objects in each other's places, so that an engine call comes round to itself.
LOOPS = """node.ActionPlayer = node; node.update(1)
node.ActionPlayer = child; child.ActionPlayer = node; node.update(1)
node.draw = node.update; node.UpdateFunction = node.draw; node.update(1)
own.RemoveAllChildren() | own.GetAllChildrens() | own.draw(screen) | own.update(1)
node.parent = child; node.GetWAngle() | node.parent = child; node.GetSizeRect()
layer.update(1) | layer.OnLoad(1) | layer.OnDestroy() | layer.OnPickDownFunction(1, 1)
layer.OnPickUpFunction(1, 1) | layer.OnEditRectDraging(1, 1) | layer.OnKeyDownFunction(1)
layer.GameNodeDict[0] = node; node.children = [layer]; node.update(1)
player.ActionArray = ([node],); node.children = [player]; node.update(1)
player.ActionArray = ([player],); player.Run()"""
LOOPS = LOOPS.replace("\n", " | ").split(" | ")


def test_loops_through_other_objects():
    script = f"""
for loop in {LOOPS!r}:
    node, layer, player = T.GameNode(None), T.GameLayer(), T.ActionPlayer()
    child, own = T.GameNode(node), T.GameNode(None)
    layer.GameNodeDict[0] = layer
    own.children = [own]
    player.SetTarget(node)
    player.AddActions([T.GAction()])
    player.Run()
    print(loop, attempt(loop), sep=": ", flush=True)
"""
    assert script_output(SETUP + script) == [loop + ": RecursionError" for loop in LOOPS]
