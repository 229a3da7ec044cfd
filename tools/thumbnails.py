"""Makes the README's small pictures of the examples, docs/thumb_NAME.png, by playing them."""

import tempfile

import pygame

import examples
from common import ROOT, Problem

NAMES = ("star_catcher", "platformer", "visual_novel", "layers", "diamond_map", "character")
NAMES += ("widgets", "particles", "debug_overlay")
SIZE = 240, 150
LARGEST = 40_000  # bytes, as a clone carries every version of them


def path(name):
    return ROOT / "docs" / f"thumb_{name}.png"


def thumbnail(picture):
    """A picture in the thumbnails' shape, in fewer shades, which pack smaller."""
    ratios = [SIZE[axis] / picture.get_size()[axis] for axis in (0, 1)]
    # Small differences of shape cut a little off, large ones leave margins.
    alike = max(ratios) / min(ratios) < 1.1
    scale = max(ratios) if alike else min(ratios)
    fitting = [round(length * scale) for length in picture.get_size()]
    whole = pygame.Surface(SIZE, 0, 24)
    whole.fill(picture.get_at((0, 0)))
    small = pygame.transform.smoothscale(picture, fitting)
    whole.blit(small, small.get_rect(center=whole.get_rect().center))
    shades = bytes(value & 0xF8 for value in pygame.image.tobytes(whole, "RGB"))
    return pygame.image.frombytes(shades, SIZE, "RGB")


def main():
    for name in NAMES:
        with tempfile.TemporaryDirectory() as folder:
            drawn = pygame.image.load(examples.draw(name, folder))
        pygame.image.save(thumbnail(drawn), str(path(name)))
        size = path(name).stat().st_size
        print(f"{path(name).relative_to(ROOT)}: {size} bytes", flush=True)
        if size > LARGEST:
            raise Problem(f"{path(name).name} is larger than {LARGEST} bytes.")


if __name__ == "__main__":
    main()
