"""The checker of images passes a true image, and no other."""

import pathlib
import random
import struct
import subprocess
import sys
import tempfile
import unittest

CHECKER = pathlib.Path(__file__).resolve().parents[2] / "demo" / "check_image.py"
SECTOR = 2352
GAP = 150 * SECTOR
SHEET = """TITLE "Verano"\r
FILE "d.bin" BINARY\r
  TRACK 01 AUDIO\r
    INDEX 01 00:00:00\r
  TRACK 02 AUDIO\r
    INDEX 00 00:00:03\r
    INDEX 01 00:02:03\r
"""


def wave(sound, rate=44100):
    form = struct.pack("<4sIHHIIHH", b"fmt ", 16, 1, 2, rate, rate * 4, 4, 16)
    body = b"WAVE" + form + struct.pack("<4sI", b"data", len(sound)) + sound
    return struct.pack("<4sI", b"RIFF", len(body)) + body


class CheckImage(unittest.TestCase):
    def setUp(self):
        room = tempfile.TemporaryDirectory()
        self.addCleanup(room.cleanup)
        self.room = pathlib.Path(room.name)
        noise = random.Random(7)
        # Track 1 ends within its third sector, track 2 at the end of a sector.
        self.one, self.two = noise.randbytes(2 * SECTOR + 400), noise.randbytes(2 * SECTOR)
        self.image = bytearray(self.one + bytes(SECTOR - 400 + GAP) + self.two)
        self.sheet = SHEET
        self.first = wave(self.one)

    def found(self):
        (self.room / "d.bin").write_bytes(self.image)
        (self.room / "d.cue").write_text(self.sheet, newline="")
        (self.room / "1.wav").write_bytes(self.first)
        (self.room / "2.wav").write_bytes(wave(self.two))
        names = [str(self.room / name) for name in ("d.cue", "1.wav", "2.wav")]
        run = subprocess.run([sys.executable, CHECKER, *names], capture_output=True, text=True)
        self.assertNotIn("Traceback", run.stderr)
        self.assertEqual(run.returncode != 0, bool(run.stderr))
        return run.returncode

    def test_a_true_image_passes(self):
        self.assertEqual(self.found(), 0)

    def test_one_bit_anywhere_is_found(self):
        ends = (0, len(self.one) - 1, len(self.one), 3 * SECTOR - 1, 3 * SECTOR, 3 * SECTOR + GAP)
        for place in (*ends, len(self.image) - 1):
            with self.subTest(byte=place):
                self.image[place] ^= 1
                self.assertEqual(self.found(), 1)
                self.image[place] ^= 1

    def test_a_wrong_length_is_found(self):
        whole = self.image
        for image in (whole[:-1], whole[:-SECTOR], whole + bytes(SECTOR), b""):
            with self.subTest(length=len(image)):
                self.image = image
                self.assertEqual(self.found(), 1)

    def test_a_sheet_that_tells_something_else_is_found(self):
        only_the_first = SHEET[: SHEET.index("  TRACK 02")]
        for sheet in (
            SHEET.replace("00:02:03", "00:02:04"),
            SHEET.replace("00:02:03", "00:00:78"),
            SHEET.replace("00:00:03", "00:00:02"),
            SHEET.replace("    INDEX 01 00:02:03\r\n", ""),
            SHEET.replace("d.bin", "e.bin"),
            SHEET.replace("TRACK 02 AUDIO", "TRACK 02 MODE1/2352"),
            SHEET.replace("  TRACK 01 AUDIO\r\n", ""),
            only_the_first,
            "",
        ):
            with self.subTest(sheet=sheet):
                self.sheet = sheet
                self.assertEqual(self.found(), 1)

    def test_a_file_that_is_no_wave_for_discs_is_found(self):
        for first in (b"", self.one, wave(self.one, 48000), self.first[:-4], wave(bytes(len(self.one)))):
            with self.subTest(start=first[:40]):
                self.first = first
                self.assertEqual(self.found(), 1)


if __name__ == "__main__":
    unittest.main()
