"""Real keys and mouse clicks. They go to the foreground window, so these tests take turns."""

import pytest

import pictures
from launcher import BOX, END, LOG

pytestmark = pytest.mark.xdist_group("foreground")

# The window manager gives a new window the focus a moment after it has appeared.
FOCUS = [("pause", 1000), ("foreground",)]


@pytest.fixture
def failing(world):
    world.brand(AccPath=world.path(r"\Nirgends"))
    return world


@pytest.fixture
def branded(world):
    world.brand_with_access(Profile="Büro ß €")
    return world


class TestErrorBox:
    def test_box_comes_to_the_foreground(self, failing):
        run = failing.run("", [BOX, *FOCUS, ("keys", "Alt+B"), *END])
        assert run.step("foreground")["ofProgram"]

    @pytest.mark.parametrize("keys", ["Alt+B", "b", "Enter", "Space", "Esc", "Alt+F4"])
    def test_keys_that_end(self, failing, keys):
        failing.run("", [BOX, ("keys", keys), *END])

    @pytest.mark.parametrize("keys", ["Alt+D", "d", "Right Enter", "Tab Space"])
    def test_keys_that_show_the_details(self, failing, keys):
        failing.run("", [BOX, ("keys", keys), LOG, ("close",), *END])

    @pytest.mark.parametrize("keys", ["Alt+H", "h", "Esc", "Alt+F4"])
    def test_keys_that_ask_for_help(self, failing, keys):
        failing.write(r"\Prog\Start.chm", b"no help file")
        failing.brand(AccPath=failing.path(r"\Nirgends"), HCID="1")
        steps = [BOX, ("keys", keys), ("gone",), ("window", "new="), ("keys", "Enter"), ("gone",)]
        steps += [BOX, ("keys", "Alt+B"), *END]
        windows = failing.run("", steps).windows()
        assert windows[1].buttons == ["OK"]
        assert windows[2].buttons == ["&Beenden", "&Details", "&Hilfe"]


class TestLogWindow:
    def test_window_comes_to_the_foreground(self, branded):
        run = branded.run("/T", [LOG, *FOCUS, ("keys", "Esc"), *END])
        assert run.step("foreground")["ofProgram"]

    @pytest.mark.parametrize("keys", ["Esc", "Alt+F4", "Alt+D b"])
    def test_keys_that_close(self, branded, keys):
        branded.run("/T", [LOG, ("keys", keys), *END])

    @pytest.mark.parametrize("keys", ["Ctrl+S", "Alt+D s"])
    def test_keys_that_save(self, branded, keys):
        steps = [LOG, ("keys", keys), ("window", "class=#32770", "has=1148"), ("keys", "Esc")]
        branded.run("/T", [*steps, ("gone",), LOG, ("keys", "Esc"), *END])
        assert not branded.exists(r"\Prog\Start.err")

    def test_saving_with_the_keyboard_alone(self, branded):
        steps = [LOG, ("keys", "Ctrl+S"), ("window", "class=#32770", "has=1148")]
        steps += [("keys", "Enter"), ("gone",), LOG, ("keys", "Esc"), *END]
        text = branded.run("/T", steps).windows()[0].edit["text"]
        assert branded.read(r"\Prog\Start.err") == text.encode("cp1252")

    def test_whole_text_is_copied(self, branded):
        steps = [LOG, ("keys", "Ctrl+A"), ("keys", "Ctrl+C"), ("pause", 100), ("clipboard",)]
        run = branded.run("/T", [*steps, ("keys", "Esc"), *END])
        assert "Büro ß €" in run.step("clipboard")["text"]
        assert run.step("clipboard")["text"] == run.windows()[0].edit["text"]

    def test_text_cannot_be_changed(self, branded):
        steps = [LOG, ("type", "xyz"), ("keys", "Delete"), ("pause", 100), ("dump",)]
        run = branded.run("/T", [*steps, ("keys", "Esc"), *END])
        assert run.windows("dump")[0].edit["text"] == run.windows()[0].edit["text"]

    def test_keys_scroll(self, branded):
        steps = [LOG, ("resize", 400, 200), ("keys", "Ctrl+End"), ("pause", 100), ("edit",)]
        run = branded.run("/T", [*steps, ("keys", "Esc"), *END])
        assert run.step("edit")["firstVisibleLine"] > 0


class TestPicture:
    def test_click_does_not_close_it_but_alt_f4_does(self, world):
        world.write(r"\Prog\Bild.bmp", pictures.bitmap(200, 100))
        world.brand_with_access(PicFilename="Bild.bmp", PicDelay="9999")
        steps = [("appear",), ("pause", 200), ("click", 100, 50), ("pause", 300), ("dump",)]
        steps += [("keys", "Alt+F4"), ("gone",), ("exit",), ("drain",)]
        run = world.run("", steps)
        assert run.step("gone")["us"] < 6_000_000
        assert world.exists(r"\Office\msaccess.rec")

    def test_picture_is_in_the_foreground(self, world):
        world.write(r"\Prog\Bild.bmp", pictures.bitmap(200, 100))
        world.brand_with_access(PicFilename="Bild.bmp", PicDelay="600")
        steps = [("appear",), ("pause", 200), ("foreground",), ("dump",), ("gone",)]
        run = world.run("", [*steps, ("exit",), ("drain",)])
        assert run.step("foreground")["ofProgram"]
        # It does not stay above the windows that come after it.
        assert not run.windows("dump")[0].exstyle & 0x8


def test_password_message_ends_with_escape(world):
    world.brand_with_access(EditPwd="geheim")
    world.run("/D", [("window", "class=#32770"), ("keys", "Esc"), *END])
