"""Finding files: the index, scenes, and the frames of an image sequence."""

import os

import pytest
import Tessora as T
from resource_files import native, write_file, write_png

ATTRIBUTES = {
    "resdir": "nowhere",
    "fontdir": None,
    "fileDict": {},
    "ImageDict": {},
    "soundDict": {},
    "ImageDict_MemManage_List": [],
    "ImageDict_MemManage_Total": 100,
    "ImageDict_MemManage_Count": 0,
    "SceneJsonDict": [],
    "soundPlayCount": 0,
}


def manager(folder, *names):
    for name in names:
        write_file(folder / name)
    return T.PyGameResManager(str(folder))


def test_attributes_and_a_missing_folder():
    res = T.PyGameResManager("nowhere")
    assert dict(vars(res)) == ATTRIBUTES
    assert list(vars(res)) == list(ATTRIBUTES)
    assert T.PyGameResManager(resdir="nowhere").fileDict == {}
    res.SetFontDir(path="fonts")
    assert res.fontdir == "fonts"
    for arguments in ((), ("a", "b")):
        with pytest.raises(TypeError):
            T.PyGameResManager(*arguments)
    for bad in (None, 3.5, []):
        with pytest.raises((TypeError, AttributeError)):
            T.PyGameResManager(bad)


def test_files_are_found_by_their_bare_name_in_any_case(tmp_path):
    res = manager(tmp_path, "A.png", "sub/B.Txt", "sub/deep/c", "sub/deep/.hidden")
    root = str(tmp_path)
    assert res.fileDict == {
        "a.png": root + "\\A.png",
        "b.txt": root + "\\sub\\B.Txt",
        "c": root + "\\sub\\deep\\c",
        ".hidden": root + "\\sub\\deep\\.hidden",
    }
    assert res.GetResPath("b.TXT") == res.GetResPath(filename="B.txt") == root + "\\sub\\B.Txt"
    for name in ("sub/B.txt", "sub\\B.txt", root + "\\A.png", "", "d", ".png"):
        assert res.GetResPath(name) is None
    for path in res.fileDict.values():
        assert os.path.exists(native(path))
    for bad in (None, 5):
        with pytest.raises((AttributeError, TypeError)):
            res.GetResPath(bad)


def test_names_that_are_skipped(tmp_path):
    skipped = ["my.github.png", ".gitignore", ".git/config", "a__pycache__b/x.png", "x.gitx/y.png"]
    res = manager(tmp_path, *skipped, "git.png", "pycache/z.png", "sub.d/__pycache_/w.png")
    assert sorted(res.fileDict) == ["git.png", "w.png", "z.png"]


class Tree:
    """A folder tree that lists its entries in the order written."""

    def __init__(self, monkeypatch, **root):
        self.root = root
        self.listed = []
        monkeypatch.setattr(os, "listdir", self.listdir)
        monkeypatch.setattr(os.path, "isdir", lambda path: isinstance(self.find(path), dict))
        monkeypatch.setattr(os.path, "exists", lambda path: self.find(path) is not None)

    def find(self, path):
        node = {"res": self.root}
        for name in native(path).split(os.sep):
            node = node.get(name) if isinstance(node, dict) else None
        return node

    def listdir(self, path):
        self.listed.append(native(path))
        return list(self.find(path))


def names(*files):
    return dict.fromkeys(files, "")


def test_the_file_met_last_wins(monkeypatch):
    for order in (("one", "two"), ("two", "one")):
        Tree(monkeypatch, **{folder: names("A.png") for folder in order})
        assert T.PyGameResManager("res").GetResPath("a.PNG") == f"res\\{order[1]}\\A.png"
    Tree(monkeypatch, **{"A.PNG": "", "one": names("a.png"), "a.Png": ""})
    assert T.PyGameResManager("res").fileDict == {"a.png": "res\\a.Png"}


LEVEL = names("L.json", "L_Res.Json")
SCENES = [
    ({"Scene": names("Level1.json", "Level1_Res.Json")}, ["Level1"]),
    ({"Scene": names("B.json", "B_Res.Json", "A.json", "A_Res.Json")}, ["B", "A"]),
    ({"Scene": names("L.json", "L.txt", "L_Res.Json")}, ["L", "L"]),
    ({"Scene": names("L.json", "L_res.json")}, []),
    ({"Scene": names("a.b.json", "a.b_Res.Json")}, ["a.b"]),
    ({"Scene": names("L_Res.Json", "L_Res_Res.Json")}, ["L_Res"]),
    ({"scene": LEVEL}, []),
    ({"Scenes": LEVEL}, []),
    ({"Other": {"Scene": LEVEL}}, []),
    ({"Scene": {"deep": LEVEL}}, []),
    ({"Scene": {"Scene": LEVEL}}, []),
    (dict(LEVEL), []),
    # A folder inside "Scene" ends the listing of the files after it.
    (
        {"Scene": dict(names("A.json", "A_Res.Json", "B_Res.Json"), sub={}, **names("B.json"))},
        ["A"],
    ),
    # Files at the top level that come after the folder "Scene" count as scenes too.
    (dict(Scene={}, **LEVEL), ["L"]),
    (dict(names("L.json"), Scene={}, **names("L_Res.Json")), []),
    (dict(Scene={}, other={}, **LEVEL), []),
    (dict(Scene={}, __pycache__={}, **LEVEL), ["L"]),
]


@pytest.mark.parametrize(("tree", "scenes"), SCENES)
def test_scenes(monkeypatch, tree, scenes):
    Tree(monkeypatch, **tree)
    res = T.PyGameResManager("res")
    assert res.GetSceneList() == scenes
    assert res.GetSceneList() is res.SceneJsonDict


def test_scanning_again_by_hand(monkeypatch):
    tree = Tree(monkeypatch, Scene=dict(LEVEL), Other={"Scene": dict(LEVEL)})
    res = T.PyGameResManager("res")
    assert [path.replace(os.sep, "/") for path in tree.listed] == [
        "res",
        "res/Scene",
        "res/Other",
        "res/Other/Scene",
    ]
    res.FoundAllResFile("res\\Other")
    assert res.GetSceneList() == ["L"]
    res.FoundAllResFile(parentDir="res\\Other\\Scene", dirType="Scene")
    assert res.GetSceneList() == ["L", "L"]
    assert res.GetResPath("L.json") == "res\\Other\\Scene\\L.json"
    res.FoundAllResFile("res\\nothing")
    res.FoundAllResFile("res")
    assert res.GetSceneList() == ["L", "L", "L"]


def test_the_scan_goes_through_overridden_methods(tmp_path):
    class Res(T.PyGameResManager):
        def FoundAllResFile(self, parentDir, dirType=None):
            seen.append((parentDir, dirType))
            super().FoundAllResFile(parentDir, dirType)

    seen = []
    write_file(tmp_path / "sub" / "deep" / "a")
    Res(str(tmp_path))
    root = str(tmp_path)
    assert seen == [(root, None), (root + "\\sub", "sub"), (root + "\\sub\\deep", None)]


def test_errors_of_the_listing_pass_through(monkeypatch, tmp_path):
    def refuse(path):
        raise PermissionError("locked")

    monkeypatch.setattr(os, "listdir", refuse)
    with pytest.raises(PermissionError, match="locked"):
        T.PyGameResManager(str(tmp_path))


@pytest.mark.parametrize("path", ["dir/New.TXT", "New.TXT", "dir\\New.TXT", "a/b.c\\d/New.TXT"])
def test_adding_a_file(path):
    res = T.PyGameResManager("nowhere")
    assert res.AddNewResFile(path) is None
    assert res.fileDict == {"new.txt": path}
    res.AddNewResFile(filePath="other/NEW.txt")
    assert res.GetResPath("new.txt") == "other/NEW.txt"
    with pytest.raises((TypeError, AttributeError)):
        res.AddNewResFile(None)


@pytest.fixture
def frames(tmp_path, monkeypatch, capsys):
    """frames(names) makes a manager over exactly these files, in a folder named "res"."""
    monkeypatch.chdir(tmp_path)

    def make(*files):
        for name in files:
            write_png(tmp_path / "res" / name)
        return T.PyGameResManager("res")

    return make


def listed(res, name):
    return sorted(path.replace("\\", "/") for path in res.GetImageListFiles(name))


WALK = (
    "walk_01.png",
    "walk_02.png",
    "walker.png",
    "walk.png",
    "walk_x.png",
    "run7.png",
    "run8.png",
)
WALK += ("run.png", "12.png", "logo.png", "walk_3.txt")
FRAMES = [
    ("walk_02.png", "walk", ["walk.png", "walk_01.png", "walk_02.png", "walk_x.png", "walker.png"]),
    ("WALK_01.PNG", "walk", ["walk.png", "walk_01.png", "walk_02.png", "walk_x.png", "walker.png"]),
    ("walk_x.png", None, ["walk_x.png"]),
    ("walk_3.txt", "walk", ["walk.png", "walk_01.png", "walk_02.png", "walk_x.png", "walker.png"]),
    ("run8.png", "run", ["run.png", "run7.png", "run8.png"]),
    ("run.png", None, ["run.png"]),
    ("logo.png", None, ["logo.png"]),
]


@pytest.mark.parametrize(("name", "prefix", "expected"), FRAMES)
def test_frames_of_a_sequence(frames, capsys, name, prefix, expected):
    res = frames(*WALK)
    assert listed(res, name) == ["res/" + file for file in expected]
    pattern = f"res\\{prefix}*.png\n" if prefix else ""
    assert capsys.readouterr().out == pattern
    if prefix is None:
        assert res.GetImageListFiles(fileName=name) == ["res\\" + expected[0]]


def test_frames_in_deeper_folders(frames, capsys):
    res = frames("deep/walk_1.png", "deep/walk_2.png", "walk_3.png", "un_der/run7.png")
    assert listed(res, "walk_1.png") == ["res/deep/walk_1.png", "res/deep/walk_2.png"]
    assert listed(res, "run7.png") == ["res/un_der/run7.png"]
    assert capsys.readouterr().out == "res\\deep\\walk*.png\n"


def test_numbers_only_and_long_extensions(frames, capsys):
    res = frames("12.png", "other.png")
    assert listed(res, "12.png") == ["res/12.png", "res/other.png"]
    res.AddNewResFile("res/jump_02.jpeg")
    assert res.GetImageListFiles("jump_02.jpeg") == ["res/jump_02.jpeg"]
    res.AddNewResFile("res/jump_.png")
    assert res.GetImageListFiles("jump_.png") == ["res/jump_.png"]
    res.AddNewResFile("res/j_ump3.png")
    assert res.GetImageListFiles("j_ump3.png") == ["res/j_ump3.png"]
    assert capsys.readouterr().out == "res\\*.png\n"


def test_an_unknown_sequence(frames, capsys):
    res = frames()
    result = res.GetImageListFiles("nothing.png")
    assert result == []
    assert capsys.readouterr().out == "ImageList\n"


@pytest.mark.parametrize("path", ["readme", "folder/readme", ".readme"])
def test_a_path_without_a_dot(path):
    res = T.PyGameResManager("nowhere")
    res.AddNewResFile(path)
    with pytest.raises(UnboundLocalError):
        res.GetImageListFiles(os.path.basename(path))
    assert res.GetResPath(os.path.basename(path)) == path


def test_the_glob_function_of_the_moment_is_asked(frames, monkeypatch, capsys):
    import glob

    asked = []
    monkeypatch.setattr(glob, "glob", lambda pattern: asked.append(pattern) or "as it comes")
    res = frames("walk_01.png")
    assert res.GetImageListFiles("walk_01.png") == "as it comes"
    assert asked == [native("res\\walk*.png")]
