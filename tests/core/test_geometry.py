import xml.etree.ElementTree as ElementTree

import pygame
import pytest
import Tessora as T
from helpers import Recorder

NAN = float("nan")
CASES = [
    ("checkPtInRect", (10, 10, 10, 20, 10, 20), 1),
    ("checkPtInRect", (20, 20, 10, 20, 10, 20), 1),
    ("checkPtInRect", (9.99, 10, 10, 20, 10, 20), 0),
    ("checkPtInRect", (15, 9, 10, 20, 10, 20), 0),
    ("checkPtInRect", ("b", "b", "a", "c", "a", "c"), 1),
    ("checkPtInRect", (NAN, 10**40, 1, 2, 0, 10**41), 1),
    ("checkPtInRect", ("b", 0, 0, 1, 0, 1), TypeError),
    ("checkRectInRect", (0, 10, 0, 10, 10, 20, 0, 10), 1),
    ("checkRectInRect", (0, 10, 0, 10, -5, 0, -5, 0), 1),
    ("checkRectInRect", (0, 10, 0, 10, 11, 20, 0, 10), 0),
    ("checkRectInRect", (0, 10, 0, 10, -5, 15, 10, 12), 1),
    ("checkRectInRect", (0, 10, 0, 10, 0, 10, 10.5, 12), 0),
    ("read_rect", ({"x": "1", "y": None, "width": 2.5, "height": ()},), ["1", None, 2.5, ()]),
    ("read_rect", ({"x": 1, "y": 2, "width": 3},), KeyError),
    ("read_rect", ((1, 2),), TypeError),
    ("read_keyValue", ({}, "a", 7), 7),
    ("read_keyValue", ({"a": None}, "a", 7), None),
    ("tree_to_dict", ("dict",), AttributeError),
]
NAMES = {"checkPtInRect": "x y left right top bottom", "read_rect": "dict", "tree_to_dict": "tree"}
NAMES["checkRectInRect"] = "left1 right1 top1 bottom1 left2 right2 top2 bottom2"
NAMES["read_keyValue"] = "dict key defaultvalue"


@pytest.mark.parametrize("name, arguments, expected", CASES)
def test_helpers(name, arguments, expected):
    function = getattr(T, name)
    if isinstance(expected, type):
        pytest.raises(expected, function, *arguments)
    else:
        for found in (function(*arguments), function(**dict(zip(NAMES[name].split(), arguments)))):
            assert found == expected and type(found) is type(expected)


def test_a_rectangle_is_read_in_the_order_of_its_numbers():
    reads = []
    table = type("Table", (), {"__getitem__": lambda self, name: reads.append(name)})()
    assert T.read_rect(table) == [None] * 4 and reads == ["x", "y", "width", "height"]


@pytest.mark.parametrize("move", [(0, 0), (5, -3), (-20, 0), (-21, 0), (0.9, -0.4), (-21.5, 9.5)])
def test_rect_collision_moves_the_second_rectangle(move):
    first, second, moved = [pygame.Rect(x, 0, 10, 10) for x in (0, 30, 30)]
    # How a fraction is rounded differs between versions of pygame and between the edges.
    for amount, edges in zip(move, (("left", "right"), ("top", "bottom"))):
        edge = edges[amount > 0]
        setattr(moved, edge, getattr(moved, edge) + amount)
    assert T.checkRectCollision(first, second, *move) is bool(first.colliderect(moved))
    assert second == moved and second.size == (10, 10)
    # Any object will do; only an answer equal to true is a hit.
    for answer in (1, 2):
        edges = {"left": 0, "right": 0, "top": 0, "bottom": 0}
        fake = type("Fake", (Recorder,), edges)(colliderect=answer)
        assert T.checkRectCollision(rect1=fake, rect2=fake, moveX=2, moveY=0) is (answer == 1)
        assert fake.right == 2 and set(vars(fake)) & set(edges) == {"right", "top"}


# Property lists with short tags.
TAGS = {"k": "key", "s": "string", "i": "integer", "r": "real", "t": "true", "f": "false"}
TAGS.update(a="array", d="dict")
PLISTS = [
    ("<k>a</k><s>text</s><k>b</k><s/>", {"a": "text", "b": None}),
    ("<k>a</k><i> -12 </i><k>b</k><i>" + "9" * 40 + "</i>", {"a": -12, "b": int("9" * 40)}),
    ("<k>a</k><r>1e3</r><k>b</k><date/><k>c</k><data/>", {"a": 1000.0}),
    ("<k>a</k><k>b</k><t/><s>stray</s><k>b</k><f/>", {"b": False}),
    ("<k>a</k><a><d/><i>1</i><a/><s>s</s><t/><date/></a>", {"a": [1, "s", True]}),
    ("<k>a</k><d><k>b</k><d><k>c</k><i>1</i></d></d>", {"a": {"b": {"c": 1}}}),
    ("<k>speed</k>", IndexError),
    ("<k>a</k><i>x</i>", ValueError),
    ("<k>a</k><i>" + "9" * 4300 + "</i><k>b</k><t/>", {"a": 10**4300 - 1, "b": True}),
    ("<k>a</k><i>" + "9" * 4301 + "</i>", ValueError),
    ("<k>a</k><i/>", TypeError),
    ("<k>a</k><a><i>1.5</i></a>", ValueError),
]


@pytest.mark.parametrize("text, expected", PLISTS)
def test_property_lists(text, expected):
    tree = ElementTree.fromstring(f"<d>{text}</d>")
    for element in tree.iter():
        element.tag = TAGS.get(element.tag, element.tag)
    if isinstance(expected, type):
        named = "speed" if expected is IndexError else ""
        pytest.raises(expected, T.tree_to_dict, tree).match(named)
    else:
        assert repr(T.tree_to_dict(tree=tree)) == repr(expected)
