"""The entry of a failure is written when its windows have been closed."""

from launcher import BOX, END, LOG


def test_failure_is_logged_behind_its_windows(world):
    world.brand(AccPath=world.path(r"\Nirgends"), Log="1")
    there = []
    look = world.meanwhile(lambda: there.append(world.exists(r"\Prog\Start.log")))
    steps = [BOX, ("press", "caption", "&Details"), LOG, *look, ("close",), *END]
    world.run("", steps)
    assert there == [False]
    assert f"Fehler Nr. -2147220477: Die Datei '{world.drive}\\Nirgends\\" in world.log()
