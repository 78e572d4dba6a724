"""Version properties of real files, compared with what an independent reader finds in them."""

import json
import os
import pathlib
import shutil
import struct

import pytest

import launcher
import versionblock

TOOLS = pathlib.Path(os.environ.get("TARVEX_E2E_BIN", "."))
WINDOWS = pathlib.Path(os.environ.get("WINEPREFIX", "."), "drive_c", "windows")
SYSTEM = WINDOWS / "system32"
FONTS = pathlib.Path("/usr/share/wine/fonts")
INSTALLER = pathlib.Path("/usr/share/win32/win32-loader.exe")

EMPTY = {
    "Available": False,
    "FileFlags": "",
    "FileOS": "",
    "FileType": "",
    "FileSubType": "",
    "Comments": "",
    "CompanyName": "",
    "FileDescription": "",
    "FileVersion": "",
    "FileVersionMajor": 0,
    "FileVersionMinor": 0,
    "InternalName": "",
    "Language": "",
    "LegalCopyright": "",
    "LegalTrademarks": "",
    "OriginalFilename": "",
    "ProductName": "",
    "ProductVersion": "",
}


@pytest.fixture
def read(tmp_path):
    """A function that gives the properties of files, read by the launcher's reader."""

    def run(*files):
        report = tmp_path / "report"
        paths = [launcher.windows_path(file) for file in files]
        launcher.wine(TOOLS / "versions.exe", launcher.windows_path(report), *paths)
        properties = json.loads(report.read_text(encoding="utf-8"))
        assert [entry.pop("FullPathName") for entry in properties] == paths
        return properties

    return run


def test_every_file_of_the_system_folder(read):
    files = sorted(file for file in SYSTEM.iterdir() if file.is_file())
    found = []
    for start in range(0, len(files), 200):  # a command line is limited
        found += read(*files[start : start + 200])
    wrong = {}
    for file, properties in zip(files, found, strict=True):
        expected = versionblock.properties(file)
        if properties != expected:
            wrong[file.name] = {
                name: (value, expected[name])
                for name, value in properties.items()
                if value != expected[name]
            }
    assert wrong == {}
    available = [properties["Available"] for properties in found]
    assert available.count(True) > 50 and available.count(False) > 50


@pytest.mark.also_win64
def test_sixteen_bit_programs(read):
    # They belong to the 32-bit programs, which have a folder of their own on 64-bit Windows.
    folder = WINDOWS / "syswow64" if launcher.WIN64 else SYSTEM
    files = [folder / name for name in ("gdi.exe", "user.exe", "krnl386.exe", "mouse.drv")]
    for file, properties in zip(files, read(*files), strict=True):
        assert not versionblock.is_wide(versionblock.resource(file))
        assert properties == versionblock.properties(file)
        assert properties["Available"] and properties["ProductName"] == "Wine"


def test_user_language_is_taken_of_several(read):
    file = SYSTEM / "kernel32.dll"
    assert len(versionblock.languages(file)) > 1
    (properties,) = read(file)
    assert properties == versionblock.properties(file)
    assert properties["Language"] == "German"


def test_fonts_without_version_resource_are_empty(read):
    files = sorted(FONTS.glob("*.fon"))
    assert len(files) > 10
    assert read(*files) == [EMPTY] * len(files)


def test_installer_of_another_maker(read):
    """Its texts end in blanks, which stay."""
    (properties,) = read(INSTALLER)
    assert properties == versionblock.properties(INSTALLER)
    assert properties["CompanyName"] == "The Debian Project"
    assert properties["FileVersion"] == properties["FileVersion"].rstrip() + " "


def test_launcher(read, programs):
    (properties,) = read(programs.launcher)
    assert properties == versionblock.properties(programs.launcher)
    assert properties["FileDescription"] == "Startprogramm für Access-Datenbanken"
    assert properties["LegalCopyright"] == "© 2026 Tarvex. Alle Rechte vorbehalten."
    assert properties["Language"] == "German"


def test_program_without_version_resource_is_empty(read, programs):
    assert read(programs.access) == [EMPTY]


FONT = EMPTY | {
    "Available": True,
    "FileFlags": "Debug Special ",
    "FileOS": "NT-Win32",
    "FileType": "Font",
    "FileSubType": "TrueType Font",
    "Comments": "Größe „16“ – 20 €",
    "CompanyName": "Müller & Söhne",
    "FileDescription": "  Schrift\twith blanks  ",
    "FileVersion": "3.07.00.0012",  # its text is blank
    "FileVersionMajor": 3,
    "FileVersionMinor": 7,
    "Language": "German",
    "LegalTrademarks": "Straße®",
    "ProductVersion": " 1 ",
}


def test_debug_build_of_a_font(read):
    file = TOOLS / "versions_font.dll"
    assert read(file) == [FONT] == [versionblock.properties(file)]


def test_driver_with_two_languages(read):
    file = TOOLS / "versions_driver.dll"
    expected = EMPTY | {
        "Available": True,
        "FileFlags": "PreRel Patched Private Info ",
        "FileOS": "DOS-Win32",
        "FileType": "Driver",
        "FileSubType": "Sound drv",
        "FileDescription": "Klangtreiber für Geräte",
        "FileVersion": "1.2 deutsch",
        "FileVersionMajor": 1,
        "FileVersionMinor": 20,
        "Language": "German",
        "ProductVersion": "1.02.03.0004",
    }
    assert read(file) == [expected] == [versionblock.properties(file)]


def test_texts_without_translation_are_not_read(read):
    file = TOOLS / "versions_bare.dll"
    expected = EMPTY | {
        "Available": True,
        "FileOS": "Unknown",
        "FileType": "VxD",
        "FileVersion": "2.01.00.0005",
        "FileVersionMajor": 2,
        "FileVersionMinor": 1,
        "ProductVersion": "4.03.02.0001",
    }
    assert read(file) == [expected] == [versionblock.properties(file)]


def test_block_without_fixed_record_has_its_texts_and_language(read, tmp_path):
    data = (TOOLS / "versions_font.dll").read_bytes()
    block = versionblock.resource(TOOLS / "versions_font.dll")
    length, size, is_text = struct.unpack_from("<3H", block)
    assert size == 52
    # The key ends at a place where the record may stand, and what follows the record moves there.
    shorter = struct.pack("<3H", length - 52, 0, is_text) + block[6:40] + block[92:] + bytes(52)
    file = tmp_path / "ohne.dll"
    file.write_bytes(data.replace(block, shorter))
    expected = FONT | {
        "FileFlags": "",
        "FileOS": "",
        "FileType": "",
        "FileSubType": "",
        "FileVersion": "",  # its text is blank
        "FileVersionMajor": 0,
        "FileVersionMinor": 0,
    }
    assert read(file) == [expected]


@pytest.mark.parametrize("name", ["Größe ß.dll", "Schrift 日本.dll"])
def test_file_with_any_name(read, tmp_path, name):
    file = tmp_path / name
    shutil.copyfile(TOOLS / "versions_font.dll", file)
    report = tmp_path / "other"
    launcher.wine(
        TOOLS / "versions.exe", launcher.windows_path(report), launcher.windows_path(file)
    )
    (properties,) = json.loads(report.read_text(encoding="utf-8"))
    del properties["FullPathName"]  # the second has a short one
    assert properties == FONT


def test_next_file_without_resource_resets_everything(read, tmp_path):
    font = TOOLS / "versions_font.dll"
    missing = tmp_path / "missing.dll"
    empty = tmp_path / "empty.dll"
    empty.touch()
    assert read(font, missing, font, empty, font, tmp_path, font) == [FONT, EMPTY] * 3 + [FONT]


def damaged_copies(folder):
    """Copies of a file in whose version block one number is too large or too small."""
    data = (TOOLS / "versions_font.dll").read_bytes()
    block = versionblock.resource(TOOLS / "versions_font.dll")
    start = data.index(block)
    for offset in range(0, len(block), 2):
        for number in (0xFFFF, 0, 7):
            copy = folder / f"{offset}-{number}.dll"
            place = start + offset
            copy.write_bytes(data[:place] + struct.pack("<H", number) + data[place + 2 :])
            yield copy


def test_damaged_lengths_do_no_harm(read, tmp_path):
    """A file that cannot be read whole gives what it has, and the next one is not affected."""
    copies = list(damaged_copies(tmp_path))
    found = []
    for start in range(0, len(copies), 150):
        found += read(*copies[start : start + 150], TOOLS / "versions_font.dll")
        assert found.pop() == FONT
    # The first number is the length of the whole block, which the texts do not depend on.
    assert found[0] == FONT
    assert EMPTY | {"Available": True} in found
