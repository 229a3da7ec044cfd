"""Characters and their actions in files."""

import contextlib
import io
import json
import os
import plistlib
import random

import pygame
import pytest
import Tessora as T
from helpers import script_output

# How many damaged files are read.
MUTATIONS = int(os.environ.get("TESSORA_FILE_MUTATIONS", "2000"))
# Tied to the place in the scene, the moment or the machine: not in files.
NOT_SAVED = "sceneInstance parent children sortIndex instanceID ActionPlayer imageDict image"
NOT_SAVED += " currActionEndCallBackFunction currActionEndCallBackParams clicked dragcornerindex"
NOT_SAVED += " dragbegin_x dragbegin_y focusIn"
TEXTS = ["", "walk", "\u00e9\U0001f600", "$dict", 'a "b"\n', "\ud800"]


@pytest.fixture(autouse=True)
def res(monkeypatch, screen, tmp_path):
    folder = tmp_path / "res"
    folder.mkdir()
    for name, color in (("a.png", "red"), ("b.png", "blue"), ("sheet.png", "green")):
        picture = pygame.Surface((32, 16), pygame.SRCALPHA)
        picture.fill(pygame.Color(color))
        pygame.image.save(picture, str(folder / name))
    monkeypatch.setattr(T, "Res", T.PyGameResManager(str(folder)))
    return folder


def random_value(rng, depth=0):
    inner = [random_value(rng, depth + 1) for _ in range(rng.randrange(4) if depth < 3 else 0)]
    makers = [
        lambda: rng.choice([None, True, False, 0, -1, 2**70, 0.1, 1e300, -0.0, float("inf")]),
        lambda: rng.choice(TEXTS),
        lambda: rng.uniform(-9, 9),
        lambda: pygame.Color(*[rng.randrange(256) for _ in range(4)]),
        lambda: pygame.Rect(*[rng.randrange(-9, 99) for _ in range(4)]),
        lambda: pygame.Vector2(rng.random(), rng.random()),
        lambda: inner,
        lambda: tuple(inner),
        lambda: {rng.choice([*TEXTS, 1, 2.5, (1, "x"), None]): value for value in inner},
    ]
    return rng.choice(makers)()


def random_pair(rng):
    pair = (rng.choice([rng.randrange(99), rng.uniform(-9, 9)]), rng.uniform(0.1, 4))
    return rng.choice([pair, list(pair), pygame.Vector2(pair)])


def random_tracks(rng):
    color = [rng.randrange(256) for _ in range(4)]
    tracks = {
        "Image": rng.choice(["a.png", ["a.png", "b.png"], ("b.png",), None]),
        "Blend": rng.choice(["ADD", "MULT"]),
        "Anchor": rng.choice(["center", "ES"]),
        "Position": random_pair(rng),
        "Scale": random_pair(rng),
        "Rotate": rng.choice([90, 12.5, None]),
        "Color": rng.choice([color, tuple(color[:3]), pygame.Color(*color), "red"]),
        "Sound": "none.wav",
        "CBFunction": rng.choice(TEXTS),
        "RectList": [(1, 2, 3, 4), pygame.Rect(1, 2, 3, 4), [0.5, 0, 1, 1]],
        "TileBlock": random_value(rng),
    }
    return {name: tracks[name] for name in rng.sample(list(tracks), rng.randrange(len(tracks)))}


# Numbers and flags that a file holds get others; so do the containers.
def random_character(rng):
    character = T.GameCharacter()
    for name, value in list(vars(character).items()):
        if name in NOT_SAVED.split() or name in ("imageCount", "imagefiles"):
            continue
        if type(value) is bool:
            setattr(character, name, rng.choice([True, False]))
        elif type(value) in (int, float):
            setattr(character, name, rng.choice([rng.randrange(200), rng.uniform(0, 200)]))
        elif isinstance(value, pygame.Color):
            setattr(character, name, pygame.Color(*[rng.randrange(256) for _ in range(4)]))
    character.userData, character.collisionInfo = random_value(rng), random_value(rng)
    character.style = rng.choice(["solid", None])
    for table in ("SetBindingVar", "SetCharacterBindingVar"):
        getattr(character, table)(rng.choice(TEXTS), random_value(rng))
    character.SetBindingPoint("hand", 0, 1.5, 2)
    character.SetInnerBindingEvent("Update", "on", [1])
    character.AddCollRect("body", rng.choice([(1, 2, 3, 4), pygame.Rect(1, 2, 3, 4)]))
    for action in rng.sample([*TEXTS, 5, (1, 2)], 3):
        character.AddAction(action, rng.choice([0.1, 2, "0.5"]))
        for frame in rng.sample([0, 1, 2, 5, 9, 2.5], 3):
            character.AddKeyFrame(action, frame, rng.choice([0, 1, 2]))
            for part in range(rng.randrange(4)):
                for track, value in random_tracks(rng).items():
                    getattr(character, "SetKeyFrame_" + track)(action, frame, value, part)
    if rng.random() < 0.8:
        character.PlayAction(rng.choice(list(character.ActionArray)), True)
        character.update(0.2)
    character.SetFlipX(rng.choice([True, False]))
    return character


# Equal is not enough: a tuple is no list, and 1 is not True. NaN is not in the tests.
def exact(value):
    if isinstance(value, (list, tuple)):
        return type(value), [exact(item) for item in value]
    if isinstance(value, dict):
        return [(exact(key), exact(item)) for key, item in value.items()]
    kind = type(value)
    return kind, tuple(value) if kind in (pygame.Color, pygame.Vector2, pygame.Rect) else value


def state(character):
    saved = {k: exact(v) for k, v in vars(character).items() if k not in NOT_SAVED.split()}
    parts = []
    for index, part in character.imageDict.items():
        # The picture that a part has is a copy when it is mirrored.
        shown = part.image and pygame.image.tobytes(part.image, "RGBA")
        looks = (part.GetXY(), part.GetSXY(), part.angle, part.imageAnchor, part.blendtype)
        parts.append((index, shown, looks, tuple(part.bgColor), part.width, part.style))
    return saved, parts, [c in character.imageDict.values() for c in character.children]


@pytest.mark.parametrize("seed", range(20))
def test_everything_comes_back_equal(tmp_path, seed):
    rng, path = random.Random(seed), str(tmp_path / "hero.json")
    character, other = random_character(rng), random_character(rng)
    character.SaveToFile(path)
    other.LoadFromFile(path)
    assert state(other) == state(character)
    assert all(part.parent is other for part in other.imageDict.values())
    first = (tmp_path / "hero.json").read_bytes()
    other.SaveToFile(path)
    assert (tmp_path / "hero.json").read_bytes() == first
    assert sorted(os.listdir(str(tmp_path))) == ["hero.json", "res"]


def walker():
    character = T.GameCharacter()
    character.AddAction("walk", 0.25)
    for frame, place in ((0, (0, 0)), (4, (8, 4))):
        character.SetKeyFrame_Image("walk", frame, "a.png")
        character.SetKeyFrame_Position("walk", frame, place)
        character.SetKeyFrame_ChangeMode("walk", frame, 1)
    return character


def test_a_loaded_character_goes_on_where_it_was(tmp_path):
    character, other, scene = walker(), T.GameCharacter(), object()
    character.PlayAction("walk", True)
    for _ in range(3):
        character.update(0.2)
    character.SaveToFile(tmp_path / "hero.json")
    other.OnLoad(scene)
    other.LoadFromFile(tmp_path / "hero.json")
    assert other.imageDict[0].GetSceneInstance() is scene
    for _ in range(9):
        assert state(other) == state(character)
        character.update(0.2)
        other.update(0.2)


def test_a_picture_of_its_own_comes_back(tmp_path):
    character, other = T.GameCharacter(), walker()
    character.SetImage("b.png")
    character.SaveToFile(tmp_path / "hero.json")
    other.LoadFromFile(tmp_path / "hero.json")
    assert (other.imagefiles, other.imageCount) == ("b.png", 1)
    assert other.image.get_at((0, 0)) == pygame.Color("blue")
    walker().SaveToFile(tmp_path / "hero.json")
    other.LoadFromFile(tmp_path / "hero.json")
    assert (other.image, other.imageArray, other.imagefiles) == (None, {}, ["a.png"])


def test_actions_are_handed_on(tmp_path):
    character, path, other = walker(), tmp_path / "walk.json", T.GameCharacter()
    character.AddAction("run", "0.5")
    character.SaveAnimationToFile(path)
    other.AddAction("stand")
    other.LoadAnimationFromFile(path)
    assert other.GetActionNameList() == ["stand", "walk", "run"]
    assert exact(other.ActionArray["walk"]) == exact(character.ActionArray["walk"])
    assert (other.ActionFpsDelayArray["run"], other.imagefiles) == ("0.5", ["a.png"])
    other.PlayAction("walk")
    other.LoadAnimationFromFile(path, "run")
    assert other.ActionPlaying is True
    character.SaveAnimationToFile(path, "walk")
    other.LoadAnimationFromFile(path)
    assert (other.currActionName, other.ActionPlaying, other.children) == (None, False, [])
    pytest.raises(KeyError, other.LoadAnimationFromFile, path, "run")
    pytest.raises(KeyError, other.SaveAnimationToFile, path, "fly")


FRAMES = {"x": {"frame": "{{0,0},{16,16}}"}, "y": {"frame": "{{16,0},{16,16}}"}}
NAMES = ["x", "y", "a.png"]
ANIMATIONS = {"spin": {"delay": 0.2, "frames": NAMES}, "rest": {"delay": 1.0, "frames": NAMES}}


def with_animations(character, animations=ANIMATIONS, **more):
    for name, content in (("sheet", {"frames": FRAMES}), ("anim", dict(animations, **more))):
        path = f"{T.Res.resdir}/{name}.plist"
        with open(path, "wb") as file:
            plistlib.dump(content, file)
        T.Res.AddNewResFile(path)
    character.LoadAllAnimationsFromPlist("anim.plist", "sheet.plist")
    return character


def test_animations_of_a_property_list(tmp_path):
    character = with_animations(T.GameCharacter())
    assert character.ActionFpsDelayArray == {"spin": 0.2, "rest": 1.0}
    assert character.imagefiles == ["sheet.plist", "a.png"]
    assert list(character.imageArray) == ["x", "y"]
    character.SaveToFile(tmp_path / "spin.json")
    character.SaveAnimationToFile(tmp_path / "spins.json")
    loaded, handed = T.GameCharacter(), T.GameCharacter()
    loaded.LoadFromFile(tmp_path / "spin.json")
    handed.LoadAnimationFromFile(tmp_path / "spins.json")
    for other in (character, loaded, handed):
        other.PlayAction("spin")
        assert other.imageDict[0].image is other.imageArray["x"]
        assert other.imageDict[0].width == 16


@pytest.mark.parametrize(
    ("wrong", "error"),
    [({}, ValueError), ("x", TypeError), ({"delay": "fast", "frames": NAMES}, ValueError)],
    ids=["no frames", "no dictionary", "no number"],
)
def test_a_wrong_property_list_changes_nothing(wrong, error):
    character = walker()
    before = state(character)
    with pytest.raises(error, match="anim.plist"):
        with_animations(character, wrong=wrong)
    assert state(character) == before


def test_pictures_are_loaded_again():
    character = with_animations(T.GameCharacter())
    character.PlayAction("spin")
    old = character.imageDict[0].image
    T.Res.ReleaseAllImageMemeory()
    character.Tessora_ReLoadImage()
    assert character.imageDict[0].image is character.imageArray["x"] is not old
    character.CleanUpAction()
    character.SetImage("a.png")
    T.Res.ReleaseAllImageMemeory()
    old = character.image
    character.Tessora_ReLoadImage()
    assert character.image is not old


UNWRITABLE = {
    "function": lambda c: c.SetKeyFrame_CBFunction("walk", 4, len),
    "surface": lambda c: c.SetKeyFrame_Image("walk", 4, pygame.Surface((1, 1))),
    "object": lambda c: setattr(c, "userData", object()),
    "cycle": lambda c: c.SetBindingVar("itself", c.BindingVarArray),
    "position": lambda c: c.SetKeyFrame_Position("walk", 4, "x"),
    "layout": lambda c: c.ActionArray["walk"].update({4: 5}),
    "place": lambda c: c.SetX("x"),
    "huge number": lambda c: setattr(c, "userData", 10**5000),
    "too much": lambda c: setattr(c, "userData", "x" * (1 << 24)),
}


@pytest.mark.parametrize("what", UNWRITABLE)
def test_what_cannot_be_written_leaves_the_old_file(tmp_path, what):
    path, character = tmp_path / "hero.json", walker()
    character.SaveToFile(path)
    old = path.read_bytes()
    UNWRITABLE[what](character)
    with pytest.raises((TypeError, ValueError, RecursionError), match="hero.json"):
        character.SaveToFile(path)
    assert path.read_bytes() == old and sorted(os.listdir(str(tmp_path))) == ["hero.json", "res"]


@pytest.mark.skipif(os.name == "nt", reason="the limit is one of POSIX systems")
def test_a_full_disk_leaves_the_old_file(tmp_path):
    script = f"""
import os, resource, signal
import Tessora as T
os.chdir({str(tmp_path)!r})
c = T.GameCharacter()
c.SaveToFile("hero.json")
old = open("hero.json").read()
c.userData = "x" * 1000000
signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
resource.setrlimit(resource.RLIMIT_FSIZE, (65536, 65536))
try:
    c.SaveToFile("hero.json")
except OSError as error:
    print("hero.json" in str(error), open("hero.json").read() == old, sorted(os.listdir(".")))
"""
    assert script_output(script) == ["True True ['hero.json', 'res']"]


def test_missing_folders_and_files_are_named(tmp_path):
    character = walker()
    before = state(character)
    calls = [("SaveToFile", "no/a.json"), ("LoadFromFile", "b.json"), ("LoadFromFile", "")]
    for method, path in calls:
        with pytest.raises(OSError, match=path.split("/")[-1]):
            getattr(character, method)(tmp_path / path)
    assert state(character) == before
    pytest.raises(TypeError, character.SaveToFile, 5)


@pytest.mark.skipif(os.name == "nt", reason="links need rights on Windows")
def test_a_link_and_the_mode_of_a_file_stay(tmp_path):
    path, link = tmp_path / "hero.json", tmp_path / "link.json"
    walker().SaveToFile(path)
    path.chmod(0o640)
    link.symlink_to(path)
    walker().SaveToFile(link)
    assert link.is_symlink() and path.stat().st_mode & 0o777 == 0o640


HOSTILE = {
    "nothing": b"",
    "no dictionary": b"[]",
    "deep": b"[" * 100000,
    "long number": b'{"format": ' + b"9" * 200000,
    "other format": b'{"format": "x"}',
    "other version": b'{"format": "Tessora character", "version": 2}',
    "no text": b"\xff\xfe",
    "large": b" " * ((16 << 20) + 1),
    "many parts": {"parts": 5000},
    "unknown attribute": {"attributes": {"parent": 1}},
    "wrong attribute": {"attributes": {"x": "1"}},
    "unknown mark": {"attributes": {"userData": {"$call": "os.system"}}},
    "wrong colour": {"attributes": {"bgColor": {"$color": [1, 2, 3, 400]}}},
    "wrong speed": {"attributes": {"ActionFpsDelayArray": {"walk": []}}},
    "missing atlas": {"attributes": {"imagefiles": ["none.plist"]}},
    "function": {"tracks": {"CBFunction": 5}},
    "position": {"tracks": {"Position": [1]}},
}


def hostile(given):
    if isinstance(given, bytes):
        return given
    tracks = given.get("tracks", {})
    parts = [{"part": n, "tracks": tracks} for n in range(given.get("parts", 1))]
    content = {"format": "Tessora character", "version": 1, "flip": [False, False]}
    content["attributes"] = given.get("attributes", {})
    frame = {"frame": 0, "ChangeMode": 0, "parts": parts}
    content.update(own_picture=False, actions=[{"name": "walk", "keyframes": [frame]}])
    return json.dumps(content).encode()


@pytest.mark.parametrize("what", HOSTILE)
def test_hostile_files_are_refused_and_named(tmp_path, what):
    path, character = tmp_path / "hostile.json", walker()
    character.PlayAction("walk")
    character.update(0.3)
    before, parts = state(character), list(character.children)
    path.write_bytes(hostile(HOSTILE[what]))
    errors = (ValueError, RecursionError, TypeError, AttributeError)
    for load in (character.LoadFromFile, character.LoadAnimationFromFile):
        with pytest.raises(errors, match="hostile.json"):
            load(path)
    assert state(character) == before and character.children == parts


def test_a_class_that_refuses_a_value_keeps_what_it_had(tmp_path):
    def refuse(self, value):
        raise LookupError("no")

    class Stubborn(T.GameCharacter):
        dropSpeed = property(lambda self: 0, refuse)

    pytest.raises(LookupError, Stubborn)
    character, other = walker(), walker()
    character.x = 70
    character.SaveToFile(tmp_path / "hero.json")
    other.__class__ = Stubborn
    with pytest.raises(LookupError, match="hero.json"):
        other.LoadFromFile(tmp_path / "hero.json")
    assert other.x == 0


SIGNS = [sign.encode() for sign in '0123456789-.eE[]{}",:$ntf']
WORDS = [b"null", b"NaN", b"-Infinity", b"1e999", b"[]", b"{}", b'"$dict"', b"9" * 30]


# Bytes changed, cut out or doubled; words exchanged; the end missing.
def mutated(rng, data):
    data = bytearray(data)
    for _ in range(rng.choice([1, 1, 2, 8])):
        place, other = rng.randrange(len(data)), rng.randrange(len(data))
        doubled, byte = data[other : other + rng.randrange(1, 200)], bytes([rng.randrange(256)])
        cases = [(byte, 1), (rng.choice(SIGNS), 1), (rng.choice(WORDS), rng.randrange(9))]
        cases += [(doubled, 0), (b"", rng.randrange(1, 40)), (b"", len(data))]
        piece, length = rng.choices(cases, [6, 4, 3, 3, 2, 2])[0]
        data[place : place + length] = piece
        data = data or bytearray(b"x")
    return bytes(data)


def test_damaged_files_are_refused_or_read_whole(tmp_path, monkeypatch, capsys):
    seed = int(os.environ.get("TESSORA_FUZZ_SEED", "7").split(",")[0])
    rng, path, sources = random.Random(seed), tmp_path / "x.json", []
    for method in ("SaveToFile", "SaveAnimationToFile"):
        for _ in range(4):
            getattr(random_character(rng), method)(path)
            # Without the white space at the lines' beginnings more of the damage counts.
            text = json.dumps(json.loads(path.read_bytes().decode()), separators=(",", ":"))
            sources.append((method.replace("Save", "Load").replace("To", "From"), text.encode()))
    character, refused, data = walker(), 0, b""
    before = state(character)
    # Writing the files would take most of the time.
    monkeypatch.setattr("builtins.open", lambda *args: io.BytesIO(data))
    for _ in range(MUTATIONS):
        method, data = rng.choice(sources)
        data = mutated(rng, data)
        try:
            getattr(character, method)(str(path))
        except Exception as error:
            assert "x.json" in str(error), error
            assert state(character) == before
            refused += 1
            continue
        # What was read can be played; what scripts would be told of odd values is their matter.
        with contextlib.suppress(Exception):
            character.update(0.1)
        character = walker()
        capsys.readouterr()
    assert MUTATIONS < 100 or 0 < refused < MUTATIONS
