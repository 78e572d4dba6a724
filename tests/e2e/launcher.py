"""A world of its own for a launcher: a drive with folders, a stand-in for Access, registry keys.

Windows paths are texts with backslashes; `World.unix` gives the file that belongs to one.
"""

import contextlib
import fcntl
import json
import os
import pathlib
import re
import select
import shutil
import struct
import subprocess
import tempfile
import threading
import time

import pefile

import brandfile

PROJECT = "Tarvex"
LOG_WINDOW = f"{PROJECT} - Debug"
BOX_TEXT = (
    "Tarvex kann aufgrund eines unerwarteten Fehlers nicht ausgeführt werden.\r\n"
    "Klicken Sie auf <Details>, um erweiterte Fehlerinformationen anzuzeigen."
)
DETAILS_HEADING = "Tarvex - Erweiterte Fehlerinformationen:"
# Steps of the driver: a settled error box, not one seen before; a settled log window; the window of
# help/Kunden.chm; the end.
BOX = ("window", f"title={PROJECT}", "new=")
LOG = ("window", f"title={LOG_WINDOW}")
HELP = ("window", "title=Hilfe zur Kundenverwaltung")
END = [("gone",), ("exit",)]
GOLDEN = pathlib.Path(__file__).parent.parent / "golden"
SECONDS_FOR_A_RUN = 90
WIN64 = os.environ.get("WINEARCH") == "win64"  # the session is one of a 64-bit Windows


class Programs:
    """Where the programs under test and the tools are."""

    def __init__(self, environment):
        self.launcher = self._find(environment, "TARVEX_WIN32_DIST", "tarvex.exe")
        self.configurator = self._find(environment, "TARVEX_LINUX_DIST", "tarvexcf", needed=False)
        self.configurator_win32 = self._find(
            environment, "TARVEX_WIN32_DIST", "tarvexcf.com", needed=False
        )
        self.driver = Driver(self._find(environment, "TARVEX_E2E_BIN", "uidriver.exe"))
        self.access = self._find(
            environment, "TARVEX_E2E_BIN", "win64/msaccess.exe" if WIN64 else "msaccess.exe"
        )
        self.winhelp = self._find(environment, "TARVEX_E2E_BIN", "winhlp32.exe")
        self.planted = self._find(environment, "TARVEX_E2E_BIN", "planted.dll")
        self.watcher = self._find(environment, "TARVEX_E2E_BIN", "watcher.exe")
        self.window = self._find(
            environment, "TARVEX_WIN32_DIST", "tarvexcf.exe", needed=False
        )
        self.bare_dialog = self._find(environment, "TARVEX_E2E_BIN", "baredialog.exe")
        self.worlds = self._find(environment, "TARVEX_E2E_BIN", "worlds.exe")

    @staticmethod
    def _find(environment, variable, name, needed=True):
        folder = environment.get(variable)
        if folder is None:
            raise RuntimeError(f"{variable} must name the folder of {name}")
        path = pathlib.Path(folder) / name
        if needed and not path.is_file():
            raise RuntimeError(f"{path} is missing; build it first")
        return path


class Driver:
    """The window driver, kept running: starting it takes longer than most scripts."""

    def __init__(self, program):
        self._program = program
        self._process = None
        self._messages = tempfile.TemporaryFile("a+b")  # of Wine; what is started inherits it

    def run(self, script, report, keep=False):
        """Carries out one script; both are Windows paths. With `keep` the next one goes on with the
        program of this one."""
        if self._process is None or self._process.poll() is not None:
            self._process = subprocess.Popen(
                ["wine", str(self._program), "-"],
                stdin=subprocess.PIPE,
                stdout=subprocess.PIPE,
                stderr=self._messages,
                text=True,
            )
        self._messages.truncate(0)
        more = "\tkeep" if keep else ""
        print(f"{script}\t{report}{more}", file=self._process.stdin, flush=True)
        if not select.select([self._process.stdout], [], [], SECONDS_FOR_A_RUN)[0]:
            self._process.kill()
            raise TimeoutError(f"the driver did not answer within {SECONDS_FOR_A_RUN} seconds")
        self._process.stdout.readline()

    def messages(self):
        """What Wine wrote about the programs of the last script."""
        size = os.fstat(self._messages.fileno()).st_size
        return os.pread(self._messages.fileno(), size, 0).decode("utf-8", "replace").splitlines()

    def close(self):
        if self._process is not None:
            self._process.stdin.close()
            self._process.wait(SECONDS_FOR_A_RUN)


class Watcher:
    """The program that the user works with when the launcher starts: has the focus at first, and
    tells when its window is activated. What the X server holds for the active window is noted as
    well."""

    def __init__(self, program, folder):
        self._said = folder / "watcher"
        self._active = folder / "active"
        with open(self._said, "wb") as said, open(self._active, "wb") as active:
            self._program = subprocess.Popen(
                ["wine", str(program)],
                stdin=subprocess.PIPE,
                stdout=said,
                stderr=subprocess.DEVNULL,
            )
            self._spy = subprocess.Popen(
                ["xprop", "-spy", "-root", "_NET_ACTIVE_WINDOW"],
                stdin=subprocess.DEVNULL,
                stdout=active,
            )
        try:
            self._await_focus()
        except TimeoutError:
            self.close()
            raise

    def _await_focus(self):
        """The window manager gives the focus a moment after the window has appeared."""
        end = time.monotonic() + SECONDS_FOR_A_RUN
        while time.monotonic() < end:
            active = self.active_windows()[-1:]
            if len(self.events()) == 1 and active and owner_of(active[0]) == "watcher.exe":
                return
            time.sleep(0.02)
        raise TimeoutError("the watcher did not get the focus")

    def events(self):
        """("active" or "inactive", performance counter) in the order in which they happened."""
        said = re.findall(r"(\w+) (\d+)\r?\n", self._said.read_text("ascii"))
        return [(event, int(ticks)) for event, ticks in said]

    def active_windows(self):
        """Every window that was the X server's active one, in this order; none is left out."""
        noted = re.findall(r"(0x[0-9a-f]+)\n", self._active.read_text("ascii"))
        return [window for window in noted if window != "0x0"]

    def close(self):
        self._program.stdin.close()
        self._program.wait(SECONDS_FOR_A_RUN)
        self._spy.terminate()
        self._spy.wait(SECONDS_FOR_A_RUN)


def owner_of(window):
    """The program of one of the X server's windows, as Wine names it; empty when it has gone."""
    result = subprocess.run(
        ["xprop", "-id", window, "WM_CLASS"], capture_output=True, text=True, check=False
    )
    return result.stdout.rpartition('"')[0].rpartition('"')[2]


def wine(*arguments, timeout=SECONDS_FOR_A_RUN, check=True):
    """Runs a Windows program to its end; its output goes nowhere, because what it starts inherits
    it and would keep a pipe open."""
    return subprocess.run(
        ["wine", *map(str, arguments)],
        stdin=subprocess.DEVNULL,
        stdout=subprocess.DEVNULL,
        stderr=subprocess.DEVNULL,
        timeout=timeout,
        check=check,
    )


def wait_until(holds, seconds=30):
    end = time.monotonic() + seconds
    while not holds():
        assert time.monotonic() < end, f"waited {seconds} seconds in vain"
        time.sleep(0.005)


def golden(name, drive="C:"):
    """A text of tests/golden. The file has LF for CR LF and one line break after the text; its
    paths are on drive C:, for which the world's drive is put."""
    text = (GOLDEN / name).read_bytes().decode("utf-8")
    assert text.endswith("\n"), f"{name} does not end in a line break"
    return text[:-1].replace("\n", "\r\n").replace("C:\\", drive + "\\")


def lines(text):
    return text.split("\r\n")


def menu_commands(program):
    """The entries of a program's first menu, by their captions (without their keys) in the order of
    the file. Another process's menu cannot be read, and a command is all that choosing an entry
    sends."""
    image = pefile.PE(program)
    (menus,) = [e for e in image.DIRECTORY_ENTRY_RESOURCE.entries if e.id == 4]
    data = menus.directory.entries[0].directory.entries[0].data.struct
    template = image.get_data(data.OffsetToData, data.Size)
    place = 4 + struct.unpack_from("<H", template, 2)[0]
    commands = {}
    while place < len(template):
        (flags,) = struct.unpack_from("<H", template, place)
        place += 2
        command = None
        if not flags & 0x10:  # a popup has no command
            (command,) = struct.unpack_from("<H", template, place)
            place += 2
        end = place
        while template[end : end + 2] != b"\0\0":
            end += 2
        caption = template[place:end].decode("utf-16-le").partition("\t")[0]
        commands[caption] = command
        place = end + 2
    return commands


def windows_path(file):
    """How Windows programs name a file of this system."""
    return "Z:" + str(file).replace("/", "\\")


class Window:
    """What the driver saw of a window."""

    def __init__(self, report):
        self.title = report["title"]
        self.class_name = report["class"]
        self.style = report["style"]
        self.exstyle = report["exstyle"]
        self.foreground = report["foreground"]
        self.rect = report["rect"]
        self.client = report["client"]
        self.controls = report["controls"]

    def of_class(self, name):
        return [c for c in self.controls if c["class"].lower() == name.lower() and c["visible"]]

    @property
    def buttons(self):
        return [control["text"] for control in self.of_class("Button")]

    @property
    def edit(self):
        (edit,) = self.of_class("Edit")
        return edit

    @property
    def box_text(self):
        """The text of a message box."""
        (text,) = [c for c in self.of_class("Static") if c["id"] == 65535]
        return text["text"]


class Run:
    """The report of one run of the driver, and what Wine wrote about the program meanwhile."""

    def __init__(self, report, messages=()):
        self.report = report
        self.steps = report["steps"]
        self.ok = report["ok"]
        self.exit_code = report.get("exitCode")
        self.running = report.get("running")
        self._messages = messages

    @property
    def trace(self):
        """Wine's debug messages about the program itself, without numbers in front."""
        prefix = f"{self.step('start')['process']:04x}:"
        return [line.split(":", 2)[2] for line in self._messages if line.startswith(prefix)]

    def step(self, action, index=0):
        return [step for step in self.steps if step["action"] == action][index]

    def windows(self, action="window"):
        return [Window(step["window"]) for step in self.steps if step["action"] == action]

    def describe(self):
        failed = [step for step in self.steps if "failure" in step]
        return json.dumps(
            {"failed": failed, "windows": self.report.get("windows")}, ensure_ascii=False, indent=1
        )


def _escape(text):
    for character, escape in (("\\", "\\\\"), ("\n", "\\n"), ("\r", "\\r"), ("\t", "\\t")):
        text = text.replace(character, escape)
    return text


class World:
    """One drive, empty at the start, with the folders Prog (the launcher) and Office (Access)."""

    def __init__(self, programs, drive, folder, key, alone=False):
        self.alone = alone  # no other world shows windows while this one does
        self.programs = programs
        self.drive = drive
        self.folder = pathlib.Path(folder)
        self.key = key  # a registry key of the test's own, below Software
        self.work = self.folder.parent / (self.folder.name + "-work")
        self.exe = self.path(r"\Prog\Start.exe")
        self._registry_used = False
        self._has_screen = False
        for place in (self.folder, self.work):
            place.mkdir(parents=True)
        self.unix(self.path(r"\Prog")).mkdir()
        self.add_access(r"\Office")

    def path(self, rest):
        r"""The Windows path of `rest`, which begins with a backslash."""
        return self.drive + rest

    def unix(self, path):
        if path[:2].lower() != self.drive.lower():
            raise ValueError(f"{path} is not on drive {self.drive}")
        return self.folder.joinpath(*[part for part in path[2:].split("\\") if part])

    def golden(self, name):
        """The text with this world's drive and, for TESTKEY, its registry key."""
        return golden(name, self.drive).replace("TESTKEY", self.key)

    # Files

    def write(self, rest, content=b"x"):
        """Makes a file and its folders; returns its Windows path."""
        path = self.path(rest)
        file = self.unix(path)
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_bytes(content if isinstance(content, bytes) else content.encode("cp1252"))
        return path

    def read(self, rest):
        return self.unix(self.path(rest)).read_bytes()

    def exists(self, rest):
        return self.unix(self.path(rest)).exists()

    def add_access(self, rest):
        folder = self.unix(self.path(rest))
        folder.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(self.programs.access, folder / "msaccess.exe")

    def add_help(self):
        """Gives the launcher a help file with the topics 1000 and 1001."""
        file = self.unix(self.exe).with_suffix(".chm")
        shutil.copyfile(pathlib.Path(__file__).parent / "help" / "Kunden.chm", file)

    def snapshot(self):
        """Every file of the drive with its bytes."""
        return {
            str(file.relative_to(self.folder)): file.read_bytes()
            for file in self.folder.rglob("*")
            if file.is_file()
        }

    # The launcher

    def use(self, rest):
        """Names the launcher's file."""
        self.exe = self.path(rest)
        self.unix(self.exe).parent.mkdir(parents=True, exist_ok=True)

    def copy_unbranded(self):
        shutil.copyfile(self.programs.launcher, self.unix(self.exe))

    def brand(self, stored=None, **fields):
        """Brands a copy of the launcher with plain values; `stored` gives value areas as they are
        to stand in the file."""
        image = brandfile.BrandFile.read(self.programs.launcher)
        for name, value in fields.items():
            image.set_value(name, value)
        for name, text in (stored or {}).items():
            image.set_stored(name, text)
        image.set_branded()
        image.write(self.unix(self.exe))

    def brand_with_access(self, **fields):
        """As brand, with a way to Access that needs no registry."""
        fields.setdefault("AccPath", self.path(r"\Office"))
        self.brand(**fields)

    def drive_program(self, steps, line, application=None, environment=None, folder="", trace=""):
        """Lets the driver start a program and carry out steps, which are tuples of texts. `trace`
        names channels of Wine's debug messages, such as "+loaddll"."""
        if trace:
            environment = {"WINEDEBUG": "+pid," + trace, **(environment or {})}
        script = [("env", name, value) for name, value in (environment or {}).items()]
        script += [("folder", folder)] if folder else []
        script += [("start", self.exe if application is None else application, line), *steps]
        with self.screen(steps):
            report = self.carry_out(script)
        messages = self.programs.driver.messages() if trace else ()
        return Run(report, messages)

    def carry_out(self, script, keep=False):
        """Lets the driver carry out steps; returns its report."""
        text = "".join("\t".join(map(_escape, map(str, step))) + "\n" for step in script)
        (self.work / "script").write_text(text, encoding="utf-8")
        report = self.work / "report"
        report.unlink(missing_ok=True)
        self.programs.driver.run(windows_path(self.work / "script"), windows_path(report), keep)
        assert report.is_file(), "the driver wrote no report"
        return json.loads(report.read_text(encoding="utf-8"))

    @contextlib.contextmanager
    def screen(self, steps):
        """Windows of several worlds may be open side by side, but each new one comes to the
        foreground. It would take the keys that are meant for another, and an error box that is not
        the active window at once keeps the system's captions."""
        if self._has_screen:  # the test with its watcher
            yield
            return
        alone = self.alone or any(f"title={PROJECT}" in step for step in steps)
        with open(self.folder.parent / "screen.lock", "w", encoding="ascii") as lock:
            fcntl.flock(lock, fcntl.LOCK_EX if alone else fcntl.LOCK_SH)
            self._has_screen = True
            try:
                yield
            finally:
                self._has_screen = False

    @contextlib.contextmanager
    def watcher(self):
        """Another program with a window, which has the focus at the start; gives a Watcher."""
        with self.screen(()):
            watcher = Watcher(self.programs.watcher, self.work)
            try:
                yield watcher
            finally:
                watcher.close()

    def run(self, tail="", steps=(("exit",),), **options):
        """Starts the launcher with a command-line tail and carries out steps, all of which must
        succeed; the program must end with code 0."""
        line = options.pop("line", None)
        if line is None:
            line = f'"{self.exe}"' + (" " + tail if tail else "")
        run = self.drive_program(list(steps), line, **options)
        assert run.ok, run.describe()
        assert not run.running
        assert run.exit_code == 0
        return run

    def meanwhile(self, action, seconds=30):
        """Steps in whose place something happens outside the driver."""
        ready, done = self.work / "ready", self.work / "done"

        def wait():
            end = time.monotonic() + seconds
            while not ready.exists() and time.monotonic() < end:
                time.sleep(0.005)
            action()
            done.touch()

        threading.Thread(target=wait, daemon=True).start()
        return [("signal", windows_path(ready)), ("await", windows_path(done))]

    def log_window(self, tail="/T", before=(), **options):
        """Shows the log window, closes it and returns it as it was. Its content is complete when it
        shows."""
        steps = [*before, ("appear", f"title={LOG_WINDOW}"), ("close",), *END]
        return self.run(tail, steps, **options).windows("appear")[-1]

    def shown(self, tail="/T", **options):
        """The text of the log window."""
        return self.log_window(tail, **options).edit["text"]

    def error_box(self, tail="", **options):
        """Shows the error box, ends with it and returns it."""
        steps = [BOX, ("press", "caption", "&Beenden"), *END]
        return self.run(tail, steps, **options).windows()[-1]

    def details(self, tail="", **options):
        """The text that "&Details" of the error box shows."""
        shown = ("appear", f"title={LOG_WINDOW}")
        steps = [BOX, ("press", "caption", "&Details"), shown, ("close",), *END]
        return self.run(tail, steps, **options).windows("appear")[-1].edit["text"]

    def sections(self, tail="/T", **options):
        """The text of the test mode by its bracketed headings, as lists of lines; the empty lines
        that separate sections are left out. The composed line is under ""."""
        result = {"": []}
        current = result[""]
        for line in lines(self.shown(tail, **options)):
            if line.startswith("[") and line.endswith("]"):
                current = result[line[1:-1]] = []
            elif line:
                current.append(line)
        result[""] = result[""][1]
        return result

    def started(self, tail="", office=r"\Office", **options):
        """Starts Access for real; returns what the stand-in was started with."""
        record = self.unix(self.path(office + r"\msaccess.rec"))
        record.unlink(missing_ok=True)
        self.run(tail, [("exit",), ("drain",)], **options)
        return self.record(record)

    @staticmethod
    def record(file):
        """What the stand-in wrote: texts by their names, of which "arg" is a list."""
        assert file.is_file(), "Access was not started"
        entries = {}
        for line in file.read_bytes().decode("utf-8").split("\r\n"):
            name, _, value = line.partition("=")
            entries.setdefault(name, []).append(value)
        return {name: v if name == "arg" else v[-1] for name, v in entries.items() if name}

    def nothing_started(self, office=r"\Office"):
        return not self.exists(office + r"\msaccess.rec")

    def log(self, rest=r"\Prog\Start.log"):
        return self.read(rest).decode("cp1252")

    # The registry

    def registry(self, values, key=None):
        r"""Writes text values below HKCU\Software\<key of the test> or the key given, which begins
        with the root's long name. Other types are given as the text of a registry file."""
        self._registry_used = True
        if key is None:
            key = "HKEY_CURRENT_USER\\Software\\" + self.key
        rows = []
        for name, value in values.items():
            quoted = value.replace("\\", "\\\\").replace('"', '\\"')
            data = value if value.startswith(("dword:", "hex")) else f'"{quoted}"'
            rows.append(("@" if name == "" else f'"{name}"') + "=" + data)
        self._import([f"[{key}]", *rows])

    def remove_keys(self, *keys):
        self._import([f"[-{key}]" for key in keys])

    def _import(self, rows):
        text = "\r\n".join(["Windows Registry Editor Version 5.00", "", *rows, "", ""])
        file = self.work / "values.reg"
        # UTF-8 would be taken for the code page's bytes.
        file.write_bytes(b"\xff\xfe" + text.encode("utf-16-le"))
        wine("regedit", "/S", windows_path(file))

    def close(self):
        if self._registry_used:
            roots = ("HKEY_CURRENT_USER\\Software", "HKEY_LOCAL_MACHINE\\SOFTWARE")
            self.remove_keys(*(f"{root}\\{self.key}" for root in roots))
        for place in (self.folder, self.work):
            shutil.rmtree(place)


def make_world(programs, worker, alone=False):
    """A world for a worker of the test run; each has a drive of its own."""
    prefix = pathlib.Path(os.environ["WINEPREFIX"])
    number = int(worker.removeprefix("gw")) if worker.startswith("gw") else 0
    letter = "RSTUVWXYQPONMLK"[number]
    folder = prefix / "drive_c" / "e2e" / letter
    for place in (folder, folder.parent / (letter + "-work")):
        shutil.rmtree(place, ignore_errors=True)
    link = prefix / "dosdevices" / (letter.lower() + ":")
    link.unlink(missing_ok=True)
    link.symlink_to(folder)
    return World(programs, letter + ":", folder, f"TarvexTest{letter}", alone)
