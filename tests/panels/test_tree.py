"""The tree and its items, and the message box."""

from types import SimpleNamespace

import picture_oracle as oracle
import pygame
import pytest
import Tessora as T
from picture_oracle import LOOKS, assert_painted, assert_parts, dress, part_place

WHITE, PAPER = (255,) * 4, (239, 239, 239, 255)
SIGN = (128, 128, 128, 128)


def tree():
    made = T.GUI_Tree(None, 40, 30)
    made.SetWidth(160)
    for parent, text in ((None, "root"), ("root", "a"), ("root", "b"), ("a", "c")):
        made.InsertItem(parent, text)
    return made


def texts(item):
    return item.itemText, [texts(child) for child in item.itemChildren]


def test_items_are_found_depth_first_and_inserted_below(screen):
    made = tree()
    assert texts(made.RootItemNode) == ("root", [("a", [("c", [])]), ("b", [])])
    made.InsertItem("a", "b", 5, None, 0)
    assert made.RootItemNode.LookForItemNode("b").itemValue == 5
    assert made.InsertItem("none", "x") is None
    assert made.RootItemNode.LookForItemNode("x") is None
    first = T.TreeItemNode("text", 7)
    values = {"itemText": "text", "itemValue": 7, "itemImage": None, "itemChildren": []}
    assert vars(first) == {**values, "itemopen": False}
    first.AppendChildItem(T.TreeItemNode("z"))
    first.InsertChildItem(0, T.TreeItemNode("y"))
    first.ExpandChildItem()
    assert texts(first) == ("text", [("y", []), ("z", [])]) and first.itemopen is True
    first.CloseChildItem()
    assert first.itemopen is False


# The box of the root, twice; the row below, indented; no box: one without children, two texts.
PRESSES = [(58, 40, "root"), (58, 40, ""), (64, 40, "root"), (78, 60, "root a")]
PRESSES += [(98, 80, "root a"), (100, 40, "root a"), (57, 60, "root a")]


def test_boxes_open_and_close_by_a_press(screen):
    made, told = tree(), []
    made.SetPickDownFunction(told.append)
    items = [made.RootItemNode.LookForItemNode(text) for text in ("root", "a", "b", "c")]
    for x, y, opened in PRESSES:
        made.draw(screen)
        assert made.OnPickDownFunction(x, y) is made
        assert [item.itemText for item in items if item.itemopen is True] == opened.split()
    assert len(told) == 7
    made.SetEnable(False)
    assert made.OnPickDownFunction(58, 40) is None and items[0].itemopen is True
    # A box beside the widget takes its press.
    dress(made, enable=True, width=20).draw(screen)
    assert made.OnPickDownFunction(64, 40) is made and items[0].itemopen is False


def test_items_that_hold_themselves_end_in_a_recursion_error(screen):
    made = tree()
    item = made.RootItemNode
    item.AppendChildItem(item)
    made.draw(screen)
    pytest.raises(RecursionError, item.LookForItemNode, "nowhere")
    item.ExpandChildItem()
    pytest.raises(RecursionError, made.draw, screen)


@pytest.mark.parametrize("wreck", [5, None, [5], [None]], ids=str)
def test_wrong_children_raise_ordinary_errors(screen, wreck):
    made = tree()
    made.RootItemNode.itemopen, made.RootItemNode.itemChildren = True, wreck
    pytest.raises((TypeError, AttributeError), made.draw, screen)
    pytest.raises((TypeError, AttributeError), made.InsertItem, "x", "y")


def test_a_script_draws_its_own_items(screen):
    class Item(T.TreeItemNode):
        def draw(self, screen, tree, x, y):
            pygame.draw.rect(screen, (1, 2, 3), (x, y, 5, 5))
            return y + 5

    made = tree()
    made.RootItemNode.itemChildren = [Item("own"), Item("too")]
    made.RootItemNode.ExpandChildItem()
    made.draw(screen)
    assert screen.get_at((60, 50)) == screen.get_at((60, 59)) == (1, 2, 3)


def test_a_pictures_file_is_loaded_once(screen, monkeypatch):
    files = []
    res = SimpleNamespace(LoadImage=lambda file: files.append(file) or pygame.Surface((8, 8)))
    monkeypatch.setattr(T, "Res", res)
    made = tree()
    for file in ("a.png", "b.png", "b.png"):
        made.RootItemNode.SetItemImage(file)
        for _ in range(3):
            made.draw(screen)
    assert files == ["a.png", "b.png"] and made.RootItemNode.itemImage == "b.png"


def paint_items(target, left, top, sx, sy, font, picture):
    def box(x, y, width=0, height=0):
        return (left + x * sx, top + y * sy, width * sx, height * sy)

    def line(*ends):
        places = [[int(side) for side in box(*end)[:2]] for end in ends]
        pygame.draw.line(target, SIGN, *places, 3)

    for row, text in ((0, "root"), (20, "a")):
        pygame.draw.rect(target, SIGN, [int(s) for s in box(row + 10, row + 2, 16, 16)], 1)
        line((row + 14, row + 10), (row + 21, row + 10))
        draw_text(target, font, text, box(row + 30, row), sx, sy)
    line((38, 26), (38, 33))
    line((34, 50), (41, 50))
    x, y, width, height = box(50, 42, 16, 16)
    scaled = pygame.transform.smoothscale(picture, (int(width), int(height))).convert_alpha()
    corner = x + width / 2 - scaled.get_width() / 2, y + height / 2 - scaled.get_height() / 2
    target.blit(scaled, corner)
    draw_text(target, font, "b", box(70, 40), sx, sy)


def draw_text(target, font, text, corner, sx, sy):
    picture = font.render(text, True, (0, 0, 0)).convert_alpha()
    width, height = font.size(text)
    size = (int(picture.get_width() * sx), int(picture.get_height() * sy))
    picture = pygame.transform.smoothscale(picture, size)
    target.blit(picture, (corner[0], corner[1] + (20 - height) / 2 * sy))


@pytest.mark.parametrize("look", LOOKS)
def test_a_tree_in_every_look(screen, look):
    made, picture = tree(), pygame.Surface((32, 32))
    picture.fill((200, 30, 40))
    made.SetXY(60, 50)
    made.RootItemNode.ExpandChildItem()
    made.RootItemNode.LookForItemNode("b").SetItemImage(picture)
    font = pygame.font.Font(None, 18)
    made.SetFont(font, "own")

    def draw(target, camera):
        place = part_place(made, (0, 0, 160, 100), camera)
        oracle.draw_background(target, place, WHITE)
        sx, sy = place.WSX, place.WSY
        if place.WAngle == 0:
            paint_items(target, place.WX, place.WY, sx, sy, font, picture)
        else:
            # Drawn in its final size, and then turned.
            place.width, place.height = place.width * sx, place.height * sy
            place.WSX = place.WSY = 1.0
            oracle.draw_turned(target, place, lambda s: paint_items(s, 0, 0, sx, sy, font, picture))
            place = part_place(made, (0, 0, 160, 100), camera)
        oracle.draw_border(target, place, "sunken")

    assert_painted(made, screen, look, draw)


BUTTONS = {"OKButton": (60, 66, 60, 23, "raised"), "CloseButton": (129, 1, 30, 23, None)}


@pytest.mark.parametrize("name", BUTTONS)
def test_both_buttons_hide_the_message_box(screen, name):
    box = T.GUI_MsgBox(None, 40, 30, "Really?")
    box.draw(screen)
    left, top = BUTTONS[name][:2]
    assert box.OnPickDownFunction(40 + left + 5, 30 + top + 5) is getattr(box, name)
    assert box.IsVisible() is False
    box.SetVisible(True)
    box.Button_6_onCommand()
    assert box.IsVisible() is False


def test_the_text_of_a_message_box(screen):
    box = T.GUI_MsgBox(None, 0, 0, "Really?")
    assert [part.GetText() for part in box.children] == ["Really?", "\u786e\u5b9a", "X"]
    assert {part.GetFontName() for part in box.children} == {"Microsoft YaHei UI"}
    box.SetText("Sure?")
    assert box.GetText() == box.Title.GetText() == "Sure?" and box.IsTextVisible() is False
    box.Title = None
    pytest.raises(AttributeError, box.SetText, "x")


def test_a_message_box_is_loaded_with_and_without_a_scene(screen):
    parent = T.GameNode(None)
    parent.OnLoad("scene")
    box = T.GUI_MsgBox(parent)
    assert box.OKButton.GetSceneInstance() == "scene"
    box.OnLoad()
    assert box.GetSceneInstance() == "scene"
    box.OnLoad("other")
    assert box.Title.GetSceneInstance() == "other"


@pytest.mark.parametrize("look", LOOKS)
def test_a_message_box_in_every_look(screen, look):
    box = T.GUI_MsgBox(None, 80, 60)
    for part in box.children:
        part.SetText("")
    parts = [(0, 0, 160, 100, PAPER, "raised"), (20, 30, 120, 23, PAPER, None)]
    parts += [(*place[:4], PAPER, place[4]) for place in BUTTONS.values()]
    assert_parts(box, screen, look, parts, framed=True)
