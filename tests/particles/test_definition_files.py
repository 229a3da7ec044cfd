import contextlib
import os
import plistlib
import random
import re

import pygame
import pytest
import Tessora as T
from helpers import Recorder
from pygame.math import Vector2

NUMBERS = "Duration=-1 EmissionRate=60 Life=30 LifeVar=10 ParticleX=0 ParticleXVar=0 ParticleY=0"
NUMBERS += " ParticleYVar=0 Direction=-90 DirectionVar=20 Speed=-90 SpeedVar=20 GravityX=0"
NUMBERS += " GravityY=0 Radialaccel=0 RadialaccelVar=0 Tangentialaccel=0 TangentialaccelVar=0"
NUMBERS += " BeginRadius=0 BeginRadiusVar=0 EndRadius=Begin EndRadiusVar=Begin RotateSpeed=0"
NUMBERS += " RotateSpeedVar=0 BeginSize=10 BeginSizeVar=2 EndSize=Begin EndSizeVar=Begin"
NUMBERS += " BeginAngle=0 BeginAngleVar=0 EndAngle=Begin EndAngleVar=Begin"
NUMBERS = [pair.split("=") for pair in NUMBERS.split()]
NUMBERS = {name: v if v == "Begin" else float(v) for name, v in NUMBERS}
COLORS = {"BeginColor": (128, 128, 128, 255), "BeginColorVar": (128, 128, 128, 255)}
COLORS.update(EndColor=(26, 25, 25, 60), EndColorVar=(26, 25, 25, 60))
PLAIN = [n for n in NUMBERS if "Gravity" not in n]
MUTANTS = int(os.environ.get("TESSORA_MUTANTS", "600"))


@pytest.fixture
def folder(tmp_path, monkeypatch, screen):
    monkeypatch.setattr(T, "Res", T.PyGameResManager(str(tmp_path)))
    return tmp_path


def write(folder, contents, name="effect.plist"):
    path = folder / name
    path.write_bytes(contents if isinstance(contents, bytes) else plistlib.dumps(contents))
    T.Res.AddNewResFile(str(path))
    return str(path)


def loaded(folder, contents):
    path, emitter = write(folder, contents), T.ParticleEmitter(None)
    emitter.LoadFromFile("Effect.PLIST")
    assert emitter.GetPlistFile() == path
    return emitter


def values(emitter, names=NUMBERS):
    return {name: emitter.GetData(name) for name in names}


def test_an_empty_dict_gives_the_defaults(folder):
    emitter = loaded(folder, {})
    assert values(emitter) == NUMBERS
    assert {type(v) for v in values(emitter).values()} == {float, str}
    others = dict(COLORS, ParticleMode="Gravity", ParticleTotal=250, Imagefile=None, running=True)
    others.update(blendtype=pygame.BLEND_MULT, Gravity=Vector2(0, 0))
    assert {name: getattr(emitter, name) for name in others} == others


def test_every_entry_counts(folder):
    given = {name: index + 0.5 for index, name in enumerate(NUMBERS)}
    given.update(ParticleMode="Circle", BlendType="ADD", ParticleTotal=12, imageFile="a.png")
    given.update(BeginColorVarA=9, BeginColorVarR=77, BeginColorVarG=8, BeginColorVarB=7)
    emitter = loaded(folder, given)
    assert values(emitter, given) == dict(given, BlendType=pygame.BLEND_ADD, BeginColorVarR=9)
    assert emitter.BeginColorVar == (9, 8, 7, 9), "red comes from the entry of alpha"
    emitter.LoadFromFile("unknown.plist")
    assert (emitter.running, emitter.ParticleTotal, emitter.Life) == (False, 0, 0)
    os.remove(emitter.plistFile)
    emitter.LoadFromFile("effect.plist")
    assert emitter.ParticleTotal == 0


@pytest.mark.parametrize("key", ["EndColorR", "EndColorA", "EndColorVarG"])
def test_a_marker_in_one_component_is_the_whole_colours(folder, key):
    emitter = loaded(folder, {key: "Begin"})
    assert getattr(emitter, key[:-1]) == "Begin"
    emitter.AddParticle()


def test_without_resources(monkeypatch):
    monkeypatch.setattr(T, "Res", None)
    with pytest.raises(AttributeError, match="effect.plist"):
        T.ParticleEmitter(None).LoadFromFile("effect.plist")


DAMAGED = {
    "nothing": b"",
    "no dict": b"<plist><array/></plist>",
    "no number": plistlib.dumps({"Life": "long"}),
    "no colour": plistlib.dumps({"EndColorR": 256}),
    "no integer": plistlib.dumps({"ParticleTotal": "many"}),
    "no file name": plistlib.dumps({"imageFile": {"a": 1}}),
    "a switch for a file": plistlib.dumps({"imageFile": True}),
    "infinite": plistlib.dumps({"ParticleTotal": float("inf")}),
    "many digits": plistlib.dumps({"ParticleTotal": "9" * 10**6}),
    "entities": b'<!DOCTYPE p [<!ENTITY a "aaaa">]><plist><dict><key>&a;</key></dict></plist>',
    "deep": b"<plist>" + b"<dict><key>a</key>" * 20000 + b"</dict>" * 20000 + b"</plist>",
}


@pytest.mark.parametrize("contents", list(DAMAGED.values()), ids=list(DAMAGED))
def test_damaged_files_raise_errors_that_name_them(folder, contents):
    write(folder, contents)
    emitter = T.ParticleEmitter(None)
    with pytest.raises(Exception) as caught:
        emitter.LoadFromFile("effect.plist")
    assert "effect.plist" in str(caught.value)
    assert (emitter.ParticleTotal, emitter.Life, emitter.plistFile) == (0, 0, None)


WORDS = [b"Begin", b"nan", b"-1", b"<dict>", b"</real>", b"1e999", b"\0", b"9" * 30, b"254"]


# Other values; bytes changed, doubled, cut out; words exchanged.
def mutant(rng, contents):
    values = re.split(rb"(?<=real|eger|ring)>([^<]*)<(?=/)", contents)
    for _ in range(rng.randint(1, 3)):
        values[rng.randrange(len(values) // 2) * 2 + 1] = rng.choice(WORDS)
    data = bytearray(b"".join(b">" + v + b"<" if i % 2 else v for i, v in enumerate(values)))
    for _ in range(rng.choice([0, 0, 1, 3])):
        at, length = rng.randrange(len(data)), rng.randint(1, 40)
        cases = [(bytes([rng.randrange(256)]), 1), (data[at : at + length], 0), (b"", length)]
        cases += [(rng.choice(WORDS), rng.randint(0, 5))]
        piece, length = rng.choice(cases)
        data[at : at + length] = piece
    return bytes(data)


def test_mutated_files_are_read_or_refused_by_name(folder, screen):
    rng, good = random.Random(3), folder / "good.plist"
    emitter, read = T.ParticleEmitter(None), 0
    emitter.InitPS_Fire()
    emitter.SetImage(None)
    emitter.SaveToFile(str(good))
    for _ in range(MUTANTS):
        write(folder, mutant(rng, good.read_bytes()))
        try:
            emitter.LoadFromFile("effect.plist")
        except Exception as error:
            assert "effect.plist" in str(error), repr(error)
            continue
        read += 1
        emitter.ParticleTotal = min(emitter.ParticleTotal, 20)
        with contextlib.suppress(ArithmeticError, TypeError, ValueError):
            emitter.update(0.1)
            emitter.draw(screen)
    assert MUTANTS / 20 < read < MUTANTS


def saved(emitter, folder):
    emitter.SaveToFile(str(folder / "saved.plist"))
    return plistlib.loads((folder / "saved.plist").read_bytes())


# What the files of a mode hold, in order: the numbers but those of the other mode.
FREE = "ParticleX ParticleXVar ParticleY ParticleYVar Speed SpeedVar GravityX GravityY"
FREE = [*FREE.split(), *(n for n in NUMBERS if "accel" in n)]
ROUND = [n for n in NUMBERS if "Radius" in n or "Rotate" in n]
PARTS = [f"{name}Color{var}{p}" for name in ("Begin", "End") for p in "RGBA" for var in ("", "Var")]


@pytest.mark.parametrize(
    ("mode", "missing"), [("Gravity", ROUND), ("Circle", FREE)], ids=["gravity", "circle"]
)
def test_what_is_saved_of_a_mode(folder, mode, missing):
    emitter = T.ParticleEmitter(None)
    emitter.ParticleMode = mode
    emitter.SetBlendType("SUB")
    emitter.SetImage("a&<b>.png")
    found = saved(emitter, folder)
    numbers = [name for name in NUMBERS if name not in missing]
    names = ["ParticleMode", "BlendType", "ParticleTotal", *numbers, *PARTS, "imageFile"]
    assert list(found) == names
    expected = dict(values(emitter, found), BlendType="SUB")
    assert found == expected
    # The variance of the red is read from alpha.
    expected.update(BeginColorVarR=found["BeginColorVarA"], BlendType=emitter.blendtype)
    again = loaded(folder, (folder / "saved.plist").read_bytes())
    assert values(again, found) == expected


def test_the_lines_of_a_file(folder):
    emitter = T.ParticleEmitter(None)
    emitter.EndSize = emitter.EndColor = "Begin"
    emitter.Life, emitter.ParticleTotal, emitter.EndAngleVar = 60, 5.0, 2.5
    saved(emitter, folder)
    lines = (folder / "saved.plist").read_text(encoding="utf-8").split("\n")
    assert lines[0] == '<?xml version="1.0" encoding="UTF-8"?>' and "DOCTYPE plist" in lines[1]
    assert lines[2:4] == ['<plist version="1.0">', "<dict>"]
    assert lines[-3:] == ["</dict>", "</plist>", ""]
    pairs = dict(zip(lines[4:-3:2], lines[5:-3:2]))
    expected = {"Life": "<real>60</real>", "EndSize": "<string>Begin</string>"}
    expected.update(EndAngleVar="<real>2.5</real>", EndColorG="<string>Begin</string>")
    expected.update(ParticleTotal="<integer>5</integer>", imageFile="<string></string>")
    expected.update(BeginColorR="<integer>255</integer>", BlendType="<string>MUL</string>")
    assert {name: pairs[f"<key>{name}</key>"] for name in expected} == expected


@contextlib.contextmanager
def unchanged(folder):
    before = (folder / "saved.plist").read_bytes()
    yield
    assert (folder / "saved.plist").read_bytes() == before
    assert os.listdir(str(folder)) == ["saved.plist"]


@pytest.mark.parametrize(
    ("name", "value"),
    [("Life", "long"), ("Imagefile", pygame.Rect), ("Imagefile", "a\0b"), ("EndColor", 5)],
    ids=["no number", "no file name", "no text of XML", "no colour"],
)
def test_what_cannot_be_saved_leaves_the_file_as_it_was(folder, name, value):
    emitter = T.ParticleEmitter(None)
    saved(emitter, folder)
    setattr(emitter, name, value)
    with unchanged(folder), pytest.raises((TypeError, ValueError, AttributeError)):
        saved(emitter, folder)


def test_a_write_that_fails_leaves_the_file_as_it_was(folder, monkeypatch):
    def refuse(*args):
        raise OSError("the disk is full")

    emitter = T.ParticleEmitter(None)
    saved(emitter, folder)
    monkeypatch.setattr(os, "replace", refuse)
    emitter.Life = 1
    with unchanged(folder), pytest.raises(OSError, match="full"):
        saved(emitter, folder)


@pytest.mark.parametrize("name", PLAIN)
def test_data_by_name(name):
    emitter = T.ParticleEmitter(None)
    emitter.SetData(name, "7")
    assert getattr(emitter, name) == emitter.GetData(name) == 7.0
    if "End" in name:
        emitter.SetData(dataname=name, datavalue="bEGIN")
        assert getattr(emitter, name) == "Begin"
    else:
        pytest.raises(ValueError, emitter.SetData, name, "Begin")


def test_other_data_by_name():
    emitter, gravity = T.ParticleEmitter(None), Vector2(1, 2)
    emitter.Gravity = gravity
    for name, value in (("GravityY", 5), ("direction", 1), ("directionVariance", 2), ("speed", 3)):
        emitter.SetData(name, value)
        assert emitter.GetData(dataname=name) == value
    assert (gravity, emitter.Gravity) == (Vector2(1, 2), Vector2(1, 5))
    assert (emitter.Direction, emitter.DirectionVar, emitter.Speed) == (1, 2, 3)
    given = {"BlendType": "ADD", "ParticleTotal": 9.7, "imageFile": "a.png"}
    given["ParticleMode"] = "Circle"
    for name, value in given.items():
        emitter.SetData(name, value)
    assert values(emitter, given) == dict(given, BlendType=pygame.BLEND_ADD, ParticleTotal=9)
    emitter.SetData("nothing", 1)
    assert emitter.GetData("nothing") is None is emitter.GetData(5)


def test_colours_by_name():
    emitter = T.ParticleEmitter(None)
    emitter.SetData("BeginColorVarR", 3)
    assert emitter.BeginColorVar == (3, 0, 0, 255) and emitter.GetData("BeginColorVarR") == 3
    emitter.SetData("EndColorB", "BEGIN")
    assert emitter.EndColor == "Begin" == emitter.GetData("EndColorA")
    emitter.BeginColor = pygame.Color(1, 2, 3, 4)
    emitter.SetData("EndColorG", "9")
    assert emitter.EndColor == (1, 9, 3, 4)
    for value in (256, -1, "red"):
        pytest.raises(ValueError, emitter.SetData, "BeginColorR", value)


def test_a_resource_manager_of_a_scripts_own(monkeypatch, folder):
    monkeypatch.setattr(T, "Res", Recorder(GetResPath=write(folder, {"Life": 5})))
    emitter = T.ParticleEmitter(None)
    emitter.LoadFromFile("anything")
    assert emitter.Life == 5 and T.Res.calls == [("GetResPath", ("anything",))]
