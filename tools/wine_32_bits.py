"""Whether Wine runs programs of 32 bits on this machine."""

import pathlib

INSTALL = "wine32:i386"
# Where distributions put what programs of 32 bits load first.
PLACES = ("usr/lib/i386-linux-gnu/wine", "usr/lib/wine", "usr/lib32/wine", "usr/lib/*/wine", "opt/wine-*/lib/wine",
          "usr/local/lib/wine")


def has_wine_32_bits(root):
    return any(any(pathlib.Path(root).glob(f"{place}/i386-windows/ntdll.dll")) for place in PLACES)


def what_is_missing(root="/"):
    """What to say of steps that need it; an empty text where it is there."""
    return "" if has_wine_32_bits(root) else f"Wine runs no 32-bit programs here: ./test --with-32-bit installs {INSTALL}"
