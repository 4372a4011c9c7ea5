import pytest

from desktop import Desktop
from session import Session


@pytest.fixture(scope="module", name="desktop")
def make_desktop(tmp_path_factory):
    """With a voice, and nothing else on it."""
    with Desktop(tmp_path_factory.mktemp("desktop")) as desktop:
        desktop.start_voice()
        yield desktop


@pytest.fixture(scope="module", name="session")
def make_session(desktop):
    return Session(desktop)


@pytest.fixture(name="own_desktop")
def make_own_desktop(tmp_path):
    """For tests after which the desktop is good for no other."""
    with Desktop(tmp_path / "desktop") as desktop:
        desktop.start_voice()
        yield desktop


@pytest.fixture(name="own")
def make_own(own_desktop):
    return Session(own_desktop)
