"""Plays the sounds of the platform game into the folder `assets`.

The finished files are part of the game; run this only to change them. It needs Python alone.
"""

import array
import math
import os
import sys
import wave

ASSETS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "assets")
RATE = 22050


def tone(pitch, seconds, decay, bend=0.0, partials=((1, 1.0), (2, 0.3), (3, 0.1))):
    """`bend` is the share of its pitch that the tone gains in a second."""
    samples = []
    for index in range(int(RATE * seconds)):
        time = index / RATE
        phase = math.tau * pitch * (time + 0.5 * bend * time * time)
        sound = sum(
            size * math.sin(n * phase) * math.exp(-time * decay * n) for n, size in partials
        )
        samples.append(sound * min(time / 0.004, (seconds - time) / 0.02, 1.0))
    return samples


def mix(*notes):
    """Notes are (start in seconds, samples, volume)."""
    length = max(int(start * RATE) + len(samples) for start, samples, _ in notes)
    mixed = [0.0] * length
    for start, samples, volume in notes:
        for index, value in enumerate(samples, int(start * RATE)):
            mixed[index] += volume * value
    return mixed


def write(name, samples):
    values = array.array("h", (int(32000 * max(-1.0, min(1.0, value))) for value in samples))
    if sys.byteorder == "big":
        values.byteswap()
    with wave.open(os.path.join(ASSETS, name), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(values.tobytes())


def note(steps):
    return 261.63 * 2 ** (steps / 12)


def main():
    os.makedirs(ASSETS, exist_ok=True)
    write("jump.wav", mix((0, tone(note(2), 0.18, 9, bend=5.5), 0.35)))
    write("coin.wav", mix((0, tone(note(19), 0.1, 14), 0.3), (0.07, tone(note(24), 0.3, 9), 0.35)))
    write("stomp.wav", mix((0, tone(note(-9), 0.16, 14, bend=-4.0), 0.6)))
    write("hurt.wav", mix((0, tone(note(4), 0.34, 5, bend=-2.2), 0.4)))
    tune = [
        (0.13 * index, tone(note(step), 0.7, 4), 0.22)
        for index, step in enumerate((7, 12, 16, 19, 24))
    ]
    write(
        "home.wav",
        mix(*tune, (0.8, tone(note(12), 0.9, 3), 0.2), (0.8, tone(note(16), 0.9, 3), 0.2)),
    )


if __name__ == "__main__":
    main()
