#!/usr/bin/env python3
"""Gives the program waves, catalogs, MP3 files and settings that it does not expect.

    odd_input.py BUILD [waves] [catalogs] [mp3] [settings] [--jobs N]

Each wave is imported. One that is refused must bring a message and stay as it is. One that is taken
is then edited, gets an effect and is burnt: it must be a sound wave afterwards, and the disc whole.
Each catalog is opened, appended and loaded at the start: it gives its tracks or a message, and no
file changes. Each MP3 file is imported and burnt, or refused. Each setting gets each of the values
while a user imports, edits, opens the options and the recorder, and burns; he must get through.

Prints what was wrong, and how many inputs there were. Exits with 1 when something was wrong.
"""

import argparse
import concurrent.futures
import math
import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile

from fault_table import Machine

SETUP = """home home
screen 1024 768
clock 2026-11-24 10:00
"""
SWITCHES = "setting Show_Start_Assistant 0\nsetting Show_TAO_Message 0\nsetting Verify_Burn 1\n"
IMPORT = "press frmHauptForm.imgLiedImport\nchoose C:\\m\\{}\n"
TAKE = "answer-all 7\nkey frmNeuerInterpret Return\nanswer-all 7\nexpect frmHauptForm.lvwKatalog.Count == 1\n"
EDIT = """select frmHauptForm.lvwKatalog 1
press frmHauptForm.imgWaveEdit
answer-all 7
drag frmWaveEditor.picWaveBack 200 600
press frmWaveEditor.imgFadeOut
answer-all 7
drag frmWaveEditor.picWaveBack 300 500
press frmWaveEditor.imgCut
answer-all 7
press frmWaveEditor.picWaveBack 700
press frmWaveEditor.imgPaste
answer-all 7
press frmWaveEditor.imgNormalize
answer-all 7
press frmWaveEditor.imgSteuerung(6)
answer-all 7
press frmWaveEditor.imgEffekt(1)
press frmWaveEditor.imgVolumeByPass
press frmWaveEditor.imgSteuerung(5)
answer-all 7
within 30000 expect frmWaveEditor.Enabled == True
press frmWaveEditor.imgZurück
answer-all 7
"""
WINDOWS = """press frmHauptForm.imgExtras
answer-all 7
press frmExtrasMenue.imgOK
answer-all 7
press frmHauptForm.imgLPAufnehmen
answer-all 7
press frmAufnehmen.imgAbbrechen
answer-all 7
"""
BURN = """press frmHauptForm.imgBrennen
answer-all 7
press frmCDBrennen.optTrackAtOnce
press frmCDBrennen.imgBrennen
answer-all {}
expect-file "C:\\Vantora\\Discos\\Disco 001.cue" exists
close
"""


def sound(seconds=4.0, frames=None):
    wanted = frames or int(seconds * 44100)
    part = b"".join(struct.pack("<hh", int(9000 * math.sin(i * 0.05)), int(9000 * math.sin(i * 0.07)))
                    for i in range(4410))
    return (part * (wanted // 4410 + 1))[:wanted * 4]


def form(tag=1, channels=2, rate=44100, bits=16, align=None, more=b""):
    frame = channels * bits // 8 if align is None else align
    return struct.pack("<HHIIHH", tag, channels, rate, rate * frame, frame, bits) + more


def chunk(name, data, size=None, pad=True):
    size = len(data) if size is None else size
    return name + struct.pack("<I", size & 0xFFFFFFFF) + data + (b"\0" if pad and len(data) % 2 else b"")


def riff(*chunks, size=None):
    body = b"WAVE" + b"".join(chunks)
    return b"RIFF" + struct.pack("<I", (len(body) if size is None else size) & 0xFFFFFFFF) + body


def waves():
    """name: (bytes, whether it is taken)"""
    s, fmt = sound(), chunk(b"fmt ", form())
    data = chunk(b"data", s)
    good = riff(fmt, data)
    guid = bytes.fromhex("00001000800000aa00389b71")
    extensible = lambda tag: struct.pack("<HHI", 22, 16, 3) + struct.pack("<I", tag) + guid
    of = lambda *words, **names: riff(chunk(b"fmt ", form(*words, **names)), data)
    foreign = lambda size, **names: riff(fmt, chunk(b"LIST", b"x" * size, **names), data)
    return {
        "good": (good, True), "RIFF size + 1": (riff(fmt, data, size=len(s) + 37), False),
        "RIFF size 0": (riff(fmt, data, size=0), False), "RIFF size -1": (riff(fmt, data, size=-1), False),
        "8 bit": (of(bits=8), False), "24 bit": (of(bits=24), False), "mono": (of(channels=1), False),
        "48 kHz": (of(rate=48000), False), "float": (of(tag=3, bits=32), False),
        "float of 16 bit": (of(tag=3), False), "ADPCM": (of(tag=2), False), "tag 0": (of(tag=0), False),
        "extensible": (of(tag=0xFFFE, more=extensible(1)), True),
        "extensible float": (of(tag=0xFFFE, more=extensible(3)), False),
        "extensible, short": (of(tag=0xFFFE), False), "frames of 2": (of(align=2), True),
        "frames of 0": (of(align=0), True), "format of 18": (of(more=b"\0\0"), True),
        "format of 14": (riff(chunk(b"fmt ", form()[:14]), data), False),
        "format of 0": (riff(chunk(b"fmt ", b""), data), False),
        "format too long": (riff(chunk(b"fmt ", form(), size=0x7FFFFFFF), data), False),
        "format of -16": (riff(chunk(b"fmt ", form(), size=-16), data), False),
        "no format": (riff(data), False), "format behind": (riff(data, fmt), False),
        "two formats": (riff(fmt, chunk(b"fmt ", form(1, 1, 22050, 8)), data), True),
        "LIST of 200": (foreign(200), True), "LIST of 201": (foreign(201), False),
        "LIST behind": (riff(fmt, data, chunk(b"LIST", b"INFO" + b"y" * 60)), True),
        "LIST behind, too long": (riff(fmt, data, chunk(b"LIST", b"INFO", size=9999999)), True),
        "bytes behind": (riff(fmt, data, b"\1\2\3"), True),
        "two data": (riff(fmt, data, chunk(b"data", s[:1000])), True),
        "no data": (riff(fmt, chunk(b"LIST", b"abcd")), False), "data of 0": (riff(fmt, chunk(b"data", b"")), False),
        "data size 0": (riff(fmt, chunk(b"data", s, size=0)), False),
        "data size + 40": (riff(fmt, chunk(b"data", s, size=len(s) + 40)), True),
        "data size + 45": (riff(fmt, chunk(b"data", s, size=len(s) + 45)), False),
        "data size -1": (riff(fmt, chunk(b"data", s, size=-1)), False),
        "data too short": (riff(fmt, chunk(b"data", s, size=len(s) - 4002)), True),
        "odd data": (riff(fmt, chunk(b"data", s[:-3])), True),
        "odd data without pad": (riff(fmt, chunk(b"data", s[:-3], pad=False)), True),
        "half a frame": (riff(fmt, chunk(b"data", s[:-2])), True),
        "empty": (b"", False), "one byte": (b"R", False), "head": (good[:44], False), "cut": (good[:5000], False),
        "RIFX": (b"RIFX" + good[4:], False), "RF64": (b"RF64" + good[4:], False), "text": (b"no sound\n" * 999, False),
        "2000 ms": (riff(fmt, chunk(b"data", sound(frames=88200))), False),
        "2001 ms": (riff(fmt, chunk(b"data", sound(frames=88245))), True),
    }


def record(title="t", file="C:\\m\\x.wav", length="4000", blended=0, mb=1, pause=2, seconds=0, date=b"2026"):
    field = lambda text, size: (text if isinstance(text, bytes) else text.encode("cp1252"))[:size].ljust(size)
    return (struct.pack("<h", blended) + field(title, 50) + field("i", 50) + field(length, 10)
            + struct.pack("<hh", mb, pause) + field(file, 100) + struct.pack("<iH", seconds, len(date)) + date
            + field("kt", 200) + field("ki", 200) + field("", 200))


def catalogs():
    """name: (bytes, tracks; None for a message)"""
    of = lambda *records, count=None: (struct.pack("<i", len(records) if count is None else count)
                                       + record(b"", b"", b"", date=b"") + b"".join(records))
    one, two = record(), record("u", "C:\\m\\y.wav")
    good = of(one, two)
    return {
        "good": (good, 2), "trailing": (good + b"x" * 999, 2), "empty": (b"", None), "count alone": (good[:4], None),
        "count -1": (of(count=-1), None), "huge count": (of(one, count=0x7FFFFFFF), None),
        "one too many": (of(one, two, count=3), None), "one too few": (of(one, two, count=1), 1),
        "cut": (good[:-300], None), "text": (b"[Catalog]\n" * 500, None), "other version": (b"VTR7" + good, None),
        "odd lengths": (of(*(record(length=text) for text in ("abc", "9999999999", "1e99", "1e999", "-5"))), 5),
        "odd numbers": (of(record(pause=-3), record(pause=32767), record(mb=-32768),
                           record(seconds=0x7FFFFFFF), record(seconds=-0x80000000)), 5),
        "odd crossfades": (of(record(blended=7), record(blended=-1), record(blended=1)), 3),
        "long date": (of(record(date=b"9" * 65535)), 1), "NUL": (of(record(b"\0" * 50)), 1),
        "all letters": (of(record(bytes(range(0x80, 0xB2))), record(b"\xff" * 50), record(b"\r\n\t\7\"|<>")), 3),
        "no wave": (of(*(record(file=name) for name in ("", "C:\\m", "C:\\m\\no.wav", "C:\\m\\?.wav", "Z:\\dev\\zero",
                                                        "Z:\\proc\\self\\mem", "C:\\m\\pipe"))), 0),
        "150 tracks": (of(*(record() for _ in range(150))), 150),
        "40000 tracks": (of(*(record(file="C:\\m\\no.wav") for _ in range(40000))), 0),
    }


def mp3s(folder):
    """name: (bytes, whether it is taken)"""
    wave = folder / "long.wav"
    wave.write_bytes(riff(chunk(b"fmt ", form()), chunk(b"data", sound(6))))

    def lame(*options):
        subprocess.run(["lame", "--quiet", *options, wave, folder / "made.mp3"], check=True)
        return (folder / "made.mp3").read_bytes()

    good, other = lame("-b", "128"), lame("-m", "m", "--resample", "22.05")
    hurt = bytearray(good)
    for i in range(0, len(hurt), 997):
        hurt[i] ^= 0x55
    return {
        "good": (good, True), "mono": (other, True), "joined": (good + other, True), "cut": (good[:-1], True),
        "no beginning": (good[5000:], True), "hurt": (bytes(hurt), True),
        "hole": (good[:30000] + bytes(20000) + good[30000:], True),
        "hole of FF": (good[:30000] + b"\xff" * 20000 + good[30000:], True),
        "huge ID3": (b"ID3\4\0\0\x7f\x7f\x7f\x7f" + good, True), "short ID3": (b"ID3\3\0\0\0\0\0\5" + b"T" * 3000 + good, True),
        "broken APE": (good + b"APETAGEX\xd0\7\0\0\xff\xff\xff\x7f" + bytes(32), True),
        "in a wave": (riff(chunk(b"fmt ", form(tag=0x55)), chunk(b"data", good)), True),
        "short": (good[:32000], False), "empty": (b"", False), "one byte": (b"\xff", False),
        "free format": (b"\xff\xfb\0\0" * 20000, False), "heads alone": (b"\xff\xfb\x90\0" * 30000, False),
    }


KEYS = """Show3DAnalysis BackgroundPic CDDBactive Undo UndoMB Write_Speed Read_Speed Standard_Wave_Name
Standard_Catalog_Name Temporary_Directory Proxy_Server Proxy_Port Auto_Database Auto_Save_Log Last_Catalogue_Name
Last_Catalog_Load Ask_Track_Info Number_Burned_CD Catalog_Check LängeCD WriteDAO WriteTAO Copies AutoCut Pauseoff
MinPauseLength MaxPegel MaxVolume RESOLUTION Wave_Import_Dir Wave_Export_Dir Songs_Import_Dir Catalogue_Open_Dir
Catalogue_Save_Dir Picture_Save_Dir AudioCDROMDevice AudioCDROMDrive LastAudioCDSelected ZFXEQU0 ZFXFLA0 ZFXVOL0
ZFXRES0 Read_Offset_ Verify_Burn""".split()
VALUES = ["", "-1", "99999", "2147483647", "-2147483648", "9" * 20, "1e400", "NaN", "abc", "3.7", "True", "C:\\",
          "Z:\\etc\\passwd", "Q:\\no\\", "C:\\m\\x.wav", "..\\..\\..", "ñ€日本", "\t;;;;;;;;;;;;", "A" * 5000, "1,5",
          "0;0;0", "*"]


class Odd:
    def __init__(self, build, scratch):
        self.build, self.scratch = build, scratch
        self.good = waves()["good"][0]

    def play(self, script, files, look=lambda machine: ""):
        """What is wrong with a run, and the boxes that it showed."""
        machine = Machine(self.build, self.scratch)
        try:
            for name, content in files.items():
                path = machine.home / name
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_bytes(content)
            (machine.folder / "odd.robot").write_text(SETUP + script, encoding="utf-8")
            run = machine.play("odd.robot")
            return (run.error or "it ended badly") if run.code != 0 else look(machine), run.boxes
        finally:
            machine.close()

    def wave(self, wave, taken):
        def same(machine):
            return "" if (machine.home / "m/x.wav").read_bytes() == wave else "it has changed"

        def sound_wave(machine):
            now = (machine.home / "m/x.wav").read_bytes()
            size, length = struct.unpack("<I", now[4:8])[0], struct.unpack("<I", now[40:44])[0]
            return "" if (size, length) == (len(now) - 8, len(now) - 44) else "its header is wrong"

        start = SWITCHES + "start\n" + IMPORT.format("x.wav")
        if taken:
            return self.play(start + TAKE + EDIT + BURN.format(7), {"m/x.wav": wave}, sound_wave)[0]
        wrong, boxes = self.play(start + "answer-all 7\nexpect frmHauptForm.lvwKatalog.Count == 0\nclose\n",
                                 {"m/x.wav": wave}, same)
        return wrong or ("" if boxes else "no message")

    def catalog(self, catalog, tracks):
        files = {"m/x.wav": self.good, "m/y.wav": self.good, "m/k.vtr": catalog}
        unchanged = lambda machine: "".join(name for name in files if (machine.home / name).read_bytes() != files[name])
        last = "setting Last_Catalog_Load 1\nsetting Last_Catalogue_Name C:\\m\\k.vtr\n"
        choose = "choose C:\\m\\k.vtr\nanswer-all 7\n"
        flows = [(last + "start\nanswer-all 7\n", 0),
                 ("start\npress frmHauptForm.imgKatalogÖffnen\n" + choose, 0),
                 ("start\n" + IMPORT.format("x.wav") + TAKE + "press frmHauptForm.imgKatalogAnhaengen\n" + choose, 1)]
        for flow, before in flows:
            count = before + (tracks or 0)
            if tracks is not None or "Last" not in flow:
                flow += f"expect frmHauptForm.lvwKatalog.Count == {count}\n"
            wrong, boxes = self.play(SWITCHES + flow + "close\n", files, unchanged)
            if wrong or (tracks is None and not boxes):
                return wrong or "no message"
        return ""

    def mp3(self, mp3, taken):
        start = SWITCHES + "start\n" + IMPORT.format("x.mp3")
        if taken:
            return self.play(start + TAKE + BURN.format(7), {"m/x.mp3": mp3})[0]
        wrong, boxes = self.play(start + "answer-all 7\nexpect frmHauptForm.lvwKatalog.Count == 0\nclose\n",
                                 {"m/x.mp3": mp3})
        return wrong or ("" if boxes else "no message")

    def setting(self, key, value):
        settings = f"[Quillmark\\VTR]\nShow_Start_Assistant=0\nShow_TAO_Message=0\n{key}={value}\n"
        return self.play("start\nanswer-all 7\n" + IMPORT.format("x.wav") + TAKE + EDIT + WINDOWS + BURN.format(7),
                         {"m/x.wav": self.good, ".config/vantora/settings.conf": settings.encode()})[0]


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("kinds", nargs="*", default=["waves", "catalogs", "mp3", "settings"])
    parser.add_argument("--jobs", type=int, default=1)
    options = parser.parse_args()
    shared = pathlib.Path("/dev/shm")
    scratch = tempfile.mkdtemp(dir=shared if shared.is_dir() else None)
    odd = Odd(options.build.resolve(), scratch)
    inputs = []
    if "waves" in options.kinds:
        inputs += [("wave", name, odd.wave, each) for name, each in waves().items()]
    if "catalogs" in options.kinds:
        inputs += [("catalog", name, odd.catalog, each) for name, each in catalogs().items()]
    if "mp3" in options.kinds:
        inputs += [("MP3", name, odd.mp3, each) for name, each in mp3s(pathlib.Path(scratch)).items()]
    if "settings" in options.kinds:
        inputs += [("setting", f"{key}={value[:20]}", odd.setting, (key, value)) for key in KEYS for value in VALUES]
    wrong = 0
    try:
        with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
            for (kind, name, _, _), what in zip(inputs, pool.map(lambda each: each[2](*each[3]), inputs)):
                if what:
                    wrong += 1
                    print(f"{kind} {name}: {what}", flush=True)
    finally:
        shutil.rmtree(scratch, ignore_errors=True)
    print(f"{len(inputs)} inputs, {wrong} wrong")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
