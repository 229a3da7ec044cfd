"""2D games on pygame: nodes in layers, actions, pictures, widgets, characters, maps, particles.

A game makes a window with pygame, tells the engine where its files are and puts nodes into a
layer:

    import pygame
    import Tessora

    pygame.init()
    screen = pygame.display.set_mode((640, 480))
    Tessora.Res = Tessora.PyGameResManager(".")
    layer = Tessora.GameLayer()
    layer.AddGameNode(Tessora.GUI_Label(None, 20, 20, "Hello"))
    clock = pygame.time.Clock()

Then it runs a loop of its own, in which each frame hands over the input, the time and the
screen:

    while True:
        for event in pygame.event.get():
            if event.type == pygame.QUIT:
                raise SystemExit
            if event.type == pygame.MOUSEBUTTONDOWN:
                layer.OnPickDownFunction(*event.pos)
            if event.type == pygame.MOUSEBUTTONUP:
                layer.OnPickUpFunction(*event.pos)
        layer.update(clock.tick(60) / 1000)
        screen.fill("white")
        layer.draw(screen)
        pygame.display.flip()

Places and sizes are in pixels, `y` downwards; times in seconds; angles in degrees,
counter-clockwise.

Where to look, by topic:

- scene: GameLayer holds the nodes, GameNode is the base of all that is placed and drawn;
- pictures and text: GUI_Image, GUI_Label;
- input: GUI_Button, GUI_CheckButton, GUI_RadioButton, GUI_Edit, GUI_Text, GUI_Scale;
- lists and dialogs: GUI_ListBox, GUI_ComboBox, GUI_Tree with TreeItemNode, GUI_MsgBox;
- bars: GUI_VScrollBar, GUI_HScrollBar, GUI_HProgressBar, GUI_VProgressBar;
- figures that play actions: GameCharacter;
- tile maps: TiledMap;
- particles: ParticleEmitter, Particle;
- movement in time: GameNode.RunAction with MoveToAction, MoveByAction, ScaleToAction,
  ScaleByAction, RotateToAction, RotateByAction, BlinkAction, CallBackAction; GAction is the
  base of them, ActionPlayer plays them;
- files: PyGameResManager, which a game stores in `Res`;
- helpers: checkPtInRect, checkRectInRect, checkRectCollision, tree_to_dict, read_rect,
  read_keyValue.

The other names come from pygame.locals (QUIT, K_LEFT), pygame.math (Vector2) and the standard
library: a script that says `from Tessora import *` has them, too.
"""

# Written by `make stubs`: the head is tools/stub_head.pyi, the rest is what the module says of
# itself. It is valid Python from 3.8 on, for documentation generators that execute it.
from __future__ import annotations

import copy as copy
import glob as glob
import json as json
import math as math
import os as os
import random as random
import sys as sys
import threading as threading
import time as time
import xml.etree.ElementTree as _ElementTree
from collections.abc import Callable, Hashable, Mapping, Sequence
from typing import TYPE_CHECKING, Any, TypeVar

import pygame as pygame
from pygame.locals import *
from pygame.math import *

if sys.version_info >= (3, 11):
    from typing import Self, TypeAlias
elif TYPE_CHECKING:
    from typing_extensions import Self, TypeAlias

_T = TypeVar("_T")
_Key = TypeVar("_Key")
_Value = TypeVar("_Value")
# In quotation marks, because 3.8 and 3.9 could not execute them.
_File: TypeAlias = "str | os.PathLike[str]"
_ImageFiles: TypeAlias = "str | Sequence[str | pygame.Surface] | pygame.Surface | None"
_RectValue: TypeAlias = "pygame.Rect | tuple[float, float, float, float] | Sequence[float]"
_ColorValue: TypeAlias = "pygame.Color | str | int | Sequence[int]"

# Inside GameNode the class's own name means an attribute.
_ActionPlayer: TypeAlias = "ActionPlayer"

if TYPE_CHECKING and sys.version_info >= (3, 9):
    from typing_extensions import disjoint_base as _disjoint_base
else:
    # Nor do the last type checkers for 3.8 know it.
    def _disjoint_base(cls: type[_T]) -> type[_T]:
        return cls

XMLElementTree = _ElementTree

__version__: str
"""Version of the engine, such as "1.2.0"."""

# From the standard library, imported at first use; `telnetlib` is gone from 3.13.
Pass: Any
"""`ast.Pass` of the standard library."""
c: Any
"""`calendar.c` of the standard library."""
if sys.version_info < (3, 13):
    theNULL: Any
    """`telnetlib.theNULL` of the standard library."""

# `Res` is None until the game sets it, but `Any`: a test before every use would help nobody.

Res: PyGameResManager | Any
"""The game's resource manager, through which widgets load their files; the game sets it. Default
None.
"""
BorderVisible: bool
"""Free for scripts. Default False."""
BorderColor: list[int]
"""Colour [red, green, blue] of size rectangles and anchor markers. Default [255, 0, 0]."""
g_pygameControl_BorderColor: pygame.Color
"""Colour of focus borders and edit rectangles. Default (255, 0, 255, 255)."""
g_pygameControl_CollColor: pygame.Color
"""Colour of the outlines of collision rectangles. Default (0, 255, 255, 255)."""
g_EngineAPI: str
"""Name of the drawing back end. Default "Pygame"."""
GUI_WINDOW_BGCOLOR: pygame.Color
"""Border colour of new widgets and background of new check and radio buttons. Default (128, 128,
128, 128).
"""

def checkPtInRect(x: float, y: float, left: float, right: float, top: float, bottom: float) -> int:
    """Return 1 if the point (x, y) lies within the four edges or on one of them, else 0.

    All numbers are in the same unit, such as pixels.
    """

def checkRectInRect(
    left1: float,
    right1: float,
    top1: float,
    bottom1: float,
    left2: float,
    right2: float,
    top2: float,
    bottom2: float,
) -> int:
    """Return 1 if two rectangles, given by their edges, overlap or touch, else 0.

    Despite the name neither has to contain the other. All numbers are in the same unit, such as
    pixels.
    """

def checkRectCollision(
    rect1: pygame.Rect, rect2: pygame.Rect, moveX: float = 0, moveY: float = 0
) -> bool:
    """Move `rect2` by (moveX, moveY) pixels and return whether it collides with `rect1`.

    Both are pygame.Rect objects, AttributeError for others. `rect2` is changed in place and
    stays moved: pass a copy to keep the original.
    """

def tree_to_dict(tree: _ElementTree.Element) -> dict[str, Any]:
    """Return a new dictionary with the entries of a property list's `dict` element.

    `tree` is an xml.etree.ElementTree element: for a whole file, the `dict` child of its root.
    Strings, booleans, integers, reals, arrays of these and nested dicts are read; other values
    are left out. Raises IndexError for a key without a value and the conversion's error for a
    malformed number.
    """

def read_rect(dict: Mapping[str, _T]) -> list[_T]:
    """Return [x, y, width, height] of a dictionary, with the values as they are stored.

    Raises KeyError if one of them is missing.
    """

def read_keyValue(dict: Mapping[_Key, _Value], key: _Key, defaultvalue: _T) -> _Value | _T:
    """Return `dict[key]`, or `defaultvalue` if there is no such key.

    Raises TypeError for a key that cannot be hashed.
    """

@_disjoint_base
class GameLayer:
    """A plane of a scene: registered nodes, draw order, scroll, debug shapes, events.

    Each frame of a game calls update and then draw; input is handed to the methods On... .
    pygame's font module must be initialised: pygame.error otherwise.

    >>> layer = Tessora.GameLayer()
    >>> number = layer.AddGameNode(Tessora.GUI_Image(None, 10, 20))
    >>> layer.update(1 / 60)
    >>> layer.draw(screen)
    """

    sceneInstance: Any
    """The scene object that owns the layer, or None; OnLoad sets it. Default None."""
    NodeType: str
    """Kind of object. Default "GameLayer"."""
    LayerName: str | None
    """Name of the layer, a part of the names of the scene's event methods, or None. Default None."""
    GameNodeDict: dict[int, GameNode]
    """Registered nodes by their instance numbers. Default {}."""
    SortGameNodeInstanceIDArray: list[int]
    """Instance numbers in draw order, the node at the bottom first. Default []."""
    GameNodeKeyArray: list[int]
    """Instance numbers that the last walk over the nodes visits. Default []."""
    AddGameNodeDict: dict[int, GameNode]
    """Nodes by instance number that wait for the end of the next draw to be added. Default {}."""
    DelGameNodeArray: list[int]
    """Instance numbers of nodes that the end of the next update removes. Default []."""
    BindingEventArray: dict[str, list[Any]]
    """Script events: event name to [function name, function code]. Default {}."""
    PointArray: list[list[Any]]
    """Debug points, each [name, type, x, y] in pixels of the screen. Default []."""
    LineArray: list[list[Any]]
    """Debug lines, each [name, type, x1, y1, x2, y2] in pixels of the screen. Default []."""
    RectArray: list[list[Any]]
    """Debug rectangles, each [name, type, x1, y1, x2, y2] in pixels of the screen. Default []."""
    InnerBindingEventArray: dict[str, list[Any]]
    """Built-in events ("Load", "Update", "Render", "Destroy", "PickDown", "PickUp", "PickTile"):
    event name to [function name, function code]. Nothing is bound at first.
    """
    UserFunctionDict: dict[Any, Any]
    """Free for scripts. Default {}."""
    instanceID: int
    """Instance number that the next node gets. Default 0."""
    visible: bool
    """Whether the layer updates, draws and takes input. Default True."""
    scrollType: int
    """Direction of the automatic scroll: 0 none, 1 left, 2 right, 3 up, 4 down. Default 0."""
    scrollSpeed: float
    """Speed of the automatic scroll in pixels per second. Default 0."""
    scrollPosX: float
    """Horizontal scroll offset in pixels, with which the nodes are drawn. Default 0."""
    scrollPosY: float
    """Vertical scroll offset in pixels, with which the nodes are drawn. Default 0."""
    font: pygame.font.Font
    """Font of the labels of debug points, at first Arial of 18 pixels."""

    def __init__(self) -> None: ...
    def GetSceneInstance(self) -> Any:
        """Return `sceneInstance`: the scene object that owns the layer, or None; OnLoad sets it."""

    def GetNodeType(self) -> str:
        """Return `NodeType`: kind of object."""

    def GetLayerName(self) -> str | None:
        """Return `LayerName`: name of the layer, a part of the names of the scene's event methods,
        or None.
        """

    def SetLayerName(self, name: str | None) -> None:
        """Set `LayerName`: name of the layer, a part of the names of the scene's event methods, or
        None.
        """

    def GetAllGameNode(self) -> dict[int, GameNode]:
        """Return `GameNodeDict`: registered nodes by their instance numbers."""

    def GetPointArray(self) -> list[list[Any]]:
        """Return `PointArray`: debug points, each [name, type, x, y] in pixels of the screen."""

    def GetLineArray(self) -> list[list[Any]]:
        """Return `LineArray`: debug lines, each [name, type, x1, y1, x2, y2] in pixels of the
        screen.
        """

    def GetRectArray(self) -> list[list[Any]]:
        """Return `RectArray`: debug rectangles, each [name, type, x1, y1, x2, y2] in pixels of the
        screen.
        """

    def IsVisible(self) -> bool:
        """Return `visible`: whether the layer updates, draws and takes input."""

    def SetVisible(self, v: bool) -> None:
        """Set `visible`: whether the layer updates, draws and takes input."""

    def GetAutoScroll(self) -> tuple[int, float]:
        """Return `scrollType` and `scrollSpeed`.

        `scrollType`: direction of the automatic scroll: 0 none, 1 left, 2 right, 3 up, 4 down.

        `scrollSpeed`: speed of the automatic scroll in pixels per second.
        """

    def SetAutoScroll(self, scrollType: int, scrollSpeed: float) -> None:
        """Set `scrollType` and `scrollSpeed`.

        `scrollType`: direction of the automatic scroll: 0 none, 1 left, 2 right, 3 up, 4 down.

        `scrollSpeed`: speed of the automatic scroll in pixels per second.
        """

    def AddGameNode(self, GameNode: GameNode, immMode: bool = True) -> int:
        """Register a node and return its instance number.

        With `immMode` true the node is in the layer at once, otherwise from the end of the next
        draw. Raises AttributeError for what is no node.
        """

    def GetGameNode(self, instanceID: int) -> GameNode | None:
        """Return the node of that instance number, or None."""

    def ExistGameNode(self, instanceID: int) -> bool:
        """Return whether a node has that instance number."""

    def GetGameNodeCount(self) -> int:
        """Return the number of registered nodes."""

    def DelGameNode(self, instanceID: int) -> None:
        """Queue a node and its registered descendants for removal at the end of the next update.

        An unknown instance number is ignored.
        """

    def CleanUpGameNode(self) -> None:
        """Queue every node for removal at the end of the next update."""

    def LayerUpGameNode(self, instanceID: int) -> None:
        """Draw the node of that instance number one step later, so higher.

        Unknown numbers and the topmost node are ignored.
        """

    def LayerDownGameNode(self, instanceID: int) -> None:
        """Draw the node of that instance number one step earlier, so lower.

        Unknown numbers and the lowest node are ignored.
        """

    def CheckAllGameNode(self) -> bool:
        """Return whether every node has its instance number and stands once in the draw order."""

    def OnLoad(self, scene: Any) -> None:
        """Store the scene and tell it to every registered node."""

    def OnDestroy(self) -> None:
        """Destroy every registered node and forget them; nodes that wait to be added stay."""

    def update(self, delay: float) -> None:
        """Advance the layer by `delay` seconds: scroll, update the nodes, remove queued ones.

        A hidden layer does nothing. The automatic scroll asks the scene for GetSceneSize(),
        (width, height) in pixels: AttributeError if it has none.
        """

    def draw(self, screen: pygame.Surface) -> None:
        """Draw the nodes in draw order with the scroll position as camera, then the debug shapes,
        then take in the nodes that wait to be added.
        """

    def OnPickDownFunction(self, x: float, y: float) -> None:
        """Offer a press at `x`, `y` (pixels of the screen) to every node; none of them stops it."""

    def OnPickUpFunction(self, x: float, y: float) -> None:
        """Offer a release at `x`, `y` (pixels of the screen) to every node; none of them stops it."""

    def OnKeyDownFunction(self, key: Hashable) -> None:
        """Offer a pressed key to every node.

        `key` is what the scripts name keys by; edits know the names of pygame.key.name().
        """

    def OnKeyUpFunction(self, key: Hashable) -> None:
        """Offer a released key to every node; `key` is as for OnKeyDownFunction."""

    def OnEditRectDraging(self, x: float, y: float) -> None:
        """Tell the pointer's position (pixels of the screen) to every node, of which one may be
        dragged.
        """

    def checkCollision(self, gameNode: GameNode, moveX: float = 0, moveY: float = 0) -> bool:
        """Return whether `gameNode`, moved by `moveX` and `moveY` pixels, hits another node whose
        `collisionType` is not -1, or a tile map.
        """

    def checkEventRectCollision(
        self, objrect: _RectValue, moveX: float = 0, moveY: float = 0
    ) -> bool:
        """Return whether `objrect`, moved by `moveX` and `moveY` pixels, hits a node whose
        `collisionType` is not -1, or a tile map.
        """

    def CallEvent(self, eventName: str, params: Mapping[str, Any] | None = None) -> Any:
        """Call the scene's method "on_" + layer name + "_" + function name that is bound to the
        event.

        `params` is a dictionary of keyword arguments. Returns the method's result, None when
        nothing is bound or the scene has no such method.
        """

    def CallInnerEvent(self, eventName: str, params: Mapping[str, Any] | None = None) -> Any:
        """Call the scene's method that is bound to a built-in event; arguments and result are
        those of CallEvent.
        """

    def AddPoint(self, pointName: str, pointType: Any, px: float, py: float) -> None:
        """Add a debug point at `px`, `py`, in pixels of the screen.

        Its coordinates are written beside it; name and type are kept for scripts.
        """

    def AddLine(
        self, lineName: str, lineType: Any, x1: float, y1: float, x2: float, y2: float
    ) -> None:
        """Add a debug line between two points, in pixels of the screen.

        Name and type are kept for scripts.
        """

    def AddRect(
        self, rectName: str, rectType: Any, x1: float, y1: float, x2: float, y2: float
    ) -> None:
        """Add a debug rectangle with two opposite corners, in pixels of the screen.

        Name and type are kept for scripts.
        """

    def DelPoint(self, index: int) -> None:
        """Remove the one at position `index`, counted from 0; others are ignored."""

    def DelLine(self, index: int) -> None:
        """Remove the one at position `index`, counted from 0; others are ignored."""

    def DelRect(self, index: int) -> None:
        """Remove the one at position `index`, counted from 0; others are ignored."""

    def SetBindingEvent(self, eventName: str, functionName: str | None, functionCode: Any) -> None:
        """Bind the event to the scene's method that is named after `functionName`; None unbinds
        it.

        The entry in `BindingEventArray` becomes [functionName, functionCode]; the code is for
        editors.
        """

    def GetBindingEvent(self, eventName: str) -> list[Any]:
        """Return the entry of that name in `BindingEventArray`.

        Raises KeyError for an unknown one.
        """

    def DelBindingEvent(self, eventName: str) -> None:
        """Delete the entry of that name from `BindingEventArray`.

        Raises KeyError for an unknown one.
        """

    def CleanUpBindingEvent(self) -> None:
        """Empty `BindingEventArray` in place."""

    def GetBindingEventArray(self) -> dict[str, list[Any]]:
        """Return `BindingEventArray`, the dictionary itself and no copy."""

    def SetInnerBindingEvent(
        self, eventName: str, functionName: str | None, functionCode: Any
    ) -> None:
        """Bind the event to the scene's method that is named after `functionName`; None unbinds
        it.

        The entry in `InnerBindingEventArray` becomes [functionName, functionCode]; the code is
        for editors.
        """

    def GetInnerBindingEvent(self, eventName: str) -> list[Any]:
        """Return the entry of that name in `InnerBindingEventArray`.

        Raises KeyError for an unknown one.
        """

    def DelInnerBindingEvent(self, eventName: str) -> None:
        """Delete the entry of that name from `InnerBindingEventArray`.

        Raises KeyError for an unknown one.
        """

    def CleanUpInnerBindingEvent(self) -> None:
        """Empty `InnerBindingEventArray` in place."""

    def GetInnerBindingEventArray(self) -> dict[str, list[Any]]:
        """Return `InnerBindingEventArray`, the dictionary itself and no copy."""

@_disjoint_base
class GameNode:
    """A placed object of the scene: position, scale, angle, size, children, events.

    `parent` is the owning node or None; a node without one is given to a layer. `x` and `y`
    place the anchor relative to the parent's top-left corner, in pixels, `y` downwards. A node
    of this class shows nothing itself. Raises AttributeError for a parent that is no node.

    >>> parent = Tessora.GameNode(None, 100, 50)
    >>> Tessora.GameNode(parent, 10, 20).GetWXY()
    (110.0, 70.0)
    """

    NodeType: str
    """Kind of node; every class of nodes has its own. Default "GameNode"."""
    sceneInstance: Any
    """The scene object, or None; OnLoad sets it. Default None."""
    parent: GameNode | None
    """The owning node, or None."""
    children: list[GameNode]
    """Child nodes in draw order, the first drawn first. Default []."""
    sortIndex: int
    """Place among the parent's children, counted from 0. Default 0."""
    KeyDownFunctionDict: dict[Any, Callable[[], Any]]
    """Functions to call without arguments when a key is pressed, by the key's name. Default {}."""
    KeyUpFunctionDict: dict[Any, Callable[[], Any]]
    """Functions to call without arguments when a key is released, by the key's name. Default {}."""
    BindingVarArray: dict[str, Any]
    """Variables of scripts: name to value. Default {}."""
    BindingEventArray: dict[str, list[Any]]
    """Script events: event name to [function name, function code]. Default {}."""
    BindingPointArray: dict[str, tuple[Any, float, float]]
    """Attachment points: point name to (type, x, y). Default {}."""
    InnerBindingEventArray: dict[str, list[Any]]
    """Built-in events ("Load", "Update", "Render", "Destroy", "PickDown", "PickUp"): event name to
    [function name, parameter names, extra list], or [function name, function code] once bound.
    Nothing is bound at first.
    """
    PickDownFunction: Callable[[Self], Any] | None
    """Called with the node when it is pressed, or None. Default None."""
    Enable_PickDown: bool
    """Whether the node itself takes presses; children take theirs in any case. Default True."""
    PickUpFunction: Callable[[Self], Any] | None
    """Called with the node on a release over it, or None. Default None."""
    Enable_PickUp: bool
    """Whether the node itself takes releases; children take theirs in any case. Default True."""
    UpdateFunction: Callable[[float], Any] | None
    """Called on every update with the seconds since the last one, or None. Default None."""
    x: float
    """Horizontal place of the anchor, in pixels from the parent's left edge."""
    y: float
    """Vertical place of the anchor, in pixels down from the parent's top edge."""
    sx: float
    """Horizontal scale factor; it multiplies down the tree. Default 1.0."""
    sy: float
    """Vertical scale factor; it multiplies down the tree. Default 1.0."""
    angle: float
    """Rotation in degrees, counter-clockwise; it adds up down the tree. Default 0.0."""
    width: float
    """Width in pixels before scaling. Default 0."""
    height: float
    """Height in pixels before scaling. Default 0."""
    anchorx: float
    """Anchor as a fraction of the width: 0 is the left edge, 1 the right one. Default 0.0."""
    anchory: float
    """Anchor as a fraction of the height: 0 is the top edge, 1 the bottom one. Default 0.0."""
    instanceID: int
    """Instance number in the layer, -1 for none. Default -1."""
    visible: bool
    """Whether the node and its subtree are drawn and can be hit; hidden nodes are updated. Default
    True.
    """
    ActionPlayer: _ActionPlayer | None
    """Player of the node's actions, None before the first RunAction. Default None."""
    rectvisible: bool
    """Whether the drawn rectangle is outlined. Default False."""
    anchorvisible: bool
    """Whether the anchor is marked. Default False."""
    lock_xysa: bool
    """Whether the cached world values (`WX`, `WY`, `WSX`, `WSY`, `WAngle`) stay as they are.
    Default False.
    """
    WSX: float
    """Horizontal world scale factor as of the last draw. Default 1.0."""
    WSY: float
    """Vertical world scale factor as of the last draw. Default 1.0."""
    WAngle: float
    """World rotation in degrees as of the last draw. Default 0.0."""
    WX: float
    """Left edge in pixels of the screen as of the last draw. Default 0.0."""
    WY: float
    """Top edge in pixels of the screen as of the last draw. Default 0.0."""
    clicked: bool
    """Whether the node is being pressed. Default False."""
    CheckPickDownChild: bool
    """Whether a press or release that a child takes is answered with the child; if false, with the
    node itself. Default True.
    """
    collisionType: int
    """Kind of collision shape, -1 for none. Default -1."""
    collisionInfo: Any
    """Data of the collision shape; see TiledMap.SetTileObject for nodes on tiles. Default None."""
    editrectenable: bool
    """Whether the edit rectangle can be dragged with the pointer. Default False."""
    editrectvisible: bool
    """Whether the edit rectangle is drawn. Default False."""
    dragcornerindex: int
    """Handle of the edit rectangle that is being dragged, 0 to 8; negative for none. Default -2."""
    dragbegin_x: float
    """Horizontal position of the pointer where the last drag began, in pixels of the screen.
    Default -1.
    """
    dragbegin_y: float
    """Vertical position of the pointer where the last drag began, in pixels of the screen. Default
    -1.
    """
    focusIn: bool
    """Whether the node has the keyboard focus. Default False."""
    userData: Any
    """Free for scripts. Default None."""

    def __init__(self, parent: GameNode | None, x: float = 0, y: float = 0) -> None: ...
    def GetNodeType(self) -> str:
        """Return `NodeType`: kind of node; every class of nodes has its own."""

    def GetSceneInstance(self) -> Any:
        """Return `sceneInstance`: the scene object, or None; OnLoad sets it."""

    def GetParent(self) -> GameNode | None:
        """Return `parent`: the owning node, or None."""

    def GetSortIndex(self) -> int:
        """Return `sortIndex`: place among the parent's children, counted from 0."""

    def SetSortIndex(self, i: int) -> None:
        """Set `sortIndex`: place among the parent's children, counted from 0."""

    def SetPickDownFunction(self, f: Callable[[Self], Any] | None) -> None:
        """Set `PickDownFunction`: called with the node when it is pressed, or None."""

    def EnablePickDownEvent(self, v: bool) -> None:
        """Set `Enable_PickDown`: whether the node itself takes presses; children take theirs in
        any case.
        """

    def SetPickUpFunction(self, f: Callable[[Self], Any] | None) -> None:
        """Set `PickUpFunction`: called with the node on a release over it, or None."""

    def EnablePickUpEvent(self, v: bool) -> None:
        """Set `Enable_PickUp`: whether the node itself takes releases; children take theirs in any
        case.
        """

    def SetUpdateFunction(self, f: Callable[[float], Any] | None) -> None:
        """Set `UpdateFunction`: called on every update with the seconds since the last one, or
        None.
        """

    def GetX(self) -> float:
        """Return `x`: horizontal place of the anchor, in pixels from the parent's left edge."""

    def SetX(self, x: float) -> None:
        """Set `x`: horizontal place of the anchor, in pixels from the parent's left edge."""

    def GetY(self) -> float:
        """Return `y`: vertical place of the anchor, in pixels down from the parent's top edge."""

    def SetY(self, y: float) -> None:
        """Set `y`: vertical place of the anchor, in pixels down from the parent's top edge."""

    def GetXY(self) -> tuple[float, float]:
        """Return `x` and `y`.

        `x`: horizontal place of the anchor, in pixels from the parent's left edge.

        `y`: vertical place of the anchor, in pixels down from the parent's top edge.
        """

    def SetXY(self, x: float, y: float) -> None:
        """Set `x` and `y`.

        `x`: horizontal place of the anchor, in pixels from the parent's left edge.

        `y`: vertical place of the anchor, in pixels down from the parent's top edge.
        """

    def GetSX(self) -> float:
        """Return `sx`: horizontal scale factor; it multiplies down the tree."""

    def SetSX(self, sx: float) -> None:
        """Set `sx`: horizontal scale factor; it multiplies down the tree."""

    def GetSY(self) -> float:
        """Return `sy`: vertical scale factor; it multiplies down the tree."""

    def SetSY(self, sy: float) -> None:
        """Set `sy`: vertical scale factor; it multiplies down the tree."""

    def GetSXY(self) -> tuple[float, float]:
        """Return `sx` and `sy`.

        `sx`: horizontal scale factor; it multiplies down the tree.

        `sy`: vertical scale factor; it multiplies down the tree.
        """

    def SetSXY(self, sx: float, sy: float) -> None:
        """Set `sx` and `sy`.

        `sx`: horizontal scale factor; it multiplies down the tree.

        `sy`: vertical scale factor; it multiplies down the tree.
        """

    def GetAngle(self) -> float:
        """Return `angle`: rotation in degrees, counter-clockwise; it adds up down the tree."""

    def SetAngle(self, angle: float) -> None:
        """Set `angle`: rotation in degrees, counter-clockwise; it adds up down the tree."""

    def GetWidth(self) -> float:
        """Return `width`: width in pixels before scaling."""

    def SetWidth(self, w: float) -> None:
        """Set `width`: width in pixels before scaling."""

    def GetHeight(self) -> float:
        """Return `height`: height in pixels before scaling."""

    def SetHeight(self, h: float) -> None:
        """Set `height`: height in pixels before scaling."""

    def GetAX(self) -> float:
        """Return `anchorx`: anchor as a fraction of the width: 0 is the left edge, 1 the right
        one.
        """

    def SetAX(self, ax: float) -> None:
        """Set `anchorx`: anchor as a fraction of the width: 0 is the left edge, 1 the right one."""

    def GetAY(self) -> float:
        """Return `anchory`: anchor as a fraction of the height: 0 is the top edge, 1 the bottom
        one.
        """

    def SetAY(self, ay: float) -> None:
        """Set `anchory`: anchor as a fraction of the height: 0 is the top edge, 1 the bottom one."""

    def GetAXY(self) -> tuple[float, float]:
        """Return `anchorx` and `anchory`.

        `anchorx`: anchor as a fraction of the width: 0 is the left edge, 1 the right one.

        `anchory`: anchor as a fraction of the height: 0 is the top edge, 1 the bottom one.
        """

    def SetAXY(self, ax: float, ay: float) -> None:
        """Set `anchorx` and `anchory`.

        `anchorx`: anchor as a fraction of the width: 0 is the left edge, 1 the right one.

        `anchory`: anchor as a fraction of the height: 0 is the top edge, 1 the bottom one.
        """

    def GetInstanceID(self) -> int:
        """Return `instanceID`: instance number in the layer, -1 for none."""

    def SetInstanceID(self, i: int) -> None:
        """Set `instanceID`: instance number in the layer, -1 for none."""

    def IsVisible(self) -> bool:
        """Return `visible`: whether the node and its subtree are drawn and can be hit; hidden
        nodes are updated.
        """

    def SetVisible(self, v: bool) -> None:
        """Set `visible`: whether the node and its subtree are drawn and can be hit; hidden nodes
        are updated.
        """

    def IsSizeRectVisible(self) -> bool:
        """Return `rectvisible`: whether the drawn rectangle is outlined."""

    def SetSizeRectVisible(self, v: bool) -> None:
        """Set `rectvisible`: whether the drawn rectangle is outlined."""

    def IsAnchorVisible(self) -> bool:
        """Return `anchorvisible`: whether the anchor is marked."""

    def SetAnchorVisible(self, v: bool) -> None:
        """Set `anchorvisible`: whether the anchor is marked."""

    def GetCheckPickDownChild(self) -> bool:
        """Return `CheckPickDownChild`: whether a press or release that a child takes is answered
        with the child; if false, with the node itself.
        """

    def SetCheckPickDownChild(self, v: bool) -> None:
        """Set `CheckPickDownChild`: whether a press or release that a child takes is answered with
        the child; if false, with the node itself.
        """

    def GetCollision(self) -> tuple[int, Any]:
        """Return `collisionType` and `collisionInfo`.

        `collisionType`: kind of collision shape, -1 for none.

        `collisionInfo`: data of the collision shape; see TiledMap.SetTileObject for nodes on
        tiles.
        """

    def SetCollision(self, type: int, info: Any) -> None:
        """Set `collisionType` and `collisionInfo`.

        `collisionType`: kind of collision shape, -1 for none.

        `collisionInfo`: data of the collision shape; see TiledMap.SetTileObject for nodes on
        tiles.
        """

    def SetEditRectEnable(self, v: bool) -> None:
        """Set `editrectenable`: whether the edit rectangle can be dragged with the pointer."""

    def SetEditRectVisible(self, v: bool) -> None:
        """Set `editrectvisible`: whether the edit rectangle is drawn."""

    def IsFocusIn(self) -> bool:
        """Return `focusIn`: whether the node has the keyboard focus."""

    def SetFocusIn(self, v: bool) -> None:
        """Set `focusIn`: whether the node has the keyboard focus."""

    def GetUserData(self) -> Any:
        """Return `userData`: free for scripts."""

    def SetUserData(self, d: Any) -> None:
        """Set `userData`: free for scripts."""

    def AddChild(self, child: GameNode) -> None:
        """Append `child` to the children and give it its place as sort index.

        The child's parent is not changed; see SetParent.
        """

    def RemoveChild(self, child: GameNode) -> None:
        """Remove `child`, emptying its whole subtree, and close the gap in the sort indices.

        A node that is no child is ignored.
        """

    def RemoveAllChildren(self) -> None:
        """Empty the whole subtree, depth first."""

    def GetAllChildrens(self) -> list[GameNode]:
        """Return a new flat list of all descendants, leaves before their parents."""

    def ReSortAllChild(self) -> None:
        """Rebuild the children in the order of their sort indices, which must be 0 to n - 1.

        Raises KeyError for a gap or a double index; the children are then unchanged.
        """

    def LayerUpChild(self, child: GameNode) -> None:
        """Move `child` one step later in the list: it is drawn later and so seen higher."""

    def LayerDownChild(self, child: GameNode) -> None:
        """Move `child` one step earlier in the list."""

    def SetParent(self, p: GameNode | None) -> None:
        """Set `parent` and, unless it is None, join its children.

        The node stays in the list of a previous parent, too.
        """

    def OnLoad(self, sceneInstance: Any) -> None:
        """Store the scene and tell it to the whole subtree."""

    def OnDestroy(self) -> None:
        """Destroy the subtree, then drop children, key functions and bindings and reset
        `instanceID` to -1.
        """

    def CopyTo(self, other: GameNode) -> None:
        """Copy what does not tie the node to its place in the scene into `other`, through its
        setters: position, scale, angle, size, anchor, flags, callbacks, bindings, user data.
        """

    def Clamp(self, value: _T, min: _T, max: _T) -> _T:
        """Return `value` limited to the range from `min` to `max`."""

    def GetAXW(self) -> float:
        """Return the anchor's distance from the left edge, in unscaled pixels."""

    def GetAYH(self) -> float:
        """Return the anchor's distance from the top edge, in unscaled pixels."""

    def GetPAXW(self) -> float:
        """Return the parent's GetAXW() in pixels, or 0.0 without a parent."""

    def GetPAYH(self) -> float:
        """Return the parent's GetAYH() in pixels, or 0.0 without a parent."""

    def GetWX(self) -> float:
        """Return the world position of the left edge in pixels, without the camera; the cached
        `WX` while `lock_xysa` is true.
        """

    def GetWY(self) -> float:
        """Return the world position of the top edge in pixels, without the camera; the cached `WY`
        while `lock_xysa` is true.
        """

    def GetWXY(self) -> tuple[float, float]:
        """Return the pair GetWX(), GetWY(), in pixels."""

    def GetWPX(self) -> float:
        """Return the parent's GetWX() in pixels, or 0.0 without a parent."""

    def GetWPY(self) -> float:
        """Return the parent's GetWY() in pixels, or 0.0 without a parent."""

    def GetWPXY(self) -> tuple[float, float]:
        """Return the pair GetWPX(), GetWPY(), in pixels."""

    def GetWSX(self) -> float:
        """Return the horizontal world scale factor, the product down the tree; the cached `WSX`
        while `lock_xysa` is true.
        """

    def GetWSY(self) -> float:
        """Return the vertical world scale factor, the product down the tree; the cached `WSY`
        while `lock_xysa` is true.
        """

    def GetWSXY(self) -> tuple[float, float]:
        """Return the pair GetWSX(), GetWSY(), scale factors."""

    def GetWPSX(self) -> float:
        """Return the parent's GetWSX(), or 1.0 without a parent."""

    def GetWPSY(self) -> float:
        """Return the parent's GetWSY(), or 1.0 without a parent."""

    def GetWPSXY(self) -> tuple[float, float]:
        """Return the pair GetWPSX(), GetWPSY(), scale factors."""

    def GetWAngle(self) -> float:
        """Return the world angle in degrees, the sum down the tree; the cached `WAngle` while
        `lock_xysa` is true.
        """

    def GetWPAngle(self) -> float:
        """Return the parent's GetWAngle() in degrees, or 0.0 without a parent."""

    def GetCenterX(self) -> float:
        """Return the horizontal world position of the anchor, despite the name, in pixels."""

    def GetCenterY(self) -> float:
        """Return the vertical world position of the anchor, despite the name, in pixels."""

    def GetCenterXY(self) -> tuple[float, float]:
        """Return the pair GetCenterX(), GetCenterY(), in pixels."""

    def GetLeft(self) -> float:
        """Return the smallest left edge in the subtree, in pixels of the screen as of the last
        draw.
        """

    def GetTop(self) -> float:
        """Return the smallest top edge in the subtree, in pixels of the screen as of the last
        draw.
        """

    def GetRight(self) -> float:
        """Return the largest right edge in the subtree, in pixels of the screen as of the last
        draw.
        """

    def GetBottom(self) -> float:
        """Return the smallest bottom edge in the subtree, in pixels of the screen as of the last
        draw.

        Unlike GetRight it does not return the largest one.
        """

    def GetSizeRect(self) -> pygame.Rect:
        """Return a new pygame.Rect at GetWX(), GetWY() in the size of the last draw, in pixels."""

    def draw_begin(self, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0) -> None:
        """Cache the world values for this frame, unless `lock_xysa` is true.

        Positions are multiplied by `scale` and then shifted by `offsetX` and `offsetY`, in
        pixels.
        """

    def draw(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the node and its subtree onto `screen`, if it is visible.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

    def draw_children(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the visible children in list order, so that the last one is on top.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

    def drawsize(self, screen: pygame.Surface) -> None:
        """Outline the drawn rectangle while `rectvisible` is true."""

    def drawAnchor(self, screen: pygame.Surface, scale: float = 1.0) -> None:
        """Mark the anchor while `anchorvisible` is true; `scale` multiplies the marker."""

    def drawToSurface(
        self, surface: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the node and its subtree into a surface of the script's.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera. The world values are cached
        for that camera until the next draw.
        """

    def drawToSurface_children(
        self, surface: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the visible children into a surface of the script's.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

    def update(self, delay: float) -> None:
        """Advance the subtree by `delay` seconds: children first, then the running actions, then
        the update function.
        """

    def RunAction(self, *actions: GAction) -> None:
        """Play the actions one after another, in place of those that were running.

        Raises IndexError without any action, and TypeError for what is no action; what was
        running then goes on.
        """

    def checkDragRect(self, x: float, y: float) -> int:
        """Return the index of the edit rectangle's handle under the point (pixels of the screen),
        or -2.

        Handles are numbered row by row from 0 (left top) to 8 (right bottom).
        """

    def drawDragRect(self, screen: pygame.Surface, size: float, dragcornerindex: int) -> None:
        """Draw the edit rectangle with handles of `size` pixels while `editrectvisible` is true.

        The handle `dragcornerindex` is drawn in another colour.
        """

    def OnEditRectDraging(self, x: float, y: float) -> None:
        """Move or resize the node with the handle being dragged; the pointer is at `x`, `y` in
        pixels of the screen.
        """

    def SetKeyDownFunction(self, keyname: Hashable, function: Callable[[], Any]) -> None:
        """Call `function` without arguments when the key is pressed.

        `keyname` is what the script hands to the layer's OnKeyDownFunction.
        """

    def SetKeyUpFunction(self, keyname: Hashable, function: Callable[[], Any]) -> None:
        """Call `function` without arguments when the key is released.

        `keyname` is what the script hands to the layer's OnKeyUpFunction.
        """

    def OnPickDownFunction(self, x: float, y: float) -> GameNode | None:
        """Handle a press at screen position `x`, `y` in pixels.

        Children are asked first, the topmost before the others; then a handle of the edit
        rectangle or the drawn rectangle takes it. Returns the node that took the press, or
        None.
        """

    def OnPickUpFunction(self, x: float, y: float) -> GameNode | None:
        """Handle a release at screen position `x`, `y` in pixels: end a press or drag of the node,
        whatever the position, and offer the release to children as OnPickDownFunction does.

        Returns the node that took the release, or None.
        """

    def OnKeyDownFunction(self, key: Hashable) -> None:
        """Call the function registered for the pressed key; a key without one is ignored."""

    def OnKeyUpFunction(self, key: Hashable) -> None:
        """Call the function registered for the released key; a key without one is ignored."""

    def checkClick(self, px: float, py: float) -> bool:
        """Return whether the node is visible and the point (pixels of the screen) lies in its
        drawn rectangle.
        """

    def checkCollision(self, gameNode: GameNode, moveX: float = 0, moveY: float = 0) -> bool:
        """Return whether the size rectangles collide when the other node is moved by `moveX` and
        `moveY` pixels; see GetSizeRect.
        """

    def checkEventRectCollision(
        self, objrect: _RectValue, moveX: float = 0, moveY: float = 0
    ) -> bool:
        """Return whether the size rectangle collides with a copy of `objrect` moved by `moveX` and
        `moveY` pixels; see GetSizeRect.
        """

    def SetBindingEvent(self, eventName: str, functionName: str | None, functionCode: Any) -> None:
        """Bind the event to the scene's method that is named after `functionName`; None unbinds
        it.

        The entry in `BindingEventArray` becomes [functionName, functionCode]; the code is for
        editors.
        """

    def GetBindingEvent(self, eventName: str) -> list[Any]:
        """Return the entry of that name in `BindingEventArray`.

        Raises KeyError for an unknown one.
        """

    def DelBindingEvent(self, eventName: str) -> None:
        """Delete the entry of that name from `BindingEventArray`.

        Raises KeyError for an unknown one.
        """

    def CleanUpBindingEvent(self) -> None:
        """Empty `BindingEventArray` in place."""

    def GetBindingEventArray(self) -> dict[str, list[Any]]:
        """Return `BindingEventArray`, the dictionary itself and no copy."""

    def SetInnerBindingEvent(
        self, eventName: str, functionName: str | None, functionCode: Any
    ) -> None:
        """Bind the event to the scene's method that is named after `functionName`; None unbinds
        it.

        The entry in `InnerBindingEventArray` becomes [functionName, functionCode]; the code is
        for editors.
        """

    def GetInnerBindingEvent(self, eventName: str) -> list[Any]:
        """Return the entry of that name in `InnerBindingEventArray`.

        Raises KeyError for an unknown one.
        """

    def DelInnerBindingEvent(self, eventName: str) -> None:
        """Delete the entry of that name from `InnerBindingEventArray`.

        Raises KeyError for an unknown one.
        """

    def CleanUpInnerBindingEvent(self) -> None:
        """Empty `InnerBindingEventArray` in place."""

    def GetInnerBindingEventArray(self) -> dict[str, list[Any]]:
        """Return `InnerBindingEventArray`, the dictionary itself and no copy."""

    def SetBindingPoint(self, pointName: str, posType: Any, x: float, y: float) -> None:
        """Store the triple (`posType`, `x`, `y`) in `BindingPointArray` under the point's name."""

    def GetBindingPoint(self, pointName: str) -> tuple[Any, float, float]:
        """Return the entry of that name in `BindingPointArray`.

        Raises KeyError for an unknown one.
        """

    def DelBindingPoint(self, pointName: str) -> None:
        """Delete the entry of that name from `BindingPointArray`.

        Raises KeyError for an unknown one.
        """

    def CleanUpBindingPoint(self) -> None:
        """Empty `BindingPointArray` in place."""

    def GetBindingPointArray(self) -> dict[str, tuple[Any, float, float]]:
        """Return `BindingPointArray`, the dictionary itself and no copy."""

    def SetBindingVar(self, varname: str, varvalue: Any) -> None:
        """Store a value in `BindingVarArray` under the variable's name."""

    def GetBindingVar(self, varname: str) -> Any:
        """Return the entry of that name in `BindingVarArray`.

        Raises KeyError for an unknown one.
        """

    def DelBindingVar(self, varname: str) -> None:
        """Delete the entry of that name from `BindingVarArray`.

        Raises KeyError for an unknown one.
        """

    def CleanUpBindingVar(self) -> None:
        """Empty `BindingVarArray` in place."""

    def GetBindingVarArray(self) -> dict[str, Any]:
        """Return `BindingVarArray`, the dictionary itself and no copy."""

    def CallEvent(self, eventName: str, params: Mapping[str, Any] | None = None) -> Any:
        """Call the scene's method "on_" + function name that is bound to the event.

        `params` is a dictionary of keyword arguments. Returns the method's result, None when
        nothing is bound or the scene has no such method.
        """

    def CallInnerEvent(self, eventName: str, params: Mapping[str, Any] | None = None) -> Any:
        """Call the scene's method that is bound to a built-in event; arguments and result are
        those of CallEvent.
        """

    @property
    def X(self) -> float:
        """Horizontal place of the anchor in pixels, read by GetX and set by SetX."""
    @X.setter
    def X(self, value: float) -> None: ...
    @property
    def Y(self) -> float:
        """Vertical place of the anchor in pixels, read by GetY and set by SetY."""
    @Y.setter
    def Y(self, value: float) -> None: ...

@_disjoint_base
class GUI_Image(GameNode):
    """A widget with a picture, a frame animation or a plain background, and a border.

    `x` and `y` place the anchor relative to the parent's top-left corner, in pixels. Without a
    picture it is a white box of 100 x 100 pixels.

    >>> image = Tessora.GUI_Image(None, 10, 20)
    >>> image.SetImage("hero.png")
    hero.png load:1
    >>> image.AutoImageSize(True)
    """

    bgColor: pygame.Color | None
    """Tint of the picture, or the background's colour without a picture; None for neither. Default
    (255, 255, 255, 255).
    """
    alpha: float
    """Opacity of the picture, 0 to 255. Default 255."""
    image: pygame.Surface | None
    """The surface that is shown, or None. Default None."""
    imageArray: list[pygame.Surface | None] | None
    """The frames, or None. Default None."""
    imageFrameRectArray: dict[str, pygame.Rect]
    """Frames of the atlas: name to rectangle in the sheet, in pixels. Default {}."""
    imagefiles: _ImageFiles
    """What SetImage was given. Default None."""
    imageCount: int
    """Number of frames. Default 0."""
    imageIndex: int
    """Frame of the animation, counted from 0. Default 0."""
    imageDelay: float
    """Seconds that have gone towards the next frame. Default 0."""
    imageSwitchDelay: float
    """Seconds that a frame lasts. Default 0.1."""
    imageAutoSwitch: bool
    """Whether the frame animation runs. Default False."""
    plistFile: str | None
    """Atlas that the frames came from, or None. Default None."""
    currActionName: str | None
    """Name of the current animation, or None. Default None."""
    originalImage: GUI_Image | None
    """Widget whose picture is mirrored, or None. Default None."""
    autosize: bool
    """Whether the size follows the picture. Default False."""
    blendtype: int
    """Flag with which the picture is blitted, as SetBlendType chooses it. Default
    pygame.BLEND_MULT.
    """
    borderwidth: int
    """Thickness of the border in pixels. Default 2."""
    borderVisible: bool
    """Whether the border is drawn. Default False."""
    borderColor: pygame.Color
    """Colour of the border in the style "solid". Default `GUI_WINDOW_BGCOLOR`."""
    borderColor_LT: pygame.Color
    """Light edge of the relief, left and top in the style "raised". Default (218, 218, 218, 255)."""
    borderColor_RB: pygame.Color
    """Dark edge of the relief, right and bottom in the style "raised". Default (64, 64, 64, 255)."""
    imageAnchor: str
    """Keyword of the anchor, as SetImageAnchor takes it, in lower case. Default "wn"."""
    coll_visible: bool
    """Whether the collision rectangles are outlined. Default False."""
    coll_rectArray: dict[str, list[Any]]
    """Collision rectangles: name to a list of them, in unscaled pixels from the top-left corner.
    Default {}.
    """
    style: str | None
    """Style of the border: "flat", "raised", "sunken", "solid" or "hollow" (no background), or
    None (no picture). Default "flat".
    """
    enable: bool
    """Whether the widget takes input. Default True."""

    def __init__(self, parent: GameNode | None = None, x: float = 0, y: float = 0) -> None: ...
    def GetBGColor(self) -> pygame.Color | None:
        """Return `bgColor`: tint of the picture, or the background's colour without a picture;
        None for neither.
        """

    def SetBGColor(self, r: int, g: int, b: int, a: int = 255) -> None:
        """Set `bgColor`: tint of the picture, or the background's colour without a picture; None
        for neither.

        Components are from 0 to 255; others raise ValueError.
        """

    def GetImage(self) -> pygame.Surface | None:
        """Return `image`: the surface that is shown, or None."""

    def GetImageFiles(self) -> _ImageFiles:
        """Return `imagefiles`: what SetImage was given."""

    def GetImageCount(self) -> int:
        """Return `imageCount`: number of frames."""

    def GetSwitchImageDelay(self) -> float:
        """Return `imageSwitchDelay`: seconds that a frame lasts."""

    def SetSwitchImageDelay(self, delay: float) -> None:
        """Set `imageSwitchDelay`: seconds that a frame lasts."""

    def SetAutoSwitch(self, flag: bool) -> None:
        """Set `imageAutoSwitch`: whether the frame animation runs."""

    def GetPlistFile(self) -> str | None:
        """Return `plistFile`: atlas that the frames came from, or None."""

    def GetCurrActionName(self) -> str | None:
        """Return `currActionName`: name of the current animation, or None."""

    def GetOriginalImage(self) -> GUI_Image | None:
        """Return `originalImage`: widget whose picture is mirrored, or None."""

    def IsAutoImageSize(self) -> bool:
        """Return `autosize`: whether the size follows the picture."""

    def GetBlendType(self) -> int:
        """Return `blendtype`: flag with which the picture is blitted, as SetBlendType chooses it."""

    def GetBorderWidth(self) -> int:
        """Return `borderwidth`: thickness of the border in pixels."""

    def SetBorderWidth(self, width: int) -> None:
        """Set `borderwidth`: thickness of the border in pixels."""

    def IsBorderVisible(self) -> bool:
        """Return `borderVisible`: whether the border is drawn."""

    def SetBorderVisible(self, flag: bool) -> None:
        """Set `borderVisible`: whether the border is drawn."""

    def GetBorderColor(self) -> pygame.Color:
        """Return `borderColor`: colour of the border in the style "solid"."""

    def SetBorderColor(self, r: int, g: int, b: int) -> None:
        """Set `borderColor`: colour of the border in the style "solid".

        The colour is opaque. Components are from 0 to 255; others raise ValueError.
        """

    def GetImageAnchor(self) -> str:
        """Return `imageAnchor`: keyword of the anchor, as SetImageAnchor takes it, in lower case."""

    def SetCollInfoVisible(self, flag: bool) -> None:
        """Set `coll_visible`: whether the collision rectangles are outlined."""

    def GetCollRectArray(self) -> dict[str, list[Any]]:
        """Return `coll_rectArray`: collision rectangles: name to a list of them, in unscaled
        pixels from the top-left corner.
        """

    def GetStyle(self) -> str | None:
        """Return `style`: style of the border: "flat", "raised", "sunken", "solid" or "hollow" (no
        background), or None (no picture).
        """

    def IsEnable(self) -> bool:
        """Return `enable`: whether the widget takes input."""

    def SetEnable(self, flag: bool) -> None:
        """Set `enable`: whether the widget takes input."""

    def SetImage(self, imagefiles: _ImageFiles, switchdelay: float = 0.1) -> None:
        """Set the picture: a file name, a list of files (the frames), an atlas (".plist"), a
        surface, or None.

        Files are loaded through `Res`: a file that it does not find leaves no picture, and
        AttributeError is raised while `Res` is not set. `switchdelay` is the time per frame in
        seconds. The running frame index is kept.
        """

    def UseImage(self, originalImage: GUI_Image, autoSize: bool) -> None:
        """Mirror the picture of another widget from now on; see AutoImageSize for `autoSize`.

        Raises AttributeError for what is no widget.
        """

    def AutoImageSize(self, autosize: bool) -> None:
        """Store the flag; while it is true the size follows the picture, from now on."""

    def SwitchImage(self, index: int) -> None:
        """Show frame `index`; an index out of range changes nothing. `imageIndex` is kept."""

    def update(self, delay: float) -> None:
        """Advance the frame animation by `delay` seconds, at most one frame, then the node.

        Raises OverflowError for an `imageIndex` that is infinite.
        """

    def CheckInViewPort(self) -> bool:
        """Return whether the widget overlaps the scene's GetViewPort() (x, y, width, height);
        touching edges count.

        Raises AttributeError without a scene that has a viewport.
        """

    def DropBGColor(self) -> None:
        """Use no tint and no background: `bgColor` becomes None."""

    def SetStyle(self, style: str | None, borderVisible: bool = True) -> None:
        """Set the border style and, by default, show the border.

        Styles: "flat", "raised", "sunken", "solid", "hollow" (no background); others are kept
        and draw no relief. None draws no picture either.
        """

    def SetBlendType(self, blendtype: str) -> None:
        """Set how the picture is blitted: "ADD" and "SUB" select pygame's BLEND_ADD and BLEND_SUB,
        anything else BLEND_MULT, which is drawn as a plain blit.
        """

    def SetImageAnchor(self, anchor: str) -> None:
        """Set the anchor by keyword: "wn", "n", "en", "w", "center", "e", "ws", "s", "es" in any
        case; others give the top-left corner.
        """

    def AddCollRect(self, collName: str, rect: _RectValue) -> None:
        """Add a collision rectangle (unscaled pixels from the top-left corner) under a name."""

    def CleanCollRect(self, collName: str) -> None:
        """Empty the list of collision rectangles of that name; an unknown name is ignored."""

    def GetCollRect(self, collName: str) -> list[Any]:
        """Return the list of collision rectangles of that name.

        Raises KeyError for an unknown one.
        """

    def CopyTo(self, other: GameNode) -> None:
        """Copy the widget's state into `other`; surfaces are shared, lists and colours copied."""

    def LoadImageFramesPList(self, plistFile: str, imageFile: str | None = None) -> None:
        """Read a frame atlas and make all its frames, in the file's order, the frames.

        `imageFile` is the sheet; by default the atlas's name with ".png" or, if there is no
        such file, the one that the atlas names. Rotated frames are turned back, trimmed ones
        placed in their source size. Missing files are a TypeError or AttributeError; malformed
        data, frames outside the sheet, and frames of more than 16 times the sheet's pixels and
        4096 x 4096 raise errors that name the frame.
        """

    def LoadAnimationPlist(self, plistFile: str, actionName: str | None = None) -> None:
        """Read an animation (the first by default): frame names under "frames", seconds per frame
        under "delay".

        Names are looked up in the atlas read last, then as image files. Raises KeyError for an
        unknown animation.
        """

    def draw(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the picture or background, border, focus border, overlays and children.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

    def drawimage(self, screen: pygame.Surface, image: pygame.Surface) -> None:
        """Draw a surface scaled to the drawn size, rotated and tinted with `bgColor`, centred on
        the drawn rectangle.
        """

    def drawBGColor(self, screen: pygame.Surface, bgColor: _ColorValue | None) -> None:
        """Fill the drawn rectangle with a colour; None draws nothing."""

    def drawStyle(self, screen: pygame.Surface) -> None:
        """Draw the border of the style while `borderVisible` is true."""

    def drawFocusBorder(self, screen: pygame.Surface) -> None:
        """Outline the widget while it has the keyboard focus."""

    def drawCollInfo(self, screen: pygame.Surface) -> None:
        """Outline the collision rectangles while `coll_visible` is true."""

@_disjoint_base
class GUI_Label(GUI_Image):
    """An image widget with one line of text.

    `x` and `y` place the anchor in the parent, in pixels. `fontname` is a system font, or a
    ".ttf" or ".otf" file that `Res` finds: AttributeError if it does not. `fontsize` is in
    pixels. A label is as white and large as an image: the style "hollow" leaves the text alone.

    >>> label = Tessora.GUI_Label(None, 10, 20, "Score: 0")
    >>> label.SetText("Score: 1")
    """

    text: str
    """The text that is shown."""
    font: pygame.font.Font
    """pygame.font.Font that renders the text."""
    fontname: str
    """Name of the system font, or of the font's file. Default "Arial"."""
    fontsize: int
    """Size of the font in pixels. Default 16."""
    fontbold: bool
    """Whether the font was made bold. Default False."""
    fontitalic: bool
    """Whether the font was made italic. Default False."""
    fontunderline: bool
    """Whether the font was made to underline. Default False."""
    strikethrough: bool
    """Whether the font was made to strike through. Default False."""
    textColor: pygame.Color
    """Colour of the text. Default (0, 0, 0, 255)."""
    HAlign: str
    """Horizontal alignment of the text: "left", "right" or "center", which others count as.
    Default "center".
    """
    VAlign: str
    """Vertical alignment of the text: "top", "bottom" or "center", which others count as. Default
    "center".
    """
    textleftgap: float
    """Distance of left-aligned text from the left edge, in unscaled pixels. Default 2."""
    texttopgap: float
    """Distance of top-aligned text from the top edge, in unscaled pixels. Default 2."""
    textVisible: bool
    """Whether the text is drawn. Default True."""
    showChar: str | None
    """Character shown in place of each one, as for a password, or None. Default None."""

    def __init__(
        self,
        parent: GameNode | None = None,
        x: float = 0,
        y: float = 0,
        text: str = "",
        fontname: str = "Arial",
        fontsize: int = 16,
    ) -> None: ...
    def GetText(self) -> str:
        """Return `text`: the text that is shown."""

    def SetText(self, text: str) -> None:
        """Set `text`: the text that is shown."""

    def GetFont(self) -> pygame.font.Font:
        """Return `font`: pygame.font.Font that renders the text."""

    def GetFontName(self) -> str:
        """Return `fontname`: name of the system font, or of the font's file."""

    def GetFontSize(self) -> int:
        """Return `fontsize`: size of the font in pixels."""

    def GetFontBold(self) -> bool:
        """Return `fontbold`: whether the font was made bold."""

    def GetFontItalic(self) -> bool:
        """Return `fontitalic`: whether the font was made italic."""

    def GetFontUnderline(self) -> bool:
        """Return `fontunderline`: whether the font was made to underline."""

    def GetFontStrikeThrough(self) -> bool:
        """Return `strikethrough`: whether the font was made to strike through."""

    def GetTextColor(self) -> pygame.Color:
        """Return `textColor`: colour of the text."""

    def SetTextColor(self, r: int, g: int, b: int, a: int = 255) -> None:
        """Set `textColor`: colour of the text.

        Components are from 0 to 255; others raise ValueError.
        """

    def GetTextHAlign(self) -> str:
        """Return `HAlign`: horizontal alignment of the text: "left", "right" or "center", which
        others count as.
        """

    def SetTextHAlign(self, align: str) -> None:
        """Set `HAlign`: horizontal alignment of the text: "left", "right" or "center", which
        others count as.
        """

    def GetTextVAlign(self) -> str:
        """Return `VAlign`: vertical alignment of the text: "top", "bottom" or "center", which
        others count as.
        """

    def SetTextVAlign(self, align: str) -> None:
        """Set `VAlign`: vertical alignment of the text: "top", "bottom" or "center", which others
        count as.
        """

    def GetTextLeftGap(self) -> float:
        """Return `textleftgap`: distance of left-aligned text from the left edge, in unscaled
        pixels.
        """

    def SetTextLeftGap(self, gap: float) -> None:
        """Set `textleftgap`: distance of left-aligned text from the left edge, in unscaled pixels."""

    def GetTextTopGap(self) -> float:
        """Return `texttopgap`: distance of top-aligned text from the top edge, in unscaled pixels."""

    def SetTextTopGap(self, gap: float) -> None:
        """Set `texttopgap`: distance of top-aligned text from the top edge, in unscaled pixels."""

    def IsTextVisible(self) -> bool:
        """Return `textVisible`: whether the text is drawn."""

    def SetTextVisible(self, flag: bool) -> None:
        """Set `textVisible`: whether the text is drawn."""

    def GetShowChar(self) -> str | None:
        """Return `showChar`: character shown in place of each one, as for a password, or None."""

    def SetShowChar(self, char: str | None) -> None:
        """Set `showChar`: character shown in place of each one, as for a password, or None."""

    def draw(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the picture or background, the text, border, overlays and children.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

    def CreateFont(
        self,
        fontname: str,
        fontsize: int,
        bold: bool = False,
        italic: bool = False,
        underline: bool = False,
        strikethrough: bool = False,
    ) -> None:
        """Make and use a system font or, with ".ttf" or ".otf" in the name, a font file of the
        resources.

        `fontsize` is in pixels. Raises AttributeError when `Res` is not set or does not find
        the file.
        """

    def SetFont(self, font: pygame.font.Font, fontname: str) -> None:
        """Use a ready font; its size and flags are not read.

        A font that is made bold, italic, underlined or struck through later shows at once.
        After its set_script() or set_direction(), which cannot be read back, hand it over
        again.
        """

    def drawText(self, screen: pygame.Surface, text: str, textColor: _ColorValue) -> None:
        """Draw a text in a colour inside the widget, aligned, scaled and rotated with it."""

    def CopyTo(self, other: GameNode) -> None:
        """Copy the image part and, into a label or button, the text and how it is shown."""

@_disjoint_base
class GUI_Button(GUI_Label):
    """A label that reacts to the mouse: normal, hovered and pressed.

    The arguments are those of a label. A new button is a grey, raised box of 100 x 100 pixels.
    Set `PickDownFunction` or `PickUpFunction` to learn of presses and releases; either is
    called with the button.

    >>> button = Tessora.GUI_Button(None, 10, 20, "Start")
    >>> button.SetPickUpFunction(lambda button: button.SetText("Started"))
    """

    textColor_hover: pygame.Color
    """Text colour while the pointer is inside. Default (0, 0, 0, 255)."""
    bgColor_hover: pygame.Color
    """Background colour while the pointer is inside. Default (128, 128, 128, 255)."""
    image_hover: pygame.Surface | None
    """Picture while the pointer is inside, or None. Default None."""
    image_hover_File: str | None
    """File name of the picture while the pointer is inside, or None. Default None."""
    image_click_File: str | None
    """File name of the picture while pressed, or None. Default None."""
    textColor_click: pygame.Color
    """Text colour while pressed. Default (0, 0, 0, 255)."""
    bgColor_click: pygame.Color
    """Background colour while pressed. Default (96, 96, 96, 255)."""
    image_click: pygame.Surface | None
    """Picture while pressed, or None. Default None."""

    def __init__(
        self,
        parent: GameNode | None = None,
        x: float = 0,
        y: float = 0,
        text: str = "",
        fontname: str = "Arial",
        fontsize: int = 16,
    ) -> None: ...
    def GetTextColor_Hover(self) -> pygame.Color:
        """Return `textColor_hover`: text colour while the pointer is inside."""

    def SetTextColor_Hover(self, r: int, g: int, b: int) -> None:
        """Set `textColor_hover`: text colour while the pointer is inside.

        The colour is opaque. Components are from 0 to 255; others raise ValueError.
        """

    def GetBGColor_Hover(self) -> pygame.Color:
        """Return `bgColor_hover`: background colour while the pointer is inside."""

    def SetBGColor_Hover(self, r: int, g: int, b: int) -> None:
        """Set `bgColor_hover`: background colour while the pointer is inside.

        The colour is opaque. Components are from 0 to 255; others raise ValueError.
        """

    def SetImage_Hover(self, imagefile: str) -> None:
        """Load `image_hover` through `Res` and record its file.

        A file that `Res` does not find leaves None; AttributeError while `Res` is not set.
        """

    def GetImage_Hover(self) -> pygame.Surface | None:
        """Return `image_hover`: picture while the pointer is inside, or None."""

    def GetImageFile_Hover(self) -> str | None:
        """Return `image_hover_File`: file name of the picture while the pointer is inside, or
        None.
        """

    def GetImageFile_Click(self) -> str | None:
        """Return `image_click_File`: file name of the picture while pressed, or None."""

    def GetTextColor_Click(self) -> pygame.Color:
        """Return `textColor_click`: text colour while pressed."""

    def SetTextColor_Click(self, r: int, g: int, b: int) -> None:
        """Set `textColor_click`: text colour while pressed.

        The colour is opaque. Components are from 0 to 255; others raise ValueError.
        """

    def GetBGColor_Click(self) -> pygame.Color:
        """Return `bgColor_click`: background colour while pressed."""

    def SetBGColor_Click(self, r: int, g: int, b: int) -> None:
        """Set `bgColor_click`: background colour while pressed.

        The colour is opaque. Components are from 0 to 255; others raise ValueError.
        """

    def SetImage_Click(self, imagefile: str) -> None:
        """Load `image_click` through `Res` and record its file.

        A file that `Res` does not find leaves None; AttributeError while `Res` is not set.
        """

    def GetImage_Click(self) -> pygame.Surface | None:
        """Return `image_click`: picture while pressed, or None."""

    def IsClicked(self) -> bool:
        """Return `clicked`: whether the button is being pressed."""

    def draw(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the look of the current state, the border, overlays and children.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

    def OnPickDownFunction(self, x: float, y: float) -> GameNode | None:
        """Handle a press as a node does; a disabled button takes none."""

    def OnPickUpFunction(self, x: float, y: float) -> GameNode | None:
        """Handle a release as a node does; a disabled button only stops being pressed."""

    def CopyTo(self, other: GameNode) -> None:
        """Copy the label part and, into a button, the colours and pictures of its states."""

@_disjoint_base
class GUI_CheckButton(GUI_Button):
    """A button that a click checks and unchecks, with a box and a text.

    The arguments are those of a label; a new one has 120 x 20 pixels. The mark shows while it
    is checked, once a checked colour or a picture is set.

    >>> sound = Tessora.GUI_CheckButton(None, 10, 20, "Sound")
    >>> sound.SetChecked(True)
    """

    CheckValue: bool
    """Whether the button is checked. Default False."""
    textColor_checked: pygame.Color
    """Text colour while checked, at first the one in `textColor`."""
    bgColor_checked: pygame.Color
    """Background colour while checked, at first the one in `bgColor`."""
    image_checked: pygame.Surface | None
    """Picture while checked, or None. Default None."""
    textColor_hover_checked: pygame.Color
    """Text colour while checked, with the pointer inside, at first the one in `textColor_hover`."""
    bgColor_hover_checked: pygame.Color
    """Background colour while checked, with the pointer inside, at first the one in
    `bgColor_hover`.
    """
    image_hover_checked: pygame.Surface | None
    """Picture while checked, with the pointer inside, or None. Default None."""
    textColor_click_checked: pygame.Color
    """Text colour while checked and pressed, at first the one in `textColor_click`."""
    bgColor_click_checked: pygame.Color
    """Background colour while checked and pressed, at first the one in `bgColor_click`."""
    image_click_checked: pygame.Surface | None
    """Picture while checked and pressed, or None. Default None."""
    checkboxVisible: bool
    """Whether the box shows. Default True."""
    image_checkbox: pygame.Surface | None
    """Picture of the box, or None. Default None."""
    image_checkbox_hover: pygame.Surface | None
    """Picture of the box while the pointer is inside, or None. Default None."""
    image_checkbox_click: pygame.Surface | None
    """Picture of the box while pressed, or None. Default None."""
    image_checkbox_checked: pygame.Surface | None
    """Picture of the box while checked, or None. Default None."""
    image_checkbox_hover_checked: pygame.Surface | None
    """Picture of the box while checked, with the pointer inside, or None. Default None."""
    image_checkbox_click_checked: pygame.Surface | None
    """Picture of the box while checked and pressed, or None. Default None."""

    def __init__(
        self,
        parent: GameNode | None = None,
        x: float = 0,
        y: float = 0,
        text: str = "",
        fontname: str = "Arial",
        fontsize: int = 16,
    ) -> None: ...
    def IsChecked(self) -> bool:
        """Return `CheckValue`: whether the button is checked."""

    def SetChecked(self, value: bool) -> None:
        """Set `CheckValue`: whether the button is checked."""

    def GetTextColor_Checked(self) -> pygame.Color:
        """Return `textColor_checked`: text colour while checked, at first the one in `textColor`."""

    def SetTextColor_Checked(self, r: int, g: int, b: int) -> None:
        """Set `textColor_checked`: text colour while checked, at first the one in `textColor`.

        The colour is opaque. Components are from 0 to 255; others raise ValueError.
        """

    def GetBGColor_Checked(self) -> pygame.Color:
        """Return `bgColor_checked`: background colour while checked, at first the one in
        `bgColor`.
        """

    def SetBGColor_Checked(self, r: int, g: int, b: int) -> None:
        """Set `bgColor_checked`: background colour while checked, at first the one in `bgColor`.

        The colour is opaque. Components are from 0 to 255; others raise ValueError.
        """

    def SetImage_Checked(self, imagefile: str) -> None:
        """Load `image_checked` through `Res`.

        A file that `Res` does not find leaves None; AttributeError while `Res` is not set.
        """

    def GetImage_Checked(self) -> pygame.Surface | None:
        """Return `image_checked`: picture while checked, or None."""

    def GetTextColor_Hover_Checked(self) -> pygame.Color:
        """Return `textColor_hover_checked`: text colour while checked, with the pointer inside, at
        first the one in `textColor_hover`.
        """

    def SetTextColor_Hover_Checked(self, r: int, g: int, b: int) -> None:
        """Set `textColor_hover_checked`: text colour while checked, with the pointer inside, at
        first the one in `textColor_hover`.

        The colour is opaque. Components are from 0 to 255; others raise ValueError.
        """

    def GetBGColor_Hover_Checked(self) -> pygame.Color:
        """Return `bgColor_hover_checked`: background colour while checked, with the pointer
        inside, at first the one in `bgColor_hover`.
        """

    def SetBGColor_Hover_Checked(self, r: int, g: int, b: int) -> None:
        """Set `bgColor_hover_checked`: background colour while checked, with the pointer inside,
        at first the one in `bgColor_hover`.

        The colour is opaque. Components are from 0 to 255; others raise ValueError.
        """

    def SetImage_Hover_Checked(self, imagefile: str) -> None:
        """Load `image_hover_checked` through `Res`.

        A file that `Res` does not find leaves None; AttributeError while `Res` is not set.
        """

    def GetImage_Hover_Checked(self) -> pygame.Surface | None:
        """Return `image_hover_checked`: picture while checked, with the pointer inside, or None."""

    def GetTextColor_Click_Checked(self) -> pygame.Color:
        """Return `textColor_click_checked`: text colour while checked and pressed, at first the
        one in `textColor_click`.
        """

    def SetTextColor_Click_Checked(self, r: int, g: int, b: int) -> None:
        """Set `textColor_click_checked`: text colour while checked and pressed, at first the one
        in `textColor_click`.

        The colour is opaque. Components are from 0 to 255; others raise ValueError.
        """

    def GetBGColor_Click_Checked(self) -> pygame.Color:
        """Return `bgColor_click_checked`: background colour while checked and pressed, at first
        the one in `bgColor_click`.
        """

    def SetBGColor_Click_Checked(self, r: int, g: int, b: int) -> None:
        """Set `bgColor_click_checked`: background colour while checked and pressed, at first the
        one in `bgColor_click`.

        The colour is opaque. Components are from 0 to 255; others raise ValueError.
        """

    def SetImage_Click_Checked(self, imagefile: str) -> None:
        """Load `image_click_checked` through `Res`.

        A file that `Res` does not find leaves None; AttributeError while `Res` is not set.
        """

    def GetImage_Click_Checked(self) -> pygame.Surface | None:
        """Return `image_click_checked`: picture while checked and pressed, or None."""

    def IsCheckBoxVisible(self) -> bool:
        """Return `checkboxVisible`: whether the box shows."""

    def SetCheckBoxVisible(self, flag: bool) -> None:
        """Set `checkboxVisible`: whether the box shows."""

    def SetImage_CheckBox(self, imagefile: str) -> None:
        """Load `image_checkbox` through `Res`.

        A file that `Res` does not find leaves None; AttributeError while `Res` is not set.
        """

    def GetImage_CheckBox(self) -> pygame.Surface | None:
        """Return `image_checkbox`: picture of the box, or None."""

    def SetImage_CheckBox_Hover(self, imagefile: str) -> None:
        """Load `image_checkbox_hover` through `Res`.

        A file that `Res` does not find leaves None; AttributeError while `Res` is not set.
        """

    def GetImage_CheckBox_Hover(self) -> pygame.Surface | None:
        """Return `image_checkbox_hover`: picture of the box while the pointer is inside, or None."""

    def SetImage_CheckBox_Click(self, imagefile: str) -> None:
        """Load `image_checkbox_click` through `Res`.

        A file that `Res` does not find leaves None; AttributeError while `Res` is not set.
        """

    def GetImage_CheckBox_Click(self) -> pygame.Surface | None:
        """Return `image_checkbox_click`: picture of the box while pressed, or None."""

    def SetImage_CheckBox_Checked(self, imagefile: str) -> None:
        """Load `image_checkbox_checked` through `Res`.

        A file that `Res` does not find leaves None; AttributeError while `Res` is not set.
        """

    def GetImage_CheckBox_Checked(self) -> pygame.Surface | None:
        """Return `image_checkbox_checked`: picture of the box while checked, or None."""

    def SetImage_CheckBox_Hover_Checked(self, imagefile: str) -> None:
        """Load `image_checkbox_hover_checked` through `Res`.

        A file that `Res` does not find leaves None; AttributeError while `Res` is not set.
        """

    def GetImage_CheckBox_Hover_Checked(self) -> pygame.Surface | None:
        """Return `image_checkbox_hover_checked`: picture of the box while checked, with the
        pointer inside, or None.
        """

    def SetImage_CheckBox_Click_Checked(self, imagefile: str) -> None:
        """Load `image_checkbox_click_checked` through `Res`.

        A file that `Res` does not find leaves None; AttributeError while `Res` is not set.
        """

    def GetImage_CheckBox_Click_Checked(self) -> pygame.Surface | None:
        """Return `image_checkbox_click_checked`: picture of the box while checked and pressed, or
        None.
        """

    def draw(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the look of the current state with its box and text, the border, overlays and
        children.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

    def drawBoxAndText(
        self, screen: pygame.Surface, checkimage: pygame.Surface | None, textColor: _ColorValue
    ) -> None:
        """Draw the box, from a picture if there is one, and the text right of it."""

    def OnPickUpFunction(self, x: float, y: float) -> GameNode | None:
        """Handle a release as a button does; one that ends a click calls SetChecked first."""

@_disjoint_base
class GUI_RadioButton(GUI_Button):
    """A button with a round box and a text; a click chooses it among the radio buttons of its
    parent.

    The arguments are those of a label; a new one has 120 x 20 pixels.

    >>> levels = Tessora.GameNode(None, 10, 20)
    >>> easy = Tessora.GUI_RadioButton(levels, 0, 0, "Easy")
    >>> hard = Tessora.GUI_RadioButton(levels, 0, 24, "Hard")
    """

    RadioValue: bool
    """Whether the button is the chosen one. Default False."""
    radioboxVisible: bool
    """Whether the box shows. Default True."""
    image_radiobox: pygame.Surface | None
    """Picture of the box, or None. Default None."""
    image_radiobox_hover: pygame.Surface | None
    """Picture of the box while the pointer is inside, or None. Default None."""
    image_radiobox_click: pygame.Surface | None
    """Picture of the box while pressed, or None. Default None."""
    image_radiobox_checked: pygame.Surface | None
    """Picture of the box that is kept for the script, not drawn; unset at first."""
    image_radiobox_hover_checked: pygame.Surface | None
    """Picture of the box that is kept for the script, not drawn; unset at first."""
    image_radiobox_click_checked: pygame.Surface | None
    """Picture of the box that is kept for the script, not drawn; unset at first."""

    def __init__(
        self,
        parent: GameNode | None = None,
        x: float = 0,
        y: float = 0,
        text: str = "",
        fontname: str = "Arial",
        fontsize: int = 16,
    ) -> None: ...
    def GetRadioValue(self) -> bool:
        """Return `RadioValue`: whether the button is the chosen one."""

    def SetRadioValue(self, value: bool) -> None:
        """Set `RadioValue`: whether the button is the chosen one."""

    def IsRadioBoxVisible(self) -> bool:
        """Return `radioboxVisible`: whether the box shows."""

    def SetRadioBoxVisible(self, flag: bool) -> None:
        """Set `radioboxVisible`: whether the box shows."""

    def SetImage_RadioBox(self, imagefile: str) -> None:
        """Load `image_radiobox` through `Res`.

        A file that `Res` does not find leaves None; AttributeError while `Res` is not set.
        """

    def GetImage_RadioBox(self) -> pygame.Surface | None:
        """Return `image_radiobox`: picture of the box, or None."""

    def SetImage_RadioBox_Hover(self, imagefile: str) -> None:
        """Load `image_radiobox_hover` through `Res`.

        A file that `Res` does not find leaves None; AttributeError while `Res` is not set.
        """

    def GetImage_RadioBox_Hover(self) -> pygame.Surface | None:
        """Return `image_radiobox_hover`: picture of the box while the pointer is inside, or None."""

    def SetImage_RadioBox_Click(self, imagefile: str) -> None:
        """Load `image_radiobox_click` through `Res`.

        A file that `Res` does not find leaves None; AttributeError while `Res` is not set.
        """

    def GetImage_RadioBox_Click(self) -> pygame.Surface | None:
        """Return `image_radiobox_click`: picture of the box while pressed, or None."""

    def SetImage_RadioBox_Checked(self, imagefile: str) -> None:
        """Load `image_radiobox_checked` through `Res`.

        A file that `Res` does not find leaves None; AttributeError while `Res` is not set.
        """

    def GetImage_RadioBox_Checked(self) -> pygame.Surface | None:
        """Return `image_radiobox_checked`, or None before it is set."""

    def SetImage_RadioBox_Hover_Checked(self, imagefile: str) -> None:
        """Load `image_radiobox_hover_checked` through `Res`.

        A file that `Res` does not find leaves None; AttributeError while `Res` is not set.
        """

    def GetImage_RadioBox_Hover_Checked(self) -> pygame.Surface | None:
        """Return `image_radiobox_hover_checked`, or None before it is set."""

    def SetImage_RadioBox_Click_Checked(self, imagefile: str) -> None:
        """Load `image_radiobox_click_checked` through `Res`.

        A file that `Res` does not find leaves None; AttributeError while `Res` is not set.
        """

    def GetImage_RadioBox_Click_Checked(self) -> pygame.Surface | None:
        """Return `image_radiobox_click_checked`, or None before it is set."""

    def draw(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the look of the current state with its box and text, the border, overlays and
        children.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

    def drawBoxAndText(
        self, screen: pygame.Surface, checkimage: pygame.Surface | None, textColor: _ColorValue
    ) -> None:
        """Draw the box, from a picture if there is one, and the text right of it."""

    def OnPickUpFunction(self, x: float, y: float) -> GameNode | None:
        """Handle a release as a button does; one that ends a click chooses the button first."""

@_disjoint_base
class GUI_Edit(GUI_Label):
    """A line of text to type into.

    The arguments are those of a label; a new edit is a dark grey, sunken box of 100 x 100
    pixels with black text. A press gives it the focus and sets the cursor, a press elsewhere
    takes the focus away. Keys reach it by their names in pygame.key.name().

    >>> edit = Tessora.GUI_Edit(None, 10, 20, "Ann")
    >>> edit.SetReturnCallBackFunc(lambda edit: print("Hello", edit.GetText()))
    """

    cursorColor: pygame.Color
    """Colour of the cursor. Default (255, 255, 255, 255)."""
    bgColor_focusIn: pygame.Color
    """Background colour while the edit has the focus. Default (96, 96, 96, 255)."""
    image_focusIn: pygame.Surface | None
    """Picture while the edit has the focus, or None for the usual one. Default None."""
    image_focusIn_File: str
    """File name of the picture with the focus. Default ""."""
    cursorPos: int
    """Number of characters before the cursor. Default 0."""
    cursorshowtime: float
    """Seconds that the cursor shows, and that it hides. Default 0.5."""
    cursorlasttime: float
    """When the cursor last appeared or vanished, in seconds of time.time(). Default 0.0."""
    cursorvisible: bool
    """Whether the cursor shows at the moment. Default False."""
    text_begin_index: int
    """Index of the first character that is shown. Default 0."""
    text_end_index: int
    """Index behind the last character that is shown. Default 0."""
    max_char_count: int
    """Number of characters from which on keys insert nothing. Default 50."""
    ReturnCallBackFunc: Callable[[GUI_Edit], Any] | None
    """Called with the edit when Return is pressed in it, or None. Default None."""

    def __init__(
        self,
        parent: GameNode | None = None,
        x: float = 0,
        y: float = 0,
        text: str = "",
        fontname: str = "Arial",
        fontsize: int = 16,
    ) -> None: ...
    def GetCursorColor(self) -> pygame.Color:
        """Return `cursorColor`: colour of the cursor."""

    def SetCursorColor(self, r: int, g: int, b: int) -> None:
        """Set `cursorColor`: colour of the cursor.

        The colour is opaque. Components are from 0 to 255; others raise ValueError.
        """

    def GetBGColor_Focus(self) -> pygame.Color:
        """Return `bgColor_focusIn`: background colour while the edit has the focus."""

    def SetBGColor_Focus(self, r: int, g: int, b: int) -> None:
        """Set `bgColor_focusIn`: background colour while the edit has the focus.

        The colour is opaque. Components are from 0 to 255; others raise ValueError.
        """

    def GetImage_focusIn(self) -> pygame.Surface | None:
        """Return `image_focusIn`: picture while the edit has the focus, or None for the usual one."""

    def GetImageFile_focusIn(self) -> str:
        """Return `image_focusIn_File`: file name of the picture with the focus."""

    def SetCursorPosition(self, cursorPos: int) -> None:
        """Set `cursorPos`: number of characters before the cursor."""

    def SetMaxCharCount(self, count: int) -> None:
        """Set `max_char_count`: number of characters from which on keys insert nothing."""

    def SetReturnCallBackFunc(self, func: Callable[[GUI_Edit], Any] | None) -> None:
        """Set `ReturnCallBackFunc`: called with the edit when Return is pressed in it, or None."""

    def SetImage_FocusIn(self, file: str) -> None:
        """Load `image_focusIn` through `Res` and record its file.

        A file that `Res` does not find leaves None; AttributeError while `Res` is not set.
        """

    def SetText(self, text: str) -> None:
        """Set the text and show its begin; the cursor stays within it.

        Raises TypeError for what has no length.
        """

    def SetWidth(self, width: float) -> None:
        """Set the width in pixels; the cursor stays in the part that shows."""

    def OnKeyDownFunction(self, keyname: Hashable) -> None:
        """Handle a key by its name, as of pygame.key.name(): with the focus it moves the cursor or
        changes the text, else the function registered for it is called.
        """

    def draw(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the picture or background, the part of the text that shows, border, cursor,
        overlays and children.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

    def drawFocusBorder(self, screen: pygame.Surface) -> None:
        """Outline the edit and draw the blinking cursor while it has the keyboard focus."""

    def OnPickDownFunction(self, px: float, py: float) -> GameNode | None:
        """Handle a press as a node does.

        One that the edit takes gives it the focus and sets the cursor, any other takes the
        focus away; a disabled edit takes none.
        """

@_disjoint_base
class GUI_Text(GUI_Edit):
    """A text of many lines to type into.

    The arguments are those of a label. The text is broken by width, behind spaces where there
    are any, and at line breaks; a window of whole lines follows the cursor.

    >>> text = Tessora.GUI_Text(None, 10, 20, "Dear diary,\\ntoday")
    >>> text.SetWidth(300)
    """

    lineArray: list[str]
    """The lines with their spaces and line breaks; joined, the text."""
    lineCount: int
    """Number of lines."""
    lineIndex: int
    """First line that is shown, counted from 0. Default 0."""
    showlineCount: int
    """Number of lines that fit into the height."""
    cursorRow: int
    """Line of the cursor, counted from 0. Default 0."""
    lineHeight: float
    """Height of a line in pixels; the font's until it is set."""
    linegap: float
    """Distance between lines in pixels. Default 2."""

    def __init__(
        self,
        parent: GameNode | None = None,
        x: float = 0,
        y: float = 0,
        text: str = "",
        fontname: str = "Arial",
        fontsize: int = 16,
    ) -> None: ...
    def GetLineHeight(self) -> float:
        """Return `lineHeight`: height of a line in pixels; the font's until it is set."""

    def GetLineGap(self) -> float:
        """Return `linegap`: distance between lines in pixels."""

    def SetText(self, text: str) -> None:
        """Set the text and break it into lines; cursor and window stay within it."""

    def SetWidth(self, width: float) -> None:
        """Set the width in pixels and break the text again."""

    def SetHeight(self, height: float) -> None:
        """Set the height in pixels and show as many whole lines as fit.

        Raises ZeroDivisionError when a line takes no room.
        """

    def SetLineHeight(self, height: float) -> None:
        """Set the height of a line in pixels, which the font no longer changes, and show as many
        whole lines as fit.
        """

    def SetLineGap(self, gap: float) -> None:
        """Set the distance between lines in pixels and show as many whole lines as fit."""

    def CalculationLineCount(self) -> None:
        """Break the text into `lineArray`, by width and at line breaks, and count the lines."""

    def draw(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the picture or background, the lines that show, border, cursor, overlays and
        children.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

    def drawFocusBorder(self, screen: pygame.Surface) -> None:
        """Outline the box and draw the blinking cursor while it has the keyboard focus."""

    def OnPickDownFunction(self, px: float, py: float) -> GameNode | None:
        """Handle a press as an edit does; the cursor goes to the line and place pressed."""

    def OnKeyDownFunction(self, keyname: Hashable) -> None:
        """Handle a key as an edit does; "up" and "down" move between lines, "return" begins a line
        before it calls `ReturnCallBackFunc`.
        """

@_disjoint_base
class GUI_Scale(GUI_Image):
    """A slider: a value that goes in steps, a button to drag, a ruler.

    `x` and `y` place the anchor in the parent, in pixels; a new scale has 120 x 20. Set
    `PickUpFunction` to learn of a new value.

    >>> volume = Tessora.GUI_Scale(None, 10, 20)
    >>> volume.SetRange(0, 10)
    >>> volume.SetValue(7)
    """

    font: pygame.font.Font
    """pygame.font.Font that renders the value, at first Arial of 16 pixels."""
    textColor: pygame.Color
    """Colour of the value and the ruler. Default (255, 255, 255, 255)."""
    texttopgap: float
    """Distance of the value from the scale in pixels. Default 2."""
    textalign_V: str
    """Where the value stands: above ("top"), below ("bottom") or inside (anything else). Default
    "bottom".
    """
    Button: GUI_Button
    """The button to drag."""
    ButtonPicked: bool
    """Whether the button follows the pointer. Default False."""
    minvalue: float
    """Value at the beginning of the track. Default 0."""
    maxvalue: float
    """Value at the end of the track. Default 100."""
    currvalue: float
    """The value; what is set is not limited to the range. Default 50."""
    step: float
    """What one step adds or takes away. Default 20."""
    rulerVisible: bool
    """Whether the ruler and the value are drawn. Default True."""

    def __init__(self, parent: GameNode | None = None, x: float = 0, y: float = 0) -> None: ...
    def SetTextColor(self, r: int, g: int, b: int, a: int = 255) -> None:
        """Set `textColor`: colour of the value and the ruler.

        Components are from 0 to 255; others raise ValueError.
        """

    def GetTextAlign(self) -> str:
        """Return `textalign_V`: where the value stands: above ("top"), below ("bottom") or inside
        (anything else).
        """

    def SetTextAlign(self, align: str) -> None:
        """Set `textalign_V`: where the value stands: above ("top"), below ("bottom") or inside
        (anything else).
        """

    def GetButton(self) -> GUI_Button:
        """Return `Button`: the button to drag."""

    def GetRange(self) -> tuple[float, float]:
        """Return `minvalue` and `maxvalue`.

        `minvalue`: value at the beginning of the track.

        `maxvalue`: value at the end of the track.
        """

    def SetRange(self, minvalue: float, maxvalue: float) -> None:
        """Set `minvalue` and `maxvalue`.

        `minvalue`: value at the beginning of the track.

        `maxvalue`: value at the end of the track.
        """

    def GetValue(self) -> float:
        """Return `currvalue`: the value; what is set is not limited to the range."""

    def SetValue(self, value: float) -> None:
        """Set `currvalue`: the value; what is set is not limited to the range."""

    def GetStep(self) -> float:
        """Return `step`: what one step adds or takes away."""

    def SetStep(self, step: float) -> None:
        """Set `step`: what one step adds or takes away."""

    def BtnPickDownFunction(self, node: GameNode | None = None) -> None:
        """Let the button follow the pointer until a release."""

    def OnPickDownFunction(self, x: float, y: float) -> GameNode | None:
        """Handle a press as a node does; a disabled widget takes none."""

    def OnPickUpFunction(self, px: float, py: float) -> GameNode | None:
        """End the drag of the button, handle the release as a node does and call `PickUpFunction`.

        A hidden or disabled scale does nothing.
        """

    def draw(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Follow the pointer during a drag, place the button and draw the scale, its ruler and
        value.

        Raises ZeroDivisionError when the ends of the range are equal.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

@_disjoint_base
class GUI_VScrollBar(GUI_Image):
    """An upright scroll bar: a value that goes in steps and a thumb to drag.

    `x` and `y` place the anchor in the parent, in pixels; a new bar has 20 x 120 and the range
    0 to 100. Set `PickUpFunction` to learn of a new value.

    >>> bar = Tessora.GUI_VScrollBar(None, 10, 20)
    >>> bar.SetRange(0, 40)
    """

    UpButton: GUI_Button
    """Button that takes a step back."""
    MidButton: GUI_Button
    """The thumb, a button to drag."""
    MidButtonPicked: bool
    """Whether the thumb follows the pointer. Default False."""
    DownButton: GUI_Button
    """Button that takes a step on."""
    minvalue: float
    """Value at the beginning of the track. Default 0."""
    maxvalue: float
    """Value at the end of the track. Default 100."""
    currvalue: float
    """The value; what is set is not limited to the range. Default 0."""
    step: float
    """What one step adds or takes away. Default 10."""
    rulerVisible: bool
    """Free for scripts. Default True."""

    def __init__(self, parent: GameNode | None = None, x: float = 0, y: float = 0) -> None: ...
    def GetButton(self) -> GUI_Button:
        """Return `MidButton`: the thumb, a button to drag."""

    def GetRange(self) -> tuple[float, float]:
        """Return `minvalue` and `maxvalue`.

        `minvalue`: value at the beginning of the track.

        `maxvalue`: value at the end of the track.
        """

    def SetRange(self, minvalue: float, maxvalue: float) -> None:
        """Set `minvalue` and `maxvalue`.

        `minvalue`: value at the beginning of the track.

        `maxvalue`: value at the end of the track.
        """

    def GetValue(self) -> float:
        """Return `currvalue`: the value; what is set is not limited to the range."""

    def SetValue(self, value: float) -> None:
        """Set `currvalue`: the value; what is set is not limited to the range."""

    def GetStep(self) -> float:
        """Return `step`: what one step adds or takes away."""

    def SetStep(self, step: float) -> None:
        """Set `step`: what one step adds or takes away."""

    def UpBtnPickDownFunction(self, node: GameNode | None = None) -> None:
        """Take a step back, to `minvalue` at most."""

    def MidBtnPickDownFunction(self, node: GameNode | None = None) -> None:
        """Let the thumb follow the pointer until a release."""

    def DownBtnPickDownFunction(self, node: GameNode | None = None) -> None:
        """Take a step on, to `maxvalue` at most."""

    def OnPickDownFunction(self, x: float, y: float) -> GameNode | None:
        """Handle a press as a node does; a disabled widget takes none."""

    def OnPickUpFunction(self, px: float, py: float) -> GameNode | None:
        """End the drag of the thumb, handle the release as a node does and call `PickUpFunction`.

        A hidden or disabled bar does nothing.
        """

    def draw(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Follow the pointer during a drag, place the thumb and draw the bar and its buttons.

        Raises ZeroDivisionError when the ends of the range are equal.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

@_disjoint_base
class GUI_HScrollBar(GUI_Image):
    """A horizontal scroll bar: a value that goes in steps and a thumb to drag.

    `x` and `y` place the anchor in the parent, in pixels; a new bar has 120 x 20 and the range
    0 to 100. Set `PickUpFunction` to learn of a new value.

    >>> bar = Tessora.GUI_HScrollBar(None, 10, 20)
    >>> bar.SetRange(0, 40)
    """

    LeftButton: GUI_Button
    """Button that takes a step back."""
    MidButton: GUI_Button
    """The thumb, a button to drag."""
    MidButtonPicked: bool
    """Whether the thumb follows the pointer. Default False."""
    RightButton: GUI_Button
    """Button that takes a step on."""
    minvalue: float
    """Value at the beginning of the track. Default 0."""
    maxvalue: float
    """Value at the end of the track. Default 100."""
    currvalue: float
    """The value; what is set is not limited to the range. Default 0."""
    step: float
    """What one step adds or takes away. Default 10."""
    rulerVisible: bool
    """Free for scripts. Default True."""

    def __init__(self, parent: GameNode | None = None, x: float = 0, y: float = 0) -> None: ...
    def GetButton(self) -> GUI_Button:
        """Return `MidButton`: the thumb, a button to drag."""

    def GetRange(self) -> tuple[float, float]:
        """Return `minvalue` and `maxvalue`.

        `minvalue`: value at the beginning of the track.

        `maxvalue`: value at the end of the track.
        """

    def SetRange(self, minvalue: float, maxvalue: float) -> None:
        """Set `minvalue` and `maxvalue`.

        `minvalue`: value at the beginning of the track.

        `maxvalue`: value at the end of the track.
        """

    def GetValue(self) -> float:
        """Return `currvalue`: the value; what is set is not limited to the range."""

    def SetValue(self, value: float) -> None:
        """Set `currvalue`: the value; what is set is not limited to the range."""

    def GetStep(self) -> float:
        """Return `step`: what one step adds or takes away."""

    def SetStep(self, step: float) -> None:
        """Set `step`: what one step adds or takes away."""

    def LeftBtnPickDownFunction(self, node: GameNode | None = None) -> None:
        """Take a step back, to `minvalue` at most."""

    def MidBtnPickDownFunction(self, node: GameNode | None = None) -> None:
        """Let the thumb follow the pointer until a release."""

    def RightBtnPickDownFunction(self, node: GameNode | None = None) -> None:
        """Take a step on, to `maxvalue` at most."""

    def OnPickDownFunction(self, x: float, y: float) -> GameNode | None:
        """Handle a press as a node does; a disabled widget takes none."""

    def OnPickUpFunction(self, px: float, py: float) -> GameNode | None:
        """End the drag of the thumb, handle the release as a node does and call `PickUpFunction`.

        A hidden or disabled bar does nothing.
        """

    def draw(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Follow the pointer during a drag, place the thumb and draw the bar and its buttons.

        Raises ZeroDivisionError when the ends of the range are equal.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

@_disjoint_base
class GUI_ListBox(GUI_Image):
    """A vertical list of lines, one of which is selected by click, by "up" and "down" or by
    SetSelectedIndex.

    `x` and `y` place the anchor in the parent, in pixels; a new list has 120 x 100. Whole lines
    are shown; a scroll bar brings the others into view.

    >>> levels = Tessora.GUI_ListBox(None, 10, 20)
    >>> line = levels.AddTextLine("Easy")
    >>> levels.SetSelectedIndex(0)
    """

    lineArray: list[GUI_CheckButton]
    """The lines from the top. Default []."""
    lineCount: int
    """Number of lines. Default 0."""
    selectedIndex: int
    """The selected line, counted from 0; -1 for none. Default -1."""
    lineHeight: float
    """Height of a line in pixels. Default 20."""
    linegap: float
    """Distance between lines in pixels. Default 2."""
    showlineCount: int
    """Number of lines that fit into the height."""
    lineIndex: int
    """First line that is shown, counted from 0. Default 0."""
    itemBGColor: pygame.Color
    """Background of the lines that are not selected. Default (255, 255, 255, 255)."""
    textColor: pygame.Color
    """Colour of the texts of lines that are not selected. Default (0, 0, 0, 255)."""
    HAlign: str
    """Horizontal alignment of the texts: "left", "center" or "right". Default "left"."""
    VAlign: str
    """Vertical alignment of the texts: "top", "center" or "bottom". Default "center"."""
    font: pygame.font.Font
    """pygame.font.Font that renders the text."""
    fontname: str
    """Name of the system font, or of the font's file. Default "Arial"."""
    fontsize: int
    """Size of the font in pixels. Default 16."""
    fontbold: bool
    """Whether the font was made bold. Default False."""
    fontitalic: bool
    """Whether the font was made italic. Default False."""
    fontunderline: bool
    """Whether the font was made to underline. Default False."""
    strikethrough: bool
    """Whether the font was made to strike through. Default False."""
    VScrollBar: GUI_VScrollBar
    """The scroll bar, whose value is the first line shown."""
    VScrollBarVisible: bool
    """Whether the scroll bar shows when not all lines fit. Default True."""

    def __init__(self, parent: GameNode | None = None, x: float = 0, y: float = 0) -> None: ...
    def GetSelectedIndex(self) -> int:
        """Return `selectedIndex`: the selected line, counted from 0; -1 for none."""

    def GetLineHeight(self) -> float:
        """Return `lineHeight`: height of a line in pixels."""

    def GetLineGap(self) -> float:
        """Return `linegap`: distance between lines in pixels."""

    def GetItemBGColor(self) -> pygame.Color:
        """Return `itemBGColor`: background of the lines that are not selected."""

    def GetTextColor(self) -> pygame.Color:
        """Return `textColor`: colour of the texts of lines that are not selected."""

    def GetTextHAlign(self) -> str:
        """Return `HAlign`: horizontal alignment of the texts: "left", "center" or "right"."""

    def GetTextVAlign(self) -> str:
        """Return `VAlign`: vertical alignment of the texts: "top", "center" or "bottom"."""

    def GetFont(self) -> pygame.font.Font:
        """Return `font`: pygame.font.Font that renders the text."""

    def GetFontName(self) -> str:
        """Return `fontname`: name of the system font, or of the font's file."""

    def GetFontSize(self) -> int:
        """Return `fontsize`: size of the font in pixels."""

    def GetFontBold(self) -> bool:
        """Return `fontbold`: whether the font was made bold."""

    def GetFontItalic(self) -> bool:
        """Return `fontitalic`: whether the font was made italic."""

    def GetFontUnderline(self) -> bool:
        """Return `fontunderline`: whether the font was made to underline."""

    def GetFontStrikeThrough(self) -> bool:
        """Return `strikethrough`: whether the font was made to strike through."""

    def GetVScrollBarVisible(self) -> bool:
        """Return `VScrollBarVisible`: whether the scroll bar shows when not all lines fit."""

    def SetVScrollBarVisible(self, flag: bool) -> None:
        """Set `VScrollBarVisible`: whether the scroll bar shows when not all lines fit."""

    def AddLine(self, text: str = "", imagefiles: _ImageFiles = None) -> GUI_CheckButton:
        """Append a line of text, with a picture unless `imagefiles` is None; return it."""

    def AddTextLine(self, text: str) -> GUI_CheckButton:
        """Append a line of text and return it."""

    def AddImageLine(self, imagefiles: _ImageFiles, switchdelay: float = 0.1) -> GUI_CheckButton:
        """Append a line that shows a picture, in the picture's size; return it."""

    def GetLineControl(self, index: int) -> GUI_CheckButton:
        """Return the widget of a line; IndexError when there is no such line."""

    def SetItemBGColor(self, r: int, g: int, b: int, a: int = 255) -> None:
        """Set `itemBGColor`: background of the lines that are not selected, a little darker under
        the pointer and while pressed; components from 0 to 255.
        """

    def SetTextColor(self, r: int, g: int, b: int, a: int = 255) -> None:
        """Set `textColor`: colour of the texts of lines that are not selected; components from 0
        to 255.
        """

    def SetTextHAlign(self, align: str) -> None:
        """Set `HAlign`, for all lines: "left", "center", "right"."""

    def SetTextVAlign(self, align: str) -> None:
        """Set `VAlign`, for all lines: "top", "center", "bottom"."""

    def CreateFont(
        self,
        fontname: str,
        fontsize: int,
        bold: bool = False,
        italic: bool = False,
        underline: bool = False,
        strikethrough: bool = False,
    ) -> None:
        """Make and use a system font or, with ".ttf" or ".otf" in the name, a font file of the
        resources.

        `fontsize` is in pixels. Raises AttributeError when `Res` is not set or does not find
        the file.
        """

    def SetFont(self, font: pygame.font.Font, fontname: str) -> None:
        """Use a ready font; its size and flags are not read.

        A font that is made bold, italic, underlined or struck through later shows at once.
        After its set_script() or set_direction(), which cannot be read back, hand it over
        again.
        """

    def SetLineHeight(self, height: float) -> None:
        """Set `lineHeight`, for all lines, in pixels."""

    def SetHeight(self, height: float) -> None:
        """Set `height` in pixels and count the lines that fit."""

    def SetWidth(self, width: float) -> None:
        """Set `width` in pixels."""

    def SetLineGap(self, gap: float) -> None:
        """Set `linegap`: distance between lines in pixels."""

    def SetSelectedIndex(self, index: int) -> None:
        """Select a line, counted from 0, and show it; an index without a line selects none."""

    def GetSelectedText(self) -> str:
        """Return the text of the selected line, "" without one."""

    def ClickItemFunction(self, item: GUI_CheckButton) -> None:
        """Select a line, and no other; called with the line that is clicked."""

    def OnPickDownFunction(self, px: float, py: float) -> GameNode | None:
        """Handle a press as a node does, but inside its rectangle only; a disabled list takes
        none.
        """

    def OnPickUpFunction(self, px: float, py: float) -> GameNode | None:
        """Handle a release as a node does; `PickUpFunction` is called for one over a line, too."""

    def OnKeyDownFunction(self, keyname: Hashable) -> None:
        """Select the next line on "down" and the previous one on "up", unless the list is hidden
        or disabled; then run what is registered for the key.
        """

    def draw_children(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the lines, cut at the edges of the list, and over them the border."""

    def draw(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Place the lines and draw the picture or background, the lines, border and overlays.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

@_disjoint_base
class GUI_ComboBox(GUI_Image):
    """An edit and a list to choose its text from.

    `x` and `y` place the anchor in the parent, in pixels. The button opens and closes the list.
    Give a layer its combo boxes last: an open list is drawn over what the layer draws before
    it.

    >>> levels = Tessora.GUI_ComboBox(None, 10, 20)
    >>> line = levels.AddTextLine("Easy")
    >>> levels.Edit.SetText("Easy")
    """

    Edit: GUI_Edit
    """Edit with the text that was chosen."""
    Button: GUI_Button
    """Button that opens and closes the list."""
    DropList: GUI_ListBox
    """The list; it is closed while it is hidden."""

    def __init__(self, parent: GameNode | None = None, x: float = 0, y: float = 0) -> None: ...
    def AddLine(self, text: str = "", imagefiles: _ImageFiles = None) -> GUI_CheckButton:
        """Append a line to the list and return it; see GUI_ListBox.AddLine."""

    def AddTextLine(self, text: str) -> GUI_CheckButton:
        """Append a line of text to the list; return it."""

    def AddImageLine(self, imagefiles: _ImageFiles, switchdelay: float = 0.1) -> GUI_CheckButton:
        """Append a line that shows a picture to the list and return it."""

    def GetSelectedIndex(self) -> int:
        """Return the selected line of the list, -1 for none."""

    def SetSelectedIndex(self, index: int) -> None:
        """Select a line of the list. The text of the edit stays as it is."""

    def GetTextColor(self) -> pygame.Color:
        """Return the colour of the edit's text."""

    def SetItemBGColor(self, r: int, g: int, b: int, a: int = 255) -> None:
        """Set the background of the lines; components from 0 to 255."""

    def GetItemBGColor(self) -> pygame.Color:
        """Return the background of the lines."""

    def GetLineGap(self) -> float:
        """Return the distance between lines in pixels."""

    def SetLineGap(self, gap: float) -> None:
        """Set the distance between lines in pixels."""

    def GetLineHeight(self) -> float:
        """Return the height of a line in pixels."""

    def SetLineHeight(self, height: float) -> None:
        """Set the height of a line in pixels."""

    def GetVScrollBarVisible(self) -> bool:
        """Return whether the list shows a scroll bar when not all lines fit."""

    def SetVScrollBarVisible(self, flag: bool) -> None:
        """Let the list show a scroll bar when not all lines fit, or not."""

    def GetFont(self) -> pygame.font.Font:
        """Return the font of the edit."""

    def GetFontName(self) -> str:
        """Return the name of the edit's font."""

    def GetFontSize(self) -> int:
        """Return the size of the edit's font in pixels."""

    def GetFontBold(self) -> bool:
        """Return whether the edit's font was made bold."""

    def GetFontItalic(self) -> bool:
        """Return whether the edit's font was made italic."""

    def GetFontUnderline(self) -> bool:
        """Return whether the edit's font was made to underline."""

    def GetFontStrikeThrough(self) -> bool:
        """Return whether the edit's font was made to strike through."""

    def SetWidth(self, w: float) -> None:
        """Set `width` in pixels, for the edit and the list, too."""

    def SetHeight(self, h: float) -> None:
        """Set `height` in pixels, that of the edit and the open list."""

    def SetTextColor(self, r: int, g: int, b: int, a: int = 255) -> None:
        """Set the colour of the edit's text and of the lines; components from 0 to 255."""

    def CreateFont(
        self,
        fontname: str,
        fontsize: int,
        bold: bool = False,
        italic: bool = False,
        underline: bool = False,
        strikethrough: bool = False,
    ) -> None:
        """Make and use a system font or, with ".ttf" or ".otf" in the name, a font file of the
        resources.

        `fontsize` is in pixels. Raises AttributeError when `Res` is not set or does not find
        the file.
        """

    def SetFont(self, font: pygame.font.Font, fontname: str) -> None:
        """Use a ready font; its size and flags are not read.

        A font that is made bold, italic, underlined or struck through later shows at once.
        After its set_script() or set_direction(), which cannot be read back, hand it over
        again.
        """

    def ClickBtnFunction(self, node: GameNode | None = None) -> None:
        """Open or close the list; called when the button is clicked."""

    def PickDropListFunction(self, node: GameNode | None = None) -> None:
        """Put the text of the selected line into the edit and close the list; called when a line
        is clicked.
        """

    def OnPickDownFunction(self, px: float, py: float) -> GameNode | None:
        """Handle a press as a node does. One elsewhere closes the list and takes the focus from
        the edit; a disabled combo box does nothing.
        """

    def OnPickUpFunction(self, x: float, y: float) -> GameNode | None:
        """Handle a release as a node does; a disabled combo box neither opens nor chooses."""

    def OnKeyDownFunction(self, key: Hashable) -> None:
        """Run what is registered for the key; then it goes to the list while that is open, and to
        the edit while that has the focus. In an open list "up" and "down" select and "return"
        takes the selection over; these are not typed.
        """

    def draw(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the edit, the button and the open list, without a background.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

@_disjoint_base
class GUI_HProgressBar(GUI_Label):
    """A value in a range as a bar that fills from the left.

    The arguments are those of a label; a new bar has 100 x 20 pixels and the range 0 to 100.

    >>> life = Tessora.GUI_HProgressBar(None, 10, 20)
    >>> life.SetValue(75)
    """

    ProgressImage: GUI_Label
    """The fill."""
    PositionImage: GUI_Label
    """The marker at the end of the fill."""
    minvalue: float
    """Value of an empty bar. Default 0."""
    maxvalue: float
    """Value of a full bar. Default 100."""
    currvalue: float
    """The value; what is set is not limited to the range. Default 50."""

    def __init__(
        self,
        parent: GameNode | None = None,
        x: float = 0,
        y: float = 0,
        text: str = "",
        fontname: str = "Arial",
        fontsize: int = 16,
    ) -> None: ...
    def GetProgressImage(self) -> GUI_Label:
        """Return `ProgressImage`: the fill."""

    def GetPositionImages(self) -> GUI_Label:
        """Return `PositionImage`: the marker at the end of the fill."""

    def GetRange(self) -> tuple[float, float]:
        """Return `minvalue` and `maxvalue`.

        `minvalue`: value of an empty bar.

        `maxvalue`: value of a full bar.
        """

    def SetRange(self, minvalue: float, maxvalue: float) -> None:
        """Set `minvalue` and `maxvalue`.

        `minvalue`: value of an empty bar.

        `maxvalue`: value of a full bar.
        """

    def GetValue(self) -> float:
        """Return `currvalue`: the value; what is set is not limited to the range."""

    def SetValue(self, value: float) -> None:
        """Set `currvalue`: the value; what is set is not limited to the range."""

    def SetProgressImages(self, imagefiles: _ImageFiles, switchdelay: float = 0.1) -> None:
        """Draw the fill as a picture, stretched to its size; see GUI_Image.SetImage."""

    def SetProgressImageVisible(self, flag: bool) -> None:
        """Show or hide the fill."""

    def SetPositionImages(self, imagefiles: _ImageFiles, switchdelay: float = 0.1) -> None:
        """Draw the marker as a picture, stretched to its size; see GUI_Image.SetImage."""

    def SetPositionImageVisible(self, flag: bool) -> None:
        """Show or hide the marker."""

    def draw(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the bar with the fill for its value.

        Raises ZeroDivisionError when the ends of the range are equal.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

@_disjoint_base
class GUI_VProgressBar(GUI_Label):
    """A value in a range as a bar that fills from the top.

    The arguments are those of a label; a new bar has 20 x 100 pixels and the range 0 to 100.

    >>> depth = Tessora.GUI_VProgressBar(None, 10, 20)
    >>> depth.SetValue(75)
    """

    ProgressImage: GUI_Label
    """The fill."""
    PositionImage: GUI_Label
    """The marker at the end of the fill."""
    minvalue: float
    """Value of an empty bar. Default 0."""
    maxvalue: float
    """Value of a full bar. Default 100."""
    currvalue: float
    """The value; what is set is not limited to the range. Default 50."""

    def __init__(
        self,
        parent: GameNode | None = None,
        x: float = 0,
        y: float = 0,
        text: str = "",
        fontname: str = "Arial",
        fontsize: int = 16,
    ) -> None: ...
    def GetProgressImage(self) -> GUI_Label:
        """Return `ProgressImage`: the fill."""

    def GetPositionImages(self) -> GUI_Label:
        """Return `PositionImage`: the marker at the end of the fill."""

    def GetRange(self) -> tuple[float, float]:
        """Return `minvalue` and `maxvalue`.

        `minvalue`: value of an empty bar.

        `maxvalue`: value of a full bar.
        """

    def SetRange(self, minvalue: float, maxvalue: float) -> None:
        """Set `minvalue` and `maxvalue`.

        `minvalue`: value of an empty bar.

        `maxvalue`: value of a full bar.
        """

    def GetValue(self) -> float:
        """Return `currvalue`: the value; what is set is not limited to the range."""

    def SetValue(self, value: float) -> None:
        """Set `currvalue`: the value; what is set is not limited to the range."""

    def SetProgressImages(self, imagefiles: _ImageFiles, switchdelay: float = 0.1) -> None:
        """Draw the fill as a picture, stretched to its size; see GUI_Image.SetImage."""

    def SetProgressImageVisible(self, flag: bool) -> None:
        """Show or hide the fill."""

    def SetPositionImages(self, imagefiles: _ImageFiles, switchdelay: float = 0.1) -> None:
        """Draw the marker as a picture, stretched to its size; see GUI_Image.SetImage."""

    def SetPositionImageVisible(self, flag: bool) -> None:
        """Show or hide the marker."""

    def draw(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the bar with the fill for its value.

        Raises ZeroDivisionError when the ends of the range are equal.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

@_disjoint_base
class GUI_MsgBox(GUI_Label):
    """A small dialog: a text, an OK button and a close button, both of which hide it.

    The arguments are those of a label; a new box has 160 x 100 pixels and is visible. The text
    is shown by the label `Title`. To learn of a button, override Button_6_onCommand.

    >>> box = Tessora.GUI_MsgBox(None, 80, 60, "Game saved")
    >>> box.SetVisible(True)
    """

    Title: GUI_Label
    """Label that shows the text."""
    OKButton: GUI_Button
    """The OK button, which hides the box."""
    CloseButton: GUI_Button
    """The close button, which hides the box."""

    def __init__(
        self,
        parent: GameNode | None = None,
        x: float = 0,
        y: float = 0,
        text: str = "",
        fontname: str = "Arial",
        fontsize: int = 16,
    ) -> None: ...
    def SetText(self, text: str) -> None:
        """Set the text that the box shows."""

    def OnLoad(self, sceneInstance: Any = None) -> None:
        """Store the scene and tell it to the whole subtree; None keeps the scene that is known."""

    def Button_6_onCommand(self, node: GameNode | None = None) -> None:
        """Hide the box; called with the button that is pressed."""

    def draw(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the box and its parts, which move with its scale.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

@_disjoint_base
class TreeItemNode:
    """An item of a GUI_Tree, with a text, any value and a picture; GUI_Tree.InsertItem makes one.

    >>> world = Tessora.TreeItemNode("World", 1)
    >>> world.AppendChildItem(Tessora.TreeItemNode("Level 1"))
    """

    itemText: str
    """The text that is shown."""
    itemValue: Any
    """Free for scripts."""
    itemImage: str | pygame.Surface | None
    """Picture in front of the text, or the name of its file, or None."""
    itemChildren: list[TreeItemNode]
    """The items below this one. Default []."""
    itemopen: bool
    """Whether the items below this one are shown. Default False."""

    def __init__(
        self,
        itemText: str = "",
        itemValue: Any = None,
        itemImage: str | pygame.Surface | None = None,
    ) -> None: ...
    def SetItemText(self, text: str) -> None:
        """Set `itemText`: the text that is shown."""

    def SetItemValue(self, value: Any) -> None:
        """Set `itemValue`: free for scripts."""

    def SetItemImage(self, image: str | pygame.Surface | None) -> None:
        """Set `itemImage`: picture in front of the text, or the name of its file, or None."""

    def AppendChildItem(self, item: TreeItemNode) -> None:
        """Add an item below this one, behind the others."""

    def InsertChildItem(self, index: int, item: TreeItemNode) -> None:
        """Insert an item below this one, as list.insert does."""

    def ExpandChildItem(self) -> None:
        """Show the items below this one."""

    def CloseChildItem(self) -> None:
        """Hide the items below this one."""

    def LookForItemNode(self, itemText: str) -> TreeItemNode | None:
        """Return the first item with that text, this one or one below it, depth first.

        Raises RecursionError when an item is its own descendant.
        """

    def draw(self, screen: pygame.Surface, tree: GUI_Tree, x: float, y: float) -> float:
        """Draw the item and, while it is open, those below it, with the font, the colours and the
        scale of the tree.

        `x` and `y` are the corner of its row in pixels of the surface. Returns the `y` of the
        next row. Raises RecursionError when an open item is its own descendant.
        """

@_disjoint_base
class GUI_Tree(GUI_Image):
    """A hierarchy of TreeItemNode items, whose boxes open and close them.

    `x` and `y` place the anchor in the parent, in pixels. The rows are drawn from the top left
    corner on, at any length; only a rotated tree cuts them at its edges.

    >>> tree = Tessora.GUI_Tree(None, 10, 20)
    >>> world = tree.InsertItem(None, "World")
    >>> level = tree.InsertItem("World", "Level 1")
    """

    RootItemNode: TreeItemNode | None
    """The item that holds all others, or None. Default None."""
    font: pygame.font.Font
    """pygame.font.Font that renders the text."""
    fontname: str
    """Name of the system font, or of the font's file. Default "Arial"."""
    fontsize: int
    """Size of the font in pixels. Default 16."""
    fontbold: bool
    """Whether the font was made bold. Default False."""
    fontitalic: bool
    """Whether the font was made italic. Default False."""
    fontunderline: bool
    """Whether the font was made to underline. Default False."""
    strikethrough: bool
    """Whether the font was made to strike through. Default False."""
    textColor: pygame.Color
    """Colour of the texts. Default (0, 0, 0, 255)."""

    def __init__(self, parent: GameNode | None = None, x: float = 0, y: float = 0) -> None: ...
    def GetFont(self) -> pygame.font.Font:
        """Return `font`: pygame.font.Font that renders the text."""

    def GetFontName(self) -> str:
        """Return `fontname`: name of the system font, or of the font's file."""

    def GetFontSize(self) -> int:
        """Return `fontsize`: size of the font in pixels."""

    def GetFontBold(self) -> bool:
        """Return `fontbold`: whether the font was made bold."""

    def GetFontItalic(self) -> bool:
        """Return `fontitalic`: whether the font was made italic."""

    def GetFontUnderline(self) -> bool:
        """Return `fontunderline`: whether the font was made to underline."""

    def GetFontStrikeThrough(self) -> bool:
        """Return `strikethrough`: whether the font was made to strike through."""

    def GetTextColor(self) -> pygame.Color:
        """Return `textColor`: colour of the texts."""

    def SetTextColor(self, r: int, g: int, b: int, a: int = 255) -> None:
        """Set `textColor`: colour of the texts.

        Components are from 0 to 255; others raise ValueError.
        """

    def InsertItem(
        self,
        parentText: str | None,
        itemText: str,
        itemValue: Any = None,
        itemImage: str | pygame.Surface | None = None,
        index: int | None = None,
    ) -> TreeItemNode | None:
        """Make an item and put it below the first one whose text is `parentText`: at `index`, or
        behind the others.

        The first item of a tree becomes its root. Returns the item, or None when there is no
        such parent.
        """

    def OnPickDownFunction(self, x: float, y: float) -> GameNode | None:
        """Handle a press as a node does; one on the box of an item opens or closes it. A disabled
        tree takes none.
        """

    def CreateFont(
        self,
        fontname: str,
        fontsize: int,
        bold: bool = False,
        italic: bool = False,
        underline: bool = False,
        strikethrough: bool = False,
    ) -> None:
        """Make and use a system font or, with ".ttf" or ".otf" in the name, a font file of the
        resources.

        `fontsize` is in pixels. Raises AttributeError when `Res` is not set or does not find
        the file.
        """

    def SetFont(self, font: pygame.font.Font, fontname: str) -> None:
        """Use a ready font; its size and flags are not read.

        A font that is made bold, italic, underlined or struck through later shows at once.
        After its set_script() or set_direction(), which cannot be read back, hand it over
        again.
        """

    def draw(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the picture or background, the items, border, overlays and children.

        Raises RecursionError when an open item is its own descendant.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

@_disjoint_base
class GameCharacter(GUI_Image):
    """A figure of several parts that plays key-framed actions, with the state of a figure in a
    game.

    `x` and `y` place the anchor relative to the parent's top-left corner, in pixels. The parts
    of the action that is played are children of the character.

    >>> hero = Tessora.GameCharacter(None, 10, 20)
    >>> hero.AddActionFromImageList("run", ["run_0.png", "run_1.png"], 0.1)
    >>> hero.PlayAction("run", True)
    run_0.png load:1
    """

    ActionArray: dict[str, dict[int, dict[str, Any]]]
    """Actions by name: frame index to a dictionary of "ChangeMode" and "Parts" (part index to
    track name to value). Default {}.
    """
    ActionFpsDelayArray: dict[str, float]
    """Seconds per frame by the action's name. Default {}."""
    ActionLoop: bool
    """Whether the action starts again at its end. Default False."""
    ActionPlaying: bool
    """Whether frames advance. Default False."""
    currActionFrameIndex: int
    """Index of the frame that is shown. Default 0."""
    currActionFrameTime: float
    """Seconds that have gone towards the next frame. Default 0."""
    currActionEndframe: int
    """Index of the action's last frame. Default 0."""
    currActionEndCallBackFunction: Callable[..., Any] | None
    """Called when the action has run past its last frame, or None. Default None."""
    currActionEndCallBackParams: dict[str, Any] | None
    """Keyword arguments of that call, or None. Default None."""
    currOffsetX: float
    """Horizontal shift in pixels with which the character is drawn. Default 0."""
    currOffsetY: float
    """Vertical shift in pixels with which the character is drawn. Default 0."""
    imageDict: dict[int, GUI_Image]
    """Parts of the current action by their indexes. Default {}."""
    PickedPartObj: GUI_Image | None
    """Part that the last press hit, or None. Default None."""
    moveDir: list[float]
    """Requested direction [x, y], each from -1.0 to 1.0; scripts move the character by it. Default
    [0, 0].
    """
    dropSpeed: float
    """Vertical speed, negative while rising; scripts move the character by it. Default 0."""
    isJumping: bool
    """Whether a jump is in progress. Default False."""
    isPlayer: bool
    """Whether the character is the scene's player. Default False."""
    isDead: bool
    """Whether the character is dead; Dead sets it. Default False."""
    rectListVisible: bool
    """Whether the frame's collision rectangles are outlined. Default True."""
    UserFunctionDict: dict[str, Callable[..., Any]]
    """Functions of scripts by the names that key frames call. Default {}."""
    CharacterBindingVarArray: dict[str, Any]
    """Game variables: name to value. At first "life" is 100, "speed", "jumpspeed" and "gravity"
    are 0, and "check_block", "check_collision" and "check_eventrect" are False.
    """

    def __init__(self, parent: GameNode | None = None, x: float = 0, y: float = 0) -> None: ...
    def GetCurrFrameIndex(self) -> int:
        """Return `currActionFrameIndex`: index of the frame that is shown."""

    def SetCurrFrame(self, frameIndex: int) -> None:
        """Set `currActionFrameIndex`: index of the frame that is shown."""

    def GetPickedPartObj(self) -> GUI_Image | None:
        """Return `PickedPartObj`: part that the last press hit, or None."""

    def GetDropSpeed(self) -> float:
        """Return `dropSpeed`: vertical speed, negative while rising; scripts move the character by
        it.
        """

    def IsJumpState(self) -> bool:
        """Return `isJumping`: whether a jump is in progress."""

    def IsPlayer(self) -> bool:
        """Return `isPlayer`: whether the character is the scene's player."""

    def IsDead(self) -> bool:
        """Return `isDead`: whether the character is dead; Dead sets it."""

    def SetRectListVisible(self, flag: bool) -> None:
        """Set `rectListVisible`: whether the frame's collision rectangles are outlined."""

    def AddAction(self, actionName: str, fpsdelay: float = 0.3) -> None:
        """Add an action without key frames, played at `fpsdelay` seconds per frame.

        An action of that name keeps its key frames.
        """

    def AddActionFromImageList(
        self, actionName: str, imageList: _ImageFiles, fpsdelay: float = 0.3
    ) -> None:
        """Add an action of one part that shows the images one after another.

        `imageList` holds file names or surfaces, one for each frame; it replaces an action of
        that name. `fpsdelay` is in seconds per frame.
        """

    def DelAction(self, actionName: str) -> None:
        """Delete an action, ending it if it is played. An unknown name is ignored."""

    def CleanUpAction(self) -> None:
        """Delete all actions, ending the one that is played, and forget their images."""

    def GetActionCount(self) -> int:
        """Return the number of actions."""

    def GetActionName(self, index: int) -> str:
        """Return the name of an action by its place, counted from 0.

        Raises IndexError for an unknown one.
        """

    def GetActionNameList(self) -> list[str]:
        """Return a new list of the actions' names."""

    def GetActionInfo(self, actionName: str) -> dict[str, Any]:
        """Return a new dictionary about an action: "fpsdelay" (seconds per frame), "endframe",
        "keyframes" and "parts" (sorted lists of indexes).

        Raises KeyError for an unknown one.
        """

    def SetActionSpeed(self, actionName: str, fpsdelay: float = 0.3) -> None:
        """Set the time that each frame of the action lasts, in seconds."""

    def GetActionSpeed(self, actionName: str) -> float:
        """Return the seconds per frame of the action.

        Raises KeyError for an unknown one.
        """

    def GetEndFrame(self, actionName: str) -> int:
        """Return the action's last key frame, 0 for one without key frames.

        Raises KeyError for an unknown action.
        """

    def AddKeyFrame(self, actionName: str, frameIndex: int, changeMode: int = 0) -> None:
        """Make a frame a key frame; one that is so already keeps its values.

        `changeMode` is how values pass on to the next key frame: with 1 position, scale,
        rotation and colour change linearly, else they stay. KeyError for an unknown action.
        """

    def DelKeyFrame(self, actionName: str, frameIndex: int) -> None:
        """Delete a key frame; what is none is ignored."""

    def IsKeyFrame(self, actionName: str | None, frameIndex: int) -> bool:
        """Return whether the frame is a key frame of the action."""

    def GetLastKeyFrame(self, actionName: str, frameIndex: int) -> int | None:
        """Return the nearest key frame before the frame, or None; KeyError for an unknown action."""

    def GetNextKeyFrame(self, actionName: str, frameIndex: int) -> int | None:
        """Return the nearest key frame after the frame, or None; KeyError for an unknown action."""

    def SetKeyFrame_ChangeMode(self, actionName: str, frameIndex: int, changeMode: int) -> None:
        """Set how values pass on to the next key frame; see AddKeyFrame.

        A frame that is no key frame becomes one. KeyError for an unknown action.
        """

    def GetKeyFrame_ChangeMode(self, actionName: str | None, frameIndex: int) -> int | None:
        """Return how values pass on to the next key frame, None for what is no key frame."""

    def DelKeyFrame_Image(self, actionName: str, frameIndex: int, partIndex: int = 0) -> None:
        """Delete the picture that a key frame gives a part, if there is one."""

    def SetKeyFrame_Image(
        self, actionName: str, frameIndex: int, value: _ImageFiles | None, partIndex: int = 0
    ) -> None:
        """Set what a key frame says of a part: the picture, as SetImage takes it or the name of a
        frame of an atlas.

        `value` None means nothing, `partIndex` counts the parts from 0. A frame that is no key
        frame becomes one. Raises KeyError for an unknown action.
        """

    def GetKeyFrame_Image(
        self, actionName: str | None, frameIndex: int, partIndex: int = 0
    ) -> _ImageFiles | None:
        """Return what a key frame says of a part: the picture, as SetImage takes it or the name of
        a frame of an atlas.

        None if it says nothing, and where there is no such action or key frame.
        """

    def SetKeyFrame_Blend(
        self, actionName: str, frameIndex: int, value: str | None, partIndex: int = 0
    ) -> None:
        """Set what a key frame says of a part: the blend mode, as SetBlendType takes it.

        `value` None means nothing, `partIndex` counts the parts from 0. A frame that is no key
        frame becomes one. Raises KeyError for an unknown action.
        """

    def GetKeyFrame_Blend(
        self, actionName: str | None, frameIndex: int, partIndex: int = 0
    ) -> str | None:
        """Return what a key frame says of a part: the blend mode, as SetBlendType takes it.

        None if it says nothing, and where there is no such action or key frame.
        """

    def SetKeyFrame_Anchor(
        self, actionName: str, frameIndex: int, value: str | None, partIndex: int = 0
    ) -> None:
        """Set what a key frame says of a part: the anchor's keyword, as SetImageAnchor takes it.

        `value` None means nothing, `partIndex` counts the parts from 0. A frame that is no key
        frame becomes one. Raises KeyError for an unknown action.
        """

    def GetKeyFrame_Anchor(
        self, actionName: str | None, frameIndex: int, partIndex: int = 0
    ) -> str | None:
        """Return what a key frame says of a part: the anchor's keyword, as SetImageAnchor takes
        it.

        None if it says nothing, and where there is no such action or key frame.
        """

    def SetKeyFrame_Position(
        self, actionName: str, frameIndex: int, value: Sequence[float] | None, partIndex: int = 0
    ) -> None:
        """Set what a key frame says of a part: the place (x, y) in the character, pixels.

        `value` None means nothing, `partIndex` counts the parts from 0. A frame that is no key
        frame becomes one. Raises KeyError for an unknown action.
        """

    def GetKeyFrame_Position(
        self, actionName: str | None, frameIndex: int, partIndex: int = 0
    ) -> Sequence[float] | None:
        """Return what a key frame says of a part: the place (x, y) in the character, pixels.

        None if it says nothing, and where there is no such action or key frame.
        """

    def SetKeyFrame_Scale(
        self, actionName: str, frameIndex: int, value: Sequence[float] | None, partIndex: int = 0
    ) -> None:
        """Set what a key frame says of a part: the scale factors (sx, sy).

        `value` None means nothing, `partIndex` counts the parts from 0. A frame that is no key
        frame becomes one. Raises KeyError for an unknown action.
        """

    def GetKeyFrame_Scale(
        self, actionName: str | None, frameIndex: int, partIndex: int = 0
    ) -> Sequence[float] | None:
        """Return what a key frame says of a part: the scale factors (sx, sy).

        None if it says nothing, and where there is no such action or key frame.
        """

    def SetKeyFrame_Rotate(
        self, actionName: str, frameIndex: int, value: float | None, partIndex: int = 0
    ) -> None:
        """Set what a key frame says of a part: the rotation in degrees, counter-clockwise.

        `value` None means nothing, `partIndex` counts the parts from 0. A frame that is no key
        frame becomes one. Raises KeyError for an unknown action.
        """

    def GetKeyFrame_Rotate(
        self, actionName: str | None, frameIndex: int, partIndex: int = 0
    ) -> float | None:
        """Return what a key frame says of a part: the rotation in degrees, counter-clockwise.

        None if it says nothing, and where there is no such action or key frame.
        """

    def SetKeyFrame_Color(
        self, actionName: str, frameIndex: int, value: _ColorValue | None, partIndex: int = 0
    ) -> None:
        """Set what a key frame says of a part: the tint (r, g, b) or (r, g, b, a), 0 to 255 each.

        `value` None means nothing, `partIndex` counts the parts from 0. A frame that is no key
        frame becomes one. Raises KeyError for an unknown action.
        """

    def GetKeyFrame_Color(
        self, actionName: str | None, frameIndex: int, partIndex: int = 0
    ) -> _ColorValue | None:
        """Return what a key frame says of a part: the tint (r, g, b) or (r, g, b, a), 0 to 255
        each.

        None if it says nothing, and where there is no such action or key frame.
        """

    def SetKeyFrame_Sound(
        self, actionName: str, frameIndex: int, value: str | None, partIndex: int = 0
    ) -> None:
        """Set what a key frame says of a part: the sound file that `Res` plays when the frame is
        entered.

        `value` None means nothing, `partIndex` counts the parts from 0. A frame that is no key
        frame becomes one. Raises KeyError for an unknown action.
        """

    def GetKeyFrame_Sound(
        self, actionName: str | None, frameIndex: int, partIndex: int = 0
    ) -> str | None:
        """Return what a key frame says of a part: the sound file that `Res` plays when the frame
        is entered.

        None if it says nothing, and where there is no such action or key frame.
        """

    def SetKeyFrame_CBFunction(
        self,
        actionName: str,
        frameIndex: int,
        value: Callable[[GameCharacter], Any] | str | None,
        partIndex: int = 0,
    ) -> None:
        """Set what a key frame says of a part: what is called with the character when the frame is
        entered: a function, the name of one in `UserFunctionDict`, or what follows "on_" in the
        name of a method of the scene.

        `value` None means nothing, `partIndex` counts the parts from 0. A frame that is no key
        frame becomes one. Raises KeyError for an unknown action.
        """

    def GetKeyFrame_CBFunction(
        self, actionName: str | None, frameIndex: int, partIndex: int = 0
    ) -> Callable[[GameCharacter], Any] | str | None:
        """Return what a key frame says of a part: what is called with the character when the frame
        is entered: a function, the name of one in `UserFunctionDict`, or what follows "on_" in
        the name of a method of the scene.

        None if it says nothing, and where there is no such action or key frame.
        """

    def SetKeyFrame_RectList(
        self,
        actionName: str,
        frameIndex: int,
        value: Sequence[_RectValue] | None,
        partIndex: int = 0,
    ) -> None:
        """Set what a key frame says of a part: collision rectangles, unscaled pixels from the
        character's top-left corner, until another key frame sets them.

        `value` None means nothing, `partIndex` counts the parts from 0. A frame that is no key
        frame becomes one. Raises KeyError for an unknown action.
        """

    def GetKeyFrame_RectList(
        self, actionName: str | None, frameIndex: int, partIndex: int = 0
    ) -> Sequence[_RectValue] | None:
        """Return what a key frame says of a part: collision rectangles, unscaled pixels from the
        character's top-left corner, until another key frame sets them.

        None if it says nothing, and where there is no such action or key frame.
        """

    def SetKeyFrame_TileBlock(
        self, actionName: str, frameIndex: int, value: Any | None, partIndex: int = 0
    ) -> None:
        """Set what a key frame says of a part: what a tile map makes of the frame.

        `value` None means nothing, `partIndex` counts the parts from 0. A frame that is no key
        frame becomes one. Raises KeyError for an unknown action.
        """

    def GetKeyFrame_TileBlock(
        self, actionName: str | None, frameIndex: int, partIndex: int = 0
    ) -> Any | None:
        """Return what a key frame says of a part: what a tile map makes of the frame.

        None if it says nothing, and where there is no such action or key frame.
        """

    def PlayAction(
        self,
        actionName: str,
        isLoop: bool = False,
        callbackfun: Callable[..., Any] | None = None,
        **params: Any,
    ) -> None:
        """Play an action from its first frame; an unknown name is ignored.

        Its parts become children in place of those of the action before, with the first key
        frame's pictures; the other values come with the first update. `callbackfun` is called
        with the keyword arguments each time when the last frame has passed; it may start
        another action.
        """

    def StopAction(self) -> None:
        """Stop advancing frames; the current frame stays."""

    def update(self, delay: float) -> None:
        """Advance the node and its parts by `delay` seconds and the action by at most one frame.

        Sounds, callbacks and pictures of a key frame take effect when it is entered, its other
        values on every update while it lasts.
        """

    def updateFrames(self, frameIndex: int) -> None:
        """Apply a frame of the current action: all that a key frame says, or what lies between two
        key frames of change mode 1.
        """

    def draw(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the character's own picture if it has one, overlays, the parts, and the frame's
        collision rectangles.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

    def drawList(self, screen: pygame.Surface) -> None:
        """Outline the frame's collision rectangles while `rectListVisible` is true."""

    def SetFlipX(self, flag: bool) -> None:
        """Mirror the pictures of the parts left to right, in their places."""

    def SetFlipY(self, flag: bool) -> None:
        """Mirror the pictures of the parts upside down, in their places."""

    def SetImageAnchor(self, anchor: str) -> None:
        """Set the anchor of the character and of its parts by keyword, as for an image."""

    def CopyTo(self, other: GameNode) -> None:
        """Copy the image part and, into a character, actions, state and game variables; it then
        shows parts of its own. It does not become the player.
        """

    def OnPickDownFunction(self, x: float, y: float) -> GameNode | None:
        """Handle a press at screen position `x`, `y` in pixels, as every node does; a press on a
        part is one on the character.

        `PickedPartObj` becomes the part hit, or None. Returns the node that took the press, or
        None.
        """

    def GetPickedPartObjIndex(self) -> int:
        """Return the index of the part hit by the last press, -1 without one."""

    def GetSizeRect(self) -> pygame.Rect:
        """Return a new pygame.Rect around the frame's collision rectangles, without these around
        the parts, and without parts the node's own.

        At GetWX(), GetWY() in the drawn size.
        """

    def checkCollision(self, gameNode: GameNode, moveX: float = 0, moveY: float = 0) -> bool:
        """Return whether one of the frame's collision rectangles, or the size rectangle without
        these, collides with the other node's when that is moved, in pixels.
        """

    def checkEventRectCollision(
        self, objrect: _RectValue, moveX: float = 0, moveY: float = 0
    ) -> bool:
        """Return whether one of the frame's collision rectangles, or the size rectangle without
        these, collides with a moved copy of `objrect`.
        """

    def SetPlayer(self) -> None:
        """Make the character the player and tell it to the scene's SetPlayer(), if there is a
        scene.

        Raises AttributeError when the scene has no such method.
        """

    def UnsetPlayer(self) -> None:
        """Make the character no player and call the scene's SetPlayer(None), if there is a scene.

        Raises AttributeError when the scene has no such method.
        """

    def Dead(self) -> None:
        """Set `isDead` to True; what follows from it is the script's."""

    def IsUpState(self) -> bool:
        """Return whether the character rises: `dropSpeed` is negative."""

    def Jump(self, jumpspeed: float | None = None) -> None:
        """Start a jump: `dropSpeed` becomes `jumpspeed`, by default the game variable of that
        name, whose sign is kept.

        Raises KeyError when there is no such variable.
        """

    def StopJump(self) -> None:
        """End the jump and set `dropSpeed` to 0."""

    def StopMove(self) -> None:
        """Set `moveDir` to a new list [0, 0]."""

    def Move_Right(self) -> None:
        """Set the horizontal direction in `moveDir` to 1.0."""

    def Move_Left(self) -> None:
        """Set the horizontal direction in `moveDir` to -1.0."""

    def Move_Down(self) -> None:
        """Set the vertical direction in `moveDir` to 1.0."""

    def Move_Up(self) -> None:
        """Set the vertical direction in `moveDir` to -1.0."""

    def isMoveState(self) -> bool:
        """Return whether a direction in `moveDir` is not 0."""

    def SaveToFile(self, fileName: _File) -> None:
        """Write the character to a file, as JSON, whole or not at all.

        The file is a dictionary: "format" is "Tessora character", "version" 1; "attributes"
        holds place, look, state, bindings, game variables and `userData` by the attributes'
        names; "flip" the two flags of SetFlipX and SetFlipY; "own_picture" whether `imagefiles`
        is a picture of the character itself; "actions" a list of dictionaries with "name" and
        "keyframes". A key frame has "frame" (its index), "ChangeMode" and "parts", a list of
        dictionaries with "part" (its index) and "tracks", the values by the names of the
        tracks.

        Numbers, texts, flags, None, lists and dictionaries with texts for keys are written as
        such. Other values are dictionaries of one entry: "$tuple" and its items, "$dict" and a
        list of pairs of key and value, "$color" [r, g, b, a], "$rect" [x, y, width, height],
        "$vector" [x, y]. Anything else cannot be written (TypeError), and no functions are:
        `PickDownFunction` and its like, `UserFunctionDict`, the function at an action's end,
        which LoadFromFile drops. `CBFunction` is written where it is a name.

        Errors name the file, which is then as it was before: TypeError and ValueError for
        values that cannot be written, OSError.
        """

    def LoadFromFile(self, fileName: _File) -> None:
        """Become what SaveToFile wrote: attributes, actions, and the current action with its parts
        as they were.

        Other functions stay as they are. Pictures come from `Res`. Every error (OSError,
        ValueError for a file that is no such thing or has more than 16 MiB) names the file and
        leaves the character as it was.
        """

    def SaveAnimationToFile(self, fileName: _File, actionName: str | None = None) -> None:
        """Write an action, or all, with their speeds to a file, as SaveToFile does.

        "format" is "Tessora animation"; "actions" is as in a character's file, with a "speed"
        (seconds per frame) each; "atlases" lists the atlases of their pictures. KeyError for an
        unknown action.
        """

    def LoadAnimationFromFile(self, fileName: _File, actionName: str | None = None) -> None:
        """Add an action, or all, from a file that SaveAnimationToFile wrote.

        They replace actions of the same names; one that is played ends. KeyError for an action
        that is not in the file; errors are those of LoadFromFile.
        """

    def LoadAllAnimationsFromPlist(
        self, plistFile: _File, atlasFile: _File | None = None, imageFile: _File | None = None
    ) -> None:
        """Add every animation of a property list as an action of one part: picture names under
        "frames", seconds per frame under "delay".

        The names are those of frames of `atlasFile`, whose sheet is `imageFile` (as in
        LoadImageFramesPList), or else of image files. `Res` finds the files. Errors name the
        file and leave the character as it was.
        """

    def Tessora_ReLoadImage(self) -> None:
        """Ask `Res` again for the atlases and for the pictures of the parts, after
        ReleaseAllImageMemeory or with another `Res`.
        """

    def SetCharacterBindingVar(self, varname: str, varvalue: Any) -> None:
        """Store a value in `CharacterBindingVarArray` under the game variable's name.

        A layer that takes a waiting character in sets every variable again, with its own value.
        """

    def GetCharacterBindingVar(self, varname: str) -> Any:
        """Return the entry of that name in `CharacterBindingVarArray`.

        Raises KeyError for an unknown one.
        """

    def DelCharacterBindingVar(self, varname: str) -> None:
        """Delete the entry of that name from `CharacterBindingVarArray`.

        Raises KeyError for an unknown one.
        """

    def CleanUpCharacterBindingVar(self) -> None:
        """Empty `CharacterBindingVarArray` in place."""

    def GetCharacterBindingVarArray(self) -> dict[str, Any]:
        """Return `CharacterBindingVarArray`, the dictionary itself and no copy."""

@_disjoint_base
class TiledMap(GameNode):
    """A grid of equal cells, rectangular or diamond, filled with nodes that are shared.

    `x` and `y` are its place in the parent, in pixels. A cell holds the index of a resource, -1
    for none. To draw and to update, the map asks `sceneInstance.GetLayerResNode(index)` for the
    node of every occupied cell, row by row; None is passed over, and AttributeError is raised
    without such a scene. A node stands for many cells: it is put in place, drawn, and put in
    the next place.

    A map of many cells is fastest with a look-up that calls no script: `scene.GetLayerResNode =
    nodes.__getitem__`, of a plain list or dictionary, or its `get`. Cells of still pictures (a
    GUI_Image without children, border and scripts) outside the window then cost next to
    nothing.

    >>> ground = Tessora.TiledMap(None)
    >>> ground.SetTiledMapInfo("ground", 15, 20, 32, 32, 0)
    >>> ground.GetTile_XY(3, 2)
    (96, 64)
    """

    LayerName: str | None
    """Name of the layer whose resources fill the cells, or None; for scripts. Default None."""
    ViewType: int
    """Kind of grid: 0 is rectangular, anything else diamonds. Default 0."""
    Tile_Cow: int
    """Number of columns. Default 20."""
    Tile_Row: int
    """Number of rows. Default 20."""
    Tile_Width: float
    """Width of a cell in pixels. Default 64."""
    Tile_Height: float
    """Height of a cell in pixels. Default 64."""
    Tile_Visible: bool
    """Whether the grid lines are drawn. Default True."""
    Tile_Color: pygame.Color
    """Colour of the grid lines. Default (255, 255, 255, 255)."""
    Tile_Array: list[int]
    """Index of each cell's resource row by row, -1 for an empty cell. All are empty at first."""
    Coll_Array: list[Any]
    """Whether each cell is blocked, row by row. None is at first."""
    Coll_Dict: dict[int, list[tuple[int, int]]]
    """Cells (column, row) that the current frame of an animated tile covers, by the tile's place
    in `Tile_Array`. Default {}.
    """

    def __init__(self, parent: GameNode | None, x: float = 0, y: float = 0) -> None: ...
    def IsTileVisible(self) -> bool:
        """Return `Tile_Visible`: whether the grid lines are drawn."""

    def SetTileVisible(self, value: bool) -> None:
        """Set `Tile_Visible`: whether the grid lines are drawn."""

    def GetTileLineColor(self) -> pygame.Color:
        """Return `Tile_Color`: colour of the grid lines."""

    def SetTileLineColor(self, value: pygame.Color) -> None:
        """Set `Tile_Color`: colour of the grid lines."""

    def GetTileArray(self) -> list[int]:
        """Return `Tile_Array`: index of each cell's resource row by row, -1 for an empty cell. All
        are empty at first.
        """

    def SetTiledMapInfo(
        self, LayerName: str | None, Row: int, Cow: int, TileW: float, TileH: float, ViewType: int
    ) -> None:
        """Give the map so many rows and columns of cells of TileW x TileH pixels, all empty.

        `ViewType` 0 is a rectangular grid, any other value one of diamonds. Raises MemoryError
        for more than 2**27 cells.
        """

    def GetTiledMapInfo(self) -> list[Any]:
        """Return a new list of `ViewType`, `Tile_Row`, `Tile_Cow`, `Tile_Width`, `Tile_Height`."""

    def CleanAllObjects(self) -> None:
        """Empty all cells and their collision, in lists of the map's size.

        The lists and the dictionary stay the same objects.
        """

    def IsEmpty(self) -> bool:
        """Return whether no cell holds a tile."""

    def GetTileObjectCount(self) -> int:
        """Return how many cells hold a tile."""

    def IsValidTile(self, tileX: int, tileY: int) -> bool:
        """Return whether column `tileX`, row `tileY` lies on the map."""

    def GetTile_XY(self, tx: int, ty: int) -> tuple[float, float]:
        """Return the left top corner of column `tx`, row `ty` as on a rectangular grid, in pixels
        of the parent.
        """

    def GetTile_RC(self, px: float, py: float) -> tuple[int, int]:
        """Return column and row of the cell under a point, in pixels of the parent.

        On a rectangular grid places are cut towards zero: up to one cell left of the map is
        still column 0, and the result may lie outside the map. On a diamond grid one more row
        and column than the map has count, and (-1, -1) means none. Raises ZeroDivisionError,
        ValueError or OverflowError for what no division gives a cell.
        """

    def CheckPtInDiamond(self, px: float, py: float) -> bool:
        """Return whether a point, in pixels from the centre of a diamond cell, lies in it or on
        its edge.
        """

    def GetTileObject(self, tx: float, ty: float, isTile: bool) -> int:
        """Return what a cell holds, -1 outside the map.

        With `isTile` true the cell is column `tx`, row `ty`, else the one under a point in
        pixels of the parent.
        """

    def SetTileObject(self, tx: float, ty: float, resIndex: int, isTile: bool) -> None:
        """Put a resource into a cell, named as for GetTileObject; nothing outside the map.

        Where the resource's node has `collisionType` 1, the cells that its `collisionInfo`
        names are blocked: a pair of columns and rows, counted right and down from this cell, or
        None for the cell alone. Collision that was there stays; UpdateTileCollision() cleans
        up. A node that cannot be had is printed as lost; the cell keeps the index.
        """

    def DelTileObject(self, tx: float, ty: float, isTile: bool) -> None:
        """Empty a cell, named as for GetTileObject, and unblock it if its resource collides."""

    def CheckInsObj(self, px: float, py: float) -> bool:
        """Return whether a child is hit at the point, taken relative to the map's place."""

    def OnPickDownFunction(self, px: float, py: float) -> GameNode | None:
        """Handle a press at screen position `px`, `py` in pixels.

        If the cell that the last draw showed there holds a tile, the event "PickDown" is raised
        with the keywords `tx` (column) and `ty` (row). Then children and the map itself take
        the press as any node. Returns the node that took it, the map for a tile, or None.
        """

    def GetTileCollision(self, tileX: int, tileY: int) -> bool:
        """Return whether column `tileX`, row `tileY` is blocked; false outside the map."""

    def UpdateTileCollision(self) -> None:
        """Make a new `Coll_Array` in which exactly the cells are blocked that the map's tiles
        cover.

        Nodes that cannot be had are printed as lost.
        """

    def checkCollision(self, gameNode: GameNode, moveX: float = 0, moveY: float = 0) -> Any:
        """Return whether blocked cells stop the node's move by `moveX` and by `moveY` pixels.

        The node's GetSizeRect() counts, and every cell that its leading edge meets on the way.
        The horizontal part is tested first and alone, the vertical one from where a free
        horizontal part leads to, so that a node on the ground walks and one along a wall falls.
        Not for diamond grids. The tuple itself is always true: test its parts.
        """

    def update(self, delay: float) -> None:
        """Advance the map's children, actions and update function by `delay` seconds, then note in
        `Coll_Dict` what animated tiles cover in their current frame.

        These are cells whose resource is a GameCharacter with a `TileBlock` at that frame.
        """

    def draw(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw grid lines, the cells' nodes, crosses over blocked cells, overlays and children.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera. The nodes are placed from the
        map's local position; the map's own `sx`, `sy` stretch lines and crosses only. Raises
        IndexError while the lists are shorter than the map.
        """

@_disjoint_base
class ParticleEmitter(GameNode):
    """A node that emits particles, moves and draws them and removes the dead ones.

    `x` and `y` are its place in the parent, in pixels; `particleTotal` is the most particles at
    once. `particleMode` is kept for scripts: a new emitter is in "Gravity" mode. Every random
    parameter is its value plus its variance times a number from -1 to 1. Emission begins with
    Run().

    >>> fire = Tessora.ParticleEmitter(None, 160, 200)
    >>> fire.InitPS_Fire()
    >>> fire.Run()
    """

    plistFile: str | None
    """Path of the definition file loaded last, or None. Default None."""
    particleMode: str
    """What the constructor was given; `ParticleMode` is the active mode."""
    ParticleTotal: int
    """Most particles at once."""
    ParticleCount: int
    """Number of particles now. Default 0."""
    EmissionRate: float
    """Particles emitted per second. Default 20."""
    EmitCounter: float
    """Seconds that have gone towards the next particle. Default 0."""
    Duration: float
    """Seconds of emission, -1 for no limit. Default -1."""
    LifeTime: float
    """Seconds emitted so far. Default 0."""
    ParticleArray: list[Particle]
    """The particles, oldest first. Default []."""
    ParticleX: float
    """Horizontal birth place in pixels from the emitter. Default 100."""
    ParticleXVar: float
    """Variance of `ParticleX` in pixels. Default 0."""
    ParticleY: float
    """Vertical birth place in pixels from the emitter. Default 100."""
    ParticleYVar: float
    """Variance of `ParticleY` in pixels. Default 0."""
    Life: float
    """Life at birth, 0 to 100; a particle loses 10 per second. Default 100."""
    LifeVar: float
    """Variance of `Life`. Default 10."""
    Attenuation: float
    """Free for scripts: particles keep a loss of their own. Default 10."""
    BeginSize: float
    """Width and height at birth, in pixels. Default 20."""
    BeginSizeVar: float
    """Variance of `BeginSize` in pixels. Default 10."""
    EndSize: float | str
    """Width and height at death in pixels, or "Begin" for no change. Default 10."""
    EndSizeVar: float | str
    """Variance of `EndSize` in pixels; "Begin" is that of `BeginSize`. Default 5."""
    BeginAngle: float
    """Angle at birth in degrees. Default 0."""
    BeginAngleVar: float
    """Variance of `BeginAngle` in degrees. Default 0."""
    EndAngle: float | str
    """Angle at death in degrees, or "Begin" for no change. Default 0."""
    EndAngleVar: float | str
    """Variance of `EndAngle` in degrees; "Begin" is that of `BeginAngle`. Default 0."""
    Direction: float
    """Direction of emission in degrees: 0 is right, 90 is down. Default 90."""
    DirectionVar: float
    """Variance of `Direction` in degrees. Default 0."""
    Speed: float
    """Speed at birth in "Gravity" mode, in pixels per second. Default 100."""
    SpeedVar: float
    """Variance of `Speed` in pixels per second. Default 0."""
    BeginColor: pygame.Color
    """Colour at birth. Default (255, 255, 255, 255)."""
    BeginColorVar: pygame.Color
    """Variance of each component of `BeginColor`. Default (0, 0, 0, 255)."""
    EndColor: pygame.Color | str
    """Colour at death, or "Begin" for no change. Default (255, 255, 255, 255)."""
    EndColorVar: pygame.Color | str
    """Variance of each component of `EndColor`; "Begin" is that of `BeginColor`. Default (0, 0, 0,
    255).
    """
    Imagefile: _ImageFiles
    """Picture of every particle, as GUI_Image.SetImage takes it, or None. Default None."""
    ParticleMode: str | None
    """Active movement mode: "Gravity", anything else is a circle. Default "Gravity"."""
    blendtype: int
    """Flag with which every particle is blitted. Default pygame.BLEND_MULT."""
    BeginRadius: float
    """Radius at birth in "Circle" mode, in pixels. Default 0."""
    BeginRadiusVar: float
    """Variance of `BeginRadius` in pixels. Default 0."""
    EndRadius: float | str
    """Radius at death in "Circle" mode in pixels, or "Begin" for no change. Default 100."""
    EndRadiusVar: float | str
    """Variance of `EndRadius` in pixels; "Begin" is that of `BeginRadius`. Default 0."""
    RotateSpeed: float
    """Speed on the circle in degrees per second. Default 0."""
    RotateSpeedVar: float
    """Variance of `RotateSpeed` in degrees per second. Default 0."""
    Gravity: pygame.math.Vector2
    """Acceleration of all particles in "Gravity" mode, in pixels per second squared. Default (0,
    1).
    """
    Tangentialaccel: float
    """Acceleration across the way from the emitter, in pixels per second squared. Default 0."""
    TangentialaccelVar: float
    """Variance of `Tangentialaccel` in pixels per second squared. Default 0."""
    Radialaccel: float
    """Acceleration away from the emitter, in pixels per second squared. Default 0."""
    RadialaccelVar: float
    """Variance of `Radialaccel` in pixels per second squared. Default 0."""
    running: bool
    """Whether particles are emitted. Default False."""

    def __init__(
        self,
        parent: GameNode | None,
        x: float = 0,
        y: float = 0,
        particleMode: str = "Gravity",
        particleTotal: int = 250,
    ) -> None: ...
    def GetPlistFile(self) -> str | None:
        """Return `plistFile`: path of the definition file loaded last, or None."""

    def GetParticleTotal(self) -> int:
        """Return `ParticleTotal`: most particles at once."""

    def SetParticleTotal(self, value: int) -> None:
        """Set `ParticleTotal`: most particles at once."""

    def GetImage(self) -> _ImageFiles:
        """Return `Imagefile`: picture of every particle, as GUI_Image.SetImage takes it, or None."""

    def SetImage(self, value: _ImageFiles) -> None:
        """Set `Imagefile`: picture of every particle, as GUI_Image.SetImage takes it, or None."""

    def GetParticleMode(self) -> str | None:
        """Return `ParticleMode`: active movement mode: "Gravity", anything else is a circle."""

    def SetParticleMode(self, value: str | None) -> None:
        """Set `ParticleMode`: active movement mode: "Gravity", anything else is a circle."""

    def GetBlendType(self) -> int:
        """Return `blendtype`: flag with which every particle is blitted."""

    def SetCircleMode(
        self,
        BeginRadius: float,
        startRadiusvar: float,
        endRadius: float | str,
        endRadiusvar: float | str,
        rotateSpeed: float,
        rotateSpeedvar: float,
    ) -> None:
        """Move particles on circles about the emitter: radii in pixels, speed in degrees per
        second, each with its variance.
        """

    def SetGravityMode(
        self,
        posx: float,
        posxvar: float,
        posy: float,
        posyvar: float,
        gravity: pygame.math.Vector2,
        radialaccel: float,
        radialaccelvar: float,
        tangentialaccel: float,
        tangentialaccelvar: float,
        speed: float,
        speedvar: float,
    ) -> None:
        """Move particles by velocity and accelerations, from a birth place: pixels and seconds,
        each with its variance.

        `gravity` is kept as it is: changed in place it counts.
        """

    def SetBlendType(self, blendtype: str | int) -> None:
        """ "ADD" and "SUB" select pygame's BLEND_ADD and BLEND_SUB, any other text BLEND_MULT,
        which is drawn as a plain blit; a flag is kept as it is. Living particles follow.
        """

    def Run(self) -> None:
        """Emit from now on. Particles need update() and draw() in every frame."""

    def Pause(self) -> None:
        """Emit no more; living particles go on."""

    def IsFull(self) -> bool:
        """Return whether there are exactly as many particles as `ParticleTotal` says."""

    def CleanUp(self) -> None:
        """Remove the particles and set the parameters to 0, sizes and colours to their first
        values.

        The pool then has no room: `ParticleTotal` is 0. Mode, picture, radii and accelerations
        stay.
        """

    def AddParticle(self) -> None:
        """Create a particle, fill it by initParticle and put it into the pool, unless IsFull().

        It is made by `Tessora.Particle`, which a script may replace.
        """

    def initParticle(self, particle: Particle) -> None:
        """Fill a new particle with values drawn from the parameters.

        The random numbers are drawn in this order: life, size, end size, angles, colours by
        component, x, y, direction, then what the movement mode needs; none for an end value
        "Begin".
        """

    def RandomAB(self, a: float, b: float) -> float:
        """Return a random number from `a` up to but not including `b`, by random.random()."""

    def update(self, delay: float) -> None:
        """Advance by `delay` seconds: other children, actions, update function; then emit while
        `running` is true, and step every particle.

        Raises ZeroDivisionError for an `EmissionRate` of 0 while running.
        """

    def draw(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the particles, the overlays, the other children and, at the mouse position, how
        many particles there are; then remove the dead ones.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

    def InitPS_Comet(self) -> None:
        """A comet: a bright head with a tail to the upper right.

        Removes the particles and replaces all parameters; the picture is the game's "fire.png".
        Emission begins with Run().
        """

    def InitPS_Galaxy(self) -> None:
        """A galaxy: a spiral arm that winds outwards.

        Removes the particles and replaces all parameters; the picture is the game's "fire.png".
        Emission begins with Run().
        """

    def InitPS_Explosion(self) -> None:
        """An explosion: sparks in all directions for one second.

        Removes the particles and replaces all parameters; the picture is the game's "fire.png".
        Emission begins with Run().
        """

    def InitPS_Flower(self) -> None:
        """A flower: a yellow centre amid pink petals.

        Removes the particles and replaces all parameters; the picture is the game's "fire.png".
        Emission begins with Run().
        """

    def InitPS_Sun(self) -> None:
        """A sun: a glowing ball.

        Removes the particles and replaces all parameters; the picture is the game's "fire.png".
        Emission begins with Run().
        """

    def InitPS_Rain(self) -> None:
        """Rain: drops that fall from a line 560 pixels wide.

        Removes the particles and replaces all parameters; the picture is the game's "fire.png".
        Emission begins with Run().
        """

    def InitPS_Snow(self) -> None:
        """Snow: flakes that sink and drift from a line 800 pixels wide.

        Removes the particles and replaces all parameters; the picture is the game's "fire.png".
        Emission begins with Run().
        """

    def InitPS_Smoke(self) -> None:
        """Smoke: a grey column that rises.

        Removes the particles and replaces all parameters; the picture is the game's "fire.png".
        Emission begins with Run().
        """

    def InitPS_Fire(self) -> None:
        """A fire: flames that narrow upwards.

        Removes the particles and replaces all parameters; the picture is the game's "fire.png".
        Emission begins with Run().
        """

    def InitPS_FireWork(self) -> None:
        """A firework: a fountain of coloured sparks.

        Removes the particles and replaces all parameters; the picture is the game's "fire.png".
        Emission begins with Run().
        """

    def LoadFromFile(self, file: _File) -> None:
        """Read a definition file, named without its folder, through `Res`, and run.

        CleanUp() comes first and is all that happens for an unknown name. A file that is
        damaged, or has values of a wrong kind, raises an error that names it; nothing of it is
        taken over then. Raises AttributeError while `Tessora.Res` is not set.
        """

    def SaveToFile(self, file: _File) -> None:
        """Write the parameters of the active mode to a definition file at that path, whole or not
        at all.

        Raises TypeError or ValueError for parameters that cannot be saved and OSError for a
        path that cannot be written.
        """

    def SetData(self, dataname: str, datavalue: Any) -> None:
        """Set a parameter by its key in definition files, or as "direction", "directionVariance"
        or "speed".

        End values take "Begin" in any case; other values are converted as on loading. Unknown
        names do nothing.
        """

    def GetData(self, dataname: str) -> Any:
        """Return a parameter by such a name, None for an unknown one."""

@_disjoint_base
class Particle(GUI_Image):
    """A short-lived picture that an emitter creates, steps and draws.

    `parent` is the emitter; `x` and `y` place the centre relative to it, in pixels. Size,
    colour and angle run from their begin to their end values over the life; the end value
    "Begin" keeps the begin value.

    >>> spark = Tessora.Particle(Tessora.ParticleEmitter(None))
    >>> spark.SetBeginLife(50)
    """

    BeginLife: float
    """Life at birth. Default 100."""
    Attenuation: float
    """Life that is lost per second. Default 10."""
    CurrLife: float
    """Life that is left. Default 100."""
    BeginSize: float
    """Width and height at birth, in pixels. Default 20."""
    EndSize: float | str
    """Width and height at death in pixels, or "Begin" for no change. Default 20."""
    BeginAngle: float
    """Angle at birth in degrees. Default 0."""
    EndAngle: float | str
    """Angle at death in degrees, or "Begin" for no change. Default 0."""
    BeginColor: pygame.Color
    """Colour at birth. Default (255, 255, 255, 255)."""
    EndColor: pygame.Color | str
    """Colour at death, or "Begin" for no change. Default (0, 0, 0, 0)."""
    lifeProgress: float
    """Part of the life that has passed: 0 at birth, 1 at death. Default 0."""
    Direction: pygame.math.Vector2
    """Velocity in "Gravity" mode, in pixels per second. Default (0, 0)."""
    RadialAccel: float
    """Acceleration away from the emitter, in pixels per second squared. Default 0.0."""
    TangentialAccel: float
    """Acceleration across the way from the emitter, in pixels per second squared. Default 0.0."""
    BeginRadius: float
    """Radius at birth in "Circle" mode, in pixels. Default 0."""
    EndRadius: float | str
    """Radius at death in pixels, or "Begin" for no change. Default 100."""
    RotateValue: float
    """Angle on the circle in degrees. Default 0.0."""
    RotateSpeed: float
    """Speed on the circle in degrees per second. Default 500.0."""
    ParticleMode: str | None
    """Movement mode, "Gravity" or "Circle", set by the emitter; None before. Default None."""

    def __init__(self, parent: GameNode | None, x: float = 0, y: float = 0) -> None: ...
    def GetBeginLife(self) -> float:
        """Return `BeginLife`: life at birth."""

    def GetCurrLife(self) -> float:
        """Return `CurrLife`: life that is left."""

    def GetBeginSize(self) -> float:
        """Return `BeginSize`: width and height at birth, in pixels."""

    def SetBeginSize(self, value: float) -> None:
        """Set `BeginSize`: width and height at birth, in pixels."""

    def GetEndSize(self) -> float | str:
        """Return `EndSize`: width and height at death in pixels, or "Begin" for no change."""

    def SetEndSize(self, value: float | str) -> None:
        """Set `EndSize`: width and height at death in pixels, or "Begin" for no change."""

    def GetBeginAngle(self) -> float:
        """Return `BeginAngle`: angle at birth in degrees."""

    def SetBeginAngle(self, value: float) -> None:
        """Set `BeginAngle`: angle at birth in degrees."""

    def GetEndAngle(self) -> float | str:
        """Return `EndAngle`: angle at death in degrees, or "Begin" for no change."""

    def SetEndAngle(self, value: float | str) -> None:
        """Set `EndAngle`: angle at death in degrees, or "Begin" for no change."""

    def GetBeginColor(self) -> pygame.Color:
        """Return `BeginColor`: colour at birth."""

    def SetBeginColor(self, r: int, g: int, b: int, a: int = 255) -> None:
        """Set `BeginColor`: colour at birth.

        Components are from 0 to 255; others raise ValueError.
        """

    def GetEndColor(self) -> pygame.Color | str:
        """Return `EndColor`: colour at death, or "Begin" for no change."""

    def GetModeA_Direction(self) -> pygame.math.Vector2:
        """Return `Direction`: velocity in "Gravity" mode, in pixels per second."""

    def SetModeA_Direction(self, value: pygame.math.Vector2) -> None:
        """Set `Direction`: velocity in "Gravity" mode, in pixels per second."""

    def GetModeA_RadialAccel(self) -> float:
        """Return `RadialAccel`: acceleration away from the emitter, in pixels per second squared."""

    def SetModeA_RadialAccel(self, value: float) -> None:
        """Set `RadialAccel`: acceleration away from the emitter, in pixels per second squared."""

    def GetModeA_TangentialAccel(self) -> float:
        """Return `TangentialAccel`: acceleration across the way from the emitter, in pixels per
        second squared.
        """

    def SetModeA_TangentialAccel(self, value: float) -> None:
        """Set `TangentialAccel`: acceleration across the way from the emitter, in pixels per
        second squared.
        """

    def GetModeB_BeginRaidus(self) -> float:
        """Return `BeginRadius`: radius at birth in "Circle" mode, in pixels."""

    def SetModeB_BeginRaidus(self, value: float) -> None:
        """Set `BeginRadius`: radius at birth in "Circle" mode, in pixels."""

    def GetModeB_EndRaidus(self) -> float | str:
        """Return `EndRadius`: radius at death in pixels, or "Begin" for no change."""

    def SetModeB_EndRaidus(self, value: float | str) -> None:
        """Set `EndRadius`: radius at death in pixels, or "Begin" for no change."""

    def GetModeB_RotateValue(self) -> float:
        """Return `RotateValue`: angle on the circle in degrees."""

    def SetModeB_RotateValue(self, value: float) -> None:
        """Set `RotateValue`: angle on the circle in degrees."""

    def GetModeB_RotateSpeed(self) -> float:
        """Return `RotateSpeed`: speed on the circle in degrees per second."""

    def SetModeB_RotateSpeed(self, value: float) -> None:
        """Set `RotateSpeed`: speed on the circle in degrees per second."""

    def GetParticleMode(self) -> str | None:
        """Return `ParticleMode`: movement mode, "Gravity" or "Circle", set by the emitter; None
        before.
        """

    def SetParticleMode(self, value: str | None) -> None:
        """Set `ParticleMode`: movement mode, "Gravity" or "Circle", set by the emitter; None
        before.
        """

    def SetBeginLife(self, value: float) -> None:
        """Set `BeginLife` and `CurrLife`: the particle is newly born."""

    def SetEndColor(self, r: int | str, g: int | str, b: int | str, a: int | str = 255) -> None:
        """Set `EndColor`, components from 0 to 255; with "Begin" as `r` the colour stays what it
        is at birth.

        Raises ValueError for components out of range.
        """

    def GetLifeProgress(self) -> float:
        """Compute `lifeProgress` anew and return it.

        Raises ZeroDivisionError if `BeginLife` is 0.
        """

    def IsDead(self) -> bool:
        """Return whether no life is left."""

    def update(self, delay: float) -> None:
        """Live for `delay` seconds: lose life, then set size, colour and angle for the life that
        is left.

        A dead particle keeps its looks. Children, actions and the update function are not run.
        """

    def UpdateGravity(self, delay: float, gravity: pygame.math.Vector2) -> None:
        """Move for `delay` seconds by the velocity `Direction`, which `gravity` and the radial and
        tangential accelerations change first.
        """

    def UpdateCircle(self, delay: float) -> None:
        """Move for `delay` seconds on the circle about the emitter, whose radius follows
        `lifeProgress`.
        """

    def draw(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the particle as an image.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

@_disjoint_base
class PyGameResManager:
    """Finds every file below a folder and loads files by their bare names.

    Case does not matter. A folder that does not exist gives an empty index. Of files that share
    a name the one met last counts. Raises TypeError for what is no path.

    >>> Tessora.Res = Tessora.PyGameResManager(".")
    >>> hero = Tessora.Res.LoadImage("hero.png")
    hero.png load:1
    """

    resdir: str
    """Root folder of the resources."""
    fontdir: str | None
    """Folder of the fonts; stored for scripts. Default None."""
    fileDict: dict[str, str]
    """Full paths by lower-case file name, which includes the extension. Default {}."""
    ImageDict: dict[str, pygame.Surface]
    """Loaded surfaces by the names under which they were asked for. Default {}."""
    soundDict: dict[int, pygame.mixer.Sound]
    """Loaded sounds by their numbers. Default {}."""
    ImageDict_MemManage_List: list[str]
    """Names of the loaded images, least recently used first. Default []."""
    ImageDict_MemManage_Total: int
    """Intended number of cached images; nothing is ever dropped for it. Default 100."""
    ImageDict_MemManage_Count: int
    """Number of images loaded since the last release. Default 0."""
    SceneJsonDict: list[str]
    """The scenes' names. Default []."""
    soundPlayCount: int
    """Number that the next sound gets. Default 0."""

    def __init__(self, resdir: _File) -> None: ...
    def SetFontDir(self, path: str | None) -> None:
        """Set `fontdir`: folder of the fonts; stored for scripts."""

    def GetSceneList(self) -> list[str]:
        """Return `SceneJsonDict`: the scenes' names."""

    def FoundAllResFile(self, parentDir: _File, dirType: str | None = None) -> None:
        """Add the files of a folder and of all folders below it to the index.

        `dirType` is the name of the top-level folder that is being read: files in "Scene" that
        have a "_Res.Json" file beside them are scenes.
        """

    def AddNewResFile(self, filePath: _File) -> None:
        """Add one file to the index, which need not exist yet."""

    def GetResPath(self, filename: _File) -> str | None:
        """Return the full path of a file named without its folder, or None if it is unknown."""

    def LoadImage(self, fileName: _File) -> pygame.Surface | None:
        """Return an image file as a surface with per-pixel alpha; later calls share it.

        Returns None for an unknown name, and for a file that does not load: the error is
        printed then.
        """

    def ManageImageMemory(self, fileName: _File) -> None:
        """Note an image's use: its name moves to the end of the list of recent images.

        Prints a line about it.
        """

    def ReleaseAllImageMemeory(self) -> None:
        """Forget all loaded images and count them from 0 again."""

    def GetImageListFiles(self, fileName: _File) -> list[str]:
        """Return the paths of the PNG files that number the frames of one sequence.

        `fileName` is one of them, such as walk_02.png. Every PNG file whose path begins like
        the part before the number counts, in the order of the file system: sort the list if the
        order matters. A file without a number is returned alone, an unknown one gives an empty
        list. Raises UnboundLocalError for a path without underscore and extension.
        """

    def PlayMusic(self, fileName: _File, loopcount: int = 0) -> None:
        """Play a music file in place of the one that is playing; an unknown name does nothing.

        `loopcount` is how often it is repeated after the first time, -1 for without end. Raises
        pygame.error for a file that does not play.
        """

    def StopMusic(self) -> None:
        """Stop the music.

        Raises pygame.error while pygame.mixer is not initialised.
        """

    def PlaySound(self, fileName: _File) -> int:
        """Play a sound file and return its number for StopSound, or -1 for an unknown name.

        Every call loads the file again and keeps the sound. Raises pygame.error for a file that
        does not play.
        """

    def StopSound(self, soundID: int) -> None:
        """Stop the sound of that number; unknown numbers are ignored."""

    def GetFont(
        self, ttfFile: _File, fontSize: int, bold: bool = False, italic: bool = False
    ) -> pygame.font.Font | None:
        """Return a new pygame.font.Font from a font file, or None for an unknown name.

        `fontSize` is its height in pixels. Errors of pygame pass on.
        """

@_disjoint_base
class GAction:
    """A timed job on a node; the base of all actions.

    Give actions to a node's RunAction, which plays them one after another. A class of one's own
    overrides update and sets `over` at the end.

    >>> node.RunAction(Tessora.MoveToAction(2, 300, 50), Tessora.BlinkAction(1, 3))
    >>> node.update(0.5)
    """

    running: bool
    """Whether the action was started and is not paused. It stays true at the end. Default False."""
    targetNode: GameNode | None
    """The node that the action works on, or None. Default None."""
    runtime: float
    """Seconds since the last Run. Default 0."""
    over: bool
    """Whether the action has finished. Default False."""

    def __init__(self) -> None: ...
    def IsRunning(self) -> bool:
        """Return `running`: whether the action was started and is not paused. It stays true at the
        end.
        """

    def SetTarget(self, targetNode: GameNode | None) -> None:
        """Set `targetNode`: the node that the action works on, or None."""

    def GetRunTime(self) -> float:
        """Return `runtime`: seconds since the last Run."""

    def IsOver(self) -> bool:
        """Return `over`: whether the action has finished."""

    def Run(self) -> None:
        """Start the action, or start it again from the beginning."""

    def Pause(self) -> None:
        """Hold the action where it is."""

    def Resume(self) -> None:
        """Go on after Pause or Stop."""

    def Stop(self) -> None:
        """Hold the action where it is and set an attribute `time` to 0.

        `runtime` is kept until the next Run.
        """

    def update(self, delay: float) -> None:
        """Add `delay` seconds to the run time, unless the action is paused or over."""

@_disjoint_base
class CallBackAction(GAction):
    """Calls a function once, when `duration` seconds are over.

    The function gets one argument: the dictionary `callbackParams`.

    >>> node.RunAction(Tessora.CallBackAction(1, lambda params: print(params["text"]), text="now"))
    >>> node.update(1)
    now
    """

    duration: float
    """Seconds until the call."""
    callbackFunc: Callable[[dict[str, Any]], Any] | None
    """The function to call, or None."""
    callbackParams: dict[str, Any]
    """Dictionary with the constructor's other keyword arguments."""

    def __init__(
        self,
        duration: float,
        callbackFunc: Callable[[dict[str, Any]], Any] | None,
        **callbackParams: Any,
    ) -> None: ...
    def update(self, delay: float) -> None:
        """Add `delay` seconds and call the function when the time is up.

        An error in the function passes on, and it is called again at the next update.
        """

@_disjoint_base
class MoveToAction(GAction):
    """Moves a node to the position (`x`, `y`) in pixels, in `duration` seconds.

    The way begins at the node's world position but is set as its local one: the two agree for a
    node without an anchor whose parent, if any, is at the origin.

    >>> node.RunAction(Tessora.MoveToAction(2, 300, 50))
    """

    duration: float
    """Seconds that the movement takes."""
    srcPostion: pygame.math.Vector2
    """pygame.math.Vector2: the node's world position when the action was started."""
    dstPostion: pygame.math.Vector2
    """pygame.math.Vector2: where the movement ends."""

    def __init__(self, duration: float, x: float, y: float) -> None: ...
    def Run(self) -> None:
        """Start from the node's world position (GetWX, GetWY); without a target nothing happens."""

    def update(self, delay: float) -> None:
        """Add `delay` seconds and move the node with SetXY.

        Raises ValueError for a time before the start.
        """

@_disjoint_base
class MoveByAction(GAction):
    """Moves a node by (`x`, `y`) pixels in `duration` seconds.

    Started again, it moves on from where the node is by then.

    >>> node.RunAction(Tessora.MoveByAction(2, 100, 0))
    """

    duration: float
    """Seconds that the movement takes."""
    srcPostion: pygame.math.Vector2
    """pygame.math.Vector2: the node's world position when the action was started."""
    dstPostion: pygame.math.Vector2
    """pygame.math.Vector2: the whole way in pixels."""

    def __init__(self, duration: float, x: float, y: float) -> None: ...
    def Run(self) -> None:
        """Start from the node's world position (GetWX, GetWY); without a target nothing happens."""

    def update(self, delay: float) -> None:
        """Add `delay` seconds and move the node with SetXY.

        Raises ValueError for a time before the start.
        """

@_disjoint_base
class ScaleToAction(GAction):
    """Scales a node to the factors (`sx`, `sy`) in `duration` seconds.

    >>> node.RunAction(Tessora.ScaleToAction(1, 2.0, 2.0))
    """

    duration: float
    """Seconds that the change takes."""
    srcScale: pygame.math.Vector2
    """pygame.math.Vector2: the node's scale when the action was started."""
    dstScale: pygame.math.Vector2
    """pygame.math.Vector2: the scale at the end."""

    def __init__(self, duration: float, sx: float, sy: float) -> None: ...
    def Run(self) -> None:
        """Start from the node's scale (GetSX, GetSY); without a target nothing happens."""

    def update(self, delay: float) -> None:
        """Add `delay` seconds and scale the node with SetSXY.

        Raises ValueError for a time before the start.
        """

@_disjoint_base
class ScaleByAction(GAction):
    """Adds (`sx`, `sy`) to a node's scale factors in the course of `duration` seconds.

    >>> node.RunAction(Tessora.ScaleByAction(1, 0.5, 0.5))
    """

    duration: float
    """Seconds that the change takes."""
    srcScale: pygame.math.Vector2
    """pygame.math.Vector2: the node's scale when the action was started."""
    dstScale: pygame.math.Vector2
    """pygame.math.Vector2: what is added to the scale."""

    def __init__(self, duration: float, sx: float, sy: float) -> None: ...
    def Run(self) -> None:
        """Start from the node's scale (GetSX, GetSY); without a target nothing happens."""

    def update(self, delay: float) -> None:
        """Add `delay` seconds and scale the node with SetSXY.

        Raises ValueError for a time before the start.
        """

@_disjoint_base
class RotateToAction(GAction):
    """Turns a node to `angle` degrees, counter-clockwise, in `duration` seconds.

    The turn is the plain difference of the two angles, never the shorter way round.

    >>> node.RunAction(Tessora.RotateToAction(1, 90))
    """

    duration: float
    """Seconds that the turn takes."""
    srcAngle: float
    """The node's angle in degrees when the action was started. Default 0."""
    dstAngle: float
    """The angle in degrees at the end."""

    def __init__(self, duration: float, angle: float) -> None: ...
    def Run(self) -> None:
        """Start from the node's angle (GetAngle); without a target nothing happens."""

    def update(self, delay: float) -> None:
        """Add `delay` seconds and turn the node with SetAngle."""

@_disjoint_base
class RotateByAction(GAction):
    """Turns a node by `angle` degrees, counter-clockwise, in `duration` seconds.

    >>> node.RunAction(Tessora.RotateByAction(1, 360))
    """

    duration: float
    """Seconds that the turn takes."""
    srcAngle: float
    """The node's angle in degrees when the action was started. Default 0."""
    dstAngle: float
    """The whole turn in degrees."""

    def __init__(self, duration: float, angle: float) -> None: ...
    def Run(self) -> None:
        """Start from the node's angle (GetAngle); without a target nothing happens."""

    def update(self, delay: float) -> None:
        """Add `delay` seconds and turn the node with SetAngle."""

@_disjoint_base
class BlinkAction(GAction):
    """Hides and shows a node `blinkcount` times in `duration` seconds.

    The node is left hidden. With a count of -1 it blinks once in every `duration`, until the
    action is stopped. Raises ZeroDivisionError for a count of 0.

    >>> node.RunAction(Tessora.BlinkAction(1, 3))
    """

    duration: float
    """Seconds that all blinks take."""
    blinkcount: int
    """Number of blinks, -1 for without end."""
    delaytime: float
    """Seconds per blink; negative when there is no end."""
    blinkindex: int
    """Number of blinks so far. Default 0."""

    def __init__(self, duration: float, blinkcount: int = -1) -> None: ...
    def Run(self) -> None:
        """Start the action; without a target nothing happens. Blinks so far are kept: an action
        that has ended never ends a second time.
        """

    def update(self, delay: float) -> None:
        """Add `delay` seconds and hide or show the node with SetVisible.

        Every hiding of a visible node counts as a blink.
        """

@_disjoint_base
class ActionPlayer(GAction):
    """Plays a group of actions on a node, one after another; see GameNode.RunAction.

    Call SetTarget, AddActions and Run, in this order, before update: until then the attributes
    of the base class do not exist.

    >>> player = Tessora.ActionPlayer()
    >>> player.SetTarget(node)
    >>> player.AddActions([Tessora.MoveByAction(1, 50, 0), Tessora.RotateByAction(1, 90)])
    >>> player.Run()
    """

    ActionArray: tuple[Sequence[GAction], ...] | None
    """The groups of actions, of which the first is played, or None. Default None."""
    ActionIndex: int
    """Place of the action that is playing in the first group. Default 0."""

    def __init__(self) -> None: ...
    def AddActions(self, *groups: Sequence[GAction]) -> None:
        """Take the groups, each a sequence of actions, and give every action the player's target.

        Only the first group is played. Raises AttributeError before SetTarget, and TypeError
        for what is no action: the player is then left as it was.
        """

    def CleanUp(self) -> None:
        """Forget all actions."""

    def Run(self) -> None:
        """Start the first group from its first action; without a target nothing happens.

        Raises IndexError if the group is empty and TypeError if there are no groups.
        """

    def update(self, delay: float) -> None:
        """Advance the action that is playing by `delay` seconds.

        When it is over the next one is started, and after the last one the player is over.
        """
