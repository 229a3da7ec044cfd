"""Plays the sounds and the music of Star Catcher into the folder `assets`.

The finished files are part of the game; run this only to change them. It needs numpy and
soundfile.
"""

import math
import os

import numpy as np
import soundfile

ASSETS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "assets")
RATE = 22050


def tone(pitch, seconds, decay, partials=((1, 1.0), (2, 0.35), (3, 0.12)), bend=0.0):
    time = np.arange(int(RATE * seconds)) / RATE
    phase = math.tau * pitch * (time + 0.5 * bend * time**2)
    wave = sum(size * np.sin(n * phase) * np.exp(-time * decay * n) for n, size in partials)
    attack = np.minimum(time / 0.004, 1) * np.minimum((seconds - time) / 0.02, 1)
    return wave * attack


def mix(notes, seconds, loop=False):
    out = np.zeros(int(RATE * seconds))
    for start, wave, volume in notes:
        at = (int(RATE * start) + np.arange(len(wave))) % len(out)
        keep = slice(None) if loop else slice(0, max(0, len(out) - int(RATE * start)))
        np.add.at(out, at[keep], volume * wave[keep])
    return out


def note(steps):
    return 261.63 * 2 ** (steps / 12)


def write_sounds():
    def rise(*steps):
        return [(0.05 * i, tone(note(s), 0.3, 11), 0.3) for i, s in enumerate(steps)]

    sounds = {
        "click.wav": (mix([(0, tone(note(19), 0.08, 45), 0.5)], 0.08), {}),
        "catch.wav": (mix(rise(12, 16, 19, 24), 0.32), {}),
        "oops.wav": (mix([(0, tone(note(-5), 0.26, 8, bend=-1.6), 0.5)], 0.26), {}),
    }
    ending = [(0.16 * i, tone(note(s), 1.2, 3), 0.22) for i, s in enumerate((7, 12, 16, 19, 24))]
    ogg = {"format": "OGG", "subtype": "VORBIS", "compression_level": 0.9}
    sounds["comet.ogg"] = (mix(rise(12, 19, 24, 28, 31), 0.5), ogg)
    sounds["ending.ogg"] = (mix(ending, 1.9), ogg)

    tune = [12, None, 16, 19, 24, None, 19, 16, 14, None, 17, 21, 26, None, 21, 17,
            11, None, 14, 19, 23, None, 19, 14, 12, 16, 19, 16, 12, None, None, None]  # fmt: skip
    chords = [(0, 4, 7), (2, 5, 9), (-1, 2, 7), (0, 4, 7)]
    beat, notes = 0.25, []
    for i, step in enumerate(tune * 2):
        if step is not None:
            octave = 12 if i >= len(tune) and i % 4 == 3 else 0
            notes.append((beat * i, tone(note(step + octave), 1.4, 4), 0.17))
    for bar in range(8):
        for i, step in enumerate(chords[bar % 4]):
            soft = tone(note(step), 2.2, 0.9, ((1, 1.0), (2, 0.15)))
            notes.append((2 * bar + 0.02 * i, soft, 0.055))
        notes.append((2 * bar, tone(note(chords[bar % 4][0] - 12), 1.8, 1.6), 0.13))
    sounds["music.ogg"] = (mix(notes, 16, loop=True), ogg)
    for name, (wave, how) in sounds.items():
        soundfile.write(os.path.join(ASSETS, name), np.clip(wave, -0.99, 0.99), RATE, **how)


if __name__ == "__main__":
    os.makedirs(ASSETS, exist_ok=True)
    write_sounds()
