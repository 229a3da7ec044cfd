"""Labels: fonts, alignment, scaled and turned text, password characters, copying."""

import pygame
import pytest
import Tessora as T
from picture_oracle import LOOK, Place, assert_draws, assert_widget, dress, ink_box, scenery
from resource_files import default_font_file

PAPER = (255, 255, 255)
INK = pygame.Color(200, 10, 10)


class BlockFont:
    """Every character is a solid block, so that text can be compared pixel by pixel."""

    def __init__(self, width=6, height=10):
        self.width = width
        self.height = height
        self.rendered = []
        self.flags = []

    def size(self, text):
        return self.width * len(text), self.height

    def render(self, text, antialias, color, *background):
        self.rendered.append((text, color))
        surface = pygame.Surface(self.size(text), pygame.SRCALPHA, 32)
        surface.fill(color)
        return surface

    def set_underline(self, flag):
        self.flags.append(("underline", flag))


def label(font=None, **changes):
    """A label without background at 40, 30, sized 100 x 60."""
    widget = T.GUI_Label(None, 40, 30, "words")
    widget.DropBGColor()
    widget.SetFont(font or BlockFont(), "blocks")
    widget.SetTextColor(*INK)
    values = dict({"height": 60, "textleftgap": 7, "texttopgap": 5}, **changes)
    return dress(widget, **values)


HORIZONTAL = {"left": 7, "center": (100 - 30) * 0.5, "right": 70}
VERTICAL = {"top": 5, "center": (60 - 10) * 0.5, "bottom": 50}


def far_gap(align, gap):
    return gap if align in ("right", "bottom") else 0


@pytest.mark.parametrize("halign", list(HORIZONTAL))
@pytest.mark.parametrize("valign", list(VERTICAL))
@pytest.mark.parametrize("camera", [(0, 0, 1.0), (5, -4, 1.0), (3, 2, 1.5), (1.25, 0.75, 0.5)])
def test_alignment(screen, halign, valign, camera):
    widget = label(HAlign=halign, VAlign=valign)
    screen.fill(PAPER)
    widget.draw(screen, *camera)
    place = Place(dict(LOOK, x=40, y=30, height=60), camera)
    left = place.WX + HORIZONTAL[halign] * place.WSX
    top = place.WY + VERTICAL[valign] * place.WSY
    size = int(30 * place.WSX), int(10 * place.WSY)
    box = ink_box(screen, PAPER)
    assert box.size == size
    assert int(left) - far_gap(halign, 7) <= box.left <= int(left)
    assert int(top) - far_gap(valign, 5) <= box.top <= int(top)
    assert screen.get_at(box.center) == INK


@pytest.mark.parametrize("x", [-3.5, -0.25, 0.75, 40.0])
def test_text_pixels(screen, x):
    widget = label(HAlign="left", VAlign="top", x=x)
    scenery(screen)

    def expected(target):
        surface = BlockFont().render("words", True, INK).convert_alpha()
        target.blit(surface, (x + 7, 30 + 5))

    assert_draws(widget, screen, expected)


def test_text_lies_over_the_picture_and_under_the_border(screen):
    widget = label(HAlign="left", VAlign="top", textleftgap=0, texttopgap=0)
    widget.SetBGColor(0, 0, 255)
    widget.SetBorderWidth(3)
    widget.SetBorderColor(0, 255, 0)
    widget.SetStyle("solid")
    for image in (None, pygame.Surface((10, 10), 0, 32)):
        widget.image = image
        widget.draw(screen, 0, 0, 1.0)
        assert screen.get_at((50, 31)) == (0, 255, 0, 255)
        assert screen.get_at((50, 35)) == INK
        assert screen.get_at((100, 60)) == ((0, 0, 255, 255) if image is None else (0, 0, 0, 255))
    widget.image = None
    widget.SetStyle("hollow", False)
    screen.fill(PAPER)
    widget.draw(screen, 0, 0, 1.0)
    assert ink_box(screen, PAPER) == (40, 30, 30, 10)


@pytest.mark.parametrize("alpha", [0, 128])
def test_opacity_does_not_fade_text(screen, alpha):
    screen.fill(PAPER)
    label(alpha=alpha, HAlign="left", VAlign="top").draw(screen, 0, 0, 1.0)
    assert screen.get_at((50, 38)) == INK
    assert ink_box(screen, PAPER) == (47, 35, 30, 10)


@pytest.mark.parametrize(
    ("flag", "shown"), [(True, True), (1, True), (False, False), (None, False)]
)
def test_text_can_be_hidden(screen, flag, shown):
    screen.fill(PAPER)
    widget = label()
    widget.SetTextVisible(flag)
    widget.draw(screen, 0, 0, 1.0)
    assert (ink_box(screen, PAPER).width > 0) is shown


@pytest.mark.parametrize(
    ("text", "char", "shown"),
    [
        ("abc", "*", "***"),
        ("abc", None, "abc"),
        ("", "*", None),
        ("", None, None),
        ("ab", "xy", "xyxy"),
    ],
)
def test_password_characters(screen, text, char, shown):
    font = BlockFont()
    widget = label(font, text=text)
    widget.SetShowChar(char)
    screen.fill(PAPER)
    widget.draw(screen, 0, 0, 1.0)
    assert widget.GetText() == text
    if shown is None:
        assert ink_box(screen, PAPER).size == (0, 0)
    else:
        assert font.rendered[-1] == (shown, INK)
        assert ink_box(screen, PAPER).width == 6 * len(shown)
        widget.drawText(screen, text + "d", PAPER)
        expected = shown + (char or "d")
        assert font.rendered[-1] == (expected, PAPER)
    widget.drawText(screen, "", INK)


def test_text_may_run_out_of_the_widget_but_not_when_turned(screen):
    widget = label(text="a" * 25, HAlign="left", VAlign="top")
    screen.fill(PAPER)
    widget.draw(screen, 0, 0, 1.0)
    assert ink_box(screen, PAPER) == (47, 35, 150, 10)
    widget.angle = 180
    screen.fill(PAPER)
    widget.draw(screen, 0, 0, 1.0)
    box = ink_box(screen, PAPER)
    assert abs(box.width - 93) <= 2
    assert abs(box.left - 40) <= 2


@pytest.mark.parametrize("scale", [1.0, 2.0, 0.5])
@pytest.mark.parametrize("halign", list(HORIZONTAL))
def test_turned_text(screen, scale, halign):
    """A quarter turn to the left about the centre of the widget."""
    widget = label(BlockFont(6, 12), HAlign=halign, VAlign="center", angle=90, sx=scale, sy=scale)
    widget.SetXY(100, 60)
    screen.fill(PAPER)
    widget.draw(screen, 0, 0, 1.0)
    box = ink_box(screen, PAPER)
    center_x, center_y = 100 + 50 * scale, 60 + 30 * scale
    assert abs(box.width - 12 * scale) <= 3
    assert abs(box.height - 30 * scale) <= 3
    assert abs(box.centerx - center_x) <= 2
    start = HORIZONTAL[halign] * scale
    bottom = center_y + 50 * scale - start
    assert -2 <= box.bottom - bottom <= 2 + far_gap(halign, 7) * scale


@pytest.mark.parametrize("fontsize", [12, 40])
def test_real_fonts(screen, fontsize):
    font = pygame.font.Font(default_font_file(), fontsize)
    widget = label(font, HAlign="left", VAlign="top", text="Quick")
    screen.fill(PAPER)
    widget.draw(screen, 0, 0, 1.0)
    ink = font.render("Quick", True, INK).get_bounding_rect().move(47, 35)
    box = ink_box(screen, PAPER)
    for got, wanted in zip(box, ink):
        assert abs(got - wanted) <= 1
    screen.fill(PAPER)
    widget.draw(screen, 0, 0, 2.0)
    doubled = (94 + (ink.x - 47) * 2, 70 + (ink.y - 35) * 2, ink.width * 2, ink.height * 2)
    for got, wanted in zip(ink_box(screen, PAPER), doubled):
        assert abs(got - wanted) <= 3


def test_a_font_changed_between_two_draws(screen):
    font = pygame.font.Font(default_font_file(), 30)
    widget = label(font, HAlign="left", VAlign="top", text="Quick")
    for change in (font.set_bold, font.set_underline, font.set_italic):
        for flag in (True, False):
            change(flag)
            screen.fill(PAPER)
            widget.draw(screen, 0, 0, 1.0)
            ink = font.render("Quick", True, INK).get_bounding_rect().move(47, 35)
            for got, wanted in zip(ink_box(screen, PAPER), ink):
                assert abs(got - wanted) <= 1


@pytest.mark.parametrize("scale", [0, 0.01])
def test_text_scaled_to_nothing(screen, scale):
    widget = label(sx=scale, sy=scale)
    screen.fill(PAPER)
    for angle in (0, 30):
        widget.angle = angle
        widget.draw(screen, 0, 0, 1.0)
        assert ink_box(screen, PAPER).width <= 1
    with pytest.raises((ValueError, pygame.error)):
        dress(widget, sx=-1.0).draw(screen, 0, 0, 1.0)
    dress(widget, sx=1.0, sy=1.0, angle=0).draw(screen, 0, 0, 1.0)
    assert ink_box(screen, PAPER).size == (30, 10)


def test_text_color_with_alpha_and_changed_in_place(screen):
    widget = label(HAlign="left", VAlign="top")
    for alpha, expected in ((255, (200, 10, 10)), (0, PAPER)):
        widget.textColor.a = alpha
        screen.fill(PAPER)
        widget.draw(screen, 0, 0, 1.0)
        assert tuple(screen.get_at((50, 38)))[:3] == expected


class Fonts:
    """A resource manager that has fonts only, and notes how it is asked."""

    def __init__(self, font):
        self.font = font
        self.asked = []

    def GetFont(self, *args):
        self.asked.append(args)
        return self.font


@pytest.mark.parametrize(
    ("name", "is_file"),
    [
        ("Hero.ttf", True),
        ("HERO.TTF", True),
        ("hero.Otf", True),
        ("hero.ttf.bak", True),
        ("a.ttfont", True),
        (".otf", True),
        ("Arial", False),
        ("ttf", False),
        ("hero_ttf", False),
        ("hero.tt", False),
        ("", False),
    ],
)
def test_where_a_font_comes_from(screen, monkeypatch, name, is_file):
    fonts = Fonts(BlockFont())
    system = []
    monkeypatch.setattr(T, "Res", fonts)
    monkeypatch.setattr(pygame.font, "SysFont", lambda *args: system.append(args) or BlockFont())
    widget = T.GUI_Label(None, 0, 0, "x", "Other", 11)
    system.clear()
    widget.CreateFont(name, 21, True, False, 1, False)
    asked, silent = (fonts.asked, system) if is_file else (system, fonts.asked)
    assert asked == [(name, 21, True, False)]
    assert silent == []
    assert widget.GetFont().flags == [("underline", 1)]
    names = "fontname fontsize fontbold fontitalic fontunderline strikethrough"
    assert [getattr(widget, n) for n in names.split()] == [name, 21, True, False, 1, False]
    widget.CreateFont(fontname=name, fontsize=9, bold=0, italic=1, underline=False, strikethrough=2)
    assert asked[1] == (name, 9, 0, 1)
    assert widget.GetFontStrikeThrough() == 2


def test_strikethrough_reaches_fonts_that_have_it(screen, monkeypatch):
    class Font(BlockFont):
        def set_strikethrough(self, flag):
            self.flags.append(("strikethrough", flag))

    monkeypatch.setattr(pygame.font, "SysFont", lambda *args: Font())
    widget = T.GUI_Label()
    widget.CreateFont("Arial", 9, False, False, True, True)
    assert widget.font.flags == [("underline", True), ("strikethrough", True)]
    monkeypatch.undo()
    widget.CreateFont("Arial", 9, False, False, True, True)
    assert widget.font.get_underline()


def test_fonts_that_cannot_be_made(screen, monkeypatch):
    assert T.Res is None
    widget = label()
    font = widget.font
    for bad in (("x.ttf", 5), (None, 5), (5, 5), ("Arial", "big"), ("Arial", None)):
        with pytest.raises((AttributeError, TypeError, ValueError)):
            widget.CreateFont(*bad, False, False, False, False)
    monkeypatch.setattr(T, "Res", Fonts(None))
    with pytest.raises(AttributeError):
        widget.CreateFont("unknown.ttf", 9, False, False, False, False)
    with pytest.raises(AttributeError):
        T.GUI_Label(None, 0, 0, "x", "unknown.ttf")
    widget.SetFont(font, "blocks")
    screen.fill(PAPER)
    widget.draw(screen, 0, 0, 1.0)
    assert ink_box(screen, PAPER).size == (30, 10)


def test_set_font_keeps_size_and_flags(screen):
    widget = T.GUI_Label(None, 0, 0, "x", "Arial", 31)
    font = pygame.font.Font(None, 12)
    widget.SetFont(font=font, fontname="mine")
    assert (widget.GetFont(), widget.GetFontName(), widget.GetFontSize()) == (font, "mine", 31)


@pytest.mark.parametrize("text", [5, 2.5, [1], object(), "a\0b"], ids=repr)
def test_text_that_cannot_be_shown(screen, text):
    widget = label(pygame.font.Font(None, 20))
    widget.SetText(text)
    with pytest.raises((TypeError, ValueError)):
        widget.draw(screen, 0, 0, 1.0)
    widget.SetText("fine")
    screen.fill(PAPER)
    widget.draw(screen, 0, 0, 1.0)
    assert ink_box(screen, PAPER).width > 5


def test_a_font_that_fails(screen):
    class Failing(BlockFont):
        def render(self, *args):
            raise LookupError("no glyph")

    widget = label(Failing())
    with pytest.raises(LookupError):
        widget.draw(screen, 0, 0, 1.0)
    for bad in (None, 5, object()):
        widget.font = bad
        with pytest.raises(AttributeError):
            widget.draw(screen, 0, 0, 1.0)
    assert_widget(dress(widget, text="", height=100), screen)


def test_copying_a_label(screen):
    source = label(text="copied", showChar="*", HAlign="right", VAlign="bottom", textVisible=1)
    source.SetTextColor(1, 2, 3, 4)
    calls = []

    def recorder(name):
        def method(self, *args):
            calls.append((name, args))
            getattr(T.GUI_Label, name)(self, *args)

        return method

    setters = "SetText SetShowChar SetFont SetTextVisible SetTextHAlign SetTextVAlign SetTextColor"
    setters = [*setters.split(), "SetTextLeftGap", "SetTextTopGap"]
    recording = type("Recording", (T.GUI_Label,), {name: recorder(name) for name in setters})
    other = recording(None, 0, 0, "old", "Arial", 31)
    source.CopyTo(other)
    values = [("copied",), ("*",), (source.font, "blocks"), (1,), ("right",), ("bottom",)]
    values += [(1, 2, 3, 4), (7,), (5,)]
    assert calls == list(zip(setters, values))
    assert (other.x, other.height, other.fontsize) == (40, 60, 31)
    assert other.textColor is not source.textColor


@pytest.mark.parametrize(
    ("node_type", "copied"),
    [("Label", True), ("Button", True), ("CheckButton", False), ("label", False)],
)
def test_text_is_copied_to_labels_and_buttons_only(screen, node_type, copied):
    other = dress(T.GUI_Button(), NodeType=node_type)
    label(text="copied").CopyTo(other)
    assert (other.text == "copied") is copied
    assert other.x == 40
    picture = T.GUI_Image()
    label(text="copied").CopyTo(picture)
    assert picture.x == 40
    assert not hasattr(picture, "text")
