#!/usr/bin/env python3
"""Converts the bitmap fonts the renderer draws text with into C++ tables beside this script.

Run once, on purpose, when the glyph set changes; rendering never needs a font installed.

    tools/render/font/make_glyphs.py [--fonts DIR] [-o DIR]

It writes one file per size (Glyphs_5x8.cpp, ...) holding that size's bitmaps, and Glyphs.cpp
with the code-page tables and the list of sizes the renderer looks glyphs up in.

The glyphs are the "misc-fixed" character-cell fonts of the X.Org font-misc-misc collection
(public domain, see COPYING beside this script), as Debian ships them in xfonts-base. Without
--fonts the script fetches that package and the pcf2bdf converter with `apt-get download` into a
temporary folder and converts the fonts from there; with --fonts it reads FONT.bdf files from DIR.

Five base sizes are kept (5x8, 6x12, 7x14, 9x15, 10x20), each with every character of the
code pages that font types 0, 1, 2, 4, 5 and 7 name (ISO 8859-1, -15, -2, -4, -5 and -7).
Each glyph is stored in its font's full box (width x ascent + descent), one row after another,
rows padded to whole bytes, leftmost pixel in the high bit.
"""
import argparse
import glob
import os
import subprocess
import sys
import tempfile

BASES = ["5x8", "6x12", "7x14", "9x15", "10x20"]
# Font type -> the code page its bytes 0xA0..0xFF are read in.
CODE_PAGES = [(0, "latin_1"), (1, "iso8859_15"), (2, "iso8859_2"), (4, "iso8859_4"),
              (5, "iso8859_5"), (7, "iso8859_7")]
HERE = os.path.dirname(os.path.abspath(__file__))


def fetch_fonts(work):
    """The BDF form of the base fonts, from the Debian packages."""
    subprocess.run(["apt-get", "download", "xfonts-base", "pcf2bdf"], cwd=work, check=True)
    root = os.path.join(work, "root")
    for deb in glob.glob(os.path.join(work, "*.deb")):
        subprocess.run(["dpkg-deb", "-x", deb, root], check=True)
    misc = os.path.join(root, "usr/share/fonts/X11/misc")
    for name in BASES:
        pcf = os.path.join(work, name + ".pcf")
        with open(pcf, "wb") as out:
            subprocess.run(["gzip", "-dc", os.path.join(misc, name + ".pcf.gz")], stdout=out, check=True)
        subprocess.run([os.path.join(root, "usr/bin/pcf2bdf"), "-o", os.path.join(work, name + ".bdf"), pcf],
                       check=True)
    return work


def read_bdf(path):
    """(box width, ascent, descent, {code point: rows of bits})"""
    glyphs = {}
    ascent = descent = width = None
    with open(path, encoding="latin-1") as f:
        lines = iter(f.read().splitlines())
    for line in lines:
        key = line.split(" ", 1)[0]
        if key == "FONT_ASCENT":
            ascent = int(line.split()[1])
        elif key == "FONT_DESCENT":
            descent = int(line.split()[1])
        elif key == "FONTBOUNDINGBOX":
            width = int(line.split()[1])
        elif key == "STARTCHAR":
            code, bbx, rows = None, None, []
            for line in lines:
                key = line.split(" ", 1)[0]
                if key == "ENCODING":
                    code = int(line.split()[1])
                elif key == "BBX":
                    bbx = [int(v) for v in line.split()[1:5]]
                elif key == "BITMAP":
                    for line in lines:
                        if line == "ENDCHAR":
                            break
                        rows.append(int(line, 16) if line else 0)
                    break
            glyphs[code] = (bbx, rows)
    height = ascent + descent
    boxed = {}
    for code, ((w, h, xoff, yoff), rows) in glyphs.items():
        bits = [[0] * width for _ in range(height)]
        row_bits = ((w + 7) // 8) * 8
        for r, value in enumerate(rows):
            y = ascent - (yoff + h) + r
            for c in range(w):
                x = xoff + c
                if 0 <= y < height and 0 <= x < width and value >> (row_bits - 1 - c) & 1:
                    bits[y][x] = 1
        boxed[code] = bits
    return width, height, boxed


def code_points():
    """Every character the code pages hold, and per font type the code point of each byte."""
    pages = {}
    wanted = set(range(0x20, 0x7F))
    for font_type, codec in CODE_PAGES:
        table = [None] * 256
        for b in range(0x20, 0x100):
            if 0x7F <= b < 0xA0:
                continue
            try:
                table[b] = ord(bytes([b]).decode(codec))
            except UnicodeDecodeError:
                continue
            wanted.add(table[b])
        pages[font_type] = table
    return sorted(wanted), pages


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--fonts", help="a folder with 5x8.bdf, 6x12.bdf, ... (default: fetch them)")
    parser.add_argument("-o", "--output", default=HERE, help="the folder to write into (default: beside this script)")
    args = parser.parse_args()
    with tempfile.TemporaryDirectory() as work:
        folder = args.fonts or fetch_fonts(work)
        fonts = [read_bdf(os.path.join(folder, name + ".bdf")) for name in BASES]
    cps, pages = code_points()
    index = {cp: i for i, cp in enumerate(cps)}

    files = {}
    for name, (width, height, glyphs) in zip(BASES, fonts):
        missing = [cp for cp in cps if cp not in glyphs]
        if missing:
            sys.exit("%s lacks %s" % (name, " ".join("U+%04X" % cp for cp in missing)))
        files["Glyphs_%s.cpp" % name] = size_file(name, width, glyphs, cps)
    files["Glyphs.cpp"] = tables_file(fonts, pages, index)
    for file_name, lines in files.items():
        with open(os.path.join(args.output, file_name), "w") as f:
            f.write("\n".join(lines) + "\n")
    print("%s: %d glyphs in %d sizes, %d files" % (args.output, len(cps), len(BASES), len(files)))


def opening():
    return ["// Generated by tools/render/font/make_glyphs.py from the misc-fixed fonts of X.Org's",
            "// font-misc-misc (public domain, see COPYING beside this file). Do not edit by hand.",
            '#include "tools/render/Font.h"',
            "",
            "namespace VT {",
            "namespace Render {",
            ""]


def size_file(name, width, glyphs, cps):
    """One size's bitmaps, every glyph in the order of cps."""
    out = opening()
    row_bytes = (width + 7) // 8
    out.append("extern const uint8_t glyphs_%s[];" % name)
    out.append("const uint8_t glyphs_%s[] = {" % name)
    for cp in cps:
        data = []
        for row in glyphs[cp]:
            value = 0
            for x, bit in enumerate(row):
                if bit:
                    value |= 1 << (row_bytes * 8 - 1 - x)
            data += [(value >> (8 * (row_bytes - 1 - k))) & 0xFF for k in range(row_bytes)]
        out.append("    %s // U+%04X" % (" ".join("0x%02X," % v for v in data), cp))
    out.append("};")
    out.append("")
    out.append("}")
    out.append("}")
    return out


def tables_file(fonts, pages, index):
    """The sizes, and per font type the glyph of each byte."""
    out = opening()
    for name in BASES:
        out.append("extern const uint8_t glyphs_%s[];" % name)
    out.append("")
    out.append("namespace {")
    out.append("")
    out.append("const uint16_t code_page_glyphs[%d][256] = {" % len(CODE_PAGES))
    for font_type, _ in CODE_PAGES:
        table = [index[cp] if cp is not None else 0xFFFF for cp in pages[font_type]]
        out.append("    { // font type %d" % font_type)
        for i in range(0, 256, 16):
            out.append("        " + " ".join("%d," % v for v in table[i:i + 16]))
        out.append("    },")
    out.append("};")
    out.append("")
    out.append("}")
    out.append("")
    out.append("const Glyph_set glyph_sets[GLYPH_SET_COUNT] = {")
    for name, (width, height, _) in zip(BASES, fonts):
        out.append("    {%d, %d, %d, glyphs_%s}," % (width, height, (width + 7) // 8, name))
    out.append("};")
    out.append("")
    out.append("const uint16_t* code_page(uint8_t font_type)")
    out.append("{")
    out.append("    switch (font_type) {")
    for i, (font_type, _) in enumerate(CODE_PAGES):
        out.append("    case %d:" % font_type)
        out.append("        return code_page_glyphs[%d];" % i)
    out.append("    default: // proprietary and unknown types: ISO 8859-1")
    out.append("        return code_page_glyphs[0];")
    out.append("    }")
    out.append("}")
    out.append("")
    out.append("}")
    out.append("}")
    return out


if __name__ == "__main__":
    main()
