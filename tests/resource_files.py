"""Small resource files for tests."""

import os
import wave

import pygame


def native(path):
    return path.replace("\\", os.sep)


def write_file(path, data=b""):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(data)


def write_png(path, surface=None):
    write_file(path)
    pygame.image.save(surface or pygame.Surface((8, 8), pygame.SRCALPHA), str(path))


def write_wav(path, seconds=20):
    write_file(path)
    with wave.open(str(path), "wb") as sound:
        sound.setparams((1, 2, 11025, 0, "NONE", "not compressed"))
        sound.writeframes(bytes(range(64)) * (seconds * 11025 * 2 // 64))


def default_font_file():
    """The TrueType file that pygame ships."""
    return os.path.join(os.path.dirname(pygame.__file__), pygame.font.get_default_font())
