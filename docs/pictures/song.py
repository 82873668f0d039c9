#!/usr/bin/env python3
"""song.py FILE SECONDS: a tune in verses, loud and soft, that shows what a wave looks like."""
import array
import math
import random
import sys
import wave

RATE = 44100
NOTES = (220.0, 261.6, 293.7, 329.6, 392.0, 440.0)


def verse(chance, level, beats):
    """Plucked notes on the beats of half a second, each somewhere between left and right."""
    half = RATE // 2
    left, right = [0.0] * (half * beats + half), [0.0] * (half * beats + half)
    for beat in range(beats):
        if chance.random() < 0.15:
            continue
        step = 2 * math.pi * chance.choice(NOTES) / RATE
        loud, place = level * chance.uniform(0.5, 1), chance.random()
        for i in range(2 * half):
            tone = math.exp(-5 * i / RATE) * (math.sin(step * i) + 0.3 * math.sin(3 * step * i))
            left[beat * half + i] += loud * (1 - 0.6 * place) * tone
            right[beat * half + i] += loud * (0.4 + 0.6 * place) * tone
    frames = array.array("h")
    for pair in zip(left[:half * beats], right[:half * beats]):
        frames.extend(round(32000 * max(-1.0, min(1.0, each))) for each in pair)
    return frames


def main():
    chance = random.Random(4)
    verses = [verse(chance, level, 12) for level in (0.22, 0.45, 0.3, 0.6, 0.12)]
    whole = array.array("h")
    while len(whole) < 2 * RATE * int(sys.argv[2]):
        for each in (0, 2, 1, 1, 3, 0, 2, 1, 3, 3, 4):
            whole += verses[each]
    with wave.open(sys.argv[1], "wb") as file:
        file.setparams((2, 2, RATE, 0, "NONE", ""))
        file.writeframes(whole[: 2 * RATE * int(sys.argv[2])].tobytes())


main()
