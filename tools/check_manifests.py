#!/usr/bin/env python3
"""Checks manifests for winget: each by the rules for its kind, all of them against one another, and against the installers.

    tools/check_manifests.py FOLDER...

A folder holds one version's manifests in winget/ and its packages beside that, as tools/make_packages.py leaves them. The rules
are in tools/winget_rules.json. They are written here after the documented format, not copied from its own schema, know only
the fields that these manifests have, and refuse every other field."""

import hashlib
import json
import pathlib
import sys

import jsonschema
import yaml

from checking import arguments, report
from exe_header import exe_header

FORMAT = pathlib.Path(__file__).with_name("winget_rules.json")
MACHINES = {"x64": "x86_64", "x86": "i686"}
KEPT = "The manifests keep the rules of their format."
AGREE = "The manifests of a version agree with one another."
RIGHT = "The manifests name the installers that lie beside them."
SUMS = "Every package has its sum."
RULES = (KEPT, AGREE, RIGHT, SUMS)


def read(folder):
    """The manifests by the names of their files."""
    return {path.name: yaml.safe_load(path.read_text("utf-8")) for path in sorted((folder / "winget").glob("*.yaml"))}


def against_the_rules(manifests):
    """What is wrong with each manifest by itself."""
    rules = json.loads(FORMAT.read_text("utf-8"))
    for name, manifest in manifests.items():
        kind = manifest.get("ManifestType") if isinstance(manifest, dict) else None
        if kind not in rules["$defs"]["kinds"]:
            yield f"{name}: there is no kind {kind!r}"
            continue
        schema = {"$defs": rules["$defs"], "$ref": f"#/$defs/kinds/{kind}"}
        for error in jsonschema.Draft7Validator(schema).iter_errors(manifest):
            yield f"{name}: {'/'.join(map(str, error.absolute_path))}: {error.message}"


def against_one_another(manifests):
    """What the manifests say differently, and which of them are missing or called wrongly."""
    for field in ("PackageIdentifier", "PackageVersion", "ManifestVersion"):
        values = {str(manifest.get(field)) for manifest in manifests.values()}
        if len(values) != 1:
            yield f"{field}: {', '.join(sorted(values)) or 'no manifests'}"
    kinds = {manifest["ManifestType"]: manifest for manifest in manifests.values()}
    if len(kinds) != 3 or len(manifests) != 3:
        yield f"three kinds are needed, one manifest each; there are {sorted(manifests)}"
        return
    identifier, locale = kinds["version"]["PackageIdentifier"], kinds["version"]["DefaultLocale"]
    if kinds["defaultLocale"]["PackageLocale"] != locale:
        yield f"the default locale is {locale}, the texts are for {kinds['defaultLocale']['PackageLocale']}"
    names = {f"{identifier}.yaml", f"{identifier}.installer.yaml", f"{identifier}.locale.{locale}.yaml"}
    if set(manifests) != names:
        yield f"the files are to be called {', '.join(sorted(names))}"


def against_the_installers(manifests, folder):
    """What the manifests say of the installers and is not so."""
    setups = {path.name: path for path in folder.glob("*-setup.exe")}
    told = [entry for manifest in manifests.values() for entry in manifest.get("Installers", [])]
    for entry in told:
        name = entry["InstallerUrl"].rpartition("/")[2]
        data = setups.pop(name).read_bytes() if name in setups else None
        if data is None:
            yield f"{name}: there is no such installer, or it is named twice"
        elif hashlib.sha256(data).hexdigest().upper() != entry["InstallerSha256"].upper():
            yield f"{name}: its sum is another one"
        elif exe_header(data).machine != MACHINES[entry["Architecture"]]:
            yield f"{name}: it is not for {entry['Architecture']}"
    for name in setups:
        yield f"{name}: no manifest names it"


def against_the_sums(folder):
    """What is wrong with the list of sums."""
    told = dict(reversed(line.split("  ", 1)) for line in (folder / "SHA256SUMS").read_text("ascii").splitlines())
    real = {path.name: hashlib.sha256(path.read_bytes()).hexdigest() for path in folder.glob("Pointalk-*")}
    for name in sorted(told.keys() | real.keys()):
        if told.get(name) != real.get(name):
            yield f"{name}: the sum told is {told.get(name)}, the real one {real.get(name)}"


def check(folder, rules):
    """Lists what is wrong in a folder; manifests that break their own rules are not compared further."""
    manifests = read(folder)
    rules[KEPT] += [f"{folder}: no manifests"] if not manifests else against_the_rules(manifests)
    if not rules[KEPT]:
        rules[AGREE] += against_one_another(manifests)
        rules[RIGHT] += against_the_installers(manifests, folder)
    rules[SUMS] += against_the_sums(folder)


def main():
    folders = [pathlib.Path(name) for name in arguments(__doc__, folders="packages of one version").folders]
    if not folders:
        sys.exit("name the folders")
    rules = {rule: [] for rule in RULES}
    for folder in folders:
        try:
            check(folder, rules)
        except (OSError, ValueError, yaml.YAMLError) as error:
            rules[KEPT].append(f"{folder}: {error}")
    report(rules)


if __name__ == "__main__":
    main()
