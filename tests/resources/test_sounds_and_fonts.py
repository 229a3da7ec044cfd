"""Music, sounds and fonts, played and rendered for real with the dummy audio driver."""

import os
import shutil

import pygame
import pytest
import Tessora as T
from resource_files import default_font_file, native, write_file, write_wav

ASSETS = os.path.join(os.path.dirname(__file__), "..", "..", "examples", "star_catcher", "assets")


def find_ogg():
    names = sorted(os.listdir(ASSETS)) if os.path.isdir(ASSETS) else []
    for name in names:
        if name.lower().endswith(".ogg"):
            return os.path.join(ASSETS, name)
    return None


@pytest.fixture
def mixer():
    if pygame.mixer.get_init() is None:
        pygame.mixer.init()
    pygame.mixer.stop()
    yield pygame.mixer
    pygame.mixer.stop()
    pygame.mixer.music.stop()
    if hasattr(pygame.mixer.music, "unload"):
        pygame.mixer.music.unload()


@pytest.fixture
def res(tmp_path):
    write_wav(tmp_path / "deep" / "Long.WAV", 20)
    write_wav(tmp_path / "other.wav", 20)
    write_file(tmp_path / "broken.wav", b"no sound")
    write_file(tmp_path / "lost.ttf")
    shutil.copy(default_font_file(), str(tmp_path / "deep" / "Face.TTF"))
    return T.PyGameResManager(str(tmp_path))


def test_sounds_play(mixer, res):
    assert res.PlaySound("long.wav") == 0
    assert res.PlaySound(fileName="LONG.wav") == 1
    assert res.soundDict[0] is not res.soundDict[1]
    assert [sound.get_num_channels() for sound in res.soundDict.values()] == [1, 1]
    assert res.soundDict[0].get_length() == pytest.approx(20, abs=0.2)
    res.StopSound(0)
    res.StopSound(soundID=5)
    res.StopSound("x")
    assert [sound.get_num_channels() for sound in res.soundDict.values()] == [0, 1]
    assert list(res.soundDict) == [0, 1]
    assert res.PlaySound("missing.wav") == -1
    assert res.soundPlayCount == 2
    for bad in (None, 5):
        with pytest.raises((AttributeError, TypeError)):
            res.PlaySound(bad)
    with pytest.raises(TypeError):
        res.StopSound([])


def test_music_plays(mixer, res):
    music = mixer.music
    res.PlayMusic("missing.wav")
    assert not music.get_busy()
    res.PlayMusic("long.wav")
    assert music.get_busy()
    res.PlayMusic(fileName="OTHER.wav", loopcount=-1)
    assert music.get_busy()
    res.StopMusic()
    assert not music.get_busy()
    with pytest.raises(TypeError):
        res.PlayMusic("long.wav", "often")


def test_compressed_sounds(mixer, tmp_path):
    path = find_ogg()
    if path is None:
        pytest.skip("the demo game's OGG file is not there, and the host cannot encode one")
    res = T.PyGameResManager(os.path.dirname(path))
    assert res.PlaySound(os.path.basename(path).upper()) == 0
    assert res.soundDict[0].get_length() > 0
    res.PlayMusic(os.path.basename(path))
    assert mixer.music.get_busy()


def test_what_the_mixer_is_told(mixer, res, monkeypatch):
    calls = []
    for name in ("load", "play", "stop"):
        monkeypatch.setattr(mixer.music, name, lambda *args, name=name: calls.append((name, *args)))
    path = native(res.GetResPath("long.wav"))
    res.PlayMusic("long.wav")
    res.PlayMusic("long.wav", 3)
    res.StopMusic()
    assert calls == [("load", path), ("play", 0, 0), ("load", path), ("play", 3, 0), ("stop",)]


@pytest.mark.parametrize("failing", [False, True])
def test_a_sound_is_kept_before_it_plays_and_counted_after(mixer, res, monkeypatch, failing):
    class Sound:
        def __init__(self, path):
            states.append((path, dict(res.soundDict), res.soundPlayCount))

        def play(self):
            states.append((dict(res.soundDict), res.soundPlayCount))
            if failing:
                raise pygame.error("no channel")

        def stop(self):
            states.append("stopped")

    states = []
    monkeypatch.setattr(mixer, "Sound", Sound)
    if failing:
        with pytest.raises(pygame.error, match="no channel"):
            res.PlaySound("long.wav")
    else:
        assert res.PlaySound("long.wav") == 0
    sound = res.soundDict[0]
    assert states == [(native(res.GetResPath("long.wav")), {}, 0), ({0: sound}, 0)]
    assert res.soundPlayCount == (0 if failing else 1)
    res.StopSound(0)
    assert states[-1] == "stopped"


def test_errors_of_the_mixer_pass_through(mixer, res):
    for play in (res.PlaySound, res.PlayMusic):
        with pytest.raises(pygame.error):
            play("broken.wav")
    assert (res.soundDict, res.soundPlayCount) == ({}, 0)
    os.remove(native(res.GetResPath("other.wav")))
    for play in (res.PlaySound, res.PlayMusic):
        with pytest.raises((pygame.error, OSError)):
            play("other.wav")
    mixer.quit()
    try:
        for play in (res.PlaySound, res.PlayMusic):
            with pytest.raises(pygame.error):
                play("long.wav")
    finally:
        mixer.init()
    assert res.PlaySound("long.wav") == 0


@pytest.mark.parametrize(
    ("arguments", "bold", "italic"),
    [
        (("face.ttf", 20), False, False),
        (("face.ttf", 20, True), True, False),
        (("face.ttf", 20, False, True), False, True),
        (("FACE.ttf", 20, 1, 1.0), True, True),
        (("face.ttf", 20, 2, "yes"), False, False),
    ],
)
def test_fonts(screen, res, arguments, bold, italic):
    font = res.GetFont(*arguments)
    assert isinstance(font, pygame.font.Font)
    assert (bool(font.get_bold()), bool(font.get_italic())) == (bold, italic)
    plain = pygame.font.Font(default_font_file(), 20)
    assert font.get_height() == plain.get_height()
    assert res.GetFont(*arguments) is not font


def test_fonts_that_cannot_be_opened(screen, res):
    assert res.GetFont("missing.ttf", 20) is None
    assert res.GetFont(ttfFile="face.ttf", fontSize=12, bold=True, italic=False).get_bold()
    os.remove(native(res.GetResPath("lost.ttf")))
    for bad in (("lost.ttf", 20), ("face.ttf", "big"), (None, 20)):
        with pytest.raises((OSError, TypeError, AttributeError)):
            res.GetFont(*bad)
    assert res.GetFont("face.ttf", 20)


def test_a_label_takes_its_font_file_from_the_resources(screen, res, monkeypatch):
    monkeypatch.setattr(T, "Res", res)
    label = T.GUI_Label(None, 0, 0, "text", "Face.TTF", 30)
    label.draw(screen, 0, 0, 1.0)
    assert label.GetFont().get_height() == pygame.font.Font(default_font_file(), 30).get_height()
