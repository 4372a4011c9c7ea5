"""The package for users of Debian: one file that apt installs."""

import email.utils
import gzip
import hashlib
import pathlib
import re
import subprocess
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
TEXTS = ROOT / "packaging" / "linux"
METAINFO = "example.pointalk.pointalk.metainfo.xml"
SHARE = "usr/share"
DOCUMENTS = f"{SHARE}/doc/pointalk"


def architecture():
    """What Debian calls the machine that the program was built on."""
    return _output("dpkg", "--print-architecture").strip()


def make_deb(folder, program, version, seconds):
    """Makes the package of a program built for this machine; all in it bears the time `seconds`. Returns its path."""
    path = folder / f"pointalk_{version}_{architecture()}.deb"
    folder.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory() as scratch:
        tree = pathlib.Path(scratch) / "tree"
        _put(tree, "usr/bin/pointalk", b"", 0o755)
        _run("strip", "--strip-all", "--remove-section=.comment", "-o", tree / "usr/bin/pointalk", program)
        values = {"VERSION": version, "ARCHITECTURE": architecture(), "DEPENDS": _dependencies(tree / "usr/bin/pointalk"),
                  "YEAR": time.strftime("%Y", time.gmtime(seconds)), "DAY": time.strftime("%Y-%m-%d", time.gmtime(seconds)),
                  "DATE": email.utils.formatdate(seconds)}
        for name, data in _documents(values).items():
            _put(tree, name, data)
        values["KILOBYTES"] = str(sum(file.stat().st_size for file in tree.rglob("*") if file.is_file()) // 1024 + 1)
        sums = "".join(f"{hashlib.md5(file.read_bytes()).hexdigest()}  {file.relative_to(tree)}\n"
                       for file in sorted(tree.rglob("*")) if file.is_file())
        _put(tree, "DEBIAN/md5sums", sums.encode("ascii"))
        _put(tree, "DEBIAN/control", _filled("control", values))
        _run("dpkg-deb", "--root-owner-group", "-Zxz", "--threads-max=1", "--build", tree, path,
             environment={"SOURCE_DATE_EPOCH": str(seconds), "PATH": "/usr/sbin:/usr/bin:/sbin:/bin"})
    return path


def _documents(values):
    """What comes beside the program, by its place."""
    return {
        f"{SHARE}/applications/pointalk.desktop": _filled("pointalk.desktop", values),
        f"{SHARE}/icons/hicolor/scalable/apps/pointalk.svg": (ROOT / "packaging" / "pointalk.svg").read_bytes(),
        f"{SHARE}/man/man1/pointalk.1.gz": _compressed(_filled("pointalk.1", values)),
        f"{SHARE}/metainfo/{METAINFO}": _filled(METAINFO, values),
        f"{DOCUMENTS}/changelog.gz": _compressed(_filled("changelog", values)),
        f"{DOCUMENTS}/copyright": _filled("copyright", values),
        f"{DOCUMENTS}/guide.html": (ROOT / "docs" / "guide.html").read_bytes(),
    }


def _filled(name, values):
    """A file of packaging/linux/ with a value for each @NAME@."""
    text = (TEXTS / name).read_text("utf-8")
    return re.sub(r"@([A-Z]+)@", lambda match: values[match.group(1)], text).encode("utf-8")


def _compressed(data):
    return gzip.compress(data, 9, mtime=0)


def _dependencies(program):
    """The packages that the program's libraries are in, with the releases that it needs."""
    with tempfile.TemporaryDirectory() as folder:
        _put(pathlib.Path(folder), "debian/control", b"Source: pointalk\n\nPackage: pointalk\nArchitecture: any\n")
        told = _output("dpkg-shlibdeps", "-O", program.resolve(), folder=folder)
    return re.search("^shlibs:Depends=(.+)$", told, re.M).group(1)


def _put(tree, name, data, mode=0o644):
    """Writes a file, and the folders that it is in, with modes that do not depend on the user's habits."""
    path = tree / name
    for folder in reversed(path.relative_to(tree).parents):
        (tree / folder).mkdir(parents=True, exist_ok=True)
        (tree / folder).chmod(0o755)
    path.write_bytes(data)
    path.chmod(mode)


def _run(*command, environment=None):
    subprocess.run([str(part) for part in command], check=True, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                   env=environment)


def _output(*command, folder=None):
    return subprocess.run([str(part) for part in command], check=True, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, text=True, cwd=folder).stdout
