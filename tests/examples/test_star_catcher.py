"""The demo game, driven through pygame events from title to end; what it draws is looked at."""

import importlib.util
import sys
from pathlib import Path

import pygame
import Tessora

FOLDER = Path(__file__).resolve().parents[2] / "examples" / "star_catcher"
PLAY, QUIT, AGAIN, MENU, ASIDE = (290, 372), (510, 372), (292, 304), (508, 304), (400, 470)


# Sits before the game: posts events, lets frames pass, looks at the screen.
class Player:
    def __init__(self, script, monkeypatch):
        self.game, self.pointer = script.Game(pygame.display.set_mode(script.SIZE), seed=3), ASIDE
        # The dummy video driver has no pointer of its own.
        monkeypatch.setattr(pygame.mouse, "get_pos", lambda: self.pointer)
        self.wait(1)

    def wait(self, frames):
        for _ in range(frames):
            for event in pygame.event.get():
                self.game.handle_event(event)
            self.game.update(1 / 60)
            self.game.draw()

    # Returns how many different looks the place had untouched, pointed at and pressed.
    def click(self, pos):
        looks = {self.look(pos)}
        for kind in (pygame.MOUSEMOTION, pygame.MOUSEBUTTONDOWN, pygame.MOUSEBUTTONUP):
            self.pointer = pos
            pygame.event.post(pygame.event.Event(kind, pos=pos, button=1))
            self.wait(1)
            looks.add(self.look(pos))
        self.pointer = ASIDE
        self.wait(1)
        return len(looks)

    def look(self, pos):
        area = pygame.Rect(pos[0] - 60, pos[1] - 20, 120, 40).clamp(0, 0, 800, 480)
        return pygame.image.tobytes(self.game.screen.subsurface(area), "RGB")

    def color(self, pos):
        area = (pos[0] - 10, pos[1] - 10, 20, 20)
        return pygame.transform.average_color(self.game.screen, area)[:3]

    # One flyer alone, taken to the middle of its way; returns where it is.
    def launch(self, kind):
        self.game.next_flyer = 1e9
        self.game.play.CleanUpGameNode()
        self.game.launch(kind)
        self.wait(1)
        (flyer,) = self.game.play.GetAllGameNode().values()
        while flyer.GetX() < 60 or flyer.GetY() < 100:
            self.wait(1)
        return int(flyer.GetX()), int(flyer.GetY())


def test_from_the_title_to_the_end_and_again(screen, monkeypatch):
    # The game's script imports its neighbours by their bare names.
    monkeypatch.setattr(sys, "path", [str(FOLDER), *sys.path])
    monkeypatch.setattr(Tessora, "Res", None)
    found = importlib.util.spec_from_file_location("star_catcher", str(FOLDER / "main.py"))
    script = importlib.util.module_from_spec(found)
    found.loader.exec_module(script)
    player, total = Player(script, monkeypatch), 0
    game = player.game
    assert pygame.mixer.music.get_busy()
    player.click(AGAIN)
    assert game.active is game.title, "the buttons of the hidden end screen take no click"
    assert player.click(PLAY) >= 3
    player.wait(150)
    assert game.play.GetGameNodeCount() >= 3, "flyers come by themselves"
    for kind, points in (("star", 10), ("comet", 30), ("grump", -20)):
        place, heard = player.launch(kind), Tessora.Res.soundPlayCount
        shown, label = player.color(place), player.look((120, 36))
        player.click((place[0] + 150, place[1]))
        assert game.score == total, "a click beside it scores nothing"
        place, total = player.launch(kind), total + points
        player.click(place)
        assert (game.score, Tessora.Res.soundPlayCount) == (total, heard + 1)
        player.wait(3)
        assert sum(player.color(place)) > sum(shown), "the burst adds light"
        player.wait(60)
        assert sum(abs(a - b) for a, b in zip(shown, player.color(place))) > 60, (
            "the sprite is gone"
        )
        assert player.look((120, 36)) != label, "the score is shown"
    for button, layer in ((AGAIN, game.play), (MENU, game.title)):
        hills, game.time_left = player.look((400, 104)), 0.01
        player.wait(2)
        assert (game.active, game.best_label.GetText()) == (game.result, "Best 20")
        assert player.look((400, 104)) != hills
        player.click(button)
        assert game.active is layer
    player.click(QUIT)
    assert not game.running
    pygame.mixer.quit()
