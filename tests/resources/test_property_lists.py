"""Damaged and hostile property lists are refused."""

import plistlib

from helpers import outcomes
from resource_files import write_file, write_png

RECT, MANY = "{{0,0},{4,4}}", 100000
FRAME = {"frame": RECT, "rotated": False, "sourceSize": "{4,4}"}
GOOD = plistlib.dumps({"frames": {"a": FRAME, "b": {**FRAME, "frame": "{{4,4},{4,4}}"}}})
BODIES = {
    "empty": "",
    "no frames": "<dict/>",
    "an array": "<array/>",
    "a key without value": "<dict><key>frames</key></dict>",
    "a number for frames": "<dict><key>frames</key><integer>five</integer></dict>",
    "deep dictionaries": "<dict><key>frames</key>" * MANY + "</dict>" * MANY,
    "deep arrays": "<array>" * MANY + "</array>" * MANY,
    "deep without end": "<dict><key>frames</key>" * MANY,
}
LAUGH = "".join(f'<!ENTITY e{n} "{f"&e{n - 1};" * 12}">' for n in range(1, 12))
ENTITIES = {
    "harmless": (f'<!ENTITY e "{RECT}">', "&e;"),
    "many laughs": ('<!ENTITY e0 "ha">' + LAUGH, "&e11;"),
    "long text": (f'<!ENTITY e "{"x" * 60000}">', "&e;" * 60000),
    "a circle": ('<!ENTITY e "&f;"><!ENTITY f "&e;">', "&e;"),
    "a file": ('<!ENTITY e SYSTEM "x">', "&e;"),
    "unknown": ("", "&e;"),
}
RECTANGLES = ["5", "", "{{0,0},{-4,4}}", 5, [0, 0, 4, 4], "{{0,0},{100000000000000000000,4}}"]
SIZES = ["{a,b}", "{4}", "4", "{100000000000000000000,4}", 4]
FRAMES = ["a", 5, True, {"a": 7}, {"a": []}, {"a": {}}]
FRAMES += [{"a": {**FRAME, "frame": bad}} for bad in RECTANGLES]
FRAMES += [{"a": {**FRAME, "sourceSize": bad}} for bad in SIZES]
MOVES = [{"delay": 1}, {"frames": ["a"]}, "a", ["a"], {"frames": 5, "delay": 1}]


def with_entities(name, encoding):
    entities, text = ENTITIES[name]
    frame = f"<dict><key>frame</key><string>{text}</string></dict>"
    body = f"<dict><key>frames</key><dict><key>a</key>{frame}</dict></dict>"
    head = f'<?xml version="1.0" encoding="{encoding}"?><!DOCTYPE plist [{entities}]>'
    return f"{head}<plist>{body}</plist>".encode(encoding)


def hostile_files():
    yield from {"nothing": b"", "no XML": b"frames = here", "zeros": b"\0" * 9}.items()
    for size in (80, -10, -200):
        yield f"cut off at {size}", GOOD[:size]
    yield "not in its encoding", GOOD.replace(b"<key>a", b"<key>\xff\xfe")
    for name, body in BODIES.items():
        yield name, b'<?xml version="1.0"?><plist>%s</plist>' % body.encode()
    for name in ENTITIES:
        for encoding in ("utf-8", "utf-16"):
            yield f"{name} entities in {encoding}", with_entities(name, encoding)
    for index, bad in enumerate(FRAMES):
        yield f"frames {index}", plistlib.dumps({"frames": bad})
    for index, bad in enumerate(MOVES):
        yield f"animation {index}", plistlib.dumps({"walk": bad})


PIECE = """
for load in (widget.SetImage, widget.LoadImageFramesPList, widget.LoadAnimationPlist):
    try:
        load({file!r}, *["walk"][: load == widget.LoadAnimationPlist])
    except SystemError:
        raise
    except Exception:
        pass
    else:
        raise AssertionError("taken")
    widget.SetImage("good.plist")
    widget.draw(screen, 0, 0, 1.0)
"""


def test_damaged_and_hostile_files_are_refused(tmp_path):
    pieces = {}
    write_png(tmp_path / "good.png")
    write_file(tmp_path / "good.plist", GOOD)
    for index, (name, data) in enumerate(hostile_files()):
        pieces[name] = PIECE.format(file=f"{index}.plist")
        write_file(tmp_path / f"{index}.plist", data)
        write_png(tmp_path / f"{index}.png")
    prelude = f"T.Res, widget = T.PyGameResManager({str(tmp_path)!r}), T.GUI_Image()"
    found = outcomes(pieces, prelude)
    # What the manager prints while it loads is no outcome.
    assert {name: found.get(name) for name in pieces if found.get(name) != "fine"} == {}
