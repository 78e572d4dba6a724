"""Help: the real engine for .chm files, a stand-in for the one of .hlp files."""

import shutil
import subprocess

import pytest

import launcher
import pictures
from launcher import BOX, END, HELP, LOG

TOPICS = {"1000": "fehler.html", "1001": "start.html"}


def pages(run):
    """The addresses of the pages that the engine was led to."""
    lines = [line for line in run.trace if line.startswith("trace:htmlhelp:navigate_url ")]
    return [line.split('"')[1].replace("\\\\", "\\") for line in lines]


def page(world, topic):
    return f"mk:@MSITStore:{world.drive}\\Prog\\Start.chm::/{TOPICS[topic]}"


@pytest.mark.parametrize("topic", TOPICS)
def test_help_button_opens_the_topic(world, topic):
    world.add_help()
    world.brand(AccPath=world.path(r"\Nirgends"), HCID=topic)
    steps = [BOX, ("press", "caption", "&Hilfe"), ("gone",), HELP]
    steps += [BOX, ("press", "caption", "&Beenden"), *END]
    run = world.run("", steps, trace="+htmlhelp")
    assert run.windows()[1].class_name == "HH Parent"
    assert pages(run) == [page(world, topic)]


def test_topic_that_the_file_lacks_is_told(world):
    world.add_help()
    world.brand(AccPath=world.path(r"\Nirgends"), HCID="4711")
    steps = [BOX, ("press", "caption", "&Hilfe"), ("gone",), ("window", "class=#32770", "new=")]
    steps += [("press", "caption", "OK"), ("gone",), BOX, ("press", "caption", "&Beenden"), *END]
    run = world.run("", steps, trace="+htmlhelp")
    assert run.windows()[1].box_text == (
        f"Die Hilfedatei '{world.drive}\\Prog\\Start.chm' konnte nicht mit dem Hilfethema 4711 "
        "geöffnet werden."
    )
    assert pages(run) == []


@pytest.mark.xdist_group("foreground")
class TestF1:
    def test_log_window(self, world):
        world.add_help()
        world.brand_with_access(HCID="1001")
        steps = [LOG, ("keys", "F1"), HELP, LOG, ("close",), *END]
        assert pages(world.run("/T", steps, trace="+htmlhelp")) == [page(world, "1001")]

    def test_picture(self, world):
        world.add_help()
        world.write(r"\Prog\Bild.bmp", pictures.bitmap(200, 100))
        world.brand_with_access(HCID="1000", PicFilename="Bild.bmp", PicDelay="2500")
        steps = [("appear", "class=frmStart"), ("pause", 200), ("keys", "F1"), HELP]
        run = world.run("", [*steps, ("exit",), ("drain",)], trace="+htmlhelp")
        assert pages(run) == [page(world, "1000")]
        assert world.exists(r"\Office\msaccess.rec")


@pytest.fixture
def winhelp(world):
    """A function that gives what the system asked the engine of .hlp files for."""
    shutil.copyfile(world.programs.winhelp, world.unix(world.path(r"\Prog\winhlp32.exe")))
    record = world.unix(world.path(r"\Prog\winhlp32.rec"))
    # It runs already: Wine does not wait until one that it starts is ready.
    with subprocess.Popen(
        ["wine", world.path(r"\Prog\winhlp32.exe")],
        stdin=subprocess.DEVNULL,
        stdout=subprocess.DEVNULL,
        stderr=subprocess.DEVNULL,
    ) as engine:
        launcher.wait_until(record.exists)

        def request():
            engine.wait(launcher.SECONDS_FOR_A_RUN)
            return dict(line.split("=", 1) for line in record.read_text("cp1252").splitlines())

        yield request


def test_winhelp_file_goes_to_the_systems_engine(world, winhelp):
    world.write(r"\Prog\Start.hlp")
    world.brand(AccPath=world.path(r"\Nirgends"), HCID="1000")
    # The box comes back at once: the engine is another program.
    steps = [BOX, ("press", "caption", "&Hilfe"), ("gone",)]
    world.run("", [*steps, BOX, ("press", "caption", "&Beenden"), *END])
    assert winhelp() == {"file": world.path(r"\Prog\Start.hlp"), "command": "1", "data": "1000"}
