"""2D game engine on pygame: scene nodes in layers, actions, pictures, labels, buttons."""

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
from typing import Any, TypeVar

import pygame as pygame
from pygame.locals import *
from pygame.math import *
from typing_extensions import Self, TypeAlias

_T = TypeVar("_T")
_Key = TypeVar("_Key")
_Value = TypeVar("_Value")
_ImageFiles: TypeAlias = str | Sequence[str | pygame.Surface] | pygame.Surface | None
_RectValue: TypeAlias = pygame.Rect | tuple[float, float, float, float] | Sequence[float]
_ColorValue: TypeAlias = pygame.Color | str | int | Sequence[int]

if sys.version_info >= (3, 9):
    from typing_extensions import disjoint_base as _disjoint_base
else:
    # The last type checkers for 3.8 do not know it.
    def _disjoint_base(cls: type[_T]) -> type[_T]: ...

# Inside GameNode the class's own name means an attribute.
_ActionPlayer: TypeAlias = ActionPlayer

XMLElementTree = _ElementTree

# From the standard library, imported at first use; `telnetlib` is gone from 3.13.
Pass: Any
c: Any
if sys.version_info < (3, 13):
    theNULL: Any

# None until the game sets it, but a test before every use would help nobody.
Res: PyGameResManager | Any
"""The game's resource manager, through which widgets load their files."""
BorderVisible: bool
"""Free for scripts."""
BorderColor: list[int]
"""Colour of size rectangles and anchor markers."""
g_pygameControl_BorderColor: pygame.Color
"""Colour of focus borders and edit rectangles."""
g_pygameControl_CollColor: pygame.Color
"""Colour of the outlines of collision rectangles."""
g_EngineAPI: str
"""Name of the drawing back end."""
GUI_WINDOW_BGCOLOR: pygame.Color
"""Border colour of new widgets."""

def checkPtInRect(x: float, y: float, left: float, right: float, top: float, bottom: float) -> int:
    """Return 1 if the point (x, y) lies within the four edges or on one of them, else 0."""

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

    Despite the name neither has to contain the other.
    """

def checkRectCollision(
    rect1: pygame.Rect, rect2: pygame.Rect, moveX: float = 0, moveY: float = 0
) -> bool:
    """Move `rect2` by (moveX, moveY) pixels and return whether it collides with `rect1`.

    Both are pygame.Rect objects. `rect2` is changed in place and stays moved: pass a copy to
    keep the original.
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
    """Return `dict[key]`, or `defaultvalue` if there is no such key."""

@_disjoint_base
class GameLayer:
    """A plane of a scene: registered nodes, draw order, scroll, debug shapes, events.

    pygame's font module must be initialised.
    """

    sceneInstance: Any
    """the owning scene, or None"""
    NodeType: str
    """kind of object, "GameLayer" """
    LayerName: str | None
    """name in the scene's event methods, or None"""
    GameNodeDict: dict[int, GameNode]
    """instance number to node"""
    SortGameNodeInstanceIDArray: list[int]
    """instance numbers in draw order"""
    GameNodeKeyArray: list[int]
    """keys of the last walk"""
    AddGameNodeDict: dict[int, GameNode]
    """nodes to be added"""
    DelGameNodeArray: list[int]
    """numbers to be removed"""
    BindingEventArray: dict[str, list[Any]]
    """named script events"""
    PointArray: list[list[Any]]
    """debug points"""
    LineArray: list[list[Any]]
    """debug lines"""
    RectArray: list[list[Any]]
    """debug rectangles"""
    InnerBindingEventArray: dict[str, list[Any]]
    """built-in events"""
    UserFunctionDict: dict[Any, Any]
    """free for scripts"""
    instanceID: int
    """the next instance number"""
    visible: bool
    """whether the layer updates, draws, takes input"""
    scrollType: int
    """0 none, 1 left, 2 right, 3 up, 4 down"""
    scrollSpeed: float
    """scroll speed, pixels per second"""
    scrollPosX: float
    """horizontal scroll offset, pixels"""
    scrollPosY: float
    """vertical scroll offset, pixels"""
    font: pygame.font.Font
    """font of the labels of debug points"""

    def __init__(self) -> None: ...
    def GetLayerName(self) -> str | None:
        """Return `LayerName`: name in the scene's event methods, or None"""

    def SetLayerName(self, name: str | None) -> None:
        """Set `LayerName`: name in the scene's event methods, or None"""

    def IsVisible(self) -> bool:
        """Return `visible`: whether the layer updates, draws, takes input"""

    def SetVisible(self, v: bool) -> None:
        """Set `visible`: whether the layer updates, draws, takes input"""

    def GetAutoScroll(self) -> tuple[int, float]:
        """Return `scrollType` and `scrollSpeed`."""

    def SetAutoScroll(self, scrollType: int, scrollSpeed: float) -> None:
        """Set `scrollType` and `scrollSpeed`."""

    def GetSceneInstance(self) -> Any:
        """Return `sceneInstance`: the owning scene, or None"""

    def GetNodeType(self) -> str:
        """Return `NodeType`: kind of object, "GameLayer" """

    def AddGameNode(self, GameNode: GameNode, immMode: bool = True) -> int:
        """Register a node and return its instance number.

        With `immMode` true the node is in the layer at once, otherwise from the end of the next
        draw.
        """

    def GetGameNode(self, instanceID: int) -> GameNode | None:
        """Return the node of that number, or None."""

    def ExistGameNode(self, instanceID: int) -> bool:
        """Return whether a node has that number."""

    def GetAllGameNode(self) -> dict[int, GameNode]:
        """Return `GameNodeDict`: instance number to node"""

    def GetGameNodeCount(self) -> int:
        """Return the number of registered nodes."""

    def DelGameNode(self, instanceID: int) -> None:
        """Queue a node and its registered descendants for removal at the end of the next update."""

    def CleanUpGameNode(self) -> None:
        """Queue every node for removal."""

    def LayerUpGameNode(self, instanceID: int) -> None:
        """Draw the node one step later, so higher."""

    def LayerDownGameNode(self, instanceID: int) -> None:
        """Draw the node one step earlier, so lower."""

    def CheckAllGameNode(self) -> bool:
        """Return whether every node has its number and stands once in the draw order."""

    def OnLoad(self, scene: Any) -> None:
        """Store the scene and tell it to every registered node."""

    def OnDestroy(self) -> None:
        """Destroy every registered node and forget them."""

    def update(self, delay: float) -> None:
        """Advance the layer by `delay` seconds: scroll, update the nodes, remove queued ones.

        A hidden layer does nothing.
        """

    def draw(self, screen: pygame.Surface) -> None:
        """Draw the nodes in draw order with the scroll position as camera, then the debug shapes,
        then take in the nodes that wait to be added.
        """

    def OnPickDownFunction(self, x: float, y: float) -> None:
        """Offer a press (screen pixels) to every node."""

    def OnPickUpFunction(self, x: float, y: float) -> None:
        """Offer a release (screen pixels) to every node."""

    def OnKeyDownFunction(self, key: Hashable) -> None:
        """Offer a pressed key to every node."""

    def OnKeyUpFunction(self, key: Hashable) -> None:
        """Offer a released key to every node."""

    def OnEditRectDraging(self, x: float, y: float) -> None:
        """Tell the pointer's position to every node, of which one may be dragged."""

    def checkCollision(self, gameNode: GameNode, moveX: float = 0, moveY: float = 0) -> bool:
        """Return whether `gameNode`, moved by so many pixels, hits another node whose
        `collisionType` is not -1.
        """

    def checkEventRectCollision(
        self, objrect: _RectValue, moveX: float = 0, moveY: float = 0
    ) -> bool:
        """Return whether the moved rectangle hits a node whose `collisionType` is not -1."""

    def CallEvent(self, eventName: str, params: Mapping[str, Any] | None = None) -> Any:
        """Call the scene's method "on_" + layer name + "_" + function name that is bound to the
        event.

        `params` is a dictionary of keyword arguments. Returns the method's result, None when
        nothing is bound or the scene has no such method.
        """

    def CallInnerEvent(self, eventName: str, params: Mapping[str, Any] | None = None) -> Any:
        """Call the scene's method that is bound to a built-in event, as CallEvent does."""

    def AddPoint(self, pointName: str, pointType: Any, px: float, py: float) -> None:
        """Add a debug point at screen pixels `px`, `py`."""

    def AddLine(
        self, lineName: str, lineType: Any, x1: float, y1: float, x2: float, y2: float
    ) -> None:
        """Add a debug line between two points, screen pixels."""

    def AddRect(
        self, rectName: str, rectType: Any, x1: float, y1: float, x2: float, y2: float
    ) -> None:
        """Add a debug rectangle with two opposite corners, screen pixels."""

    def GetPointArray(self) -> list[list[Any]]:
        """Return `PointArray`: debug points"""

    def GetLineArray(self) -> list[list[Any]]:
        """Return `LineArray`: debug lines"""

    def GetRectArray(self) -> list[list[Any]]:
        """Return `RectArray`: debug rectangles"""

    def DelPoint(self, index: int) -> None:
        """Remove the debug point at that position; positions out of range are ignored."""

    def DelLine(self, index: int) -> None:
        """Remove the debug line at that position; positions out of range are ignored."""

    def DelRect(self, index: int) -> None:
        """Remove the debug rectangle at that position; positions out of range are ignored."""

    def SetBindingEvent(self, eventName: str, functionName: str | None, functionCode: Any) -> None:
        """Bind the event to the scene's method that is named after `functionName`.

        `functionCode` is kept beside it for editors.
        """

    def GetBindingEvent(self, eventName: str) -> list[Any]:
        """Return the entry of that name; KeyError for an unknown one."""

    def DelBindingEvent(self, eventName: str) -> None:
        """Delete the entry of that name; KeyError for an unknown one."""

    def CleanUpBindingEvent(self) -> None:
        """Empty the table in place."""

    def GetBindingEventArray(self) -> dict[str, list[Any]]:
        """Return the table itself."""

    def SetInnerBindingEvent(
        self, eventName: str, functionName: str | None, functionCode: Any
    ) -> None:
        """Bind the event to the scene's method that is named after `functionName`.

        `functionCode` is kept beside it for editors.
        """

    def GetInnerBindingEvent(self, eventName: str) -> list[Any]:
        """Return the entry of that name; KeyError for an unknown one."""

    def DelInnerBindingEvent(self, eventName: str) -> None:
        """Delete the entry of that name; KeyError for an unknown one."""

    def CleanUpInnerBindingEvent(self) -> None:
        """Empty the table in place."""

    def GetInnerBindingEventArray(self) -> dict[str, list[Any]]:
        """Return the table itself."""

@_disjoint_base
class GameNode:
    """A placed object of the scene: position, scale, angle, size, children, events.

    `parent` is the owning node or None, `x` and `y` place the anchor relative to the parent's
    top-left corner, in pixels.
    """

    NodeType: str
    """kind of node, "GameNode" here"""
    sceneInstance: Any
    """the scene object, or None"""
    parent: GameNode | None
    """the owning node, or None"""
    children: list[GameNode]
    """child nodes, the first drawn first"""
    sortIndex: int
    """place in the parent's children"""
    KeyDownFunctionDict: dict[Any, Callable[[], Any]]
    """key to press callback"""
    KeyUpFunctionDict: dict[Any, Callable[[], Any]]
    """key to release callback"""
    BindingVarArray: dict[str, Any]
    """named script variables"""
    BindingEventArray: dict[str, list[Any]]
    """named script events"""
    BindingPointArray: dict[str, tuple[Any, float, float]]
    """named attachment points"""
    InnerBindingEventArray: dict[str, list[Any]]
    """built-in events"""
    PickDownFunction: Callable[[Self], Any] | None
    """called with the node when it is pressed, or None"""
    Enable_PickDown: bool
    """whether presses are taken"""
    PickUpFunction: Callable[[Self], Any] | None
    """called with the node on a release over it, or None"""
    Enable_PickUp: bool
    """whether releases are taken"""
    UpdateFunction: Callable[[float], Any] | None
    """called with the delay on every update, or None"""
    x: float
    """left position of the anchor in the parent, pixels"""
    y: float
    """top position of the anchor in the parent, pixels"""
    sx: float
    """horizontal scale factor"""
    sy: float
    """vertical scale factor"""
    angle: float
    """rotation in degrees, counter-clockwise"""
    width: float
    """unscaled width, pixels"""
    height: float
    """unscaled height, pixels"""
    anchorx: float
    """anchor as a fraction of the width"""
    anchory: float
    """anchor as a fraction of the height"""
    instanceID: int
    """number in the layer, -1 for none"""
    visible: bool
    """whether the subtree is drawn and can be hit"""
    ActionPlayer: _ActionPlayer | None
    """player of the node's actions, or None"""
    rectvisible: bool
    """draw the size rectangle"""
    anchorvisible: bool
    """draw the anchor marker"""
    lock_xysa: bool
    """freeze the cached world values"""
    WSX: float
    """cached horizontal world scale"""
    WSY: float
    """cached vertical world scale"""
    WAngle: float
    """cached world rotation, degrees"""
    WX: float
    """cached left edge on the screen, pixels"""
    WY: float
    """cached top edge on the screen, pixels"""
    clicked: bool
    """pressed at the moment"""
    CheckPickDownChild: bool
    """whether a press or release that a child takes is answered with the child; if false, with the
    node itself
    """
    collisionType: int
    """kind of collision shape, -1 for none"""
    collisionInfo: Any
    """data of the collision shape"""
    editrectenable: bool
    """edit rectangle can be dragged"""
    editrectvisible: bool
    """edit rectangle is drawn"""
    dragcornerindex: int
    """handle being dragged, negative for none"""
    dragbegin_x: float
    """x of the pointer where a drag began, pixels"""
    dragbegin_y: float
    """y of the pointer where a drag began, pixels"""
    focusIn: bool
    """has the keyboard focus"""
    userData: Any
    """free for scripts"""

    @property
    def X(self) -> float:
        """Position of the anchor, through GetX and SetX."""
    @X.setter
    def X(self, value: float) -> None: ...
    @property
    def Y(self) -> float:
        """Position of the anchor, through GetY and SetY."""
    @Y.setter
    def Y(self, value: float) -> None: ...
    def __init__(self, parent: GameNode | None, x: float = 0, y: float = 0) -> None: ...
    def GetX(self) -> float:
        """Return `x`: left position of the anchor in the parent, pixels"""

    def SetX(self, x: float) -> None:
        """Set `x`: left position of the anchor in the parent, pixels"""

    def GetY(self) -> float:
        """Return `y`: top position of the anchor in the parent, pixels"""

    def SetY(self, y: float) -> None:
        """Set `y`: top position of the anchor in the parent, pixels"""

    def GetXY(self) -> tuple[float, float]:
        """Return `x` and `y`."""

    def SetXY(self, x: float, y: float) -> None:
        """Set `x` and `y`."""

    def GetSX(self) -> float:
        """Return `sx`: horizontal scale factor"""

    def SetSX(self, sx: float) -> None:
        """Set `sx`: horizontal scale factor"""

    def GetSY(self) -> float:
        """Return `sy`: vertical scale factor"""

    def SetSY(self, sy: float) -> None:
        """Set `sy`: vertical scale factor"""

    def GetSXY(self) -> tuple[float, float]:
        """Return `sx` and `sy`."""

    def SetSXY(self, sx: float, sy: float) -> None:
        """Set `sx` and `sy`."""

    def GetAngle(self) -> float:
        """Return `angle`: rotation in degrees, counter-clockwise"""

    def SetAngle(self, angle: float) -> None:
        """Set `angle`: rotation in degrees, counter-clockwise"""

    def GetAX(self) -> float:
        """Return `anchorx`: anchor as a fraction of the width"""

    def SetAX(self, ax: float) -> None:
        """Set `anchorx`: anchor as a fraction of the width"""

    def GetAY(self) -> float:
        """Return `anchory`: anchor as a fraction of the height"""

    def SetAY(self, ay: float) -> None:
        """Set `anchory`: anchor as a fraction of the height"""

    def GetAXY(self) -> tuple[float, float]:
        """Return `anchorx` and `anchory`."""

    def SetAXY(self, ax: float, ay: float) -> None:
        """Set `anchorx` and `anchory`."""

    def GetWidth(self) -> float:
        """Return `width`: unscaled width, pixels"""

    def SetWidth(self, w: float) -> None:
        """Set `width`: unscaled width, pixels"""

    def GetHeight(self) -> float:
        """Return `height`: unscaled height, pixels"""

    def SetHeight(self, h: float) -> None:
        """Set `height`: unscaled height, pixels"""

    def IsVisible(self) -> bool:
        """Return `visible`: whether the subtree is drawn and can be hit"""

    def SetVisible(self, v: bool) -> None:
        """Set `visible`: whether the subtree is drawn and can be hit"""

    def IsAnchorVisible(self) -> bool:
        """Return `anchorvisible`: draw the anchor marker"""

    def SetAnchorVisible(self, v: bool) -> None:
        """Set `anchorvisible`: draw the anchor marker"""

    def IsSizeRectVisible(self) -> bool:
        """Return `rectvisible`: draw the size rectangle"""

    def SetSizeRectVisible(self, v: bool) -> None:
        """Set `rectvisible`: draw the size rectangle"""

    def IsFocusIn(self) -> bool:
        """Return `focusIn`: has the keyboard focus"""

    def SetFocusIn(self, v: bool) -> None:
        """Set `focusIn`: has the keyboard focus"""

    def GetCollision(self) -> tuple[int, Any]:
        """Return `collisionType` and `collisionInfo`."""

    def SetCollision(self, type: int, info: Any) -> None:
        """Set `collisionType` and `collisionInfo`."""

    def GetCheckPickDownChild(self) -> bool:
        """Return `CheckPickDownChild`: whether a press or release that a child takes is answered
        with the child; if false, with the node itself
        """

    def SetCheckPickDownChild(self, v: bool) -> None:
        """Set `CheckPickDownChild`: whether a press or release that a child takes is answered with
        the child; if false, with the node itself
        """

    def GetUserData(self) -> Any:
        """Return `userData`: free for scripts"""

    def SetUserData(self, d: Any) -> None:
        """Set `userData`: free for scripts"""

    def GetSortIndex(self) -> int:
        """Return `sortIndex`: place in the parent's children"""

    def SetSortIndex(self, i: int) -> None:
        """Set `sortIndex`: place in the parent's children"""

    def GetInstanceID(self) -> int:
        """Return `instanceID`: number in the layer, -1 for none"""

    def SetInstanceID(self, i: int) -> None:
        """Set `instanceID`: number in the layer, -1 for none"""

    def GetSceneInstance(self) -> Any:
        """Return `sceneInstance`: the scene object, or None"""

    def GetNodeType(self) -> str:
        """Return `NodeType`: kind of node, "GameNode" here"""

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

    def GetParent(self) -> GameNode | None:
        """Return `parent`: the owning node, or None"""

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

    def GetAXW(self) -> float:
        """Return the anchor's offset from the left, unscaled pixels."""

    def GetAYH(self) -> float:
        """Return the anchor's offset from the top, unscaled pixels."""

    def GetPAXW(self) -> float:
        """Return the parent's GetAXW(), or 0.0 without one."""

    def GetPAYH(self) -> float:
        """Return the parent's GetAYH(), or 0.0 without one."""

    def GetWX(self) -> float:
        """Return the world position of the left edge, without the camera; the cached `WX` while
        `lock_xysa` is true.
        """

    def GetWY(self) -> float:
        """Return the world position of the top edge, without the camera; the cached `WY` while
        `lock_xysa` is true.
        """

    def GetWXY(self) -> tuple[float, float]:
        """Return the pair GetWX(), GetWY()."""

    def GetWPX(self) -> float:
        """Return the parent's GetWX(), or 0.0 without one."""

    def GetWPY(self) -> float:
        """Return the parent's GetWY(), or 0.0 without one."""

    def GetWPXY(self) -> tuple[float, float]:
        """Return the pair GetWPX(), GetWPY()."""

    def GetWSX(self) -> float:
        """Return the horizontal world scale: the product down the tree."""

    def GetWSY(self) -> float:
        """Return the vertical world scale: the product down the tree."""

    def GetWSXY(self) -> tuple[float, float]:
        """Return the pair GetWSX(), GetWSY()."""

    def GetWPSX(self) -> float:
        """Return the parent's GetWSX(), or 1.0 without one."""

    def GetWPSY(self) -> float:
        """Return the parent's GetWSY(), or 1.0 without one."""

    def GetWPSXY(self) -> tuple[float, float]:
        """Return the pair GetWPSX(), GetWPSY()."""

    def GetWAngle(self) -> float:
        """Return the world angle in degrees: the sum down the tree."""

    def GetWPAngle(self) -> float:
        """Return the parent's GetWAngle(), or 0.0 without one."""

    def GetCenterX(self) -> float:
        """Return the world position of the anchor, x."""

    def GetCenterY(self) -> float:
        """Return the world position of the anchor, y."""

    def GetCenterXY(self) -> tuple[float, float]:
        """Return the pair GetCenterX(), GetCenterY()."""

    def GetLeft(self) -> float:
        """Return the smallest left edge in the subtree."""

    def GetTop(self) -> float:
        """Return the smallest top edge in the subtree."""

    def GetRight(self) -> float:
        """Return the largest right edge in the subtree."""

    def GetBottom(self) -> float:
        """Return the smallest bottom edge in the subtree."""

    def GetSizeRect(self) -> pygame.Rect:
        """Return a new pygame.Rect at GetWX(), GetWY() in the drawn size."""

    def Clamp(self, value: _T, min: _T, max: _T) -> _T:
        """Return `value` limited to the range from `min` to `max`."""

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
        """Draw the visible children in list order."""

    def drawsize(self, screen: pygame.Surface) -> None:
        """Outline the drawn rectangle while `rectvisible` is true."""

    def drawAnchor(self, screen: pygame.Surface, scale: float = 1.0) -> None:
        """Mark the anchor while `anchorvisible` is true; `scale` multiplies the marker."""

    def drawToSurface(
        self, surface: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the node and its subtree into a surface of the script's.

        The world values are cached for that camera until the next draw.
        """

    def drawToSurface_children(
        self, surface: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the visible children into a surface of the script's."""

    def update(self, delay: float) -> None:
        """Advance the subtree by `delay` seconds: children first, then the running actions, then
        the update function.
        """

    def RunAction(self, *actions: GAction) -> None:
        """Play the actions one after another, in place of those that were running.

        Raises IndexError without any action.
        """

    def SetUpdateFunction(self, f: Callable[[float], Any] | None) -> None:
        """Set `UpdateFunction`: called with the delay on every update, or None"""

    def SetEditRectEnable(self, v: bool) -> None:
        """Set `editrectenable`: edit rectangle can be dragged"""

    def SetEditRectVisible(self, v: bool) -> None:
        """Set `editrectvisible`: edit rectangle is drawn"""

    def checkDragRect(self, x: float, y: float) -> int:
        """Return the index of the edit rectangle's handle under the point, or -2.

        Handles are numbered row by row from 0 (left top) to 8 (right bottom).
        """

    def drawDragRect(self, screen: pygame.Surface, size: float, dragcornerindex: int) -> None:
        """Draw the edit rectangle with handles of `size` pixels while `editrectvisible` is true."""

    def OnEditRectDraging(self, x: float, y: float) -> None:
        """Move or resize the node with the handle being dragged; the pointer is at `x`, `y`."""

    def SetPickDownFunction(self, f: Callable[[Self], Any] | None) -> None:
        """Set `PickDownFunction`: called with the node when it is pressed, or None"""

    def SetPickUpFunction(self, f: Callable[[Self], Any] | None) -> None:
        """Set `PickUpFunction`: called with the node on a release over it, or None"""

    def EnablePickDownEvent(self, v: bool) -> None:
        """Set `Enable_PickDown`: whether presses are taken"""

    def EnablePickUpEvent(self, v: bool) -> None:
        """Set `Enable_PickUp`: whether releases are taken"""

    def SetKeyDownFunction(self, keyname: Hashable, function: Callable[[], Any]) -> None:
        """Call `function` without arguments when the key is pressed."""

    def SetKeyUpFunction(self, keyname: Hashable, function: Callable[[], Any]) -> None:
        """Call `function` without arguments when the key is released."""

    def OnPickDownFunction(self, x: float, y: float) -> GameNode | None:
        """Handle a press at screen position `x`, `y` in pixels.

        Children are asked first, the topmost before the others; then a handle of the edit
        rectangle or the drawn rectangle takes it. Returns the node that took the press, or
        None.
        """

    def OnPickUpFunction(self, x: float, y: float) -> GameNode | None:
        """Handle a release at screen position `x`, `y` in pixels.

        Returns the node that took the release, or None.
        """

    def OnKeyDownFunction(self, key: Hashable) -> None:
        """Run the callable registered for the pressed key."""

    def OnKeyUpFunction(self, key: Hashable) -> None:
        """Run the callable registered for the released key."""

    def checkClick(self, px: float, py: float) -> bool:
        """Return whether the node is visible and the point lies in its drawn rectangle."""

    def checkCollision(self, gameNode: GameNode, moveX: float = 0, moveY: float = 0) -> bool:
        """Return whether the size rectangles collide when the other node is moved, in pixels."""

    def checkEventRectCollision(
        self, objrect: _RectValue, moveX: float = 0, moveY: float = 0
    ) -> bool:
        """Return whether the size rectangle collides with a moved copy of `objrect`."""

    def SetBindingEvent(self, eventName: str, functionName: str | None, functionCode: Any) -> None:
        """Bind the event to the scene's method that is named after `functionName`.

        `functionCode` is kept beside it for editors.
        """

    def GetBindingEvent(self, eventName: str) -> list[Any]:
        """Return the entry of that name; KeyError for an unknown one."""

    def DelBindingEvent(self, eventName: str) -> None:
        """Delete the entry of that name; KeyError for an unknown one."""

    def CleanUpBindingEvent(self) -> None:
        """Empty the table in place."""

    def GetBindingEventArray(self) -> dict[str, list[Any]]:
        """Return the table itself."""

    def SetInnerBindingEvent(
        self, eventName: str, functionName: str | None, functionCode: Any
    ) -> None:
        """Bind the event to the scene's method that is named after `functionName`.

        `functionCode` is kept beside it for editors.
        """

    def GetInnerBindingEvent(self, eventName: str) -> list[Any]:
        """Return the entry of that name; KeyError for an unknown one."""

    def DelInnerBindingEvent(self, eventName: str) -> None:
        """Delete the entry of that name; KeyError for an unknown one."""

    def CleanUpInnerBindingEvent(self) -> None:
        """Empty the table in place."""

    def GetInnerBindingEventArray(self) -> dict[str, list[Any]]:
        """Return the table itself."""

    def SetBindingPoint(self, pointName: str, posType: Any, x: float, y: float) -> None:
        """Store the triple `posType`, `x`, `y` under the point's name."""

    def GetBindingPoint(self, pointName: str) -> tuple[Any, float, float]:
        """Return the entry of that name; KeyError for an unknown one."""

    def DelBindingPoint(self, pointName: str) -> None:
        """Delete the entry of that name; KeyError for an unknown one."""

    def CleanUpBindingPoint(self) -> None:
        """Empty the table in place."""

    def GetBindingPointArray(self) -> dict[str, tuple[Any, float, float]]:
        """Return the table itself."""

    def SetBindingVar(self, varname: str, varvalue: Any) -> None:
        """Store a value under the variable's name."""

    def GetBindingVar(self, varname: str) -> Any:
        """Return the entry of that name; KeyError for an unknown one."""

    def DelBindingVar(self, varname: str) -> None:
        """Delete the entry of that name; KeyError for an unknown one."""

    def CleanUpBindingVar(self) -> None:
        """Empty the table in place."""

    def GetBindingVarArray(self) -> dict[str, Any]:
        """Return the table itself."""

    def CallEvent(self, eventName: str, params: Mapping[str, Any] | None = None) -> Any:
        """Call the scene's method "on_" + function name that is bound to the event.

        `params` is a dictionary of keyword arguments. Returns the method's result, None when
        nothing is bound or the scene has no such method.
        """

    def CallInnerEvent(self, eventName: str, params: Mapping[str, Any] | None = None) -> Any:
        """Call the scene's method that is bound to a built-in event, as CallEvent does."""

@_disjoint_base
class GUI_Image(GameNode):
    """A widget with a picture, a frame animation or a plain background, and a border.

    `x` and `y` place the anchor relative to the parent's top-left corner, in pixels. Without a
    picture it is a white box of 100 x 100 pixels.
    """

    bgColor: pygame.Color | None
    """tint or background colour, or None"""
    alpha: float
    """opacity of the picture, 0 to 255"""
    image: pygame.Surface | None
    """the current surface, or None"""
    imageArray: list[pygame.Surface | None] | None
    """the frames, or None"""
    imageFrameRectArray: dict[str, pygame.Rect]
    """frame name to its rectangle in the atlas"""
    imagefiles: _ImageFiles
    """what SetImage was given"""
    imageCount: int
    """number of frames"""
    imageIndex: int
    """frame of the animation"""
    imageDelay: float
    """time towards the next frame, seconds"""
    imageSwitchDelay: float
    """time per frame, seconds"""
    imageAutoSwitch: bool
    """frame animation on or off"""
    plistFile: str | None
    """atlas that the frames came from, or None"""
    currActionName: str | None
    """current animation, or None"""
    originalImage: GUI_Image | None
    """widget that is mirrored, or None"""
    autosize: bool
    """the size follows the picture"""
    blendtype: int
    """blend flag of the picture's blit"""
    borderwidth: int
    """border thickness, pixels"""
    borderVisible: bool
    """whether the border is drawn"""
    borderColor: pygame.Color
    """border colour of the solid style"""
    borderColor_LT: pygame.Color
    """light edge of the relief"""
    borderColor_RB: pygame.Color
    """dark edge of the relief"""
    imageAnchor: str
    """anchor keyword"""
    coll_visible: bool
    """draw the collision rectangles"""
    coll_rectArray: dict[str, list[Any]]
    """collision rectangles: name to a list"""
    style: str | None
    """ "flat", "raised", "sunken", "solid", "hollow" or None"""
    enable: bool
    """accepts input"""

    def __init__(self, parent: GameNode | None = None, x: float = 0, y: float = 0) -> None: ...
    def GetImage(self) -> pygame.Surface | None:
        """Return `image`: the current surface, or None"""

    def GetOriginalImage(self) -> GUI_Image | None:
        """Return `originalImage`: widget that is mirrored, or None"""

    def GetImageCount(self) -> int:
        """Return `imageCount`: number of frames"""

    def GetImageFiles(self) -> _ImageFiles:
        """Return `imagefiles`: what SetImage was given"""

    def GetPlistFile(self) -> str | None:
        """Return `plistFile`: atlas that the frames came from, or None"""

    def GetCurrActionName(self) -> str | None:
        """Return `currActionName`: current animation, or None"""

    def GetImageAnchor(self) -> str:
        """Return `imageAnchor`: anchor keyword"""

    def GetBlendType(self) -> int:
        """Return `blendtype`: blend flag of the picture's blit"""

    def IsAutoImageSize(self) -> bool:
        """Return `autosize`: the size follows the picture"""

    def GetSwitchImageDelay(self) -> float:
        """Return `imageSwitchDelay`: time per frame, seconds"""

    def SetSwitchImageDelay(self, delay: float) -> None:
        """Set `imageSwitchDelay`: time per frame, seconds"""

    def SetAutoSwitch(self, flag: bool) -> None:
        """Set `imageAutoSwitch`: frame animation on or off"""

    def IsEnable(self) -> bool:
        """Return `enable`: accepts input"""

    def SetEnable(self, flag: bool) -> None:
        """Set `enable`: accepts input"""

    def SetImage(self, imagefiles: _ImageFiles, switchdelay: float = 0.1) -> None:
        """Set the picture: a file name, a list of files (the frames), an atlas (".plist"), a
        surface, or None.

        Files are loaded through `Res`; `switchdelay` is the time per frame in seconds. The
        running frame index is kept.
        """

    def UseImage(self, originalImage: GUI_Image, autoSize: bool) -> None:
        """Mirror the picture of another widget from now on; see AutoImageSize for `autoSize`."""

    def AutoImageSize(self, autosize: bool) -> None:
        """Store the flag; while it is true the size follows the picture, from now on."""

    def SwitchImage(self, index: int) -> None:
        """Show frame `index`; an index out of range changes nothing. `imageIndex` is kept."""

    def update(self, delay: float) -> None:
        """Advance the frame animation by `delay` seconds, at most one frame, then the node."""

    def CheckInViewPort(self) -> bool:
        """Return whether the widget overlaps the scene's GetViewPort() (x, y, width, height);
        touching edges count.

        Raises AttributeError without a scene that has a viewport.
        """

    def GetBGColor(self) -> pygame.Color | None:
        """Return `bgColor`: tint or background colour, or None"""

    def GetBorderColor(self) -> pygame.Color:
        """Return `borderColor`: border colour of the solid style"""

    def GetBorderWidth(self) -> int:
        """Return `borderwidth`: border thickness, pixels"""

    def SetBorderWidth(self, width: int) -> None:
        """Set `borderwidth`: border thickness, pixels"""

    def IsBorderVisible(self) -> bool:
        """Return `borderVisible`: whether the border is drawn"""

    def SetBorderVisible(self, flag: bool) -> None:
        """Set `borderVisible`: whether the border is drawn"""

    def GetStyle(self) -> str | None:
        """Return `style`: "flat", "raised", "sunken", "solid", "hollow" or None"""

    def SetCollInfoVisible(self, flag: bool) -> None:
        """Set `coll_visible`: draw the collision rectangles"""

    def GetCollRectArray(self) -> dict[str, list[Any]]:
        """Return `coll_rectArray`: collision rectangles: name to a list"""

    def SetBGColor(self, r: int, g: int, b: int, a: int = 255) -> None:
        """Set the tint or background colour; components from 0 to 255."""

    def DropBGColor(self) -> None:
        """Use no tint and no background."""

    def SetBorderColor(self, r: int, g: int, b: int) -> None:
        """Set the opaque border colour of the solid style."""

    def SetStyle(self, style: str | None, borderVisible: bool = True) -> None:
        """Set the border style and, by default, show the border.

        Styles: "flat", "raised", "sunken", "solid", "hollow" (no background).
        """

    def SetBlendType(self, blendtype: str) -> None:
        """ "ADD" and "SUB" select pygame's BLEND_ADD and BLEND_SUB, anything else BLEND_MULT, which
        is drawn as a plain blit.
        """

    def SetImageAnchor(self, anchor: str) -> None:
        """Set the anchor by keyword: "wn", "n", "en", "w", "center", "e", "ws", "s", "es" in any
        case; others give the top-left corner.
        """

    def AddCollRect(self, collName: str, rect: _RectValue) -> None:
        """Add a collision rectangle (unscaled pixels from the top-left corner) under a name."""

    def CleanCollRect(self, collName: str) -> None:
        """Empty the list of that name."""

    def GetCollRect(self, collName: str) -> list[Any]:
        """Return the list of rectangles of that name; KeyError for an unknown one."""

    def CopyTo(self, other: GameNode) -> None:
        """Copy the widget's state into `other`; surfaces are shared, lists and colours copied."""

    def LoadImageFramesPList(self, plistFile: str, imageFile: str | None = None) -> None:
        """Read a frame atlas and make all its frames, in the file's order, the frames.

        `imageFile` is the sheet; by default the one that the atlas names, else the atlas's name
        with ".png". Rotated frames are turned back, trimmed ones placed in their source size.
        Raises the host's errors for missing files and malformed data.
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

    `fontname` is a system font, or a ".ttf" or ".otf" file that `Res` finds; `fontsize` is in
    pixels.
    """

    text: str
    """the string shown"""
    font: pygame.font.Font
    """pygame font that renders the text"""
    fontname: str
    """name of the font or its file"""
    fontsize: int
    """size of the font, pixels"""
    fontbold: bool
    """bold text"""
    fontitalic: bool
    """italic text"""
    fontunderline: bool
    """underlined text"""
    strikethrough: bool
    """text struck through"""
    textColor: pygame.Color
    """colour of the text"""
    HAlign: str
    """ "left", "center" or "right" """
    VAlign: str
    """ "top", "center" or "bottom" """
    textleftgap: float
    """distance from the left edge, pixels"""
    texttopgap: float
    """distance from the top edge, pixels"""
    textVisible: bool
    """whether the text is drawn"""
    showChar: str | None
    """character shown in place of each one, or None"""

    def __init__(
        self,
        parent: GameNode | None = None,
        x: float = 0,
        y: float = 0,
        text: str = "",
        fontname: str = "Arial",
        fontsize: int = 16,
    ) -> None: ...
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

        Raises AttributeError when `Res` does not find the file.
        """

    def SetFont(self, font: pygame.font.Font, fontname: str) -> None:
        """Use a ready font; its size and flags are not read."""

    def GetFont(self) -> pygame.font.Font:
        """Return `font`: pygame font that renders the text"""

    def GetFontName(self) -> str:
        """Return `fontname`: name of the font or its file"""

    def GetFontSize(self) -> int:
        """Return `fontsize`: size of the font, pixels"""

    def GetFontBold(self) -> bool:
        """Return `fontbold`: bold text"""

    def GetFontItalic(self) -> bool:
        """Return `fontitalic`: italic text"""

    def GetFontUnderline(self) -> bool:
        """Return `fontunderline`: underlined text"""

    def GetFontStrikeThrough(self) -> bool:
        """Return `strikethrough`: text struck through"""

    def GetText(self) -> str:
        """Return `text`: the string shown"""

    def SetText(self, text: str) -> None:
        """Set `text`: the string shown"""

    def GetTextColor(self) -> pygame.Color:
        """Return `textColor`: colour of the text"""

    def SetTextColor(self, r: int, g: int, b: int, a: int = 255) -> None:
        """Set the text colour; components from 0 to 255."""

    def GetTextHAlign(self) -> str:
        """Return `HAlign`: "left", "center" or "right" """

    def SetTextHAlign(self, align: str) -> None:
        """Set `HAlign`: "left", "center" or "right" """

    def GetTextVAlign(self) -> str:
        """Return `VAlign`: "top", "center" or "bottom" """

    def SetTextVAlign(self, align: str) -> None:
        """Set `VAlign`: "top", "center" or "bottom" """

    def GetTextLeftGap(self) -> float:
        """Return `textleftgap`: distance from the left edge, pixels"""

    def SetTextLeftGap(self, gap: float) -> None:
        """Set `textleftgap`: distance from the left edge, pixels"""

    def GetTextTopGap(self) -> float:
        """Return `texttopgap`: distance from the top edge, pixels"""

    def SetTextTopGap(self, gap: float) -> None:
        """Set `texttopgap`: distance from the top edge, pixels"""

    def IsTextVisible(self) -> bool:
        """Return `textVisible`: whether the text is drawn"""

    def SetTextVisible(self, flag: bool) -> None:
        """Set `textVisible`: whether the text is drawn"""

    def GetShowChar(self) -> str | None:
        """Return `showChar`: character shown in place of each one, or None"""

    def SetShowChar(self, char: str | None) -> None:
        """Set `showChar`: character shown in place of each one, or None"""

    def drawText(self, screen: pygame.Surface, text: str, textColor: _ColorValue) -> None:
        """Draw a text in a colour inside the widget, aligned, scaled and rotated with it."""

    def draw(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the picture or background, the text, border, overlays and children.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

    def CopyTo(self, other: GameNode) -> None:
        """Copy the image part and, into a label or button, the text and how it is shown."""

@_disjoint_base
class GUI_Button(GUI_Label):
    """A label that reacts to the mouse: normal, hovered and pressed.

    Assign `PickDownFunction` or `PickUpFunction` to learn of presses and releases.
    """

    textColor_hover: pygame.Color
    """text colour, pointer inside"""
    bgColor_hover: pygame.Color
    """background, pointer inside"""
    image_hover: pygame.Surface | None
    """picture, pointer inside, or None"""
    image_hover_File: str | None
    """file name of the hovered state's picture, or None"""
    image_click_File: str | None
    """file name of the pressed state's picture, or None"""
    textColor_click: pygame.Color
    """text colour while pressed"""
    bgColor_click: pygame.Color
    """background while pressed"""
    image_click: pygame.Surface | None
    """picture while pressed, or None"""

    def __init__(
        self,
        parent: GameNode | None = None,
        x: float = 0,
        y: float = 0,
        text: str = "",
        fontname: str = "Arial",
        fontsize: int = 16,
    ) -> None: ...
    def IsClicked(self) -> bool:
        """Return `clicked`: pressed at the moment"""

    def SetImage_Hover(self, imagefile: str) -> None:
        """Load the picture of the hovered state through `Res` and record its file."""

    def GetImage_Hover(self) -> pygame.Surface | None:
        """Return `image_hover`: picture, pointer inside, or None"""

    def GetImageFile_Hover(self) -> str | None:
        """Return `image_hover_File`: file name of the hovered state's picture, or None"""

    def SetBGColor_Hover(self, r: int, g: int, b: int) -> None:
        """Set the opaque background of the hovered state."""

    def GetBGColor_Hover(self) -> pygame.Color:
        """Return `bgColor_hover`: background, pointer inside"""

    def SetTextColor_Hover(self, r: int, g: int, b: int) -> None:
        """Set the opaque text colour of the hovered state."""

    def GetTextColor_Hover(self) -> pygame.Color:
        """Return `textColor_hover`: text colour, pointer inside"""

    def SetImage_Click(self, imagefile: str) -> None:
        """Load the picture of the pressed state through `Res` and record its file."""

    def GetImage_Click(self) -> pygame.Surface | None:
        """Return `image_click`: picture while pressed, or None"""

    def GetImageFile_Click(self) -> str | None:
        """Return `image_click_File`: file name of the pressed state's picture, or None"""

    def SetBGColor_Click(self, r: int, g: int, b: int) -> None:
        """Set the opaque background of the pressed state."""

    def GetBGColor_Click(self) -> pygame.Color:
        """Return `bgColor_click`: background while pressed"""

    def SetTextColor_Click(self, r: int, g: int, b: int) -> None:
        """Set the opaque text colour of the pressed state."""

    def GetTextColor_Click(self) -> pygame.Color:
        """Return `textColor_click`: text colour while pressed"""

    def OnPickDownFunction(self, x: float, y: float) -> GameNode | None:
        """Handle a press as a node does; a disabled button takes none."""

    def OnPickUpFunction(self, x: float, y: float) -> GameNode | None:
        """Handle a release as a node does; a disabled button only stops being pressed."""

    def draw(
        self, screen: pygame.Surface, offsetX: float = 0, offsetY: float = 0, scale: float = 1.0
    ) -> None:
        """Draw the look of the current state, the border, overlays and children.

        `offsetX`, `offsetY` (pixels) and `scale` are the camera.
        """

    def CopyTo(self, other: GameNode) -> None:
        """Copy the label part and, into a button, the colours and pictures of its states."""

@_disjoint_base
class PyGameResManager:
    """Finds every file below a folder and loads files by their bare names.

    Case does not matter. A folder that does not exist gives an empty index. Of files that share
    a name the one met last counts.
    """

    resdir: str
    """Root folder of the resources."""
    fontdir: str | None
    """Folder of the fonts; stored for scripts."""
    fileDict: dict[str, str]
    """Full paths by lower-case file name, which includes the extension."""
    ImageDict: dict[str, pygame.Surface]
    """Loaded surfaces by the names under which they were asked for."""
    soundDict: dict[int, pygame.mixer.Sound]
    """pygame.mixer.Sound objects by sound number."""
    ImageDict_MemManage_List: list[str]
    """Names of the loaded images, least recently used first."""
    ImageDict_MemManage_Total: int
    """Intended number of cached images; nothing is ever dropped for it."""
    ImageDict_MemManage_Count: int
    """Number of images loaded since the last release."""
    SceneJsonDict: list[str]
    """List of the scenes' names."""
    soundPlayCount: int
    """The next sound's number."""

    def __init__(self, resdir: str) -> None: ...
    def SetFontDir(self, path: str) -> None:
        """Set `fontdir`: Folder of the fonts; stored for scripts."""

    def FoundAllResFile(self, parentDir: str, dirType: str | None = None) -> None:
        """Add the files of a folder and of all folders below it to the index.

        `dirType` is the name of the top-level folder that is being read: files in "Scene" that
        have a "_Res.Json" file beside them are scenes.
        """

    def AddNewResFile(self, filePath: str) -> None:
        """Add one file to the index, which need not exist yet."""

    def GetResPath(self, filename: str) -> str | None:
        """Return the full path of a file named without its folder, or None if it is unknown."""

    def GetSceneList(self) -> list[str]:
        """Return `SceneJsonDict`: List of the scenes' names."""

    def LoadImage(self, fileName: str) -> pygame.Surface | None:
        """Return an image file as a surface with per-pixel alpha; later calls share it.

        Returns None for an unknown name, and for a file that does not load: the error is
        printed then.
        """

    def ManageImageMemory(self, fileName: str) -> None:
        """Note an image's use: its name moves to the end of the list of recent images.

        Prints a line about it.
        """

    def ReleaseAllImageMemeory(self) -> None:
        """Forget all loaded images and count them from 0 again."""

    def GetImageListFiles(self, fileName: str) -> list[str]:
        """Return the paths of the PNG files that number the frames of one sequence.

        `fileName` is one of them, such as walk_02.png. Every PNG file whose path begins like
        the part before the number counts, in the order of the file system: sort the list if the
        order matters. A file without a number is returned alone, an unknown one gives an empty
        list. Raises UnboundLocalError for a path with neither an underscore nor an extension.
        """

    def PlayMusic(self, fileName: str, loopcount: int = 0) -> None:
        """Play a music file in place of the one that is playing; an unknown name does nothing.

        `loopcount` is how often it is repeated after the first time, -1 for without end. Raises
        pygame.error for a file that does not play.
        """

    def StopMusic(self) -> None:
        """Stop the music."""

    def PlaySound(self, fileName: str) -> int:
        """Play a sound file and return its number for StopSound, or -1 for an unknown name.

        Every call loads the file again and keeps the sound. Raises pygame.error for a file that
        does not play.
        """

    def StopSound(self, soundID: int) -> None:
        """Stop the sound of that number; unknown numbers are ignored."""

    def GetFont(
        self, ttfFile: str, fontSize: int, bold: bool = False, italic: bool = False
    ) -> pygame.font.Font | None:
        """Return a new pygame.font.Font from a font file, or None for an unknown name.

        `fontSize` is its height in pixels. Errors of pygame pass on.
        """

@_disjoint_base
class GAction:
    """A timed job on a node; the base of all actions.

    Give actions to a node's RunAction, which plays them one after another.
    """

    running: bool
    """Whether the action was started and is not paused. It stays true at the end."""
    targetNode: GameNode | None
    """The node that the action works on, or None."""
    runtime: float
    """Seconds since the last Run."""
    over: bool
    """Whether the action has finished."""

    def __init__(self) -> None: ...
    def SetTarget(self, targetNode: GameNode | None) -> None:
        """Set `targetNode`: The node that the action works on, or None."""

    def IsRunning(self) -> bool:
        """Return `running`: Whether the action was started and is not paused. It stays true at the
        end.
        """

    def GetRunTime(self) -> float:
        """Return `runtime`: Seconds since the last Run."""

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

    def IsOver(self) -> bool:
        """Return `over`: Whether the action has finished."""

    def update(self, delay: float) -> None:
        """Add `delay` seconds to the run time, unless the action is paused or over."""

@_disjoint_base
class CallBackAction(GAction):
    """Calls a function once, when `duration` seconds are over.

    The function gets one argument: the dictionary `callbackParams`.
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
    """Scales a node to (`sx`, `sy`) in `duration` seconds."""

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
    """Adds (`sx`, `sy`) to a node's scale in the course of `duration` seconds."""

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
    """Turns a node to `angle` degrees in `duration` seconds.

    The turn is the plain difference of the two angles, never the shorter way round.
    """

    duration: float
    """Seconds that the turn takes."""
    srcAngle: float
    """The node's angle in degrees when the action was started."""
    dstAngle: float
    """The angle in degrees at the end."""

    def __init__(self, duration: float, angle: float) -> None: ...
    def Run(self) -> None:
        """Start from the node's angle (GetAngle); without a target nothing happens."""

    def update(self, delay: float) -> None:
        """Add `delay` seconds and turn the node with SetAngle."""

@_disjoint_base
class RotateByAction(GAction):
    """Turns a node by `angle` degrees in `duration` seconds."""

    duration: float
    """Seconds that the turn takes."""
    srcAngle: float
    """The node's angle in degrees when the action was started."""
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
    """

    duration: float
    """Seconds that all blinks take."""
    blinkcount: int
    """Number of blinks, -1 for without end."""
    delaytime: float
    """Seconds per blink; negative when there is no end."""
    blinkindex: int
    """Number of blinks so far."""

    def __init__(self, duration: float, blinkcount: int = -1) -> None: ...
    def Run(self) -> None:
        """Start the action; without a target nothing happens. Blinks so far are kept."""

    def update(self, delay: float) -> None:
        """Add `delay` seconds and hide or show the node with SetVisible.

        Every hiding of a visible node counts as a blink.
        """

@_disjoint_base
class ActionPlayer(GAction):
    """Plays a group of actions on a node, one after another; see GameNode.RunAction.

    Call SetTarget, AddActions and Run, in this order, before update: until then the attributes
    of the base class do not exist.
    """

    ActionArray: tuple[Sequence[GAction], ...] | None
    """The groups of actions, of which the first is played, or None."""
    ActionIndex: int
    """Place of the action that is playing in the first group."""

    def __init__(self) -> None: ...
    def AddActions(self, *groups: Sequence[GAction]) -> None:
        """Take the groups, each a sequence of actions, and give every action the player's target.

        Only the first group is played. Raises AttributeError before SetTarget.
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
