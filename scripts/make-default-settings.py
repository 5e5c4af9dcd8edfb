#!/usr/bin/env python3
"""Writes the shipped general.cfg and display.cfg.

Both files are fixed binary records, so their defaults are kept here as readable values and the
bytes are made from them. Run without arguments to rewrite data/general.cfg and data/display.cfg;
--check compares the files on disk with what would be written; --show prints what a pair of files
holds.
"""

import argparse
import os
import struct
import sys
import tempfile

# Booleans in the records are 16-bit: -1 true, 0 false.
TRUE = -1
FALSE = 0

LINE_BREAKS = TRUE
MAX_SEARCH_RESULTS = 500


def rgb(red, green, blue):
    """A colour as the records store it: 0x00BBGGRR."""
    return red | (green << 8) | (blue << 16)


PAPER = rgb(0xFF, 0xFD, 0xF5)  # warm off-white, easy on the eyes for long reading
WHITE = rgb(0xFF, 0xFF, 0xFF)
INK = rgb(0x1A, 0x1A, 0x1A)  # near-black: full black on white glares
LIST_INK = rgb(0x20, 0x20, 0x20)
TITLE_INK = rgb(0x8B, 0x1A, 0x1A)  # deep red, so the reference stands out above the text
HIGHLIGHT = rgb(0xFF, 0xF2, 0xA8)  # pale yellow, like a highlighter pen

# Arial and Times New Roman exist on Windows; on Linux the Liberation fonts stand in for them
# under those names, so the same record looks alike on both.
STYLES = (
    # (what it styles, BackColor, ForeColor, FontName, FontSize, FontBold, FontItalic)
    ("navigation lists", WHITE, LIST_INK, "Arial", 10, FALSE, FALSE),
    ("passage views", PAPER, INK, "Times New Roman", 13, FALSE, FALSE),
    ("title", PAPER, TITLE_INK, "Arial", 12, TRUE, FALSE),
)
RIGHT_CLICK_COLOR = HIGHLIGHT

FONT_NAME_BYTES = 32
STYLE_FORMAT = "<ii32sihh"  # 48 bytes, little-endian, no padding
GENERAL_FORMAT = "<hh"  # 4 bytes
DISPLAY_SIZE = 3 * struct.calcsize(STYLE_FORMAT) + 4


def general_bytes():
    return struct.pack(GENERAL_FORMAT, LINE_BREAKS, MAX_SEARCH_RESULTS)


def display_bytes():
    out = b""
    for _, back, fore, name, size, bold, italic in STYLES:
        if len(name) > FONT_NAME_BYTES:
            raise ValueError(f"font name longer than {FONT_NAME_BYTES} characters: {name}")
        field = name.ljust(FONT_NAME_BYTES).encode("ascii")
        out += struct.pack(STYLE_FORMAT, back, fore, field, size, bold, italic)
    out += struct.pack("<i", RIGHT_CLICK_COLOR)
    assert len(out) == DISPLAY_SIZE
    return out


def write_atomically(path, data):
    folder = os.path.dirname(os.path.abspath(path))
    fd, temp = tempfile.mkstemp(dir=folder, prefix=".settings-")
    try:
        with os.fdopen(fd, "wb") as f:
            f.write(data)
        # mkstemp makes the file private; shipped data is readable like any other file.
        umask = os.umask(0)
        os.umask(umask)
        os.chmod(temp, 0o666 & ~umask)
        os.replace(temp, path)
    except BaseException:
        os.unlink(temp)
        raise


def show(folder):
    general = open(os.path.join(folder, "general.cfg"), "rb").read()
    display = open(os.path.join(folder, "display.cfg"), "rb").read()
    if len(general) < 4 or len(display) < DISPLAY_SIZE:
        sys.exit(f"short files: general.cfg {len(general)} bytes, display.cfg {len(display)} bytes")
    breaks, maximum = struct.unpack_from(GENERAL_FORMAT, general)
    print(f"general.cfg: line breaks {breaks}, maximum search results {maximum}")
    for i, (label, *_) in enumerate(STYLES):
        back, fore, name, size, bold, italic = struct.unpack_from(STYLE_FORMAT, display, i * 48)
        print(f"display.cfg {label}: back 0x{back:08X}, fore 0x{fore:08X}, "
              f"font {name.decode('latin-1').rstrip()!r} {size} pt, bold {bold}, italic {italic}")
    (right_click,) = struct.unpack_from("<i", display, 144)
    print(f"display.cfg right-click colour: 0x{right_click:08X}")


def main():
    here = os.path.dirname(os.path.abspath(__file__))
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--dir", default=os.path.join(here, "..", "data"),
                        help="folder that holds the two files (default: data/)")
    group = parser.add_mutually_exclusive_group()
    group.add_argument("--check", action="store_true", help="fail if the files differ")
    group.add_argument("--show", action="store_true", help="print what the files hold")
    args = parser.parse_args()

    files = {"general.cfg": general_bytes(), "display.cfg": display_bytes()}
    if args.show:
        show(args.dir)
        return 0
    if args.check:
        stale = []
        for name, data in files.items():
            path = os.path.join(args.dir, name)
            if not os.path.exists(path) or open(path, "rb").read() != data:
                stale.append(name)
        if stale:
            print("out of date: " + ", ".join(stale), file=sys.stderr)
            return 1
        return 0
    for name, data in files.items():
        write_atomically(os.path.join(args.dir, name), data)
    return 0


if __name__ == "__main__":
    sys.exit(main())
