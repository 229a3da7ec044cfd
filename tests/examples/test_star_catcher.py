"""The demo game, played through pygame events; what it draws is looked at."""

import importlib.util
import os
import subprocess
import sys
from pathlib import Path

import pygame
import pytest
import Tessora

FOLDER = Path(__file__).resolve().parents[2] / "examples" / "star_catcher"
SIBLINGS = ("autoplay", "widgets")
PLAY, QUIT = (290, 372), (510, 372)
PLAY_AGAIN, MENU = (292, 304), (508, 304)
# Where the net hides nothing.
ASIDE = (400, 470)
SCORE_AREA = pygame.Rect(72, 14, 100, 46)


@pytest.fixture
def script(monkeypatch):
    """The game's script as a module; it imports its neighbours by their bare names."""
    monkeypatch.setattr(sys, "path", [str(FOLDER), *sys.path])
    for name in SIBLINGS:
        monkeypatch.delitem(sys.modules, name, raising=False)
    spec = importlib.util.spec_from_file_location("star_catcher", str(FOLDER / "main.py"))
    module = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    yield module
    for name in SIBLINGS:
        sys.modules.pop(name, None)


class Player:
    """Sits before the game: posts events, lets frames pass, looks at the screen."""

    def __init__(self, game, monkeypatch):
        self.game = game
        self.pointer = ASIDE
        # The dummy video driver has no pointer of its own.
        monkeypatch.setattr(pygame.mouse, "get_pos", lambda: self.pointer)
        pygame.event.clear()
        self.wait(1)

    def wait(self, frames, delay=1 / 60):
        for _ in range(frames):
            for event in pygame.event.get():
                self.game.handle_event(event)
            self.game.update(delay)
            self.game.draw()

    def post(self, kind, **values):
        pygame.event.post(pygame.event.Event(kind, **values))
        self.wait(1)

    def point_at(self, pos):
        self.pointer = pos
        self.post(pygame.MOUSEMOTION, pos=pos, rel=(0, 0), buttons=(0, 0, 0))

    def press(self, pos):
        self.point_at(pos)
        self.post(pygame.MOUSEBUTTONDOWN, pos=pos, button=1)

    def release(self, pos):
        self.post(pygame.MOUSEBUTTONUP, pos=pos, button=1)

    def click(self, pos):
        self.press(pos)
        self.release(pos)
        # Out of the way of the next button that may appear here.
        self.point_at(ASIDE)

    def pixels(self, area):
        return pygame.image.tobytes(self.game.screen.subsurface(area), "RGB")

    def colour(self, pos, size=20):
        area = pygame.Rect(0, 0, size, size)
        area.center = pos
        return pygame.transform.average_color(self.game.screen, area)[:3]

    def skip(self, seconds):
        """Time that nobody looks at."""
        for _ in range(int(60 * seconds)):
            self.game.update(1 / 60)
        self.wait(1)

    def start(self, flyers=True):
        self.click(PLAY)
        assert self.game.active is self.game.play
        if not flyers:
            self.game.next_flyer = 1e9
            self.game.play.CleanUpGameNode()
            self.wait(1)

    def launch(self, kind):
        """One flyer, taken to the middle of its way."""
        before = set(self.game.play.GetAllGameNode().values())
        self.game.launch(kind)
        (flyer,) = set(self.game.play.GetAllGameNode().values()) - before
        for _ in range(600):
            if flyer.GetX() > 60 and flyer.GetY() > 100:
                return flyer
            self.wait(1)
        raise AssertionError("the flyer never came into view")


@pytest.fixture
def player(script, monkeypatch, capsys):
    monkeypatch.setattr(Tessora, "Res", None)
    pygame.init()
    screen = pygame.display.set_mode(script.SIZE)
    game = script.Game(screen, seed=3)
    yield Player(game, monkeypatch)
    if pygame.mixer.get_init():
        pygame.mixer.music.stop()
        pygame.mixer.stop()


def difference(one, other):
    return sum(abs(a - b) for a, b in zip(one, other))


def button_area(centre):
    """The opaque middle of a button; the hills scroll behind its rim."""
    area = pygame.Rect(0, 0, 150, 40)
    area.center = centre
    return area


@pytest.mark.parametrize(("used", "other"), [(PLAY, QUIT), (QUIT, PLAY)])
def test_a_button_shows_three_states_and_leaves_its_neighbour_alone(player, used, other):
    seen, unused = [], []
    for step in (lambda: None, lambda: player.point_at(used), lambda: player.press(used)):
        step()
        seen.append(player.pixels(button_area(used)))
        unused.append(player.pixels(button_area(other)))
    assert len(set(seen)) == 3
    assert len(set(unused)) == 1

    player.point_at(ASIDE)
    player.release(ASIDE)
    assert player.pixels(button_area(used)) == seen[0]
    assert player.game.running
    assert player.game.active is player.game.title


def test_hidden_screens_are_neither_seen_nor_clicked(player):
    title = player.pixels(button_area(PLAY))
    player.click(PLAY_AGAIN)
    assert player.game.active is player.game.title

    player.start(flyers=False)
    assert player.pixels(button_area(PLAY)) != title
    player.click(QUIT)
    assert player.game.running


@pytest.mark.parametrize(
    ("kind", "points"), [("star", 10), ("comet", 30), ("grump", -20)], ids=lambda value: str(value)
)
def test_a_click_on_what_flies_scores_and_removes_it(player, kind, points):
    player.start(flyers=False)
    flyer = player.launch("star")
    player.click((int(flyer.GetX()), int(flyer.GetY())))
    player.skip(1.5)
    score, label = player.game.score, player.pixels(SCORE_AREA)
    assert score == 10
    assert not player.game.play.GetAllGameNode()

    flyer = player.launch(kind)
    place = int(flyer.GetX()), int(flyer.GetY())
    shown = player.colour(place)
    player.click(place)
    assert player.game.score == max(0, score + points)
    assert player.game.score_label.GetText() == str(player.game.score)
    player.wait(3)
    lit = player.colour(place)
    assert sum(lit) > sum(shown), "the burst adds light"

    player.skip(1.5)
    assert not player.game.play.GetAllGameNode()
    sky = player.colour(place)
    assert difference(shown, sky) > 60, "the sprite was drawn, and is gone"
    assert player.pixels(SCORE_AREA) != label


def test_a_click_beside_everything_scores_nothing(player):
    player.start(flyers=False)
    flyer = player.launch("star")
    player.click((int(flyer.GetX()) - 120, int(flyer.GetY())))
    assert player.game.score == 0
    player.skip(8)
    assert not player.game.play.GetAllGameNode(), "what is missed leaves the game below the screen"


def test_flyers_come_by_themselves(player):
    player.start()
    player.skip(4)
    assert player.game.play.GetGameNodeCount() >= 6


@pytest.mark.parametrize("kind", ["star", "comet", "grump"])
def test_sprites_are_animated(player, kind):
    player.start(flyers=False)
    flyer = player.launch(kind)
    # Neither travelling nor rocking, it changes by its frames alone.
    flyer.ActionPlayer.Pause()
    if flyer.sprite.ActionPlayer is not None:
        flyer.sprite.ActionPlayer.Pause()
    frames = set()
    for _ in range(60):
        player.wait(1)
        frames.add(player.pixels(pygame.Rect(flyer.GetX() - 20, flyer.GetY() - 20, 40, 40)))
    assert len(frames) >= 4


def test_the_hills_scroll_round_without_a_gap_or_a_jump(player):
    game, row = player.game, pygame.Rect(0, 400, 800, 79)
    views = {}
    for _ in range(1700 // 30):
        game.update(1.0)
        game.draw()
        views[round(game.near.scrollPosX)] = player.pixels(row)
        bottom = [game.screen.get_at((x, 475)) for x in range(0, 800, 7)]
        assert all(colour.r < 80 for colour in bottom), "the sky shows through"
    assert min(views) < -760
    assert max(views) > 760
    assert len(set(views.values())) == len(views)

    for layer in (game.far, game.near):
        layer.SetAutoScroll(0, 0)
    shown = []
    for position in (-800, 800):
        game.far.scrollPosX = game.near.scrollPosX = position
        game.draw()
        shown.append(player.pixels(row))
    assert shown[0] == shown[1]


def test_a_round_ends_with_the_score_and_can_be_played_again(player):
    player.start(flyers=False)
    flyer = player.launch("comet")
    player.click((int(flyer.GetX()), int(flyer.GetY())))
    playing = player.pixels(pygame.Rect(200, 60, 400, 260))

    player.game.time_left = 0.01
    player.wait(2)
    assert player.game.active is player.game.result
    assert player.game.result_label.GetText() == "Score 30"
    assert player.pixels(pygame.Rect(200, 60, 400, 260)) != playing
    hidden = player.colour((400, 184))
    player.skip(2)
    assert difference(player.colour((400, 184)), hidden) > 60, "the stars grow from nothing"

    player.click(PLAY_AGAIN)
    assert player.game.active is player.game.play
    assert player.game.score_label.GetText() == "0"
    assert player.game.time_left > 29

    player.game.time_left = 0.01
    player.wait(2)
    assert player.game.result_label.GetText() == "Score 0"
    assert player.game.best_label.GetText() == "Best 30"
    player.click(MENU)
    assert player.game.active is player.game.title


def test_the_last_seconds_blink(player):
    player.start(flyers=False)
    area = pygame.Rect(720, 14, 60, 46)
    player.game.time_left = 5.01
    player.wait(2)
    seen = set()
    for _ in range(50):
        player.wait(1)
        seen.add((player.game.time_label.GetText(), player.pixels(area)))
    # Shown and hidden while the number stays the same.
    assert len({pixels for text, pixels in seen if text == "5"}) == 2


def test_keys_start_and_the_window_closes(player):
    player.post(pygame.KEYDOWN, key=pygame.K_RETURN, mod=0, unicode="\r")
    assert player.game.active is player.game.play
    player.post(pygame.QUIT)
    assert not player.game.running


def test_music_plays_and_every_catch_is_heard(player):
    assert pygame.mixer.music.get_busy()
    player.start(flyers=False)
    flyer = player.launch("star")
    heard = Tessora.Res.soundPlayCount
    player.press((int(flyer.GetX()), int(flyer.GetY())))
    assert Tessora.Res.soundPlayCount == heard + 1
    assert Tessora.Res.soundDict[heard].get_length() > 0.2


def test_turned_and_trimmed_frames_come_back_upright_in_their_full_size(player):
    comet = player.game.models["comet"].GetImage()
    assert comet.get_size() == (120, 60)
    halves = [comet.subsurface((x, 0, 60, 60)).get_bounding_rect(200) for x in (0, 60)]
    assert halves[0].width < halves[1].width > 40, "the head flies in front"

    net = player.game.models["net"].GetImage()
    assert net.get_size() == (168, 168)
    alphas = [net.get_at((at, at)).a for at in (30, 64, 84, 140)]
    assert alphas[0] == 0, "nothing left above the ring"
    assert alphas[1] > 200, "the ring"
    assert 0 < alphas[2] < 255, "the mesh"
    assert alphas[3] == 255, "the handle"


def test_the_whole_game_plays_itself_from_any_folder(tmp_path):
    env = dict(os.environ, TESSORA_HEADLESS="1")
    env["PYTHONPATH"] = os.pathsep.join(entry for entry in sys.path if entry)
    done = subprocess.run(
        [sys.executable, str(FOLDER / "main.py")],
        cwd=str(tmp_path),
        env=env,
        capture_output=True,
        text=True,
        timeout=900,
    )
    assert done.returncode == 0, done.stdout[-2000:] + done.stderr
    assert "frames per second" in done.stdout
    assert "collidepoint" in done.stdout
    picture = pygame.image.load(str(tmp_path / "demo.png"))
    assert picture.get_size() == (800, 480)
    colours = {tuple(picture.get_at((x, y))) for x in range(0, 800, 8) for y in range(0, 480, 8)}
    assert len(colours) > 200
