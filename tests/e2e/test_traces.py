"""Which traces a launch leaves, and that no file, however damaged, brings it down."""

import random

import pytest

import brandfile
import launcher

SAMPLE_OF_RUNS = 8


def registry(world):
    """The registry's keys with their values, but those of Wine itself and of the tests that run at
    the same time."""
    keys = []
    for root in (r"HKCU\Software", r"HKLM\Software"):
        file = world.work / "exported.reg"
        launcher.wine("reg", "export", root, launcher.windows_path(file), "/y")
        keys += file.read_bytes().decode("utf-16").split("\r\n\r\n")
    return [key for key in keys if "\\TarvexTest" not in key and "\\Wine\\" not in key]


def other_files(world):
    """Every file of the system drive outside the worlds, with size and time."""
    worlds = world.folder.parent
    return {
        file: (file.stat().st_size, file.stat().st_mtime_ns)
        for file in worlds.parent.rglob("*")
        if worlds not in file.parents and file.is_file()
    }


# Other worlds write their own keys meanwhile.
@pytest.mark.xdist_group("office")
@pytest.mark.parametrize("log", ["", "1"])
def test_nothing_is_written_but_the_log(world, log):
    world.write(r"\Prog\Start.mdb")
    world.brand_with_access(Log=log)
    before = world.snapshot()
    keys, files = registry(world), other_files(world)
    world.started()
    world.shown("/T")
    world.shown("/D")
    world.started("/Compact /Repair")
    after = world.snapshot()
    new = set(after) - set(before)
    expected = {"Office/msaccess.rec"} | ({"Prog/Start.log"} if log else set())
    assert new == expected
    assert all(after[name] == content for name, content in before.items())
    assert registry(world) == keys
    assert other_files(world) == files


def test_nothing_is_written_on_failure_either(world):
    world.brand(AccPath=world.path(r"\Nirgends"))
    before = world.snapshot()
    world.details()
    assert world.snapshot() == before


def test_runs_leave_no_process_behind(world):
    world.brand_with_access()
    steps = [
        ("window", f"title={launcher.LOG_WINDOW}"),
        ("close",),
        ("gone",),
        ("exit",),
        ("processes",),
    ]
    for _ in range(3):
        run = world.run("/T", steps)
        assert run.step("processes")["running"] == 0
        assert run.step("exit")["us"] - run.step("gone")["us"] < 1_000_000


def stored_garbage(random_numbers, width):
    """A value area that nobody ever wrote: any UTF-16 units, halves of pairs and zeros included."""
    kind = random_numbers.randrange(4)
    if kind == 0:
        return "".join(chr(random_numbers.randrange(0x10000)) for _ in range(width))
    if kind == 1:
        return "".join(chr(random_numbers.randrange(256)) for _ in range(width))
    if kind == 2:
        pieces = ["%|%", "%|SubDir|%", "%|Filename%|", "HKLM\\", "\\", "##", "@@", "#", "\r\n", " "]
        text = "".join(random_numbers.choices(pieces, k=width))[:width]
        return brandfile.scramble(text)
    return "".join(random_numbers.choices("\0\uffff\ud800|@#BRD ", k=width))


@pytest.mark.parametrize("seed", range(SAMPLE_OF_RUNS))
def test_damaged_values_never_crash_the_program(world, seed):
    random_numbers = random.Random(seed)
    image = brandfile.BrandFile.read(world.programs.launcher)
    for mark in image.marks:
        if mark.name not in ("PicDelay",) and random_numbers.random() < 0.8:
            image.set_stored(mark.name, stored_garbage(random_numbers, mark.width))
    image.set_branded()
    image.write(world.unix(world.exe))
    # Whatever becomes of it, one window or message tells, and it can be closed.
    for tail in ("/T", "/D", ""):
        steps = [("window",), ("close",), ("gone",), ("exit",)]
        world.run(tail, steps)


@pytest.mark.parametrize("seed", range(SAMPLE_OF_RUNS))
def test_damaged_headers_never_crash_the_program(world, seed):
    random_numbers = random.Random(1000 + seed)
    image = brandfile.BrandFile.read(world.programs.launcher)
    image.set_branded()
    for mark in random_numbers.sample(image.marks, 10):
        place = random_numbers.randrange(mark.start - 4, mark.value_start)
        # The count in front is the program's own and never written by anyone.
        place = max(place, mark.start)
        image.data[place] = random_numbers.randrange(256)
    image.write(world.unix(world.exe))
    for tail in ("/T", "/D"):
        world.run(tail, [("window",), ("close",), ("gone",), ("exit",)])
