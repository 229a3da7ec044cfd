"""What the atlas packer writes is read back by the engine, pixel for pixel."""

import importlib.util
import random
import subprocess
import sys
from pathlib import Path

import pygame
import pytest
import Tessora

SCRIPT = Path(__file__).resolve().parents[2] / "examples" / "pack_atlas.py"
# File name, size, and the part that is not clear.
PICTURES = (
    ("run_0.png", (40, 30), (3, 5, 20, 11)),
    ("run_2.png", (41, 29), (0, 0, 41, 29)),
    ("run_10.png", (41, 30), (7, 2, 12, 27)),
    ("pole.png", (9, 80), (4, 0, 5, 79)),
    ("plank.png", (90, 8), (1, 1, 88, 7)),
    ("nothing.png", (16, 16), (0, 0, 0, 0)),
    ("dot.png", (5, 5), (4, 4, 1, 1)),
)


@pytest.fixture
def packer():
    found = importlib.util.spec_from_file_location("pack_atlas", str(SCRIPT))
    script = importlib.util.module_from_spec(found)
    found.loader.exec_module(script)
    return script


# Pictures of noise, every pixel another one, half clear ones among them.
@pytest.fixture
def pictures():
    dice, made = random.Random(7), {}
    for name, size, (left, top, width, height) in PICTURES:
        made[name] = pygame.Surface(size, pygame.SRCALPHA, 32)
        for x in range(left, left + width):
            for y in range(top, top + height):
                made[name].set_at((x, y), [dice.randint(1, 255) for _ in range(4)])
    return made


@pytest.fixture
def packed(screen, tmp_path, monkeypatch, packer, pictures):
    (tmp_path / "loose").mkdir()
    (tmp_path / "packed").mkdir()
    for name, picture in pictures.items():
        pygame.image.save(picture, str(tmp_path / "loose" / name))
    packer.main(str(tmp_path / "loose"), str(tmp_path / "packed" / "atlas"))
    monkeypatch.setattr(Tessora, "Res", Tessora.PyGameResManager(str(tmp_path / "packed")))
    image = Tessora.GUI_Image()
    image.LoadImageFramesPList("atlas.plist")
    return image


def test_every_frame_has_the_pixels_of_its_picture(packed, pictures):
    frames = dict(zip(packed.imageFrameRectArray, packed.imageArray))
    assert set(frames) == set(pictures)
    for name, picture in pictures.items():
        assert frames[name].get_size() == picture.get_size(), name
        assert pygame.image.tobytes(frames[name], "RGBA") == pygame.image.tobytes(
            picture, "RGBA"
        ), name


def test_pieces_do_not_overlap_and_borders_are_cut_off(packed):
    sheet = Tessora.Res.LoadImage("atlas.png")
    inked = sum(1 for x in range(sheet.get_width()) for y in range(sheet.get_height())
                if sheet.get_at((x, y)).a)  # fmt: skip
    assert inked == sum(width * height for _, _, (_, _, width, height) in PICTURES)
    assert packed.imageFrameRectArray["pole.png"].size == (5, 79)


def test_animations_hold_the_frames_in_the_order_of_their_numbers(packed):
    packed.LoadAnimationPlist("atlas.plist", "run")
    assert [frame.get_size() for frame in packed.imageArray] == [(40, 30), (41, 29), (41, 30)]
    assert packed.GetSwitchImageDelay() == 0.1


def test_pictures_wider_than_the_sheet_widen_it(packer):
    sheet, contents = packer.pack({"a.png": pygame.Surface((300, 4), pygame.SRCALPHA)}, 128)
    assert sheet.get_size() == (128, 1), "a clear picture is one pixel"
    sheet, contents = packer.pack({"a.png": pygame.Surface((300, 4))}, 128)
    assert sheet.get_size() == (300, 4)
    assert contents["frames"]["a.png"]["frame"] == "{{0,0},{300,4}}"


def test_without_arguments_the_pictures_of_a_game_are_packed(tmp_path):
    command = [sys.executable, str(SCRIPT)]
    printed = subprocess.check_output(command, cwd=str(tmp_path), universal_newlines=True)
    assert "2 left out" in printed
    assert pygame.image.load(str(tmp_path / "pack_atlas.png")).get_width() == 256
    assert (tmp_path / "pack_atlas.plist").is_file()
