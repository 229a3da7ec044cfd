"""Some versions of pygame crash when a font from before pygame.quit() is used."""

from helpers import outcomes

PRELUDE = """
def restart():
    pygame.quit()
    pygame.init()
    return pygame.display.set_mode((80, 60))
def label():
    return T.GUI_Label(None, 0, 0, "text")
def given():
    widget = label()
    widget.SetFont(pygame.font.Font(None, 20), "given")
    return widget
def layer():
    made = T.GameLayer()
    made.AddPoint("p", 0, 5, 5)
    return made
def refused(thing, screen):
    try:
        thing.draw(screen)
    except pygame.error as error:
        return "made before" in str(error)
"""
OLD = """
old = {make}()
for turn in range(3):
    screen = restart()
    assert refused(old, screen)
    assert not refused({make}(), screen)
    old = {make}() if turn == 1 else old
"""


PIECES = {make: OLD.format(make=make) for make in ("label", "given", "layer")}
PIECES["label with a new font"] = """
widget = label()
screen = restart()
widget.CreateFont("Arial", 16)
widget.draw(screen)
assert screen.get_bounding_rect().size != (0, 0)
"""


def test_old_fonts_are_refused_after_every_quit_and_new_ones_work():
    assert outcomes(PIECES, PRELUDE) == dict.fromkeys(PIECES, "fine")
