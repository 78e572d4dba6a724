"""How long the configurator's window takes to appear, compared with a bare dialog."""

import pytest

import launcher

pytestmark = pytest.mark.xdist_group("foreground")

ROUNDS = 7
MOST_ROUNDS = 28
LARGEST_RATIO = 1.5


def start_time(world, program, title):
    """Microseconds from the start until the window is there and waits for its user."""
    steps = [("appear", f"title={title}"), ("idle",), ("close",), *launcher.END]
    path = launcher.windows_path(program)
    run = world.drive_program(steps, f'"{path}"', application=path)
    assert run.ok, run.describe()
    return run.step("idle")["us"]


def test_window_starts_nearly_as_fast_as_a_bare_dialog(world):
    """The fastest starts count: what else is at work only ever makes one slower, and the more often
    the programs start in turn, the less of it is left."""
    programs = world.programs
    bare, window = [], []
    start_time(world, programs.bare_dialog, "Bare")  # the first one reads from the disk
    start_time(world, programs.window, "Tarvex-Konfiguration")
    while len(bare) < MOST_ROUNDS:
        bare.append(start_time(world, programs.bare_dialog, "Bare"))
        window.append(start_time(world, programs.window, "Tarvex-Konfiguration"))
        if len(bare) >= ROUNDS and min(window) <= LARGEST_RATIO * min(bare):
            return
    pytest.fail(f"bare dialog: {sorted(bare)}, window: {sorted(window)}")
