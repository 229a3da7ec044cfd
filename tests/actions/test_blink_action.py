import pytest
import Tessora as T
from helpers import started


def blink(action, node, times):
    result, clock = [], 0
    for time in times:
        action.update(time - clock)
        clock = time
        result.append((node.IsVisible(), action.over, action.blinkindex))
    return result


def test_blinking():
    action = T.BlinkAction(2, 2)
    node = started(action)
    assert action.delaytime == 1
    assert blink(action, node, [0.1, 0.3, 0.6, 0.7, 1.1, 1.6]) == [
        (False, False, 1),
        (False, False, 1),
        (True, False, 1),
        (True, False, 1),
        (False, True, 2),
        (False, True, 2),
    ]
    action.Run()
    assert action.blinkindex == 2
    node.SetVisible(True)
    action.update(0.1)
    assert action.over is False and action.blinkindex == 3


def test_endless_blinking():
    action = T.BlinkAction(duration=1)
    assert action.blinkcount == -1 and action.delaytime == -1.0
    node = started(action)
    for step in range(100):
        action.update(0.25)
        elapsed = (step + 1) * 0.25
        assert node.IsVisible() is (int(elapsed / -0.5) % 2 != 0), step
    assert action.over is False


def test_blinking_leaves_a_hidden_node_uncounted():
    action = T.BlinkAction(2, 2)
    node = started(action)
    node.SetVisible(False)
    action.update(0.1)
    assert action.blinkindex == 0
    node.visible = 2
    action.update(0.1)
    assert action.blinkindex == 0 and node.visible == 2
    action.update(0.5)
    assert node.visible is True


def test_blinking_without_time():
    with pytest.raises(ZeroDivisionError):
        T.BlinkAction(1, 0)
    action = T.BlinkAction(0, 3)
    started(action)
    with pytest.raises(ZeroDivisionError):
        action.update(1)
    nan = T.BlinkAction(float("nan"), 3)
    started(nan)
    with pytest.raises(ValueError, match="NaN"):
        nan.update(1)
    vast = T.BlinkAction(1e-300, 3)
    started(vast)
    with pytest.raises(OverflowError):
        vast.update(float("inf"))
    vast.runtime = 0
    vast.update(1e5)


@pytest.mark.parametrize("arguments", [("1",), (None,), (1, "1"), (1, None), ([], 1)])
def test_wrong_types(arguments):
    with pytest.raises(TypeError):
        T.BlinkAction(*arguments)
