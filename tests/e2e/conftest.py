"""Fixtures of the end-to-end tests. They run inside a Wine session (scripts/wine-session)."""

import os

import pytest

import launcher


def pytest_configure(config):
    config.addinivalue_line(
        "markers", "xdist_group(name): tests of a group run one after the other, in one process"
    )
    missing = [name for name in ("WINEPREFIX", "DISPLAY") if not os.environ.get(name)]
    if missing:
        raise pytest.UsageError(
            f"{' and '.join(missing)} must be set: run the tests inside scripts/wine-session"
        )


@pytest.fixture(scope="session")
def programs():
    return launcher.Programs(os.environ)


@pytest.fixture
def world(request, programs):
    worker = os.environ.get("PYTEST_XDIST_WORKER", "gw0")
    groups = [mark.args[0] for mark in request.node.iter_markers("xdist_group")]
    result = launcher.make_world(programs, worker, alone="foreground" in groups)
    yield result
    result.close()
