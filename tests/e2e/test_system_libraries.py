"""The system's DLLs that the launcher loads: when, from where, and what keeps others out."""

import re
import shutil

import pytest

import launcher
import pictures
from launcher import BOX, END, HELP, LOG

# What Wine loads for every program with windows, before the program's first instruction.
AT_START = set(
    "kernelbase kernel32 msvcrt ucrtbase sechost advapi32 zlib1 version win32u user32 gdi32"
    " imm32".split()
)
# What Wine loads for a window when it needs it, in a way of its own that no setting changes. On
# Windows these follow the program's setting like all others.
BY_WINE = set("rpcrt4 combase ole32 msimg32".split())
# All that is loaded later, in whatever way the launcher is used.
LATER = set(
    "uxtheme comctl32 comdlg32 shell32 shcore shlwapi oleaut32 compstui winspool.drv winex11.drv"
    " hhctrl.ocx itss urlmon wininet ws2_32 mpr ieframe".split()
)
# The boxes that the system does not show: of missing disks and of files that cannot be opened.
QUIET = 0x8001
SESSION_MANAGER = r"HKLM\System\CurrentControlSet\Control\Session Manager"


def libraries(run):
    """The paths of all DLLs in the order in which the program loaded them."""
    found = [re.search(r'Loaded L"(.*)" at', line) for line in run.trace]
    paths = [match[1].replace("\\\\", "\\").lower() for match in found if match]
    return [path for path in paths if not path.endswith(".exe")]


def name(library):
    return library.rpartition("\\")[2].removesuffix(".dll")


@pytest.fixture
def shown(world):
    """A function that shows something of the launcher in the way of that name; returns the run."""
    menu = launcher.menu_commands(world.programs.launcher)
    dialog = ("window", "class=#32770", "has=1148")
    message = ("window", "class=#32770")
    picture = [("appear", "class=frmStart"), ("gone",)]
    save = [("command", menu["&Speichern"]), dialog, ("press", "id", "1"), ("gone",)]
    ways = {
        "nothing": ("", [("exit",), ("drain",)]),
        "picture": ("", [*picture, ("exit",), ("drain",)]),
        "picture and log": ("/T", [*picture, LOG, ("close",), *END]),
        "report and dialog": ("/D", [LOG, *save, LOG, ("close",), *END]),
        "box and help": ("", [BOX, ("press", "caption", "&Hilfe"), ("gone",), HELP]
                         + [BOX, ("press", "caption", "&Beenden"), *END]),
        "message": ("/D", [message, ("close",), *END]),
    }  # fmt: skip

    def show(way, **options):
        fields = {}
        if "picture" in way:
            world.write(r"\Prog\Bild.bmp", pictures.bitmap(200, 100))
            fields = {"PicFilename": "Bild.bmp", "PicDelay": "300"}
        elif "help" in way:
            world.add_help()
            fields = {"HCID": "1000", "AccPath": world.path(r"\Nirgends")}
        elif way == "message":
            fields = {"EditPwd": "geheim"}
        world.brand_with_access(**fields)
        tail, steps = ways[way]
        return world.run(tail, steps, **options)

    return show


class TestPlanted:
    """DLLs that somebody has put where a name alone may be looked for before the system's folder."""

    @pytest.fixture
    def plant(self, world):
        r"""A function that puts DLLs of those names into a folder. The launcher is \Prog\Planted.exe
        then, for which Wine does not prefer its own DLLs as it usually does."""
        world.use(f"\\Prog\\Planted{world.drive[0]}.exe")
        program = world.exe.rpartition("\\")[2]
        key = f"HKEY_CURRENT_USER\\Software\\Wine\\AppDefaults\\{program}"

        def put(folder, names):
            for library in names:
                file = library if "." in library else library + ".dll"
                world.write(f"{folder}\\{file}", world.programs.planted.read_bytes())
            overrides = {"*" + library: "native,builtin" for library in names}
            world.registry(overrides, key + "\\DllOverrides")

        yield put
        world.remove_keys(key)

    @pytest.fixture
    def searched_current_folder(self):
        """The current folder is looked into before the system's, as older systems do."""
        value = (SESSION_MANAGER, "/v", "SafeDllSearchMode")
        launcher.wine("reg", "add", *value, "/t", "REG_DWORD", "/d", "0", "/f")
        yield
        launcher.wine("reg", "delete", *value, "/f")

    @staticmethod
    def traces(world):
        """What became of planted DLLs, by their names, without what Wine itself does with
        version.dll before the program's first instruction."""
        found = {
            file.name.removesuffix(".trace").removesuffix(".dll"): file.read_text().splitlines()
            for file in world.folder.rglob("*.trace")
        }
        by_wine = {"start", "GetFileVersionInfoSizeW"}
        if by_wine.issuperset(found.get("version", ())):
            found.pop("version", None)
        return found

    @staticmethod
    def check(world, shown, way, names, folder=""):
        run = shown(way, folder=folder, trace="+loaddll")
        assert TestPlanted.traces(world) == {}
        # A DLL that is not planted here proves nothing.
        assert set(map(name, libraries(run))) - AT_START - BY_WINE - names == set()

    WINDOWS = ["picture and log", "report and dialog", "box and help", "message"]

    @pytest.mark.parametrize("way", ["nothing", *WINDOWS])
    def test_beside_the_program_is_not_loaded(self, world, plant, shown, way):
        names = LATER | {"version"}
        plant(r"\Prog", names)
        self.check(world, shown, way, names)

    # Only with windows: the stand-in for Access has the same current folder and is not protected.
    @pytest.mark.parametrize("way", WINDOWS)
    def test_in_the_current_folder_is_not_loaded(
        self, world, plant, shown, way, searched_current_folder
    ):
        names = LATER | {"version"}
        plant(r"\Hier", names)
        self.check(world, shown, way, names, world.path(r"\Hier"))

    def test_for_the_picture_is_not_loaded(self, world, plant, shown):
        # The picture needs these before its window is there, and so before Wine does.
        names = LATER | BY_WINE
        plant(r"\Prog", names)
        self.check(world, shown, "picture", names)

    def test_is_loaded_where_nothing_keeps_it_out(self, world, plant):
        """So that the tests above can fail."""
        plant(r"\Prog", {"uxtheme"})
        shutil.copyfile(world.programs.winhelp, world.unix(world.exe))  # has a window
        steps = [("await", world.exe.replace(".exe", ".rec"))]
        run = world.drive_program(steps, f'"{world.exe}"', trace="+loaddll")
        assert run.ok, run.describe()
        assert world.path(r"\Prog\uxtheme.dll").lower() in libraries(run)
        assert self.traces(world) == {"uxtheme": ["load"]}


class TestCommonControls:
    @pytest.mark.parametrize("way", ["nothing", "picture"])
    def test_are_not_loaded_for_a_start_without_them(self, shown, way):
        loaded = libraries(shown(way, trace="+loaddll"))
        assert "user32" in map(name, loaded)
        assert "comctl32" not in map(name, loaded)

    @pytest.mark.parametrize("way", ["box and help", "message", "report and dialog"])
    def test_are_ready_before_the_first_box_or_control(self, shown, way):
        run = shown(way, trace="+loaddll,+commctrl,+dialog,+edit")
        # The version that the manifest asks for does not lie in the system folder.
        (loaded,) = [path for path in libraries(run) if name(path) == "comctl32"]
        assert "\\winsxs\\x86_microsoft.windows.common-controls_" in loaded

        def first(*pieces):
            return next(i for i, line in enumerate(run.trace) if any(p in line for p in pieces))

        prepared = first("InitCommonControlsEx 0x4000")  # the classes of boxes and controls
        assert first("comctl32.dll") < prepared < first("trace:dialog:", "trace:edit:")


class TestErrorMode:
    def test_system_shows_no_boxes_of_its_own(self, world, shown):
        world.write(r"\Prog\Bild.bmp", pictures.bitmap(200, 100))
        world.brand_with_access(PicFilename="Bild.bmp", PicDelay="300")
        steps = [("appear",), ("errormode",), ("gone",), ("exit",), ("drain",)]
        assert world.run("", steps).step("errormode")["mode"] == QUIET

    def test_it_holds_until_the_end(self, shown, world):
        world.brand(AccPath=world.path(r"\Nirgends"))
        steps = [BOX, ("errormode",), ("press", "caption", "&Beenden"), *END]
        assert world.run("", steps).step("errormode")["mode"] == QUIET

    def test_started_program_has_the_systems(self, world):
        world.brand_with_access()
        assert world.started()["errorMode"] == "0"
