#!/usr/bin/python3
"""Helpers of compare.sh: packs a template folder into a DOCX file, and compares where the words
of two PDF files of the same letter stand.

  fidelity.py pack FOLDER TARGET.docx [PICTURE=PART ...]
  fidelity.py compare NAME OURS.pdf LIBREOFFICE.pdf [LIMIT_MM]

The comparison reads the word boxes that `pdftotext -bbox` gives, puts the words of each page in
reading order (lines from top to bottom, words from left to right), pairs equal words of the two
lists in sequence (difflib), and measures how far each pair's top-left corners lie apart.
"""

import difflib
import html
import math
import os
import re
import struct
import subprocess
import sys
import zipfile
import zlib

MM_PER_POINT = 25.4 / 72.0
# Word boxes are compared at the top of the letters, which stands this far above the baseline
# (Carlito's and Calibri's ascent, in em).
COMMON_ASCENT = 0.952
# poppler's assumptions for a font that names no ascent or descent
DEFAULT_ASCENT = 0.95
DEFAULT_DESCENT = -0.35
FIXED_DATE = (2000, 1, 1, 0, 0, 0)


# ---------------------------------------------------------------- packing


def stamp_png(width=240, height=60):
    """A small picture drawn here: a frame with three bars, as a practice stamp might look."""
    teal, white = (31, 111, 120), (255, 255, 255)
    rows = []
    for y in range(height):
        row = bytearray([0])
        for x in range(width):
            frame = x < 3 or y < 3 or x >= width - 3 or y >= height - 3
            bar = 12 <= y < height - 12 and any(a <= x < a + 40 for a in (20, 100, 180))
            row.extend(teal if frame or bar else white)
        rows.append(bytes(row))

    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body) & 0xFFFFFFFF)

    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) +
            chunk(b"IDAT", zlib.compress(b"".join(rows), 9)) + chunk(b"IEND", b""))


def pack(folder, target, pictures):
    """Zips the parts of a template folder, content types first, with fixed dates."""
    parts = []
    for base, _, files in os.walk(folder):
        for name in files:
            path = os.path.join(base, name)
            parts.append((os.path.relpath(path, folder).replace(os.sep, "/"), path))
    parts.sort(key=lambda part: (part[0] != "[Content_Types].xml", part[0]))
    with zipfile.ZipFile(target, "w", zipfile.ZIP_DEFLATED) as docx:
        for name, path in parts:
            with open(path, "rb") as source:
                docx.writestr(zipfile.ZipInfo(name, FIXED_DATE), source.read(), zipfile.ZIP_DEFLATED)
        for assignment in pictures:
            part, _, source = assignment.partition("=")
            data = stamp_png() if source == "stamp" else open(source, "rb").read()
            docx.writestr(zipfile.ZipInfo(part, FIXED_DATE), data, zipfile.ZIP_DEFLATED)


# ---------------------------------------------------------------- reading the PDF


def font_metrics(pdf_path):
    """The ascent and descent (in em) that pdftotext assumes for the text of a PDF file."""
    with open(pdf_path, "rb") as pdf:
        data = pdf.read()
    pairs = []
    for descriptor in re.finditer(rb"/Type\s*/FontDescriptor(.{0,600}?)>>", data, re.S):
        body = descriptor.group(1)
        ascent = re.search(rb"/Ascent\s*(-?[0-9.]+)", body)
        descent = re.search(rb"/Descent\s*(-?[0-9.]+)", body)
        a = abs(float(ascent.group(1))) / 1000 if ascent else 0.0
        d = -abs(float(descent.group(1))) / 1000 if descent else 0.0
        pairs.append((a if 0 < a < 3 else DEFAULT_ASCENT, d if -3 < d < 0 else DEFAULT_DESCENT))
    if not pairs:
        return DEFAULT_ASCENT, DEFAULT_DESCENT
    return max(set(pairs), key=pairs.count)


# a run of tab leader characters; it stands for itself, whatever its length
LEADER = re.compile(r"([.\-_\u00b7]{4,})")
LEADER_TEXT = "<leader>"


class Word:
    def __init__(self, page, text, x, top, size, width=0.0):
        self.page, self.text, self.x, self.top, self.size, self.width = page, text, x, top, size, width

    def is_leader(self):
        return self.text == LEADER_TEXT


WORD = re.compile(r'<word xMin="([-0-9.]+)" yMin="([-0-9.]+)" xMax="([-0-9.]+)" yMax="([-0-9.]+)">(.*?)</word>')
PAGE = re.compile(r'<page width="([-0-9.]+)" height="([-0-9.]+)">')


def read_pages(pdf_path):
    """The words of each page, in reading order, with their top-left corners in points."""
    ascent, descent = font_metrics(pdf_path)
    boxes = subprocess.run(["pdftotext", "-bbox", pdf_path, "-"], check=True, capture_output=True,
                           text=True).stdout
    pages = []
    for line in boxes.splitlines():
        if PAGE.search(line):
            pages.append([])
            continue
        match = WORD.search(line)
        if not match or not pages:
            continue
        x_min, y_min, _, y_max = (float(v) for v in match.groups()[:4])
        size = (y_max - y_min) / (ascent - descent)
        baseline = y_min + ascent * size
        x_max = float(match.group(3))
        pages[-1].append(Word(len(pages), html.unescape(match.group(5)), x_min,
                              baseline - COMMON_ASCENT * size, size, x_max - x_min))
    return pages


def split_leaders(pages, widths):
    """A word run together with a tab leader ("Name.......Value") becomes its pieces. The pieces
    in front of the first leader are placed from the word's left edge, the others from its right
    edge, each by its width as the other PDF shows it as a word of its own."""
    result = []
    for words in pages:
        split = []
        for word in words:
            pieces = [p for p in LEADER.split(word.text) if p]
            if len(pieces) == 1 and not LEADER.fullmatch(word.text):
                split.append(word)
                continue

            def width(text):
                return widths.get(text, word.width * len(text) / max(1, len(word.text)))

            first_leader = next(i for i, p in enumerate(pieces) if LEADER.fullmatch(p))
            x, placed = word.x, []
            for piece in pieces[:first_leader + 1]:
                placed.append((piece, x))
                x += width(piece)
            right = word.x + word.width
            tail = []
            for piece in reversed(pieces[first_leader + 1:]):
                right -= width(piece)
                tail.append((piece, right))
            for piece, x in placed + list(reversed(tail)):
                text = LEADER_TEXT if LEADER.fullmatch(piece) else piece
                split.append(Word(word.page, text, x, word.top, word.size, width(piece)))
        result.append(reading_order(split))
    return result


def word_widths(pages):
    return {w.text: w.width for words in pages for w in words if not LEADER.search(w.text)}


def reading_order(words):
    """Lines from top to bottom, words in a line from left to right."""
    lines = []
    for word in sorted(words, key=lambda w: w.top + w.size):
        baseline = word.top + word.size
        if lines and abs(lines[-1][0] - baseline) <= 0.3 * word.size:
            lines[-1][1].append(word)
        else:
            lines.append((baseline, [word]))
    return [word for _, line in lines for word in sorted(line, key=lambda w: w.x)]


# ---------------------------------------------------------------- comparing


def compare(name, ours_path, theirs_path, limit_mm):
    ours, theirs = read_pages(ours_path), read_pages(theirs_path)
    ours, theirs = split_leaders(ours, word_widths(theirs)), split_leaders(theirs, word_widths(ours))
    pairs, unmatched = [], 0
    for index in range(max(len(ours), len(theirs))):
        a = ours[index] if index < len(ours) else []
        b = theirs[index] if index < len(theirs) else []
        matcher = difflib.SequenceMatcher(None, [w.text for w in a], [w.text for w in b], autojunk=False)
        matched = 0
        for block in matcher.get_matching_blocks():
            matched += block.size
            for k in range(block.size):
                # a leader is no word: it only keeps the words around it in step
                if not a[block.a + k].is_leader():
                    pairs.append((a[block.a + k], b[block.b + k]))
        unmatched += len(a) + len(b) - 2 * matched

    distances = [(math.hypot(p.x - q.x, p.top - q.top) * MM_PER_POINT, p, q) for p, q in pairs]
    largest = max((d for d, _, _ in distances), default=0.0)
    mean = sum(d for d, _, _ in distances) / len(distances) if distances else 0.0
    print(f"{name}: pages {len(ours)}/{len(theirs)} (ours/LibreOffice), matched words {len(pairs)}, "
          f"unmatched words {unmatched}, largest distance {largest:.2f} mm, mean {mean:.2f} mm")
    for distance, p, q in sorted(distances, key=lambda entry: -entry[0])[:5]:
        print(f"    {distance:5.2f} mm  page {p.page}  {p.text!r:28} ours x {p.x * MM_PER_POINT:6.1f} "
              f"y {p.top * MM_PER_POINT:6.1f}  LibreOffice x {q.x * MM_PER_POINT:6.1f} "
              f"y {q.top * MM_PER_POINT:6.1f} mm")
    return largest <= limit_mm and len(ours) == len(theirs) and bool(pairs)


def main(arguments):
    if len(arguments) >= 3 and arguments[0] == "pack":
        pack(arguments[1], arguments[2], arguments[3:])
        return 0
    if len(arguments) in (4, 5) and arguments[0] == "compare":
        limit = float(arguments[4]) if len(arguments) == 5 else 3.0
        return 0 if compare(arguments[1], arguments[2], arguments[3], limit) else 1
    print(__doc__, file=sys.stderr)
    return 2


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
