import pytest
import Tessora as T
from helpers import Recorder


class Step(T.GAction):
    """An action over after a number of updates, which notes what is done to it."""

    log = []

    def __init__(self, name, updates=1):
        T.GAction.__init__(self)
        self.name, self.left = name, updates

    def SetTarget(self, targetNode):
        Step.log.append(self.name + ".target")
        T.GAction.SetTarget(self, targetNode)

    def Run(self):
        Step.log.append(self.name + ".run")
        T.GAction.Run(self)

    def update(self, delay):
        Step.log.append(self.name)
        T.GAction.update(self, delay)
        self.left -= 1
        if self.left == 0:
            self.over = True


@pytest.fixture
def log():
    Step.log = []
    return Step.log


def player_for(*groups, target="node"):
    player = T.ActionPlayer()
    player.SetTarget(target)
    player.AddActions(*groups)
    return player


def test_a_fresh_action():
    action = T.GAction()
    assert dict(vars(action)) == {"running": False, "targetNode": None, "runtime": 0, "over": False}
    assert list(vars(action)) == ["running", "targetNode", "runtime", "over"]
    assert type(action.runtime) is int
    assert (action.IsRunning(), action.GetRunTime(), action.IsOver()) == (False, 0, False)
    action.SetTarget(targetNode="node")
    assert action.targetNode == "node"
    with pytest.raises(TypeError):
        T.GAction(1)


def test_pause_stop_and_resume():
    action = T.GAction()
    action.update(5)
    assert action.runtime == 0
    assert action.Run() is None and action.IsRunning() is True
    action.update(delay=2)
    action.update(-0.5)
    action.Pause()
    action.update(1)
    assert action.GetRunTime() == 1.5 and "time" not in vars(action)
    action.Resume()
    action.update(1)
    assert action.Stop() is None
    action.update(1)
    assert action.GetRunTime() == 2.5 and action.time == 0 and list(vars(action))[-1] == "time"
    action.Resume()
    action.update(1)
    assert action.runtime == 3.5
    action.over = True
    action.update(1)
    assert action.runtime == 3.5
    action.Run()
    assert dict(vars(action)) == {
        "running": True,
        "targetNode": None,
        "runtime": 0,
        "over": False,
        "time": 0,
    }


@pytest.mark.parametrize(
    "running, over, counts",
    [(1, 0, True), (1.0, False, True), (2, False, False), ("yes", False, False), (1, None, False)],
)
def test_flags_are_equalities(running, over, counts):
    action, player = T.GAction(), player_for()
    player.CleanUp()
    for thing in (action, player):
        thing.Run() if thing is action else T.GAction.Run(player)
        thing.running, thing.over = running, over
        thing.update(3)
        assert (thing.runtime == 3) is counts


@pytest.mark.parametrize("delay", ["late", None, []])
def test_delays_that_are_no_numbers(delay):
    action = T.GAction()
    action.Run()
    with pytest.raises(TypeError):
        action.update(delay)
    assert action.runtime == 0
    action.runtime = "a"
    action.update("b")
    assert action.runtime == "ab"


def test_a_fresh_player_has_two_attributes():
    player = T.ActionPlayer()
    assert dict(vars(player)) == {"ActionArray": None, "ActionIndex": 0}
    assert list(vars(player)) == ["ActionArray", "ActionIndex"]
    for name in ("IsRunning", "IsOver", "GetRunTime", "Run"):
        with pytest.raises(AttributeError):
            getattr(player, name)()
    with pytest.raises(AttributeError):
        player.update(1)
    player.Pause()
    player.Stop()
    assert dict(vars(player))["running"] is False and player.time == 0


def test_add_actions_without_a_target():
    player = T.ActionPlayer()
    player.AddActions()
    player.AddActions([])
    assert player.ActionArray == ([],)
    action = T.GAction()
    with pytest.raises(AttributeError):
        player.AddActions([action])
    assert player.ActionArray == ([action],) and "targetNode" not in vars(player)
    with pytest.raises(TypeError):
        player.AddActions(groups=[])


def test_groups_are_kept_as_given(log):
    first, second = [Step("a"), Step("b")], (Step("c"),)
    player = player_for(first, second)
    assert type(player.ActionArray) is tuple
    assert player.ActionArray[0] is first and player.ActionArray[1] is second
    assert log == ["a.target", "b.target", "c.target"]
    assert player.CleanUp() is None and player.ActionArray is None


@pytest.mark.parametrize("group", [5, [5], None, [None]])
def test_groups_of_something_else(group):
    player = T.ActionPlayer()
    player.SetTarget("node")
    with pytest.raises((TypeError, AttributeError)):
        player.AddActions(group)
    assert player.ActionArray == (group,)


def test_only_the_first_group_plays(log):
    player = player_for([Step("a", 2), Step("b")], [Step("c")])
    log.clear()
    assert player.Run() is None
    assert (player.running, player.runtime, player.over, player.ActionIndex) == (True, 0, False, 0)
    for over, index in ((False, 0), (False, 1), (True, 2), (True, 2)):
        player.update(1)
        assert (player.IsOver(), player.ActionIndex) == (over, index)
    assert log == ["a.run", "a", "a", "b.run", "b"]
    assert player.runtime == 3 and player.IsRunning() is True
    assert player.ActionArray[1][0].targetNode == "node"
    log.clear()
    player.Run()
    assert log == ["a.run"] and player.over is False


def test_one_action_finishes_in_an_update(log):
    player = player_for([Step(name) for name in "abc"])
    player.Run()
    for _ in range(2):
        player.update(100)
    assert player.over is False
    player.update(100)
    assert player.over is True


def test_a_player_without_a_target_is_silent():
    player = player_for([T.GAction()], target=None)
    assert player.Run() is None and "running" not in vars(player)
    player.update(1)
    assert dict(vars(player))["ActionIndex"] == 0


def test_run_needs_groups():
    player = T.ActionPlayer()
    player.SetTarget("node")
    with pytest.raises(TypeError):
        player.Run()
    player.AddActions([])
    with pytest.raises(IndexError):
        player.Run()
    assert "running" not in vars(player)
    player.AddActions()
    player.Run()
    assert player.running is True
    with pytest.raises(IndexError):
        player.update(1)
    player.CleanUp()
    player.update(1)
    assert player.runtime == 2


def test_players_can_be_nested(log):
    inner = player_for([Step("x"), Step("y")])
    outer = player_for([inner, Step("z")])
    outer.Run()
    for _ in range(3):
        outer.update(1)
    assert outer.over is True and [n for n in log if "." not in n] == ["x", "y", "z"]


def test_foreign_actions():
    action = Recorder(IsOver=1)
    node = T.GameNode(None)
    node.RunAction(action, T.CallBackAction(1, None))
    node.update(0.5)
    assert action.calls == [("SetTarget", (node,)), ("Run", ()), ("update", (0.5,)), ("IsOver", ())]
    assert node.ActionPlayer.ActionIndex == 1
    action.results["IsOver"] = 2
    node.RunAction(action)
    node.update(1)
    assert node.ActionPlayer.over is False


def test_a_callback_that_starts_other_actions():
    log, node = [], T.GameNode(None)

    def swap(params):
        node.RunAction(T.CallBackAction(0, lambda p: log.append("new")), T.CallBackAction(9, None))

    node.RunAction(T.CallBackAction(0, swap), T.CallBackAction(0, lambda p: log.append("old")))
    for _ in range(3):
        node.update(1)
    assert log == ["new"] and node.ActionPlayer.ActionIndex == 1


@pytest.mark.parametrize("what", ["CleanUp", "None", "shorter"])
def test_a_callback_that_empties_the_player(what):
    node = T.GameNode(None)

    def empty(params):
        player = node.ActionPlayer
        if what == "CleanUp":
            player.CleanUp()
        elif what == "None":
            node.ActionPlayer = None
        else:
            player.ActionArray = ([],)

    node.RunAction(T.CallBackAction(0, empty), T.CallBackAction(0, None))
    try:
        node.update(1)
    except IndexError:
        assert what == "shorter"
    node.RunAction(T.CallBackAction(1, None))
    node.update(1)
    assert node.ActionPlayer.over is True


def test_the_same_action_from_its_own_callback_is_over():
    calls, node = [], T.GameNode(None)

    def again(params):
        calls.append(1)
        node.RunAction(action)

    action = T.CallBackAction(0, again)
    node.RunAction(action)
    for _ in range(4):
        node.update(1)
    assert calls == [1]


def test_an_error_in_an_action_can_be_tried_again():
    node, seen = T.GameNode(None), []

    def callback(params):
        seen.append(params)
        if len(seen) == 1:
            raise LookupError("first")

    node.RunAction(T.CallBackAction(1, callback, a=1))
    with pytest.raises(LookupError):
        node.update(1)
    assert node.ActionPlayer.over is False
    node.update(1)
    assert len(seen) == 2 and node.ActionPlayer.over is True


def test_strange_indices():
    player = player_for([T.CallBackAction(5, None)])
    player.Run()
    player.ActionIndex = 7
    with pytest.raises(IndexError):
        player.update(1)
    player.ActionIndex = "first"
    with pytest.raises(TypeError):
        player.update(1)
    player.ActionIndex = -1
    player.update(1)
    player.ActionIndex = 0
    player.ActionArray = {0: [T.CallBackAction(0, None)]}
    player.ActionArray[0][0].SetTarget("node")
    player.Run()
    player.update(1)
    assert player.over is True
