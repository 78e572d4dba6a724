"""Every setting is edited in the configurator's window by its own control, and read back from the
saved launcher with the command line."""

import json
import pathlib

import pytest

import configurator
from configwindow import CANCEL, OK, ConfigWindow

ICON = pathlib.Path(__file__).parents[2] / "resources" / "tarvex.ico"


def second(field):
    """The second row of a file name, which another answer uses."""
    return 4500 + {"DBFilename": 14, "PicFilename": 26, "SysDBFilename": 52}[field]


# Page: the answer to its question, then each row with the field that it edits and what is entered;
# True is a check box.
PLACES = {
    "Anwendung": (
        None,
        [("AppName", "AppName", "Kunden & Söhne"), ("FileID", "FileID", "KD-2004-1")],
    ),
    "Access": (
        4101,
        [("AccPath", "AccPath", r"C:\Office\Büro"), ("Profile", "Profile", "Kunden Profil")],
    ),
    "Datenbank": (
        4202,
        [("DBPath", "DBPath", r"..\Daten"), (second("DBFilename"), "DBFilename", "Kunden.mdb")],
    ),
    "Arbeitsgruppe": (
        4302,
        [
            ("SysDBPath", "SysDBPath", "Daten"),
            (second("SysDBFilename"), "SysDBFilename", "System.mdw"),
            ("User", "User", "Müller"),
            ("Pwd", "Pwd", "Kiefer/7;grün"),
        ],
    ),
    "Startoptionen": (
        None,
        [
            *[
                (name, name, True)
                for name in (
                    "Runtime Exclusive ReadOnly NoStartup Compact Repair Decompile"
                ).split()
            ],
            ("Macro", "Macro", "Autostart"),
            ("Cmd", "Cmd", "Mandant 1"),
        ],
    ),
    "Startbild": (
        4402,
        [
            ("PicPath", "PicPath", "Bilder"),
            (second("PicFilename"), "PicFilename", "Start.bmp"),
            ("PicDelay", "PicDelay", "1500"),
        ],
    ),
    "Fehlermeldungen": (
        None,
        [
            ("ErrBoxText", "ErrBoxText", "Bitte anrufen:\nTelefon 12 34 56"),
            ("ErrDebugText", "ErrDebugText", "Bitte senden an\nsupport@muster.example"),
            ("HCID", "HCID", "1000"),
        ],
    ),
    "Diagnose": (None, [("Log", "Log", True), ("EditPwd", "EditPwd", "Diagnose")]),
    "Programmdatei": (
        None,
        [
            ("IconFile", "IconFile", "Kunden.ico"),
            ("FileDescription", "FileDescription", "Kundenverwaltung"),
            ("CompanyName", "CompanyName", "Muster & Söhne GmbH"),
            ("ProductName", "ProductName", "Kunden"),
            ("FileVersion", "FileVersion", "3.1.0"),
            ("ProductVersion", "ProductVersion", "3.1 Beta"),
            ("LegalCopyright", "LegalCopyright", "© 2026 Muster & Söhne GmbH"),
            ("LegalTrademarks", "LegalTrademarks", "Kunden ist eine Marke."),
            ("InternalName", "InternalName", "kunden"),
            ("OriginalFilename", "OriginalFilename", "Kunden.exe"),
            ("Comments", "Comments", "für alle"),
        ],
    ),
}

BESIDE = {
    "Datenbank": (4201, "DBFilename", "Andere.mdb"),
    "Arbeitsgruppe": (4301, "SysDBFilename", "Andere.mdw"),
    "Startbild": (4401, "PicFilename", "Anderes.bmp"),
}

# Page: the answer, the row of the list, its fields.
LISTS = {
    "Access": (4102, 6000, "AccRegList"),
    "Datenbank": (4203, 6100, "DBRegList"),
    "Startbild": (4403, 6200, "PicRegList"),
    "Arbeitsgruppe": (4303, 6300, "SysDBRegList"),
}
NEW, EDIT, DELETE, UP, DOWN, PASTE, PRESETS = range(1, 8)
ROOT, KEY, VALUE, SUB_FOLDER, FILE, STORED, ANSWER = range(100, 107)
ROOTS = ("HKLM", "HKCU", "HKCR", "HKU")


def stored(world, *arguments):
    result = configurator.Native().run(
        world.work, "show", world.unix(world.exe), "--reveal", "--json", *arguments
    )
    assert result.code == 0, result
    return json.loads(result.out)["values"]


@pytest.fixture
def window(world):
    """The window with a launcher that has no settings yet."""
    world.brand()
    with ConfigWindow(world, world.exe) as window:
        yield window


def fill(window, page, answer, rows):
    window.page(page)
    if answer is not None:
        window.push(answer)
    for row, _, value in rows:
        if value is True:
            window.push(row)
        else:
            window.enter(row, value)


def entry(root, number):
    return rf"{root}\Software\Firma {number}\Pfad"


@pytest.mark.also_win64
def test_every_field_is_saved_as_it_was_entered(world, window):
    (world.unix(world.exe).parent / "Kunden.ico").write_bytes(ICON.read_bytes())
    expected = {}
    for page, (answer, rows) in PLACES.items():
        fill(window, page, answer, rows)
        expected |= {field: "1" if value is True else value for _, field, value in rows}
    window.save()
    assert window.status() == "Start.exe ist gespeichert."
    assert window.main().title == "Start.exe – Tarvex-Konfiguration"

    values = stored(world)
    assert values.pop("IconFile")  # its sizes: the file has become part of the program
    del expected["IconFile"]
    assert values == expected


@pytest.mark.parametrize("page", BESIDE)
def test_file_name_beside_the_launcher_is_saved(world, window, page):
    answer, field, value = BESIDE[page]
    fill(window, page, answer, [(field, field, value)])
    window.save()
    assert stored(world) == {field: value}


@pytest.mark.parametrize("page", LISTS)
def test_every_entry_of_a_key_list_is_saved_as_the_dialog_composed_it(world, window, page):
    answer, row, fields = LISTS[page]
    window.page(page)
    window.push(answer)
    expected = {}
    for number in range(1, 11):
        root = ROOTS[number % 4]
        window.push(row + NEW)
        window.dialog("Neuer Eintrag")
        window.select(ROOT, number % 4)
        window.enter(KEY, rf"Software\Firma {number}")
        window.enter(VALUE, "Pfad")
        text = entry(root, number)
        if page != "Access":
            window.enter(SUB_FOLDER, "Daten")
            window.enter(FILE, f"K{number}.mdb")
            text += f"%|SubDir|%Daten%|Filename%|K{number}.mdb"
        assert window.text(STORED) == text
        expected[f"{fields}{number:02}"] = text
        window.press(OK)
        window.gone()
        window.main()
    assert len(window.items(row)) == 10
    window.save()
    assert stored(world) == expected


class TestKeyListDialog:
    @pytest.fixture
    def window(self, world):
        world.brand(
            DBRegList01=r"HKLM\SOFTWARE\Firma\Pfad%|SubDir|%Daten%|Filename%|Kunden.mdb",
            DBRegList02=entry("HKCU", 2),
            DBRegList03=entry("HKU", 3),
        )
        with ConfigWindow(world, world.exe) as window:
            window.page("Datenbank")
            yield window

    def test_entry_is_shown_in_its_parts(self, window):
        window.select(6100, 0)
        window.push(6100 + EDIT)
        window.dialog("Eintrag bearbeiten")
        assert window.read(ROOT)["selected"] == 0
        parts = [window.text(number) for number in (KEY, VALUE, SUB_FOLDER, FILE)]
        assert parts == [r"SOFTWARE\Firma", "Pfad", "Daten", "Kunden.mdb"]

    def test_changed_entry_is_saved(self, world, window):
        window.select(6100, 1)
        window.push(6100 + EDIT)
        window.dialog()
        window.enter(VALUE, "Ordner")
        window.press(OK)
        window.gone()
        window.save()
        assert stored(world)["DBRegList02"] == r"HKCU\Software\Firma 2\Ordner"

    def test_cancelled_dialog_changes_nothing(self, world, window):
        window.select(6100, 1)
        window.push(6100 + EDIT)
        window.dialog()
        window.enter(VALUE, "Ordner")
        window.press(CANCEL)
        window.gone()
        assert window.main().title == "Start.exe – Tarvex-Konfiguration"

    def test_path_copied_from_the_registry_editor_is_taken_apart(self, window):
        window.push(6100 + NEW)
        window.dialog()
        window.enter(KEY, r"Computer\HKEY_USERS\S-1-5\Software")
        assert window.read(ROOT)["selected"] == 3
        assert window.text(KEY) == r"S-1-5\Software"

    def test_missing_key_keeps_the_dialog_open(self, window):
        window.push(6100 + NEW)
        window.dialog()
        window.enter(VALUE, "Pfad")
        assert window.message(KEY) == "Der Schlüssel fehlt."
        window.press(OK)
        assert window.dialog().title == "Neuer Eintrag"

    def test_entries_are_moved_and_deleted(self, world, window):
        window.select(6100, 2)
        window.push(6100 + UP)
        window.select(6100, 0)
        window.push(6100 + DELETE)
        window.save()
        assert stored(world) == {
            "DBRegList01": entry("HKU", 3),
            "DBRegList02": entry("HKCU", 2),
        }

    def test_dialog_says_where_the_entry_leads(self, world, window):
        world.registry({"Pfad": world.write(r"\Daten\Hier.mdb")})
        window.push(6100 + NEW)
        window.dialog()
        window.select(ROOT, 1)
        window.enter(KEY, rf"Software\{world.key}")
        window.enter(VALUE, "Pfad")
        window.wait(lambda: window.text(ANSWER).startswith(world.drive))
        assert window.text(ANSWER) == world.path(r"\Daten\Hier.mdb")


# Page, answer, row, what cannot be, the message.
WRONG = {
    "line": ("Anwendung", None, "AppName", "x" * 51, "Der Wert ist um 1 Zeichen zu lang."),
    "lines": ("Fehlermeldungen", None, "ErrBoxText", "y" * 503, "Der Wert ist um 3 Zeichen zu lang."),
    "secret": ("Diagnose", None, "EditPwd", "Ω", ""),
    "path": ("Access", 4101, "AccPath", "z" * 256, "Der Wert ist um 1 Zeichen zu lang."),
    "number": ("Startbild", 4401, "PicDelay", "12345", "Der Wert ist um 1 Zeichen zu lang."),
    "version": ("Programmdatei", None, "FileVersion", "neu", ""),
}


@pytest.mark.parametrize("kind", WRONG)
def test_value_that_cannot_be_saved_is_told_while_it_is_typed(world, window, kind):
    page, answer, row, value, message = WRONG[kind]
    before = world.snapshot()
    fill(window, page, answer, [(row, row, value)])
    shown = window.message(row)
    assert shown == message
    assert window.marked_pages() == [page]

    window.save()
    text = window.question()
    assert text.startswith("Diese Angaben können nicht gespeichert werden:\n\n" + row + ": ")
    assert shown in text
    window.answer("OK")
    assert window.main().title == "Start.exe* – Tarvex-Konfiguration"
    assert world.snapshot() == before


def test_room_that_is_left_is_shown(window):
    window.page("Anwendung")
    window.enter("AppName", "Kunden")
    assert window.room("AppName") == "noch 44 von 50 Zeichen"


def test_value_that_will_not_work_is_marked_and_saved(world, window):
    fill(window, "Access", 4101, [("AccPath", "AccPath", "msaccess.exe")])
    window.wait(lambda: window.marked_pages() == ["Access"])
    assert window.message("AccPath")
    window.save()
    assert stored(world) == {"AccPath": "msaccess.exe"}


def test_other_answer_keeps_what_was_entered_until_it_is_saved(world, window):
    fill(window, "Access", 4101, [("AccPath", "AccPath", r"C:\Office")])
    window.push(4100)
    window.push(4101)
    assert window.text("AccPath") == r"C:\Office"
    window.push(4100)
    window.save()
    assert window.question() == (
        "Diese Angaben gehören zu einer nicht gewählten Möglichkeit und werden nicht "
        "gespeichert: AccPath."
    )
    window.answer("&Speichern ohne sie")
    window.main()
    assert stored(world) == {}
