"""Whole texts and files of typical launches, with a launcher branded by the tests' own bytes and by
the configurator."""

import re
import subprocess

import pytest

DATABASE = r"\Prog\Daten\Kunden.mdb"


def brand_by_bytes(world, fields):
    world.brand(**fields)


def brand_by_configurator(world, fields):
    if not world.programs.configurator.is_file():
        pytest.skip("the configurator is not built")
    settings = world.work / "settings.ini"
    settings.write_text("".join(f"{n} = {v}\n" for n, v in fields.items()), encoding="utf-8")
    subprocess.run(
        [
            world.programs.configurator,
            "brand",
            world.programs.launcher,
            world.unix(world.exe),
            "--settings",
            settings,
        ],
        check=True,
        timeout=30,
    )


@pytest.fixture(params=[brand_by_bytes, brand_by_configurator])
def brand(request, world):
    return lambda **fields: request.param(world, fields)


def customers(world, **more):
    fields = {
        "AccPath": world.path(r"\Office"),
        "DBPath": "Daten",
        "DBFilename": "Kunden.mdb",
        "User": "Meier",
        "Pwd": "a/b",
        "Runtime": "1",
    }
    return fields | more


@pytest.mark.also_win64
def test_test_mode_shows_the_whole_launch(world, brand):
    world.write(DATABASE)
    brand(**customers(world))
    assert world.shown("/T") == world.golden("test_mode.txt")
    assert world.nothing_started()


@pytest.mark.also_win64
def test_access_is_started_with_the_real_credentials(world, brand):
    world.write(DATABASE)
    brand(**customers(world))
    record = world.started()
    assert record["line"] == (
        f'"{world.drive}\\Office\\msaccess.exe" "{world.drive}\\Prog\\Daten\\Kunden.mdb"'
        ' /Runtime /user "Meier" /pwd "a//b"'
    )
    assert record["show"] == "3"


def test_missing_files_are_told_below_the_line_in_test_mode(world, brand):
    world.unix(world.path(r"\Office\msaccess.exe")).unlink()
    brand(
        AccPath=world.path(r"\Office"),
        DBPath="Daten",
        DBFilename="Kunden.mdb",
        SysDBFilename="System.mdw",
        Log="1",
    )
    assert world.shown("/T") == world.golden("test_mode_with_missing_files.txt")
    assert not world.exists(r"\Prog\Start.log")


def test_key_lists_lead_to_all_three_files(world, brand):
    world.add_access(r"\Office\bin")
    world.write(DATABASE)
    world.write(r"\Prog\System.mdw")
    world.registry({"Office": world.path(r"\Office"), "": world.path(r"\Prog\System.mdw")})
    world.registry(
        {"InstallPath": world.path(r"\Prog")}, key=f"HKEY_LOCAL_MACHINE\\SOFTWARE\\{world.key}"
    )
    brand(
        AccRegList01=rf"HKCU\Software\{world.key}\Office%|SubDir|%bin",
        DBRegList01=rf"HKCU\Software\{world.key}\Alt%|Filename%|Kunden.mdb",
        DBRegList02=(
            rf"HKLM\SOFTWARE\{world.key}\InstallPath%|SubDir|%Daten%|Filename%|Kunden.mdb"
        ),
        SysDBRegList01=rf"HKEY_CURRENT_USER\Software\{world.key}" + "\\",
    )
    assert world.shown("/T") == world.golden("key_lists.txt")


@pytest.mark.also_win64
def test_missing_database_is_told_behind_the_details(world, brand):
    brand(**customers(world))
    assert world.details() == world.golden("missing_database_details.txt")
    assert world.nothing_started()


def test_raised_error_is_shown_in_the_log_window_in_test_mode(world, brand):
    brand(AccRegList01=rf"HKCU\Software\{world.key}\Office")
    assert world.shown("/T") == world.golden("unresolved_access_test_mode.txt")


def test_log_file_holds_the_start_and_the_failure(world, brand):
    database = world.write(DATABASE)
    brand(**customers(world, Log="1"))
    world.started()
    world.unix(database).unlink()
    world.error_box()
    log, stamps = re.subn(
        r"^\[\d\d\.\d\d\.\d{4} \d\d:\d\d:\d\d\](?=\r\n)",
        "[24.12.2004 08:15:00]",
        world.log(),
        flags=re.MULTILINE,
    )
    assert stamps == 2
    assert log == world.golden("log_file.txt")
