"""Proves that the check of winget's manifests finds what it is for, and that sha256sum reads the sums."""

import contextlib
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

import yaml

TOOLS = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(TOOLS))

from check_manifests import against_the_rules  # noqa: E402

VERSION, INSTALLER, TEXTS = "Corvane.Pointalk.yaml", "Corvane.Pointalk.installer.yaml", "Corvane.Pointalk.locale.en-US.yaml"


class Manifests(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.made = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        exes = []
        for target in ("x86_64", "i686"):
            exes.append(cls.made / f"{target}.exe")
            subprocess.run([f"{target}-w64-mingw32-gcc-posix", "-s", "-x", "c", "-", "-o", exes[-1]], check=True, timeout=600,
                           input="int main(void) { return 0; }\n", text=True)
        subprocess.run([sys.executable, TOOLS / "make_packages.py", cls.made / "packages", *exes], check=True, timeout=120,
                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)

    def setUp(self):
        folder = self.enterContext(tempfile.TemporaryDirectory())
        self.packages = pathlib.Path(shutil.copytree(self.made / "packages", pathlib.Path(folder) / "packages"))

    def check(self):
        run = subprocess.run([sys.executable, TOOLS / "check_manifests.py", self.packages], stdin=subprocess.DEVNULL, timeout=600,
                             stdout=subprocess.PIPE, text=True, check=False)
        return run.returncode, run.stdout

    def manifest(self, name):
        return yaml.safe_load((self.packages / "winget" / name).read_text("utf-8"))

    @contextlib.contextmanager
    def changed(self, name):
        """A manifest to be changed."""
        manifest = self.manifest(name)
        yield manifest
        (self.packages / "winget" / name).write_text(yaml.safe_dump(manifest), "utf-8")

    def found(self, what):
        status, printed = self.check()
        self.assertEqual(status, 1, printed)
        self.assertIn(what, printed)

    def test_what_is_made_passes(self):
        status, printed = self.check()
        self.assertEqual((status, printed.splitlines()[-1]), (0, "4 passed, 0 failed"), printed)
        manifest = self.manifest(INSTALLER)
        self.assertEqual([entry["Architecture"] for entry in manifest["Installers"]], ["x64", "x86"])

    def test_a_field_against_the_rules_is_found(self):
        wrong = {
            VERSION: {"PackageIdentifier": "Pointalk", "PackageVersion": 1.0, "DefaultLocale": "English", "ManifestVersion": "1.9.0",
                      "Unknown": "field"},
            INSTALLER: {"InstallerType": "nsis", "Scope": "me", "InstallModes": ["silent", "silent"], "UpgradeBehavior": "none",
                        "InstallerSwitches": {"Silent": ""}, "ReleaseDate": "22 November", "Installers": [], "ProductCode": "",
                        "ExpectedReturnCodes": [{"InstallerReturnCode": 0, "ReturnResponse": "packageInUse"}],
                        "AppsAndFeaturesEntries": [{"Name": "Pointalk"}], "Platform": ["Windows"]},
            TEXTS: {"ShortDescription": "x" * 257, "Tags": ["t" * 41], "PackageUrl": "pointalk.example", "License": None},
        }
        for name, fields in wrong.items():
            right = self.manifest(name)
            for field, value in fields.items():
                with self.subTest(name, field=field):
                    self.assertNotEqual(list(against_the_rules({name: {**right, field: value}})), [])

    def test_a_field_that_is_missing_is_found(self):
        for name in (VERSION, INSTALLER, TEXTS):
            right = self.manifest(name)
            for field in ("PackageIdentifier", "PackageVersion", "ManifestVersion", "ManifestType"):
                with self.subTest(name, field=field):
                    self.assertNotEqual(list(against_the_rules({name: {key: right[key] for key in right if key != field}})), [])

    def test_a_manifest_against_the_rules_fails_the_check(self):
        with self.changed(VERSION) as manifest:
            manifest["Unknown"] = "field"
        self.found("FAILED: The manifests keep the rules of their format.")

    def test_manifests_that_disagree_are_found(self):
        with self.changed(TEXTS) as manifest:
            manifest["PackageVersion"] = "1.0.1"
        self.found("PackageVersion: 1.0.0, 1.0.1")

    def test_a_manifest_that_is_missing_is_found(self):
        (self.packages / "winget" / TEXTS).unlink()
        self.found("FAILED: The manifests of a version agree with one another.")

    def test_a_manifest_with_another_name_is_found(self):
        (self.packages / "winget" / TEXTS).rename(self.packages / "winget" / "texts.yaml")
        self.found("the files are to be called")

    def test_an_installer_that_was_changed_afterwards_is_found(self):
        setup = next(self.packages.glob("*-x86-setup.exe"))
        setup.write_bytes(setup.read_bytes() + b"more")
        self.found(f"{setup.name}: its sum is another one")

    def test_an_installer_for_another_machine_is_found(self):
        with self.changed(INSTALLER) as manifest:
            manifest["Installers"][0]["Architecture"], manifest["Installers"][1]["Architecture"] = "x86", "x64"
        self.found("it is not for x86")

    def test_an_installer_that_no_manifest_names_is_found(self):
        with self.changed(INSTALLER) as manifest:
            manifest["Installers"].pop()
        self.found("x86-setup.exe: no manifest names it")

    def test_sums_are_those_of_the_packages(self):
        verify = lambda: subprocess.run(["sha256sum", "-c", "SHA256SUMS"], cwd=self.packages, check=False,
                                        stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        run = verify()
        self.assertEqual((run.returncode, run.stdout.count(": OK")), (0, 4), run.stdout)
        package = next(self.packages.glob("*-x64.zip"))
        package.write_bytes(b"another")
        self.assertEqual(verify().returncode, 1)
        self.found(f"{package.name}: the sum told is")


if __name__ == "__main__":
    unittest.main()
