"""Pictures of a widget: where they come from, frame animation, mirroring, copying, viewport."""

import pygame
import pytest
import Tessora as T
from picture_oracle import assert_widget, dress, noise


class Images:
    """Stands in for the resource manager: hands out surfaces by name."""

    def __init__(self, **images):
        self.images = images
        self.asked = []

    def LoadImage(self, name):
        self.asked.append(name)
        return self.images.get(name)


@pytest.fixture
def res(monkeypatch):
    images = Images(**{name: pygame.Surface((10 + i, 20)) for i, name in enumerate("abcd")})
    monkeypatch.setattr(T, "Res", images)
    return images


@pytest.mark.parametrize(
    ("files", "names"),
    [("a", "a"), (["a", "b"], "ab"), (("c", "a", "c"), "cac"), ([], ""), (["missing", "b"], None)],
    ids=str,
)
def test_files(screen, res, files, names):
    widget = T.GUI_Image()
    widget.imageIndex, widget.imageDelay = 1, 0.05
    widget.SetImage(files)
    expected = [None, res.images["b"]] if names is None else [res.images[n] for n in names]
    assert res.asked == ([files] if isinstance(files, str) else list(files))
    assert list(widget.imageArray) == expected
    assert widget.imagefiles is files
    assert widget.GetImageCount() == len(expected)
    assert widget.image is (expected[0] if expected else None)
    assert widget.imageSwitchDelay == 0.1
    assert (widget.imageIndex, widget.imageDelay) == (1, 0.05)
    assert (widget.width, widget.height) == (100, 100)


@pytest.mark.parametrize("arguments", [("a", 2), ("a",), ("b", 0.5)])
def test_switch_delay_is_set_with_the_picture(res, arguments):
    widget = T.GUI_Image()
    widget.SetSwitchImageDelay(9)
    widget.SetImage(*arguments)
    assert widget.GetSwitchImageDelay() == ((*arguments, 0.1))[1]
    widget.SetImage(imagefiles="a", switchdelay=4)
    assert widget.GetSwitchImageDelay() == 4


def test_a_surface_and_no_picture_need_no_resources(screen):
    assert T.Res is None
    picture = noise((12, 13), 1)
    widget = T.GUI_Image()
    widget.SetImage(picture)
    assert (widget.image, list(widget.imageArray), widget.imageCount) == (picture, [picture], 1)
    assert_widget(widget, screen)
    widget.SetImage(None)
    assert (widget.image, widget.imageCount, widget.imagefiles) == (None, 0, None)
    assert_widget(widget, screen)
    for name in ("a.png", ["a.png"], "a.plist"):
        with pytest.raises(Exception) as error:  # noqa: PT011
            widget.SetImage(name)
        assert issubclass(error.type, (AttributeError, TypeError, OSError))
        assert_widget(widget, screen)


def test_an_error_while_loading(screen, monkeypatch):
    class Broken:
        def LoadImage(self, name):
            raise LookupError(name)

    monkeypatch.setattr(T, "Res", Broken())
    widget = T.GUI_Image()
    for files in ("a", ["b", "c"]):
        with pytest.raises(LookupError):
            widget.SetImage(files)
    assert_widget(widget, screen)


def animated(count=3, delay=0.25):
    frames = [pygame.Surface((10 + i, 20 + i)) for i in range(count)]
    widget = dress(T.GUI_Image(), imageArray=frames, imageCount=count, imageAutoSwitch=True)
    widget.imageSwitchDelay = delay
    widget.image = frames[0] if frames else None
    return widget, frames


@pytest.mark.parametrize(
    ("delays", "index", "rest"),
    [
        ([0.125], 0, 0.125),
        ([0.25], 1, 0.0),
        ([0.125, 0.125], 1, 0.0),
        ([10.0], 1, 9.75),
        ([10.0, 0, 0], 0, 9.25),
        ([0.25] * 3, 0, 0.0),
        ([0.75, 0.0], 2, 0.25),
        ([-1.0, 0.25], 0, -0.75),
    ],
    ids=str,
)
def test_frames_advance_one_per_update(delays, index, rest):
    widget, frames = animated()
    for delay in delays:
        widget.update(delay)
    assert (widget.imageIndex, widget.imageDelay) == (index, rest)
    assert widget.image is frames[index]


@pytest.mark.parametrize(
    "changes", [{"imageCount": 1}, {"imageCount": 0}, {"imageAutoSwitch": False}]
)
def test_nothing_to_animate(changes):
    widget, frames = animated()
    dress(widget, **changes).update(5.0)
    assert (widget.imageIndex, widget.imageDelay, widget.image) == (0, 0, frames[0])


@pytest.mark.parametrize(
    ("flag", "moves"), [(True, True), (1, True), (1.0, True), (2, False), ("x", False)]
)
def test_the_animation_flag_is_compared_with_true(flag, moves):
    widget, _ = animated()
    widget.SetAutoSwitch(flag)
    widget.update(0.25)
    assert widget.imageIndex == (1 if moves else 0)


@pytest.mark.parametrize(("start", "index"), [(2, 0), (7, 2), (30, 1), (-3, -2)])
def test_an_index_beyond_the_frames_wraps(start, index):
    widget, frames = animated()
    widget.imageIndex = start
    widget.update(0.25)
    assert widget.imageIndex == index
    assert widget.image is frames[max(index, 0)]


def test_a_switch_delay_of_zero_advances_at_every_update():
    widget, _ = animated(delay=0)
    for index in (1, 2, 0, 1):
        widget.update(0.5)
        assert widget.imageIndex == index
    assert widget.imageDelay == 2.0


@pytest.mark.parametrize("index", [-1, 3, 100, 2**70, None, "1", 0.5, [1]], ids=repr)
def test_frames_that_do_not_exist(index):
    widget, frames = animated()
    for good in (2, 0, 1):
        widget.SwitchImage(good)
        assert widget.image is frames[good]
        assert widget.imageIndex == 0
    widget.SwitchImage(index)
    assert widget.image is frames[1]
    widget.imageArray = None
    widget.SwitchImage(0)
    assert widget.image is frames[1]


def test_update_runs_children_actions_and_the_update_function():
    seen = []

    class Child(T.GUI_Image):
        def update(self, delay):
            seen.append((delay, parent.imageIndex))

        def SwitchImage(self, index):
            seen.append(index)

    parent, _ = animated()
    Child(parent)
    parent.SetUpdateFunction(seen.append)
    parent.update(0.25)
    assert seen == [(0.25, 1), 0.25]
    overriding = dress(Child(), imageCount=2, imageAutoSwitch=True)
    T.GUI_Image.update(overriding, 0.5)
    assert seen[-1] == 1
    with pytest.raises(TypeError):
        parent.update("soon")
    parent.SetAutoSwitch(False)
    parent.update(0.5)


def test_mirroring(screen):
    source, frames = animated()
    mirror, _ = animated()
    mirror.UseImage(source, True)
    assert (mirror.originalImage, mirror.image) == (source, frames[0])
    assert (mirror.width, mirror.height, mirror.autosize) == (10, 20, True)
    source.update(0.25)
    assert mirror.image is frames[0]
    mirror.update(9.0)
    assert mirror.image is frames[1]
    assert (mirror.width, mirror.height) == (11, 21)
    assert (mirror.imageIndex, mirror.imageDelay) == (0, 0)
    mirror.SetImage(noise((7, 7), 1))
    assert mirror.image is not frames[1]
    mirror.update(0.1)
    assert mirror.image is frames[1]
    mirror.originalImage = None
    mirror.update(0.1)
    assert mirror.image is frames[1]


def test_mirroring_anything_that_has_an_image(screen):
    class Camera:
        picture = noise((9, 9), 1)

        def GetImage(self):
            return self.picture

    camera = Camera()
    mirror = T.GUI_Image()
    mirror.UseImage(camera, False)
    assert (mirror.width, mirror.autosize) == (100, False)
    assert_widget(mirror, screen)
    camera.picture = noise((5, 5), 2)
    mirror.update(0.1)
    assert_widget(mirror, screen)
    mirror = T.GUI_Image()
    with pytest.raises(AttributeError):
        mirror.UseImage(None, True)
    assert mirror.originalImage is None
    mirror.update(0.1)


def test_automatic_size(res):
    widget = T.GUI_Image()
    widget.AutoImageSize(True)
    assert (widget.IsAutoImageSize(), widget.width, widget.height) == (True, 100, 100)
    widget.SetImage(["b", "c"])
    assert (widget.width, widget.height) == (11, 20)
    widget.SwitchImage(1)
    assert widget.width == 12
    widget.AutoImageSize(False)
    widget.SwitchImage(0)
    assert (widget.IsAutoImageSize(), widget.width, widget.height) == (False, 12, 20)
    widget.AutoImageSize(autosize=True)
    assert widget.width == 11


VIEW = (100, 50, 200, 80)


@pytest.mark.parametrize(
    ("x", "y", "inside"),
    [
        (150, 60, True),
        (0, 60, True),
        (-0.25, 60, False),
        (300, 60, True),
        (300.25, 60, False),
        (150, -50, True),
        (150, -50.5, False),
        (150, 130, True),
        (150, 131, False),
    ],
)
def test_viewport(x, y, inside):
    class Scene:
        def GetViewPort(self):
            return VIEW

    widget = T.GUI_Image(None, x, y)
    with pytest.raises(AttributeError):
        widget.CheckInViewPort()
    widget.OnLoad(Scene())
    assert widget.CheckInViewPort() is inside
    widget.WSX = 2.0
    assert widget.CheckInViewPort() is (inside or (x, y) == (-0.25, 60))
    for bad in (None, (1, 2, 3), (1, 2, 3, "x")):
        Scene.GetViewPort = lambda self, bad=bad: bad
        with pytest.raises((TypeError, ValueError)):
            T.GUI_Image.CheckInViewPort(dress(widget, x=0, WSX=1.0))


def test_collision_rectangles_by_name():
    widget = T.GUI_Image()
    first, second = (1, 2, 3, 4), pygame.Rect(5, 6, 7, 8)
    widget.AddCollRect("body", first)
    widget.AddCollRect(collName="body", rect=second)
    widget.AddCollRect("head", first)
    rects = widget.GetCollRect("body")
    assert rects == [first, second]
    assert rects is widget.GetCollRectArray()["body"]
    widget.CleanCollRect("body")
    widget.CleanCollRect("nothing")
    assert rects == []
    assert list(widget.coll_rectArray) == ["body", "head"]
    with pytest.raises(KeyError):
        widget.GetCollRect("nothing")
    for bad in ([], {}):
        with pytest.raises(TypeError):
            widget.AddCollRect(bad, first)


def prepared():
    source, frames = animated()
    source.SetXY(30, 40)
    source.SetSXY(2.0, 0.5)
    source.SetAngle(15)
    source.SetImageAnchor("es")
    source.SetBlendType("ADD")
    source.SetBGColor(1, 2, 3, 4)
    source.SetBorderWidth(5)
    source.SetStyle("sunken")
    source.AddCollRect("body", (1, 2, 3, 4))
    source.SetUserData("mine")
    dress(source, alpha=90, width=33, height=44, imageIndex=2, enable=False)
    return source, frames


@pytest.mark.parametrize("cls", [T.GUI_Image, T.GUI_Label, T.GUI_Button])
def test_copying_an_image(screen, cls):
    source, frames = prepared()
    parent = T.GUI_Image()
    other = cls(parent, 1, 1)
    child = T.GUI_Image(other)
    other.SetInstanceID(77)
    node_type = other.NodeType
    source.CopyTo(other)
    names = "x y sx sy angle width height alpha image imageArray imageCount imageIndex bgColor"
    names += " imageAutoSwitch imageSwitchDelay blendtype borderwidth borderVisible style enable"
    names += " coll_rectArray imageAnchor anchorx anchory userData"
    for name in names.split():
        assert getattr(other, name) == getattr(source, name), name
    assert other.image is frames[0]
    assert other.borderColor == pygame.Color(128, 128, 128, 255)
    assert other.bgColor is not source.bgColor
    assert other.coll_rectArray is not source.coll_rectArray
    assert (other.NodeType, other.parent, other.instanceID) == (node_type, parent, 77)
    assert other.children == [child]
    assert parent.children == [other]
    source.bgColor.r = 200
    source.AddCollRect("head", (0, 0, 1, 1))
    assert other.bgColor.r == 1
    assert list(other.coll_rectArray) == ["body"]


def test_copying_goes_through_the_border_and_blend_setters():
    calls = []

    class Widget(T.GUI_Image):
        pass

    def recorder(name):
        def method(self, *args):
            calls.append((name, args))
            getattr(T.GUI_Image, name)(self, *args)

        return method

    for name in ("SetBlendType", "SetBorderColor", "SetBorderWidth", "SetBorderVisible"):
        setattr(Widget, name, recorder(name))
    source, _ = prepared()
    source.CopyTo(Widget())
    assert calls == [
        ("SetBorderVisible", (True,)),
        ("SetBorderWidth", (5,)),
        ("SetBorderColor", (128, 128, 128)),
        ("SetBlendType", ("ADD",)),
    ]


def test_copying_to_something_else():
    source, _ = prepared()
    for bad in (None, 5, "widget"):
        with pytest.raises((AttributeError, TypeError)):
            source.CopyTo(bad)
    other = T.GUI_Image()
    source.CopyTo(other)
    assert other.x == 30
    source.CopyTo(source)
    assert (source.x, source.alpha, source.coll_rectArray) == (30, 90, {"body": [(1, 2, 3, 4)]})
