"""The start picture: how it is found, and its size, place and time as seen from outside."""

import os
import subprocess

import pytest

import launcher
import pictures

COLOUR = (200, 60, 20)
SCREEN = (1280, 1024)
SHOWN = [("appear",), ("gone",)]
REFUSED = {
    "a text": b"no picture",
    "nothing": b"",
    "half a bitmap": pictures.bitmap(64, 48)[:60],
    "a bitmap with impossible sizes": pictures.bitmap(64, 48)[:18]
    + b"\xff\xff\xff\x7f\xff\xff\xff\x7f"
    + pictures.bitmap(64, 48)[26:],
}


def report(text):
    """The picture report in the text of the test mode, with its heading."""
    start = text.index("[Startbild]")
    return text[start : text.index("\r\n\r\n[Weitere Parameter]")]


def rows(world, **options):
    return launcher.lines(report(world.shown("/T", **options)))[1:]


def jpeg(world, rest, width=64, height=48):
    path = world.write(rest)
    red, green, blue = COLOUR
    subprocess.run(
        ["convert", "-size", f"{width}x{height}", f"xc:rgb({red},{green},{blue})", "-quality"]
        + ["100", "jpg:" + str(world.unix(path))],
        check=True,
    )
    return path


class TestReport:
    @pytest.mark.parametrize("delay", ["", "0", "5s"])
    def test_no_time_no_picture(self, world, delay):
        world.write(r"\Prog\Bild.bmp", pictures.bitmap(64, 48))
        world.brand_with_access(PicFilename="Bild.bmp", PicDelay=delay)
        assert rows(world) == ["Dauer: 0, Bild wird nicht angezeigt"]

    def test_nothing_configured_but_a_time(self, world):
        world.brand_with_access(PicDelay="100")
        assert rows(world) == ["Gespeicherter Pfad: ", "Kein Startbild angegeben"]

    def test_folder_without_name(self, world):
        world.write(r"\Prog\Bilder\Bild.bmp", pictures.bitmap(64, 48))
        world.brand_with_access(PicPath="Bilder", PicDelay="100")
        assert rows(world) == [
            "Gespeicherter Pfad: Bilder",
            "Fehler: Pfad ist angegeben, aber kein Dateiname",
        ]

    def test_name_alone_is_looked_for_beside_the_launcher(self, world):
        path = world.write(r"\Prog\Bild.bmp", pictures.bitmap(64, 48))
        world.brand_with_access(PicFilename="Bild.bmp", PicDelay="100")
        assert rows(world, before=SHOWN, folder=world.path(r"\Office")) == [
            "Gespeicherter Pfad: ",
            "Dateiname: Bild.bmp",
            f"Verwendeter Pfad: {path}",
            f"Startbild: {path}",
            "Startbild: OK",
            "Dauer: 100",
        ]

    @pytest.mark.parametrize(
        "stored, folder", [("Bilder", r"\Prog\Bilder"), (r"..\Bilder", r"\Bilder")]
    )
    def test_relative_folder_starts_at_the_launchers(self, world, stored, folder):
        path = world.write(folder + r"\Bild.bmp", pictures.bitmap(64, 48))
        world.brand_with_access(PicPath=stored, PicFilename="Bild.bmp", PicDelay="100")
        text = world.shown("/T", before=SHOWN)
        assert launcher.lines(report(text))[1:] == [
            f"Gespeicherter Pfad: {stored}",
            "Dateiname: Bild.bmp",
            f"Verwendeter Pfad: {path}",
            f"Startbild: {path}",
            "Startbild: OK",
            "Dauer: 100",
        ]
        # What is said of folders belongs to the launch, not to the picture.
        assert "Absoluter Pfad: " not in text and "Relativer Pfad: " not in text

    def test_missing_picture(self, world):
        world.brand_with_access(PicPath=world.path(r"\Weg"), PicFilename="B.bmp", PicDelay="100")
        assert rows(world) == [
            f"Gespeicherter Pfad: {world.drive}\\Weg",
            "Dateiname: B.bmp",
            f"Verwendeter Pfad: {world.drive}\\Weg\\B.bmp",
            "Bild nicht vorhanden an dieser Position",
        ]

    def test_extension_does_not_matter_without_a_list(self, world):
        path = world.write(r"\Prog\Bild.dat", pictures.bitmap(64, 48))
        world.brand_with_access(PicFilename="Bild.dat", PicDelay="100")
        assert rows(world, before=SHOWN)[-3:] == [
            f"Startbild: {path}",
            "Startbild: OK",
            "Dauer: 100",
        ]

    def test_list_is_walked_to_the_first_picture(self, world):
        for name in (r"\Firma\Bilder\Bild.BMP", r"\Firma\Bild.gif", r"\Firma\Danach.bmp"):
            world.write(name, pictures.bitmap(64, 48))
        world.registry(
            {"Leer": "", "Ort": world.path(r"\Firma"), "Ordner": world.path("\\Firma\\")}
        )
        key = rf"HKCU\Software\{world.key}"
        world.brand_with_access(
            PicDelay="100",
            PicPath="wird nicht angesehen",
            PicRegList01=key + r"\Leer%|Filename%|Bild.bmp",
            PicRegList02=key + r"\Ort%|SubDir|%Bilder",
            PicRegList04=key + r"\Ordner",
            PicRegList05=key + r"\Ort%|Filename%|Bild.gif",
            PicRegList06=key + r"\Ort%|Filename%|fehlt.jpg",
            PicRegList08=key + r"\Ort%|SubDir|%Bilder%|Filename%|Bild.BMP",
            PicRegList09=key + r"\Ort%|Filename%|Danach.bmp",
        )
        assert report(world.shown("/T", before=SHOWN)) == world.golden("picture_list.txt")

    def test_value_that_is_the_whole_path(self, world):
        path = world.write(r"\Firma\Bild.bmp", pictures.bitmap(64, 48))
        world.registry({"Ort": path})
        world.brand_with_access(PicDelay="100", PicRegList10=rf"HKCU\Software\{world.key}\Ort")
        assert rows(world, before=SHOWN)[-5:] == [
            f"Schlüsselinhalt: {path}",
            "Dateiname ist zulässig",
            f"Startbild: {path}",
            "Startbild: OK",
            "Dauer: 100",
        ]

    @pytest.mark.parametrize("name", ["Bild.gif", "Bild"])
    def test_other_extensions_are_refused_in_a_list(self, world, name):
        world.write("\\Firma\\" + name, pictures.bitmap(64, 48))
        world.registry({"Ort": world.path(r"\Firma")})
        world.brand_with_access(
            PicDelay="100", PicRegList01=rf"HKCU\Software\{world.key}\Ort%|Filename%|{name}"
        )
        assert rows(world)[-1] == "Fehler: Dateiname ist unzulässig"

    def test_unreadable_entry_is_passed_over(self, world):
        path = world.write(r"\Firma\Bild.jpg.bmp", pictures.bitmap(64, 48))
        world.registry({"Ort": path})
        world.brand_with_access(
            PicDelay="100",
            PicRegList01="Unlesbar",
            PicRegList02=r"FOO\Bar\Wert",
            PicRegList03=rf"HKCU\Software\{world.key}\Ort",
        )
        assert rows(world, before=SHOWN)[-2:] == ["Startbild: OK", "Dauer: 100"]


class TestWindow:
    def steps(self, *more):
        return [("appear",), *more, ("gone",), ("exit",), ("drain",)]

    @pytest.mark.parametrize("width, height", [(64, 48), (481, 271), (1, 1)])
    def test_window_is_exactly_the_picture_in_the_middle_of_the_screen(self, world, width, height):
        world.write(r"\Prog\Bild.bmp", pictures.bitmap(width, height))
        world.brand_with_access(PicFilename="Bild.bmp", PicDelay="400")
        (window,) = world.run("", self.steps(("pause", 100), ("dump",))).windows("dump")
        left, top = (SCREEN[0] - width) // 2, (SCREEN[1] - height) // 2
        assert window.client == window.rect
        assert window.rect[2:] == [width, height]
        assert abs(window.rect[0] - left) <= 1 and abs(window.rect[1] - top) <= 1

    @pytest.mark.parametrize("make", ["bmp", "jpg", "BMP", "JPG"])
    def test_picture_is_seen(self, world, make):
        if make.lower() == "jpg":
            jpeg(world, r"\Prog\Bild." + make)
        else:
            world.write(r"\Prog\Bild." + make, pictures.bitmap(64, 48, COLOUR))
        world.brand_with_access(PicFilename="Bild." + make, PicDelay="2000")
        shot = world.work / "shot.rgb"
        place = f"64x48+{(SCREEN[0] - 64) // 2}+{(SCREEN[1] - 48) // 2}"

        def take():
            subprocess.run(
                ["import", "-display", os.environ["DISPLAY"], "-window", "root", "-crop", place]
                + ["+repage", "-depth", "8", f"rgb:{shot}"],
                check=True,
            )

        world.run("", self.steps(("pause", 300), *world.meanwhile(take)))
        pixels = shot.read_bytes()
        assert len(pixels) == 64 * 48 * 3
        # Lossy pictures come out a shade off.
        assert all(abs(value - COLOUR[index % 3]) <= 3 for index, value in enumerate(pixels))

    @pytest.mark.parametrize("delay", [300, 1500])
    def test_time_is_exact_to_a_tenth_of_a_second(self, world, delay):
        world.write(r"\Prog\Bild.bmp", pictures.bitmap(64, 48))
        world.brand_with_access(PicFilename="Bild.bmp", PicDelay=str(delay))
        # A busy machine may delay the one who looks; one good look of three is enough.
        times = []
        while len(times) < 3 and not any(abs(time - delay) < 100 for time in times):
            run = world.run("", self.steps())
            times.append((run.step("gone")["us"] - run.step("appear")["us"]) / 1000)
        assert any(abs(time - delay) < 100 for time in times), times

    def test_access_is_started_when_the_picture_has_gone(self, world):
        world.write(r"\Prog\Bild.bmp", pictures.bitmap(64, 48))
        world.brand_with_access(PicFilename="Bild.bmp", PicDelay="500")
        seen = []
        look = world.meanwhile(lambda: seen.append(world.nothing_started()))
        world.run("", self.steps(("pause", 200), *look))
        assert seen == [True]
        assert world.exists(r"\Office\msaccess.rec")

    def test_closing_the_picture_goes_on_with_the_launch(self, world):
        world.write(r"\Prog\Bild.bmp", pictures.bitmap(64, 48))
        world.brand_with_access(PicFilename="Bild.bmp", PicDelay="9999")
        run = world.run("", self.steps(("pause", 200), ("close",)))
        assert run.step("gone")["us"] < 5_000_000
        assert world.exists(r"\Office\msaccess.rec")

    def test_log_window_comes_after_the_picture(self, world):
        world.write(r"\Prog\Bild.bmp", pictures.bitmap(64, 48))
        world.brand_with_access(PicFilename="Bild.bmp", PicDelay="200")
        assert world.log_window("/T", before=SHOWN).title == launcher.LOG_WINDOW

    def test_no_picture_in_info_mode(self, world):
        world.write(r"\Prog\Bild.bmp", pictures.bitmap(64, 48))
        world.brand_with_access(PicFilename="Bild.bmp", PicDelay="2000")
        # A window that is not named here would fail the run.
        steps = [("appear", f"title={launcher.LOG_WINDOW}"), ("close",), ("gone",), ("exit",)]
        run = world.run("/D", steps)
        assert run.step("exit")["us"] < 2_000_000

    @pytest.mark.parametrize("content", REFUSED, ids=lambda name: name.replace(" ", "-"))
    def test_damaged_picture_shows_nothing_and_hurts_nobody(self, world, content):
        world.write(r"\Prog\Bild.bmp", REFUSED[content])
        world.brand_with_access(PicFilename="Bild.bmp", PicDelay="500")
        assert world.started()["line"] == f'"{world.drive}\\Office\\msaccess.exe"'

    def test_picture_larger_than_the_screen_does_no_harm(self, world):
        world.write(r"\Prog\Bild.bmp", pictures.bitmap(1500, 1200))
        world.brand_with_access(PicFilename="Bild.bmp", PicDelay="500")
        world.run("", self.steps())
        assert world.exists(r"\Office\msaccess.rec")

    def test_picture_with_umlauts_in_its_name(self, world):
        world.write(r"\Prog\Größe ä.bmp", pictures.bitmap(64, 48))
        world.brand_with_access(PicFilename="Größe ä.bmp", PicDelay="200")
        world.run("", self.steps())
