"""Frame atlases and animation lists in property-list files."""

import pygame
import pytest
import Tessora as T
from picture_oracle import assert_same, assert_widget, noise
from resource_files import write_plist, write_png

RECTS = {"a.png": (0, 0, 16, 12), "b.png": (20, 3, 7, 30), "c.png": (40, 40, 24, 24)}


def text_rect(rect):
    x, y, width, height = rect
    return f"{{{{{x},{y}}},{{{width},{height}}}}}"


def text_size(size):
    width, height = size
    return f"{{{width},{height}}}"


def modern(rect, rotated=False, source=None):
    return {
        "frame": text_rect(rect),
        "offset": "{0,0}",
        "rotated": rotated,
        "sourceSize": text_size(source or rect[2:]),
    }


def older(rect, rotated=False, source=None):
    return {
        "aliases": [],
        "spriteOffset": "{0,0}",
        "spriteSize": text_size(rect[2:]),
        "spriteSourceSize": text_size(source or rect[2:]),
        "textureRect": text_rect(rect),
        "textureRotated": rotated,
    }


def oldest(rect):
    x, y, width, height = rect
    return {"x": x, "y": y, "width": width, "height": height, "offsetX": 0.0, "offsetY": 0.0}


LAYOUTS = {"modern": modern, "older": older, "oldest": oldest}


@pytest.fixture
def res(screen, tmp_path, monkeypatch):
    """A manager over a folder that holds a sheet of noise; files may be added to the folder."""

    class Resources(T.PyGameResManager):
        def add(self, name, root, sheet=None):
            write_plist(tmp_path / name, root)
            self.AddNewResFile(str(tmp_path / name))
            if sheet is not None:
                image = (
                    name.replace(".plist", ".png") if isinstance(sheet, pygame.Surface) else sheet
                )
                surface = sheet if isinstance(sheet, pygame.Surface) else noise((64, 64), 1)
                write_png(tmp_path / image, surface)
                self.AddNewResFile(str(tmp_path / image))

    res = Resources(str(tmp_path))
    monkeypatch.setattr(T, "Res", res)
    return res


def atlas(layout=modern, **metadata):
    root = {"frames": {name: layout(rect) for name, rect in RECTS.items()}}
    if metadata:
        root["metadata"] = metadata
    return root


def assert_frames(widget, rects=RECTS):
    sheet = noise((64, 64), 1)
    assert widget.imageCount == len(widget.imageArray) == len(rects)
    assert list(widget.imageFrameRectArray) == list(rects)
    for frame, (name, rect) in zip(widget.imageArray, rects.items()):
        assert tuple(widget.imageFrameRectArray[name]) == rect
        assert_same(frame, sheet.subsurface(rect))
    assert widget.image is widget.imageArray[0]


@pytest.mark.parametrize("layout", sorted(LAYOUTS))
@pytest.mark.parametrize("load", ["LoadImageFramesPList", "SetImage"])
def test_layouts(screen, res, layout, load):
    res.add("Sheet.plist", atlas(LAYOUTS[layout]), noise((64, 64), 1))
    widget = T.GUI_Image()
    widget.SetSwitchImageDelay(3)
    getattr(widget, load)("Sheet.plist")
    assert_frames(widget)
    assert widget.GetPlistFile() == "Sheet.plist"
    assert widget.imageSwitchDelay == (0.1 if load == "SetImage" else 3)
    assert_widget(widget, screen)
    widget.SwitchImage(2)
    assert_widget(widget, screen)


def test_the_sheet_may_be_named_in_the_call(res):
    res.add("one.plist", atlas(), "painted.png")
    widget = T.GUI_Image()
    widget.LoadImageFramesPList("one.plist", "painted.png")
    assert_frames(widget)
    widget = T.GUI_Image()
    widget.LoadImageFramesPList(plistFile="one.plist", imageFile="PAINTED.PNG")
    assert_frames(widget)


def test_the_sheet_may_be_named_in_the_file(res):
    names = {"textureFileName": "painted.png", "realTextureFileName": "painted.png", "format": 2}
    res.add("one.plist", atlas(size="{64,64}", **names), "painted.png")
    widget = T.GUI_Image()
    widget.LoadImageFramesPList("one.plist")
    assert_frames(widget)


def test_nested_dictionaries_beside_the_frames(res):
    root = {"texture": {"width": 64, "deep": {"er": [1, {"x": 2}, 2.5], "yes": True}}, **atlas()}
    res.add("one.plist", root, noise((64, 64), 1))
    widget = T.GUI_Image()
    widget.LoadImageFramesPList("one.plist")
    assert_frames(widget)


@pytest.mark.parametrize("layout", [modern, older])
def test_rotated_frames_are_turned_back(res, layout):
    upright = noise((20, 9), 5)
    sheet = noise((64, 64), 1)
    sheet.fill((0, 0, 0, 0), (10, 30, 9, 20))
    sheet.blit(pygame.transform.rotate(upright, -90), (10, 30))
    root = {"frames": {"up": layout((0, 0, 8, 8)), "turned": layout((10, 30, 20, 9), True)}}
    res.add("one.plist", root, sheet)
    widget = T.GUI_Image()
    widget.LoadImageFramesPList("one.plist")
    assert_same(widget.imageArray[0], sheet.subsurface((0, 0, 8, 8)))
    # Blitting once keeps only what an opaque or half-transparent pixel leaves on clear ground.
    expected = pygame.transform.rotate(sheet.subsurface((10, 30, 9, 20)), 90)
    assert_same(widget.imageArray[1], expected)
    assert tuple(widget.imageFrameRectArray["turned"]) == (10, 30, 20, 9)


@pytest.mark.parametrize("layout", [modern, older])
@pytest.mark.parametrize("rotated", [False, True])
def test_trimmed_frames_keep_their_untrimmed_size(res, layout, rotated):
    sheet = pygame.Surface((64, 64), pygame.SRCALPHA)
    sheet.fill((200, 100, 50, 255))
    res.add("one.plist", {"frames": {"t": layout((4, 6, 12, 8), rotated, (20, 30))}}, sheet)
    widget = T.GUI_Image()
    widget.LoadImageFramesPList("one.plist")
    frame = widget.imageArray[0]
    assert frame.get_size() == (20, 30)
    assert frame.get_bounding_rect() == (4, 11, 12, 8)
    assert frame.get_at((10, 15)) == (200, 100, 50, 255)
    assert frame.get_at((0, 0)).a == 0


@pytest.mark.parametrize(
    "text", ["{{0, 0}, {16, 12}}", " {{0,0},{16,12}}", "0,0,16,12", "{0,0,16,12}"]
)
def test_spellings_of_a_rectangle(res, text):
    res.add("one.plist", {"frames": {"a.png": {"frame": text}}}, noise((64, 64), 1))
    widget = T.GUI_Image()
    widget.LoadImageFramesPList("one.plist")
    assert tuple(widget.imageFrameRectArray["a.png"]) == (0, 0, 16, 12)
    assert widget.image.get_size() == (16, 12)


def test_frames_of_two_atlases_and_frame_animation(res):
    res.add("one.plist", atlas(), noise((64, 64), 1))
    widget = T.GUI_Image()
    widget.LoadImageFramesPList("one.plist")
    widget.SetAutoSwitch(True)
    seen = []
    for _ in range(4):
        widget.update(0.125)
        seen.append(widget.imageArray.index(widget.image))
    assert seen == [1, 2, 0, 1]
    res.add("two.plist", {"frames": {"z": modern((1, 2, 3, 4))}}, noise((64, 64), 1))
    widget.LoadImageFramesPList("two.plist")
    assert widget.imageCount == 1
    assert widget.image.get_size() == (3, 4)
    assert widget.plistFile == "two.plist"


def test_automatic_size_follows_an_atlas(res):
    res.add("one.plist", atlas(), noise((64, 64), 1))
    widget = T.GUI_Image()
    widget.AutoImageSize(True)
    widget.LoadImageFramesPList("one.plist")
    assert (widget.width, widget.height) == (16, 12)


ANIMATIONS = {
    "walk": {"frames": ["b.png", "c.png", "b.png"], "delay": 0.25},
    "stand": {"frames": ["a.png"], "delay": 2},
}


@pytest.mark.parametrize("root", [ANIMATIONS, {"animations": ANIMATIONS}], ids=["plain", "nested"])
@pytest.mark.parametrize("name", ["walk", "stand"])
def test_animation_lists(res, root, name):
    res.add("one.plist", atlas(), noise((64, 64), 1))
    res.add("moves.plist", root)
    widget = T.GUI_Image()
    widget.LoadImageFramesPList("one.plist")
    atlas_frames = dict(zip(RECTS, widget.imageArray))
    widget.LoadAnimationPlist("moves.plist", name)
    wanted = ANIMATIONS[name]
    assert widget.imageCount == len(wanted["frames"])
    for frame, frame_name in zip(widget.imageArray, wanted["frames"]):
        assert_same(frame, atlas_frames[frame_name])
    assert widget.image is widget.imageArray[0]
    assert widget.imageSwitchDelay == wanted["delay"]
    assert widget.GetCurrActionName() == name


def test_an_animation_of_image_files(res, tmp_path):
    for seed, name in enumerate(RECTS):
        write_png(tmp_path / name, noise((5 + seed, 5), seed))
        res.AddNewResFile(str(tmp_path / name))
    res.add("moves.plist", ANIMATIONS)
    widget = T.GUI_Image()
    widget.LoadAnimationPlist(plistFile="moves.plist", actionName="walk")
    assert [frame.get_width() for frame in widget.imageArray] == [6, 7, 6]
    widget = T.GUI_Image()
    widget.LoadAnimationPlist("moves.plist")
    assert widget.currActionName in ANIMATIONS
    assert widget.imageCount == len(ANIMATIONS[widget.currActionName]["frames"])


def test_missing_files(screen, res):
    widget = T.GUI_Image()
    for load in (widget.LoadImageFramesPList, widget.LoadAnimationPlist, widget.SetImage):
        with pytest.raises(TypeError):
            load("missing.plist")
    res.add("lonely.plist", atlas())
    with pytest.raises(AttributeError):
        widget.LoadImageFramesPList("lonely.plist")
    res.add("moves.plist", ANIMATIONS)
    with pytest.raises(LookupError):
        widget.LoadAnimationPlist("moves.plist", "fly")
    assert_widget(widget, screen, width=50)
