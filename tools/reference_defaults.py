"""What attributes hold in a new object: read from objects that are made for it."""

import ast
import tempfile
import warnings

import pygame
import Tessora

from common import Problem

LONGEST = 60


class Default:
    """`code` is the value as Python writes it, or None; `words` then tell what there is."""

    def __init__(self, code=None, words=None):
        self.code, self.words = code, words


def parameters(signature):
    """Names, kinds and types: (name, "plain", "rest" or "keywords", annotation, required)."""
    arguments = ast.parse(f"def f{signature}: ...".replace(") -> None:", "):")).body[0].args
    plain = arguments.args
    without = len(plain) - len(arguments.defaults)
    for place, argument in enumerate(plain):
        yield argument.arg, "plain", ast.dump(argument.annotation), place < without
    for argument, kind in ((arguments.vararg, "rest"), (arguments.kwarg, "keywords")):
        if argument:
            yield argument.arg, kind, ast.dump(argument.annotation), False


def defaults(row):
    """By the name of the attribute, for one class of the declarations."""
    found = list(parameters(row["signature"]))
    with tempfile.TemporaryDirectory() as folder:
        samples = {name: _samples(row, name, kind, type_, folder) for name, kind, type_, _ in found}
        given = {name: samples[name][0] for name, _, _, required in found if required}
        plain = _state(row, given)
        changed = {name: _state(row, {**given, name: samples[name][1]}) for name, *_ in found}
    result = {}
    for name, default in plain.items():
        causes = [
            f"`{each}`"
            for each, state in changed.items()
            if (state[name].code, state[name].words) != (default.code, default.words)
        ]
        if causes:
            end = " and ".join([", ".join(causes[:-1]), causes[-1]] if causes[1:] else causes)
            words = f"from the argument{'s' if causes[1:] else ''} {end}"
            result[name] = Default(words=words)
        else:
            result[name] = default
    return result


def _samples(row, name, kind, type_, folder):
    """Two values that differ, for a parameter."""
    if kind == "keywords":
        return {}, {"key": 1}
    # The first name of the annotation that is known decides.
    values = {
        "'GameNode'": (None, Tessora.GameNode(None)),
        "'_File'": (folder, folder + "/none"),
        "'Callable'": (None, print),
        "'float'": (3, 7),
        "'int'": (3, 7),
        "'str'": ("one", "two"),
        "'Any'": ("one", "two"),
    }
    places = [(type_.index(each), each) for each in values if each in type_]
    if not places:
        raise Problem(f"{row['name']}: no sample of the argument {name} is known.")
    return values[min(places)[1]]


def _state(row, given):
    plain, keywords = [], {}
    for name, kind, _, _ in parameters(row["signature"]):
        if name in given and kind == "plain":
            plain.append((name, given[name]))
        elif name in given:
            keywords.update(given[name])
    with warnings.catch_warnings():
        # The samples name no font that there is.
        warnings.simplefilter("ignore")
        made = getattr(Tessora, row["name"])(**dict(plain), **keywords)
    names = [member["name"] for member in row["members"] if member["kind"] != "method"]
    return {name: _read(made, name) for name in names}


def _read(made, name):
    try:
        value = getattr(made, name)
    except AttributeError:
        return Default(words="not there until it is set")
    return shown(value)


def shown(value):
    """A value as code where that is short and exact, else in words."""
    if value is None or isinstance(value, (bool, int, float, str)):
        return Default(code=repr(value))
    if isinstance(value, pygame.Color):
        return Default(code=f"pygame.Color{tuple(value)}")
    if isinstance(value, pygame.math.Vector2):
        return Default(code=f"pygame.math.Vector2({value.x:g}, {value.y:g})")
    if isinstance(value, list) and len(value) > 3 and all(each == value[0] for each in value):
        return Default(words=f"a list that holds `{value[0]!r}` {len(value)} times")
    if isinstance(value, (list, tuple, dict)):
        if len(repr(value)) <= LONGEST and " at 0x" not in repr(value):
            return Default(code=repr(value))
        kind = "a dictionary with the keys " if isinstance(value, dict) else "a list of "
        return Default(words=kind + ", ".join(f"`{each!r}`" for each in value))
    kind = type(value)
    where = "" if kind.__module__ in ("builtins", "Tessora") else kind.__module__ + "."
    name = where + kind.__name__
    return Default(words=f"{'an' if name[0] in 'AEIOUaeiou' else 'a'} `{name}`")
