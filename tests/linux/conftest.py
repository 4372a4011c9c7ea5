import pytest

from desktop import Desktop
from session import Session


@pytest.fixture(scope="module", name="session")
def make_session(tmp_path_factory):
    with Desktop(tmp_path_factory.mktemp("desktop")) as desktop:
        desktop.start_voice()
        yield Session(desktop)


@pytest.fixture(name="own")
def make_own(tmp_path):
    """For tests after which the desktop is good for no other."""
    with Desktop(tmp_path / "desktop") as desktop:
        desktop.start_voice()
        yield Session(desktop)
