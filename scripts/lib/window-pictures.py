"""window-pictures.py FOLDER [one]: takes a picture of every page and every dialog of the
configurator's window into FOLDER; with `one` only of the page that the documentation shows.

Runs inside a Wine session in which sample_install (sample.sh) was called. The window is driven step
by step, as the tests do it.
"""

import contextlib
import os
import pathlib
import shutil
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path += [str(ROOT / "tests" / "e2e"), str(ROOT / "cmake")]

import launcher  # noqa: E402
from configwindow import CANCEL, OK, ConfigWindow  # noqa: E402

DRIVE = pathlib.Path(os.environ["WINEPREFIX"]) / "drive_c"
KUNDEN = r"C:\Kunden\Kunden.exe"
ANSWERS = {
    "Access": (4100, 4101, 4102),
    "Datenbank": (4200, 4201, 4202, 4203),
    "Arbeitsgruppe": (4300, 4301, 4302, 4303),
    "Startbild": (4400, 4401, 4402, 4403),
}
OTHER_PAGES = ("Anwendung", "Startoptionen", "Fehlermeldungen", "Diagnose", "Programmdatei")
ACCESS_LIST, DATABASE_LIST = 6000, 6100
NEW, EDIT, PRESETS = 1, 2, 7


class Stage:
    """What ConfigWindow needs of a test's world."""

    def __init__(self):
        self.driver = launcher.Driver(ROOT / "build" / "win32-tests" / "e2e" / "uidriver.exe")
        self.work = pathlib.Path(os.environ["TMPDIR"]) / "pictures"
        self.work.mkdir(exist_ok=True)
        self.programs = self

    carry_out = launcher.World.carry_out

    @contextlib.contextmanager
    def screen(self, _):
        yield


class Pictures:
    def __init__(self, folder):
        self.stage = Stage()
        self.folder = pathlib.Path(folder).resolve()

    @contextlib.contextmanager
    def window(self, *arguments):
        program = DRIVE / "Tarvex" / "tarvexcf.exe"
        with ConfigWindow(self.stage, *arguments, program=program) as window:
            yield window

    def take(self, name):
        """The topmost window of the program, with its frame."""
        time.sleep(0.3)  # the last things are painted when nothing else is to do
        file = self.folder / f"{name}.png"
        subprocess.run(
            ["bash", "-c", '. scripts/lib/sample.sh && sample_shoot "$1" tarvexcf', "-", file],
            cwd=ROOT,
            check=True,
        )
        print(file, flush=True)

    def dialog(self, window, name):
        """The dialog that is open, and closes it."""
        window.dialog()
        self.take(name)
        window.do(("press", "id", CANCEL))
        window.gone()
        window.main()


def one_page(pictures):
    with pictures.window(KUNDEN) as window:
        window.do(("resize", 800, 680))
        window.page("Datenbank")
        window.select(DATABASE_LIST, 1)
        window.preview()
        pictures.take("konfiguration")
        window.close()
        window.ended()


def pages(pictures, window):
    window.preview()
    for page in OTHER_PAGES:
        window.page(page)
        pictures.take(f"seite-{page.lower()}")
    for page, answers in ANSWERS.items():
        window.page(page)
        for number, answer in enumerate(answers, 1):
            window.push(answer)
            time.sleep(1)  # until the preview has been asked for
            window.preview()
            pictures.take(f"seite-{page.lower()}-{number}")
    window.choose("TogglePreview")
    for page in (*ANSWERS, *OTHER_PAGES):
        window.page(page)
        pictures.take(f"seite-{page.lower()}-ohne-vorschau")
    window.choose("TogglePreview")


def main_window(pictures, window):
    window.page("Anwendung")
    window.enter("FileID", "Diese Kennung ist länger, als das Feld im Startprogramm Platz hat.")
    window.preview()
    pictures.take("meldung")
    window.enter("FileID", "KD-2004-1")
    window.page("Datenbank")
    window.push(4202)
    window.enter("DBPath", r"D:\Daten")
    window.preview()
    window.choose("Check")
    pictures.take("pruefung")
    window.do(("keys", "Ctrl+F"), ("type", "pfad"))
    pictures.take("suche")


def dialogs(pictures, window):
    window.choose("Replace")
    window.dialog("Text ersetzen")
    window.enter(100, "Kunden")
    window.enter(101, "Auftrag")
    pictures.dialog(window, "dialog-ersetzen")

    window.page("Datenbank")
    window.push(4203)
    window.push(DATABASE_LIST + NEW)
    pictures.dialog(window, "dialog-eintrag-neu")
    window.select(DATABASE_LIST, 0)
    window.push(DATABASE_LIST + EDIT)
    pictures.dialog(window, "dialog-eintrag")
    window.page("Access")
    window.push(4102)
    window.push(ACCESS_LIST + PRESETS)
    pictures.dialog(window, "dialog-vorgaben")

    window.choose("AsCommand")
    pictures.dialog(window, "dialog-als-befehl")
    window.choose("DryRun")
    pictures.dialog(window, "dialog-probelauf")
    window.choose("Compare")
    window.file_dialog(r"C:\Kunden\Alt.exe")
    pictures.dialog(window, "dialog-vergleichen")
    window.choose("CarryOver")
    window.file_dialog(r"C:\Kunden\Alt.exe")
    pictures.dialog(window, "dialog-uebernehmen")
    window.choose("Import")
    window.file_dialog(r"C:\Kunden\Alt.ini")
    pictures.dialog(window, "dialog-importieren")
    window.choose("CompareLog")
    window.file_dialog(r"C:\Kunden\Kunde.err")
    pictures.dialog(window, "dialog-protokoll")
    for command, name in (("PageHelp", "hilfe"), ("About", "info")):
        window.choose(command)
        window.at("new=")
        pictures.take(f"frage-{name}")
        window.do(("close",), ("gone",))
        window.main()


def questions(pictures, window):
    window.page("Anwendung")
    window.enter("AppName", "Kundenverwaltung 2")
    running = subprocess.Popen(
        ["wine", KUNDEN, "/T"], stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL
    )
    time.sleep(3)
    window.choose("Save")
    window.at("new=")
    pictures.take("frage-in-benutzung")
    window.do(("close",), ("gone",))
    window.main()
    running.terminate()
    window.close()
    window.at("new=")
    pictures.take("frage-nicht-gespeichert")
    window.answer("&Nicht speichern")
    window.do(("exit",))


def start_page(pictures):
    with pictures.window() as window:
        pictures.take("startseite")
        window.push(101)
        window.dialog()
        pictures.take("dialog-neu")
        window.enter(102, "Neu:")
        window.press(OK)
        window.dialog()
        pictures.take("dialog-neu-meldung")
        window.do(("press", "id", CANCEL))
        window.gone()
        window.main()
        window.close()
        window.ended()


def prepare():
    folder = DRIVE / "Tarvex"
    folder.mkdir(exist_ok=True)
    for name in ("tarvexcf.exe", "tarvex.exe"):
        shutil.copy(ROOT / "dist" / "win32" / name, folder)
    tool = ROOT / "dist" / "linux" / "tarvexcf"
    kunden = DRIVE / "Kunden"
    shutil.copy(kunden / "Kunden.exe", kunden / "Alt.exe")
    for command in (
        ("set", "Alt.exe", "AppName=Kunden", "FileID=KD-1998", "Cmd=", "PicDelay=500"),
        ("export", "Alt.exe", "Alt.ini", "--no-secrets"),
    ):
        subprocess.run([tool, *command], cwd=kunden, check=True, stdout=subprocess.DEVNULL)
    report = launcher.golden("missing_database_details.txt")
    (kunden / "Kunde.err").write_bytes(report.encode("cp1252"))


def main():
    prepare()
    pictures = Pictures(sys.argv[1])
    pictures.folder.mkdir(parents=True, exist_ok=True)
    if sys.argv[2:] == ["one"]:
        one_page(pictures)
        return
    for scene in (dialogs, questions, main_window, pages):
        with pictures.window(KUNDEN) as window:
            scene(pictures, window)
    start_page(pictures)


if __name__ == "__main__":
    main()
