"""The recorder's benchmarks: their own sound server, and comparing the recorded sound with the
played sound."""

import contextlib
import mmap
import os
import pathlib
import struct
import subprocess
import time

HERE = pathlib.Path(__file__).resolve().parent
WITH_SOUND = HERE.parent / "tests" / "support" / "with_sound.sh"
FRAME, SECOND = 4, 44100 * 4
HEADER = 44
BLOCK = 1 << 20
MARK = 64  # bytes of noise; such a sequence occurs only once


def wave_header(size):
    return b"RIFF" + struct.pack("<I", size + 36) + b"WAVEfmt " + struct.pack(
        "<IHHIIHH", 16, 1, 2, 44100, SECOND, FRAME, 16) + b"data" + struct.pack("<I", size)


def noise(path, parts):
    """Makes a wave of parts; each is a number of seconds of noise or of silence."""
    with open(path, "wb") as file:
        file.write(wave_header(sum(seconds for seconds, _ in parts) * SECOND))
        for seconds, loud in parts:
            for _ in range(seconds):
                file.write(os.urandom(SECOND) if loud else bytes(SECOND))


class Sound:
    """A machine with a sound card inside a `with` statement; `command` runs a command on it."""

    def __enter__(self):
        self.server = subprocess.Popen(
            [WITH_SOUND, "sh", "-c", "env | grep -E '^(PULSE|ALSA)_'; echo; cat >/dev/null"],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.environment = []
        while (line := self.server.stdout.readline().strip()):
            self.environment.append(line)
        return self

    def __exit__(self, *_):
        self.server.stdin.close()
        self.server.wait()

    def command(self, *words):
        return ["env", *self.environment, *(str(word) for word in words)]

    @contextlib.contextmanager
    def playing(self, file):
        player = subprocess.Popen(self.command("paplay", "--latency-msec=2000", file))
        try:
            yield
        finally:
            player.kill()
            player.wait()


class Busy:
    """Two processes that load the processors fully, with a lower priority than all others."""

    def __enter__(self):
        self.processes = [subprocess.Popen(["nice", "-n", "10", "sh", "-c", "while :; do :; done"])
                          for _ in range(2)]
        return self

    def __exit__(self, *_):
        for process in self.processes:
            process.kill()
            process.wait()


def record(sound, tool, home, seconds, holds, played):
    """Records one take and plays a file meanwhile. Returns the CPU seconds of the recording, the
    milliseconds that the program reports as lost, and the take."""
    take = home / "Vantora" / "Wavs" / "toma.wav"
    take.unlink(missing_ok=True)
    process = subprocess.Popen(
        sound.command("env", f"HOME={home}", tool, "take", home, seconds, holds),
        stdout=subprocess.PIPE, text=True)
    if process.stdout.readline().strip() != "recording":
        process.wait()
        raise OSError("no take has begun")
    with sound.playing(played):
        cpu, lost = (float(word) for word in process.stdout.readline().split())
    if process.wait() != 0:
        raise OSError("the recording ended badly")
    return cpu, lost, take


def lost_frames(played, take, lead):
    """Counts the frames of a noise that are missing in the take; `lead` is the silence before the
    noise, in bytes. Extra silence in the take, where the player was late, counts as missing too."""
    with open(played, "rb") as one, open(take, "rb") as other:
        a = mmap.mmap(one.fileno(), 0, access=mmap.ACCESS_READ)
        b = mmap.mmap(other.fileno(), 0, access=mmap.ACCESS_READ)
        at, missing = HEADER + lead, 0
        there = b.find(a[at:at + MARK], HEADER)
        if there < 0:
            return (len(a) - at) // FRAME
        while at < len(a):
            size = min(BLOCK, len(a) - at)
            if a[at:at + size] == b[there:there + size]:
                at, there = at + size, there + size
                continue
            good = next(i for i in range(0, size, FRAME)
                        if a[at + i:at + i + FRAME] != b[there + i:there + i + FRAME])
            at, there = at + good, there + good
            # Continues after the fault, where both files agree again.
            for skip in range(0, len(a) - at - MARK, FRAME * 16):
                again = b.find(a[at + skip:at + skip + MARK], there, there + 30 * SECOND)
                if again >= 0:
                    missing += max(skip, again - there) // FRAME
                    at, there = at + skip, again
                    break
            else:
                return missing + (len(a) - at) // FRAME
        return missing


RECORD = """home casa
screen 1024 768
setting Show_Start_Assistant 0
start
press frmHauptForm.imgLPKopieren
choose C:\\Vantora\\Wavs\\lp.wav
press frmAufnehmen.imgAufnehmen
linein play C:\\cara1.wav
wait {half}
expect frmAufnehmen.lvwAufnehmen.Count == {takes}
expect-box ~ "primera cara"
answer 7
linein play C:\\cara2.wav
wait {half}
expect frmAufnehmen.lvwAufnehmen.Count == {both}
press frmAufnehmen.imgRecordStop
press frmAufnehmen.imgOkay
expect frmHauptForm.lvwKatalog.Count == {both}
close
"""


def whole_record(robot, folder, sides, minutes, takes):
    """Records both sides of a record of `minutes`, cut into takes, in virtual time. Returns the
    seconds that the recording took."""
    script = folder / "disco.robot"
    half = minutes * 60 * 1000 // 2
    script.write_text(RECORD.format(half=half, takes=takes, both=2 * takes), encoding="utf-8")
    home = folder / "casa"
    home.mkdir(exist_ok=True)
    for number, side in enumerate(sides, 1):
        link = home / f"cara{number}.wav"
        if not link.exists():
            link.hardlink_to(side)
    start = time.monotonic()
    subprocess.run([robot, script.name], cwd=folder, check=True)
    return time.monotonic() - start
