"""The manifests by which winget, the package manager of Windows, installs Pointalk, in release 1.12 of their format."""

import hashlib
import json

IDENTIFIER = "Corvane.Pointalk"
LOCALE = "en-US"
FORMAT = "1.12.0"
HOME = "https://pointalk.example/"  # a placeholder, as the address for mail is

INSTALLER = {
    "Platform": ["Windows.Desktop"],
    "InstallerType": "nullsoft",
    "Scope": "user",
    "InstallModes": ["interactive", "silent", "silentWithProgress"],
    "InstallerSwitches": {"Silent": "/S", "SilentWithProgress": "/S"},
    "ExpectedReturnCodes": [{"InstallerReturnCode": 1, "ReturnResponse": "cancelledByUser"},
                            {"InstallerReturnCode": 3, "ReturnResponse": "packageInUse"}],
    "UpgradeBehavior": "install",
    "ProductCode": "Pointalk",
}
TEXTS = {
    "Publisher": "Corvane",
    "PackageName": "Pointalk",
    "PackageUrl": HOME,
    "License": "Free of charge; may be passed on unchanged",
    "Copyright": "Copyright Corvane",
    "ShortDescription": "An audio mouse for blind and low-vision users.",
    "Description": "Two tones tell where the mouse pointer is while it moves, and what lies under it is named aloud. It is meant to "
                   "run beside a screen reader.",
    "Moniker": "pointalk",
    "Tags": ["accessibility", "audio", "blind", "low-vision", "mouse", "speech"],
}


def manifests(version, date, setups):
    """The manifests by the names of their files. `setups` are the installers by architecture, x64 or x86; `date` is that of
    the release, as 2026-01-31."""
    def manifest(kind, fields):
        return {"PackageIdentifier": IDENTIFIER, "PackageVersion": version, **fields, "ManifestType": kind,
                "ManifestVersion": FORMAT}

    entry = {"DisplayName": TEXTS["PackageName"], "Publisher": TEXTS["Publisher"], "DisplayVersion": version,
             "ProductCode": INSTALLER["ProductCode"]}
    installers = [{"Architecture": architecture, "InstallerUrl": f"{HOME}{version}/{path.name}",
                   "InstallerSha256": hashlib.sha256(path.read_bytes()).hexdigest().upper()}
                  for architecture, path in sorted(setups.items())]
    made = {
        f"{IDENTIFIER}.yaml": manifest("version", {"DefaultLocale": LOCALE}),
        f"{IDENTIFIER}.installer.yaml": manifest("installer", {**INSTALLER, "ReleaseDate": date,
                                                               "AppsAndFeaturesEntries": [entry], "Installers": installers}),
        f"{IDENTIFIER}.locale.{LOCALE}.yaml": manifest("defaultLocale", {"PackageLocale": LOCALE, **TEXTS}),
    }
    return {name: "\n".join(yaml_lines(fields)) + "\n" for name, fields in made.items()}


def yaml_lines(fields, indent=""):
    """The lines of a map whose values are texts, numbers, maps, and lists of texts or maps. Texts are quoted as in JSON, which
    YAML reads too, so that a version stays a text."""
    for name, value in fields.items():
        if isinstance(value, dict):
            yield f"{indent}{name}:"
            yield from yaml_lines(value, indent + "  ")
        elif isinstance(value, list):
            yield f"{indent}{name}:"
            for item in value:
                first, *others = yaml_lines(item, indent + "  ") if isinstance(item, dict) else [indent + "  " + json.dumps(item)]
                yield f"{indent}- {first.lstrip()}"
                yield from others
        else:
            yield f"{indent}{name}: {json.dumps(value)}"
