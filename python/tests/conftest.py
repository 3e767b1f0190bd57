import itertools

import pytest

import vistral

_names = itertools.count()


@pytest.fixture
def session():
    """An emulated viewer and an application on one in-process execution of their own."""
    execution = "py-session-%d" % next(_names)
    with vistral.Connection(execution, "viewer-host") as viewer_conn, \
            vistral.Connection(execution, "app") as conn:
        emulator = vistral.Emulator(viewer_conn, "vistral-1")
        controller = vistral.RemoteController(conn, "vistral-1")
        controller.controller_id = "app"

        def sync():
            viewer_conn.process_incoming()
            return emulator.state

        yield conn, controller, emulator, sync
