#!/usr/bin/env python3
"""Plays every flow with a drive under each of the emulated drive's faults, and prints a table.

    drive_table.py BUILD [--most N] [--messages] [FLOW...]

The fault begins right before the last step of the scripts in flows/. All message boxes are answered
until none comes. Then the program starts again, without the drive, and ends. A cell says:

  told      the user has seen a message that does not come without the fault, and nothing is lost
  done      the flow went on as it does without the fault
  LOSS      the program ended or hung, or a file is neither what it was nor what the flow makes of it

Exits with 1 when there is a LOSS.
"""

import argparse
import pathlib
import shutil
import sys
import tempfile
import time

from fault_table import HERE, Machine

# The entries of tests/emulators/drive/script.h.
FAULTS = {
    "no disc": "disc none",
    "not blank": "disc otro sold",
    "getting ready": "getting-ready 8",
    "read error": "read-error 400",
    "write error": "write-error 300",
    "no SAO": "no-sao",
    "no CD text": "no-cdtext",
    "no writer": "no-writer",
    "busy": "busy",
    "unplugged": "disconnected",
    "unplugged at": "disconnect-at 300",
    "slow": "pace 300",
}


class DriveMachine(Machine):
    def flow(self, script, fault):
        drive = self.home / "drive"
        drive.mkdir(parents=True)
        return self.play(self.written(script),
                         {"VANTORA_EMULATED_DRIVE": str(drive), "FAULT": fault,
                          "LD_PRELOAD": str(self.build / "libemulated_drive.so")})

    def files(self):
        return {name: content for name, content in super().files().items()
                if not name.startswith("drive/")}


class Flow:
    def __init__(self, build, scratch, script):
        self.build, self.scratch, self.script = build, scratch, script
        self.run, _, self.after = self.once("")
        if self.run.code and "stands open" not in self.run.error:
            sys.exit(f"{script.stem} without a fault: {self.run.error}")

    def once(self, fault):
        machine = DriveMachine(self.build, self.scratch)
        try:
            run = machine.flow(self.script, fault)
            again = machine.restart()
            return run, again, machine.files()
        finally:
            machine.close()

    def try_out(self, fault):
        run, again, now = self.once(fault)
        if run.crashed() or again.crashed():
            return "LOSS", f"the program ended with {run.code}, {again.code}: {run.error}"
        if run.code and "stands open" not in run.error:
            return "LOSS", f"the flow ended early: {run.error}"
        for name, content in self.after.items():
            if name.startswith("m/") and now.get(name) != content:
                return "LOSS", f"{name} has changed"
        for name in sorted(set(now) - set(self.after)):
            if name.startswith("Vantora/") and not name.endswith(".log"):
                return "LOSS", f"{name} stays behind"
        if run.boxes == self.run.boxes:
            return "done", ""
        told = [box for box in run.boxes if box not in self.run.boxes] or run.boxes[-1:]
        return ("told", told[0]) if told else ("LOSS", f"no message at all {run.code} {run.error}")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("flows", nargs="*")
    parser.add_argument("--most", type=int, default=0,
                        help="faults of a flow, other ones for each flow; 0: all")
    parser.add_argument("--messages", action="store_true", help="print the messages as well")
    options = parser.parse_args()
    build = options.build.resolve()
    if not (build / "libemulated_drive.so").exists():
        sys.exit(f"{build} has no emulated drive: build the target emulated_drive")
    shared = pathlib.Path("/dev/shm")
    scratch = tempfile.mkdtemp(dir=shared if shared.is_dir() else None)
    start, runs, losses, messages = time.monotonic(), 0, [], []
    print("| flow |" + "".join(f" {name} |" for name in FAULTS))
    print("|---|" + "---|" * len(FAULTS), flush=True)
    try:
        for number, script in enumerate(sorted((HERE / "flows").glob("*.robot"))):
            if options.flows and script.stem not in options.flows:
                continue
            flow = Flow(build, scratch, script)
            cells = []
            for i, (name, fault) in enumerate(FAULTS.items()):
                if options.most and (i - number * options.most) % len(FAULTS) >= options.most:
                    cells.append("")
                    continue
                kind, what = flow.try_out(fault)
                runs += 1
                cells.append(kind)
                (losses if kind == "LOSS" else messages).append(f"{script.stem}, {name}: {what}")
            print(f"| {script.stem} |" + "".join(f" {cell} |" for cell in cells), flush=True)
    finally:
        shutil.rmtree(scratch, ignore_errors=True)
    print(f"\n{runs} runs in {time.monotonic() - start:.0f} s, {len(losses)} losses")
    for line in losses:
        print("LOSS: " + line)
    for line in messages if options.messages else []:
        print(line)
    return 1 if losses else 0


if __name__ == "__main__":
    sys.exit(main())
