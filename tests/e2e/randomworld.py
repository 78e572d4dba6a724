"""The worlds that the property tests draw, made real on a world's drive and described for
`tarvexcf simulate`."""

import fcntl
import json
import ntpath
import random
import re
import subprocess

import configurator
import launcher

ROOTS = {
    "HKLM": "HKEY_LOCAL_MACHINE",
    "HKCU": "HKEY_CURRENT_USER",
    "HKU": "HKEY_USERS",
    "HKCR": "HKEY_CLASSES_ROOT",
}
# The keys that the generator chooses from; here they stand below a key of the test's own.
KEYS = re.compile(r"(SOFTWARE\\Firma|Software\\Ä|A\\B\\C)(?=\\|$)", re.IGNORECASE)
OFFICE = r"HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\Office"
NAME_CHARACTERS = re.compile(r'^[^:*?"<>|/]*[^:*?"<>|/. ]$')


class Drawing:
    """One world as it was drawn; see worlds/main.cpp."""

    def __init__(self, seed):
        self.seed = seed
        self.folder = self.name = ""
        self.settings = {}
        self.registry = []  # (key, name, kind, text)
        self.files = []


def draw(generator, first, count, folder):
    """Worlds of consecutive seeds."""
    file = folder / "drawn"
    launcher.wine(generator, first, count, launcher.windows_path(file))
    drawings = []
    for line in file.read_text(encoding="utf-8").split("\n")[:-1]:
        kind, *parts = line.split("\t")
        if kind == "world":
            drawings.append(Drawing(int(parts[0])))
        elif kind == "program":
            drawings[-1].folder, drawings[-1].name = parts
        elif kind == "set":
            drawings[-1].settings[parts[0]] = parts[1]
        elif kind == "registry":
            drawings[-1].registry.append(parts)
        else:
            drawings[-1].files.append(parts[0])
    assert len(drawings) == count
    return drawings


def hold_office_keys(world, changes):
    """All worlds have the keys of Office in common: while one changes them, no other is looked at.
    To be closed at the end."""
    lock = open(world.folder.parent / "office.lock", "w", encoding="ascii")
    fcntl.flock(lock, fcntl.LOCK_EX if changes else fcntl.LOCK_SH)
    return lock


class RandomWorld:
    """A drawing on a world's drive, with registry keys of the test's own."""

    def __init__(self, world, drawing):
        self.world = world
        has_office = any("\\Microsoft\\Office\\" in key for key, *_ in drawing.registry)
        self._lock = hold_office_keys(world, has_office)
        self._native = configurator.Native()
        self._source = random.Random(drawing.seed)
        self._described = world.work / "pc"
        self._described.mkdir(exist_ok=True)
        # The server of the generator does not exist; its folder does.
        folder = self._here(drawing.folder.replace("\\\\srv\\freig", "C:\\srv"))
        self.program = ntpath.join(folder, drawing.name + ".exe")
        self._folder = folder
        self._files = [world.path(r"\Office\msaccess.exe")]
        world.use(self.program[2:])
        world.brand(**{name: self._here(value) for name, value in drawing.settings.items()})
        for path in map(self._here, drawing.files):
            self._make(path)
        self._keys = self._import(drawing)
        self._make_more_files()

    def _here(self, text):
        """A drawn text for the world's drive and key."""
        text = re.sub(r"(?<![A-Za-z])[CDE]:", self.world.drive, text)
        return KEYS.sub(lambda key: "Software\\" + self.world.key + "\\" + key[1], text)

    def _make(self, path):
        """Makes a file, if there can be one of that name."""
        if path.startswith("\\\\"):
            return
        full = ntpath.normpath(ntpath.join(self._folder, path))
        drive, rest = ntpath.splitdrive(full)
        parts = [part for part in rest.split("\\") if part]
        if drive != self.world.drive or not all(map(NAME_CHARACTERS.match, parts)):
            return
        place = self.world.unix(full)
        # Names differ in more than case: there is no second file beside one.
        if any(one.is_file() for one in place.parents) or place.exists():
            return
        self.world.write(rest)
        self._files.append(full)

    def _import(self, drawing):
        rows = []
        keys = []
        for key, name, kind, text in drawing.registry:
            root, _, rest = self._here(key).partition("\\")
            key = ROOTS[root] + "\\" + rest
            if not keys or keys[-1] != key:
                rows += ["", f"[{key}]"]
                keys.append(key)
            text = self._here(text)
            quoted = text.replace("\\", "\\\\").replace('"', '\\"')
            # Wine's regedit closes a text that the file leaves open.
            data = "dword:00000001" if kind == "other" else f'"{quoted}"'
            rows.append((f'"{name}"' if name else "@") + "=" + data)
        text = "\r\n".join(["Windows Registry Editor Version 5.00", *rows, "", ""])
        file = self._described / "pc.reg"
        file.write_bytes(b"\xff\xfe" + text.encode("utf-16-le"))
        launcher.wine("regedit", "/S", launcher.windows_path(file))
        return keys

    def _make_more_files(self):
        """Two of three files that the launcher would look for, so that it gets further."""
        for _ in range(4):
            missing = [
                one
                for one in self.simulate(self.describe(complete=False))["undescribed"]
                if one[:2] == self.world.drive
            ]
            for path in missing:
                if self._source.random() < 0.66:
                    self._make(path)

    def describe(self, complete=True):
        """Writes the description; what is not in it is not there, or with `complete` off not
        known."""
        lines = [
            "[PC]",
            f"Startprogramm = {self.program}",
            f"Bit = {64 if launcher.WIN64 else 32}",
            f"Registrierung{'32' if launcher.WIN64 else ''} = pc.reg",
            *(f"Datei = {path}" for path in self._files),
        ]
        if complete:
            lines.append("Vollständig = *")
        file = self._described / "pc.pc"
        file.write_text("\n".join(lines) + "\n", encoding="utf-8")
        return file

    def simulate(self, description):
        """What the configurator says of the launcher on a described computer."""
        exe = self.world.unix(self.program)
        result = self._native.run(self.world.work, "simulate", exe, description, "--json")
        assert result.code in (0, 1) and not result.err, result
        (pc,) = json.loads(result.out)["pcs"]
        return pc

    def shown(self):
        """The text of the real log window; the launcher's folder is the current one."""
        return self.world.shown("/T", folder=self._folder)

    def collect(self):
        """Describes the world with the Windows program; returns the description."""
        folder = self.world.work / "collected"
        folder.mkdir()
        command = ["wine", self.world.programs.configurator_win32, "collect"]
        subprocess.run(
            [*command, self.program, launcher.windows_path(folder)],
            stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
            timeout=launcher.SECONDS_FOR_A_RUN,
            check=True,
        )
        (description,) = folder.glob("*.pc")
        return description

    def close(self):
        """Removes the registry keys."""
        tops = {key.partition("\\" + self.world.key)[0] + "\\" + self.world.key
                for key in self._keys if self.world.key in key}
        self.world.remove_keys(*tops, *(key for key in self._keys if key.startswith(OFFICE)))
        self._lock.close()
