"""Actions, their player, and what they do to their node."""

import random

import pytest
import Tessora as T
from helpers import Recorder, make_node, started
from pygame.math import Vector2

VECTOR_CLASSES = [T.MoveToAction, T.MoveByAction, T.ScaleToAction, T.ScaleByAction]
CLASSES = dict.fromkeys(VECTOR_CLASSES, (2, 3, 4))
CLASSES.update({T.RotateToAction: (2, 3), T.RotateByAction: (2, 3), T.BlinkAction: (2, 4)})
CLASSES.update({T.CallBackAction: (2, len), T.GAction: ()})


@pytest.mark.parametrize("cls", CLASSES)
def test_flags_and_a_missing_target(cls):
    action = cls(*CLASSES[cls])
    action.Run()
    assert action.running is (cls in (T.CallBackAction, T.GAction))
    action.running = True
    action.update(5)
    assert action.runtime == (5 if cls is T.GAction else 0)
    node = started(action)
    for running, over in ((False, False), (True, True), (2, False), (True, 2)):
        action.running, action.over = running, over
        before = dict(vars(node)), dict(vars(action))
        action.update(delay=1)
        assert (dict(vars(node)), dict(vars(action))) == before
    action.running, action.over, action.runtime = 1.0, 0, 0
    for call, runtime in (("Stop", 0.5), ("Resume", 0.5), ("Pause", 1), ("Run", 1)):
        action.update(0.5)
        assert action.runtime == runtime and ("time" in vars(action)) is (call != "Stop")
        getattr(action, call)()
    pytest.raises(TypeError, action.update, "late")
    assert action.runtime == 0 == action.time


@pytest.mark.parametrize("cls", [*VECTOR_CLASSES, T.RotateToAction, T.RotateByAction])
def test_random_courses_bit_for_bit(cls):
    rng, kind, to = random.Random(7), cls.__name__[0], "To" in cls.__name__
    for _ in range(50):
        angle, end, duration = [rng.uniform(0.1, 400) for _ in range(3)]
        source, target = [Vector2(rng.uniform(-9, 9), rng.uniform(-9, 9)) for _ in range(2)]
        node = make_node(None, x=source.x, y=source.y, sx=source.x, sy=source.y, angle=angle)
        action, runtime = cls(duration, *([end] if kind == "R" else target)), 0
        started(action, node)
        while action.over is False:
            delay = duration * rng.uniform(0.01, 0.4)
            action.update(delay)
            runtime = runtime + delay
            t = runtime / duration
            way = target if t >= 1.0 else (source if to else Vector2(0, 0)).lerp(target, t)
            way = tuple(way) if to else (source.x + way.x, source.y + way.y)
            last, span = (end, end - angle) if to else (angle + end, end)
            turn = last if t >= 1.0 else angle + span * t
            found = {"M": node.GetXY(), "S": node.GetSXY(), "R": node.angle}[kind]
            assert found == (turn if kind == "R" else way) and action.IsOver() is (t >= 1.0)


def test_moves_read_the_world_and_write_the_local_place():
    node, action = T.GameNode(T.GameNode(None, 100, 0), 1, 2), T.MoveByAction(1, 0, 0)
    started(action, node)
    action.update(1)
    assert tuple(action.srcPostion) == node.GetXY() == (101, 2)
    node = started(action, make_node(None, width=20, height=20, anchorx=0.5, anchory=0.5))
    assert tuple(action.srcPostion) == (-10, -10)


def test_durations_and_times_at_the_edge():
    for duration in (0, -1, -0.5, False):
        node = T.GameNode(None, 1, 2)
        node.RunAction(T.MoveByAction(duration, 10, 10))
        node.update(0)
        assert node.GetXY() == (11, 12) and node.ActionPlayer.over is True
    for cls in VECTOR_CLASSES:
        action, bad = cls(1, 1, 1), cls("1", 1, 1)
        started(action), started(bad)
        pytest.raises(ValueError, action.update, -0.5).match("0, 1")
        pytest.raises((ValueError, TypeError), cls, 1, None, 1)
        pytest.raises(TypeError, bad.update, 1)
        assert action.over is bad.over is False
    # Never the short way; integers stay integers, time may run backwards.
    turn = T.RotateToAction(1, 10)
    node = started(turn, make_node(None, angle=350))
    for delay, angle in ((-0.5, 520.0), (1, 180.0), (0.5, 10)):
        turn.update(delay)
        assert repr(node.GetAngle()) == repr(angle)


def test_blinking():
    action = T.BlinkAction(2, 2)
    node = started(action)
    states = [(False, 1), (False, 1), (True, 1), (True, 1), (False, 2), (False, 2)]
    for delay, state in zip((0.1, 0.2, 0.3, 0.1, 0.4, 0.5), states):
        action.update(delay)
        assert (node.IsVisible(), action.blinkindex) == state and action.over is (state[1] == 2)
    # An ended blink never ends again, nor does an endless one.
    node.SetVisible(True)
    action.Run()
    for _ in range(8):
        action.update(0.6)
    assert action.over is False and action.blinkindex > 2
    endless = T.BlinkAction(duration=1)
    node = started(endless)
    for step in range(1, 100):
        endless.update(0.25)
        assert node.IsVisible() is (int(step * 0.25 / -0.5) % 2 != 0) and endless.over is False
    pytest.raises(ZeroDivisionError, T.BlinkAction, 1, 0)


def test_callbacks():
    calls, node = [], make_node()
    action = T.CallBackAction(2, lambda *args: calls.append((args, action.over)), a=1)
    node.RunAction(action)
    for _ in range(3):
        node.update(1)
    assert calls == [(({"a": 1},), False)] and calls[0][0][0] is action.callbackParams
    for nothing in (None, 0):
        node.RunAction(T.CallBackAction(1, nothing))
        node.update(1)
        assert node.ActionPlayer.over is True
    # A failure, then an action that runs itself again.
    node.RunAction(T.CallBackAction(0, lambda params: calls.append(1) or 1 / (len(calls) - 2)))
    pytest.raises(ZeroDivisionError, node.update, 1)
    assert node.ActionPlayer.over is False
    again = T.CallBackAction(0, lambda params: calls.append(1) or node.RunAction(again))
    node.RunAction(again)
    for _ in range(4):
        node.update(1)
    assert len(calls) == 3


def test_only_the_first_group_plays_one_action_in_an_update():
    log, group, player = [], (T.GAction(),), T.ActionPlayer()
    body = {"Run": lambda self: log.append("run"), "update": lambda self, delay: log.append(delay)}
    first, second = [type("Step", (T.GAction,), body)() for _ in range(2)]
    for call in (player.IsRunning, player.IsOver, player.GetRunTime, player.Run):
        pytest.raises(AttributeError, call)
    pytest.raises(AttributeError, player.AddActions, group)
    player.SetTarget(None)
    player.Run()
    assert "running" not in vars(player) and player.ActionArray == (group,)
    player.SetTarget("node")
    player.AddActions([first, second], group)
    assert player.ActionArray[1] is group and group[0].targetNode == first.targetNode == "node"
    player.Run()
    player.update(5)
    first.over = second.over = True
    for index in (1, 2, 2):
        player.update(6)
        assert player.ActionIndex == index and player.IsOver() is (index == 2)
    assert log == ["run", 5, 6, "run", 6] and player.runtime == 17
    player.ActionIndex = 7
    player.over = False
    pytest.raises(IndexError, player.update, 1)
    player.CleanUp()
    pytest.raises(TypeError, player.Run)


def test_run_action():
    node, log = make_node(None, ActionPlayer=Recorder()), []
    node.RunAction("a", "b")
    assert node.ActionPlayer.calls == [("CleanUp", ()), ("AddActions", (("a", "b"),)), ("Run", ())]
    node.ActionPlayer = None
    pytest.raises(IndexError, node.RunAction)
    player, steps = node.ActionPlayer, [T.CallBackAction(0, log.append), T.CallBackAction(9, None)]
    node.RunAction(T.CallBackAction(0, lambda params: node.RunAction(*steps)), T.GAction())
    for _ in range(3):
        node.update(1)
    assert log == [{}] and player.ActionIndex == 1 and node.ActionPlayer is player
    for empty in (player.CleanUp, lambda: setattr(node, "ActionPlayer", None)):
        node.RunAction(T.CallBackAction(0, lambda params, empty=empty: empty()), T.GAction())
        node.update(1)
    foreign = Recorder(IsOver=1)
    node.RunAction(foreign, T.CallBackAction(1, None))
    node.update(0.5)
    assert foreign.names() == ["SetTarget", "Run", "update", "IsOver"]


ACTION = T.GAction()
NO_ACTIONS = {"list": [ACTION, ACTION], "tuple": (ACTION,), "none": None, "number": 5}
NO_ACTIONS.update({"node": T.GameNode(None), "class": object, "actions": T.MoveToAction})


@pytest.mark.parametrize("bad", NO_ACTIONS.values(), ids=NO_ACTIONS)
def test_a_player_refuses_what_is_no_action_and_stays_as_it_was(bad):
    node, good, unplayed = make_node(), T.MoveByAction(1, 10, 0), T.GAction()
    refused = pytest.raises(TypeError, node.RunAction, T.GAction(), bad)
    assert all(word in str(refused.value) for word in ("SetTarget", repr(bad)))
    assert node.ActionPlayer is None
    node.RunAction(good)
    before = dict(vars(node.ActionPlayer))
    for call in (node.RunAction, lambda *actions: node.ActionPlayer.AddActions([], actions)):
        pytest.raises(TypeError, call, unplayed, bad)
        assert dict(vars(node.ActionPlayer)) == before and unplayed.targetNode is None
    node.update(1)
    assert node.x == 10 and good.over is True


def test_a_new_player_that_cannot_run_goes(screen):
    def fail(self, node=None):
        raise ValueError(node)

    bodies, node = ({"SetTarget": fail}, {"Run": fail}), make_node()
    stubborn = [type("Stubborn", (T.GAction,), body)() for body in bodies]
    for action in stubborn:
        pytest.raises(ValueError, node.RunAction, action)
        assert node.ActionPlayer is None
    node.update(1)
    # A player that was there before keeps its groups.
    player = T.ActionPlayer()
    player.SetTarget("node")
    pytest.raises(ValueError, player.AddActions, stubborn[:1])
    assert player.ActionArray == (stubborn[:1],)


def test_a_group_is_anything_that_holds_actions():
    player, actions = T.ActionPlayer(), [T.GAction() for _ in range(3)]
    player.SetTarget("node")
    for group in (ACTION, None, 5):
        pytest.raises(TypeError, player.AddActions, [ACTION], group)
        assert player.ActionArray is None
    player.AddActions(iter(actions[:1]), {actions[1]: 0}, tuple(actions[2:]))
    assert [action.targetNode for action in actions] == ["node"] * 3
    # A list of actions is told from actions.
    pytest.raises(TypeError, make_node().RunAction, [ACTION]).match(r"\*actions")


@pytest.mark.parametrize("cls", [cls for cls in CLASSES if cls not in (T.BlinkAction, T.GAction)])
def test_an_action_that_has_ended_starts_again_when_it_is_run_again(cls):
    calls, node = [], make_node()
    action = cls(*((2, calls.append) if cls is T.CallBackAction else CLASSES[cls]))
    for played in (1, 2):
        node.RunAction(action)
        assert (action.over, action.runtime) == (False, 0)
        for over in (False, True):
            node.update(1)
            assert action.over is over
        assert len(calls) == (played if cls is T.CallBackAction else 0)
    by = {T.MoveByAction: (6, 8), T.ScaleByAction: (7, 9), T.RotateByAction: 6}
    found = {T.MoveByAction: node.GetXY(), T.ScaleByAction: node.GetSXY()}
    assert found.get(cls, node.angle) == by.get(cls, node.angle)


@pytest.mark.parametrize("cls", [cls for cls in CLASSES if cls is not T.GAction])
@pytest.mark.parametrize("name", ["Run", "update"])
def test_a_base_step_replaced_by_a_script_is_taken(monkeypatch, cls, name):
    calls, action = [], cls(*CLASSES[cls])
    started(action)
    monkeypatch.setattr(T.GAction, name, lambda self, *args: calls.append((self, args)))
    getattr(action, name)(*(() if name == "Run" else (0.25,)))
    assert calls == [(action, () if name == "Run" else (0.25,))]
