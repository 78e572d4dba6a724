"""The log window and saving from it."""

import subprocess

import pytest

import launcher
from launcher import LOG

DIALOG = ("window", "class=#32770", "has=1148")
QUESTION = ("window", "class=#32770", "has=6")
CLOSE = [("close",), ("gone",), ("exit",)]
NAME = "1148"
READ_ONLY = 0x800
SCROLL_BARS = 0x300000


@pytest.fixture
def branded(world):
    world.write(r"\Prog\Start.mdb")
    world.brand_with_access(Cmd="äöüß €")
    return world


@pytest.fixture
def menu(programs):
    return launcher.menu_commands(programs.launcher)


class TestWindow:
    def test_caption_and_one_edit_control_that_fills_the_window(self, branded):
        window = branded.log_window("/T")
        assert window.title == "Tarvex - Debug"
        assert window.edit["rect"] == window.client
        assert window.edit["style"] & SCROLL_BARS == SCROLL_BARS
        assert window.edit["style"] & READ_ONLY

    def test_edit_control_follows_every_size(self, branded):
        steps = [LOG]
        for width, height in ((500, 300), (1000, 800), (200, 150)):
            steps += [("resize", width, height), ("pause", 100), ("dump",)]
        for window in branded.run("/T", [*steps, *CLOSE]).windows("dump"):
            assert window.edit["rect"] == window.client

    def test_nothing_is_selected_and_the_first_line_is_seen(self, branded):
        step = branded.run("/T", [LOG, ("edit",), *CLOSE]).step("edit")
        assert (step["selectionStart"], step["selectionEnd"]) == (0, 0)
        assert step["firstVisibleLine"] == 0

    def test_long_text_is_shown_whole_and_at_once(self, world):
        entry = "HKCU\\Software\\" + "x" * 480
        lists = {f"DBRegList{n:02}": f"{entry}\\{n}" for n in range(1, 11)}
        lists |= {f"SysDBRegList{n:02}": f"{entry}\\{n}" for n in range(1, 11)}
        world.brand_with_access(**lists)
        run = world.run("/T", [LOG, *CLOSE])
        text = run.windows()[0].edit["text"]
        assert len(text) > 20_000
        for number in range(1, 11):
            assert text.count(f"Gespeicherter Wert: {entry}\\{number}\r\n") == 2
        assert text.endswith("\r\n[Profil]\r\nKein Profil eingestellt\r\n")

    def test_window_is_on_the_screen(self, branded):
        left, top, width, height = branded.log_window("/T").rect
        assert left >= 0 and top >= 0 and left + width <= 1280 and top + height <= 1024

    def test_window_is_not_kept_in_front_of_others(self, branded):
        (window,) = branded.run("/T", [LOG, *CLOSE]).windows()
        assert not window.exstyle & 0x8

    def test_end_entry_of_the_menu(self, branded, menu):
        branded.run("/T", [LOG, ("command", menu["&Beenden"]), ("gone",), ("exit",)])

    @pytest.mark.parametrize("closing", ["close", "titlebar"])
    def test_other_ways_to_close(self, branded, closing):
        branded.run("/T", [LOG, (closing,), ("gone",), ("exit",)])


class TestSaving:
    @pytest.fixture
    def save(self, branded, menu):
        """A function that saves with some steps in the dialog; returns the run."""

        def run(*steps, tail="/T"):
            start = [LOG, ("command", menu["&Speichern"]), DIALOG]
            return branded.run(tail, [*start, *steps, LOG, *CLOSE])

        return run

    def test_dialog_proposes_the_launchers_name(self, branded, save):
        run = save(("press", "id", "2"), ("gone",))
        dialog = run.windows()[1]
        assert dialog.title == "Diagnosetext speichern"
        names = [c["text"] for c in dialog.of_class("Edit") if c["id"] == int(NAME)]
        assert names == ["Start.err"]
        assert "Fehlerprotokolle (*.err)" in [c["text"] for c in dialog.of_class("ComboBox")]
        assert not branded.exists(r"\Prog\Start.err")

    def test_saved_file_is_the_windows_text_in_the_code_page(self, branded, save):
        run = save(("press", "id", "1"), ("gone",))
        text = run.windows()[0].edit["text"]
        assert '/cmd "äöüß €"' in text
        assert branded.read(r"\Prog\Start.err") == text.encode("cp1252")
        assert run.windows()[-1].edit["text"] == text

    def test_report_is_saved_without_a_line_break_at_its_end(self, branded, save):
        run = save(("press", "id", "1"), ("gone",), tail="/D")
        assert not branded.read(r"\Prog\Start.err").endswith(b"\n")
        assert branded.read(r"\Prog\Start.err") == run.windows()[0].edit["text"].encode("cp1252")

    def test_another_name_and_folder(self, branded, save):
        branded.unix(branded.path(r"\Ablage ü")).mkdir()
        target = branded.path(r"\Ablage ü\Fehler vom Müller.txt")
        save(("set", NAME, target), ("press", "id", "1"), ("gone",))
        assert branded.exists(r"\Ablage ü\Fehler vom Müller.txt")
        assert not branded.exists(r"\Prog\Start.err")

    def test_extension_is_added(self, branded, save):
        save(("set", NAME, "Bericht"), ("press", "id", "1"), ("gone",))
        assert branded.exists(r"\Prog\Bericht.err")

    @pytest.mark.parametrize("mode", [0o644, 0o444])
    def test_existing_file_is_replaced_whole_after_a_question(self, branded, save, mode):
        branded.write(r"\Prog\Start.err", b"alt" * 10_000)
        branded.unix(branded.path(r"\Prog\Start.err")).chmod(mode)
        run = save(("press", "id", "1"), QUESTION, ("press", "id", "6"), ("gone",))
        text = run.windows()[0].edit["text"]
        assert branded.read(r"\Prog\Start.err") == text.encode("cp1252")

    def test_existing_file_stays_when_the_answer_is_no(self, branded, save):
        branded.write(r"\Prog\Start.err", b"alt")
        no = [("press", "id", "1"), QUESTION, ("press", "id", "7"), ("gone",)]
        save(*no, DIALOG, ("press", "id", "2"), ("gone",))
        assert branded.read(r"\Prog\Start.err") == b"alt"

    def test_no_other_file_is_left(self, branded, save):
        before = set(branded.snapshot())
        save(("press", "id", "1"), ("gone",))
        assert set(branded.snapshot()) - before == {"Prog/Start.err"}

    @pytest.mark.parametrize("there", [False, True])
    def test_failing_save_is_told_in_the_window_and_harms_nothing(
        self, branded, save, request, there
    ):
        steps = [("press", "id", "1")]
        protected = [branded.unix(branded.path(r"\Prog"))]
        if there:
            branded.write(r"\Prog\Start.err", b"alt")
            steps += [QUESTION, ("press", "id", "6")]
            protected.insert(0, branded.unix(branded.path(r"\Prog\Start.err")))
        for path in protected:
            command = ["chattr", "+i", path]
            if subprocess.run(command, stderr=subprocess.DEVNULL, check=False).returncode:
                pytest.skip("this file system cannot keep root from writing")
            request.addfinalizer(lambda path=path: subprocess.run(["chattr", "-i", path]))
        run = save(*steps, ("gone",))
        notices = [control["text"] for control in run.windows()[-1].of_class("Static")]
        assert any(branded.path(r"\Prog\Start.err") in notice for notice in notices)
        if there:
            assert branded.read(r"\Prog\Start.err") == b"alt"
        else:
            assert not branded.exists(r"\Prog\Start.err")

    def test_name_outside_the_code_page_does_not_prevent_saving(self, world, menu):
        world.use("\\Prog\\数据 ä.exe")
        world.brand_with_access()
        steps = [LOG, ("command", menu["&Speichern"]), DIALOG, ("set", NAME, "Bericht.err")]
        world.run("/T", [*steps, ("press", "id", "1"), ("gone",), LOG, *CLOSE])
        assert world.exists(r"\Prog\Bericht.err")

    def test_details_can_be_saved(self, world, menu):
        world.brand(AccPath=world.path(r"\Nirgends"))
        steps = [
            ("window", "title=Tarvex"),
            ("press", "caption", "&Details"),
            LOG,
            ("command", menu["&Speichern"]),
            DIALOG,
            ("press", "id", "1"),
            ("gone",),
            LOG,
            *CLOSE,
        ]
        text = world.run("", steps).windows()[-1].edit["text"]
        assert world.read(r"\Prog\Start.err") == text.encode("cp1252")
