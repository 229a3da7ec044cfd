"""Packs the pictures of a folder into one atlas: python pack_atlas.py FOLDER NAME

Writes NAME.png, the sheet, and NAME.plist, its frames and animations. Clear borders are cut off,
tall pictures lie on their side, pictures of more than 256 pixels are left out. The frames of an
animation have a number at their end: run_0.png, run_1.png, ... Without arguments the pictures of
the platform game are packed.
"""

import os
import plistlib
import re
import sys

import pygame

DELAY = 0.1
LARGEST = 256


def split_name(name):
    """The name without the number at its end, and that number: ("run", 12) for run_12.png."""
    text, number = re.match(r"(.*?)_?(\d*)\.\w+$", name).groups()
    return text, int(number or -1)


def braces(first, second):
    return f"{{{first},{second}}}"


def pack(pictures, width=256):
    """The sheet and the property list of a dictionary from file names to surfaces."""
    frames, animations, pieces = {}, {}, []
    for name in sorted(pictures, key=split_name):
        whole = pictures[name]
        area = whole.get_bounding_rect() or pygame.Rect(0, 0, 1, 1)
        turned = area.height > area.width
        piece = whole.subsurface(area)
        pieces.append((pygame.transform.rotate(piece, -90) if turned else piece, name))
        # From the middle of the whole to the middle of what is left, y upwards.
        right = area.x + area.width / 2 - whole.get_width() / 2
        up = whole.get_height() / 2 - area.y - area.height / 2
        frames[name] = {
            "frame": area.size,
            "offset": braces(right, up),
            "rotated": turned,
            "sourceSize": braces(*whole.get_size()),
        }
        action = split_name(name)[0]
        animations.setdefault(action, {"frames": [], "delay": DELAY})["frames"].append(name)
    # In rows, the highest pieces first, from left to right.
    pieces.sort(key=lambda entry: -entry[0].get_height())
    width = max([width] + [piece.get_width() for piece, _ in pieces])
    x = y = row = 0
    places = []
    for piece, name in pieces:
        if x + piece.get_width() > width:
            x, y, row = 0, y + row, 0
        frames[name]["frame"] = braces(braces(x, y), braces(*frames[name]["frame"]))
        places.append((piece, (x, y)))
        x, row = x + piece.get_width(), max(row, piece.get_height())
    sheet = pygame.Surface((width, y + row), pygame.SRCALPHA, 32)
    sheet.blits(places)
    return sheet, {"frames": frames, "animations": animations}


def main(folder, name):
    files = [file for file in os.listdir(folder) if file.lower().endswith(".png")]
    pictures = {file: pygame.image.load(os.path.join(folder, file)) for file in files}
    small = {file: each for file, each in pictures.items() if max(each.get_size()) <= LARGEST}
    sheet, contents = pack(small)
    pygame.image.save(sheet, name + ".png")
    with open(name + ".plist", "wb") as file:
        plistlib.dump(contents, file, sort_keys=False)
    left_out = len(pictures) - len(small)
    print(f"{len(small)} pictures on a sheet of {sheet.get_size()}, {left_out} left out")
    print("wrote " + os.path.abspath(name + ".png"))


if __name__ == "__main__":
    here = os.path.dirname(os.path.abspath(__file__))
    main(*(sys.argv[1:] or (os.path.join(here, "platformer", "assets"), "pack_atlas")))
