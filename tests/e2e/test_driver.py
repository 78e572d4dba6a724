"""The driver itself: that it says what went wrong, and ends what it started."""

import pathlib

import pytest

import launcher

LOG = f"title={launcher.LOG_WINDOW}"


@pytest.fixture
def failure(world):
    """A function that carries out steps on the launcher or another program and gives the failure
    that ends them."""
    world.brand_with_access()

    def run(*steps, tail="/T", **options):
        result = world.drive_program(
            [("limit", 1500), *steps], f'"{world.exe}" {tail}', **options
        )
        assert not result.ok
        return result.steps[-1]["failure"]

    return run


def running(world):
    """Command lines of the processes that were started from the world's drive."""
    found = []
    for file in pathlib.Path("/proc").glob("[0-9]*/cmdline"):
        try:
            line = file.read_bytes().decode("utf-8", "replace")
        except OSError:  # it has ended meanwhile
            continue
        if world.drive + "\\" in line:
            found.append(line)
    return found


def test_window_that_does_not_come_is_a_time_out(failure):
    told = failure(("window", LOG), ("window", "title=Nie"), ("close",))
    assert told["kind"] == "timeout"
    assert "1500 ms" in told["text"] and "title=Nie" in told["text"]


def test_end_of_the_program_is_told_apart(failure):
    told = failure(("window", "title=Nie"), tail="")
    assert told["kind"] == "ended"
    assert "title=Nie" in told["text"]


def test_missing_control_is_told_apart(failure):
    told = failure(("window", LOG), ("press", "caption", "&Nirgends"))
    assert told["kind"] == "missing"
    assert "&Nirgends" in told["text"]


def test_window_that_nobody_expects_is_told(failure):
    told = failure(("exit",))
    assert told["kind"] == "window"
    assert launcher.LOG_WINDOW in told["text"]


def test_program_that_cannot_be_started_is_told(world, failure):
    assert failure(application=world.path(r"\Nirgends.exe"))["kind"] == "start"


def test_mistake_in_a_script_is_told(failure):
    assert failure(("dance",))["kind"] == "script"


def test_what_was_started_is_ended_with_a_failed_script(world, failure):
    environment = {"STUB_STAY_MS": "60000"}
    told = failure(("exit",), ("drain",), tail="", environment=environment)
    assert told["kind"] == "timeout"
    assert running(world) == []


def test_windows_of_other_programs_are_never_touched(world, failure):
    assert failure(("window", "class=Shell_TrayWnd"), tail="/T")["kind"] == "timeout"
