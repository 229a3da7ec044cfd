"""The actions that the example adds to the engine's own."""

import importlib.util
import os
import subprocess
import sys
from pathlib import Path

import pygame
import pytest
import Tessora
from Tessora import BlinkAction, CallBackAction, MoveByAction, RotateByAction, ScaleToAction

SCRIPT = str(Path(__file__).resolve().parents[2] / "examples" / "own_actions.py")
found = importlib.util.spec_from_file_location("own_actions", SCRIPT)
own = importlib.util.module_from_spec(found)
found.loader.exec_module(own)


@pytest.fixture
def node():
    return Tessora.GUI_Image(None, 10, 20)


def play(node, *delays):
    for delay in delays:
        node.update(delay)


def test_a_picture_fades_to_an_opacity(node):
    node.RunAction(own.FadeToAction(2, 55))
    play(node, 0.5)
    assert node.alpha == 205
    play(node, 1, 1)
    assert node.alpha == 55 and node.ActionPlayer.IsOver()


def test_a_change_without_duration_is_done_at_once(node):
    node.RunAction(own.FadeToAction(0, 7))
    play(node, 0.01)
    assert node.alpha == 7


def test_a_glide_moves_the_anchor_from_where_it_is(node):
    parent = Tessora.GameNode(None, 100, 100)
    node.SetParent(parent)
    node.SetImageAnchor("center")
    node.RunAction(own.GlideToAction(1, 30, 60))
    play(node, 0.25)
    assert node.GetXY() == (15, 30)
    play(node, 1)
    assert node.GetXY() == (30, 60)


def test_together_lasts_as_long_as_the_longest(node):
    both = own.Together(own.GlideToAction(1, 110, 20), RotateByAction(2, 90))
    node.RunAction(both, own.FadeToAction(0, 1))
    play(node, 0.5)
    assert (node.GetX(), node.GetAngle()) == (60, 22.5)
    play(node, 0.5, 0.5)
    assert (node.GetX(), node.GetAngle(), both.IsOver()) == (110, 67.5, False)
    play(node, 0.5, 0)
    assert (node.GetAngle(), both.IsOver(), node.alpha) == (90, True, 1)


@pytest.mark.parametrize(("times", "ends_at"), ((1, 20), (3, 40)), ids=("once", "thrice"))
def test_repeat_plays_all_its_actions_so_many_times(node, times, ends_at):
    calls = []
    there = MoveByAction(1, 10, 0)
    node.RunAction(own.Repeat(times, there, CallBackAction(0, calls.append, n=1)))
    play(node, *[0.5, 0.5, 0] * times, 5)
    assert (node.GetX(), len(calls), node.ActionPlayer.IsOver()) == (ends_at, times, True)


def test_repeat_without_a_number_goes_on_and_can_be_run_again(node):
    for_ever = own.Repeat(None, RotateByAction(1, 10))
    node.RunAction(for_ever)
    play(node, *[1] * 50)
    assert (node.GetAngle(), for_ever.IsOver(), for_ever.rounds) == (500, False, 50)
    node.RunAction(for_ever)
    assert for_ever.rounds == 0


def test_repeats_and_togethers_nest(node):
    step = own.Repeat(2, own.Together(MoveByAction(1, 1, 0), ScaleToAction(1, 3, 3)))
    node.RunAction(own.Repeat(2, step, own.FadeToAction(1, 0)))
    play(node, *[1] * 6)
    assert (node.GetX(), node.GetSX(), node.alpha) == (14, 3, 0)
    assert node.ActionPlayer.IsOver()


@pytest.mark.parametrize("curve", (own.start_slowly, own.smooth, own.bounce))
def test_curves_begin_and_end_where_they_should(curve):
    assert (curve(0), curve(1)) == (0, 1)
    assert all(0 <= curve(i / 1000) <= 1 for i in range(1001))


def test_ease_follows_its_curve_and_ends_exactly(node):
    node.RunAction(own.Ease(own.GlideToAction(2, 110, 20), own.start_slowly))
    play(node, 1)
    assert node.GetX() == 35
    play(node, 1)
    assert node.GetX() == 110 and node.ActionPlayer.IsOver()


def test_ease_goes_on_when_a_curve_reaches_its_end_early(node):
    curve = {0.25: 1, 0.5: 0.5, 0.75: 1.5, 1: 1}
    eased = own.Ease(RotateByAction(4, 100), curve.__getitem__)
    node.RunAction(eased)
    angles = []
    for _ in range(4):
        play(node, 1)
        angles.append(node.GetAngle())
    assert angles == [100, 50, 100, 100] and eased.IsOver()


def test_a_paused_action_stands_still(node):
    node.RunAction(own.FadeToAction(1, 0))
    node.ActionPlayer.Pause()
    play(node, 0.5)
    assert node.alpha == 255
    node.ActionPlayer.Resume()
    play(node, 0.5)
    assert node.alpha == 127.5


@pytest.mark.parametrize(("kind", "ends"), ((own.Blink, True), (BlinkAction, False)))
def test_blinks_can_be_repeated(node, kind, ends):
    node.RunAction(own.Repeat(2, kind(1, 2)))
    play(node, *[0.125] * 40)
    assert node.ActionPlayer.IsOver() is ends


def test_the_demo_shows_a_faded_a_turned_and_two_moved_stars(tmp_path):
    paths = os.pathsep.join(entry for entry in sys.path if entry)
    env = dict(os.environ, TESSORA_HEADLESS="1", PYTHONPATH=paths)
    subprocess.check_call([sys.executable, SCRIPT], cwd=str(tmp_path), env=env, timeout=600)
    picture = pygame.image.load(str(tmp_path / "own_actions.png"))
    faded, turned, back, fallen = (
        picture.get_at(place).r for place in ((88, 135), (240, 135), (392, 205), (544, 190))
    )
    ground = picture.get_at((5, 5)).r
    assert ground < faded < turned
    assert min(turned, back, fallen) > 200
    assert picture.get_at((392, 150)).r == ground
