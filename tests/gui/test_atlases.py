"""Frame atlases and animations in property lists, as packers write them."""

import plistlib

import pygame
import pytest
import Tessora as T
from picture_oracle import assert_same, noise, outcome
from resource_files import write_file, write_png

RECTS = {"a.png": (0, 0, 16, 12), "b.png": (20, 3, 7, 30), "c.png": (40, 40, 24, 24)}


# The text of a point or size, or of a rectangle.
def braced(*values):
    if len(values) == 4:
        return f"{{{braced(*values[:2])},{braced(*values[2:])}}}"
    return f"{{{values[0]},{values[1]}}}"


# A frame's entry, by layout.
MODERN = ("frame", "rotated", "sourceSize", "offset")
OLDER = ("textureRect", "textureRotated", "spriteSourceSize", "spriteOffset")


def modern(rect, rotated=False, source=None, offset=None, keys=MODERN, **more):
    entry = dict(zip(keys, (braced(*rect), rotated)), **more)
    return dict(entry, **{k: braced(*v) for k, v in zip(keys[2:], (source, offset)) if v})


def older(*values, **more):
    return modern(*values, keys=OLDER, aliases=[], **more)


def oldest(rect, rotated=False, source=None, offset=None):
    entry = dict(zip(("x", "y", "width", "height"), rect))
    entry.update(zip(("originalWidth", "originalHeight"), source or ()))
    entry.update(zip(("offsetX", "offsetY"), offset or (0.0, 0.0)))
    return entry


LAYOUTS = [modern, older, oldest]


@pytest.fixture
def load(screen, tmp_path, monkeypatch):
    """Writes an atlas and its sheets, and loads it into a widget."""

    def make(frames, sheets, *args, **metadata):
        root = {"frames": frames, "texture": {"deep": {"er": [1, {"x": 2}, 2.5], "yes": True}}}
        root.update({"metadata": metadata} if metadata else {})
        write_file(tmp_path / "one.plist", plistlib.dumps(root, sort_keys=False))
        for name, sheet in sheets.items():
            write_png(tmp_path / name, sheet)
        monkeypatch.setattr(T, "Res", T.PyGameResManager(str(tmp_path)))
        widget = T.GUI_Image()
        widget.LoadImageFramesPList("one.plist", *args)
        return widget

    return make


SHEET = noise((64, 64), 1)


@pytest.mark.parametrize("layout", LAYOUTS)
def test_layouts(load, layout):
    widget = load({name: layout(rect) for name, rect in RECTS.items()}, {"one.png": SHEET})
    assert (widget.imageCount, widget.GetPlistFile()) == (3, "one.plist")
    assert {name: tuple(rect) for name, rect in widget.imageFrameRectArray.items()} == RECTS
    for frame, rect in zip(widget.imageArray, RECTS.values()):
        assert_same(frame, SHEET.subsurface(rect))
    assert widget.image is widget.imageArray[0]


NAMED = {"realTextureFileName": "real.png", "textureFileName": "named.png"}
# The files that exist, the argument, and the sheet that is taken.
SHEETS = [
    (["one.png", "real.png", "named.png", "given.png"], ["GIVEN.png"], "given.png"),
    (["one.png", "real.png", "named.png"], [], "one.png"),
    (["real.png", "named.png"], [], "real.png"),
    (["named.png"], [], "named.png"),
]


@pytest.mark.parametrize(("files", "argument", "taken"), SHEETS)
def test_where_the_sheet_is_looked_for(load, files, argument, taken):
    sheets = {name: noise((16, 12), name) for name in files}
    widget = load({"a": modern((0, 0, 16, 12))}, sheets, *argument, **NAMED)
    assert_same(widget.image, sheets[taken])


TRIM, ODD = (4, 6, 12, 8), (4, 6, 13, 9)
# Offset of the centre, y upwards, and where the 12 x 8 pixels lie in 20 x 30.
OFFSETS = [(None, (4, 11)), ((0, 0), (4, 11)), ((3, 0), (7, 11)), ((0, 5), (4, 6))]
OFFSETS += [((-4, -11), (0, 22)), ((2.5, 0.5), (6, 10)), ((-3.5, 2), (0, 9))]
OFFSETS = [(TRIM, (20, 30), *row) for row in (*OFFSETS, ((0.5, -1.5), (4, 12)))]
# Odd ones lie half a pixel beside the middle; a frame may be larger than its sheet.
OFFSETS += [(ODD, (20, 30), (-3.5, 0.5), (0, 10)), (TRIM, (100, 80), None, (44, 36))]


@pytest.mark.parametrize("layout", LAYOUTS)
@pytest.mark.parametrize(("trim", "size", "offset", "place"), OFFSETS)
def test_trimmed_frames(load, layout, trim, size, offset, place):
    sheet = noise((64, 64), 1)
    sheet.fill((200, 100, 50, 255), trim)
    image = load({"a": layout(trim, False, size, offset)}, {"one.png": sheet}).image
    assert (image.get_size(), image.get_bounding_rect()) == (size, (*place, *trim[2:]))
    assert image.get_at((place[0] + 1, place[1] + 1)) == (200, 100, 50, 255)


@pytest.mark.parametrize("layout", [modern, older])
@pytest.mark.parametrize("rect", [(10, 30, 20, 9), (10, 30, 9, 20)], ids=["upright", "as it lies"])
@pytest.mark.parametrize("known", [False, True])
def test_rotated_frames_are_turned_back(load, layout, rect, known):
    more = {"spriteSize": "{20,9}"} if known or rect[2] == 9 else {}
    frame = load({"a": layout(rect, True, (26, 15), **more)}, {"one.png": SHEET}).image
    turned = pygame.transform.rotate(SHEET.subsurface((10, 30, 9, 20)), 90)
    assert frame.get_size() == (26, 15)
    assert_same(frame.subsurface((3, 3, 20, 9)), turned)


def test_square_and_unrotated_rectangles_are_as_they_lie(load):
    frames = {"square": modern((10, 30, 9, 9), True, spriteSize="{9,9}")}
    frames["plain"] = modern((10, 30, 9, 20), False, spriteSize="{20,9}")
    frames["of another size"] = modern((10, 30, 20, 9), True, spriteSize="{5,20}")
    square, plain, other = load(frames, {"one.png": SHEET}).imageArray
    assert other.get_size() == (20, 9)
    assert_same(square, pygame.transform.rotate(SHEET.subsurface((10, 30, 9, 9)), 90))
    assert_same(plain, SHEET.subsurface((10, 30, 9, 20)))


WALK = {"walk": {"frames": ["b.png", "c.png", "b.png"], "delay": 0.25}}
AS_TEXT = [{"walk": {**WALK["walk"], "delay": text}} for text in ("0.25", " 0.25")]


@pytest.mark.parametrize("root", [WALK, {"animations": WALK}, *AS_TEXT], ids=str)
@pytest.mark.parametrize("arguments", [(), ("walk",)])
def test_animations_of_atlas_frames(load, tmp_path, root, arguments):
    write_file(tmp_path / "moves.plist", plistlib.dumps(root))
    widget = load({name: modern(rect) for name, rect in RECTS.items()}, {"one.png": SHEET})
    widget.LoadAnimationPlist("moves.plist", *arguments)
    assert (widget.currActionName, widget.imageSwitchDelay) == ("walk", 0.25)
    assert [frame.get_width() for frame in widget.imageArray] == [7, 24, 7]
    assert widget.imageCount == 3 and widget.image is widget.imageArray[0]


def test_animations_of_image_files(screen, tmp_path, monkeypatch):
    for name in RECTS:
        write_png(tmp_path / name, noise((9, 5), name))
    write_file(tmp_path / "moves.plist", plistlib.dumps(WALK))
    monkeypatch.setattr(T, "Res", T.PyGameResManager(str(tmp_path)))
    widget = T.GUI_Image()
    widget.LoadAnimationPlist(plistFile="moves.plist", actionName="walk")
    assert [frame.get_width() for frame in widget.imageArray] == [9] * 3


GOOD = modern((0, 0, 4, 4))
# What is wrong with the frame called "hero".
OUTSIDE = [(60, 60, 9, 9), (-1, 0, 4, 4), (2**31 - 1, 0, 4, 4)]
OUTSIDE += [(0, 0, 2**32, 4), (0, 0, 2**32 + 4, 4)]
TOO_FAR = [((9000, 9000), None), ((8, 8), ("a", 0)), ((8, 8), ("nan", "inf"))]
BAD_FRAMES = [(modern(rect), ValueError) for rect in OUTSIDE] + [({}, KeyError)]
BAD_FRAMES += [({**GOOD, "frame": text}, ValueError) for text in ("{{a,0},{4,4}}", "{{0,0},{4}}")]
BAD_FRAMES += [(modern((0, 0, 4, 4), False, *more), ValueError) for more in TOO_FAR]


@pytest.mark.parametrize(("frame", "error"), BAD_FRAMES)
def test_errors_name_the_file_and_the_frame(load, frame, error):
    caught = pytest.raises(error, load, {"fine": GOOD, "hero": frame}, {"one.png": SHEET})
    caught.match("one.plist.*hero|hero.*one.plist")


# A packer may leave nothing of an empty picture.
@pytest.mark.parametrize("size", [(0, 8), (8, 0), (0, 0)])
def test_frames_without_pixels(load, screen, size):
    atlas = {"a": modern((0, 0, *size))}, {"one.png": SHEET}
    if outcome(load, *atlas) is not ValueError:
        widget = load(*atlas)
        widget.draw(screen)
        assert widget.image.get_size() == size


def test_a_missing_sheet_is_named(load):
    pytest.raises(AttributeError, load, {"a": GOOD}, {}).match("one.p")


MOVES = {"delay": ({"frames": ["a"]}, KeyError), "frames": ({"delay": 1}, KeyError)}
MOVES["soon"] = ({"frames": ["a"], "delay": "soon"}, ValueError)


@pytest.mark.parametrize("missing", MOVES)
def test_errors_name_the_file_and_the_animation(load, tmp_path, missing):
    entry, error = MOVES[missing]
    write_file(tmp_path / "moves.plist", plistlib.dumps({"walk": entry}))
    widget = load({"a": GOOD}, {"one.png": SHEET})
    caught = pytest.raises(error, widget.LoadAnimationPlist, "moves.plist")
    assert all(word in str(caught.value) for word in ("moves.plist", "walk", missing))


def test_a_failure_leaves_the_atlas_before(load, tmp_path):
    write_file(tmp_path / "bad.plist", plistlib.dumps({"frames": {"hero": {}}}))
    widget = load({"a": GOOD}, {"one.png": SHEET})
    before = dict(vars(widget))
    pytest.raises(KeyError, widget.LoadImageFramesPList, "bad.plist", "one.png")
    assert dict(vars(widget)) == before


def test_painting_a_frame_changes_nothing_else(load):
    rect = RECTS["a.png"]
    first, second = load({name: modern(rect) for name in "ab"}, {"one.png": SHEET}).imageArray
    first.fill((1, 2, 3, 4))
    assert_same(T.Res.LoadImage("one.png"), SHEET)
    T.Res.LoadImage("one.png").fill((9, 9, 9, 9))
    assert_same(second, SHEET.subsurface(rect))
