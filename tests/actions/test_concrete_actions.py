import itertools
import random

import pytest
import Tessora as T
from helpers import Recorder, started
from pygame.math import Vector2

BASE = ["running", "targetNode", "runtime", "over"]
CLASSES = [
    # class, argument names, arguments, attributes that follow the common four
    (
        T.CallBackAction,
        ["duration", "callbackFunc"],
        [2, len],
        {"duration": 2, "callbackFunc": len, "callbackParams": {}},
    ),
    (
        T.MoveToAction,
        ["duration", "x", "y"],
        [2, 3, 4],
        {"duration": 2, "srcPostion": Vector2(0, 0), "dstPostion": Vector2(3, 4)},
    ),
    (
        T.MoveByAction,
        ["duration", "x", "y"],
        [2, 3, 4],
        {"duration": 2, "srcPostion": Vector2(0, 0), "dstPostion": Vector2(3, 4)},
    ),
    (
        T.ScaleToAction,
        ["duration", "sx", "sy"],
        [2, 3, 4],
        {"duration": 2, "srcScale": Vector2(1, 1), "dstScale": Vector2(3, 4)},
    ),
    (
        T.ScaleByAction,
        ["duration", "sx", "sy"],
        [2, 3, 4],
        {"duration": 2, "srcScale": Vector2(0, 0), "dstScale": Vector2(3, 4)},
    ),
    (
        T.RotateToAction,
        ["duration", "angle"],
        [2, 3],
        {"duration": 2, "srcAngle": 0, "dstAngle": 3},
    ),
    (
        T.RotateByAction,
        ["duration", "angle"],
        [2, 3],
        {"duration": 2, "srcAngle": 0, "dstAngle": 3},
    ),
    (
        T.BlinkAction,
        ["duration", "blinkcount"],
        [2, 4],
        {"duration": 2, "blinkcount": 4, "delaytime": 0.5, "blinkindex": 0},
    ),
]
VECTOR_CLASSES = [T.MoveToAction, T.MoveByAction, T.ScaleToAction, T.ScaleByAction]


@pytest.mark.parametrize("cls, names, arguments, attributes", CLASSES)
def test_construction(cls, names, arguments, attributes):
    for action in (cls(*arguments), cls(**dict(zip(names, arguments)))):
        assert list(vars(action)) == BASE + list(attributes)
        for name, value in attributes.items():
            found = getattr(action, name)
            assert found == value and type(found) is type(value), name
        assert (action.running, action.targetNode, action.runtime, action.over) == (
            False,
            None,
            0,
            False,
        )
    with pytest.raises(TypeError):
        cls()
    with pytest.raises(TypeError):
        cls(*arguments, 1)
    if cls is not T.CallBackAction:
        with pytest.raises(TypeError):
            cls(*arguments, extra=1)


@pytest.mark.parametrize("cls, names, arguments, attributes", CLASSES)
def test_without_a_target_nothing_happens(cls, names, arguments, attributes):
    action = cls(*arguments)
    assert action.Run() is None
    assert action.IsRunning() is (cls is T.CallBackAction)
    action.running = True
    before = dict(vars(action))
    assert action.update(5) is None
    assert dict(vars(action)) == before


@pytest.mark.parametrize("cls, names, arguments, attributes", CLASSES)
def test_only_while_running_and_not_over(cls, names, arguments, attributes):
    action = cls(*arguments)
    node = started(action)
    for running, over in ((False, False), (True, True), (2, False), (True, 2)):
        action.running, action.over = running, over
        before = dict(vars(node)), dict(vars(action))
        action.update(delay=1)
        assert (dict(vars(node)), dict(vars(action))) == before


def test_a_hundred_random_courses_bit_for_bit():
    rng = random.Random(7)
    for cls in VECTOR_CLASSES:
        for _ in range(25):
            source = Vector2(rng.uniform(-9, 9), rng.uniform(-9, 9))
            target = Vector2(rng.uniform(-9, 9), rng.uniform(-9, 9))
            duration = rng.uniform(0.5, 3)
            node = T.GameNode(None, source.x, source.y)
            node.SetSXY(source.x, source.y)
            action, runtime = cls(duration, target.x, target.y), 0
            started(action, node)
            move = cls in (T.MoveToAction, T.MoveByAction)
            for _step in range(6):
                delay = rng.uniform(0, 0.7)
                action.update(delay)
                runtime = runtime + delay
                t = runtime / duration
                if cls in (T.MoveToAction, T.ScaleToAction):
                    expected = tuple(target if t >= 1.0 else source.lerp(target, t))
                else:
                    way = target if t >= 1.0 else Vector2(0, 0).lerp(target, t)
                    expected = (source.x + way.x, source.y + way.y)
                found = node.GetXY() if move else node.GetSXY()
                assert found == expected, (cls, t)
                assert action.IsOver() is (t >= 1.0)
                if t >= 1.0:
                    break


@pytest.mark.parametrize("cls", [T.RotateToAction, T.RotateByAction])
def test_rotation_bit_for_bit(cls):
    rng = random.Random(8)
    for _ in range(50):
        source, target, duration = (rng.uniform(-400, 400) for _ in range(3))
        duration = abs(duration)
        node = T.GameNode(None)
        node.SetAngle(source)
        action = cls(duration, target)
        started(action, node)
        delay = duration * rng.random()
        action.update(delay)
        t = (0 + delay) / duration
        span = target - source if cls is T.RotateToAction else target
        assert node.GetAngle() == source + span * t
        action.update(duration)
        assert node.GetAngle() == (target if cls is T.RotateToAction else source + target)
        assert action.over is True


def test_move_to_and_back():
    node = T.GameNode(None)
    action = T.MoveToAction(10, 100, 50)
    started(action, node)
    action.update(5)
    assert node.GetXY() == (50, 25) and action.over is False
    action.update(5)
    assert node.GetXY() == (100, 50) and action.over is True
    assert all(type(v) is float for v in node.GetXY())
    node.SetXY(0, 0)
    action.Run()
    action.update(20)
    assert node.GetXY() == (100, 50)


@pytest.mark.parametrize("duration", [0, -1, 0.0, -0.5, False])
def test_no_duration_finishes_at_once(duration):
    node = T.GameNode(None, 1, 2)
    action = T.MoveByAction(duration, 10, 10)
    started(action, node)
    action.update(0)
    assert node.GetXY() == (11, 12) and action.over is True
    action.Run()
    action.update(0)
    assert node.GetXY() == (21, 22)


def test_scale_by_adds():
    node = T.GameNode(None)
    action = T.ScaleByAction(4, 1, 1)
    started(action, node)
    action.update(2)
    assert node.GetSXY() == (1.5, 1.5)
    action.update(2)
    assert node.GetSXY() == (2, 2)
    shrink = T.ScaleByAction(0, -1.5, -1.5)
    started(shrink, node)
    shrink.update(1)
    assert node.GetSXY() == (0.5, 0.5)


def test_rotation_never_takes_the_short_way_and_keeps_integers():
    node = T.GameNode(None)
    node.SetAngle(350)
    action = T.RotateToAction(1, 10)
    started(action, node)
    action.update(0.5)
    assert node.GetAngle() == 180
    action.update(0.5)
    assert node.GetAngle() == 10 and type(node.GetAngle()) is int
    by = T.RotateByAction(1, 5)
    started(by, node)
    by.update(1)
    assert node.GetAngle() == 15 and type(node.GetAngle()) is int


def test_moves_read_the_world_and_write_the_local_place():
    parent = T.GameNode(None, 100, 0)
    node = T.GameNode(parent, 1, 2)
    action = T.MoveByAction(1, 0, 0)
    started(action, node)
    assert tuple(action.srcPostion) == (101, 2)
    action.update(1)
    assert node.GetXY() == (101, 2)
    anchored = T.GameNode(None)
    anchored.SetWidth(20)
    anchored.SetHeight(20)
    anchored.SetAXY(0.5, 0.5)
    started(action, anchored)
    action.update(1)
    assert anchored.GetXY() == (-10, -10)


def test_what_the_target_is_asked_for():
    expected = {
        T.MoveToAction: ["GetWX", "GetWY", "SetXY"],
        T.MoveByAction: ["GetWX", "GetWY", "SetXY"],
        T.ScaleToAction: ["GetSX", "GetSY", "SetSXY"],
        T.ScaleByAction: ["GetSX", "GetSY", "SetSXY"],
        T.RotateToAction: ["GetAngle", "SetAngle"],
        T.RotateByAction: ["GetAngle", "SetAngle"],
        T.BlinkAction: ["IsVisible", "SetVisible"],
        T.CallBackAction: [],
    }
    for cls, _, arguments, _ in CLASSES:
        target = Recorder(result=1)
        action = cls(*arguments)
        if cls is T.CallBackAction:
            action.callbackFunc = None
        started(action, target)
        action.update(0.1)
        if cls is not T.BlinkAction:
            action.update(9)
        assert list(dict.fromkeys(target.names())) == expected[cls], cls


def test_negative_time():
    for cls in VECTOR_CLASSES:
        action = cls(1, 1, 1)
        node = started(action)
        with pytest.raises(ValueError, match="0, 1"):
            action.update(-0.5)
        assert action.runtime == -0.5 and action.over is False
        action.update(0.75)
        assert node.GetXY() in ((0, 0), (0.25, 0.25))
    turn = T.RotateByAction(1, 10)
    node = started(turn)
    turn.update(-0.5)
    assert node.GetAngle() == -5


def test_time_that_is_no_number_never_ends():
    for cls, value in itertools.product(VECTOR_CLASSES, (float("nan"),)):
        action = cls(1, 1, 1)
        started(action)
        action.update(value)
        action.update(5)
        assert action.over is False


@pytest.mark.parametrize("bad", ["1", None, [], object()])
def test_wrong_types(bad):
    for cls in VECTOR_CLASSES:
        with pytest.raises((ValueError, TypeError)):
            cls(1, bad, 1)
        with pytest.raises((ValueError, TypeError)):
            cls(1, 1, bad)
        action = cls(bad, 1, 1)
        started(action)
        with pytest.raises(TypeError):
            action.update(1)
        assert action.over is False
        action.duration = 1
        action.update(0)
        assert action.over is True
    turn = T.RotateToAction(1, bad)
    started(turn)
    with pytest.raises(TypeError):
        turn.update(0.5)


def test_positions_replaced_by_a_script():
    action = T.MoveToAction(2, 1, 1)
    node = started(action)
    action.srcPostion = Vector2(10, 10)
    action.dstPostion = Vector2(20, 30)
    action.update(1)
    assert node.GetXY() == (15, 20)
    action.dstPostion = Recorder()
    with pytest.raises((TypeError, AttributeError)):
        action.update(0)
    action.dstPostion = "somewhere"
    with pytest.raises((TypeError, AttributeError)):
        action.update(5)
    del action.dstPostion
    with pytest.raises(AttributeError):
        action.update(5)


def test_callback():
    calls = []
    action = T.CallBackAction(2, lambda *args: calls.append((args, action.over)), a=1)
    assert action.callbackParams == {"a": 1}
    started(action)
    action.update(1)
    assert calls == []
    action.update(1)
    action.update(1)
    assert calls == [(({"a": 1},), False)] and calls[0][0][0] is action.callbackParams
    assert action.over is True
    keyed = T.CallBackAction(duration=0, callbackFunc=None, b=2, self_=3)
    assert keyed.callbackParams == {"b": 2, "self_": 3}


@pytest.mark.parametrize("function", [None, 0, False, ""])
def test_a_falsy_callback_is_not_called(function):
    action = T.CallBackAction(1, function)
    started(action)
    action.update(1)
    assert action.over is True


def test_a_callback_waits_for_a_target():
    calls = []
    action = T.CallBackAction(0, calls.append)
    action.Run()
    action.update(1)
    assert action.running is True and calls == [] and action.runtime == 0
    action.SetTarget("anything")
    action.update(1)
    assert calls == [{}]


def test_setters_that_fail_leave_the_action_unfinished():
    class Stuck(T.GameNode):
        def SetXY(self, x, y):
            raise LookupError

    action = T.MoveToAction(0, 1, 1)
    started(action, Stuck(None))
    with pytest.raises(LookupError):
        action.update(1)
    assert action.over is False and action.runtime == 1


def test_actions_honour_overridden_setters():
    seen = []

    class Clamped(T.GameNode):
        def SetXY(self, x, y):
            seen.append((x, y))
            T.GameNode.SetXY(self, min(x, 5), min(y, 5))

    node = Clamped(None)
    node.RunAction(T.MoveToAction(2, 20, 2))
    node.update(1)
    node.update(1)
    assert seen == [(10, 1), (20, 2)] and node.GetXY() == (5, 2)
