"""What the configurator's window does with files: opening, saving, importing, exporting, comparing,
taking over, and what it refuses."""

import pathlib
import re
import shutil
import struct
import subprocess

import pefile
import pytest

import brandfile
import configurator
import launcher
from configwindow import KEPT, OK, ConfigWindow
from test_window_fields import stored

SAMPLES = pathlib.Path(__file__).parents[2] / "samples" / "kunden"
START_NEW, START_OPEN, START_IMPORT = 101, 102, 103
TEMPLATE, NAME, FOLDER = 100, 102, 103
CLOSED_TITLE = "Start.exe – Tarvex-Konfiguration"
CHANGED_TITLE = "Start.exe* – Tarvex-Konfiguration"


@pytest.fixture
def window(world):
    world.brand(AppName="Alt", User="Meier", Pwd="Geheimnis")
    with ConfigWindow(world, world.exe) as window:
        yield window


def native(world, *arguments):
    result = configurator.Native().run(world.work, *arguments)
    assert result.code == 0, result
    return result.out


def change(window, name="Neu"):
    window.page("Anwendung")
    window.enter("AppName", name)


def add_sample(world):
    """The sample's settings beside the launcher; returns their Windows path."""
    shutil.copy(SAMPLES / "Kunden.ini", world.unix(world.path(r"\Prog")))
    return world.path(r"\Prog\Kunden.ini")


class TestNewLauncher:
    @pytest.mark.also_win64
    def test_settings_file_becomes_a_launcher_with_the_bytes_that_the_command_line_makes(
        self, world
    ):
        with ConfigWindow(world, add_sample(world)) as window:
            window.dialog("Neues Startprogramm aus Kunden.ini")
            assert window.text(NAME) == "Kunden"
            window.press(OK)
            window.gone()
            assert window.main().title == "Kunden.exe* – Tarvex-Konfiguration"
            window.save()
            window.close()
            assert window.ended() == 0
        made = world.read(r"\Prog\Kunden.exe")
        for tool in (configurator.Wine(), configurator.Native()):
            result = tool.run(
                world.unix(world.path(r"\Prog")),
                *("brand", world.programs.launcher, f"{tool.name}.exe"),
                *("--settings", "Kunden.ini"),
            )
            assert result.code == 0, result
            assert world.read(rf"\Prog\{tool.name}.exe") == made

    def test_new_launcher_knows_where_access_is(self, world):
        with ConfigWindow(world) as window:
            assert window.seen().title == "Tarvex-Konfiguration"
            window.push(START_NEW)
            window.dialog("Neues Startprogramm")
            assert window.text(TEMPLATE) == launcher.windows_path(world.programs.launcher)
            window.enter(NAME, "Neu")
            window.enter(FOLDER, world.path(r"\Prog"))
            window.press(OK)
            window.gone()
            window.main()
            window.page("Access")
            assert len(window.items(6000)) > 5
            window.save()
            assert window.status() == "Neu.exe ist gespeichert."
        world.use(r"\Prog\Neu.exe")
        assert stored(world)["AccRegList01"].endswith(r"\Access\InstallRoot\Path")

    def test_template_that_is_opened_becomes_a_new_launcher(self, world):
        world.copy_unbranded()
        with ConfigWindow(world, world.exe) as window:
            assert window.question() == (
                "Start.exe ist noch nicht konfiguriert. Soll daraus ein neues Startprogramm "
                "entstehen?"
            )
            window.answer("&Neues Startprogramm")
            window.dialog("Neues Startprogramm")
            assert window.text(TEMPLATE) == world.exe


class TestOpening:
    def test_dropped_launcher_is_opened(self, world):
        world.brand(AppName="Hier")
        with ConfigWindow(world) as window:
            window.do(("drop", world.exe))
            window.at(f"title={CLOSED_TITLE}")
            assert window.text("AppName") == "Hier"

    def test_chosen_launcher_is_opened(self, world):
        world.brand(AppName="Hier")
        with ConfigWindow(world) as window:
            window.push(START_OPEN)
            window.file_dialog(world.exe)
            window.at(f"title={CLOSED_TITLE}")

    def test_second_file_opens_a_second_program(self, world, window):
        other = world.path(r"\Prog\Andere.exe")
        shutil.copy(world.unix(world.exe), world.unix(other))
        assert window.do(("processes",))["running"] == 1
        window.do(("drop", other))
        window.wait(lambda: window.do(("processes",))["running"] == 2)
        assert window.seen().title == CLOSED_TITLE
        assert window.status() == "Andere.exe öffnet sich in einem eigenen Fenster."

    @pytest.mark.parametrize(
        "name, content, reason",
        [
            ("Text.exe", b"kein Programm", "kann nicht geöffnet werden"),
            ("Leer.exe", b"", "kann nicht geöffnet werden"),
            ("Fehlt.exe", None, "kann nicht geöffnet werden"),
            ("Falsch.ini", b"[A]\nFalsch = 1\n", "kann nicht geöffnet werden"),
        ],
    )
    def test_file_that_is_no_launcher_is_refused(self, world, name, content, reason):
        if content is not None:
            world.write(rf"\Prog\{name}", content)
        with ConfigWindow(world, world.path(rf"\Prog\{name}")) as window:
            text = window.question()
            assert text.startswith(name) and reason in text
            window.answer("OK")
            assert window.main().title == "Tarvex-Konfiguration"

    def test_signed_launcher_is_for_reading_only(self, world):
        world.brand(AppName="Signiert")
        file = world.unix(world.exe)
        data = file.read_bytes()
        entry = pefile.PE(data=data, fast_load=True).OPTIONAL_HEADER.DATA_DIRECTORY[4]
        place = entry.get_field_absolute_offset("VirtualAddress")
        certificate = struct.pack("<IHH", 16, 0x200, 2) + bytes(8)
        file.write_bytes(
            data[:place] + struct.pack("<II", len(data), 16) + data[place + 8 :] + certificate
        )
        with ConfigWindow(world, world.exe) as window:
            assert window.question().startswith("Start.exe kann nicht geändert werden: ")
            window.answer("Nur &ansehen")
            assert window.main().title == "Start.exe (nur lesen) – Tarvex-Konfiguration"
            window.page("Anwendung")
            assert window.text("AppName") == "Signiert"
            window.enter("AppName", "Anders")
            window.choose("Save")
            assert window.main().title == "Start.exe (nur lesen) – Tarvex-Konfiguration"


class TestSettingsFiles:
    def test_imported_settings_are_listed_before_and_saved(self, world, window):
        world.write(r"\Prog\Neu.ini", "[Anwendung]\nAppName = Neu\nCmd = Mandant 2\n")
        window.choose("Import")
        window.file_dialog(world.path(r"\Prog\Neu.ini"))
        window.dialog("Übernehmen aus Neu.ini")
        assert [line[0] for line in window.items(103)] == ["AppName", "Cmd"]
        window.press(OK)
        window.gone()
        window.save()
        values = stored(world)
        assert (values["AppName"], values["Cmd"], values["User"]) == ("Neu", "Mandant 2", "Meier")

    @pytest.mark.parametrize(
        "caption, options", [("&Mit Kennwörtern", []), ("&Ohne Kennwörter", ["--no-secrets"])]
    )
    def test_export_is_that_of_the_command_line(self, world, window, caption, options):
        window.choose("Export")
        window.file_dialog(world.path(r"\Prog\Fenster.ini"))
        assert "Benutzernamen und Kennwörter in Fenster.ini" in window.question()
        window.answer(caption)
        window.main()
        folder = world.work / "export"
        folder.mkdir()
        native(world, "export", world.unix(world.exe), folder / "Fenster.ini", *options)
        assert world.read(r"\Prog\Fenster.ini") == (folder / "Fenster.ini").read_bytes()

    def test_comparison_lists_what_differs(self, world, window):
        world.write(r"\Prog\Andere.ini", "AppName = Anders\nUser = Meier\nPwd = Geheimnis\n")
        window.choose("Compare")
        window.file_dialog(world.path(r"\Prog\Andere.ini"))
        window.dialog("Vergleich mit Andere.ini")
        (line,) = window.items(101)
        assert line[0] == "AppName" and "Alt" in line and "Anders" in line

    def test_settings_of_an_older_launcher_are_taken_over_but_for_what_it_alone_has(
        self, world, window
    ):
        old = brandfile.BrandFile.read(world.programs.launcher)
        old.set_value("AppName", "Von früher")
        old.set_value("Macro", "Autostart")
        old.set_branded()
        mark = "|049|0100|Macro|".encode("utf-16-le")
        old.data = old.data.replace(mark, "|099|0100|Makro|".encode("utf-16-le"))
        old.write(world.unix(world.path(r"\Prog\Frueher.exe")))
        window.choose("CarryOver")
        window.file_dialog(world.path(r"\Prog\Frueher.exe"))
        box = window.dialog("Übernehmen aus Frueher.exe")
        assert "Ü&bernehmen ohne diese" in box.buttons
        assert any("099" in cell or "Makro" in cell for line in window.items(101) for cell in line)
        window.press(OK)
        window.gone()
        window.save()
        assert stored(world)["AppName"] == "Von früher"


class TestSaving:
    def test_nothing_is_written_before_saving(self, world, window):
        before = world.snapshot()
        change(window)
        window.page("Arbeitsgruppe")
        window.enter("Pwd", "Anders")
        assert world.snapshot() == before

    def test_running_launcher_is_told_and_can_be_tried_again(self, world):
        world.brand_with_access(AppName="Alt")
        with ConfigWindow(world, world.exe) as window:
            change(window)
            before = world.read(r"\Prog\Start.exe")
            running = subprocess.Popen(
                ["wine", world.exe, "/T"],
                stdin=subprocess.DEVNULL,
                stdout=subprocess.DEVNULL,
                stderr=subprocess.DEVNULL,
            )
            try:
                window.wait(lambda: in_use(world.unix(world.exe)))
                window.choose("Save")
                assert "Es muss beendet sein" in window.question()
                assert world.read(r"\Prog\Start.exe") == before
            finally:
                running.terminate()
                running.wait(60)
            window.wait(lambda: not in_use(world.unix(world.exe)))
            window.answer("&Erneut versuchen")
            assert window.main().title == CLOSED_TITLE
        assert stored(world)["AppName"] == "Neu"

    def test_file_that_another_program_has_changed_is_replaced_only_when_wanted(
        self, world, window
    ):
        change(window)
        native(world, "set", world.unix(world.exe), "AppName=Von anderswo", "Cmd=Neu")
        window.save()
        assert "wurde seit dem Öffnen von einem anderen Programm geändert" in window.question()
        window.answer("Abbrechen")
        assert stored(world)["AppName"] == "Von anderswo"
        window.save()
        window.question()
        window.answer("&Trotzdem speichern")
        window.main()
        assert stored(world)["AppName"] == "Neu"

    def test_read_only_file_stays_as_it_was(self, world, window):
        change(window)
        file = world.unix(world.exe)
        before = file.read_bytes()
        file.chmod(0o444)
        window.save()
        assert window.question().startswith("Start.exe kann nicht gespeichert werden")
        assert file.read_bytes() == before

    def test_save_as_makes_another_launcher(self, world, window):
        change(window)
        window.choose("SaveAs")
        window.file_dialog(world.path(r"\Prog\Kopie.exe"))
        assert window.at("title=Kopie.exe – Tarvex-Konfiguration")
        assert stored(world)["AppName"] == "Alt"
        world.use(r"\Prog\Kopie.exe")
        assert stored(world)["AppName"] == "Neu"


def in_use(file):
    """Whether a Windows program holds the file open."""
    for maps in pathlib.Path("/proc").glob("[0-9]*/maps"):
        try:
            if str(file) in maps.read_text("utf-8", "replace"):
                return True
        except OSError:  # it has ended meanwhile
            continue
    return False


# How the user leaves: the steps of the driver.
WAYS_OUT = {
    "title bar": [("titlebar",)],
    "menu": [("choose", 110)],
    "end of Windows": [("endsession",)],
}


@pytest.mark.parametrize("way", WAYS_OUT)
class TestClosing:
    def leave(self, window, way):
        window.do(*WAYS_OUT[way])
        assert window.question() == "Änderungen an Start.exe speichern?"

    def test_saved_changes_need_no_question(self, window, way):
        window.do(*WAYS_OUT[way])
        if way == "end of Windows":
            assert window.do(("sessionanswer",))["mayEnd"]
        else:
            assert window.ended() == 0

    def test_changes_are_saved(self, world, window, way):
        change(window)
        self.leave(window, way)
        window.answer("&Speichern")
        window.ended() if way != "end of Windows" else window.do(("sessionanswer",))
        assert stored(world)["AppName"] == "Neu"

    def test_changes_are_dropped(self, world, window, way):
        change(window)
        self.leave(window, way)
        window.answer("&Nicht speichern")
        window.ended() if way != "end of Windows" else window.do(("sessionanswer",))
        assert stored(world)["AppName"] == "Alt"

    def test_user_stays(self, world, window, way):
        change(window)
        self.leave(window, way)
        window.answer("Abbrechen")
        assert window.main().title == CHANGED_TITLE
        if way == "end of Windows":
            assert not window.do(("sessionanswer",))["mayEnd"]
        assert stored(world)["AppName"] == "Alt"


def test_place_and_last_files_are_kept_in_the_registry_and_nothing_secret(world, window):
    launcher.wine("reg", "delete", KEPT, "/f", check=False)
    window.page("Arbeitsgruppe")
    window.enter("Pwd", "Neu/Geheim")
    window.save()
    window.close()
    assert window.ended() == 0
    file = world.work / "kept.reg"
    launcher.wine("reg", "export", KEPT, launcher.windows_path(file), "/y")
    head, *values = file.read_bytes().decode("utf-16").strip().split("\r\n")[2:]
    assert head == f"[{KEPT}]"
    values = dict(value.split("=") for value in values if value)
    assert values.pop('"Datei1"') == '"' + world.exe.replace("\\", "\\\\") + '"'
    assert re.fullmatch(r'"-?\d+,-?\d+,\d+,\d+"', values.pop('"Fenster"'))
    assert re.fullmatch(r'"\d+"', values.pop('"Vorschau"'))
    assert values == {}
