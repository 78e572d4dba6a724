"""The configurator's window, driven step by step: every call is carried out before it returns."""

import contextlib
import json
import pathlib
import re
import time

import launcher
from check_image import FIELDS

MENU = pathlib.Path(__file__).parents[2] / "window" / "main" / "Menu.h"
_names = re.search(r"enum class Command \{(.*?)\};", MENU.read_text("utf-8"), re.DOTALL)[1]
_names = re.findall(r"\w+", re.sub(r"///?<?.*", "", _names))
COMMANDS = {name: 100 + number for number, name in enumerate(_names)}

# Controls of the main window.
PC, LINE, TEXT, FINDINGS, FINDINGS_BUTTON, PAGES, SEARCH, HITS, STATUS = range(401, 410)
KEPT = r"HKEY_CURRENT_USER\Software\Tarvex\Konfiguration"  # what the window keeps
MAIN = "class=TarvexMain"
DIALOG = "class=TarvexDialog"
SYSTEM_DIALOG = "class=#32770"
FILE_NAME = 1148  # in the system's file dialogs
OK, CANCEL = 1, 2
# Parts of a form's row.
CONTROL, LABEL, NAME, HINT, NOTE, ICON, REVEAL = range(7)

NUMBERS = {name: number for number, (_, name) in FIELDS.items()}
PROGRAM_FIELDS = (
    "IconFile FileDescription CompanyName ProductName FileVersion ProductVersion LegalCopyright "
    "LegalTrademarks InternalName OriginalFilename Comments"
).split()
NUMBERS |= {name: 1001 + index for index, name in enumerate(PROGRAM_FIELDS)}


def row(number, part=CONTROL):
    """Id of a control of a form; the row is named by its number or by the field that it edits."""
    return part * 100_000 + 10_000 + NUMBERS.get(number, number)


class ConfigWindow:
    """A running window. Calls are about the current window: at first the main one, then what `at`
    was called for."""

    def __init__(self, world, *arguments, program=None):
        self.world = world
        self._program = launcher.windows_path(program or world.programs.window)
        line = " ".join(f'"{part}"' for part in (self._program, *arguments))
        self._start = [("start", self._program, line), ("appear", MAIN), ("idle",)]
        self._stack = contextlib.ExitStack()
        self.exit_code = None

    def __enter__(self):
        self._stack.enter_context(self.world.screen(()))
        try:
            self.do(*self._start)
        except AssertionError:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        self.world.carry_out([])  # ends whatever still runs
        self._stack.close()

    def do(self, *steps):
        """Carries out steps of the driver; returns the report of the last one."""
        run = launcher.Run(self.world.carry_out(steps, keep=True))
        assert run.ok, self._describe(run)
        self.exit_code = run.exit_code
        return run.steps[-1] if run.steps else None

    @staticmethod
    def _describe(run):
        """What failed, and what the user sees: forms have hundreds of controls."""
        failed = [step for step in run.steps if "failure" in step]
        shown = {
            window["title"]: [c["text"] for c in window["controls"] if c["visible"] and c["text"]]
            for window in run.report.get("windows", ())
        }
        return json.dumps({"failed": failed, "windows": shown}, ensure_ascii=False)

    # Windows

    def at(self, *conditions):
        """Waits for a window and makes it the current one; returns what it is like."""
        return launcher.Window(self.do(("appear", *conditions))["window"])

    def main(self):
        return self.at(MAIN)

    def dialog(self, title=None):
        return self.at(DIALOG, *([] if title is None else [f"title={title}"]))

    def seen(self):
        """The current window with all its controls."""
        return launcher.Window(self.do(("dump",))["window"])

    def gone(self):
        """Waits until the current window has closed."""
        self.do(("gone",))

    def close(self):
        """Closes the current window by its close box and goes on."""
        self.do(("titlebar",))

    def ended(self):
        """Waits for the end of the program."""
        self.do(("gone",), ("exit",))
        return self.exit_code

    def question(self):
        """The text of the question that is open, which becomes the current window."""
        box = self.dialog()
        text = "\n".join(c["text"] for c in box.of_class("Static") if c["text"])
        return text.replace("\r\n", "\n")

    def answer(self, caption):
        """Presses a button of a question."""
        self.do(("press", "caption", caption), ("gone",))

    # Controls

    def read(self, number, part=CONTROL):
        return self.do(("read", row(number, part)))

    def text(self, number, part=CONTROL):
        return self.read(number, part)["text"]

    def message(self, number):
        """What stands below a row: its hint, or what is wrong."""
        return self.text(number, HINT)

    def room(self, number):
        return self.text(number, NOTE)

    def enter(self, number, text):
        self.do(("set", row(number), text))

    def push(self, number):
        """Clicks a check box, an option or a button of a form."""
        self.do(("push", row(number)))

    def select(self, number, line):
        self.do(("select", row(number), line))

    def items(self, number):
        return self.read(number)["items"]

    def press(self, button):
        """OK or CANCEL of a dialog."""
        self.do(("push", button))

    # The main window

    def choose(self, command):
        """A menu entry, by the name of its command."""
        self.do(("choose", COMMANDS[command]))

    def page(self, title):
        """Shows a page."""
        titles = [item[0].removesuffix(" (!)") for item in self.do(("read", PAGES))["items"]]
        self.do(("select", PAGES, titles.index(title)))

    def marked_pages(self):
        items = [item[0] for item in self.do(("read", PAGES))["items"]]
        return [item.removesuffix(" (!)") for item in items if item.endswith(" (!)")]

    def status(self):
        return self.do(("read", STATUS))["text"]

    def preview(self):
        """The whole text of the preview; waits until it is that of the settings as they stand."""
        self.wait(lambda: self.do(("read", TEXT))["enabled"])
        return self.do(("read", TEXT))["text"]

    def file_dialog(self, path):
        """Names a file in the system's dialog that is open."""
        self.at(SYSTEM_DIALOG, f"has={FILE_NAME}")
        self.do(("set", FILE_NAME, path), ("press", "id", OK), ("gone",))

    def save(self):
        self.main()
        self.choose("Save")

    @staticmethod
    def wait(holds, seconds=15):
        end = time.monotonic() + seconds
        while not holds():
            assert time.monotonic() < end, f"waited {seconds} seconds in vain"
            time.sleep(0.02)
