"""The first game of the README works when pasted."""

import re
from pathlib import Path

from helpers import run_script

# Lets some frames pass, clicks the square once, and closes the window.
WRAPPER = """
import pygame
frames, flip = [], pygame.display.flip
def look():
    flip()
    frames.append(tuple(screen.get_at((int(square.WX) + 50, int(square.WY) + 50)))[:3])
    kinds = {5: pygame.MOUSEBUTTONDOWN, 12: pygame.QUIT}
    if len(frames) in kinds:
        pygame.event.post(pygame.event.Event(kinds[len(frames)], pos=square.GetXY(), button=1))
pygame.display.flip = look
try:
    exec(compile(GAME, "game.py", "exec"))
finally:
    print(len(frames), set(frames), screen.get_at((639, 479))[:3], label.GetText())
"""


def test_the_first_game_runs_draws_and_counts_a_click():
    readme = Path(__file__).resolve().parents[2] / "README.md"
    game = re.search(r"```python\n(.*?)```", readme.read_text(encoding="utf-8"), re.S).group(1)
    done = run_script(f"GAME = {game!r}\n" + WRAPPER, timeout=60)
    assert done.returncode == 0, done.stderr
    expected = "12 {(255, 190, 60)} (170, 200, 240) Catch the square! *"
    assert done.stdout.splitlines()[-1] == expected
