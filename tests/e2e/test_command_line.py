"""The line that Access is started with, as the started program sees it."""

import pytest

ALL_FLAGS = {
    "Compact": "/Compact",
    "Exclusive": "/Excl",
    "NoStartup": "/nostartup",
    "Repair": "/Repair",
    "ReadOnly": "/ro",
    "Runtime": "/Runtime",
    "Decompile": "/Decompile",
}


@pytest.fixture
def branded(world):
    """A function that brands with a database and gives the pieces after it, real and masked."""

    world.write(r"\Prog\Start.mdb")
    start = f'"{world.drive}\\Office\\msaccess.exe" "{world.drive}\\Prog\\Start.mdb"'

    def pieces(**fields):
        world.brand_with_access(**fields)
        real, masked = world.started()["line"], world.sections()[""]
        assert real.startswith(start) and masked.startswith(start)
        return real[len(start) :], masked[len(start) :]

    return pieces


def test_access_alone(world):
    world.brand_with_access()
    assert world.started()["line"] == f'"{world.drive}\\Office\\msaccess.exe"'


def brand_with_both_databases(world, **fields):
    """Returns the beginning of the line that must come of it."""
    database = world.write(r"\Daten\Kunden.mdb")
    workgroup = world.write(r"\Daten\System.mdw")
    world.brand_with_access(
        DBPath=world.path(r"\Daten"),
        DBFilename="Kunden.mdb",
        SysDBPath=world.path(r"\Daten"),
        SysDBFilename="System.mdw",
        **fields,
    )
    return f'"{world.drive}\\Office\\msaccess.exe" "{database}" /wrkgrp "{workgroup}"'


def test_everything_in_its_order(world):
    start = brand_with_both_databases(
        world,
        **{flag: "1" for flag in ALL_FLAGS},
        Profile="Büro",
        Macro="Anfang",
        User="Meier",
        Pwd="geheim",
        Cmd="Filiale 7",
    )
    start += (
        " /Compact /Excl /nostartup /Repair /ro /Runtime /Decompile"
        ' /Profile "Büro" /x "Anfang"'
    )
    assert world.started()["line"] == start + ' /user "Meier" /pwd "geheim" /cmd "Filiale 7"'
    assert world.sections()[""] == start + ' /user "XXXX" /pwd "YYYY" /cmd "Filiale 7"'


def test_user_and_password_with_two_options(world):
    start = brand_with_both_databases(world, Exclusive="1", Runtime="1", User="Meier", Pwd="a/b")
    start += " /Excl /Runtime"
    assert world.started()["line"] == start + ' /user "Meier" /pwd "a//b"'
    assert world.sections()[""] == start + ' /user "XXXX" /pwd "YYYY"'


@pytest.mark.parametrize("flag, switch", ALL_FLAGS.items())
def test_each_option_has_its_own_switch(branded, flag, switch):
    assert branded(**{flag: "1"}) == (f" {switch}", f" {switch}")


@pytest.mark.parametrize("value", ["0", "j"])
def test_only_one_switches_an_option_on(branded, value):
    fields = {flag: value for flag in ALL_FLAGS}
    assert branded(**fields) == ("", "")


@pytest.mark.parametrize(
    "field, switch, value, quoted",
    [
        ("Macro", "/x", '"schon da"', '"schon da"'),
        ("Cmd", "/cmd", "  am Rand  ", '"am Rand"'),
        ("Profile", "/Profile", "Größe/ß;", '"Größe/ß;"'),
    ],
)
def test_values_are_quoted_once(branded, field, switch, value, quoted):
    assert branded(**{field: value}) == (f" {switch} {quoted}", f" {switch} {quoted}")


@pytest.mark.parametrize(
    "user, password, real, masked",
    [
        ("a/b;c", "", ' /user "a//b;;c"', ' /user "XXXX"'),
        ("Müller", "ß ä", ' /user "Müller" /pwd "ß ä"', ' /user "XXXX" /pwd "YYYY"'),
        ("", "geheim", "", ""),
        # The password stands in a path as well: only the value after /pwd is masked.
        ("Start", "Prog", ' /user "Start" /pwd "Prog"', ' /user "XXXX" /pwd "YYYY"'),
    ],
)
def test_credentials_are_escaped_and_masked(branded, user, password, real, masked):
    assert branded(User=user, Pwd=password) == (real, masked)


def test_credentials_stand_nowhere_in_the_test_mode(world):
    world.write(r"\Prog\Start.mdb")
    world.brand_with_access(User="Xaver", Pwd="ohnegleichen")
    text = world.shown("/T")
    assert "Xaver" not in text and "ohnegleichen" not in text


@pytest.mark.also_win64
def test_access_is_started_maximised(world):
    world.brand_with_access()
    record = world.started()
    assert record["show"] == "3"
    assert record["nCmdShow"] == "3"


def test_launcher_ends_while_access_still_runs(world):
    world.brand_with_access()
    steps = [("exit",), ("processes",), ("drain",)]
    run = world.run("", steps, environment={"STUB_STAY_MS": "3000"})
    assert run.step("processes")["running"] == 1
    assert run.step("exit")["us"] + 500_000 < run.step("drain")["us"]


@pytest.mark.also_win64
def test_arguments_reach_access_separately(world):
    world.write(r"\Prog\Meine Kunden.mdb")
    world.brand_with_access(DBFilename="Meine Kunden.mdb", Cmd="äöü ß €")
    assert world.started()["arg"] == [
        f"{world.drive}\\Prog\\Meine Kunden.mdb",
        "/cmd",
        "äöü ß €",
    ]
