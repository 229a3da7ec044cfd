import ast
import calendar
import importlib
import inspect

import pygame
import Tessora as T
from helpers import engine_classes

BEFORE_STARS, AFTER_STARS = "sys os pygame math random".split(), "glob time copy".split()
AFTER_STARS += ["XMLElementTree", "json", "threading"]
VALUES = {"Res": None, "BorderVisible": False, "BorderColor": [255, 0, 0]}
VALUES["g_pygameControl_BorderColor"] = pygame.Color(255, 0, 255)
VALUES["g_pygameControl_CollColor"] = pygame.Color(0, 255, 255)
VALUES.update(g_EngineAPI="Pygame", GUI_WINDOW_BGCOLOR=pygame.Color(128, 128, 128, 128))
FUNCTIONS = "checkPtInRect checkRectInRect checkRectCollision tree_to_dict read_rect read_keyValue"
BELOW = {"object": "GameLayer GameNode PyGameResManager GAction TreeItemNode"}
BELOW["GameNode"] = "GUI_Image TiledMap ParticleEmitter"
BELOW["GUI_Image"] = "GUI_Label GameCharacter Particle GUI_Scale GUI_VScrollBar GUI_HScrollBar"
BELOW["GUI_Image"] += " GUI_ListBox GUI_ComboBox GUI_Tree"
BELOW["GUI_Label"] = "GUI_Button GUI_Edit GUI_HProgressBar GUI_VProgressBar GUI_MsgBox"
BELOW.update(GUI_Button="GUI_CheckButton GUI_RadioButton", GUI_Edit="GUI_Text")
BELOW["GAction"] = "ActionPlayer CallBackAction BlinkAction MoveToAction"
BELOW["GAction"] += " MoveByAction ScaleToAction ScaleByAction RotateToAction RotateByAction"
BASES = {name: base for base, names in BELOW.items() for name in names.split()}


def test_names_in_order():
    own = [*VALUES, *FUNCTIONS.split()]
    stars = {}
    exec("from pygame.locals import *\nfrom pygame.math import *", stars)
    del stars["__builtins__"]
    assert [n for n, v in stars.items() if n not in own and vars(T).get(n) is not v] == []
    # The names that nobody uses may be fetched when they are first asked for.
    order = [n for n in vars(T) if not n.startswith("__") and n not in ("Pass", "c", "theNULL")]
    order = [n for n in order if n != "Kovrin"]
    start = len(BEFORE_STARS)
    others = len(set(stars) - {*own, *BEFORE_STARS, *AFTER_STARS})
    assert order[:start] == BEFORE_STARS
    assert set(order[start : start + others]) == set(stars) - {*own, *BEFORE_STARS, *AFTER_STARS}
    assert order[start + others : -len(BASES)] == AFTER_STARS + own
    assert set(order[-len(BASES) :]) == set(BASES)


def test_host_modules_and_values():
    for name in BEFORE_STARS + AFTER_STARS:
        real = "xml.etree.ElementTree" if name == "XMLElementTree" else name
        assert getattr(T, name) is importlib.import_module(real)
    assert T.Pass is ast.Pass and T.c is calendar.c
    for name, value in VALUES.items():
        found = getattr(T, name)
        assert found == value and type(found) is type(value), name


def test_class_tree():
    assert {cls.__name__ for cls in engine_classes(T)} == set(BASES)
    for name, base in BASES.items():
        cls = getattr(T, name)
        assert cls.__bases__ == ((object if base == "object" else getattr(T, base)),)
        assert repr(cls) == f"<class 'Tessora.{name}'>" and cls.__qualname__ == name
    assert "GetX" not in vars(T.GUI_Image) and "SetTarget" not in vars(T.MoveToAction)
    assert "Run" not in vars(T.CallBackAction) and "Run" in vars(T.BlinkAction)


def test_everything_public_has_a_docstring_and_a_signature():
    public = [getattr(T, name) for name in FUNCTIONS.split()]
    for cls in engine_classes(T):
        public += [m for n, m in vars(cls).items() if callable(m) and not n.startswith("_")]
    assert [f for f in public if not f.__doc__ or not inspect.signature(f)] == []
