#!/usr/bin/env python3
"""Prints covers with the robot and reads the PDFs back with poppler.

usage: check_cover_pdf.py ROBOT FOLDER

Every side, on A4 and on Letter, with margins of 0 and of 5 mm: the left edge of each text, the
frame, the folds, the marks and the picture stand within a tenth of a millimetre of where they belong.
The fonts are in the file, and a photograph keeps all its points as they were, also when it is turned.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys

TWIPS = 1440
TOLERANCE = 0.1 / 25.4 * TWIPS
PAPERS = {"A4": (11906, 16838), "Letter": (12240, 15840)}
FIVE_MM = 283
PHOTO = pathlib.Path(__file__).resolve().parents[1] / "fuzz/corpus/fuzz_picture/turned.jpg"  # 9 by 7
BACK, DOUBLE, FRONT, LABEL = (8565, 6690), (13605, 6810), (6802, 6810), (6810, 6810)
# Positions of cover, back and labels on the pre-cut sheet, from the edge of the paper.
COVER_AT, BACK_AT, LABELS_AT = (3402, 1361), (1644, 8781), [(2608, 963), (2608, 9327)]
LINE = {"dorso": 600, "cubierta": 5600, "etiqueta": 600, "frente": 600}

SCRIPT = """home home-{name}
screen 1024 768
setting Show_Start_Assistant 0
printer pdf {name}
printer paper {paper}
printer margins {margin} {margin}
makewave C:\\m\\uno.wav 3 300
start
press frmHauptForm.imgLiedImport
choose C:\\m\\uno.wav
type frmNeuerInterpret.txtTitel "Otoño"
key frmNeuerInterpret Return
within 5000 expect frmHauptForm.lvwKatalog.Count == 1
press frmHauptForm.imgPrintCover
type frmPrintStart.txtTitel(0) "Igual"
type frmPrintStart.txtTitel(1) "Hilera"
press frmPrintStart.imgReady
{sides}press frmPrint.imgAbbrechen
close
"""
PICTURE = "press frmPrint.imgControl({0})\npress frmPrint.imgLoadPic\nchoose C:\\Vantora\\Pictures\\p.jpg\n"
PRINT = "press frmPrint.imgPrintMe\nprint ok\n"


def script(name, paper, margin):
    sides = "".join(PICTURE.format(i) for i in (0, 1, 2))
    sides += "".join(f"press frmPrint.imgControl({i})\n" + PRINT for i in (0, 1, 2))
    sides += "press frmPrint.chkPaper(1)\npress frmPrint.imgControl(0)\n" + PRINT
    sides += "press frmPrint.imgControl(2)\n" + PRINT
    sides += "press frmPrint.optLabelPos(1)\n" + PRINT
    return SCRIPT.format(name=name, paper=paper, margin=margin, sides=sides)


def listed(program, *words):
    """The lines of a table below its head."""
    return subprocess.run([program, *words], check=True, capture_output=True, text=True).stdout.splitlines()[2:]


class Page:
    """Twips from the paper's upper left corner."""

    def __init__(self, pdf):
        boxes = subprocess.run(["pdftotext", "-bbox", pdf, "-"], check=True, capture_output=True, text=True).stdout
        self.size = tuple(20 * float(n) for n in re.search(r'page width="([\d.]+)" height="([\d.]+)"', boxes).groups())
        self.words = [(w, 20 * float(x), 20 * float(x2)) for x, x2, w in
                      re.findall(r'xMin="([\d.]+)".*?xMax="([\d.]+)".*?>(.*?)</word>', boxes)]
        self.photos = {" ".join(line.split()[3:9]) for line in listed("pdfimages", "-list", pdf)}
        self.fonts = {re.search(r"\s(yes|no)\s+(yes|no)\s+(yes|no)\s", line)[1] for line in listed("pdffonts", pdf)}
        grey = subprocess.run(["pdftoppm", "-r", "720", "-gray", "-aa", "no", "-aaVector", "no", "-singlefile", pdf],
                              check=True, capture_output=True).stdout
        head = re.match(rb"P5\s+(\d+)\s+(\d+)\s+255\s", grey)
        self.width, self.height = int(head[1]), int(head[2])
        self.points = grey[head.end():]

    def ink(self, left, top, right, bottom, light=200):
        """The box of all that is darker, in a rectangle; a pixel is two twips."""
        dark = re.compile(b"[\\x00-" + bytes([light]) + b"]", re.S)
        xs, ys = [], []
        left, right = max(0, int(left) // 2), min(self.width, int(right) // 2)
        for y in range(max(0, int(top) // 2), min(self.height, int(bottom) // 2)):
            row = self.points[y * self.width + left:y * self.width + right]
            first = dark.search(row)
            if first is None:
                continue
            last = len(row) - 1
            while row[last] > light:
                last -= 1
            xs += [left + first.start(), left + last]
            ys.append(y)
        return (2 * min(xs), 2 * min(ys), 2 * max(xs) + 2, 2 * max(ys) + 2) if xs else None


class Checker:
    def __init__(self):
        self.wrong = []
        self.looked = 0

    def near(self, what, have, want, tolerance=TOLERANCE):
        self.looked += 1
        if have is None or abs(have - want) > tolerance:
            self.wrong.append(f"{what}: {have}, was to be {want:.0f}")

    def same(self, what, have, want):
        self.looked += 1
        if have != want:
            self.wrong.append(f"{what}: {have}, was to be {want}")

    def text(self, where, page, word, left):
        """The first word of that line; its first letter stands a little inside its cell."""
        found = [x for w, x, _ in page.words if w == word]
        self.looked += 1
        if not any(abs(x - left) <= TOLERANCE for x in found):
            self.wrong.append(f"{where}: {word} at {found}, was to be at {left:.0f}")

    def picture(self, where, page, left, top, right, bottom):
        """Its edges, looked for across the middle, where no text stands."""
        low = (top + bottom) / 2
        box = page.ink(left - 250, low, right + 250, low + 60, 230)
        self.near(f"{where}: picture's left edge", box and box[0], left)
        self.near(f"{where}: picture's right edge", box and box[2], right)
        box = page.ink(right - 200, top - 250, right - 140, bottom + 250, 230)
        self.near(f"{where}: picture's upper edge", box and box[1], top)


def centred(check, where, page, size, lead):
    x = (page.size[0] - size[0]) / 2
    y = (page.size[1] - size[1]) / 2
    right, bottom = x + size[0], y + size[1]
    check.text(where, page, "1", x + lead)
    # the fold marks beside and above the frame, and the lines of the frame
    for name, box, want in [
            ("left marks", (x - 1100, y - 60, x - 100, bottom + 60), (x - 900, y, x - 200, bottom)),
            ("right marks", (right + 100, y - 60, right + 1100, bottom + 60), (right + 200, y, right + 900, bottom)),
            ("upper marks", (x - 60, y - 1100, right + 60, y - 100), (x, y - 900, right, y - 200)),
            ("lower marks", (x - 60, bottom + 100, right + 60, bottom + 1100), (x, bottom + 200, right, bottom + 900))]:
        ink = page.ink(*box)
        for i in range(4):
            # the dots skip 10 at every multiple of 20, also at the end of a mark
            check.near(f"{where}: {name} [{i}]", ink and ink[i], want[i], TOLERANCE + 12)
    return x, y, right, bottom


def check_centred(check, where, back, cover, label):
    x, y, right, bottom = centred(check, where + " back", back, BACK, LINE["dorso"])
    check.picture(where + " back", back, x + 345, y, right - 345, bottom)
    # the left spine reads upwards and begins 100 above its lower end; the right spine is reversed
    left_spine = back.ink(x + 40, y + 300, x + 340, bottom - 100)
    check.near(where + " left spine begins", left_spine and left_spine[3], bottom - 200, 30)
    right_spine = back.ink(right - 340, y + 100, right - 40, bottom - 300)
    check.near(where + " right spine begins", right_spine and right_spine[1], y + 200, 30)
    for name, at in (("left", x + 385), ("right", right - 385)):
        fold = back.ink(at - 30, bottom - 1500, at + 30, bottom - 1400, 60)  # black
        check.near(f"{where} {name} fold of the back", fold and fold[0], at)
    x, y, right, bottom = centred(check, where + " cover", cover, DOUBLE, LINE["cubierta"])
    middle = x + DOUBLE[0] // 2
    fold = cover.ink(middle - 200, bottom - 1500, middle + 200, bottom - 1400, 60)  # black
    check.near(where + " fold", fold and fold[0], middle)
    check.picture(where + " cover", cover, middle, y, right, bottom)
    x, y, right, bottom = centred(check, where + " label", label, LABEL, LINE["etiqueta"])
    check.picture(where + " label", label, x, y, right, bottom)
    ring = label.ink(x + 5600, y + 5800, right - 100, y + 5820, 60)
    check.near(where + " ring of the label", ring and ring[0], x + 5811, 30)


def check_paper(check, where, sheet, labels):
    for name, page, at, size, lead in [("front", sheet, COVER_AT, FRONT, LINE["frente"]),
                                       ("back", sheet, BACK_AT, BACK, LINE["dorso"]),
                                       ("upper label", labels[0], LABELS_AT[0], LABEL, LINE["etiqueta"]),
                                       ("lower label", labels[1], LABELS_AT[1], LABEL, LINE["etiqueta"])]:
        check.text(f"{where} {name}", page, "1", at[0] + lead)
        inset = 345 if name == "back" else 0
        check.picture(f"{where} {name}", page, at[0] + inset, at[1], at[0] + size[0] - inset, at[1] + size[1])


def main():
    robot, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    check = Checker()
    for paper in PAPERS:
        for margin in (0, FIVE_MM):
            name = f"{paper}-{margin}"
            story = folder / f"{name}.robot"
            story.write_text(script(name, paper, margin))
            pictures = folder / f"home-{name}/Vantora/Pictures"
            pictures.mkdir(parents=True)
            shutil.copy(PHOTO, pictures / "p.jpg")
            subprocess.run([robot, story.name], cwd=folder, check=True,
                           env={**os.environ, "QT_QPA_PLATFORM": "offscreen"})
            pages = [Page(pdf) for pdf in sorted((folder / name).glob("*.pdf"))]
            if len(pages) != 6:
                sys.exit(f"{name}: {len(pages)} pages, were to be 6")
            for i, page in enumerate(pages):
                size = PAPERS[paper] if i > 2 else PAPERS[paper][::-1]
                check.near(f"{name} page {i + 1} width", page.size[0], size[0], 30)
                check.same(f"{name} page {i + 1} fonts in the file", page.fonts, {"yes"})
                check.same(f"{name} page {i + 1} photograph", page.photos, {"9 7 rgb 3 8 jpeg"})
                check.same(f"{name} page {i + 1} title", "Otoño" in [w for w, _, _ in page.words], True)
            check_centred(check, f"{name} centred", *pages[:3])
            check_paper(check, f"{name} pre-cut", pages[3], pages[4:])
    print("\n".join(check.wrong) or f"{check.looked} places are right")
    sys.exit(1 if check.wrong else 0)


if __name__ == "__main__":
    main()
