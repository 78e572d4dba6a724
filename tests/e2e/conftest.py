"""Fixtures of the end-to-end tests. They run inside a Wine session (scripts/wine-session)."""

import os
import pathlib
import sys

import pytest

import launcher

# The check that runs after every link holds the table of the fields that files must have.
sys.path.insert(0, str(pathlib.Path(__file__).parents[2] / "cmake"))


def pytest_addoption(parser):
    parser.addoption(
        "--shard",
        default="1/1",
        help="K/N: run every N-th test, beginning with the K-th; each shard in a Wine session of its"
        " own, so that no window of one takes the focus from those of another",
    )


def pytest_collection_modifyitems(config, items):
    # What only a 64-bit Windows has must not pass for tested in the prefix of a 32-bit one.
    possible = [item for item in items if launcher.WIN64 or not item.get_closest_marker("win64")]
    number, count = map(int, config.getoption("--shard").split("/"))
    chosen = possible[number - 1 :: count]
    config.hook.pytest_deselected(items=[item for item in items if item not in set(chosen)])
    items[:] = chosen


def pytest_configure(config):
    config.addinivalue_line(
        "markers", "xdist_group(name): tests of a group run one after the other, in one process"
    )
    config.addinivalue_line("markers", "win64: needs the prefix of a 64-bit Windows")
    config.addinivalue_line("markers", "also_win64: a sample that is run in such a prefix, too")
    config.addinivalue_line("markers", "timed: compares times, so nothing else should run meanwhile")
    missing = [name for name in ("WINEPREFIX", "DISPLAY") if not os.environ.get(name)]
    if missing:
        raise pytest.UsageError(
            f"{' and '.join(missing)} must be set: run the tests inside scripts/wine-session"
        )


@pytest.fixture(scope="session")
def programs():
    result = launcher.Programs(os.environ)
    yield result
    result.driver.close()


@pytest.fixture
def world(request, programs):
    # Each part of the tests has drive letters of its own: processes of the others are seen, too.
    shard = int(request.config.getoption("--shard").split("/")[0]) - 1
    part = 14 if launcher.WIN64 else shard
    worker = os.environ.get("PYTEST_XDIST_WORKER", f"gw{part}")
    groups = [mark.args[0] for mark in request.node.iter_markers("xdist_group")]
    result = launcher.make_world(programs, worker, alone="foreground" in groups)
    yield result
    result.close()
