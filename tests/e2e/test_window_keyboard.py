"""The configurator's window without a mouse: real keys, which go wherever the focus is."""

import pytest

import configurator
from configwindow import PAGES, PC, SEARCH, ConfigWindow, row
from test_simulation import SAMPLES, assert_same
from test_window_fields import second

pytestmark = pytest.mark.xdist_group("foreground")

SETTINGS = SAMPLES / "kunden" / "Kunden.ini"
DRY_RUN_TEXT = 100  # a row of its dialog
ACCESS_LIST = 6000
KNOWN_PLACES = 12  # entries of the list that a new launcher begins with


def keys(*pressed):
    return [("keys", " ".join(pressed))]


def text(typed):
    """Types a text of one or several lines."""
    steps = []
    for number, line in enumerate(typed.split("\n")):
        steps += [*(keys("Enter") if number else []), ("type", line)]
    return steps


def dialog(*steps):
    """A dialog that has come, what is done in it, and its end."""
    return [("appear", "class=TarvexDialog"), *steps, ("gone",), ("appear", "class=TarvexMain")]


def entry(root, key, value, *more):
    """A new entry of the key list that has the focus. HKLM is what the dialog begins with."""
    choice = keys("Alt+H", "Down") if root == "HKCU" else []
    steps = [*choice, *keys("Alt+S"), *text(key), *keys("Alt+W"), *text(value)]
    for access_key, typed in more:
        steps += [*keys(access_key), *text(typed)]
    return [*keys("Insert"), *dialog(*steps, *keys("Enter"))]


DATA = [("Alt+U", "Daten"), ("Alt+D", "Kunden.mdb")]

# What a new user presses, page by page, from the start page to the saved file and its dry run.
SAMPLE_STEPS = {
    "Neu": lambda folder: [
        *keys("Ctrl+N"),
        *dialog(*text("Kunden"), *keys("Alt+O"), *text(folder), *keys("Enter")),
    ],
    "Anwendung": [
        *text("Kundenverwaltung"),
        *keys("Alt+K"),
        *text("KD-2004-1"),
    ],
    "Access": [
        *keys("Ctrl+PageDown", "Alt+I", *["Delete"] * KNOWN_PLACES),
        *entry("HKCU", r"SOFTWARE\Muster\Kunden", "AccessPfad"),
        *entry("HKLM", r"SOFTWARE\Muster\Kunden", "AccessPfad"),
        *entry("HKLM", r"SOFTWARE\Microsoft\Office\11.0\Access\InstallRoot", "Path"),
    ],
    "Datenbank": [
        *keys("Ctrl+PageDown", "Alt+S", "Alt+I"),
        *entry("HKCU", r"SOFTWARE\Muster\Kunden", "Installationspfad", *DATA),
        *entry("HKLM", r"SOFTWARE\Muster\Kunden", "Installationspfad", *DATA),
    ],
    "Arbeitsgruppe": [
        *keys("Ctrl+PageDown", "Alt+F", "Alt+N"),
        *text("Daten"),
        *keys("Alt+E"),
        *text("System.mdw"),
        *keys("Alt+L"),
        *text("Sachbearbeiter"),
        *keys("Alt+K"),
        *text("Kiefer/7;grün"),
    ],
    "Startoptionen": [
        *keys("Ctrl+PageDown", "Alt+L", "Alt+F"),
        *text("Mandant 1"),
    ],
    "Startbild": [
        *keys("Ctrl+PageDown", "Alt+P", "Alt+M"),
        *text("Start.bmp"),
        *keys("Alt+L"),
        *text("1500"),
    ],
    "Fehlermeldungen": [
        *keys("Ctrl+PageDown", "Alt+F"),
        *text(
            "Bitte wenden Sie sich an Ihre EDV-Abteilung:\n"
            "Telefon 0711 / 12 34 56, Muster & Söhne GmbH"
        ),
        *keys("Alt+E"),
        *text("Bitte senden Sie diesen Text an support@muster-soehne.example."),
    ],
    "Diagnose": [
        *keys("Ctrl+PageDown", "Alt+P", "Alt+K"),
        *text("Diagnose"),
    ],
    "Speichern": keys("Ctrl+S"),
}


def test_new_user_makes_the_samples_launcher_with_keys_alone(world):
    folder = world.unix(world.path(r"\Prog"))
    with ConfigWindow(world) as window:
        for steps in SAMPLE_STEPS.values():
            window.do(*(steps(world.path(r"\Prog")) if callable(steps) else steps))
        window.wait(lambda: window.status() == "Kunden.exe ist gespeichert.")
        assert window.main().title == "Kunden.exe – Tarvex-Konfiguration"
        window.do(*keys("F8"))
        window.dialog("Probelauf von Kunden.exe auf diesem PC")
        dry_run = window.text(DRY_RUN_TEXT)
        window.do(*keys("Esc"), ("gone",))
        window.main()
        window.do(*keys("Alt+F4"))
        assert window.ended() == 0
    world.use(r"\Prog\Kunden.exe")
    assert_same(dry_run, world.shown())

    native = configurator.Native()
    settings = folder / "Kunden.ini"
    lines = SETTINGS.read_text("utf-8").splitlines(keepends=True)
    same = "".join(line for line in lines if not line.startswith("NoStartup"))
    settings.write_text(same, encoding="utf-8")
    made = ("brand", world.programs.launcher, "Verglichen.exe", "--settings", "Kunden.ini")
    result = native.run(folder, *made)
    assert result.code == 0, result
    result = native.run(folder, "diff", "Kunden.exe", SETTINGS)
    # What the sample says in words, the box without a mark says, too.
    assert (result.code, result.out) == (1, "+ NoStartup = 0\n")
    assert world.read(r"\Prog\Kunden.exe") == world.read(r"\Prog\Verglichen.exe")


@pytest.fixture
def window(world):
    world.brand_with_access(AppName="Alt", Cmd="Mandant 1", DBFilename="fehlt.mdb")
    with ConfigWindow(world, world.exe) as window:
        yield window


def focus(window):
    return window.do(("focus",))["id"]


def goes_to(window, place):
    window.wait(lambda: focus(window) == place)


def test_f6_goes_round_the_areas_and_back(window):
    page = row("AppName")
    goes_to(window, page)
    for key, places in {"F6": [PC, PAGES, page], "Shift+F6": [PAGES, PC, page]}.items():
        for place in places:
            window.do(*keys(key))
            goes_to(window, place)


def test_ctrl_f_finds_a_setting_and_goes_there(window):
    window.do(*keys("Ctrl+F"))
    goes_to(window, SEARCH)
    window.do(*text("ErrDebugText"), *keys("Enter"))
    goes_to(window, row("ErrDebugText"))
    window.do(*keys("Ctrl+F"), *text("Mandant"), *keys("Enter"))
    goes_to(window, row("Cmd"))


def test_ctrl_z_takes_back_what_was_typed_in_the_field_alone(window):
    window.do(*keys("Alt+N", "End"), *text(" und neu"))
    window.do(*keys("Alt+K"), *text("KD-1"))
    window.wait(lambda: window.text("FileID") == "KD-1")
    window.do(*keys("Ctrl+Z"))
    window.wait(lambda: window.text("FileID") == "")
    assert window.text("AppName") == "Alt und neu"
    window.do(*keys("Alt+N"))
    window.do(*keys("Ctrl+Z"))
    window.wait(lambda: window.text("AppName") == "Alt")


@pytest.mark.parametrize("key, entries", [("Esc", 0), ("Enter", 1)])
def test_dialog_ends_with_a_key(window, key, entries):
    window.do(*keys("Ctrl+PageDown", "Alt+S", "Alt+I", "Insert"))
    window.do(*dialog(*keys("Alt+S"), *text(r"Software\Firma"), *keys(key)))
    assert len(window.items(ACCESS_LIST)) == entries


# Page: the access keys and the rows that they lead to; options are chosen by theirs.
ACCESS_KEYS = {
    "Anwendung": [("N", "AppName"), ("K", "FileID")],
    "Access": [("F", 4101), ("P", "AccPath"), ("L", "Profile"), ("S", 4102), ("I", 6000)],
    "Datenbank": [
        *[("L", 4200), ("P", 4201), ("M", "DBFilename")],
        *[("F", 4202), ("N", "DBPath"), ("E", second("DBFilename")), ("S", 4203), ("I", 6100)],
    ],
    "Arbeitsgruppe": [
        *[("Y", 4300), ("P", 4301), ("M", "SysDBFilename"), ("L", "User"), ("K", "Pwd")],
        *[("F", 4302), ("N", "SysDBPath"), ("E", second("SysDBFilename")), ("S", 4303)],
        ("I", 6300),
    ],
    "Startoptionen": [
        *[("L", "Runtime"), ("E", "Exclusive"), ("R", "ReadOnly"), ("O", "NoStartup")],
        *[("K", "Compact"), ("P", "Repair"), ("I", "Decompile"), ("M", "Macro"), ("F", "Cmd")],
    ],
    "Startbild": [
        *[("K", 4400), ("P", 4401), ("M", "PicFilename"), ("L", "PicDelay")],
        *[("F", 4402), ("N", "PicPath"), ("E", second("PicFilename")), ("S", 4403), ("I", 6200)],
    ],
    "Fehlermeldungen": [("F", "ErrBoxText"), ("E", "ErrDebugText"), ("T", "HCID")],
    "Diagnose": [("P", "Log"), ("K", "EditPwd")],
    "Programmdatei": [
        *[("Y", "IconFile"), ("G", "FileDescription"), ("R", "CompanyName")],
        *[("P", "ProductName"), ("V", "FileVersion"), ("O", "ProductVersion")],
        *[("U", "LegalCopyright"), ("M", "LegalTrademarks"), ("I", "InternalName")],
        *[("T", "OriginalFilename"), ("K", "Comments")],
    ],
}


def test_access_keys_of_the_pages_lead_to_their_fields(window):
    for access_keys in ACCESS_KEYS.values():
        for letter, place in access_keys:
            window.do(*keys("Alt+" + letter))
            goes_to(window, row(place))
        window.do(*keys("Ctrl+PageDown"))
