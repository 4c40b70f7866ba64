#!/usr/bin/env python3
"""Writes the code page tables beside this file from the mappings of the C library's iconv (glibc).

Usage: generate.py        (then clang-format is not needed: the tables are laid out here)
"""

import ctypes
import pathlib

HERE = pathlib.Path(__file__).resolve().parent
SINGLE_PAGES = (874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258)
# Vendors fill it differently; the published page leaves it to private use.
PRIVATE_USE_950 = range(0xC6A1, 0xC8FE + 1)
POINTS_PER_LINE = 13
RUNS_PER_LINE = 7

libc = ctypes.CDLL(None, use_errno=True)
libc.iconv_open.restype = ctypes.c_void_p
libc.iconv.argtypes = [ctypes.c_void_p] + [ctypes.c_void_p] * 4
libc.iconv.restype = ctypes.c_size_t
libc.iconv_close.argtypes = [ctypes.c_void_p]
FAILED = ctypes.c_size_t(-1).value


class Decoder:
    """Code points of single characters in one encoding."""

    def __init__(self, encoding):
        self.handle = libc.iconv_open(b"UTF-32LE", encoding.encode())
        if self.handle == ctypes.c_void_p(-1).value:
            raise SystemExit("iconv does not know " + encoding)

    def point(self, code):
        """The code point of the bytes, 0 where they are none or more than one character."""
        libc.iconv(self.handle, None, None, None, None)
        source = ctypes.create_string_buffer(code, len(code))
        target = ctypes.create_string_buffer(16)
        source_at, source_left = ctypes.c_void_p(ctypes.addressof(source)), ctypes.c_size_t(len(code))
        target_at, target_left = ctypes.c_void_p(ctypes.addressof(target)), ctypes.c_size_t(16)
        refs = [ctypes.byref(x) for x in (source_at, source_left, target_at, target_left)]
        if libc.iconv(self.handle, *refs) == FAILED or source_left.value != 0:
            return 0
        libc.iconv(self.handle, None, None, refs[2], refs[3])  # what a combining page still holds back
        written = 16 - target_left.value
        return int.from_bytes(target.raw[:4], "little") if written == 4 else 0


def lines_of(items, per_line):
    rows = [", ".join(items[i : i + per_line]) for i in range(0, len(items), per_line)]
    return ",\n".join("    " + row for row in rows)


def single_byte_source():
    tables = []
    for page in SINGLE_PAGES:
        decoder = Decoder(f"WINDOWS-{page}" if page == 874 else f"CP{page}")
        points = [f"0x{decoder.point(bytes([byte])):04X}" for byte in range(0x80, 0x100)]
        tables.append(f"constinit const SingleByteTable kCodePage{page} = {{\n{lines_of(points, POINTS_PER_LINE)}}};\n")
    return (
        '// Written by generate.py.\n#include "dxf/codepages/single_byte.h"\n\n// clang-format off\n'
        "namespace codepages {\n\n" + "\n".join(tables) + "\n}  // namespace codepages\n"
    )


def double_byte_pairs(page, skipped):
    decoder = Decoder(f"CP{page}")
    codes = (lead * 256 + trail for lead in range(0x81, 0xFF) for trail in range(0x40, 0xFF))
    pairs = [(code, decoder.point(code.to_bytes(2, "big"))) for code in codes if code not in skipped]
    return [pair for pair in pairs if pair[1] != 0]


def runs_of(pairs):
    """Runs of codes without a gap, as [first code, length]."""
    runs = []
    for code, _ in pairs:
        if runs and code == runs[-1][0] + runs[-1][1]:
            runs[-1][1] += 1
        else:
            runs.append([code, 1])
    return runs


def double_byte_source(page, skipped):
    pairs = double_byte_pairs(page, skipped)
    runs = [f"{{0x{first:04X}, {length}}}" for first, length in runs_of(pairs)]
    points = [f"0x{point:04X}" for _, point in pairs]
    return f"""// Written by generate.py.
#include "dxf/codepages/double_byte_runs.h"

// clang-format off
namespace codepages {{

namespace {{

constexpr CodeRun kRuns[] = {{
{lines_of(runs, RUNS_PER_LINE)}}};

constexpr std::uint16_t kPoints[] = {{
{lines_of(points, POINTS_PER_LINE)}}};

constexpr auto kPairs = PairsOf<kPairCount{page}>(kRuns, kPoints);
constexpr auto kLeads = LeadsOf(kPairs);

}}  // namespace

constinit const DoubleByteTable kCodePage{page} = {{kLeads, kPairs}};

}}  // namespace codepages
"""


def main():
    (HERE / "single_byte.cpp").write_text(single_byte_source())
    (HERE / "code_page_936.cpp").write_text(double_byte_source(936, range(0)))
    (HERE / "code_page_950.cpp").write_text(double_byte_source(950, PRIVATE_USE_950))


main()
