#!/usr/bin/env python3
"""Keeps the English text tables in resources/translations/ in step with the sources.

Every qtTrId("ID") in src/ must have its text in one of the *_en.ts files, or the user would
see the bare id. An id that no table holds yet is added, with the text of the `//% "..."`
comment written above it in the source, to the table of its folder (src/<folder>/... goes to
<folder>_en.ts; core/ and widgets/ go to app_en.ts). With --check nothing is written and the
exit status says whether every id has a text.
"""
import pathlib
import re
import sys
import xml.etree.ElementTree as ET
from xml.sax.saxutils import escape

root = pathlib.Path(__file__).resolve().parent.parent
tables = root / "resources" / "translations"
call = re.compile(r'qtTrId\(\s*"([A-Za-z0-9_.\-]+)"')
comment = re.compile(r'^\s*//%\s*"(.*)"?\s*$')


def texts_in_sources():
    found = {}  # id -> (folder, text or None)
    for path in sorted((root / "src").rglob("*")):
        if path.suffix not in (".cpp", ".h"):
            continue
        folder = path.relative_to(root / "src").parts[0]
        pending = None
        for line in path.read_text(encoding="utf-8").splitlines():
            stripped = line.strip()
            if stripped.startswith('//% "'):
                pending = stripped[5:]
                continue
            if pending is not None and stripped.startswith("//") and not pending.endswith('"'):
                pending += " " + stripped[2:].strip()
                continue
            for match in call.finditer(line):
                ident = match.group(1)
                text = None
                if pending is not None:
                    text = pending[:-1] if pending.endswith('"') else pending
                    text = text.replace('\\"', '"')
                if ident not in found or (found[ident][1] is None and text):
                    found[ident] = (folder, text)
                pending = None
    return found


def main():
    check = "--check" in sys.argv
    trees = {p: ET.parse(p) for p in sorted(tables.glob("*_en.ts"))}
    known = set()
    for tree in trees.values():
        for message in tree.getroot().iter("message"):
            known.add(message.get("id"))
    missing = []
    for ident, (folder, text) in sorted(texts_in_sources().items()):
        if ident in known:
            continue
        missing.append((ident, folder, text))
    if check:
        for ident, folder, text in missing:
            print(f"sync-translations: {ident} (src/{folder}) has no English text"
                  + ("" if text else " and no //% comment"))
        return 1 if missing else 0
    status = 0
    additions = {}
    for ident, folder, text in missing:
        if not text:
            print(f"sync-translations: {ident} (src/{folder}) needs a //% comment")
            status = 1
            continue
        name = folder if (tables / f"{folder}_en.ts").exists() else "app"
        escaped = escape(text)
        additions.setdefault(tables / f"{name}_en.ts", []).append(
            f'    <message id="{ident}">\n        <source>{escaped}</source>\n'
            f'        <translation>{escaped}</translation>\n    </message>\n')
    for path, blocks in additions.items():
        content = path.read_text(encoding="utf-8")
        cut = content.rindex("</context>")
        path.write_text(content[:cut] + "".join(blocks) + content[cut:], encoding="utf-8")
    return status


sys.exit(main())
