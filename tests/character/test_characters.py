"""Characters as figures: parts on the screen, presses, collisions, movement, game variables."""

import pygame
import pytest
import Tessora as T
from helpers import Recorder, ink, make_node

RED, GREEN, BLUE = (255, 0, 0, 255), (0, 255, 0, 255), (0, 0, 255, 255)
CYAN = (0, 255, 255, 255)


def picture(color=RED, size=(20, 30)):
    surface = pygame.Surface(size, pygame.SRCALPHA)
    surface.fill(color)
    surface.fill(GREEN, (0, 0, 5, 5))
    return surface


def figure(*places, **values):
    character = T.GameCharacter(**values)
    character.AddAction("stand")
    for index, place in enumerate(places):
        character.SetKeyFrame_Image("stand", 0, picture(), index)
        character.SetKeyFrame_Position("stand", 0, place, index)
    character.PlayAction("stand", True)
    character.update(0)
    for part in character.imageDict.values():
        part.DropBGColor()
    return character


def ink_of(character, screen):
    screen.fill((0, 0, 0))
    character.draw(screen)
    return ink(screen)


def test_a_character_draws_its_parts_and_no_background(screen):
    assert ink_of(T.GameCharacter(None, 5, 5), screen) == (0, 0, 0, 0)
    assert ink_of(figure((10, 10), (40, 0), x=3), screen) == (13, 0, 50, 40)


def test_its_own_picture_lies_below_the_parts(screen):
    character = figure((0, 0))
    character.SetImage(picture(BLUE, (40, 40)))
    character.AutoImageSize(True)
    assert ink_of(character, screen) == (0, 0, 40, 40)
    assert screen.get_at((10, 10)) == RED


def test_the_offset_shifts_what_is_drawn(screen):
    character = figure((0, 0))
    character.currOffsetX, character.currOffsetY = 7, 8
    assert ink_of(character, screen) == (7, 8, 20, 30)


@pytest.mark.parametrize(
    ("method", "corner"), [("SetFlipX", (19, 0)), ("SetFlipY", (0, 29))], ids=["x", "y"]
)
def test_flips_mirror_the_pictures(screen, method, corner):
    character = figure((0, 0))
    flip = getattr(character, method)

    def corners():
        return [character.imageDict[0].image.get_at(place) for place in ((0, 0), corner)]

    for act in (lambda: flip(True), lambda: flip(True), lambda: character.PlayAction("stand")):
        act()
        assert corners() == [RED, GREEN]
    for flag in (False, 2):
        flip(flag)
        assert corners() == [GREEN, RED]


def test_a_copy_has_actions_and_parts_of_its_own(screen):
    character, twin = figure((10, 10), x=5), figure((0, 0), (3, 3))
    character.SetCharacterBindingVar("coins", [1])
    character.SetPlayer()
    character.CopyTo(twin)
    assert (twin.x, twin.currActionName, twin.isPlayer) == (5, "stand", False)
    assert twin.ActionArray == character.ActionArray
    assert len(twin.children) == 1 and twin.imageDict[0] is twin.children[0]
    assert twin.imageDict[0].GetXY() == (10, 10) and twin.imageDict[0].parent is twin
    twin.SetKeyFrame_Position("stand", 0, (1, 1))
    twin.GetCharacterBindingVar("coins").append(2)
    assert character.GetKeyFrame_Position("stand", 0) == (10, 10)
    assert character.GetCharacterBindingVar("coins") == [1]
    character.CopyTo(T.GUI_Image())


def test_the_anchor_moves_with_the_parts():
    character = figure((0, 0))
    character.SetImageAnchor("ES")
    part = character.imageDict[0]
    assert (part.imageAnchor, part.GetAXY(), character.GetAXY()) == ("es", (1.0, 1.0), (1.0, 1.0))


def test_rectangles_are_outlined_over_the_parts(screen):
    character = figure((0, 0), x=10)
    character.SetKeyFrame_RectList("stand", 0, [(2, 3, 8, 9)])
    character.updateFrames(0)
    places = ((12, 3), (19, 11), (14, 6), (12, 8))
    for shown, colors in ((True, [CYAN, CYAN, RED, CYAN]), (False, [GREEN, RED, RED, RED])):
        character.SetRectListVisible(shown)
        character.draw(screen)
        assert [screen.get_at(place) for place in places] == colors


def test_a_press_on_a_part_is_one_on_the_character(screen, capsys):
    character, pressed = figure((0, 0), (10, 0)), []
    character.SetPickDownFunction(lambda c: pressed.append((c, c.clicked)))
    character.draw(screen)
    assert character.OnPickDownFunction(15, 5) is character
    assert character.PickedPartObj is character.imageDict[1]
    assert character.GetPickedPartObjIndex() == 1
    assert (pressed, character.clicked) == ([(character, False)], True)
    assert capsys.readouterr().out == "collidepoint\n"
    assert character.OnPickDownFunction(500, 5) is None
    assert (character.PickedPartObj, character.GetPickedPartObjIndex()) == (None, -1)


def test_a_character_may_take_presses_for_its_parts(screen):
    character = figure((0, 0))
    character.SetPickDownFunction(lambda node: 1 / 0)
    character.SetCheckPickDownChild(False)
    character.draw(screen)
    assert character.OnPickDownFunction(5, 5) is character
    assert character.PickedPartObj is character.imageDict[0] and not character.clicked


def test_a_child_that_is_no_part_takes_its_press_itself(screen):
    character = figure((0, 0))
    hat = T.GUI_Image(character)
    character.draw(screen)
    assert character.OnPickDownFunction(50, 50) is hat
    assert character.PickedPartObj is None


def test_the_size_is_that_of_the_parts_or_of_the_rectangles():
    assert T.GameCharacter(None, 3, 4).GetSizeRect() == (3, 4, 100, 100)
    character = figure((10, 10), (40, 0), x=3)
    assert character.GetSizeRect() == (13, 0, 50, 40)
    for part, left in ((0, 2), (1, 20)):
        character.SetKeyFrame_RectList("stand", 0, [(left, 3, 8, 9)], part)
    character.updateFrames(0)
    assert character.GetSizeRect() == (5, 3, 26, 9)


def test_collisions_are_those_of_the_rectangles():
    character, layer = figure((0, 0)), T.GameLayer()
    character.SetKeyFrame_RectList("stand", 0, [(0, 0, 5, 5), (20, 0, 5, 5)])
    character.updateFrames(0)
    character.SetCollision(1, None)
    layer.AddGameNode(character)
    wall, rect = make_node(None, x=10, width=5, height=5), pygame.Rect(10, 0, 5, 5)
    for collides in (character.checkCollision, layer.checkCollision):
        assert not collides(wall) and collides(wall, 6)
    assert not character.checkEventRectCollision(rect) and rect == (10, 0, 5, 5)
    assert character.checkEventRectCollision(rect, -6)


def test_the_player_is_told_to_the_scene():
    character, scene = T.GameCharacter(), Recorder()
    character.SetPlayer()
    assert character.isPlayer is True
    character.OnLoad(scene)
    character.SetPlayer()
    character.UnsetPlayer()
    assert scene.calls == [("SetPlayer", (character,)), ("SetPlayer", (None,))]
    assert character.isPlayer is False


def test_jumps():
    character = T.GameCharacter()
    assert character.IsUpState() is False
    character.SetCharacterBindingVar("jumpspeed", -5)
    character.Jump()
    assert (character.dropSpeed, character.isJumping, character.IsUpState()) == (-5, True, True)
    character.Jump(jumpspeed=-12)
    assert character.dropSpeed == -12
    character.StopJump()
    assert (character.dropSpeed, character.isJumping) == (0, False)


def test_movement():
    character = T.GameCharacter()
    first = character.moveDir
    assert character.isMoveState() is False
    character.Move_Right()
    character.Move_Up()
    assert first == [1.0, -1.0] and character.isMoveState() is True
    character.Move_Left()
    character.Move_Down()
    character.StopMove()
    assert (character.moveDir, first) == ([0, 0], [-1.0, 1.0])
    character.Dead()
    assert character.isDead is True


def test_game_variables():
    character = T.GameCharacter()
    table = character.GetCharacterBindingVarArray()
    character.SetCharacterBindingVar("life", 3)
    assert table["life"] == character.GetCharacterBindingVar("life") == 3
    character.DelCharacterBindingVar("life")
    pytest.raises(KeyError, character.GetCharacterBindingVar, "life")
    character.CleanUpCharacterBindingVar()
    assert character.CharacterBindingVarArray is table == {}


@pytest.mark.parametrize(("immediate", "count"), [(True, 0), (False, 7)])
def test_a_layer_sets_the_variables_of_a_waiting_character(screen, immediate, count):
    layer, hero, heard = T.GameLayer(), T.GameCharacter(), []
    hero.SetCharacterBindingVar = lambda *variable: heard.append(variable)
    layer.AddGameNode(hero, immediate)
    layer.draw(screen)
    assert heard == list(hero.CharacterBindingVarArray.items())[:count]
