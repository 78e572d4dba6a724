"""What the configurator does to files when others use them too, and to what is no file."""

import functools
import os
import pathlib
import random
import signal
import stat
import subprocess
import time

import pytest

import brandfile
import configurator

ROUNDS = 40


@pytest.fixture(scope="module", params=[configurator.Native, configurator.Wine], ids=lambda c: c.name)
def program(request):
    return request.param()


@pytest.fixture(scope="module")
def native():
    return configurator.Native()


@pytest.fixture
def folder(tmp_path):
    template = pathlib.Path(os.environ["TARVEX_WIN32_DIST"]) / "tarvex.exe"
    (tmp_path / "T.exe").write_bytes(template.read_bytes())
    (tmp_path / "K.ini").write_text("AppName = Kunden\nUser = Meier\nAccPath = C:\\Office\\MSACCESS.EXE\n")
    return tmp_path


def start(program, folder, *arguments, **options):
    """Starts a run; what it writes is thrown away: Wine's background processes inherit it."""
    return subprocess.Popen(
        program.command() + list(arguments),
        cwd=folder,
        stdout=subprocess.DEVNULL,
        stderr=subprocess.DEVNULL,
        **options,
    )


def names(folder):
    return sorted(entry.name for entry in folder.iterdir())


def mode(path):
    return stat.S_IMODE(os.stat(path).st_mode)


def value(file, name):
    return brandfile.BrandFile.read(file).value(name)


def test_of_two_changes_at_the_same_time_none_is_lost(program, folder):
    for number in range(ROUNDS):
        runs = [
            start(program, folder, "set", "T.exe", f"{name}={number}") for name in ("Cmd", "FileID")
        ]
        assert [run.wait(60) for run in runs] == [0, 0]
        written = (value(folder / "T.exe", "Cmd"), value(folder / "T.exe", "FileID"))
        assert written == (str(number), str(number))
    assert names(folder) == ["K.ini", "T.exe"]


def test_of_two_that_make_the_same_file_one_wins(program, folder):
    for number in range(ROUNDS // 2):
        runs = [
            start(
                program, folder, "brand", "T.exe", "K.exe", "--settings", "K.ini", "--set", f"Cmd={n}"
            )
            for n in (1, 2)
        ]
        codes = [run.wait(60) for run in runs]
        assert sorted(codes) == [0, 1]
        assert value(folder / "K.exe", "Cmd") == str(codes.index(0) + 1), number
        (folder / "K.exe").unlink()
    assert names(folder) == ["K.ini", "T.exe"]


def test_program_that_runs_is_not_changed(program, folder):
    copy = folder / program.program.name
    copy.write_bytes(program.program.read_bytes())
    copy.chmod(0o755)
    running = configurator.Native() if program.name == "linux" else configurator.Wine()
    running.program = copy
    # It waits for the value.
    run = start(running, folder, "set", "T.exe", "Pwd=-", stdin=subprocess.PIPE)
    try:
        deadline = time.monotonic() + 30
        while True:
            result = program.run(folder, "set", copy.name, "Log=1")
            if "in Benutzung" in result.err or time.monotonic() > deadline:
                break
        assert result.code == 1
        assert f"{copy.name}: Die Datei ist in Benutzung; läuft das Programm noch?\n" in result.err
    finally:
        run.stdin.close()
        run.wait(60)


def test_missing_folder_of_an_output_is_blamed_on_the_output(program, folder):
    sentence = "Der Ordner der Datei ist nicht vorhanden, oder der Pfad ist ungültig.\n"
    for arguments in (
        ("export", "T.exe", "fehlt/neu.ini"),
        ("brand", "T.exe", "fehlt/neu.ini", "--settings", "K.ini"),
    ):
        result = program.run(folder, *arguments)
        assert result.code == 1
        assert result.err.endswith(f"fehlt/neu.ini: {sentence}"), result
        assert len(result.err.splitlines()) == 1
    assert names(folder) == ["K.ini", "T.exe"]


def test_template_is_never_its_own_output(program, folder):
    before = (folder / "T.exe").read_bytes()
    (folder / "Ordner").mkdir()
    for output in ("T.exe", "Ordner/../T.exe"):
        result = program.run(
            folder, "brand", "T.exe", output, "--settings", "K.ini", "--force"
        )
        assert result.code == 1
        assert "Die Ausgabe wäre dieselbe Datei wie die Eingabe 'T.exe'.\n" in result.err
    assert (folder / "T.exe").read_bytes() == before


FORCE_ANSWERS = {
    "pipe": "Das ist eine Pipe oder ein Gerät, keine Datei.",
    "device": "Das ist eine Pipe oder ein Gerät, keine Datei.",
    "folder": "Das ist ein Ordner, keine Datei.",
    "link to a folder": "Das ist ein Ordner, keine Datei.",
    "link to nothing": "Der Name ist ein Link, der zu keiner Datei führt.",
    "link to a file": None,
    "file": None,
}


def make(kind, path):
    if kind == "pipe":
        os.mkfifo(path)
    elif kind == "device":
        path.symlink_to("/dev/null")
    elif kind == "folder":
        path.mkdir()
    elif kind == "link to a folder":
        path.symlink_to(".")
    elif kind == "link to nothing":
        path.symlink_to("fehlt")
    elif kind == "link to a file":
        path.with_name("ziel").write_text("alt")
        path.symlink_to("ziel")
    else:
        path.write_text("alt")


@pytest.mark.parametrize("kind", FORCE_ANSWERS)
@pytest.mark.parametrize("verb", ["brand", "export"])
def test_whatever_has_the_name_of_the_output_stays(native, folder, verb, kind):
    path = folder / "x"
    make(kind, path)
    before = (names(folder), os.lstat(path).st_ino, os.lstat(path).st_mode)
    settings = ("--settings", "K.ini") if verb == "brand" else ()
    result = native.run(folder, verb, "T.exe", "x", *settings)
    assert result.code == 1
    assert (names(folder), os.lstat(path).st_ino, os.lstat(path).st_mode) == before
    result = native.run(folder, verb, "T.exe", "x", *settings, "--force")
    if FORCE_ANSWERS[kind]:
        assert result.code == 1
        assert result.err.endswith(f"x: {FORCE_ANSWERS[kind]}\n"), result
        assert (names(folder), os.lstat(path).st_ino, os.lstat(path).st_mode) == before
    else:
        assert (result.code, result.err) == (0, ""), result
        assert path.read_bytes() != b"alt"
        assert path.is_symlink() == (kind == "link to a file")
    assert os.stat("/dev/null").st_rdev == os.makedev(1, 3)


def test_name_that_is_not_utf_8_reaches_the_file(native, folder):
    name = os.fsdecode(b"K\xe4ufer.exe")
    brand = ["brand", "T.exe", name, "--settings", "K.ini"]
    assert native.run(folder, *brand).code == 0
    assert value(folder / name, "AppName") == "Kunden"
    result = native.run(folder, *brand)
    assert result.code == 1
    assert "K\ufffdufer.exe: Die Datei ist schon vorhanden" in result.err


@pytest.mark.parametrize("what", [signal.SIGINT, signal.SIGTERM, signal.SIGHUP])
def test_interrupted_run_leaves_the_old_file_or_the_new_one(native, folder, what):
    source = random.Random(int(what))
    before = (folder / "T.exe").read_bytes()
    assert native.run(folder, "set", "T.exe", "Cmd=neu").code == 0
    after = (folder / "T.exe").read_bytes()
    interrupted = 0
    for _ in range(40):
        (folder / "T.exe").write_bytes(before)
        # Whoever runs the tests may have it ignored.
        default = functools.partial(signal.signal, what, signal.SIG_DFL)
        run = start(native, folder, "set", "T.exe", "Cmd=neu", preexec_fn=default)
        time.sleep(source.uniform(0, 0.03))
        run.send_signal(what)
        code = run.wait(60)
        interrupted += code == -what
        assert code in (0, -what)
        assert names(folder) == ["K.ini", "T.exe"]
        assert (folder / "T.exe").read_bytes() in ((after,) if code == 0 else (before, after))
    assert interrupted > 0


def test_output_that_cannot_be_written_is_a_failure(native, folder):
    for redirection in (">/dev/full", ">&-"):
        for arguments in ("fields", "show T.exe", "--help"):
            done = subprocess.run(
                ["sh", "-c", f'"$0" {arguments} {redirection}', str(native.program)],
                cwd=folder,
                stderr=subprocess.PIPE,
                check=False,
            )
            assert done.returncode == 1, (redirection, arguments)
            assert "Die Ausgabe kann nicht geschrieben werden.\n" in done.stderr.decode()


def test_closed_output_is_not_the_file_that_is_written(native, folder):
    assert native.run(folder, "set", "T.exe", "Cmd=neu").code == 0
    expected = (folder / "T.exe").read_bytes()
    for redirection in (">&-", "2>&-", "<&-", "<&- >&- 2>&-"):
        subprocess.run(
            ["sh", "-c", f'"$0" set T.exe Cmd=neu {redirection}', str(native.program)],
            cwd=folder,
            check=False,
        )
        assert (folder / "T.exe").read_bytes() == expected


def test_new_output_has_the_permissions_of_the_template(native, folder):
    os.chmod(folder / "T.exe", 0o751)
    assert native.run(folder, "brand", "T.exe", "K.exe", "--settings", "K.ini").code == 0
    assert mode(folder / "K.exe") == 0o751


def test_exported_secrets_are_for_their_owner_only(native, folder):
    assert native.run(folder, "brand", "T.exe", "K.exe", "--settings", "K.ini").code == 0
    (folder / "alt.ini").write_text("alt")
    os.chmod(folder / "alt.ini", 0o644)
    assert native.run(folder, "export", "K.exe", "neu.ini").code == 0
    assert native.run(folder, "export", "K.exe", "alt.ini", "--force").code == 0
    assert (mode(folder / "neu.ini"), mode(folder / "alt.ini")) == (0o600, 0o600)


def test_hard_links_that_break_are_told(native, folder):
    os.link(folder / "T.exe", folder / "L.exe")
    before = (folder / "L.exe").read_bytes()
    result = native.run(folder, "set", "T.exe", "Cmd=neu")
    assert result.code == 0
    assert "T.exe: Die Datei hatte 2 Namen (feste Links)" in result.err
    assert value(folder / "T.exe", "Cmd") == "neu"
    assert (folder / "L.exe").read_bytes() == before
