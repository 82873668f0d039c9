#!/usr/bin/env python3
"""Uses the program as a screen reader does: over the accessibility bus of a desktop.

usage: screen_reader.py ROBOT VANTORA SOURCES FOLDER [--tree]

First the robot plays docs/pictures/windows.robot, which shows every window, and each window is read
when its picture is taken. The rules stand in `faults_of` and in SPOKEN. Then a whole audio CD is made
with the program itself, through the accessibility bus alone: nothing is clicked, and no key is
pressed. --tree prints what is read.
"""

import os
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import wave

import dbus
import dbus.bus

ATSPI = "org.a11y.atspi."
STATES = {"active": 1, "checked": 4, "enabled": 8, "focusable": 11, "modal": 16, "showing": 25}
PRESSED = {"push button", "check box", "radio button", "link", "menu item"}
NAMED = PRESSED | {"progress bar", "slider", "text", "combo box", "list", "tree", "canvas", "image"}
MODAL = {"Abrir", "Asistente", "Base de datos", "Herramientas", "Importar el tema", "Mensaje",
         "Mesa de mezcla", "Tipo de letra", "Título", "Título del CD"}
# Windows of work that waits for nobody. They are read again and again until the next picture.
PASSING = {"frmAufnehmen": "frmSchreibFortschritt_mp3", "frmDatenbank": "frmSchreibFortschritt"}
# What windows say when their picture is taken: role, name, and a pattern of the value or the state.
SPOKEN = {
    "SystemBox": [("dialog", "Vantora", "modal")],
    "frmHauptForm": [("frame", "Vantora", "active"), ("label", r"00:13:\d\d", "")],
    "frmAufnehmen": [("progress bar", "Espacio de disco disponible", r"\d+"),
                     ("progress bar", "Nivel de grabación izquierdo", r"\d+"),
                     ("check box", "Grabación", "checked"), ("label", r"00:\d\d:\d\d:\d\d", "")],
    "frmLoadSave": [("label", r"2 archivos elegidos, en total 00:07:37", ""), ("list", "Archivos:", "")],
    "frmSchreibFortschritt_mp3": [
        ("dialog", "Estado", ""), ("label", "Conversión: Mar abierto.mp3", ""),
        ("progress bar", "Porcentaje de la pista activa copiada", r"[1-9].*"),
        ("progress bar", "Porcentaje de la copia efectuada", r"[1-9].*"), ("push button", "Cancelar", "")],
    # On a busy machine the burn is faster than this reader, which then sees only its end.
    "frmSchreibFortschritt": [("progress bar", "Porcentaje de la .*", r"[1-9].*")],
    "frmPrintStart": [("text", "Album", "Verano"), ("text", "Títulos", r"1   Azul oscuro[\s\S]*")],
    "frmSchrift": [("list", "Fuente:", ""), ("text", "Tamaño:", "10"),
                   ("check box", "Negrita", "unchecked")],
    "frmFarbe": [("slider", "Rojo:", "0"), ("text", "Azul:", "0"),
                 ("canvas", "Colores:", "Rojo: 0, Verde: 0, Azul: 0")],
    "frmPrint_dorso": [
        ("check box", "Dorso", "checked"), ("check box", "Cubierta", "unchecked"),
        ("radio button", "Centrado", "checked"), ("canvas", "Vista previa de la página", ""),
        ("label", "Verano: a 11 mm del borde izquierdo y a 7 mm del borde superior", ""),
        ("text", "Texto seleccionado", r"2   Bajo la lluvia.* \(seleccionado\): a 11 mm .*")],
    "frmPrint_etiqueta": [("check box", "Etiqueta", "checked"),
                          ("text", "Texto seleccionado", "Ningún texto seleccionado.*")],
    "frmDrucken": [("combo box", "Impresora:", "PDF"), ("text", "Archivo PDF:", r"C:.*\.pdf")],
    "frmBeatCounter": [("progress bar", "Tiempo restante:", r"\d+"), ("label", r"\d+", ""),
                       ("push button", "Pulse aquí o presione la barra espaciadora.", "")],
    "frmExtrasMenue": [("combo box", "Velocidad de grabado:", r"\d+")],
    "frmMixer": [("slider", "Volumen por CD", "79"), ("check box", "Mudo: CD", "checked")],
    "frmWaveEditor": [("canvas", "Representación gráfica.*", r"Posición: 1:\d\d:\d. "
                       r"Selección: 1:02:\d - \d:59:\d"),
                      ("progress bar", "Utilización del procesador", r"\d+"),
                      ("check box", "Ecualizador: On/Off", "checked"),
                      ("check box", "Loudness", "unchecked"),
                      ("check box", "Ecualizador", "checked"), ("check box", "Hall", "unchecked"),
                      ("label", r"\d:59:\d", ""), ("push button", "Anular la selección", "")],
    "frmWaveEditor_volumen": [("check box", "Volumen: On/Off", "checked"),
                              ("check box", "Optimización: On/Off", "checked"),
                              ("slider", "Optimización: Límite", r"\d+"),
                              ("check box", "Optimización: (pasa el sonido|silencio)", "checked")],
    "frmWaveEditor_flanger": [("check box", "Reproducir", "checked"),
                              ("canvas", "Representación gráfica.*", r"Posición: \d:\d\d:\d. .*")],
}


class Node:
    """An object of the accessibility bus, read once."""

    def __init__(self, bus, app, path, parent=None):
        self.bus, self.app, self.path, self.parent = bus, app, path, parent
        self.role = str(self.call("Accessible", "GetRoleName"))
        self.name = str(self.get("Accessible", "Name"))
        self.hint = str(self.get("Accessible", "Description"))
        low, high = self.call("Accessible", "GetState")
        bits = int(low) | int(high) << 32
        self.states = {state for state, bit in STATES.items() if bits >> bit & 1}
        self.parts = {str(i)[len(ATSPI):] for i in self.call("Accessible", "GetInterfaces")}
        self.value = None
        if "Value" in self.parts:
            self.value = self.get("Value", "CurrentValue")
        elif "Text" in self.parts:
            self.value = str(self.call("Text", "GetText", "ii", 0, self.get("Text", "CharacterCount")))

    def call(self, part, method, signature="", *words):
        return self.bus.call_blocking(self.app, self.path, ATSPI + part, method, signature, words,
                                      timeout=60)

    def get(self, part, name):
        return self.bus.call_blocking(self.app, self.path, "org.freedesktop.DBus.Properties", "Get",
                                      "ss", (ATSPI + part, name), timeout=60)

    def stays_hidden(self):
        """True for an object that is listed and not shown. One that blinks is shown soon."""
        end = time.monotonic() + 1
        while time.monotonic() < end:
            now = Node(self.bus, self.app, self.path)
            if "showing" in now.states or self.path not in [n.path for n in self.parent.children()]:
                return False
        return True

    def children(self):
        return [Node(self.bus, app, path, self) for app, path in self.call("Accessible", "GetChildren")]

    def all(self):
        yield self
        if self.role in ("combo box", "text"):  # their parts are the toolkit's
            return
        for child in self.children():
            yield from child.all()

    def place(self):
        return [int(n) for n in self.call("Component", "GetExtents", "u", 0)]

    def actions(self):
        return [str(a[0]) for a in self.call("Action", "GetActions")] if "Action" in self.parts else []

    def __str__(self):
        value = "" if self.value is None else f" = {self.value}"
        return f"{self.role} '{self.name}'{value} {' '.join(sorted(self.states))}"


def accessibility_bus():
    address = dbus.SessionBus().call_blocking("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus",
                                              "GetAddress", "", ())
    return dbus.bus.BusConnection(address)


def windows_of_program(bus):
    desktop = Node(bus, "org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")
    return [window for app in desktop.children() if app.name == "Vantora"
            for window in app.children()]


def wait_until(look, what, seconds=60):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        try:
            found = look()
        except dbus.DBusException:  # the object or the window has just gone
            found = None
        if found:
            return found
        time.sleep(0.02)
    raise SystemExit(f"screen_reader: waited in vain for {what}")


# ---- every window ----

def inside(outer, x, y):
    left, top, width, height = outer
    return left <= x < left + width and top <= y < top + height


def faults_of(window, nodes):
    if window.role not in ("frame", "dialog", "menu", "popup menu"):
        yield f"{window} is no frame, dialog or menu"
    if window.name in MODAL and "modal" not in window.states:
        yield f"{window} does not say that it is modal"
    buttons = [(node, node.place()) for node in nodes if node.role in PRESSED]
    used = [(node.role, node.name) for node in nodes if node.role in PRESSED | {"slider", "text"}]
    for twice in sorted({said for said in used if used.count(said) > 1}):
        yield f"{window} has more than one {twice[0]} '{twice[1]}'"
    for node in nodes:
        if "showing" not in node.states and node.stays_hidden():
            yield f"{node} is not shown"
        if node.role in NAMED and node.name.strip(" -") == "":
            yield f"{node} has no name (hint: '{node.hint}')"
        lamp = node.role == "check box" and "focusable" not in node.states
        if node.role in PRESSED and "enabled" in node.states and not lamp and not (
                {"Press", "Toggle"} & set(node.actions())):
            yield f"{node} cannot be pressed"
        if node.role == "progress bar" and not 0 <= (-1 if node.value is None else node.value) <= 100:
            yield f"{node} has no value"
        if node.role in ("filler", "unknown", "panel") and not node.name and not node.children():
            yield f"{node} says nothing"
        if node.role == "label":
            left, top, width, height = node.place()
            if node.name == "":
                yield f"{node} has no words (hint: '{node.hint}')"
            for button, place in buttons:
                if inside(place, left + width // 2, top + height // 2):
                    yield f"{node} is the caption of {button}"


def missing_in(shot, nodes):
    for role, name, value in SPOKEN.get(shot, []):
        def fits(node):
            if node.role != role or not re.fullmatch(name, node.name):
                return False
            if value == "unchecked":
                return "checked" not in node.states
            if value in STATES:
                return value in node.states
            said = f"{node.value:g}" if isinstance(node.value, float) else node.value or ""
            return re.fullmatch(value, said) is not None
        if not any(fits(node) for node in nodes):
            yield f"found no {role} '{name}' with '{value}'"


def script_of(sources, stage):
    """Returns the script of the pictures, in which the robot waits until the windows are read, and
    the names of the pictures."""
    script, shots = [], []
    for line in (sources / "docs/pictures/windows.robot").read_text().splitlines():
        line = line.replace("@SIZE@", "1").replace("@SCREEN@", "1024 768")
        if line.startswith("copy song.wav"):
            line = 'makewave "C:\\Música\\Azul oscuro.wav" 214 220'
        line = re.sub(r"^after \d+ (shot frmBeatCounter)", r"\1", line)  # without the held button
        if line.startswith("makemp3"):  # its conversion is read while it runs
            line = line.replace(" 480 ", " 1500 ")
        if line.startswith("# the recorder"):  # it is read while it records
            line = "makewave C:\\lp.wav 900 262"
        if line.startswith("after") and "linein" in line:
            line = "after 8000 linein play C:\\lp.wav"
        script.append(line)
        shot = re.match(r"shot (\S+)_1\.png", line)
        if shot:
            shots.append(shot[1])
            seen = str(stage / f"{shot[1]}.seen").replace("/", "\\")
            script.append(f'within 100000000 expect-file "Z:{seen}" exists')
    return "\n".join(script) + "\n", shots


def read_every_window(bus, robot, sources, stage, show):
    """Plays the script of the pictures, and reads the windows at each picture."""
    script, shots = script_of(sources, stage)
    (stage / "windows.robot").write_text(script)
    play = subprocess.Popen([robot, "--windows", "windows.robot"], cwd=stage)
    faults, passed = [], {name: [] for name in PASSING.values()}
    for shot in shots:
        def taken():
            if play.poll() is not None:
                raise SystemExit(f"screen_reader: the robot ended with {play.returncode} before {shot}")
            if shot in PASSING:
                passed[PASSING[shot]] += [node for window in windows_of_program(bus)
                                          if window.name == "Estado" for node in window.all()]
            return (stage / f"{shot}_1.png").exists()
        wait_until(taken, shot, 300)
        shown = windows_of_program(bus)
        spoken = []
        for window in shown:
            # A window behind others has been read when it was in front.
            if "active" not in window.states and not window.role.endswith("menu"):
                continue
            nodes = [node for node in window.all() if node.role not in ("tree item", "list item")]
            spoken += nodes
            faults += [f"{shot}: {fault}" for fault in faults_of(window, nodes)]
        if show:
            print(f"== {shot}", *spoken, sep="\n")
        faults += [f"{shot}: {window} was closed" for window in shown if "showing" not in window.states]
        if shot.startswith("frmHauptForm") and sum(w.role in ("frame", "dialog") for w in shown) != 1:
            faults.append(f"{shot}: more windows than the main one")
        faults += [f"{shot}: {fault}" for fault in missing_in(shot, spoken)]
        (stage / f"{shot}.seen").touch()
    for shot, nodes in passed.items():
        if show:
            print(f"== {shot}", *nodes, sep="\n")
        faults += [f"{shot}: {fault}" for fault in missing_in(shot, nodes)]
    if play.wait(timeout=60) != 0:
        faults.append("the robot failed")
    return faults


# ---- a whole CD ----

class Reader:
    """A user who sees nothing."""

    def __init__(self, bus):
        self.bus = bus

    def find(self, window, role, name):
        def look():
            shown = windows_of_program(self.bus)
            front = next((w for w in shown if w.name == window and "active" in w.states), None)
            return front and next((node for node in front.all() if node.role == role
                                   and re.fullmatch(name, node.name, re.DOTALL)), None)
        try:
            return wait_until(look, f"{role} '{name}' in '{window}'")
        except SystemExit:
            print(*(n for w in windows_of_program(self.bus) for n in w.all()), sep="\n")
            raise

    def press(self, window, name, role="push button"):
        node = self.find(window, role, name)
        node.call("Action", "DoAction", "i", 0)

    def write(self, window, name, text):
        node = self.find(window, "text", name)
        node.call("EditableText", "SetTextContents", "s", text)

    def select(self, window, role, name, *rows):
        node = self.find(window, role, name)
        wait_until(lambda: node.get("Table", "NRows") > max(rows), f"rows of '{name}'")
        for row in rows:
            node.call("Table", "AddRowSelection", "i", row)

    def message(self, pattern, answer, name="Mensaje"):
        said = self.find(name, "label", pattern).name
        self.press(name, answer)
        wait_until(lambda: said not in [node.name for window in windows_of_program(self.bus)
                                        for node in window.all()], "the end of a message")


def make_music(path, seconds):
    path.parent.mkdir(parents=True, exist_ok=True)
    with wave.open(str(path), "wb") as music:
        music.setparams((2, 2, 44100, 0, "NONE", ""))
        music.writeframes(b"".join(struct.pack("<hh", n % 199 * 90, n % 151 * 90)
                                   for n in range(seconds * 44100)))


def make_a_disc(bus, vantora, home):
    for name, seconds in (("azul", 5), ("mar", 6)):
        make_music(home / "Música" / f"{name}.wav", seconds)
    (home / "asound.conf").touch()  # no sound card, whatever the machine has
    program = subprocess.Popen([vantora], env={**os.environ, "HOME": str(home),
                                               "ALSA_CONFIG_PATH": str(home / "asound.conf")})
    user = Reader(bus)
    user.message("No se ha detectado ninguna tarjeta de sonido.*", "Aceptar", "Vantora")
    user.press("Asistente", "Cancelar")
    user.press("Vantora", "Importar tema")
    user.write("Abrir", "Nombre:", "C:\\Música")
    user.press("Abrir", "Aceptar")
    user.select("Abrir", "list", "Archivos:", 0, 1)
    user.press("Abrir", "Aceptar")
    for before, title in (("Azul oscuro", "Azul oscuro"), ("Azul oscuro", "Mar abierto")):
        wait_until(lambda: user.find("Título", "text", "Título").value != before, "the next title")
        user.write("Título", "Título", title)
        user.press("Título", "Aceptar")
    user.find("Vantora", "tree item", "Mar abierto")
    user.find("Vantora", "label", "00:00:11")
    user.press("Vantora", "Nuevo título", "link")
    user.write("Título del CD", "Título del CD", "Verano")
    user.press("Título del CD", "Aceptar")
    user.find("Vantora", "link", "Verano")
    user.press("Vantora", "Guardar cat.")
    user.write("Guardar", "Nombre:", "verano.vtr")
    user.press("Guardar", "Aceptar")
    user.press("Vantora", "Grabar el CD")
    user.select("Grabar", "list", "Unidad de CD", 0)
    user.press("Grabar", "DAO", "radio button")
    wait_until(lambda: "checked" in user.find("Grabar", "radio button", "DAO").states, "the method")
    user.press("Grabar", "Grabar")
    user.message("Introduzca un CD virgen.*", "Aceptar")
    user.message("Finalizó la operación de grabado.*", "Aceptar")
    user.message(".*otro CD del catálogo.*", "No")
    user.press("Vantora", "Salir")
    user.message(".*", "Sí")
    if program.wait(timeout=60) != 0:
        yield "the program failed"
    discs = home / "Vantora/Discos"
    image = (discs / "Disco 001.bin").read_bytes()
    sound = b"".join((home / f"Música/{name}.wav").read_bytes()[44:] for name in ("azul", "mar"))
    if not image.startswith(sound) or len(image) - len(sound) >= 2352:
        yield "the image does not hold the music"
    if 'TITLE "Azul oscuro"' not in (discs / "Disco 001.cue").read_text("cp1252"):
        yield "the sheet does not hold the titles"


def main():
    robot, vantora, sources, folder = (pathlib.Path(word) for word in sys.argv[1:5])
    shutil.rmtree(folder, ignore_errors=True)
    for stage in ("windows", "home"):
        (folder / stage).mkdir(parents=True)
    bus = accessibility_bus()
    faults = read_every_window(bus, robot, sources, folder / "windows", "--tree" in sys.argv)
    print(*faults, sep="\n", flush=True)
    burnt = list(make_a_disc(bus, vantora, folder / "home"))
    print(*burnt, sep="\n")
    return 1 if faults or burnt else 0


def in_a_session():
    """Runs this script again on an X server and a session bus of its own."""
    with tempfile.TemporaryDirectory(prefix="vantora-reader.") as room:  # sockets have short paths
        environment = {name: value for name, value in os.environ.items()
                       if not name.startswith(("XDG_", "DBUS_", "QT_", "WAYLAND_"))}
        environment.update(VANTORA_IN_SESSION="1", XDG_RUNTIME_DIR=room, QT_QPA_PLATFORM="xcb",
                           QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", LC_ALL="C.UTF-8")
        return subprocess.call(["xvfb-run", "-a", "-s", "-screen 0 1024x768x24", "dbus-run-session",
                                "--", sys.executable, *sys.argv], env=environment)


if __name__ == "__main__":
    sys.exit(main() if "VANTORA_IN_SESSION" in os.environ else in_a_session())
