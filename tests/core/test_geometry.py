import xml.etree.ElementTree as ElementTree

import pygame
import pytest
import Tessora as T


@pytest.mark.parametrize(
    "point, inside",
    [((10, 10), 1), ((20, 20), 1), ((9.99, 10), 0), ((20.01, 15), 0), ((15, 9), 0), ((15, 21), 0)],
)
def test_point_in_edges_is_inclusive_and_answers_an_integer(point, inside):
    result = T.checkPtInRect(*point, 10, 20, 10, 20)
    assert result == inside and type(result) is int
    keywords = dict(zip(("x", "y", "left", "right", "top", "bottom"), (*point, 10, 20, 10, 20)))
    assert T.checkPtInRect(**keywords) == inside


@pytest.mark.parametrize(
    "second, overlap",
    [
        ((10, 20, 0, 10), 1),
        ((11, 20, 0, 10), 0),
        ((2, 3, 2, 3), 1),
        ((-5, 5, -5, 5), 1),
        ((-9, -1, 0, 10), 0),
        ((0, 10, 10, 12), 1),
        ((0, 10, 10.5, 12), 0),
        ((0, 10, -9, -0.5), 0),
    ],
)
def test_edge_overlap(second, overlap):
    result = T.checkRectInRect(0, 10, 0, 10, *second)
    assert result == overlap and type(result) is int
    names = "left1 right1 top1 bottom1 left2 right2 top2 bottom2".split()
    assert T.checkRectInRect(**dict(zip(names, (0, 10, 0, 10) + second))) == overlap


def test_comparisons_are_the_hosts_own():
    assert T.checkPtInRect("b", "b", "a", "c", "a", "c") == 1
    assert T.checkPtInRect(10**40, 0, 0, 10**41, 0, 0) == 1
    assert T.checkPtInRect(float("nan"), 0, 1, 2, 0, 0) == 1
    with pytest.raises(TypeError):
        T.checkPtInRect("b", 0, 0, 1, 0, 1)
    with pytest.raises(TypeError):
        T.checkRectInRect(0, 1, 0)
    with pytest.raises(TypeError):
        T.checkPtInRect(0, 0, 0, 0, 0, 0, 0)


def assign_edges(rect, move_x, move_y):
    """What pygame makes of the move; how it rounds differs between its versions."""
    if move_x > 0:
        rect.right = rect.right + move_x
    else:
        rect.left = rect.left + move_x
    if move_y > 0:
        rect.bottom = rect.bottom + move_y
    else:
        rect.top = rect.top + move_y
    return rect


@pytest.mark.parametrize(
    "move",
    [(0, 0), (5, -3), (-20, 0), (-21, 0), (0.9, 0.9), (-0.9, -0.4), (-21.5, 9.5), (-25, -10)],
)
def test_rect_collision_moves_the_second_rectangle(move):
    first, second = pygame.Rect(0, 0, 10, 10), pygame.Rect(30, 0, 10, 10)
    moved = assign_edges(pygame.Rect(second), *move)
    hit = T.checkRectCollision(first, second, *move)
    assert hit is bool(first.colliderect(moved))
    assert second == moved and second.size == (10, 10)
    again = pygame.Rect(5, 5, 1, 1)
    assert T.checkRectCollision(rect1=first, rect2=again, moveX=5, moveY=0) is False
    assert again.topleft == (10, 5)


def test_rect_collision_goes_through_attributes_of_any_object():
    class Fake:
        def __init__(self):
            object.__setattr__(self, "log", [])

        def __getattr__(self, name):
            return 0

        def __setattr__(self, name, value):
            self.log.append((name, value))

        def colliderect(self, other):
            return 1

    fake = Fake()
    assert T.checkRectCollision(fake, fake, 2, 0) is True
    assert fake.log == [("right", 2), ("top", 0)]
    fake.log.clear()
    T.checkRectCollision(fake, fake, 0, 3)
    assert fake.log == [("left", 0), ("bottom", 3)]
    Fake.colliderect = lambda self, other: 2
    assert T.checkRectCollision(fake, fake) is False


def test_read_rect_and_read_key_value():
    values = {"x": "1", "y": None, "width": 2.5, "height": [], "more": 1}
    assert T.read_rect(values) == ["1", None, 2.5, []]
    assert T.read_rect(dict=values)[3] is values["height"]
    with pytest.raises(KeyError):
        T.read_rect({"x": 1, "y": 2, "width": 3})
    assert T.read_keyValue({}, "a", 7) == 7
    assert T.read_keyValue({"a": None}, "a", 7) is None
    assert T.read_keyValue(dict={"a": 1}, key="a", defaultvalue=0) == 1
    with pytest.raises(TypeError):
        T.read_keyValue({}, [], 0)


def plist(text):
    return ElementTree.fromstring("<dict>" + text + "</dict>")


@pytest.mark.parametrize(
    "text, result",
    [
        ("", {}),
        ("<key>a</key><string>text</string>", {"a": "text"}),
        ("<key>a</key><string/>", {"a": None}),
        ("<key/><true/>", {None: True}),
        ("<key>a</key><true/><key>b</key><false/>", {"a": True, "b": False}),
        ("<key>a</key><integer> -12 </integer>", {"a": -12}),
        ("<key>a</key><integer>" + "9" * 40 + "</integer>", {"a": int("9" * 40)}),
        ("<key>a</key><real>1e3</real>", {"a": 1000.0}),
        ("<key>a</key><date>2000</date><key>b</key><data/>", {}),
        ("<key>a</key><key>b</key><true/>", {"b": True}),
        ("<key>a</key><true/><key>a</key><false/>", {"a": False}),
        ("<string>stray</string><key>a</key><true/>", {"a": True}),
        ("<key>a</key><array><dict/><dict/></array>", {"a": []}),
        (
            "<key>a</key><array><integer>1</integer><array/><string>s</string><real>2</real>"
            "<true/><false/><date/></array>",
            {"a": [1, "s", 2.0, True, False]},
        ),
        (
            "<key>a</key><dict><key>b</key><dict><key>c</key><integer>1</integer></dict></dict>",
            {"a": {"b": {"c": 1}}},
        ),
    ],
)
def test_property_list_values(text, result):
    tree = plist(text)
    assert T.tree_to_dict(tree) == result
    assert T.tree_to_dict(tree=tree) is not T.tree_to_dict(tree)


@pytest.mark.parametrize(
    "text, error",
    [
        ("<key>a</key>", IndexError),
        ("<key>a</key><integer>x</integer>", ValueError),
        ("<key>a</key><integer/>", TypeError),
        ("<key>a</key><real/>", TypeError),
        ("<key>a</key><real>one</real>", ValueError),
        ("<key>a</key><array><integer>1.5</integer></array>", ValueError),
        ("<key>a</key><dict><key>b</key></dict>", IndexError),
    ],
)
def test_malformed_property_lists(text, error):
    with pytest.raises(error):
        T.tree_to_dict(plist(text))
    assert T.tree_to_dict(plist("<key>a</key><true/>")) == {"a": True}


def test_the_root_of_a_property_list_has_no_keys_of_its_own():
    root = ElementTree.fromstring("<plist><dict><key>a</key><true/></dict></plist>")
    assert T.tree_to_dict(root) == {}


def test_nesting_without_end_is_an_ordinary_error():
    top = inner = ElementTree.Element("dict")
    for _ in range(20000):
        ElementTree.SubElement(inner, "key").text = "a"
        inner = ElementTree.SubElement(inner, "dict")
    try:
        result = T.tree_to_dict(top)
    except RecursionError:
        result = {"a": {}}
    assert set(result) == {"a"}
    while len(top):
        # Unhooked level by level: older hosts free deep element trees by recursion.
        inner = top[1]
        top.clear()
        top = inner


@pytest.mark.parametrize("tree", [None, 3, "dict", object()])
def test_something_that_is_no_element(tree):
    if tree == "dict":
        with pytest.raises(AttributeError):
            T.tree_to_dict(tree)
    else:
        with pytest.raises((TypeError, AttributeError)):
            T.tree_to_dict(tree)
