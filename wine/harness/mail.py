"""A mail program that only writes down what it is opened with."""


class Mail:
    def __init__(self, desktop):
        self._path = desktop.drive() / "mail.txt"
        desktop.import_keys("[HKEY_LOCAL_MACHINE\\Software\\Classes\\mailto\\shell\\open\\command]\n"
                            '@="C:\\\\windows\\\\system32\\\\cmd.exe /c echo %1>>C:\\\\mail.txt"\n')

    def links(self):
        """The links opened so far."""
        return self._path.read_bytes().decode("cp1252").splitlines() if self._path.exists() else []
