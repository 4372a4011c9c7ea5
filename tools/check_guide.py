#!/usr/bin/env python3
"""Checks that the user guide can be listened to, and that it describes the whole control panel: docs/guide.html beside
app/panel_table.cpp.

    tools/check_guide.py [--root DIR]"""

import html.parser
import re

from checking import arguments, report

GUIDE, TABLE = "docs/guide.html", "app/panel_table.cpp"
VOID = {"meta", "br", "hr", "link", "img", "input"}
UNWANTED = {"table", "img", "font", "center", "iframe", "script", "style", "object"}  # nothing that only the eye gets
PARENTS = {"li": {"ul", "ol"}, "dt": {"dl"}, "dd": {"dl"}, "title": {"head"}}
SPOKEN_KEYS = {"kF1": "F1", "kF11": "F11", "kF12": "F12", "kControlM": "Control and M"}
POINTING_KEYS = {"Shift", "Control", "Control and Shift"}
ENTRY = re.compile(r'\{u"(mnu|cmd)\w+",\s*u"([^"]*)"(?:,\s*(?:Shortcut::(\w+)|kNoKey))?(,|\})')


class Guide(html.parser.HTMLParser):
    """What the guide consists of, and what is wrong with it."""

    def __init__(self):
        super().__init__()
        self.breaches = []
        self.language = None
        self.texts = {"title": [], "h1": []}
        self.terms = {}  # by the heading above them: pairs of a term and what is said of it
        self._open, self._level, self._heading, self._doctype = [], 0, "", False

    def wrong(self, what):
        self.breaches.append(f"{GUIDE}:{self.getpos()[0]}: {what}")

    def handle_decl(self, declaration):
        self._doctype = declaration.lower() == "doctype html"

    def handle_starttag(self, tag, attributes):
        if tag == "html":
            self.language = dict(attributes).get("lang")
        if tag in UNWANTED:
            self.wrong(f"<{tag}> cannot be listened to")
        if tag in PARENTS and (not self._open or self._open[-1] not in PARENTS[tag]):
            self.wrong(f"<{tag}> stands in <{self._open[-1] if self._open else ''}>")
        if re.fullmatch("h[1-6]", tag):
            self._begin_heading(int(tag[1]))
        if tag == "dt":
            self.terms.setdefault(self._heading, []).append(["", ""])
        if tag in self.texts:
            self.texts[tag].append("")
        if tag not in VOID:
            self._open.append(tag)

    def _begin_heading(self, level):
        if level > self._level + 1:
            self.wrong(f"a heading of level {level} follows one of level {self._level}")
        self._level, self._heading = level, ""

    def handle_endtag(self, tag):
        if not self._open or self._open.pop() != tag:
            self.wrong(f"</{tag}> closes nothing")

    def handle_data(self, text):
        inside = self._open[-1] if self._open else ""
        if inside in self.texts:
            self.texts[inside][-1] += text
        if re.fullmatch("h[1-6]", inside):
            self._heading += text
        elif inside in ("dt", "dd") and self.terms.get(self._heading):
            self.terms[self._heading][-1][inside == "dd"] += text

    def finish(self):
        if not self._doctype:
            self.wrong("it has no doctype")
        if not self.language:
            self.wrong("<html> has no lang")
        for tag, texts in self.texts.items():
            if len(texts) != 1 or not texts[0].strip():
                self.wrong(f"it has no one <{tag}>")
        if self._open:
            self.wrong(f"<{self._open[-1]}> is not closed")
        return self.breaches


def panel(source):
    """What the panel has under each heading: captions, each with its key's spoken name or None."""
    entries = {"Buttons": {}}
    menu = None
    for kind, caption, shortcut, end in ENTRY.findall(source):
        caption = caption.replace("&", "").strip()
        if kind == "cmd":
            entries["Buttons"][caption] = None
        elif end == "}" and not shortcut:
            menu = entries.setdefault(f"{caption} menu", {})
        else:
            menu[caption] = SPOKEN_KEYS.get(shortcut)
    return entries


def described(terms):
    """The names in the terms of one heading, each with its description; a term may have several names."""
    return {name.strip(): (term, text.strip()) for term, text in terms for name in term.split(",")}


def missing(entries, guide):
    """What of the panel is not described as it is, and what is described that the panel has not."""
    for heading, captions in entries.items():
        known = described(guide.terms.get(heading, []))
        keys = {key for key in captions.values() if key}
        for caption, key in captions.items():
            term, text = known.get(caption, ("", ""))
            if not text:
                yield f"{GUIDE}:1: {heading}: {caption} is not described"
            elif key and key not in [name.strip() for name in term.split(",")]:
                yield f"{GUIDE}:1: {heading}: {caption} is described without its key, {key}"
        for name in known.keys() - captions.keys() - keys:
            yield f"{GUIDE}:1: {heading}: there is no {name}"


def main():
    options = arguments(__doc__)
    guide = Guide()
    guide.feed((options.root / GUIDE).read_text("utf-8"))
    entries = panel((options.root / TABLE).read_text("utf-8"))
    names = {name for terms in guide.terms.values() for name in described(terms)}
    report({
        "The guide can be listened to.": guide.finish(),
        "The control panel was found.": [] if len(entries) > 2 and all(entries.values()) else [f"{TABLE}:1: {entries}"],
        "Every menu entry, button and key of the panel is described.": list(missing(entries, guide)),
        "Every key for pointing is described.": [f"{GUIDE}:1: {key}" for key in sorted(POINTING_KEYS - names)],
    })


if __name__ == "__main__":
    main()
