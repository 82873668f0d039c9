#!/usr/bin/env python3
"""Breaks the product in sixty small ways, one after the other, and looks which tests notice.

    breaks.py BUILD [--area NAME] [--only N] [--list]

Run it before and after tests are taken away or rewritten: what was caught before must be caught
after. A break is one line that a tired programmer could write. It is found by its text, so a file
may be moved; a text that stands nowhere, or twice, is reported as an error. Each break is built,
the tests of its area run up to the first failure, and the file gets its old text back. All of it
takes about half an hour; nothing else may build in BUILD meanwhile.
"""

import argparse
import fnmatch
import pathlib
import re
import subprocess
import sys

TREE = pathlib.Path(__file__).resolve().parents[2]
STORIES = "^story_.*_headless$"
SLOW_STORIES = "^story_(burn_on_the_drive|drive_trouble)_"
TEST_SECONDS = 120

# Each area: the targets to build and the tests to run, as a pattern for ctest.
AREAS = {
    "catalog": ("product_tests backend_tests vantora-robot",
                r"^(Katalog|KatalogDatei|Import|Start|Dienste|Extras|Zahlen|Zeichen|"
                r"Optionen|Layout|Meldung|Ende|DriveTable|Linux.*|FilesOnDisk|SettingsOnDisk|ProfilesOnDisk)\."),
    "cdinput": ("product_tests backend_tests vantora-robot cddb-server",
                r"^(Cd.*|ClsCCd|Cddb.*|CDKopieren|CDPlayer.*|Datenbank.*|TitelHolen|Drive|Player|"
                r"Playing|Reader|Room|Sheets|Import)\."),
    "cdwriting": ("product_tests backend_tests drive_tests vantora-robot",
                  r"^(Brennen|BrennerListe|Burner|DiscPlan|DriveText|Fortschritt|CDKopieren|"
                  r"MedleyDisc|Neustart)\.|^DriveBurn\.ADiscAtOnce"),
    "sound": ("product_tests backend_tests vantora-robot",
              r"^(Abbruch|Bearbeiten|Einrechnen|Edits|Equalizer|Flanger|Restoration|Reverb|Volume|"
              r"Cutter|Normalizer|Presets|Interruptions|WaveEditor|Wave.*|Playing|"
              r"Pumping|Pegel|Spektrum|Spectrum|Polyphase|Mp3.*|SoundCheck|Decoder.*|Player)\."),
    "medley": ("product_tests backend_tests vantora-robot",
               r"^(Aufnahme|BeatCounter|Medley.*|Mixer|Pult|Schnitt|Pitcher|Rampe|Pegel.*)\."),
    "windows": ("product_tests backend_tests vantora-robot",
                r"^(Cover|Seiten|Dateidialog|Druckdialoge|Extras|Optionen|Layout|Meldung|"
                r"Print.*)\.|^covers_on_paper$"),
}

# Area, file, old text, new text.
BREAKS = [
    ("catalog", "katalog_datei.cpp",
     "for (std::size_t i = sizeof bytes; i-- > 0;) bits =",
     "for (std::size_t i = 0; i < sizeof bytes; ++i) bits ="),
    ("catalog", "settings_file.cpp",
     "const bool edge = i == 0 || i + 1 == bytes.size();", "const bool edge = i == 0;"),
    ("catalog", "drive_table.cpp",
     "if (path.size() > root) path.resize(", "if (path.size() >= root) path.resize("),
    ("catalog", "katalog_zeiten.cpp",
     "if (minuten > prog.LängeCD) {", "if (minuten >= prog.LängeCD) {"),
    ("catalog", "zahlen.cpp", "if (rest < 0.5) return unten;", "if (rest <= 0.5) return unten;"),
    ("catalog", "katalog_rechnung.cpp", "  ziel += schritt;", "  ziel += 1;"),
    ("catalog", "katalog_ablage.cpp",
     "if (!KatalogSpeichern(prog.GewaehlteDatei)) return Sicherung::Abgelehnt;",
     "KatalogSpeichern(prog.GewaehlteDatei);"),
    ("catalog", "einstellungen.cpp", "wert = zahl == 1 || zahl == 2;", "wert = zahl == 1;"),
    ("catalog", "lied_import.cpp", "if (WaveLaenge(t_.Wave, datei) <= kMindestLaengeMs) {",
     "if (WaveLaenge(t_.Wave, datei) < kMindestLaengeMs) {"),
    ("catalog", "wave_pruefung.cpp",
     "if (groesse < 0 || static_cast<std::uint32_t>(groesse) > kLaengsterFremder) return false;",
     "if (groesse < 0) return false;"),

    ("cdinput", "clsCCd.cpp", "Frames(AusMsf(laenge)) + 1;", "Frames(AusMsf(laenge));"),
    ("cdinput", "clsCCd.cpp", "HexBreit(pruefsumme % 255, 2)", "HexBreit(pruefsumme % 256, 2)"),
    ("cdinput", "cddb_abfrage.cpp", "if (zeichen < L' ' || (zeichen == L' ' && ++leer == 2)) break;",
     "if (zeichen == L' ' && ++leer == 2) break;"),
    ("cdinput", "cddb_abfrage.cpp", "return Ganz16(port > 32767 ? port - 65536 : port);",
     "return Ganz16(port);"),
    ("cdinput", "cddb_antwort.cpp", "mTitel = wert.substr(trenner + 3);",
     "mTitel = wert.substr(trenner + 2);"),
    ("cdinput", "image_cue.cpp", "sector_ += track.Pregap;", "sector_ += track.Postgap;"),
    ("cdinput", "track_sound.cpp", "to_ = EndOf(toc.Track(back));", "to_ = EndOf(toc.Track(track));"),
    ("cdinput", "disc_player.cpp", "SectorsPerSecond / 1000) - kCdLeadInSectors;",
     "SectorsPerSecond / 1000);"),
    ("cdinput", "grab_lauf.cpp", "prog.GrabAktuell += prog.GrabTrackSektoren;",
     "prog.GrabAktuell = prog.GrabTrackSektoren;"),
    ("cdinput", "grab_lauf.cpp", "if (ausgang != Ausgang::Abbruch) FensterSperren(false);",
     "if (ausgang == Ausgang::Fertig) FensterSperren(false);"),

    ("cdwriting", "disc_plan.cpp", "full = goesOn ? bytes : bytes +",
     "full = !goesOn ? bytes : bytes +"),
    ("cdwriting", "disc_plan.cpp", "track.Gap = i > 0 && !rules.OneStream", "track.Gap = !rules.OneStream"),
    ("cdwriting", "pausen.cpp", "i + 1 < prog.Katalog.size(); ++i", "i < prog.Katalog.size(); ++i"),
    ("cdwriting", "frmCDBrennen*.cpp", "if (KopieNr <= KopienAnzahl) {", "if (KopieNr < KopienAnzahl) {"),
    ("cdwriting", "frmCDBrennen*.cpp", "if (optDiscAtOnce.Value() && chkSimulation.Value == 0) Weiter",
     "if (optDiscAtOnce.Value() && chkSimulation.Value != 0) Weiter"),
    ("cdwriting", "frmCDBrennen*.cpp", "if (eingetragen_) DeleteTempWavs();", "DeleteTempWavs();"),
    ("cdwriting", "brenn_ereignisse.cpp",
     "fertig += Val(prog.Katalog[i].Laenge.Ganz()) + prog.Katalog[i].Pause * 1000.0;",
     "fertig += Val(prog.Katalog[i].Laenge.Ganz()) + prog.Katalog[i].Pause * 100.0;"),
    ("cdwriting", "brenn_ereignisse.cpp", "if (f.Window.Enabled) return;",
     "if (!f.Window.Enabled) return;"),
    ("cdwriting", "image_burn.cpp", "if (order_.fixate) tell_(", "if (!order_.fixate) tell_("),
    ("cdwriting", "cd_text.cpp", "text = bytes(static_cast<int>(i) + 1);",
     "text = bytes(static_cast<int>(i));"),

    ("sound", "*earbeitung*.cpp", "MoveStep(ab, ab + neu, rest)", "MoveStep(ab + neu, ab, rest)"),
    ("sound", "*earbeitung*.cpp", "Quotient(1, auswahl_.MarkerEnde - auswahl_.MarkerAnfang);",
     "Quotient(1, auswahl_.MarkerEnde - auswahl_.MarkerAnfang + 1);"),
    ("sound", "*earbeitung*.cpp", "UndoStart = auswahl_.MarkerAnfang;", "UndoStart = auswahl_.MarkerEnde;"),
    ("sound", "wave_file.cpp", "layout_.DataBytes = std::max(layout_.DataBytes, end);",
     "layout_.DataBytes = end;"),
    ("sound", "wave_file.cpp", "const std::int64_t end = layout_.DataOffset + Even(layout_.DataBytes);",
     "const std::int64_t end = layout_.DataOffset + layout_.DataBytes;"),
    ("sound", "edit_plan.cpp", "if (tail > layout.TailOffset) file.Steps.push_back(moved);",
     "if (tail < layout.TailOffset) file.Steps.push_back(moved);"),
    ("sound", "normalizer.cpp", "return std::max(-lowest, int{highest});",
     "return std::max(int{lowest}, int{highest});"),
    ("sound", "flanger.cpp", "kReach = 4, kShape = 5.6", "kReach = 4, kShape = 20"),
    ("sound", "volume.cpp", "path_[i / 2] / kUnity;", "path_[i / 2] * kUnity;"),
    ("sound", "mpeg_frame.cpp", "(header.channels == 1 ? 17 : 32) :", "(header.channels == 1 ? 32 : 17) :"),

    ("medley", "mischung.cpp", "static_cast<double>(i) / alle;", "static_cast<double>(i + 1) / alle;"),
    ("medley", "ueberblendung.cpp", "werte.U -= werte.U % kFrameBytes;",
     "werte.U -= werte.U % kWertBytes;"),
    ("medley", "ueberblendung.cpp", "erste.After = groesse1_ - u;", "erste.After = groesse1_ - 2 * u;"),
    ("medley", "ueberblendung.cpp", "if (tempo1 < tempo2) return Quotient(", "if (tempo1 > tempo2) return Quotient("),
    ("medley", "frmBeatCounter.cpp", "jetzt - prog.LetzterSchlag) * 2);", "jetzt - prog.LetzterSchlag));"),
    ("medley", "pegelausloeser.h", "return {stille >= Pausenlaenge ?", "return {stille > Pausenlaenge ?"),
    ("medley", "pegelausloeser.h", "if (++anzahl_ <= kMessungen) return false;",
     "if (++anzahl_ < kMessungen) return false;"),
    ("medley", "frmAufnehmen*.cpp", "while (!frei() && datei() != ersetzen_) ++nummer;",
     "while (!frei()) ++nummer;"),
    ("medley", "frmAufnehmen*.cpp", "MultiTrack ? std::clamp(Pegelschwelle / 2, 1, 32767) : 0;",
     "MultiTrack ? std::clamp(Pegelschwelle, 1, 32767) : 0;"),
    ("medley", "fader.cpp", "if (!Check1.InUse() || !Check1.InSight()) return;",
     "if (!Check1.InSight()) return;"),

    ("windows", "seiten.cpp", "mass.Breite - 2 * kRueckenBreite,", "mass.Breite - kRueckenBreite,"),
    ("windows", "seiten.cpp", "if (i % kTakt == 0) i += kSprung;", "if (i % kTakt == 0) i += kSprung + 1;"),
    ("windows", "frmPrint*.cpp", "270, x + mass.Breite - kTextVomRand,", "270, x + kTextVomRand,"),
    ("windows", "frmPrint*.cpp", "const int x = Ganz32(blattX - x0), y = Ganz32(blattY - y0);",
     "const int x = Ganz32(blattX + x0), y = Ganz32(blattY - y0);"),
    ("windows", "frmPrint*.cpp", "drucker.Orientation = kPortrait;", "drucker.Orientation = kLandscape;"),
    ("windows", "frmFarbe.cpp", "static_cast<unsigned>(16 - 8 * index)", "static_cast<unsigned>(8 * index)"),
    ("windows", "frmFarbe.cpp", "FeldWaehlen(feld_ < 0 ? 0 : feld_ + schritt);",
     "FeldWaehlen(feld_ < 0 ? 0 : feld_ - schritt);"),
    ("windows", "frmLoadSave.cpp", "einzug = 2 * (ordner.size() + 1);", "einzug = 2 * ordner.size();"),
    ("windows", "frmLoadSave.cpp", "prog.MehrfachAuswahl = namen.size() > 1;",
     "prog.MehrfachAuswahl = !namen.empty();"),
    ("windows", "job_printer.cpp", "sheet.PaperWidth(Turned()) - 2 * sheet.OffsetX(Turned());",
     "sheet.PaperWidth(Turned()) - sheet.OffsetX(Turned());"),
]


def place(pattern, old):
    """The one source of the product that holds the text, and its content."""
    tracked = subprocess.run(["git", "ls-files", "-z"], cwd=TREE, capture_output=True, check=True)
    found = []
    for name in tracked.stdout.decode().split("\0"):
        path = TREE / name
        if name.startswith(("tests/", "bench/")) or not fnmatch.fnmatch(path.name, pattern):
            continue
        content = path.read_text(encoding="utf-8")
        if old in content:
            found.append((path, content))
    if len(found) != 1 or found[0][1].count(old) != 1:
        sys.exit(f"{pattern}: the text stands in {len(found)} files, or twice: {old}")
    return found[0]


def build(folder, targets):
    return subprocess.run(["nice", "-n", "5", "ninja", "-j2", "-C", folder, *targets.split()],
                          capture_output=True, text=True)


def first_failure(folder, tests):
    run = subprocess.run(
        ["ctest", "--test-dir", folder, "-j2", "--stop-on-failure", "--no-tests=error",
         "--timeout", str(TEST_SECONDS), "-R", f"{tests}|{STORIES}", "-E", SLOW_STORIES],
        capture_output=True, text=True)
    if run.returncode == 0:
        return None
    failed = re.search(r"(\S+) \.*\s*\*+(?:Failed|Timeout|Exception|Not Run)", run.stdout)
    return failed[1] if failed else run.stdout[-300:]


def try_out(folder, area, pattern, old, new):
    targets, tests = AREAS[area]
    path, content = place(pattern, old)
    try:
        path.write_text(content.replace(old, new), encoding="utf-8")
        built = build(folder, targets)
        if built.returncode != 0:
            return "DOES NOT COMPILE " + "".join(re.findall(r"error: .*", built.stdout)[:1])
        caught = first_failure(folder, tests)
        return f"caught by {caught}" if caught else "NOT CAUGHT"
    finally:
        path.write_text(content, encoding="utf-8")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build")
    parser.add_argument("--area", choices=AREAS)
    parser.add_argument("--only", type=int)
    parser.add_argument("--list", action="store_true", help="only find all texts")
    options = parser.parse_args()
    missed = 0
    for number, (area, *what) in enumerate(BREAKS, 1):
        if options.area not in (None, area) or options.only not in (None, number):
            continue
        path, _ = place(*what[:2])
        result = "" if options.list else try_out(options.build, area, *what)
        missed += not options.list and not result.startswith("caught")
        print(f"{number:2} {area:9} {path.relative_to(TREE)}: {what[2]}  {result}", flush=True)
    if not options.list and options.only is None:
        build(options.build, " ".join(targets for targets, _ in AREAS.values()))
    return 1 if missed else 0


sys.exit(main())
