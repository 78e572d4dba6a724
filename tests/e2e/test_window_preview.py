"""The preview of the configurator's window shows, letter by letter, what the launcher's own log
window shows on the same computer."""

import contextlib
import json
import os
import pathlib
import shutil

import pytest

import configurator
import launcher
import randomworld
from configwindow import KEPT, OK, PAGES, PC, REVEAL, SYSTEM_DIALOG, TEXT, ConfigWindow, row
from test_simulation import SAMPLES, Sample, assert_same

FIRST = 1001  # of the worlds: others than test_simulation.py draws
COUNT = int(os.environ.get("TARVEX_WORLDS", "8"))
# The rows of the dialogs.
DRY_RUN_TEXT = 100
VERDICT, LINES = 100, 101
ES_PASSWORD = 0x20
SECRETS = {"User": "ZebraBenutzer", "Pwd": "ZebraKennwort", "EditPwd": "ZebraDiagnose"}


def shown_text(window):
    return window.do(("read", TEXT))["text"]


def await_preview(window, expected):
    """Waits until the preview is the text; it follows its settings after a moment."""
    try:
        window.wait(lambda: shown_text(window) == expected)
    except AssertionError:
        assert_same(shown_text(window), expected)


def simulated(world, description):
    result = configurator.Native().run(
        world.work, "simulate", world.unix(world.exe), description, "--json"
    )
    assert result.code in (0, 1), result
    (pc,) = json.loads(result.out)["pcs"]
    return pc["text"]


@pytest.fixture(scope="module")
def drawings(programs, tmp_path_factory):
    return randomworld.draw(programs.worlds, FIRST, COUNT, tmp_path_factory.mktemp("worlds"))


@pytest.fixture
def sample(world):
    """The sample's launcher on the sample's computer."""
    sample = Sample(world, "Empfang")
    yield sample
    sample.close()


def log_text(world):
    return world.shown("/T", folder=world.exe.rpartition("\\")[0])


def test_sample_is_previewed_as_the_launcher_shows_it(world, sample):
    shown = log_text(world)
    assert "System.mdw" in shown
    with ConfigWindow(world, world.exe) as window:
        await_preview(window, shown)


@pytest.mark.parametrize("index", range(COUNT), ids=lambda index: f"seed {FIRST + index}")
def test_random_settings_are_previewed_as_the_launcher_shows_them(world, drawings, index):
    real = randomworld.RandomWorld(world, drawings[index])
    try:
        shown = real.shown()
        with ConfigWindow(world, real.program) as window:
            await_preview(window, shown)
    finally:
        real.close()


@pytest.mark.also_win64
def test_edited_launcher_is_previewed_as_it_will_be_once_saved(world):
    world.write(r"\Prog\Daten\Kunden.mdb")
    world.brand_with_access(AppName="Alt", DBPath="Daten", DBFilename="Kunden.mdb")
    before = log_text(world)
    with ConfigWindow(world, world.exe) as window:
        await_preview(window, before)
        window.page("Anwendung")
        window.enter("AppName", "Kunden & Söhne")
        window.page("Startoptionen")
        window.push("Runtime")
        window.enter("Cmd", "Mandant 7")
        window.wait(lambda: "Mandant 7" in shown_text(window))
        previewed = shown_text(window)
        window.save()
        assert window.status() == "Start.exe ist gespeichert."
        window.close()
        assert window.ended() == 0
    assert_same(previewed, log_text(world))


@contextlib.contextmanager
def described_pcs(world):
    """The described PCs of the samples where the system's dialog for folders begins: on the desktop,
    since Wine's does not always go where it is told. Nobody else's window may write there
    meanwhile."""
    users = pathlib.Path(os.environ["WINEPREFIX"], "drive_c", "users")
    (user,) = (folder.name for folder in users.iterdir() if folder.name != "Public")
    desktop = users / user / "Desktop"
    desktop.mkdir(exist_ok=True)
    copies = [shutil.copy(file, desktop) for file in sorted((SAMPLES / "pcs").iterdir())]
    value = [KEPT, "/v", "PCs", "/f"]
    with world.screen(()):
        launcher.wine("reg", "add", *value, "/d", rf"C:\users\{user}\Desktop")
        yield
        launcher.wine("reg", "delete", *value)
    for copy in copies:
        pathlib.Path(copy).unlink()


def choose_folder(window):
    """Takes the folder at which the system's dialog begins."""
    window.at(SYSTEM_DIALOG, f"has={OK}")
    window.do(("press", "id", OK), ("gone",))


def pcs(window):
    return [line[0] for line in window.do(("read", PC))["items"]]


@pytest.mark.xdist_group("foreground")
def test_described_pc_is_previewed_as_the_command_line_simulates_it(world):
    brand = ("brand", world.programs.launcher, world.unix(world.exe))
    settings = SAMPLES / "kunden" / "Kunden.ini"
    result = configurator.Native().run(world.work, *brand, "--settings", settings)
    assert result.code == 0, result
    with described_pcs(world):
        with ConfigWindow(world, world.exe) as window:
            assert pcs(window) == ["dieser PC", "PC-Beschreibungen wählen…"]
            window.do(("select", PC, 1))
            choose_folder(window)
            window.main()
            names = ["Buchhaltung", "Empfang", "Lager"]
            assert pcs(window)[1:-1] == names
            texts = set()
            for number, name in enumerate(names, 1):
                window.do(("select", PC, number))
                expected = simulated(world, SAMPLES / "pcs" / f"{name}.pc")
                await_preview(window, expected)
                texts.add(expected)
            assert len(texts) == len(names)


def test_described_pc_gives_the_command_line_the_text_of_this_one(world, sample):
    shown = log_text(world)
    with ConfigWindow(world, world.exe) as window:
        window.choose("DescribePc")
        choose_folder(window)
        # Wine's dialog begins elsewhere: it knows no drives that come while it runs.
        path, said, _ = window.question().partition(": Die Beschreibung ist geschrieben.")
        window.answer("OK")
    assert said and path.startswith("C:\\")
    prefix = pathlib.Path(os.environ["WINEPREFIX"])
    description = prefix.joinpath("drive_c", *path.split("\\")[1:])
    assert_same(simulated(world, description), shown)
    for file in description.parent.glob("Kunden.*"):
        file.unlink()


class TestSecrets:
    @pytest.fixture
    def window(self, world):
        world.write(r"\Prog\Start.mdb")
        world.brand_with_access(**SECRETS)
        self.shown = log_text(world)
        with ConfigWindow(world, world.exe) as window:
            window.wait(lambda: "/pwd" in shown_text(window))
            yield window

    def places(self, window):
        """Ids and styles of the controls that have one of the texts."""
        found = set()
        for page in range(len(window.do(("read", PAGES))["items"])):
            window.do(("select", PAGES, page))
            seen = window.seen()
            assert "Zebra" not in seen.title
            for control in seen.controls:
                if "Zebra" in control["text"]:
                    found.add((control["id"], bool(control["style"] & ES_PASSWORD)))
        return found

    def test_masked_ones_stand_nowhere_else_in_the_window(self, window):
        assert self.places(window) == {(row(name), True) for name in SECRETS}

    def test_preview_shows_them_as_the_launcher_does(self, window):
        await_preview(window, self.shown)
        assert "Zebra" not in shown_text(window)

    def test_revealed_one_is_read(self, window):
        window.page("Arbeitsgruppe")
        window.do(("push", row("Pwd", REVEAL)))
        assert not window.read("Pwd")["style"] & ES_PASSWORD
        assert window.read("User")["style"] & ES_PASSWORD


def test_dry_run_shows_the_text_of_the_launcher(world, sample):
    shown = log_text(world)
    with ConfigWindow(world, world.exe) as window:
        window.choose("DryRun")
        window.dialog("Probelauf von Kunden.exe auf diesem PC")
        assert_same(window.text(DRY_RUN_TEXT), shown)


class TestLogOfACustomer:
    @pytest.fixture
    def log(self, world, sample):
        """The text of the log window, saved by its own menu."""
        save = launcher.menu_commands(world.programs.launcher)["&Speichern"]
        saving = [("command", save), ("appear", SYSTEM_DIALOG), ("press", "id", OK), ("gone",)]
        closing = [launcher.LOG, ("close",), *launcher.END]
        folder = world.exe.rpartition("\\")[0]
        world.run("/T", [launcher.LOG, *saving, *closing], folder=folder)
        return world.unix(world.exe).with_suffix(".err")

    def compare(self, world, window, log):
        window.wait(lambda: shown_text(window))
        window.choose("CompareLog")
        window.file_dialog(world.exe.rpartition("\\")[0] + "\\" + log.name)
        window.dialog(f"Mit Protokoll vergleichen - {log.name}")

    def test_log_of_the_same_computer_has_no_difference(self, world, log):
        with ConfigWindow(world, world.exe) as window:
            self.compare(world, window, log)
            assert window.text(VERDICT) == "Kein Unterschied."
            assert {line[1] for line in window.items(LINES)} == {""}

    def test_changed_line_is_marked(self, world, log):
        lines = log.read_bytes().split(b"\r\n")
        (number,) = [n for n, line in enumerate(lines) if line == b"[Profil]"]
        lines[number + 1] = b"Anders"
        log.write_bytes(b"\r\n".join(lines))
        with ConfigWindow(world, world.exe) as window:
            self.compare(world, window, log)
            assert window.text(VERDICT) == f"Erster Unterschied in Zeile {number + 2}."
            different = [line for line in window.items(LINES) if line[1]]
            assert different == [
                [str(number + 2), "anders", "Anders", "Kein Profil eingestellt"]
            ]
