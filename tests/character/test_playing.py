"""Actions of characters: key frames, playing, callbacks."""

import contextlib
import itertools

import pygame
import pytest
import Tessora as T
from helpers import Recorder


# Hands out a picture of 10 x 6 pixels, and notes what is asked for.
@pytest.fixture
def res(monkeypatch, screen):
    res = Recorder(LoadImage=pygame.Surface((10, 6), pygame.SRCALPHA))
    monkeypatch.setattr(T, "Res", res)
    return res


def hero(frames=3, speed=0.5, **values):
    character = T.GameCharacter(**values)
    character.AddAction("walk", speed)
    for frame in range(frames):
        character.SetKeyFrame_Position("walk", frame, (frame * 10, frame))
    return character


def indexes(character, delays):
    return [character.update(delay) or character.currActionFrameIndex for delay in delays]


TRACKS = {"Image": "a.png", "Blend": "ADD", "Anchor": "center", "Position": (3, 4)}
TRACKS.update(Scale=(2, 0.5), Rotate=30, Color=(1, 2, 3, 4), Sound="a.wav", CBFunction="step")
TRACKS.update(RectList=[(1, 2, 3, 4)], TileBlock=[[0, 1]])


@pytest.mark.parametrize("track", TRACKS)
def test_a_track_is_set_read_and_unset(track):
    character, value = hero(0), TRACKS[track]
    write, read = [getattr(character, f"{verb}KeyFrame_{track}") for verb in ("Set", "Get")]
    write("walk", 2, value, 1)
    assert read("walk", 2, 1) is value
    others = [("walk", 2), ("walk", 1, 1), ("run", 2, 1), (None, 2, 1)]
    assert [read(*place) for place in others] == [None] * 4
    frame = {"ChangeMode": 0, "Parts": {1: {track: value}}}
    assert character.ActionArray == {"walk": {2: frame}}
    write("walk", 2, None, partIndex=1)
    assert read("walk", 2, 1) is None
    pytest.raises(KeyError, write, "run", 0, None)


def test_actions_are_added_named_and_deleted():
    character = T.GameCharacter()
    character.AddAction("walk")
    character.AddAction("run", fpsdelay=0.1)
    assert character.ActionFpsDelayArray == {"walk": 0.3, "run": 0.1}
    assert (character.GetActionCount(), character.GetActionNameList()) == (2, ["walk", "run"])
    character.SetActionSpeed("run")
    assert (character.GetActionName(1), character.GetActionSpeed("run")) == ("run", 0.3)
    character.SetKeyFrame_Rotate("run", 7, 90, 2)
    assert (character.GetEndFrame("run"), character.GetEndFrame("walk")) == (7, 0)
    info = {"fpsdelay": 0.3, "endframe": 7, "keyframes": [7], "parts": [2]}
    assert character.GetActionInfo("run") == info
    character.DelAction("run")
    character.DelAction("unknown")
    assert (list(character.ActionArray), character.ActionFpsDelayArray) == (["walk"], {"walk": 0.3})
    pytest.raises(KeyError, character.GetActionSpeed, "run")
    table = character.ActionArray
    character.CleanUpAction()
    assert character.ActionArray is table == {}


def test_key_frames_are_found_by_their_neighbours():
    character = hero(0)
    for frame in (9, 0, 4):
        character.AddKeyFrame("walk", frame, 1)
    assert [character.GetLastKeyFrame("walk", frame) for frame in (0, 4, 5)] == [None, 0, 4]
    assert [character.GetNextKeyFrame("walk", frame) for frame in (9, 4, 5)] == [None, 9, 9]
    character.SetKeyFrame_ChangeMode("walk", 4, 2)
    character.DelKeyFrame("walk", 9)
    character.DelKeyFrame("walk", 9)
    assert [character.IsKeyFrame("walk", frame) for frame in (0, 9)] == [True, False]
    assert [character.GetKeyFrame_ChangeMode("walk", f) for f in (0, 4, 9)] == [1, 2, None]


def test_a_picture_is_deleted_with_its_part():
    character = hero(1)
    character.SetKeyFrame_Image("walk", 0, "a.png")
    character.SetKeyFrame_Image("walk", 0, "b.png", 1)
    assert character.imagefiles == ["a.png", "b.png"]
    character.DelKeyFrame_Image("walk", 0)
    character.DelKeyFrame_Image("walk", 0, 1)
    character.DelKeyFrame_Image("walk", 0, 1)
    assert character.ActionArray["walk"][0]["Parts"] == {0: {"Position": (0, 0)}}


def test_playing_sets_everything_up(res):
    character = hero(3)
    character.SetKeyFrame_Image("walk", 0, "b.png", 1)
    character.SetKeyFrame_Image("walk", 0, "a.png", 0)
    character.SetSXY(2, 3)
    character.SetImageAnchor("Center")
    character.PlayAction("walk", True, len, speed=4)
    parts = character.imageDict
    assert list(parts) == [0, 1] and character.children == [parts[0], parts[1]]
    expected = {"currActionName": "walk", "ActionLoop": True, "ActionPlaying": True}
    expected.update(currActionEndCallBackFunction=len, currActionEndCallBackParams={"speed": 4})
    expected.update(currActionEndframe=2, imageSwitchDelay=0.5)
    assert {name: getattr(character, name) for name in expected} == expected
    expected = {"sx": 2, "sy": 3, "imageAnchor": "center", "style": "hollow", "autosize": True}
    expected.update(width=10, height=6, x=0, y=0)
    assert {name: getattr(parts[0], name) for name in expected} == expected
    assert res.calls == [("LoadImage", ("a.png",)), ("LoadImage", ("b.png",))]
    part = parts[0]
    character.PlayAction("walk")
    assert part not in character.children and len(character.children) == 2
    assert (character.ActionLoop, character.currActionEndCallBackFunction) == (False, None)


def test_what_cannot_be_played_changes_nothing(res):
    character = hero()
    before = dict(vars(character))
    character.PlayAction("unknown")
    assert dict(vars(character)) == before
    pytest.raises(TypeError, character.PlayAction, "walk", True, None, 1)


def test_frames_advance_at_most_one_by_one(res):
    character = hero(9)
    character.PlayAction("walk")
    assert indexes(character, [0.375] * 5) == [0, 1, 2, 3, 3]
    assert indexes(character, [5, 0]) == [4, 5]
    assert character.imageDict[0].GetXY() == (50, 5)
    character.StopAction()
    assert indexes(character, [5]) == [5]


def test_a_long_first_update_passes_over_no_frame(res):
    character, called = hero(3), []
    character.SetKeyFrame_Rotate("walk", 0, 40)
    character.SetKeyFrame_CBFunction("walk", 0, called.append)
    character.PlayAction("walk")
    assert indexes(character, [5]) == [1]
    part = character.imageDict[0]
    assert (part.angle, part.GetXY(), called) == (40, (10, 1), [character])


@pytest.mark.parametrize(("frames", "shown"), [(1, [0] * 5), (3, [1, 2, 2, 2, 2])])
def test_an_action_stops_on_its_last_frame_that_it_enters_once(res, frames, shown):
    character, entered, ended = hero(frames), [], []
    character.SetKeyFrame_CBFunction("walk", frames - 1, entered.append)
    character.PlayAction("walk", callbackfun=lambda **params: ended.append(params), a=1)
    assert indexes(character, [0.5] * 5) == shown
    assert (entered, ended, character.ActionPlaying) == ([character], [{"a": 1}], False)


def test_a_loop_begins_again_and_calls_each_time_with_the_parameters(res):
    character, ended = hero(2), []

    def end(**params):
        ended.append((character.currActionFrameIndex, params.pop("a")))

    character.PlayAction("walk", True, end, a=1)
    assert indexes(character, [0.5] * 5) == [1, 0, 1, 0, 1]
    assert ended == [(2, 1), (2, 1)]
    character.PlayAction("walk", 1)
    character.ActionLoop = 2
    assert indexes(character, [0.5] * 3) == [1, 1, 1]


def test_the_end_may_start_another_action(res):
    character = hero(2)
    character.AddActionFromImageList("wave", ["a.png", "b.png"], 0.5)
    character.PlayAction("walk", callbackfun=lambda: character.PlayAction("wave", True))
    assert indexes(character, [0.5] * 4) == [1, 0, 1, 0]
    assert character.currActionName == "wave"


def test_a_delay_may_be_a_text(res):
    character = hero(3, "0.5")
    character.PlayAction("walk")
    assert indexes(character, [0.25] * 3) == [0, 1, 1]
    character.SetActionSpeed("walk", "slow")
    pytest.raises(ValueError, character.update, 1)


def test_values_of_a_key_frame_reach_the_part(res):
    character, called = hero(1), []
    for track in TRACKS:
        getattr(character, f"SetKeyFrame_{track}")("walk", 0, TRACKS[track])
    character.UserFunctionDict["step"] = called.append
    character.PlayAction("walk")
    character.updateFrames(0)
    expected = {"imagefiles": "a.png", "blendtype": pygame.BLEND_ADD, "imageAnchor": "center"}
    expected.update(x=3, y=4, sx=2, sy=0.5, angle=30, bgColor=pygame.Color(1, 2, 3, 4))
    part = character.imageDict[0]
    assert {name: getattr(part, name) for name in expected} == expected
    assert (res.calls.count(("PlaySound", ("a.wav",))), called) == (1, [character])


def test_what_happens_at_once_happens_when_a_frame_is_entered(res, capsys):
    character, called = hero(2), []
    character.SetKeyFrame_Sound("walk", 1, "a.wav")
    character.SetKeyFrame_Image("walk", 1, "a.png")
    character.SetKeyFrame_CBFunction("walk", 1, called.append)
    character.PlayAction("walk", True)
    indexes(character, [0.25] * 4)
    assert sorted(res.calls) == [("LoadImage", ("a.png",)), ("PlaySound", ("a.wav",))]
    assert called == [character]
    assert capsys.readouterr().out == "PlaySound:a.wav\n"
    character.imageDict[0].SetXY(70, 70)
    character.update(0)
    assert character.imageDict[0].GetXY() == (0, 0)
    indexes(character, [0.5])
    assert len(called) == 2
    character.updateFrames(1)
    assert len(called) == 3


def test_a_frame_set_by_a_script_is_entered(res):
    character, called = hero(3), []
    character.SetKeyFrame_CBFunction("walk", 2, called.append)
    character.PlayAction("walk")
    character.update(0)
    character.SetCurrFrame(2)
    character.update(0)
    assert (called, character.GetCurrFrameIndex()) == ([character], 2)


ENDS = {"Position": [(0, 3), (1, 10)], "Scale": [(1, 2), (3, 0.1)], "Rotate": [10, 40]}
ENDS["Color"] = [(0, 0, 90), (30, 60, 0)]


@pytest.mark.parametrize("mode", [0, 1, 2])
def test_values_between_key_frames(res, mode):
    character = hero(0, 1)
    for track, values in ENDS.items():
        for frame, value in zip((0, 3), values):
            getattr(character, f"SetKeyFrame_{track}")("walk", frame, value)
    character.SetKeyFrame_ChangeMode("walk", 0, mode)
    character.PlayAction("walk")
    indexes(character, [0, 1])
    way = 1 / 3 if mode == 1 else 0
    place, scale = [pygame.Vector2(ENDS[n][0]).lerp(ENDS[n][1], way) for n in ("Position", "Scale")]
    part = character.imageDict[0]
    assert (part.GetXY(), part.GetSXY()) == (tuple(place), tuple(scale))
    looks = (20, (10, 20, 60, 255)) if mode == 1 else (10, (0, 0, 90, 255))
    assert (part.angle, part.bgColor) == looks


def test_only_values_of_both_neighbours_are_mixed(res):
    character = hero(1)
    character.SetKeyFrame_Position("walk", 4, (40, 0))
    character.SetKeyFrame_Rotate("walk", 2, 90)
    for frame in (0, 2):
        character.SetKeyFrame_ChangeMode("walk", frame, 1)
    character.PlayAction("walk")
    places = [character.update(0.5) or character.imageDict[0].x for _ in range(5)]
    assert places == [0, 0, 0, 40, 40]


# What a callback does, and how often those of the frame (two parts have one) and of the end are
# then called in three updates.
CALLBACKS = {
    "another action": (lambda c: c.PlayAction("wave"), 1, 1),
    "the same action": (lambda c: c.PlayAction("walk"), 3, 1),
    "deletes the action": (lambda c: c.DelAction("walk"), 1, 1),
    "deletes all": (lambda c: c.CleanUpAction(), 1, 1),
    "is destroyed": (lambda c: c.OnDestroy(), 4, 1),
    "removes parts": (lambda c: (c.RemoveAllChildren(), c.imageDict.clear()), 2, 1),
    "stops": (lambda c: c.StopAction(), 2, 1),
    "no attributes": (lambda c: vars(c).clear(), 2, 1),
}


@pytest.mark.parametrize(("what", "when"), itertools.product(CALLBACKS, ["frame", "end"]))
def test_callbacks_may_do_anything(res, what, when):
    character, called = hero(2), []
    character.SetKeyFrame_Position("walk", 1, (5, 5), 1)
    character.AddActionFromImageList("wave", ["a.png"] * 3)
    change, *counts = CALLBACKS[what]

    def act(*args):
        called.append(args)
        change(character)

    if when == "frame":
        for part in (0, 1):
            character.SetKeyFrame_CBFunction("walk", 1, act, part)
    character.PlayAction("walk", True, act if when == "end" else None)
    with pytest.raises(AttributeError) if what == "no attributes" else contextlib.nullcontext():
        indexes(character, [0.5] * 3)
        character.draw(pygame.display.get_surface())
    assert len(called) == counts[when == "end"]
    if what.startswith("deletes"):
        assert (character.currActionName, character.ActionPlaying) == (None, False)
        assert (character.children, character.imageDict) == ([], {})
    if what == "another action":
        assert character.currActionName == "wave"


def test_a_failing_callback_is_not_called_on_every_update(res):
    character = hero(2)
    character.SetKeyFrame_CBFunction("walk", 1, lambda _: 1 / 0)
    character.PlayAction("walk")
    character.update(0)
    pytest.raises(ZeroDivisionError, character.update, 0.5)
    character.update(0.1)
    assert character.imageDict[0].GetXY() == (10, 1)


def test_functions_of_the_scene_are_called_by_name(res):
    character, scene = hero(1), Recorder()
    character.SetKeyFrame_CBFunction("walk", 0, "step")
    character.OnLoad(scene)
    character.PlayAction("walk")
    character.updateFrames(0)
    assert ("on_step", (character,)) in scene.calls
    character.OnLoad(object())
    character.updateFrames(0)


def test_an_action_from_a_list_of_pictures(res):
    character, surface = T.GameCharacter(), pygame.Surface((3, 4))
    character.AddActionFromImageList("walk", ["a.png", surface], 0.25)
    assert character.imagefiles == ["a.png"]
    character.PlayAction("walk")
    indexes(character, [0, 0.25])
    assert character.imageDict[0].image is surface
    assert (character.imageDict[0].width, character.GetEndFrame("walk")) == (3, 1)
