#!/usr/bin/python3
"""Imports real SWORD modules, built here from small OSIS texts with osis2mod, and checks the
translation folders against the SWORD library itself (python3-sword): every folder passes the
translation check, passages read in the module's own numbering, and the verse mapping agrees
with the library's on every verse of the test modules (between two numberings other than the
KJV's, with the library's mapping of each through the KJV). Failed imports leave nothing behind.

usage: module_import.py QUILLSTONE_IMPORT QUILLSTONE_CLI"""
import os
import shutil
import subprocess
import sys
import tempfile

import Sword

IMPORTER, CLI = sys.argv[1], sys.argv[2]
BOOKS = ["Ps", "Jonah", "Mal", "Rom", "3John"]
# name, versification, language, osis2mod options, driver
MODULES = [
    ("SYN", "Synodal", "ru", ["-z", "z"], "zText"),
    ("VULG", "Vulg", "la", [], "RawText"),
    ("GERT", "German", "de", ["-z", "z", "-s", "4"], "zText4"),
    ("ENGT", "KJV", "en", ["-s", "4"], "RawText4"),
]
failures = []


def check(ok, what):
    if not ok:
        failures.append(what)
        print("FAIL:", what)


def run(*args, **kw):
    return subprocess.run(list(args), capture_output=True, text=True, **kw)


def system(name):
    return Sword.VersificationMgr.getSystemVersificationMgr().getVersificationSystem(name)


def verses(v11n):
    """Every verse of the test books in a versification, as (osis, chapter, verse)."""
    key = Sword.VerseKey()
    key.setVersificationSystem(v11n)
    for book in BOOKS:
        key.setText(book + ".1.1")
        for chapter in range(1, key.getChapterMax() + 1):
            key.setChapter(chapter)
            key.setVerse(1)
            for verse in range(1, key.getVerseMax() + 1):
                yield book, chapter, verse


def verse_text(osis_id, n):
    # A tagged word, words added by the translators, a footnote and a heading the import drops.
    return (f'<w lemma="strong:H{n % 8000 + 1:04d}">word</w> <transChange type="added">added</transChange> '
            f'{osis_id}<note type="study">note</note>')


def build_module(library, name, v11n, lang, options, driver):
    body = []
    for n, (book, chapter, verse) in enumerate(verses(v11n)):
        if chapter == 1 and verse == 1:
            body.append(f'<div type="book" osisID="{book}">' if not body else
                        f'</chapter></div><div type="book" osisID="{book}">')
            body.append(f'<chapter osisID="{book}.1"><title>Heading</title>')
        elif verse == 1:
            body.append(f'</chapter><chapter osisID="{book}.{chapter}">')
        osis_id = f"{book}.{chapter}.{verse}"
        body.append(f'<verse osisID="{osis_id}">{verse_text(osis_id, n)}</verse>')
    body.append("</chapter></div>")
    xml = ('<?xml version="1.0" encoding="UTF-8"?>\n'
           '<osis xmlns="http://www.bibletechnologies.net/2003/OSIS/namespace">'
           f'<osisText osisIDWork="{name}" osisRefWork="Bible" xml:lang="{lang}">'
           f'<header><work osisWork="{name}"><refSystem>Bible.{v11n}</refSystem></work></header>'
           + "\n".join(body) + "</osisText></osis>\n")
    data = os.path.join(library, "modules", "texts", driver.lower(), name.lower())
    os.makedirs(data)
    source = os.path.join(library, name + ".osis.xml")
    with open(source, "w", encoding="utf-8") as f:
        f.write(xml)
    result = run("osis2mod", data, source, "-v", v11n, *options)
    check(result.returncode == 0, f"osis2mod {name}: {result.stderr[-500:]}")
    conf = (f"[{name}]\nDataPath=./modules/texts/{driver.lower()}/{name.lower()}/\nModDrv={driver}\n"
            f"SourceType=OSIS\nEncoding=UTF-8\nLang={lang}\nVersification={v11n}\n"
            f"Description=Test Bible {name}\nGlobalOptionFilter=OSISStrongs\n"
            + ("CompressType=ZIP\nBlockType=BOOK\n" if "z" in options else ""))
    with open(os.path.join(library, "mods.d", name.lower() + ".conf"), "w", encoding="utf-8") as f:
        f.write(conf)


def library_span(place, from_v11n, to_v11n):
    """Where the library puts one place (book, chapter, verse; verse 0 a title) of one numbering
    in another: the first and last place, or None when it moves it to another book (the target
    lacks the verse)."""
    source = Sword.VerseKey()
    source.setVersificationSystem(from_v11n)
    source.setIntros(True)
    source.setText("%s.%d.%d" % place)
    target = Sword.VerseKey()
    target.setVersificationSystem(to_v11n)
    target.positionFrom(source)

    def read(key):  # at once: the library hands both bounds out in one shared key
        return key.getOSISBookName(), key.getChapter(), key.getVerse()
    first = read(target.getLowerBound() if target.isBoundSet() else target)
    last = read(target.getUpperBound() if target.isBoundSet() else target)
    if first[0] != place[0]:
        return None
    return first, (last if last[0] == first[0] else first)


def library_map(place, from_v11n, to_v11n):
    """The library's mapping through the KJV in the folders' terms: a title (verse 0) is read as
    verse 1, and a run never leaves its book or runs backwards."""
    kjv = library_span(place, from_v11n, "KJV")
    if kjv is None:
        return None
    start = library_span(kjv[0], "KJV", to_v11n)
    end = library_span(kjv[1], "KJV", to_v11n) or start
    if start is None:
        return None
    as_read = lambda p: (p[0], p[1], max(p[2], 1))
    first, last = as_read(start[0]), as_read(end[1])
    for candidate in (last, as_read(start[1]), first):
        if candidate[0] == first[0] and candidate[1:] >= first[1:]:
            return first, candidate


def book_names(program, folder):
    """OSIS id -> upper-cased book name of an imported folder."""
    with open(os.path.join(program, folder, "versification.dat"), encoding="utf-8") as f:
        osis = f.read().splitlines()[1].split()[1:]
    books = run(CLI, "--dir", program, "--translation", folder, "books").stdout.splitlines()
    return {o: line.split("\t")[1].upper() for o, line in zip(osis, books)}


def standard(names, span):
    if span is None:
        return ""
    first, last = span
    text = f"{names[first[0]]} {first[1]}:{first[2]}"
    if (last[1], last[2]) != (first[1], first[2]):
        text += f"-{last[2]}" if last[1] == first[1] else f"-{last[1]}:{last[2]}"
    return text


def check_mapping(program, source, target):
    (src_name, src_v11n), (dst_name, dst_v11n) = source, target
    src_names = book_names(program, src_name)
    dst_names = book_names(program, dst_name)
    refs = [f"{src_names[b]} {c}:{v}" for b, c, v in verses(src_v11n)]
    expected = [standard(dst_names, library_map((b, c, v), src_v11n, dst_v11n))
                for b, c, v in verses(src_v11n)]
    result = run(CLI, "--dir", program, "map", "--translations", f"{src_name},{dst_name}", *refs)
    got = result.stdout.splitlines()
    wrong = [(r, e, g) for r, e, g in zip(refs, expected, got) if e != g]
    check(result.returncode == (1 if "" in expected else 0) and len(got) == len(refs) and not wrong,
          f"map {src_name},{dst_name}: {len(wrong)} of {len(refs)} differ from the library, e.g. {wrong[:3]}"
          f" {result.stderr[-300:]}")
    return len(refs)


def main():
    work = tempfile.mkdtemp(prefix="qs-modules-")
    try:
        library = os.path.join(work, "sword")
        os.makedirs(os.path.join(library, "mods.d"))
        for module in MODULES:
            build_module(library, *module)
        program = os.path.join(work, "program")

        listed = run(CLI, "modules", "--sword", library).stdout.splitlines()
        check(listed == [f"{n}\tBible\t{l}\t{v}\tTest Bible {n}" for n, v, l, _, _ in sorted(MODULES)],
              f"modules lists the test modules: {listed}")

        # A killed import's leftovers (hidden, never listed) go at the next import of that name.
        os.makedirs(os.path.join(program, ".SYN.importing-Ab12Cd"))
        for name, v11n, _, _, _ in MODULES:
            result = run(IMPORTER, "--module", name.lower(), "--sword", library, "--out", program)
            check(result.returncode == 0, f"import {name}: {result.stdout[-300:]} {result.stderr[-300:]}")
            result = run(CLI, "--dir", program, "check", name)
            check(result.returncode == 0, f"check {name}: {result.stdout[-500:]}")
            with open(os.path.join(program, name, "versification.dat"), encoding="utf-8") as f:
                check(f.readline().strip() == v11n, f"{name} records its versification {v11n}")

        # Passages in the module's numbering, with the book names of its language.
        for folder, reference, verse_line in [
                ("SYN", "Псалтирь 22:1", "1 word{H"), ("SYN", "Псалтирь 22:1", "Ps.22.1"),
                ("VULG", "Psalmi 9:22", "Ps.9.22"), ("ENGT", "Psalm 23:1", "Ps.23.1"),
                ("GERT", "Psalmen 23:1", "Ps.23.1"), ("SYN", "Иона 2:1", "Jonah.2.1"),
                ("ENGT", "Psalm 23:1", "[added] Ps.23.1")]:
            result = run(CLI, "--dir", program, "--translation", folder, "passage", reference)
            check(verse_line in result.stdout and "note" not in result.stdout and "Heading" not in result.stdout,
                  f"{folder} {reference}: {result.stdout!r} {result.stderr}")

        result = run(CLI, "--dir", program, "map", "--translations", "SYN,ENGT", "Psalm 9:22")
        check(result.stdout == "PSALMS 10:1\n", f"SYN Psalm 9:22 in ENGT: {result.stdout!r}")

        SYN, VULG, GERT, ENGT = [(n, v) for n, v, _, _, _ in MODULES]
        mapped = sum(check_mapping(program, a, b) for a, b in [
            (SYN, ENGT), (ENGT, SYN), (VULG, ENGT), (ENGT, VULG), (GERT, ENGT), (ENGT, GERT),
            (SYN, VULG), (VULG, SYN)])
        print(f"{mapped} verse mappings compared with the library")

        # Failures: a clear message, the status, and nothing left in the program folder.
        shutil.copytree(os.path.join(library, "modules", "texts", "ztext", "syn"),
                        os.path.join(library, "modules", "texts", "ztext", "broken"))
        for suffix in ("ot.bzz", "nt.bzz"):
            with open(os.path.join(library, "modules", "texts", "ztext", "broken", suffix), "r+b") as f:
                size = f.seek(0, 2)
                f.seek(0)
                f.write(b"\xff" * size)
        with open(os.path.join(library, "mods.d", "syn.conf"), encoding="utf-8") as f:
            syn_conf = f.read()
        extra = {"broken": syn_conf.replace("[SYN]", "[BROKEN]").replace("/syn/", "/broken/"),
                 "locked": syn_conf.replace("[SYN]", "[LOCKED]") + "CipherKey=\n",
                 "wrongkey": syn_conf.replace("[SYN]", "[WRONGKEY]") + "CipherKey=abcdefgh\n",
                 "comm": syn_conf.replace("[SYN]", "[COMM]").replace("ModDrv=zText", "ModDrv=zCom")}
        for name, conf in extra.items():
            with open(os.path.join(library, "mods.d", name + ".conf"), "w", encoding="utf-8") as f:
                f.write(conf)
        before = sorted(os.listdir(program))
        for name, status, words in [("NOSUCH", 66, "no module"), ("COMM", 65, "not a Bible"),
                                    ("LOCKED", 77, "locked"), ("WRONGKEY", 77, "locked"),
                                    ("BROKEN", 65, "damaged")]:
            result = run(IMPORTER, "--module", name, "--sword", library, "--out", program)
            check(result.returncode == status and words in result.stderr,
                  f"import {name}: status {result.returncode}, {result.stderr[-300:]!r}")
        check(sorted(os.listdir(program)) == before, f"failed imports leave nothing: {os.listdir(program)}")
        check(before == sorted(n for n, _, _, _, _ in MODULES), f"only the translations are there: {before}")
        result = run(IMPORTER, "--module", "SYN", "--sword", library, "--out", program)
        check(result.returncode == 0 and sorted(os.listdir(program)) == before, "an import again replaces the first")
    finally:
        shutil.rmtree(work)
    if failures:
        sys.exit(f"{len(failures)} checks failed")


main()
