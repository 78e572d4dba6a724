"""The configurator from outside, both programs, on the launcher that is shipped."""

import json
import os
import pathlib
import random
import stat
import struct

import pytest

import brandfile
import configurator

FIELDS_FILE = """\ufeff; Einstellungen
[Anwendung]
AppName = Kundenverwaltung Grün & Söhne
ErrBoxText = Bitte anrufen:
 Tel. 12 34

 \t
[Zugang]
USER = Meier
pwd=  a/b;ß€
EditPwd = geheim
Runtime = ja
Exclusive = 0
DBFilename = Daten.mdt
PicPath = €Bilder€
"""


@pytest.fixture(scope="module", params=[configurator.Native, configurator.Wine], ids=lambda c: c.name)
def program(request):
    return request.param()


@pytest.fixture(scope="module")
def template():
    return (pathlib.Path(os.environ["TARVEX_WIN32_DIST"]) / "tarvex.exe").read_bytes()


@pytest.fixture
def folder(tmp_path, template):
    (tmp_path / "T.exe").write_bytes(template)
    return tmp_path


def write(folder, name, text):
    (folder / name).write_bytes(text.encode("utf-8"))


def brand(program, folder, settings, *more):
    write(folder, "K.ini", settings)
    return program.run(folder, "brand", "T.exe", "K.exe", "--settings", "K.ini", *more)


def names(folder):
    return sorted(entry.name for entry in folder.iterdir())


def assert_only_values_differ(before, after):
    """Only value areas and the digit of the marker may differ."""
    assert len(before) == len(after)
    places = brandfile.BrandFile(before)
    allowed = set()
    for mark in places.marks:
        allowed.update(range(mark.value_start, mark.end))
    marker = before.find(brandfile.UNBRANDED)
    if marker >= 0:
        allowed.add(marker + 2 * 9)
    changed = {i for i, (a, b) in enumerate(zip(before, after)) if a != b}
    assert changed <= allowed


def test_brand_writes_every_value_and_nothing_else(program, folder, template):
    result = brand(program, folder, FIELDS_FILE)
    assert (result.code, result.refusals) == (0, ""), result
    assert result.out == "K.exe ist konfiguriert.\n"
    branded = brandfile.BrandFile.read(folder / "K.exe")
    expected = {
        "AppName": "Kundenverwaltung Grün & Söhne",
        "ErrBoxText": "Bitte anrufen:\r\nTel. 12 34",
        "User": "Meier",
        "Pwd": "a/b;ß€",
        "EditPwd": "geheim",
        "Runtime": "1",
        "Exclusive": "0",
        "DBFilename": "Daten.mdt",
        "PicPath": "€Bilder€",
    }
    for mark in branded.marks:
        assert branded.value(mark.name) == expected.get(mark.name, ""), mark.name
    assert len(branded.marks) == 67
    assert branded.branded()
    assert branded.data.count(brandfile.BRANDED) == 2
    assert_only_values_differ(template, bytes(branded.data))
    assert (folder / "T.exe").read_bytes() == template
    assert names(folder) == ["K.exe", "K.ini", "T.exe"]


@pytest.mark.also_win64
def test_same_input_gives_the_same_bytes_on_both_systems(folder):
    outputs = []
    for kind in (configurator.Native, configurator.Wine):
        result = brand(kind(), folder, FIELDS_FILE, "--force")
        assert result.code == 0, result
        outputs.append((folder / "K.exe").read_bytes())
    assert outputs[0] == outputs[1]


def test_all_errors_are_reported_with_file_line_and_field(program, folder):
    result = brand(
        program,
        folder,
        "DBPaht = x\nAppName = ☃\nappname = 1\nRuntime = x\n"
        f"User = {'ä' * 26}\nFileID = 12345678901\nFoo\n[Ende]\n eingerückt\n",
    )
    assert result.code == 1
    assert result.out == ""
    starts = [line.removeprefix("tarvexcf: ").split(": ")[0] for line in result.err.splitlines()]
    assert starts == [
        "K.ini, Zeile 1, DBPaht",
        "K.ini, Zeile 2, AppName",
        "K.ini, Zeile 3, AppName",
        "K.ini, Zeile 4, Runtime",
        "K.ini, Zeile 5, User",
        "K.ini, Zeile 6, FileID",
        "K.ini, Zeile 7",
        "K.ini, Zeile 9",
    ]
    assert "gemeint ist vielleicht DBPath." in result.err
    assert "Er braucht 103 Zeichen in verschlüsselter Form, das Feld fasst 100." in result.err
    assert names(folder) == ["K.ini", "T.exe"]


def test_existing_output_is_replaced_only_with_force(program, folder):
    write(folder, "K.exe", "alt")
    result = brand(program, folder, "AppName = x\n")
    assert result.code == 1
    assert result.err == "tarvexcf: K.exe: Die Datei ist schon vorhanden; --force ersetzt sie.\n"
    assert (folder / "K.exe").read_bytes() == b"alt"
    assert brand(program, folder, "AppName = x\n", "--force").code == 0
    assert brandfile.BrandFile.read(folder / "K.exe").value("AppName") == "x"
    assert names(folder) == ["K.exe", "K.ini", "T.exe"]


def test_branded_template_is_refused(program, folder):
    assert brand(program, folder, "AppName = x\n").code == 0
    result = program.run(folder, "brand", "K.exe", "L.exe", "--settings", "K.ini")
    assert result.code == 1
    assert result.refusals.startswith("tarvexcf: K.exe: Das Startprogramm ist bereits konfiguriert")
    assert not (folder / "L.exe").exists()


def test_set_changes_only_the_given_field(program, folder):
    assert brand(program, folder, "AppName = eins\nCmd = zwei\n").code == 0
    before = (folder / "K.exe").read_bytes()
    result = program.run(folder, "set", "K.exe", "AppName=Größer")
    assert (result.code, result.refusals) == (0, ""), result
    after = brandfile.BrandFile.read(folder / "K.exe")
    mark = after.mark("AppName")
    assert after.value("AppName") == "Größer"
    assert bytes(after.data[: mark.value_start]) == before[: mark.value_start]
    assert bytes(after.data[mark.end :]) == before[mark.end :]


def test_set_brands_an_unbranded_file(program, folder, template):
    assert program.run(folder, "set", "T.exe", "Log=true").code == 0
    after = brandfile.BrandFile.read(folder / "T.exe")
    assert after.branded() and after.value("Log") == "1"
    assert_only_values_differ(template, bytes(after.data))


def test_password_comes_from_standard_input(program, folder):
    result = program.run(
        folder, "set", "T.exe", "User=-", "Pwd=-", stdin="Möller\r\ngeh€im\nrest\n".encode()
    )
    assert (result.code, result.refusals) == (0, ""), result
    after = brandfile.BrandFile.read(folder / "T.exe")
    assert (after.value("User"), after.value("Pwd")) == ("Möller", "geh€im")
    result = program.run(folder, "set", "T.exe", "Pwd=-")
    assert result.code == 1
    assert result.refusals == (
        "tarvexcf: T.exe, Pwd: Die Standardeingabe enthält keine Zeile für den Wert.\n"
    )


def test_show_hides_credentials_unless_asked(program, folder):
    assert brand(program, folder, "User = Meier\nPwd = Geheimnis\nAppName = Ä\n").code == 0
    result = program.run(folder, "show", "K.exe")
    assert result.code == 0
    assert result.out == "AppName = Ä\nUser = <nicht angezeigt>\nPwd = <nicht angezeigt>\n"
    revealed = program.run(folder, "show", "K.exe", "--reveal").out
    assert revealed == "AppName = Ä\nUser = Meier\nPwd = Geheimnis\n"
    shown = json.loads(program.run(folder, "show", "K.exe", "--all", "--json").out)
    assert shown["branded"] is True
    assert len(shown["values"]) == 67
    assert shown["values"]["AppName"] == "Ä"
    assert shown["values"]["Pwd"] == "<nicht angezeigt>"


def test_export_is_branded_to_the_same_bytes(program, folder):
    settings = FIELDS_FILE + "ErrDebugText = a\n \n   b\nDBRegList03 = HKLM\\A\\B%|Filename%|x.mdb\n"
    assert brand(program, folder, settings).code == 0
    assert program.run(folder, "export", "K.exe", "neu.ini").code == 0
    assert program.run(folder, "export", "K.exe", "neu.ini").code == 1
    result = program.run(folder, "brand", "T.exe", "L.exe", "--settings", "neu.ini")
    assert (result.code, result.refusals) == (0, ""), result
    assert (folder / "L.exe").read_bytes() == (folder / "K.exe").read_bytes()


def test_check_reports_what_is_not_meant(program, folder):
    settings = "Pwd = x\nPicPath = Bilder\nHCID = abc\nDBRegList01 = FOO\\A\\B\nAccPath = C:\\Office\n"
    assert brand(program, folder, settings).code == 0
    for file, place in (("K.ini", "K.ini, Zeile 1, "), ("K.exe", "K.exe, ")):
        result = program.run(folder, "check", file)
        assert result.code == 1
        assert f"{place}Pwd: Warnung: Das Kennwort wird nicht verwendet" in result.err
        assert len(result.err.splitlines()) == 4, result
    write(folder, "gut.ini", "DBFilename = Kunden.mdb\nAccPath = C:\\Office\n")
    result = program.run(folder, "check", "gut.ini")
    assert (result.code, result.out, result.err) == (0, "gut.ini: keine Beanstandungen.\n", "")


def test_fields_are_listed(program, folder):
    fields = json.loads(program.run(folder, "fields", "--json").out)
    assert len(fields) == 78
    widths = {field["name"]: field["width"] for field in fields}
    assert (widths["User"], widths["EditPwd"], widths["DBPath"]) == (33, 17, 255)
    lines = program.run(folder, "fields").out.splitlines()
    assert len(lines) == 78
    assert lines[0].startswith("001  AppName")


def test_wrong_usage_is_code_2_and_german(program, folder):
    for arguments in ([], ["nix"], ["brand"], ["set", "T.exe"], ["show", "--nix", "T.exe"]):
        result = program.run(folder, *arguments)
        assert result.code == 2, arguments
        assert result.out == ""
        assert result.err.startswith("tarvexcf: Falscher Aufruf: "), result
    result = program.run(folder, "--help")
    assert (result.code, result.refusals) == (0, "")
    assert result.out.startswith("Konfiguriert Startprogramme")


def damaged(template, change):
    data = bytearray(template)
    change(data)
    return bytes(data)


def sign(data):
    header = struct.unpack_from("<I", data, 0x3C)[0]
    struct.pack_into("<II", data, header + 24 + 96 + 4 * 8, 0x1000, 0x200)


def other_machine(data):
    header = struct.unpack_from("<I", data, 0x3C)[0]
    struct.pack_into("<H", data, header + 4, 0x8664)


def break_mark(data):
    mark = brandfile.BrandFile(bytes(data)).mark("DBPath")
    width = data.index("|0255|".encode("utf-16-le"), mark.start)
    data[width + 8 : width + 10] = b"4\0"


@pytest.mark.parametrize(
    "change, message",
    [
        (sign, "T.exe: Die Datei trägt eine Signatur; erst konfigurieren, dann signieren."),
        (other_machine, "T.exe: Die Datei ist kein 32-Bit-Programm für Windows."),
        (
            break_mark,
            "T.exe, DBPath: Die Marke 013 ist beschädigt: sie heißt 'DBPath' mit 254 Zeichen statt "
            "'DBPath' mit 255.",
        ),
    ],
)
def test_files_that_must_not_be_changed_are_refused(program, folder, template, change, message):
    data = damaged(template, change)
    (folder / "T.exe").write_bytes(data)
    for result in (
        program.run(folder, "set", "T.exe", "Log=1"),
        brand(program, folder, "Log = 1\n"),
    ):
        assert result.code == 1
        assert result.refusals == f"tarvexcf: {message}\n"
    assert (folder / "T.exe").read_bytes() == data
    assert names(folder) == ["K.ini", "T.exe"]


def test_mark_that_would_be_damaged_is_named(program, folder, template):
    first = min(brandfile.BrandFile(template).marks, key=lambda mark: mark.start)
    # Bytes in front of the marks bring the first one onto the end of a block.
    shift = (32768 - 2 - first.start) % 32768
    cut = first.start - 4
    data = template[:cut] + bytes(shift) + template[cut:]
    data += bytes(-len(data) % 32768)
    (folder / "T.exe").write_bytes(data)
    result = program.run(folder, "set", "T.exe", "Log=1")
    assert result.code == 1
    assert f"T.exe, {first.name}: Die Marke {first.number:03} liegt an Position" in result.err
    assert "auf der Grenze zweier Blöcke" in result.err
    assert (folder / "T.exe").read_bytes() == data


CHARACTERS = [c for c in brandfile.CHARACTERS if c not in "\0\r\n\x7f"]


def random_value(source, field):
    if field["meaning"].startswith("Schalter"):
        return source.choice(["", "0", "1"])
    # A credential with umlauts needs more room than its width says.
    longest = field["width"] * 2 // 3 if field["width"] != field["storedWidth"] else field["width"]
    value = "".join(source.choices(CHARACTERS, k=source.randrange(longest)))
    return value.strip(" \t")


@pytest.mark.parametrize("seed", range(6))
def test_random_values_of_all_characters_come_back(folder, seed):
    """Judged by the tests' own reader; by the native program, because it is the faster one."""
    program = configurator.Native()
    fields = json.loads(program.run(folder, "fields", "--json").out)
    fields = [field for field in fields if field["number"] < 1000]  # those with a mark
    source = random.Random(seed)
    values = {field["name"]: random_value(source, field) for field in fields}
    # The blank that keeps a "€" at an end takes room of its own.
    values = {
        name: value[1:-1].strip(" \t") if "€" in (value[:1], value[-1:]) else value
        for name, value in values.items()
    }
    settings = "".join(f"{name} = {value}\n" for name, value in values.items())
    result = brand(program, folder, settings)
    assert (result.code, result.refusals) == (0, ""), f"seed {seed}: {result}"
    branded = brandfile.BrandFile.read(folder / "K.exe")
    for name, value in values.items():
        assert branded.value(name) == value, f"seed {seed}, {name}"


def test_names_with_blanks_and_umlauts(program, folder):
    sub = folder / "Köln & Söhne"
    sub.mkdir()
    write(folder, "K.ini", "AppName = x\n")
    result = program.run(
        folder, "brand", "T.exe", f"{sub.name}/Kündin 1.exe", "--settings", "K.ini"
    )
    assert (result.code, result.refusals) == (0, ""), result
    assert brandfile.BrandFile.read(sub / "Kündin 1.exe").value("AppName") == "x"


def test_output_folder_that_does_not_exist(program, folder):
    write(folder, "K.ini", "AppName = x\n")
    result = program.run(folder, "brand", "T.exe", "fehlt/K.exe", "--settings", "K.ini")
    assert result.code == 1
    assert result.refusals.startswith("tarvexcf: fehlt/K.exe: ")
    assert len(result.refusals.splitlines()) == 1
    assert names(folder) == ["K.ini", "T.exe"]


def test_permissions_of_a_replaced_file_stay(folder):
    program = configurator.Native()
    os.chmod(folder / "T.exe", 0o640)
    assert program.run(folder, "set", "T.exe", "Log=1").code == 0
    assert stat.S_IMODE(os.stat(folder / "T.exe").st_mode) == 0o640


def test_prompt_finds_the_console_form_before_the_window(folder):
    at_prompt = configurator.Prompt().run(folder, "fields")
    assert (at_prompt.code, at_prompt.err) == (0, ""), at_prompt
    assert at_prompt.out == configurator.Wine().run(folder, "fields").out
