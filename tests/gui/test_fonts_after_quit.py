"""Some versions of pygame crash when a font from before pygame.quit() is used."""

from helpers import script_output

SCRIPT = """
import pygame
import Tessora as T
pygame.init()
label, layer = T.GUI_Label(None, 0, 0, "text"), T.GameLayer()
given = T.GUI_Label()
given.SetFont(pygame.font.Font(None, 20), "given")
layer.AddPoint("p", 0, 5, 5)
pygame.quit()
pygame.init()
screen = pygame.display.set_mode((80, 60))
given.SetText("text")
for draw in ({draws}):
    try:
        draw()
    except pygame.error as error:
        print("made before" in str(error))
label.CreateFont("Arial", 16)
label.draw(screen, 0, 0, 1.0)
print(screen.get_bounding_rect().size != (0, 0))
"""


def test_old_fonts_are_refused_and_new_ones_work():
    draws = "lambda: label.draw(screen), lambda: given.draw(screen), lambda: layer.draw(screen)"

    assert script_output(SCRIPT.format(draws=draws)) == ["True"] * 4
