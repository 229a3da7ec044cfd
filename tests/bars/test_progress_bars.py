"""Progress bars: how far they are filled, and with what."""

import pytest
import Tessora as T
from picture_oracle import LOOKS, assert_parts, assert_same, noise

WHITE, RED, DARK, GREY = (255,) * 4, (64, 0, 0, 255), (64, 64, 64, 255), (128, 128, 128, 255)
FILLS = [(0, 0, 100, 0), (50, 0, 100, 50), (100, 0, 100, 100), (150, 0, 100, 100)]
FILLS += [(-7, 0, 100, 0), (15, 10, 20, 50), (15, 20, 10, 50), (25, 20, 10, 0)]


@pytest.mark.parametrize(("value", "least", "most", "filled"), FILLS)
@pytest.mark.parametrize("cls", [T.GUI_HProgressBar, T.GUI_VProgressBar])
def test_the_fill_is_the_share_of_the_range(screen, cls, value, least, most, filled):
    bar = cls()
    bar.SetRange(least, most)
    bar.SetValue(value)
    bar.draw(screen)
    fill, marker = bar.GetProgressImage(), bar.GetPositionImages()
    along = (fill.width, fill.height)[:: 1 if cls is T.GUI_HProgressBar else -1]
    assert along == (filled, 20) and bar.GetValue() == value
    assert filled - 1 in marker.GetXY()


def test_the_fill_is_as_broad_as_the_bar_and_needs_a_range(screen):
    bar = T.GUI_HProgressBar(None, 0, 0)
    bar.SetHeight(30)
    bar.draw(screen)
    assert (bar.ProgressImage.height, bar.PositionImage.height) == (30, 30)
    bar.SetRange(3, 3)
    pytest.raises(ZeroDivisionError, bar.draw, screen)


ACROSS = [(0, 0, 100, 20, WHITE, "sunken"), (0, 0, 50, 20, RED, None), (49, 0, 2, 20, GREY, None)]
DOWN = [(0, 0, 20, 100, WHITE, "sunken"), (0, 0, 20, 50, DARK, None), (0, 49, 20, 2, GREY, None)]
LYING = [(T.GUI_HProgressBar, ACROSS), (T.GUI_VProgressBar, DOWN)]


@pytest.mark.parametrize("look", LOOKS)
@pytest.mark.parametrize(("cls", "parts"), LYING)
def test_bars_in_every_look(screen, look, cls, parts):
    bar = cls(None, 80, 70)
    for count in (2, 3):
        bar.SetPositionImageVisible(count == 3)
        assert_parts(bar, screen, look, parts[:count], framed=True)


def test_pictures_fill_the_bar_in_their_own_colors(screen):
    bar, picture = T.GUI_HProgressBar(None, 10, 10), noise((50, 20), 3, 0)
    bar.SetProgressImages(picture)
    bar.SetStyle("flat")
    bar.draw(screen)
    assert_same(screen.subsurface((10, 10, 50, 20)), picture)
    bar.SetProgressImageVisible(False)
    bar.draw(screen)
    assert screen.get_at((12, 12)) == WHITE


def test_the_text_lies_under_the_fill(screen):
    bar = T.GUI_HProgressBar(None, 0, 0, "half")
    bar.draw(screen)
    assert {tuple(screen.get_at((x, 10))) for x in range(2, 50)} == {RED}
