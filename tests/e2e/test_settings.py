"""The values in the file are the ones that count, and they survive as they were entered."""

import random

import pefile
import pytest

import brandfile
import launcher


def patch(data, old, new):
    assert data.count(old) == 1
    return data.replace(old, new)


def test_one_patched_flag_and_the_marker_change_what_the_program_does(world):
    """Without any of our own code: plain bytes of the shipped program."""
    world.write(r"\Prog\Start.mdb")
    data = world.programs.launcher.read_bytes()
    data = patch(
        data, "@#BRANDED0#@".encode("utf-16-le"), "@#BRANDED1#@".encode("utf-16-le")
    )
    mark = "@#BRD#@|042|0001|Exclusive|".encode("utf-16-le")
    data = patch(data, mark + " ".encode("utf-16-le"), mark + "N".encode("utf-16-le"))
    world.unix(world.exe).write_bytes(data)
    rows = launcher.lines(world.shown("/D"))
    assert "Exclusive = 1" in rows
    assert "Runtime = " in rows


def test_marker_is_compared_without_regard_to_case(world):
    world.brand_with_access()
    data = world.unix(world.exe).read_bytes()
    first = data.index(brandfile.BRANDED)
    second = data.index(brandfile.BRANDED, first + 1)
    lower = "@#branded1#@".encode("utf-16-le")
    # One of the two is the text that the marker is compared with; both ways round must work.
    for place in (first, second):
        world.unix(world.exe).write_bytes(data[:place] + lower + data[place + len(lower) :])
        assert world.started()["line"] == f'"{world.drive}\\Office\\msaccess.exe"'


def test_every_field_is_shown_as_it_was_entered(world):
    image = brandfile.BrandFile.read(world.programs.launcher)
    random_numbers = random.Random(1904)
    alphabet = [c for c in brandfile.CHARACTERS[32:] if c not in "\x7f€"]
    fields = {}
    for mark in image.marks:
        if mark.name not in brandfile.CREDENTIALS:
            text = "".join(random_numbers.choices(alphabet, k=mark.width))
            fields[mark.name] = "a" * min(mark.width, 1) + text[1:-1] + "z" * (mark.width > 1)
    world.brand(**fields)
    rows = launcher.lines(world.shown("/D"))
    for name, value in fields.items():
        # The report shows texts in the code page; a control character is as good as any other.
        assert f"{name} = {value}" in rows


@pytest.mark.parametrize("ending", ["r", "_", "ß", "mdt"])
def test_endings_that_are_stored_as_control_characters_or_blanks_survive(world, ending):
    name = "Daten." + ending
    world.write("\\Prog\\" + name)
    world.brand_with_access(DBFilename=name)
    assert world.started()["line"].endswith(f'"{world.drive}\\Prog\\{name}"')


def test_application_name_changes_neither_error_box_nor_log_window(world):
    world.brand(AppName="Kundenverwaltung", AccPath=world.path(r"\Nirgends"))
    box = world.error_box()
    assert box.title == "Tarvex"
    assert box.box_text == launcher.BOX_TEXT
    assert world.log_window("/T").title == "Tarvex - Debug"


def test_configured_file_holds_no_plain_value(world):
    values = {"AppName": "Kundenverwaltung", "DBPath": "Datenordner", "User": "Meier"}
    values |= {"Pwd": "ganzgeheim", "EditPwd": "Schloss", "Cmd": "Filiale", "FileID": "4711"}
    world.brand(**values)
    data = world.unix(world.exe).read_bytes()
    for value in values.values():
        assert value.encode("utf-16-le") not in data
        assert value.encode("cp1252") not in data


class TestReport:
    def rows(self, world, tail="/D"):
        return launcher.lines(world.shown(tail))

    def test_rows_are_the_marks_in_the_files_order(self, world):
        world.brand(AppName="Kunden", FileID="4711", DBPath="C:\\Daten", Cmd="a = b")
        image = brandfile.BrandFile.read(world.unix(world.exe))
        names = [mark.name for mark in image.marks if mark.name != "FileID"]
        assert len(names) == 66
        rows = self.rows(world)
        values = {"AppName": "Kunden", "DBPath": "C:\\Daten", "Cmd": "a = b"}
        assert rows[:66] == [f"{name} = {values.get(name, '')}" for name in names]
        assert rows[66] == 50 * "-"
        assert rows[68] == "FileID = 4711"
        assert rows[69] == 50 * "-"

    def test_credentials_are_not_shown(self, world):
        world.brand(User="Meier", Pwd="geheim")
        rows = self.rows(world)
        assert "User = <nicht angezeigt>" in rows
        assert "Pwd = <nicht angezeigt>" in rows
        assert "EditPwd = " in rows
        text = "\r\n".join(rows)
        assert "Meier" not in text and "geheim" not in text
        assert brandfile.number_list("Meier") not in text

    def test_password_of_the_report_is_not_shown_either(self, world):
        world.brand(EditPwd="geheim")
        rows = self.rows(world, "/D geheim")
        assert "EditPwd = <nicht angezeigt>" in rows
        assert "geheim" not in "\r\n".join(rows)

    def test_version_and_texts_come_from_the_program(self, world):
        world.brand()
        rows = self.rows(world)
        program = pefile.PE(world.programs.launcher)
        texts = {
            key.decode(): value.decode()
            for entry in program.FileInfo[0]
            if entry.Key == b"StringFileInfo"
            for table in entry.StringTable
            for key, value in table.entries.items()
        }
        fixed = program.VS_FIXEDFILEINFO[0]
        revision = fixed.FileVersionLS & 0xFFFF
        assert rows[67] == (
            f"Version = {fixed.FileVersionMS >> 16}.{fixed.FileVersionMS & 0xFFFF}.{revision:03}"
        )
        assert rows[70:] == [
            "Beschreibung = " + texts["FileDescription"],
            "Firmenname = " + texts["CompanyName"],
            "Copyright = " + texts["LegalCopyright"],
            "Marken = " + texts["LegalTrademarks"],
            "Produktname = " + texts["ProductName"],
            "Produktversion = " + texts["ProductVersion"],
        ]
