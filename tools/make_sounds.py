#!/usr/bin/env python3
"""tools/make_sounds.py [folder]: writes click.wav and roll.wav into data/sounds, or into the folder. Standard library."""

import math
import pathlib
import random
import struct
import sys
import wave

RATE = 22050  # samples a second, one channel of 16 bits
LOUDEST = 0.35  # of the full scale: the game is not alone on the desk


def knock(seconds, pitches, fade, grain, chance):
    """Wood on wood: a few tones that fade at their own speeds, and a short noise of the blow."""
    samples = []
    for i in range(int(RATE * seconds)):
        t = i / RATE
        tones = sum(math.sin(2 * math.pi * pitch * t) * math.exp(-t * fade * (1 + k)) for k, pitch in enumerate(pitches))
        samples.append(tones / len(pitches) + grain * chance.uniform(-1, 1) * math.exp(-t * fade * 6))
    return samples


def mix(sounds, seconds):
    """Sounds laid over each other, each from its own moment."""
    whole = [0.0] * int(RATE * seconds)
    for start, loudness, samples in sounds:
        at = int(RATE * start)
        for i, sample in enumerate(samples[:len(whole) - at]):
            whole[at + i] += loudness * sample
    return whole


def click():
    return knock(0.09, (620, 1130, 1870), 55, 0.5, random.Random(1))


def roll():
    """Pieces poured onto the board: knocks that come thinner and softer."""
    chance = random.Random(2)
    sounds, start = [], 0.0
    while start < 0.62:
        pitch = chance.uniform(480, 820)
        sounds.append((start, 1 - start, knock(0.07, (pitch, pitch * 1.7, pitch * 2.9), 65, 0.4, chance)))
        start += chance.uniform(0.025, 0.06) + start * 0.05
    return mix(sounds, 0.75)


def write(path, samples):
    peak = max(abs(sample) for sample in samples)
    numbers = [round(sample / peak * LOUDEST * 32767) for sample in samples]
    with wave.open(str(path), "wb") as file:
        file.setparams((1, 2, RATE, len(numbers), "NONE", "not compressed"))
        file.writeframes(struct.pack(f"<{len(numbers)}h", *numbers))


def main():
    root = pathlib.Path(__file__).resolve().parent.parent
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else root / "data" / "sounds"
    folder.mkdir(parents=True, exist_ok=True)
    write(folder / "click.wav", click())
    write(folder / "roll.wav", roll())


if __name__ == "__main__":
    main()
