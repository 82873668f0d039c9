#!/usr/bin/env python3
"""Lets the disk fail at every system call of every operation on files, and prints a table.

    fault_table.py BUILD [OPERATION...] [--most N] [--messages]

Each script in operations/ leads a user to an operation, and then hands the disk to the library
faulty_disk. It is played behind the lines of beginnings/home.robot, and "begin NAME" in it stands for
the lines of beginnings/NAME.robot. It is played once without a fault, to count the calls that change
files, and then once for each fault and each call at which the fault can begin (with --most N, for N
calls at most, spread evenly). After each the program starts again on a sound disk, and ends. Then:

  told      the user has seen a message, and nothing is lost
  done      all files are as they would have been without the fault
  killed    after a kill, nothing is lost at the next start
  half      told or killed, and a new file stays that is not finished (see UNFINISHED)
  waits     told, and the operation waits for the user to end it (see WAITING)

Nothing is lost when each file of the user is what it was before the operation or what the whole
operation makes of it, when new files are whole or missing, and when no temporary file stays. All
else is a LOSS, which is described below the table. Exits with 1 when there is one.
"""

import argparse
import concurrent.futures
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time

HERE = pathlib.Path(__file__).resolve().parent
FAULTS = ["full", "readonly", "vanished", "short", "kill"]
WRITING = {"write", "pwrite", "writev", "copy"}
TIMEOUT = 120  # seconds of a run; on a free machine it takes a tenth of one

# Files that the program keeps for itself. They may be missing or older without a message.
OWN = re.compile(r"^(\.cache/|\.local/share/vantora/(edits|volume)|Vantora/.*\.log$)")

COPY_OF_THE_RESULT = (
    r"^m/\.vantora-\d+-0$",
    "The copy of the result lies under a temporary name beside the wave. It stays after a kill, and when "
    "the disk does not even let it be deleted, until the next copy into this folder.")

# New files that may stay unfinished, and why.
UNFINISHED = {
    "grab": (r"^Vantora/Wavs/pista\.wav$",
             "The disc still has the track, and the next grab replaces the file."),
    "copy_disc": (r"^\.cache/vantora/.*\.wav$",
                  "The disc still has the track, and the next grab replaces the file."),
    "import_mp3": (r"^Vantora/Wavs/canto\.wav$",
                   "The MP3 file is there, and the next import asks before it replaces the file. "
                   "It stays after a kill, and when the disk does not even let it be deleted."),
    "catalog_save": (r"^Vantora/Catálogo/uno\.vtr\.tmp$",
                     "The draft beside the catalog, which itself is the old or the new one. It stays "
                     "after a kill, and when the disk does not even let it be deleted."),
    "burn": (r"^Vantora/Discos/.*\.tmp$", "The next burn removes the temporary image."),
    "burn_at_once": (r"^Vantora/Discos/.*\.tmp$", "The next burn removes the temporary image."),
    "print": (r"^pdf/001\.pdf\..{6}$",
              "The pages lie under a temporary name beside the PDF. They stay after a kill, and when "
              "the disk does not even let them be deleted."),
    "render": COPY_OF_THE_RESULT,
    "batch": COPY_OF_THE_RESULT,
    "record": (r"^Vantora/Wavs/vals\.wav$",
               "What was recorded until then, with a header that is true to a second. Before the first "
               "sound, a file without a whole header stays after a kill, and when the disk does not "
               "even let it be deleted."),
}

# Operations that may wait for ever after the message, and why.
WAITING = {
    "batch": "The next file would fail in the same way. The user can close the window.",
}


class Machine:
    """A home and a disk for one run."""

    def __init__(self, build, scratch):
        self.build = build
        self.folder = pathlib.Path(tempfile.mkdtemp(dir=scratch))
        self.home = self.folder / "home"
        self.control = self.folder / "disk"

    def close(self):
        shutil.rmtree(self.folder, ignore_errors=True)

    def written(self, script):
        """A script with its common beginnings, as the robot reads it."""
        def beginning(name):
            return (HERE / "beginnings" / f"{name}.robot").read_text(encoding="utf-8")
        rest = re.sub(r"^begin (\w+)\n", lambda line: beginning(line[1]),
                      script.read_text(encoding="utf-8"), flags=re.M)
        whole = self.folder / script.name
        whole.write_text(beginning("home") + rest, encoding="utf-8")
        return whole

    def play(self, script, more=None):
        env = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "XDG_RUNTIME_DIR": str(self.folder),
               **(more or {})}
        try:
            run = subprocess.run([self.build / "vantora-robot", script], cwd=self.folder, env=env,
                                 capture_output=True, timeout=TIMEOUT)
            return Run(run.returncode, run.stdout.decode().replace(str(self.home), "HOME"),
                       run.stderr.decode())
        except subprocess.TimeoutExpired:
            return Run(None, "", "it hangs")

    def play_on_disk(self, script, fault):
        return self.play(self.written(script), {
            "FAULT": fault, "DISK": "Z:" + str(self.control).replace("/", "\\"),
            "LD_PRELOAD": str(self.build / "libfaulty_disk.so"),
            "VANTORA_FAULTY_FOLDER": str(self.home) + "/",
            "VANTORA_FAULTY_DISK": str(self.control)})

    def calls(self):
        return pathlib.Path(str(self.control) + ".calls").read_text(encoding="utf-8").splitlines()

    def restart(self):
        """The program starts once more on a sound disk, and ends."""
        script = self.folder / "restart.robot"
        script.write_text("home home\nstart\nanswer-all 7\nclose\n", encoding="utf-8")
        return self.play(script)

    def files(self):
        found = {}
        for path in sorted(self.home.rglob("*")):
            if path.is_file():
                found[str(path.relative_to(self.home))] = timeless(path.read_bytes())
        return found


class Run:
    def __init__(self, code, out, err):
        self.code = code
        self.boxes = re.findall(r"^box: (.*)", out, re.M)
        self.error = err.strip()

    def waits(self):
        return "of virtual time without an end" in self.error

    def crashed(self):
        return self.code is None or (self.code < 0 and self.code != -9) or self.code > 1


def lines_of(bytes_):
    return set(bytes_.decode("utf-8", "replace").splitlines())


def timeless(bytes_):
    """A file without the times of the user's waves, which differ in each run."""
    return re.sub(rb"20\d\d-\d\d-\d\d \d\d:\d\d:\d\d\.\d{9}", b"TIME", bytes_)


def true_header(wave):
    """The header of a wave tells its length, but for the last second. A kill between the halves of
    the size makes it too small by less than 64 kB more. Nothing is recorded before the header."""
    if len(wave) < 44:
        return True
    length = int.from_bytes(wave[40:44], "little")
    return wave[36:40] == b"data" and 0 <= len(wave) - 44 - length < 176_400 + 65_536


def lost(name, now, before, after):
    """Why the content of a file is neither the old nor the new one; nothing when it is."""
    old, new = before.get(name), after.get(name)
    if now in (old, new) or OWN.match(name):
        return None
    if now is None:
        return "is gone"
    if old is None and new is None:
        return "stays behind"
    if name.endswith((".conf", ".ini")):
        known = lines_of(old or b"") | lines_of(new or b"")
        keys = {line.split("=")[0] for line in known}
        other = {line for line in lines_of(now) - known if line.split("=")[0] not in keys}
        return f"has the lines {sorted(other)}" if other else None
    if name.endswith(".pdf") and now.startswith(b"%PDF") and now.rstrip().endswith(b"%%EOF"):
        return None
    return f"is neither old nor new ({len(now)} bytes)"


class Operation:
    def __init__(self, build, scratch, script):
        self.build, self.scratch, self.script = build, scratch, script
        self.name = script.stem
        self.losses = []
        machine = self.machine()
        run = machine.play_on_disk(script, "1 count")
        if run.code != 0:
            self.losses.append(f"{self.name} without a fault: {run.error}")
        self.boxes = run.boxes
        self.calls = machine.calls() if not self.losses else []
        machine.restart()
        self.after = machine.files()
        machine.close()
        machine = self.machine()
        machine.play_on_disk(script, "1 stop")
        machine.restart()
        self.before = machine.files()
        machine.close()

    def machine(self):
        return Machine(self.build, self.scratch)

    def places(self, fault, most):
        places = [i + 1 for i, call in enumerate(self.calls)
                  if fault != "short" or call.split()[0] in WRITING]
        if most and len(places) > most:
            places = [places[round(i * (len(places) - 1) / max(most - 1, 1))] for i in range(most)]
        return sorted(set(places))

    def try_out(self, fault, place):
        machine = self.machine()
        try:
            run = machine.play_on_disk(self.script, f"{place} {fault}")
            again = machine.restart()
            now = machine.files()
        finally:
            machine.close()
        hangs = again.waits() or (run.waits() and self.name not in WAITING)
        if hangs or run.crashed() or again.crashed():
            return "LOSS", f"the program ended with {run.code}, {again.code}: {run.error}"
        unfinished = False
        for name in sorted(set(now) | set(self.before) | set(self.after)):
            why = lost(name, now.get(name), self.before, self.after)
            if why and self.may_stay(name, now):
                unfinished = True
            elif why:
                return "LOSS", f"{name} {why}; told: {self.told(run)}"
        if run.waits() and self.told(run):
            return "waits", self.told(run)[0]
        if unfinished and (fault == "kill" or self.told(run)):
            return "half", ""
        if fault == "kill":
            return "killed", ""
        if self.told(run):
            return "told", self.told(run)[0]
        different = [name for name in sorted(set(now) | set(self.after))
                     if now.get(name) != self.after.get(name)
                     and not name.endswith(".pdf") and not name.startswith(".cache/")]
        if not different:
            return "done", ""
        return "LOSS", f"no message, but not as it should be: {', '.join(different)}"

    def may_stay(self, name, now):
        known = (name in now and name not in self.before and self.name in UNFINISHED
                 and re.search(UNFINISHED[self.name][0], name))
        return known and (self.name != "record" or true_header(now[name]))

    def told(self, run):
        """The messages that a user does not see without a fault."""
        rest = list(self.boxes)
        told = []
        for box in run.boxes:
            if box in rest:
                rest.remove(box)
            else:
                told.append(box)
        return told

    def cell(self, results):
        counts = {}
        for kind, _ in results:
            counts[kind] = counts.get(kind, 0) + 1
        kinds = ("told", "done", "killed", "half", "waits", "LOSS")
        return " ".join(f"{counts[kind]} {kind}" for kind in kinds if kind in counts) or "-"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("operations", nargs="*")
    parser.add_argument("--most", type=int, default=0, help="calls of a cell; 0: all")
    parser.add_argument("--faults", default=",".join(FAULTS))
    parser.add_argument("--jobs", type=int, default=1)
    parser.add_argument("--messages", action="store_true", help="print the messages as well")
    options = parser.parse_args()
    build = options.build.resolve()
    if not (build / "libfaulty_disk.so").exists():
        sys.exit(f"{build} has no faulty disk: build the target faulty_disk")
    scripts = sorted((HERE / "operations").glob("*.robot"))
    faults = options.faults.split(",")
    shared = pathlib.Path("/dev/shm")
    scratch = tempfile.mkdtemp(dir=shared if shared.is_dir() else None)
    start, runs, losses, messages = time.monotonic(), 0, [], {}
    print("| operation | calls |" + "".join(f" {fault} |" for fault in faults))
    print("|---|---|" + "---|" * len(faults), flush=True)
    try:
        for script in scripts:
            if options.operations and script.stem not in options.operations:
                continue
            operation = Operation(build, scratch, script)
            losses += operation.losses
            cells = []
            for fault in faults:
                places = operation.places(fault, options.most)
                with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
                    results = list(pool.map(lambda p: operation.try_out(fault, p), places))
                runs += len(results)
                cells.append(operation.cell(results))
                for place, (kind, what) in zip(places, results):
                    call = operation.calls[place - 1]
                    if kind == "LOSS":
                        losses.append(f"{operation.name}, {fault} at call {place} ({call}): {what}")
                    elif kind in ("told", "waits"):
                        messages.setdefault((operation.name, what), f"{fault} {place} ({call})")
            print(f"| {operation.name} | {len(operation.calls)} |"
                  + "".join(f" {cell} |" for cell in cells), flush=True)
    finally:
        shutil.rmtree(scratch, ignore_errors=True)
    print()
    for name, (_, why) in UNFINISHED.items():
        print(f"half, {name}: {why}")
    for name, why in WAITING.items():
        print(f"waits, {name}: {why}")
    print(f"\n{runs} runs in {time.monotonic() - start:.0f} s, {len(losses)} losses")
    for line in losses:
        print("LOSS: " + line)
    if options.messages:
        for (name, what), where in messages.items():
            print(f"{name}: \"{what}\" at {where}")
    return 1 if losses else 0


if __name__ == "__main__":
    sys.exit(main())
