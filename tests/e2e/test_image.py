"""The shipped program as a file: its marks, its size and what it asks of a system."""

import pefile
import pytest

import brandfile
import launcher
from check_image import FIELDS

BLOCK = 32768


@pytest.fixture(scope="module")
def image(programs):
    return brandfile.BrandFile.read(programs.launcher)


@pytest.fixture(scope="module")
def program(programs):
    return pefile.PE(programs.launcher)


def test_marks_are_those_of_the_field_table(image):
    assert len(FIELDS) == 67
    assert {mark.number: (mark.width, mark.name) for mark in image.marks} == FIELDS
    assert len(image.marks) == 67


def test_marks_have_an_order_of_their_own(image):
    numbers = [mark.number for mark in image.marks]
    assert numbers != sorted(numbers)


def test_marks_are_counted_texts_with_a_zero_behind(image):
    for mark in image.marks:
        assert image.count_of_mark(mark) == mark.end - mark.start
        assert image.data[mark.end : mark.end + 2] == b"\0\0"
    assert image.count_of_mark(image.mark("NoStartup")) == 56
    assert image.count_of_mark(image.mark("HCID")) == 54


def test_values_are_blank(image):
    for mark in image.marks:
        assert image.stored(mark.name) == " " * mark.width


def test_one_marker_of_each_kind(image):
    text = bytes(image.data).lower()
    assert text.count(brandfile.UNBRANDED.lower()) == 1
    assert text.count(brandfile.BRANDED.lower()) == 1
    place = image.data.find(brandfile.UNBRANDED)
    assert image.data[place - 4 : place] == bytes([24, 0, 0, 0])


def test_no_search_text_is_split_between_blocks(image):
    assert len(image.data) % BLOCK == 0
    for mark in image.marks:
        assert mark.start // BLOCK == (mark.start + 15) // BLOCK
    marker = image.data.find(brandfile.UNBRANDED)
    assert marker // BLOCK == (marker + 23) // BLOCK


def test_program_is_small(image):
    assert len(image.data) <= 288 * 1024


def test_program_is_a_32_bit_program_with_windows(program):
    assert program.FILE_HEADER.Machine == 0x14C
    assert program.OPTIONAL_HEADER.Magic == 0x10B
    assert program.OPTIONAL_HEADER.Subsystem == 2
    assert not program.FILE_HEADER.Characteristics & 0x2000


def test_program_is_unsigned_and_hardened(program):
    security = program.OPTIONAL_HEADER.DATA_DIRECTORY[4]
    assert security.VirtualAddress == security.Size == 0
    assert program.OPTIONAL_HEADER.DllCharacteristics & 0x140 == 0x140


def test_only_libraries_of_the_system_that_cannot_be_replaced(program):
    names = {entry.dll.decode().lower() for entry in program.DIRECTORY_ENTRY_IMPORT}
    assert names <= {
        "advapi32.dll",
        "comdlg32.dll",
        "gdi32.dll",
        "kernel32.dll",
        "msvcrt.dll",
        "ole32.dll",
        "oleaut32.dll",
        "shell32.dll",
        "user32.dll",
    }


def test_no_function_newer_than_windows_xp(program):
    assert program.OPTIONAL_HEADER.MajorSubsystemVersion == 5
    newer = {b"GetTickCount64", b"InitializeCriticalSectionEx", b"CreateSymbolicLinkW"}
    newer |= {b"InitOnceExecuteOnce", b"SetProcessDPIAware", b"GetFinalPathNameByHandleW"}
    for entry in program.DIRECTORY_ENTRY_IMPORT:
        assert not {function.name for function in entry.imports} & newer


def resource(program, kind, identifier=None):
    (types,) = [e for e in program.DIRECTORY_ENTRY_RESOURCE.entries if e.id == kind]
    entries = [e for e in types.directory.entries if identifier in (None, e.id)]
    data = entries[0].directory.entries[0].data.struct
    return program.get_data(data.OffsetToData, data.Size)


def test_manifest_asks_for_no_elevation_and_knows_high_resolutions(program):
    manifest = resource(program, 24).decode("utf-8")
    assert 'level="asInvoker"' in manifest
    assert "Microsoft.Windows.Common-Controls" in manifest
    assert "PerMonitorV2" in manifest
    # Another code page would change the log, the scrambling and every text of the windows.
    assert "activeCodePage" not in manifest


def test_menu_of_the_log_window(programs):
    assert list(launcher.menu_commands(programs.launcher)) == ["&Datei", "&Speichern", "&Beenden"]


MESSAGES = {
    115: "Das Startprogramm würde die folgende Befehlszeile ausführen:",
    116: "[Weitere Parameter]",
    118: "Logfile schreiben: Ja",
    119: "Logfile schreiben: Nein",
    120: "[Startbild]",
    106: "System-Datenbank ''##' nicht gefunden.",
    107: "Die Ausführung der Befehlszeile '##' ist fehlgeschlagen.",
    125: "&Beenden",
    126: "&Details",
    127: "&Hilfe",
    128: "Die Hilfedatei '##' wurde nicht gefunden.",
    130: "Die Hilfedatei '##' konnte nicht mit dem Hilfethema ## geöffnet werden.",
    131: "## - Erweiterte Fehlerinformationen:",
    133: "Diagnosetext speichern",
    134: "Fehlerprotokolle (*.err)|*.err|Alle Dateien (*.*)|*.*",
    135: "##@@@@##",
    136: "<nicht angezeigt>",
    137: "Das Kennwort für die Diagnoseinformationen ist falsch.",
}


def string_table(program):
    strings = {}
    (types,) = [e for e in program.DIRECTORY_ENTRY_RESOURCE.entries if e.id == 6]
    for entry in types.directory.entries:
        data = entry.directory.entries[0].data.struct
        units = program.get_data(data.OffsetToData, data.Size)
        place = 0
        for index in range(16):
            length = int.from_bytes(units[place : place + 2], "little")
            text = units[place + 2 : place + 2 + 2 * length].decode("utf-16-le")
            place += 2 + 2 * length
            if text:
                strings[(entry.id - 1) * 16 + index] = text
    return strings


def test_string_table_holds_the_messages(program):
    strings = string_table(program)
    assert {number: strings.get(number) for number in MESSAGES} == MESSAGES
    for number in (110, 123, 124):
        assert number not in strings
