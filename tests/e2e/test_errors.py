"""Every error that can be reached from outside, in the box, in the details, in the log file and
in test mode, with number, source and whole text."""

import textwrap

import pytest

import brandfile
import launcher
import pictures

SOURCE = "Tarvex/cuTarvex: {}: : GetCommandLine | Application: Init"
START_SOURCE = "Application: Init"


class Case:
    """A failing launch: settings, and the number, place and text that it must lead to. "%" in the
    settings and the text stands for the world's drive, "KEY" for its registry key."""

    def __init__(self, number, place, text, log_end, **fields):
        self.number = number
        self.place = place
        self.text = text
        self.log_end = log_end  # the last line of the diagnostic log
        self.fields = fields


ACCESS = {"AccPath": "%\\Office"}
CASES = {
    "no Office key": Case(
        -2147220478,
        "GetAccessPath",
        "Der Access-Pfad kann nicht aus der Registry ermittelt werden.",
        "Pfad konnte nicht ermittelt werden",
    ),
    "Access missing": Case(
        -2147220477,
        "GetAccessPath",
        "Die Datei '%\\Nirgends\\msaccess.exe' wurde nicht gefunden.",
        "Datei existiert nicht: %\\Nirgends\\msaccess.exe",
        AccPath="%\\Nirgends",
    ),
    "database missing": Case(
        -2147220475,
        "GetDBPath",
        "Die Datenbank '%\\Prog\\Kunden.mdb' ist nicht vorhanden.",
        "Datenbank: %\\Prog\\Kunden.mdb ist nicht vorhanden!",
        **ACCESS,
        DBFilename="Kunden.mdb",
    ),
    "no way to a database": Case(
        -2147220474,
        "GetDBPath",
        "Es sind keine Pfadinformationen für die zu startende Datenbank verfügbar.\r\n"
        "Wenn Sie keinen Pfad angeben, muss sich eine Datenbank namens 'Start.mdb/mde/mda' im "
        "Programmpfad befinden.",
        "Datenbank nicht angegeben, aber eine der Optionen /Runtime, /ReadOnly, /Compact, "
        "/Repair /Decompile/Macro/Cmd",
        **ACCESS,
        Runtime="1",
    ),
    "workgroup missing": Case(
        -2147220471,
        "GetSystemDB",
        "System-Datenbank '%\\Prog\\System.mdw' nicht gefunden.",
        "SysDB: %\\Prog\\System.mdw ist nicht vorhanden!",
        **ACCESS,
        SysDBFilename="System.mdw",
    ),
    "Access list": Case(
        -2147220469,
        "GetAccessPath",
        "Die benutzerdefinierten Registryeinträge für den Access-Pfad sind nicht vorhanden, "
        "enthalten keinen Wert oder an den angegebenen Positionen wurde keine ausführbare "
        "Access-Datei gefunden.",
        "Pfad konnte nicht ermittelt werden",
        AccRegList01="HKCU\\Software\\KEY\\Nichts",
    ),
    "database list": Case(
        -2147220467,
        "GetDBPath",
        "Die benutzerdefinierten Registryeinträge für den Datenbank-Pfad sind nicht vorhanden, "
        "enthalten keinen Wert oder an den angegebenen Positionen wurde keine Datenbank gefunden.",
        "Pfad konnte nicht ermittelt werden",
        **ACCESS,
        DBRegList05="HKCU\\Software\\KEY\\Nichts",
    ),
    "workgroup list": Case(
        -2147220465,
        "GetSystemDB",
        "Die benutzerdefinierten Registryeinträge für den Pfad der Systemdatenbank sind nicht "
        "vorhanden, enthalten keinen Wert oder an den angegebenen Positionen wurde keine "
        "Systemdatenbank gefunden.",
        "Pfad konnte nicht ermittelt werden",
        **ACCESS,
        SysDBRegList10="HKCU\\Software\\KEY\\Nichts",
    ),
}
RAISED_IN_TEST_MODE = ("no Office key", "Access list")


@pytest.fixture(params=CASES, ids=lambda name: name.replace(" ", "-"))
def case_name(request):
    return request.param


def put(world, text):
    return text.replace("%", world.drive).replace("KEY", world.key)


def report(number, source, text):
    """The rows that tell an error, wrapped at 80 characters below the first."""
    paragraphs = []
    for paragraph in launcher.lines(text):
        wrapped = textwrap.wrap(paragraph, 80, break_on_hyphens=False, break_long_words=False)
        paragraphs += [paragraph] if any(len(line) > 80 for line in wrapped) else wrapped
    return "\r\n".join(
        [
            f"Nummer       : {number}",
            f"Quelle       : {source}",
            "Beschreibung : " + ("\r\n" + 15 * " ").join(paragraphs),
        ]
    )


def expected_report(world, case):
    return report(case.number, SOURCE.format(case.place), put(world, case.text))


def brand(world, case, **more):
    world.brand(**{name: put(world, value) for name, value in case.fields.items()}, **more)


def test_box_says_that_the_program_cannot_run_and_not_why(world, case_name):
    brand(world, CASES[case_name])
    box = world.error_box()
    assert box.title == "Tarvex"
    assert box.box_text == launcher.BOX_TEXT
    assert box.buttons == ["&Beenden", "&Details"]
    assert world.nothing_started()


def test_details_tell_number_source_and_text_and_the_way_so_far(world, case_name):
    case = CASES[case_name]
    brand(world, case)
    details = world.details()
    heading, error, line, log = details.split("\r\n\r\n", 3)
    assert heading == launcher.DETAILS_HEADING
    assert error == expected_report(world, case)
    assert line == 50 * "-"
    assert log.startswith("[Access-Pfad]\r\n")
    assert launcher.lines(log)[-1] == put(world, case.log_end)


def test_log_file_gets_number_and_text(world, case_name):
    case = CASES[case_name]
    brand(world, case, Log="1")
    world.error_box()
    stamp, _, entry = world.log().partition("\r\n")
    assert stamp[0] + stamp[-1] == "[]"
    assert entry == f"Fehler Nr. {case.number}: {put(world, case.text)}\r\n\r\n"


@pytest.mark.parametrize("name", RAISED_IN_TEST_MODE)
def test_some_errors_end_the_test_mode_too(world, name):
    case = CASES[name]
    brand(world, case, Log="1")
    heading, error, line, _ = world.shown("/T").split("\r\n\r\n", 3)
    assert heading == launcher.DETAILS_HEADING
    assert error == expected_report(world, case)
    assert line == 50 * "-"
    assert f"Fehler Nr. {case.number}: {put(world, case.text)}\r\n\r\n" in world.log()


@pytest.mark.parametrize("name", sorted(CASES.keys() - set(RAISED_IN_TEST_MODE)))
def test_the_others_are_told_below_the_line_in_test_mode(world, name):
    case = CASES[name]
    brand(world, case, Log="1")
    text = world.shown("/T")
    assert launcher.lines(text)[0] == (
        "Das Startprogramm würde die folgende Befehlszeile ausführen. Wegen der unten aufgeführten "
        "Fehler konnte sie nicht vollständig zusammengestellt werden:"
    )
    assert "\r\n" + put(world, case.log_end) + "\r\n" in text
    assert text.endswith("\r\n[Profil]\r\nKein Profil eingestellt\r\n")
    assert not world.exists(r"\Prog\Start.log")


def test_unbranded_launcher_names_itself(world):
    world.copy_unbranded()
    text = (
        f"Im Startprogramm '{world.drive}\\Prog\\Start.exe' wurden keine Parameter gesetzt.\r\n"
        "Verwenden Sie das Tarvex-Konfigurationsprogramm, um die Parameter für die zu ladende "
        "Access-Datenbank einzustellen."
    )
    for tail in ("", "/T", "/D"):
        box = world.error_box(tail)
        assert box.box_text == launcher.BOX_TEXT
        assert box.buttons == ["&Beenden", "&Details"]
        assert world.details(tail) == "\r\n\r\n".join(
            [launcher.DETAILS_HEADING, report(-2147221621, START_SOURCE, text)]
        )
    assert sorted(world.snapshot()) == ["Office/msaccess.exe", "Prog/Start.exe"]


def test_unbranded_launcher_at_a_drives_root_has_one_backslash(world):
    world.use(r"\Start.exe")
    world.copy_unbranded()
    assert f"Im Startprogramm '{world.drive}\\Start.exe' wurden" in world.details()


def test_failed_start_tells_the_real_line(world):
    world.write(r"\Office\msaccess.exe", b"")
    world.brand_with_access(User="Meier", Pwd="geheim", Log="1")
    line = f'"{world.drive}\\Office\\msaccess.exe" /user "Meier" /pwd "geheim"'
    text = f"Die Ausführung der Befehlszeile '{line}' ist fehlgeschlagen."
    details = world.details()
    assert details.startswith(
        "\r\n\r\n".join(
            [launcher.DETAILS_HEADING, report(-2147221611, START_SOURCE, text), 50 * "-"]
        )
    )
    entries = world.log().split("\r\n")
    assert entries[1:] == [f"Fehler Nr. -2147221611: {text}", "", ""]


@pytest.mark.parametrize("field", ["User", "Pwd"])
@pytest.mark.parametrize(
    "numbers, number, text",
    [
        ("42#x", 13, "Typen unverträglich"),
        ("300", 5, "Ungültiger Prozeduraufruf oder ungültiges Argument"),
    ],
)
def test_malformed_credentials_end_the_launch(world, field, numbers, number, text):
    world.brand(
        stored={field: brandfile.scramble(numbers)}, AccPath=world.path(r"\Office"), Log="1"
    )
    row, *_ = [row for row in launcher.lines(world.details()) if row.startswith("Nummer")]
    assert row == f"Nummer       : {number}"
    assert f"\r\nFehler Nr. {number}: {text}\r\n" in world.log()


def test_placeholders_in_a_path_are_left_alone(world):
    world.brand_with_access(DBFilename="a@@b##c.mdb", Log="1")
    text = f"Die Datenbank '{world.drive}\\Prog\\a@@b##c.mdb' ist nicht vorhanden."
    assert text in world.details()
    assert f": {text}\r\n" in world.log()


def test_error_appears_only_after_the_picture_has_closed(world):
    world.write(r"\Prog\Bild.bmp", pictures.bitmap(64, 48))
    world.brand_with_access(PicFilename="Bild.bmp", PicDelay="300", DBFilename="fehlt.mdb")
    steps = [
        ("appear",),
        ("gone",),
        ("window", "title=Tarvex"),
        ("press", "caption", "&Beenden"),
        ("gone",),
        ("exit",),
    ]
    assert world.run("", steps).windows("window")[0].box_text == launcher.BOX_TEXT
