"""Makes the map and the tile set of `tmx_map.py`, in the formats that the Tiled editor writes.

The finished files are part of the example; run this only to change them.
"""

import os

import pygame

FOLDER = os.path.dirname(os.path.abspath(__file__))
TILES = os.path.join(FOLDER, os.pardir, "platformer", "assets")
TILE = 32
# The tiles of the set, in order, and those that collide.
NAMES = "grass grass_l grass_r earth1 earth2 stone plank flowers bush".split()
SOLID = NAMES[:7]
GROUND = (
    "....................",
    "....................",
    "....................",
    "....................",
    "...===........===...",
    "....................",
    ".......S....S.......",
    ".......SSSSSS.......",
    "....................",
    "[##]............[##]",
    "eEee[##########]eEee",
    "eeeEeEeeEeeeEeeEeeeE",
    "EeeeeeEeeeEeeeeeeEee",
)
PLANTS = (
    ("." * 20,) * 3
    + ("...*..........*.....",)
    + ("." * 20,) * 4
    + (
        ".%.*............%*..",
        "......%*....*.......",
        "." * 20,
        "." * 20,
        "." * 20,
    )
)
LETTERS = dict(zip("#[]eES=*%", range(1, 10)))


def layer(number, name, rows):
    cells = ",\n".join(",".join(str(LETTERS.get(letter, 0)) for letter in row) for row in rows)
    size = f'width="{len(rows[0])}" height="{len(rows)}"'
    data = f'<data encoding="csv">\n{cells}\n</data>'
    return f' <layer id="{number}" name="{name}" {size}>\n  {data}\n </layer>\n'


def main():
    image = pygame.Surface((TILE * len(NAMES), TILE), pygame.SRCALPHA, 32)
    for index, name in enumerate(NAMES):
        image.blit(pygame.image.load(os.path.join(TILES, name + ".png")), (index * TILE, 0))
    pygame.image.save(image, os.path.join(FOLDER, "meadow.png"))

    columns, rows = len(GROUND[0]), len(GROUND)
    size = f'width="{columns}" height="{rows}" tilewidth="{TILE}" tileheight="{TILE}"'
    solid = "".join(
        f'  <tile id="{NAMES.index(name)}">\n   <properties>\n'
        '    <property name="solid" type="bool" value="true"/>\n   </properties>\n  </tile>\n'
        for name in SOLID
    )
    with open(os.path.join(FOLDER, "meadow.tmx"), "w", encoding="utf-8", newline="\n") as file:
        file.write(
            '<?xml version="1.0" encoding="UTF-8"?>\n'
            f'<map version="1.10" orientation="orthogonal" renderorder="right-down" {size} '
            'infinite="0" nextlayerid="4" nextobjectid="2">\n'
            f' <tileset firstgid="1" name="meadow" tilewidth="{TILE}" tileheight="{TILE}" '
            f'tilecount="{len(NAMES)}" columns="{len(NAMES)}">\n'
            f'  <image source="meadow.png" width="{TILE * len(NAMES)}" height="{TILE}"/>\n'
            f"{solid} </tileset>\n"
            f"{layer(1, 'plants', PLANTS)}{layer(2, 'ground', GROUND)}"
            ' <objectgroup id="3" name="things">\n'
            '  <object id="1" name="ball" x="300" y="40"/>\n </objectgroup>\n</map>\n'
        )


if __name__ == "__main__":
    main()
