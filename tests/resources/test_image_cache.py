"""Loading images: cache, recency list, printed lines, broken files."""

import os

import pygame
import pytest
import Tessora as T
from picture_oracle import assert_same, noise, outcome
from resource_files import native, write_file, write_png


@pytest.fixture
def res(screen, tmp_path):
    for name in ("x.png", "Y.png", "sub/z.png"):
        write_png(tmp_path / name, noise((5, 6), name))
    return T.PyGameResManager(str(tmp_path))


def test_images_are_loaded_once_per_spelling(res, monkeypatch, capsys):
    loaded = []
    load = pygame.image.load
    monkeypatch.setattr(pygame.image, "load", lambda path: loaded.append(path) or load(path))
    image = res.LoadImage("x.png")
    assert res.LoadImage(fileName="x.png") is image
    other = res.LoadImage("X.PNG")
    assert other is not image
    assert loaded == [native(res.GetResPath("x.png"))] * 2
    assert res.ImageDict == {"x.png": image, "X.PNG": other}
    assert capsys.readouterr().out.split("\n") == [
        "x.png load:1",
        "x.png load:0 -> 1",
        "X.PNG load:2",
        "",
    ]


@pytest.mark.parametrize("depth", [8, 24, 32])
def test_images_have_the_display_format_with_alpha(res, tmp_path, depth):
    source = noise((9, 7), 3, pygame.SRCALPHA if depth == 32 else 0, depth)
    write_png(tmp_path / "new.png", source)
    res.AddNewResFile(str(tmp_path / "new.png"))
    image = res.LoadImage("new.png")
    expected = pygame.image.load(str(tmp_path / "new.png")).convert_alpha()
    assert_same(image, expected)
    assert image.get_flags() == expected.get_flags()
    assert image.get_masks() == expected.get_masks()
    assert image.get_colorkey() is None


def test_recency(res, capsys):
    for name in ("x.png", "y.png", "z.png", "y.png", "x.png", "x.png"):
        res.LoadImage(name)
    assert res.ImageDict_MemManage_List == ["z.png", "y.png", "x.png"]
    assert res.ImageDict_MemManage_Count == 3
    res.ManageImageMemory("other")
    res.ManageImageMemory(fileName="y.png")
    assert res.ImageDict_MemManage_List == ["z.png", "x.png", "other", "y.png"]
    lines = [
        "x.png load:1",
        "y.png load:2",
        "z.png load:3",
        "y.png load:1 -> 3",
        "x.png load:0 -> 3",
    ]
    lines += ["x.png load:2 -> 3", "other load:4", "y.png load:1 -> 4", ""]
    assert capsys.readouterr().out.split("\n") == lines
    assert "other" not in res.ImageDict


def test_releasing(res, capsys):
    image = res.LoadImage("x.png")
    cache, order = res.ImageDict, res.ImageDict_MemManage_List
    res.ImageDict_MemManage_Total = 7
    res.ReleaseAllImageMemeory()
    assert (cache, order) == ({}, [])
    assert res.ImageDict is cache
    assert res.ImageDict_MemManage_List is not order
    assert (res.ImageDict_MemManage_Total, res.ImageDict_MemManage_Count) == (100, 0)
    assert res.LoadImage("x.png") is not image
    res.ImageDict_MemManage_List = None
    res.ReleaseAllImageMemeory()
    assert res.ImageDict_MemManage_List == []


def test_the_name_is_resolved_before_the_cache_is_asked(res, capsys):
    assert res.LoadImage("nothing.png") is None
    assert res.LoadImage("sub/z.png") is None
    res.LoadImage("x.png")
    capsys.readouterr()
    del res.fileDict["x.png"]
    assert res.LoadImage("x.png") is None
    assert capsys.readouterr().out == ""
    with pytest.raises((AttributeError, TypeError)):
        res.LoadImage(None)


@pytest.mark.parametrize("data", [b"", b"no picture", b"\x89PNG\r\n\x1a\n" + b"\0" * 50], ids=repr)
def test_broken_files(res, tmp_path, capsys, data):
    path = write_file(tmp_path / "broken.png", data)
    res.AddNewResFile(str(path))
    for _ in range(2):
        assert res.LoadImage("broken.png") is None
        assert capsys.readouterr().out.strip()
    assert "broken.png" not in res.ImageDict
    assert res.ImageDict_MemManage_List == []
    assert res.ImageDict_MemManage_Count == 0
    write_png(path)
    assert res.LoadImage("broken.png").get_size() == (4, 4)
    assert capsys.readouterr().out == "broken.png load:1\n"


def test_any_error_while_loading_is_printed(res, monkeypatch, capsys):
    def fail(path):
        raise LookupError("disk on fire")

    monkeypatch.setattr(pygame.image, "load", fail)
    assert res.LoadImage("x.png") is None
    assert "disk on fire" in capsys.readouterr().out
    monkeypatch.setattr(pygame.image, "load", lambda path: None)
    assert res.LoadImage("x.png") is None
    assert capsys.readouterr().out.strip()
    monkeypatch.undo()
    os.remove(native(res.GetResPath("x.png")))
    assert res.LoadImage("x.png") is None
    assert res.ImageDict == {}


def test_a_failing_bookkeeping_is_guarded_too(screen, tmp_path, capsys):
    class Res(T.PyGameResManager):
        def ManageImageMemory(self, fileName):
            raise LookupError("full")

    write_png(tmp_path / "x.png")
    assert Res(str(tmp_path)).LoadImage("x.png") is None
    assert "full" in capsys.readouterr().out


def test_without_a_display_nothing_is_loaded_where_pygame_needs_one(res, capsys):
    path = native(res.GetResPath("x.png"))
    size = pygame.display.get_surface().get_size()
    pygame.display.quit()
    try:
        plain = outcome(lambda: pygame.image.load(path).convert_alpha())
        loaded = res.LoadImage("x.png")
    finally:
        pygame.display.init()
        pygame.display.set_mode(size)
    assert (loaded is None) is (plain is not None)
    assert ("x.png" in res.ImageDict) is (plain is None)
    assert res.LoadImage("x.png").get_size() == (5, 6)


def test_a_widget_shows_a_loaded_image(res, screen, monkeypatch):
    monkeypatch.setattr(T, "Res", res)
    widget = T.GUI_Image()
    widget.SetImage(["x.png", "missing.png", "Z.png"])
    assert widget.imageArray[0] is res.ImageDict["x.png"]
    assert widget.imageArray[1] is None
    assert widget.imageArray[2] is res.ImageDict["Z.png"]
    widget.draw(screen, 0, 0, 1.0)
