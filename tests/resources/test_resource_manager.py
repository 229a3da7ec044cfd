"""Finding files, loading images, playing music and sounds, opening fonts."""

import os
import shutil

import pygame
import pytest
import Tessora as T
from helpers import Recorder
from picture_oracle import assert_same, noise, outcome
from resource_files import default_font_file, native, write_file, write_png, write_wav

ASSETS = os.path.join(os.path.dirname(__file__), "..", "..", "examples", "star_catcher", "assets")
FILES = {"A.png": "A.png", "B.Txt": "sub\\B.Txt", ".hidden": "sub\\deep\\.hidden", "git": "git"}
SKIPPED = ["my.github.png", ".git/config", "a__pycache__b/x.png", "x.gitx/y.png"]


def test_files_are_found_by_their_bare_name_in_any_case(tmp_path):
    for name in [*FILES.values(), *SKIPPED]:
        write_file(tmp_path.joinpath(*name.split("\\")))
    res, root = T.PyGameResManager(resdir=str(tmp_path)), str(tmp_path) + "\\"
    assert res.fileDict == {name.lower(): root + path for name, path in FILES.items()}
    assert os.path.exists(native(res.GetResPath(filename="b.TXT")))
    assert [res.GetResPath(name) for name in ("sub/B.txt", "sub\\B.txt", "", "d")] == [None] * 4
    for path in ("dir\\New.TXT", "a/b.c\\d/New.TXT", "new.txt"):
        res.AddNewResFile(filePath=path)
        assert res.GetResPath("NEW.txt") == path
    for method in (res.AddNewResFile, res.GetResPath, res.LoadImage, T.PyGameResManager):
        assert outcome(method, None) in (TypeError, AttributeError)


def test_a_path_without_a_place_for_a_number_is_named():
    res = T.PyGameResManager("no such folder")
    res.AddNewResFile("folder/readme")
    pytest.raises(UnboundLocalError, res.GetImageListFiles, "readme").match("folder/readme")


L, A = dict.fromkeys(("L.json", "L_Res.Json"), ""), dict.fromkeys(("A.json", "A_Res.Json"), "")
SCENES = [({"Scene": {**A, **L}}, ["A", "L"]), ({"Scene": {"L.json": "", "L_res.json": ""}}, [])]
SCENES += [({"Scene": {"L.txt": "", **L}}, ["L"] * 2), ({"Scene": {"x": {**L}}}, []), ({**L}, [])]
SCENES += [({"Other": {"Scene": L}}, []), ({"scene": L}, [])]
# A folder inside "Scene" ends the listing of the files after it; files at the top level that come
# after the folder "Scene" count as scenes too.
SCENES += [({"Scene": {**A, "sub": {}, **L}}, ["A"]), ({"Scene": {}, **L}, ["L"])]
SCENES += [({"L.json": "", "Scene": {}, "L_Res.Json": ""}, []), ({"Scene": {}, "x": {}, **L}, [])]


@pytest.mark.parametrize(("tree", "scenes"), SCENES)
def test_scenes_in_the_order_of_the_listing(monkeypatch, tree, scenes):
    def find(path):
        node = {"res": {"two": {"A.PNG": ""}, "one": {"a.png": ""}, **tree}}
        for name in native(path).split(os.sep):
            node = node.get(name) if isinstance(node, dict) else None
        return node

    monkeypatch.setattr(os, "listdir", lambda path: list(find(path)))
    monkeypatch.setattr(os.path, "isdir", lambda path: isinstance(find(path), dict))
    monkeypatch.setattr(os.path, "exists", lambda path: find(path) is not None)
    res = T.PyGameResManager("res")
    assert (res.GetSceneList(), res.GetResPath("a.Png")) == (scenes, "res\\one\\a.png")
    res.FoundAllResFile(parentDir="res", dirType=None)
    assert res.GetSceneList() == scenes * 2


FOUND = "walk.png walk_01.png walk_02.png walk_x.png walker.png".split()
SEQUENCES = [("WALK_01.PNG", "walk", FOUND), ("walk_3.txt", "walk", FOUND)]
SEQUENCES += [("j1.png", "d\\j", ["d/j1.png"]), ("run.png", None, ["run.png"])]


@pytest.mark.parametrize(("name", "prefix", "expected"), SEQUENCES)
def test_frames_of_a_sequence(tmp_path, monkeypatch, capsys, name, prefix, expected):
    monkeypatch.chdir(tmp_path)
    for file in (*FOUND, "run7.png", "run.png", "walk_3.txt", "d/j1.png"):
        write_file(tmp_path / "res" / file)
    res = T.PyGameResManager("res")
    found = sorted(path.replace("\\", "/") for path in res.GetImageListFiles(fileName=name))
    assert found == ["res/" + file for file in expected]
    assert capsys.readouterr().out == (f"res\\{prefix}*.png\n" if prefix else "")
    assert (res.GetImageListFiles("?"), capsys.readouterr().out) == ([], "ImageList\n")


def test_images_are_loaded_once_and_the_latest_is_last(screen, tmp_path, capsys):
    for name in ("x.png", "Y.png"):
        write_png(tmp_path / name, noise((5, 6), name))
    write_file(tmp_path / "broken.png", b"no picture")
    res = T.PyGameResManager(str(tmp_path))
    loaded = [res.LoadImage(fileName=name) for name in ("x.png", "y.png", "x.png", "X.png")]
    assert loaded[0] is loaded[2] is not loaded[3]
    assert_same(loaded[1], noise((5, 6), "Y.png").convert_alpha())
    assert res.ImageDict_MemManage_List == ["y.png", "x.png", "X.png"]
    lines = "x.png load:1\ny.png load:2\nx.png load:0 -> 2\nX.png load:3\n"
    assert capsys.readouterr().out == lines
    assert (res.LoadImage("broken.png"), res.LoadImage("nothing.png")) == (None, None)
    assert capsys.readouterr().out.strip()
    assert (len(res.ImageDict), res.ImageDict_MemManage_Count) == (3, 3)
    res.ReleaseAllImageMemeory()
    assert (res.ImageDict, res.ImageDict_MemManage_List) == ({}, [])
    assert res.ImageDict_MemManage_Count == 0
    assert res.LoadImage("x.png") is not loaded[0]


@pytest.mark.parametrize("kind", ["wav", "ogg"])
def test_music_and_sounds_play(screen, tmp_path, kind):
    write_wav(tmp_path / "deep" / "Music.WAV")
    write_file(tmp_path / "broken.wav", b"no sound")
    res, name, music = T.PyGameResManager(str(tmp_path)), "MUSIC." + kind, pygame.mixer.music
    res.AddNewResFile(os.path.join(ASSETS, "music.ogg"))
    assert [res.PlaySound(fileName=file) for file in (name, name, "missing.wav")] == [0, 1, -1]
    res.StopSound(0)
    res.StopSound(soundID=5)
    assert [sound.get_num_channels() for sound in res.soundDict.values()] == [0, 1]
    for file in ("missing.wav", name):
        res.PlayMusic(fileName=file, loopcount=-1)
        assert music.get_busy() == (file == name)
    for play in (res.PlaySound, res.PlayMusic):
        assert outcome(play, "broken.wav") is pygame.error
    res.StopMusic()
    assert (music.get_busy(), res.soundPlayCount) == (False, 2)
    with pytest.MonkeyPatch.context() as patch:
        patch.setattr(pygame.mixer, "music", Recorder())
        for arguments, loops in (((), 0), ((-1,), -1)):
            res.PlayMusic(name, *arguments)
            assert pygame.mixer.music.calls[-1] == ("play", (loops, 0))
    pygame.mixer.quit()
    assert outcome(res.PlaySound, name) is pygame.error


def test_fonts(screen, tmp_path, monkeypatch):
    shutil.copy(default_font_file(), str(tmp_path / "Face.TTF"))
    monkeypatch.setattr(T, "Res", T.PyGameResManager(str(tmp_path)))
    height = pygame.font.Font(default_font_file(), 20).get_height()
    for flags, look in (((), (0, 0)), ((True,), (1, 0)), ((0, 1.0), (0, 1)), ((2, "yes"), (0, 0))):
        font = T.Res.GetFont("face.ttf", 20, *flags)
        assert (font.get_bold(), font.get_italic(), font.get_height()) == (*look, height)
    assert T.Res.GetFont("missing.ttf", 20) is None
    assert outcome(T.Res.GetFont, "face.ttf", "big") is TypeError
    assert T.GUI_Label(None, 0, 0, "text", "Face.TTF", 20).GetFont().get_height() == height
