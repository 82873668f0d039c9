#!/usr/bin/env python3
"""Compares the image of an audio disc that was written Track At Once with the wave files that
should be on it, sample by sample.

    check_image.py SHEET.cue TRACK1.wav TRACK2.wav ...

It shares no code with the program: it reads sheet, image and waves itself. The exit status is 0
when every sample is at its place and the rest is silence, and 1 at the first difference.
"""

import pathlib
import re
import struct
import sys

SECTOR = 2352  # bytes: 1/75 second of 44100 Hz, 16 bit, stereo
SAMPLE = 4  # bytes, left and right


class Wrong(Exception):
    pass


def sound_of(path):
    """Returns the data chunk of a wave file, which must have the format of an audio disc."""
    data = path.read_bytes()
    if data[:4] != b"RIFF" or data[8:12] != b"WAVE":
        raise Wrong(f"{path.name}: no es un archivo WAVE")
    form, place = None, 12
    while place + 8 <= len(data):
        name, size = struct.unpack_from("<4sI", data, place)
        if name == b"fmt ":
            form = struct.unpack_from("<HHIIHH", data, place + 8)
        if name == b"data":
            if form is None or (form[0], form[1], form[2], form[5]) != (1, 2, 44100, 16):
                raise Wrong(f"{path.name}: no son 44100 Hz, 16 bits, estéreo: {form}")
            if place + 8 + size > len(data):
                raise Wrong(f"{path.name}: está cortado")
            return data[place + 8 : place + 8 + size]
        place += 8 + size + size % 2
    raise Wrong(f"{path.name}: no tiene sonido")


def bytes_at(time):
    minutes, seconds, sectors = (int(part) for part in time.split(":"))
    if seconds > 59 or sectors > 74:
        raise Wrong(f"la hoja tiene un tiempo imposible: {time}")
    return ((minutes * 60 + seconds) * 75 + sectors) * SECTOR


def read_sheet(path):
    """Returns the image's path, and for each track the start of its gap (or None) and its sound."""
    image, tracks = None, []
    for line in path.read_bytes().decode("cp1252", "replace").splitlines():
        if found := re.fullmatch(r'\s*FILE "(.*)" BINARY', line):
            image = path.with_name(found[1])
        elif found := re.fullmatch(r"\s*TRACK (\d+) (\w+)", line):
            if found[2] != "AUDIO" or int(found[1]) != len(tracks) + 1:
                raise Wrong(f"pista inesperada en la hoja: {line.strip()}")
            tracks.append([None, None])
        elif found := re.fullmatch(r"\s*INDEX 0([01]) (\d+:\d+:\d+)", line):
            tracks[-1][int(found[1])] = bytes_at(found[2])
    if image is None or not tracks or any(sound is None for _, sound in tracks):
        raise Wrong(f"{path.name}: la hoja está incompleta")
    return image, tracks


def expect_silence(image, start, end, where):
    part = image[start:end]
    if part.count(0) != len(part):
        first = next(i for i, byte in enumerate(part) if byte)
        raise Wrong(f"{where}: no hay silencio en el byte {start + first}")


def compare_track(number, sound, image, start, end, wave):
    where = f"pista {number:02}"
    if not any(sound):
        raise Wrong(f"{where}: {wave.name} no contiene más que silencio")
    if not 0 <= end - start - len(sound) < SECTOR:
        raise Wrong(
            f"{where}: ocupa {end - start} bytes, y {wave.name} tiene {len(sound)}"
        )
    burnt = image[start : start + len(sound)]
    if burnt != sound:
        first = next(i for i in range(len(sound)) if burnt[i] != sound[i])
        raise Wrong(f"{where}: la muestra {first // SAMPLE} no es la de {wave.name}")
    expect_silence(image, start + len(sound), end, where)
    seconds = len(sound) / SAMPLE / 44100
    print(f"  {where}: {len(sound) // SAMPLE} muestras iguales a {wave.name} ({seconds:.1f} s)")


def check(sheet, waves):
    path, tracks = read_sheet(sheet)
    if len(tracks) != len(waves):
        raise Wrong(f"la hoja tiene {len(tracks)} pistas y deberían ser {len(waves)}")
    image = path.read_bytes()
    if len(image) % SECTOR:
        raise Wrong(f"{path.name}: {len(image)} bytes no son sectores enteros")
    if min(part for part in tracks[0] if part is not None) != 0:
        raise Wrong("la primera pista no comienza al principio de la imagen")
    for index, wave in enumerate(waves):
        gap, start = tracks[index]
        if gap is not None:
            expect_silence(image, gap, start, f"pausa de la pista {index + 1:02}")
        following = tracks[index + 1] if index + 1 < len(tracks) else [len(image), None]
        end = following[1] if following[0] is None else following[0]
        compare_track(index + 1, sound_of(wave), image, start, end, wave)


def main():
    if len(sys.argv) < 3:
        print(__doc__, file=sys.stderr)
        return 2
    sheet, *waves = (pathlib.Path(word) for word in sys.argv[1:])
    try:
        check(sheet, waves)
    except (Wrong, OSError, struct.error, IndexError) as wrong:
        print(f"check_image: {sheet.name}: {wrong}", file=sys.stderr)
        return 1
    print(f"  {sheet.name}: las {len(waves)} pistas están completas en la imagen.")
    return 0


sys.exit(main())
