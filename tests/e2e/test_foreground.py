"""From the start picture on the foreground stays with the launcher, until Access or a window of its
own has it: the program that the user worked with before does not come to the front in between."""

import time

import pytest

import pictures
from launcher import BOX, END, LOG, owner_of

pytestmark = pytest.mark.xdist_group("foreground")

PICTURE = [("appear", "class=frmStart"), ("gone",)]


@pytest.fixture
def branded(world):
    world.write(r"\Prog\Bild.bmp", pictures.bitmap(200, 100))
    world.brand_with_access(PicFilename="Bild.bmp", PicDelay="300")
    return world


@pytest.mark.also_win64
def test_foreground_goes_from_the_picture_to_access(branded):
    owners = []

    def await_access():
        end = time.monotonic() + 10
        while time.monotonic() < end and owners[-1:] != ["msaccess.exe"]:
            owners.append(owner_of(watcher.active_windows()[-1]))

    with branded.watcher() as watcher:
        before = watcher.active_windows()
        access = {"STUB_WINDOW_MS": "400", "STUB_STAY_MS": "2000"}
        steps = [*PICTURE, ("exit",), *branded.meanwhile(await_access), ("drain",)]
        run = branded.run("", steps, environment=access)
        record = branded.record(branded.unix(branded.path(r"\Office\msaccess.rec")))
        first, *later = watcher.events()
        shown = int(record["active"])
        assert first[0] == "active"
        assert all(when > shown for event, when in later if event == "active")
        # The launcher had it when Access began, and ended when Access had it.
        assert record["foreground"] == f"ForegroundAnchor {run.step('start')['process']}"
        assert (record["front"], record["zoomed"]) == ("1", "1")
        # The window manager sees the same from the launcher on. It hears of the window of Access a
        # moment later than the programs, and may think of the watcher meanwhile.
        launcher, *rest = watcher.active_windows()[len(before) :]
        assert launcher != before[-1] and rest
        assert owners[-1] == "msaccess.exe"


@pytest.mark.parametrize(
    "tail, database, window, end",
    [("/T", "", LOG, ("close",)), ("", "fehlt.mdb", BOX, ("press", "caption", "&Beenden"))],
    ids=["log-window", "error-box"],
)
def test_window_after_the_picture_comes_to_the_front(branded, tail, database, window, end):
    branded.brand_with_access(PicFilename="Bild.bmp", PicDelay="300", DBFilename=database)
    before = []
    with branded.watcher() as watcher:
        look = branded.meanwhile(lambda: before.extend(watcher.events()))
        run = branded.run(tail, [*PICTURE, window, ("foreground",), *look, end, *END])
        assert run.step("foreground")["ofProgram"]
        assert [event for event, _ in before] == ["active", "inactive"]


def test_program_that_never_shows_is_not_waited_for_long(branded):
    run = branded.run("", [*PICTURE, ("exit",)], environment={"STUB_STAY_MS": "20000"})
    waited = run.step("exit")["us"] - run.step("gone")["us"]
    assert 5_000_000 <= waited < 8_000_000
