"""Damaged and hostile property lists end in an ordinary exception, quickly and without a crash."""

import plistlib

import pytest
import Tessora as T
from picture_oracle import assert_widget
from resource_files import run_isolated, write_file, write_png

FRAME = {"frame": "{{0,0},{4,4}}", "rotated": False, "sourceSize": "{4,4}"}
GOOD = plistlib.dumps({"frames": {"a": FRAME, "b": dict(FRAME, frame="{{4,4},{4,4}}")}})
HEAD = b'<?xml version="1.0" encoding="UTF-8"?>\n'
PLIST = HEAD + b'<plist version="1.0">%s</plist>'


def of(root):
    return plistlib.dumps(root, skipkeys=True)


def framed(**changes):
    frame = {key: value for key, value in dict(FRAME, **changes).items() if value is not None}
    return of({"frames": {"a": frame}})


def nested(tag, levels):
    inner = b"<dict><key>frames</key>" if tag == "dict" else b"<array>"
    return PLIST % (inner * levels + (b"</%s>" % tag.encode()) * levels)


def laughing(levels=12, width=12):
    """Every entity is made of many of the one before it."""
    entities = [b'<!ENTITY e0 "%s">' % (b"ha" * 50)]
    for level in range(1, levels):
        part = b"&e%d;" % (level - 1)
        entities.append(b'<!ENTITY e%d "%s">' % (level, part * width))
    body = b"<plist><dict><key>frames</key><string>&e%d;</string></dict></plist>" % (levels - 1)
    return HEAD + b"<!DOCTYPE plist [%s]>" % b"".join(entities) + body


def swelling():
    """One long entity, used very often."""
    body = b"<plist><dict><key>frames</key><string>%s</string></dict></plist>" % (b"&e;" * 60000)
    return HEAD + b'<!DOCTYPE plist [<!ENTITY e "%s">]>' % (b"x" * 60000) + body


BAD = {
    "empty": b"",
    "no xml": b"frames = here",
    "binary": plistlib.dumps({"frames": {"a": FRAME}}, fmt=plistlib.FMT_BINARY),
    "zeros": b"\0" * 100,
    "bad encoding": GOOD.replace(b"<key>a</key>", b"<key>\xff\xfe</key>"),
    "truncated head": GOOD[:20],
    "truncated doctype": GOOD[:80],
    "truncated frame": GOOD[: GOOD.index(b"rotated")],
    "truncated end": GOOD[:-10],
    "no dictionary": PLIST % b"",
    "another root": HEAD + b"<svg/>",
    "an array": PLIST % b"<array><string>frames</string></array>",
    "an empty dictionary": PLIST % b"<dict/>",
    "key without value": PLIST % b"<dict><key>frames</key></dict>",
    "frames missing": of({"frame": {"a": FRAME}}),
    "frames text": of({"frames": "a"}),
    "frames number": of({"frames": 5}),
    "frames flag": of({"frames": True}),
    "frame text": of({"frames": {"a": "{{0,0},{4,4}}"}}),
    "frame number": of({"frames": {"a": 7}}),
    "frame array": of({"frames": {"a": [0, 0, 4, 4]}}),
    "frame empty": of({"frames": {"a": {}}}),
    "rectangle missing": framed(frame=None),
    "rectangle empty": framed(frame=""),
    "rectangle number": framed(frame=5),
    "rectangle array": framed(frame=[0, 0, 4, 4]),
    "rectangle short": framed(frame="{{0,0},{4}}"),
    "rectangle words": framed(frame="{{a,b},{c,d}}"),
    "rectangle broken number": framed(frame="{{0,0},{2.0,2.0}}"),
    "rectangle outside": framed(frame="{{6,6},{4,4}}"),
    "rectangle left": framed(frame="{{-1,0},{4,4}}"),
    "rectangle negative": framed(frame="{{0,0},{-4,4}}"),
    "rectangle huge": framed(frame="{{0,0},{100000000000000000000,4}}"),
    "rectangle far": framed(frame="{{2147483647,2147483647},{4,4}}"),
    "size words": framed(sourceSize="{a,b}"),
    "size short": framed(sourceSize="{4}"),
    "size huge": framed(sourceSize="{1000000000,1000000000}"),
    "size overflowing": framed(sourceSize="{99999999999999999999,4}"),
    "size number": framed(sourceSize=4),
    "oldest without height": of({"frames": {"a": {"x": 0, "y": 0, "width": 4}}}),
    "oldest with text": of({"frames": {"a": {"x": "a", "y": 0, "width": 4, "height": 4}}}),
    "integer words": PLIST % b"<dict><key>frames</key><integer>five</integer></dict>",
    "integer empty": PLIST % b"<dict><key>frames</key><integer/></dict>",
    "real words": PLIST % b"<dict><key>frames</key><real>1,5</real></dict>",
    "unknown entity": PLIST % b"<dict><key>frames</key><string>&e;</string></dict>",
    "external entity": HEAD
    + b'<!DOCTYPE plist [<!ENTITY e SYSTEM "other.txt">]>'
    + b"<plist><dict><key>frames</key><string>&e;</string></dict></plist>",
    "endless entity": HEAD
    + b'<!DOCTYPE plist [<!ENTITY e "&f;"><!ENTITY f "&e;">]>'
    + b"<plist><dict><key>frames</key><string>&e;</string></dict></plist>",
    "entities": laughing(),
    "long entity": swelling(),
    "deep dictionaries": nested("dict", 100000),
    "deep arrays": nested("array", 100000),
    "deep and cut": nested("dict", 100000)[:1500000],
}

HOSTILE = {"entities", "long entity", "endless entity", "external entity", "size huge"}
HOSTILE |= {"rectangle far", "rectangle huge"}
HOSTILE |= {name for name in BAD if name.startswith("deep")}


def prepared(folder, data):
    write_file(folder / "bad.plist", data)
    write_file(folder / "good.plist", GOOD)
    for sheet in ("bad.png", "good.png"):
        write_png(folder / sheet, size=(8, 8))
    return folder


@pytest.mark.parametrize("name", sorted(set(BAD) - HOSTILE))
@pytest.mark.parametrize("method", ["SetImage", "LoadImageFramesPList"])
def test_malformed_atlases(screen, tmp_path, monkeypatch, name, method):
    monkeypatch.setattr(T, "Res", T.PyGameResManager(str(prepared(tmp_path, BAD[name]))))
    widget = T.GUI_Image()
    load = getattr(widget, method)
    for _ in range(2):
        with pytest.raises(Exception) as error:  # noqa: PT011
            load("bad.plist")
        assert not issubclass(error.type, SystemError)
        load("good.plist")
        assert widget.imageCount == 2
        assert_widget(widget, screen)


SCRIPT = """
from picture_oracle import assert_widget
T.Res = T.PyGameResManager(sys.argv[1])
widget = T.GUI_Image()
for method in sys.argv[2:]:
    try:
        getattr(widget, method)("bad.plist")
    except Exception as error:
        print("refused", type(error))
    widget.SetImage("good.plist")
    assert widget.imageCount == 2
    assert_widget(widget, screen)
print("usable")
"""


def assert_refused(methods, folder):
    lines = run_isolated(SCRIPT, folder, *methods, timeout=60).split("\n")
    assert sum(line.startswith("refused") for line in lines) == len(methods)
    assert "usable" in lines


@pytest.mark.parametrize("name", sorted(HOSTILE))
def test_hostile_atlases(tmp_path, name):
    """In a process of its own, so that a hang or a crash fails this test only."""
    assert_refused(["SetImage", "LoadImageFramesPList"], prepared(tmp_path, BAD[name]))


ANIMATIONS = {
    "frames missing": of({"walk": {"delay": 0.5}}),
    "delay missing": of({"walk": {"frames": ["a"]}}),
    "frames number": of({"walk": {"frames": 5, "delay": 0.5}}),
    "entry text": of({"walk": "a"}),
    "entry array": of({"walk": ["a"]}),
    "frame numbers": of({"walk": {"frames": [1, 2], "delay": 0.5}}),
    "other name": of({"run": {"frames": ["a"], "delay": 0.5}}),
    "cut": of({"walk": {"frames": ["a"], "delay": 0.5}})[:-30],
}


@pytest.mark.parametrize("name", sorted(ANIMATIONS))
def test_malformed_animation_lists(screen, tmp_path, monkeypatch, name):
    monkeypatch.setattr(T, "Res", T.PyGameResManager(str(prepared(tmp_path, ANIMATIONS[name]))))
    widget = T.GUI_Image()
    for _ in range(2):
        with pytest.raises(Exception) as error:  # noqa: PT011
            widget.LoadAnimationPlist("bad.plist", "walk")
        assert not issubclass(error.type, SystemError)
        widget.update(0.5)
        assert_widget(widget, screen, image=None)


@pytest.mark.parametrize("data", [nested("dict", 100000), laughing()], ids=["deep", "entities"])
def test_hostile_animation_lists(tmp_path, data):
    assert_refused(["LoadAnimationPlist"], prepared(tmp_path, data))
