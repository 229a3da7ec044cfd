"""Frame atlases and animations in property lists: every layout, and damaged and hostile files."""

import plistlib

import pygame
import pytest
import Tessora as T
from picture_oracle import assert_same, noise
from resource_files import run_isolated, write_file, write_png

RECTS = {"a.png": (0, 0, 16, 12), "b.png": (20, 3, 7, 30), "c.png": (40, 40, 24, 24)}


def modern(rect, rotated=False, size=None):
    frame, (width, height) = "{{{{{},{}}},{{{},{}}}}}".format(*rect), size or rect[2:]
    return {"frame": frame, "rotated": rotated, "sourceSize": f"{{{width},{height}}}"}


def older(*args):
    names = ("textureRect", "textureRotated", "spriteSourceSize")
    return dict(zip(names, modern(*args).values()), aliases=[])


def oldest(rect):
    return dict(zip(("x", "y", "width", "height"), rect), offsetX=0.0)


# Makes an atlas and its sheet, and loads it into a widget.
@pytest.fixture
def load(screen, tmp_path, monkeypatch):
    def make(frames, sheet, sheet_name="one.png", named=False, *args):
        root = {"frames": frames, "texture": {"deep": {"er": [1, {"x": 2}, 2.5], "yes": True}}}
        if named:
            root["metadata"] = {"textureFileName": sheet_name, "realTextureFileName": sheet_name}
        write_file(tmp_path / "one.plist", plistlib.dumps(root, sort_keys=False))
        write_png(tmp_path / sheet_name, sheet)
        monkeypatch.setattr(T, "Res", T.PyGameResManager(str(tmp_path)))
        widget = T.GUI_Image()
        widget.LoadImageFramesPList("one.plist", *args)
        return widget

    return make


@pytest.mark.parametrize("layout", [modern, older, oldest])
# The sheet lies beside the atlas, or is named in it or in the call.
@pytest.mark.parametrize("where", [(), ("other.png", True), ("other.png", False, "OTHER.png")])
def test_layouts(load, layout, where):
    sheet = noise((64, 64), 1)
    widget = load({name: layout(rect) for name, rect in RECTS.items()}, sheet, *where)
    assert (widget.imageCount, widget.GetPlistFile()) == (3, "one.plist")
    assert {name: tuple(rect) for name, rect in widget.imageFrameRectArray.items()} == RECTS
    for frame, rect in zip(widget.imageArray, RECTS.values()):
        assert_same(frame, sheet.subsurface(rect))
    assert widget.image is widget.imageArray[0]


@pytest.mark.parametrize("layout", [modern, older])
def test_turned_and_trimmed_frames(load, layout):
    sheet, trim = noise((64, 64), 1), (4, 6, 12, 8)
    sheet.fill((200, 100, 50, 255), (0, 0, 30, 30))
    frames = {"a": layout(trim, False, (20, 30)), "b": layout(trim, True, (20, 30))}
    *trimmed, turned = load({**frames, "c": layout((10, 30, 20, 9), True)}, sheet).imageArray
    assert_same(turned, pygame.transform.rotate(sheet.subsurface((10, 30, 9, 20)), 90))
    for frame in trimmed:
        assert (frame.get_size(), frame.get_bounding_rect()) == ((20, 30), (4, 11, 12, 8))
        assert frame.get_at((10, 15)) == (200, 100, 50, 255)


WALK = {"walk": {"frames": ["b.png", "c.png", "b.png"], "delay": 0.25}}


# Of the frames of an atlas, or of image files.
@pytest.mark.parametrize("root", [WALK, {"animations": WALK}], ids=["plain", "nested"])
@pytest.mark.parametrize("atlas", [True, False])
def test_animations(load, tmp_path, root, atlas):
    for name in RECTS:
        write_png(tmp_path / name, noise((9, 5), name))
    write_file(tmp_path / "moves.plist", plistlib.dumps(root))
    widget = load({name: modern(rect) for name, rect in RECTS.items()}, noise((64, 64), 1))
    widget.SetImage("one.plist" if atlas else None)
    widget = widget if atlas else T.GUI_Image()
    widget.LoadAnimationPlist("moves.plist")
    assert widget.currActionName == "walk"
    widget.LoadAnimationPlist(plistFile="moves.plist", actionName="walk")
    assert [frame.get_width() for frame in widget.imageArray] == ([7, 24, 7] if atlas else [9] * 3)
    assert (widget.imageCount, widget.imageSwitchDelay) == (3, 0.25)
    assert widget.image is widget.imageArray[0]


FRAME, HEAD = modern((0, 0, 4, 4)), b'<?xml version="1.0" encoding="UTF-8"?>\n'
GOOD = plistlib.dumps({"frames": {"a": FRAME, "b": modern((4, 4, 4, 4))}})
LAUGH = b"".join(b'<!ENTITY e%d "%s">' % (n, b"&e%d;" % (n - 1) * 12) for n in range(1, 12))
DEEP, FRAMES = b"<dict><key>frames</key>" * 100000, b"<dict><key>frames</key>%s</dict>"
BODIES = [b"", b"<dict/>", b"<array/>", FRAMES % b"", DEEP, DEEP + b"</dict>" * 100000]
BODIES += [FRAMES % b"<integer>five</integer>", b"<array>" * 100000 + b"</array>" * 100000]
FILES = [HEAD + b"<plist>%s</plist>" % body for body in BODIES] + [b"", b"frames = here", b"\0" * 9]
FILES += [GOOD.replace(b"<key>a", b"<key>\xff\xfe"), GOOD[:80], GOOD[:-10], GOOD[:-200]]
ENTITIES = [(b'<!ENTITY e0 "%s">' % (b"ha" * 50) + LAUGH, b"&e11;"), (b"", b"&e;")]
ENTITIES += [(b'<!ENTITY e "%s">' % (b"x" * 60000), b"&e;" * 60000)]
ENTITIES += [(b'<!ENTITY e "&f;"><!ENTITY f "&e;">', b"&e;"), (b'<!ENTITY e SYSTEM "x">', b"&e;")]
for entities, text in ENTITIES:
    body = FRAMES % (b"<string>%s</string>" % text)
    FILES.append(b"<!DOCTYPE plist [%s]><plist>%s</plist>" % (entities, body))
RECTANGLES = "5 {{0,0},{4}} {{a,b},{c,d}} {{6,6},{4,4}} {{-1,0},{4,4}} {{0,0},{-4,4}}"
RECTANGLES += " {{2147483647,2147483647},{4,4}} {{0,0},{100000000000000000000,4}}"
SIZES = "{a,b} {4} 4 {1000000000,1000000000} {100000000000000000000,4}"
BAD = [{"frame": bad} for bad in (*RECTANGLES.split(), "", 5, [0, 0, 4, 4])]
BAD += [{"sourceSize": bad} for bad in (*SIZES.split(), 4)]
ATLASES = ["a", 5, True, {"a": 7}, {"a": []}, {"a": {}}, *({"a": {**FRAME, **bad}} for bad in BAD)]
MOVES = [{"delay": 1}, {"frames": ["a"]}, "a", ["a"], {"frames": 5, "delay": 1}]
FILES += [plistlib.dumps({"frames": bad}) for bad in ATLASES]
FILES += [plistlib.dumps({"walk": bad}) for bad in MOVES]
SCRIPT = """
from picture_oracle import assert_widget
T.Res = T.PyGameResManager(sys.argv[1])
widget, refused = T.GUI_Image(), 0
for index in range(int(sys.argv[2])):
    for name in ("SetImage", "LoadImageFramesPList", "LoadAnimationPlist"):
        try:
            getattr(widget, name)(f"{index}.plist", *["walk"][: name == "LoadAnimationPlist"])
            print("taken", index, name)
        except Exception as error:
            refused += type(error) is not SystemError
        widget.SetImage("good.plist")
        assert_widget(widget, screen)
print(refused)
"""


def test_damaged_and_hostile_files_are_refused(tmp_path):
    # In a process of its own, so that a hang or a crash fails this test only.
    for name, data in (*enumerate(FILES), ("good", GOOD)):
        write_file(tmp_path / f"{name}.plist", data)
        write_png(tmp_path / f"{name}.png")
    assert run_isolated(SCRIPT, tmp_path, len(FILES)).split()[-1] == str(3 * len(FILES))
