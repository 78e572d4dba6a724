"""`tarvexcf simulate` says of described computers what the real launcher shows on them."""

import difflib
import os

import pytest

import configurator
import launcher
import randomworld

# The ordinary run takes a share of the worlds; scripts/compare-simulation.sh takes all.
FIRST = int(os.environ.get("TARVEX_FIRST_WORLD", "1"))
COUNT = int(os.environ.get("TARVEX_WORLDS", "12"))


@pytest.fixture(scope="module")
def drawings(programs, tmp_path_factory):
    return randomworld.draw(programs.worlds, FIRST, COUNT, tmp_path_factory.mktemp("worlds"))


@pytest.fixture
def make_real(world, drawings):
    made = []

    def make(index):
        made.append(randomworld.RandomWorld(world, drawings[index]))
        return made[-1]

    yield make
    for one in made:
        one.close()


@pytest.mark.also_win64
@pytest.mark.parametrize("index", range(COUNT), ids=lambda index: f"seed {FIRST + index}")
def test_described_world_shows_the_text_of_the_real_one(make_real, index):
    real = make_real(index)
    shown = real.shown()
    assert_same(real.simulate(real.describe())["text"], shown)
    # What the Windows program finds there gives the same text on another system, and leaves no
    # question open.
    collected = real.simulate(real.collect())
    assert_same(collected["text"], shown)
    assert collected["undescribed"] == []


def assert_same(simulated, shown):
    lines = difflib.unified_diff(launcher.lines(simulated), launcher.lines(shown), lineterm="")
    assert simulated == shown, "\n".join(lines)


def test_collected_description_is_replaced_only_with_force(world):
    world.write(r"\Prog\Kunden.mdb")
    world.brand_with_access(DBFilename="Kunden.mdb", User="Meier", Pwd="Geheimnis")
    program = configurator.Wine()
    folder = world.work / "Sammlung"
    folder.mkdir()
    place = launcher.windows_path(folder)
    collect = ("collect", world.exe, place)
    result = program.run(world.work, *collect)
    assert (result.code, result.out, result.err) == (
        0,
        f"{place}: Die Beschreibung ist geschrieben.\n",
        "",
    )
    (file,) = folder.iterdir()
    assert file.name == "Start.pc"
    text = file.read_text(encoding="utf-8")
    assert "\nDatei = " + world.path(r"\Office\msaccess.exe") + "\n" in text
    assert "Meier" not in text and "Geheimnis" not in text
    file.write_text("alt")
    result = program.run(world.work, *collect)
    assert (result.code, result.out, result.err) == (
        1,
        "",
        f"tarvexcf: {place}\\Start.pc: Die Datei ist schon vorhanden; --force ersetzt sie.\n",
    )
    assert file.read_text() == "alt"
    assert program.run(world.work, *collect, "--force").code == 0
    assert file.read_text(encoding="utf-8") == text


def test_launcher_without_settings_is_not_collected_for(world):
    world.copy_unbranded()
    result = configurator.Wine().run(world.work, "collect", world.exe, "C:\\")
    assert (result.code, result.err) == (
        1,
        f"tarvexcf: {world.exe}: Das Startprogramm ist noch nicht konfiguriert.\n",
    )
