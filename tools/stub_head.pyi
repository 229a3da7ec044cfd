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
