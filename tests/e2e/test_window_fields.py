"""Every setting is edited in the configurator's window by its own control, and read back from the
saved launcher with the command line."""

import json
import pathlib

import pytest

import configurator
from configwindow import CANCEL, DIALOG, MAIN, NUMBERS, OK, PROGRAM_FIELDS, ConfigWindow
from configwindow import row as control

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
            ("ErrBoxText", "ErrBoxText", "Bitte anrufen:\r\nTelefon 12 34 56"),
            ("ErrDebugText", "ErrDebugText", "Bitte senden an\r\nsupport@muster.example"),
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


def stored(world):
    """The settings that a saved launcher has, as the command line reads them."""
    result = configurator.Native().run(
        world.work, "show", world.unix(world.exe), "--reveal", "--json", "--all"
    )
    assert result.code == 0, result
    values = json.loads(result.out)["values"]
    assert set(NUMBERS) - set(values) <= set(PROGRAM_FIELDS)  # these are listed when they are set
    return {name: value for name, value in values.items() if value}


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
        texts = [(KEY, rf"Software\Firma {number}"), (VALUE, "Pfad")]
        text = entry(root, number)
        if page != "Access":
            texts += [(SUB_FOLDER, "Daten"), (FILE, f"K{number}.mdb")]
            text += f"%|SubDir|%Daten%|Filename%|K{number}.mdb"
        composed = window.do(
            ("push", control(row + NEW)),
            ("appear", DIALOG, "title=Neuer Eintrag"),
            ("select", control(ROOT), number % 4),
            *[("set", control(part), value) for part, value in texts],
            ("read", control(STORED)),
        )
        assert composed["text"] == text
        expected[f"{fields}{number:02}"] = text
        window.do(("push", OK), ("gone",), ("appear", MAIN))
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
        assert window.text(ANSWER) == world.path(r"\Daten\Hier.mdb – vorhanden")


# Page, answer, row, what cannot be, the message.
WRONG = {
    "line": (
        *("Anwendung", None, "AppName", "x" * 51),
        "Der Wert ist zu lang: Er braucht 51 Zeichen, das Feld fasst 50.",
    ),
    "lines": (
        *("Fehlermeldungen", None, "ErrBoxText", "y" * 503),
        "Der Wert ist zu lang: Er braucht 503 Zeichen, das Feld fasst 500.",
    ),
    "secret": (
        *("Diagnose", None, "EditPwd", "Ω"),
        "Das Zeichen 'Ω' gibt es in der Codepage der Einstellungen nicht.",
    ),
    "path": (
        *("Access", 4101, "AccPath", "z" * 256),
        "Der Wert ist zu lang: Er braucht 256 Zeichen, das Feld fasst 255.",
    ),
    "number": (
        *("Startbild", 4401, "PicDelay", "12345"),
        "Der Wert ist zu lang: Er braucht 5 Zeichen, das Feld fasst 4.",
    ),
    "version": (
        *("Programmdatei", None, "FileVersion", "neu"),
        "Der Text beginnt nicht mit einer Versionsnummer wie 1.2.3.",
    ),
}


@pytest.mark.parametrize("kind", WRONG)
def test_value_that_cannot_be_saved_is_told_while_it_is_typed(world, window, kind):
    page, answer, row, value, message = WRONG[kind]
    before = world.snapshot()
    fill(window, page, answer, [(row, row, value)])
    assert window.message(row) == message
    assert page in window.marked_pages()

    window.save()
    text = window.question()
    assert text == f"Diese Angaben können nicht gespeichert werden:\n\n{row}: {message}"
    window.answer("OK")
    assert window.main().title == "Start.exe* – Tarvex-Konfiguration"
    assert world.snapshot() == before


def test_file_that_is_no_icon_is_refused(world, window):
    world.write(r"\Prog\Kunden.ico", "kein Symbol")
    fill(window, "Programmdatei", None, [("IconFile", "IconFile", "Kunden.ico")])
    before = world.snapshot()
    window.save()
    assert window.question() == (
        "Diese Angaben können nicht gespeichert werden:\n\n"
        "IconFile: Kunden.ico: Die Datei ist keine Symboldatei (.ico)."
    )
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


def test_answer_that_is_not_chosen_keeps_its_values_until_they_are_saved(world):
    world.brand(AccPath=r"C:\Office")
    with ConfigWindow(world, world.exe) as window:
        window.page("Access")
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


def test_fields_of_the_chosen_answer_are_shown_only(window):
    window.page("Datenbank")
    rows = [control(field) for field in ("DBFilename", "DBPath", second("DBFilename"), 6100)]
    shown = {}
    for answer in (4200, 4201, 4202, 4203):
        window.push(answer)
        visible = {c["id"] for c in window.seen().controls if c["visible"]}
        shown[answer] = [number in visible for number in rows]
    assert shown == {
        4200: [False, False, False, False],
        4201: [True, False, False, False],
        4202: [False, True, True, False],
        4203: [False, False, False, True],
    }


def test_every_setting_is_edited_by_a_control_here():
    edited = [field for _, rows in PLACES.values() for _, field, _ in rows]
    edited += [f"{fields}{number:02}" for _, _, fields in LISTS.values() for number in range(1, 11)]
    assert sorted(edited) == sorted(NUMBERS)
