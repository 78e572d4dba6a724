"""The log file beside the launcher: its name, its bytes, and that its failures hurt nobody."""

import datetime
import re
import subprocess

import pytest

STAMP = r"\[\d\d\.\d\d\.\d{4} \d\d:\d\d:\d\d\]"


@pytest.fixture
def branded(world):
    world.write(r"\Prog\Start.mdb")
    world.brand_with_access(Log="1", User="Meier", Pwd="geheim")
    return world


def test_three_starts_leave_nine_lines(branded):
    for _ in range(3):
        branded.started()
    line = (
        f'"{branded.drive}\\Office\\msaccess.exe" "{branded.drive}\\Prog\\Start.mdb"'
        ' /user "XXXX" /pwd "YYYY"'
    )
    entry = STAMP + "\r\n" + re.escape(line) + "\r\n\r\n"
    assert re.fullmatch(3 * f"(?:{entry})", branded.log())


def test_time_stamps_are_the_users_time_in_the_systems_form(branded):
    before = datetime.datetime.now().replace(microsecond=0)
    branded.started()
    stamp = branded.log().split("\r\n")[0]
    time = datetime.datetime.strptime(stamp, "[%d.%m.%Y %H:%M:%S]")
    assert before <= time <= datetime.datetime.now()


def test_bytes_are_those_of_the_code_page(world):
    world.write(r"\Büro\Größe.mdb")
    world.use(r"\Büro\Größe.exe")
    world.brand_with_access(Log="1", Cmd="€")
    world.started()
    log = world.read(r"\Büro\Größe.log")
    assert log.split(b"\r\n", 1)[1] == (
        f'"{world.drive}\\Office\\msaccess.exe" "{world.drive}\\Büro\\Größe.mdb" /cmd "€"\r\n\r\n'
    ).encode("cp1252")


@pytest.mark.parametrize("name", ["Kunden", "Kunden.v2", "Start mit Blank"])
def test_log_is_named_after_the_launcher(world, name):
    world.use(f"\\Prog\\{name}.exe")
    world.brand_with_access(Log="1")
    world.started()
    assert [file for file in world.snapshot() if file.endswith(".log")] == [f"Prog/{name}.log"]


def test_log_grows_behind_what_is_there(branded):
    branded.write(r"\Prog\Start.log", b"von Hand\r\n")
    branded.started()
    assert branded.log().startswith("von Hand\r\n[")


@pytest.mark.parametrize("value", ["", "0", "j", "x", "2"])
def test_no_log_without_the_flag(world, value):
    world.brand_with_access(Log=value)
    world.started()
    assert not world.exists(r"\Prog\Start.log")


def test_errors_before_the_flag_is_read_are_not_logged(world):
    world.copy_unbranded()
    world.error_box()
    assert not world.exists(r"\Prog\Start.log")


def test_folder_in_the_logs_place_is_no_reason_to_fail(branded):
    branded.unix(branded.path(r"\Prog\Start.log")).mkdir()
    branded.started()
    assert branded.unix(branded.path(r"\Prog\Start.log")).is_dir()


@pytest.fixture
def write_protected(request):
    """A function that protects a file or folder until the test ends. Permission bits do not keep
    root from writing; the attribute does, where the file system has it."""

    def protect(path):
        command = ["chattr", "+i", path]
        if subprocess.run(command, stderr=subprocess.DEVNULL, check=False).returncode != 0:
            pytest.skip("this file system cannot keep root from writing")
        request.addfinalizer(lambda: subprocess.run(["chattr", "-i", path], check=True))

    return protect


def test_read_only_log_stays_as_it_is(branded, write_protected):
    branded.write(r"\Prog\Start.log", b"alt\r\n")
    log = branded.unix(branded.path(r"\Prog\Start.log"))
    write_protected(log)
    branded.started()
    assert log.read_bytes() == b"alt\r\n"


def test_folder_that_cannot_be_written_is_no_reason_to_fail(branded, write_protected):
    write_protected(branded.unix(branded.path(r"\Prog")))
    branded.started()
    assert not branded.exists(r"\Prog\Start.log")
