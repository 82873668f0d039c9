#!/usr/bin/env python3
"""Random medleys against a model of their own: the files, byte by byte, and the slide of the tempo.

`medley_model.py MEDLEY-RUN [--seeds N] [--from N]`. Uses none of the program's code: the mix is
computed anew, and a slid sound is compared with an interpolation by a long windowed sine.
"""

import argparse
import array
import math
import pathlib
import random
import shutil
import struct
import subprocess
import sys
import tempfile

SECOND = 88200  # 16-bit values, both channels
LEAST = 617400
UNIT = 0.0016  # change of speed per unit of pitch
TAPS, BETA = 40, 11.0
BUFFER = 1024  # in frames
NEAR = 4  # allowed difference of two interpolations, in 16-bit steps


def chunk(name, content):
    return name + struct.pack("<I", len(content)) + content + b"\0" * (len(content) % 2)


def riff(chunks):
    return b"RIFF" + struct.pack("<I", len(chunks) + 4) + b"WAVE" + chunks


class Track:
    def __init__(self, dice, number):
        self.name = f"{number}.wav"
        self.sound = self.tones(dice)
        form = struct.pack("<HHIIHH", 1, 2, 44100, 176400, 4, 16)
        self.front = b"".join(chunk(b"note", dice.randbytes(dice.randrange(300)))
                              for _ in range(dice.randrange(3))) + chunk(b"fmt ", form)
        self.tail = chunk(b"LIST", dice.randbytes(dice.randrange(9000))) * dice.randrange(2)
        self.tempo = dice.choice(["", "50", "97", "120", "120.5", "125", "280"])
        self.duration = dice.choice([
            f"{dice.randint(1, 10)}", f"{dice.uniform(1, 4):.3f}", f"{dice.uniform(3.5, 10)!r}", "1"])
        self.slide = dice.random() < 0.4
        self.untouched = 0  # bytes before the tones

    @staticmethod
    def tones(dice):
        """A loop of tones that a whole number of times fits into it, so that it has no seam."""
        frames = 4410
        voices = [(dice.randrange(4, 700), dice.uniform(500, 5000), dice.uniform(0, 7))
                  for _ in range(4)]
        loop = array.array("h")
        for n in range(frames):
            for ear in (0, 1):
                loop.append(round(sum(loud * math.sin(2 * math.pi * turns * n / frames + at + ear)
                                      for turns, loud, at in voices)))
        size = dice.choice([LEAST, dice.randrange(LEAST, 3 * LEAST), 4 * dice.randrange(LEAST),
                            1764000 + 524288 * dice.randrange(3)])
        if dice.random() < 0.2:
            size += dice.randrange(4)
        sound = loop.tobytes()
        return (sound * (size // len(sound) + 1))[:size]

    def bytes(self):
        return riff(self.front + chunk(b"data", self.sound) + self.tail)


def values(sound):
    numbers = array.array("h")
    numbers.frombytes(sound)
    return numbers


def mixed(end, start):
    count = len(end)
    for v in range(count):
        f = (v - v % 2) / count
        end[v] = round((1 - f) * end[v] + f * start[v])
    return end.tobytes()


def pitch(tempo1, tempo2, slide):
    if not slide or tempo1 == tempo2:
        return 0.0
    return tempo2 / tempo1 * 25 if tempo1 < tempo2 else tempo1 / tempo2 * -25


def bessel(x):
    total = term = 1.0
    for k in range(1, 60):
        term *= (x / (2 * k)) ** 2
        total += term
    return total


def heard(source, place, ear):
    """The sound at a place between frames."""
    first = math.floor(place) - TAPS + 1
    total = 0.0
    for n in range(first, first + 2 * TAPS):
        if not 0 <= n < len(source) // 2:
            continue
        x = place - n
        weight = bessel(BETA * math.sqrt(max(0.0, 1 - (x / TAPS) ** 2))) / bessel(BETA)
        total += source[2 * n + ear] * weight * (
            1.0 if x == 0 else math.sin(math.pi * x) / (math.pi * x))
    return total


class Slide:
    """The speed goes from 1 in a straight line over the length of the crossfade; at each buffer it
    stands in a number of 32 bits."""

    def __init__(self, goal, frames):
        step = BUFFER / frames * goal
        self.pitches, self.starts = [0.0], [0.0]
        for _ in range(frames // BUFFER + 2):
            before = self.pitches[-1]
            self.pitches.append(struct.unpack("f", struct.pack("f", before + step))[0])
            self.starts.append(self.starts[-1] + BUFFER * (
                1 + UNIT * (before + self.pitches[-1]) / 2))

    def place(self, n):
        """In the source, of the frame n that comes out."""
        k, m = divmod(n, BUFFER)
        bend = self.pitches[k] * m + (self.pitches[k + 1] - self.pitches[k]) * m * m / BUFFER / 2
        return self.starts[k] + m + UNIT * bend


def check_slide(source, slid, goal, dice):
    frames = len(source) // 2
    place = Slide(goal, frames).place
    for _ in range(60):
        n, ear = dice.randrange(frames), dice.randrange(2)
        if n < 64 or place(n) > frames - 64:
            continue  # near its ends the sound depends on the filter
        there = slid[2 * n + ear] if 2 * n + ear < len(slid) else None
        wanted = heard(source, place(n), ear)
        assert there is not None and abs(there - wanted) <= NEAR, (goal, n, there, wanted)
    end = len(slid) // 2
    assert end >= frames or abs(place(end) - frames) <= 3, (goal, end, place(end))


def transition(a, b, box, slid_file, dice):
    """What the two sounds become; returns whether they change."""
    tempo1, tempo2 = round(float(a.tempo or 0)), round(float(b.tempo or 0))
    u = round(float(a.duration) * SECOND)
    u -= u % 4
    silent = box and (tempo1 == 0 or tempo2 == 0)
    if min(len(a.sound), len(b.sound)) < max(2 * u, LEAST):
        return False
    if not silent and a.slide and tempo1 != tempo2 and tempo1 * tempo2 == 0:
        return False
    if silent:
        mix = bytes(2 * u)
    else:
        end = values(a.sound[len(a.sound) - 2 * u:])
        goal = pitch(tempo1, tempo2, a.slide)
        slid = values(slid_file.read_bytes()[44:])
        if goal == 0:
            assert slid == end, "a copy"
        elif len(a.sound) % 2 == 0 and len(a.sound) - 2 * u >= a.untouched:
            # Only tones are checked: for other sounds two interpolations may differ more.
            check_slide(end, slid, goal, dice)
        end = (slid + array.array("h", bytes(2 * u)))[:u]
        mix = mixed(end, values(b.sound[:2 * u]))
    a.sound = a.sound[:len(a.sound) - 2 * u] + mix[:u]
    b.sound = mix[u:] + b.sound[2 * u:]
    b.untouched = u
    return True


def medley(program, seed):
    dice = random.Random(seed)
    tracks = [Track(dice, n) for n in range(dice.randint(2, 12))]
    box = dice.random() < 0.3
    home = pathlib.Path(tempfile.mkdtemp(prefix="vantora-medley-"))
    try:
        for track in tracks:
            (home / track.name).write_bytes(track.bytes())
        plan = home / "plan"
        plan.write_text("\n".join(
            [str(int(box))] + ["\t".join([t.name, t.tempo, t.duration, str(int(t.slide))])
                               for t in tracks]) + "\n")
        subprocess.run([program, str(home), str(plan)], check=True, stdout=subprocess.DEVNULL)
        done = sum(transition(tracks[n], tracks[n + 1], box, home / "Temp" / f"slid-{n}.dat", dice)
                   for n in range(len(tracks) - 1))
        for track in tracks:
            assert (home / track.name).read_bytes() == track.bytes(), track.name
        return done
    finally:
        shutil.rmtree(home)


def main():
    options = argparse.ArgumentParser()
    options.add_argument("program")
    options.add_argument("--seeds", type=int, default=4)
    options.add_argument("--from", dest="first", type=int, default=1)
    chosen = options.parse_args()
    done = 0
    for seed in range(chosen.first, chosen.first + chosen.seeds):
        try:
            done += medley(chosen.program, seed)
        except AssertionError as error:
            sys.exit(f"seed {seed}: {error}")
    print(f"{chosen.seeds} medleys, {done} transitions")
    if done == 0:
        sys.exit("nothing was faded")


if __name__ == "__main__":
    main()
