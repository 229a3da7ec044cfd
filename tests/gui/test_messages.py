"""Errors name the file or the attribute that they are about."""

import os
import pathlib

import pygame
import pytest
import Tessora as T
from helpers import ink
from picture_oracle import dress
from resource_files import default_font_file, write_file, write_png, write_wav


@pytest.fixture
def res(screen, tmp_path, monkeypatch):
    monkeypatch.setattr(T, "Res", T.PyGameResManager(str(tmp_path)))
    return tmp_path


FILES = {
    "image": lambda: T.GUI_Image().SetImage("hero.png"),
    "frames": lambda: T.GUI_Image().SetImage(["hero.png", "other.png"]),
    "hovered": lambda: T.GUI_Button().SetImage_Hover("hero.png"),
    "font": lambda: T.GUI_Label(None, 0, 0, "text", "hero.ttf"),
    "atlas": lambda: T.GUI_Image().LoadImageFramesPList("hero.plist"),
    "animation": lambda: T.GUI_Image().LoadAnimationPlist("hero.plist"),
}


@pytest.mark.parametrize("kind", FILES)
def test_without_resource_manager(screen, monkeypatch, kind):
    monkeypatch.setattr(T, "Res", None)
    pytest.raises(AttributeError, FILES[kind]).match("Res.*hero|hero.*Res")


@pytest.mark.parametrize("name", [None, 5])
def test_a_font_name_that_is_no_text(screen, name):
    pytest.raises(AttributeError, T.GUI_Label, None, 0, 0, "text", name).match("font name")


MISSING = {"font": AttributeError, "atlas": TypeError, "animation": TypeError}


@pytest.mark.parametrize("kind", MISSING)
def test_missing_files(res, kind):
    pytest.raises(MISSING[kind], FILES[kind]).match("hero")


SURFACE = pygame.Surface((4, 4), pygame.SRCALPHA)
RAISED = {"style": "raised", "borderVisible": True}
OUTLINED = {"style": "solid", "borderVisible": True}
PICTURE = {"image": SURFACE}
# The attribute, its value, what makes the widget read it, and the error.
WRONG = [("image", 5, {}, TypeError), ("image", "hero.png", {}, TypeError)]
WRONG += [("width", "wide", {}, TypeError), ("width", "wide", PICTURE, TypeError)]
WRONG += [("height", None, PICTURE, TypeError), ("alpha", "clear", {}, TypeError)]
WRONG += [("alpha", 300, PICTURE, ValueError), ("alpha", float("nan"), PICTURE, ValueError)]
WRONG += [("bgColor", "no color", {}, ValueError), ("bgColor", (300, 0, 0), PICTURE, ValueError)]
WRONG += [("borderwidth", "x", RAISED, TypeError), ("borderColor", "?", OUTLINED, ValueError)]
WRONG += [("borderColor_LT", "no color", RAISED, ValueError)]
WRONG += [("borderColor", "?", {**OUTLINED, "angle": 5}, ValueError)]
WRONG += [("coll_rectArray", {"a": [5]}, {"coll_visible": True}, TypeError)]
WRONG += [("coll_rectArray", {"a": [(1, 2, 3, "x")]}, {"coll_visible": True}, TypeError)]
WRONG = [(T.GUI_Image, *row) for row in WRONG]
WRONG += [(T.GUI_Label, "text", 5, {}, TypeError)]
WRONG += [(T.GUI_Label, "font", None, {"text": "text"}, AttributeError)]
WRONG += [(T.GUI_Label, "textColor", "no color", {"text": "text"}, ValueError)]
WRONG += [(T.GUI_Label, "textleftgap", "x", {"text": "text", "HAlign": "left"}, TypeError)]
WRONG += [(T.GUI_Button, "bgColor_click", "no color", {"clicked": True}, ValueError)]


@pytest.mark.parametrize(("cls", "name", "value", "look", "error"), WRONG)
def test_a_wrong_type_is_named_when_it_is_drawn(screen, cls, name, value, look, error):
    widget = dress(cls(), **{**look, name: value})
    pytest.raises(error, widget.draw, screen, 0, 0, 1.0).match(rf"\b{name}\b")


@pytest.mark.parametrize("frames", [5, [5], [SURFACE, {}], object], ids=str)
def test_frames_that_are_neither_files_nor_surfaces_are_named(screen, frames):
    widget = T.GUI_Image()
    with pytest.raises(TypeError, match=r"\b(SetImage|image|imagefiles)\b"):
        widget.SetImage(frames)
        for _ in range(2):
            widget.draw(screen, 0, 0, 1.0)
            widget.SwitchImage(1)


# What takes the name of a file takes a path.
PATHS = {
    "SetImage": lambda path: T.GUI_Image().SetImage(path("hero.png")),
    "SetImage, frames": lambda path: T.GUI_Image().SetImage([path("hero.png"), path("hero.png")]),
    "SetImage, atlas": lambda path: T.GUI_Image().SetImage(path("hero.plist")),
    "SetImage_Hover": lambda path: T.GUI_Button().SetImage_Hover(path("hero.png")),
    "SetImage_Click": lambda path: T.GUI_Button().SetImage_Click(path("hero.png")),
    "atlas": lambda path: T.GUI_Image().LoadImageFramesPList(path("hero.plist"), path("hero.png")),
    "CreateFont": lambda path: T.GUI_Label().CreateFont(path("hero.ttf"), 20),
    "GetResPath": lambda path: T.Res.GetResPath(path("hero.png")),
    "LoadImage": lambda path: T.Res.LoadImage(path("hero.png")),
    "GetImageListFiles": lambda path: T.Res.GetImageListFiles(path("hero.png")),
    "ManageImageMemory": lambda path: T.Res.ManageImageMemory(path("hero.png")),
    "GetFont": lambda path: T.Res.GetFont(path("hero.ttf"), 20),
    "PlaySound": lambda path: T.Res.PlaySound(path("hero.wav")),
    "PlayMusic": lambda path: T.Res.PlayMusic(path("hero.wav")),
}


class PathOfBytes:
    def __init__(self, name):
        self.name = os.fsencode(name)

    def __fspath__(self):
        return self.name


FRAME = b"<key>frame</key><string>{{0,0},{4,4}}</string>"
FRAMES = b"<key>frames</key><dict><key>a</key><dict>%s</dict></dict>" % FRAME


@pytest.mark.parametrize("name", PATHS)
def test_paths_do_for_file_names(res, capsys, name):
    write_png(res / "hero.png")
    write_wav(res / "hero.wav", 1)
    write_file(res / "hero.plist", b"<plist><dict>%s</dict></plist>" % FRAMES)
    with open(default_font_file(), "rb") as font:
        write_file(res / "hero.ttf", font.read())
    T.Res.FoundAllResFile(str(res))
    results = []
    for path in (str, pathlib.PurePosixPath, PathOfBytes):
        result = PATHS[name](path)
        names = list(T.Res.ImageDict), T.Res.ImageDict_MemManage_List
        results.append((type(result), result == -1, capsys.readouterr().out, names))
        T.Res.ReleaseAllImageMemeory()
    assert results[1:] == results[:1] * 2


def test_a_path_names_a_folder_and_a_new_file(res):
    for name in ("hero.png", "Scene/L.json", "Scene/L_Res.Json"):
        write_file(res / name)
    by_text, manager = T.PyGameResManager(str(res)), T.PyGameResManager(res)
    assert (manager.resdir, manager.fileDict) == (by_text.resdir, by_text.fileDict)
    assert manager.GetSceneList() == ["L"] and len(manager.fileDict) == 3
    manager.fileDict.clear()
    manager.AddNewResFile(res / "deep" / "other.png")
    manager.FoundAllResFile(res / "Scene")
    assert list(manager.fileDict) == ["other.png", "l.json", "l_res.json"]
    assert manager.GetResPath("other.png") == str(res / "deep" / "other.png")


@pytest.mark.parametrize("text", ["\u200b", "\u200b\u200b", "", "\ufeff"])
def test_a_text_without_width_draws_nothing(screen, text):
    widget = dress(T.GUI_Label(), bgColor=None, text=text)
    for _ in range(3):
        widget.draw(screen, 0, 0, 1.0)
    dress(widget, angle=30.0).draw(screen, 0, 0, 1.0)
    assert ink(screen).size == (0, 0)
