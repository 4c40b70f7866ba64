#!/usr/bin/env python3
"""Compares the numbers of docs/limits.md with the constants of src/support/limits.h.

A row of a table names its constants in backticks, and its second cell has their values in the same order.

Usage: limits_document_test.py ROOT
"""
import pathlib
import re
import sys

# Sizes of caches and of rooms made ahead, which no user can notice, and what only the fuzzer's build has.
INTERNAL = {"kReservedByCount", "kSmallPicturePixels", "kPictureSlackBytes", "kJpegUsualScans", "kOpenFaces",
            "kKeptGlyphBytes", "kWorkDivisor", "kHeldDivisor"}
UNITS = {"KiB": 1 << 10, "MiB": 1 << 20, "GiB": 1 << 30}


def constants(header):
    """The values by name, those of an ordinary build."""
    text = re.sub(r"#ifdef DRAWLOAD_FUZZING.*?#else", "", header, flags=re.DOTALL)
    values = {}
    for name, value in re.findall(r"constexpr [\w:]+ (k\w+) = ([^;]+);", text):
        plain = re.sub(r"std::u?int\d+_t|std::size_t", "", value).replace("{", "(").replace("}", ")")
        values[name] = int(eval(plain.replace("/", "//"), {}, dict(values)))  # our own header, numbers alone
    return values


def numbers(cell):
    """The numbers of a cell with their units: "256 MiB and 64 times" gives 2^28 and 64."""
    found = []
    for base, power, number, unit in re.findall(r"(\d+)\^(\d+)|([\d,]*\d) ?([KMG]iB)?", cell):
        found.append(int(base) ** int(power) if power else int(number.replace(",", "")) * UNITS.get(unit, 1))
    return found


def documented(page):
    values = {}
    for line in page.splitlines():
        cells = [cell.strip() for cell in line.split("|")]
        names = re.findall(r"`(k\w+)`", cells[1]) if len(cells) > 3 else []
        values.update(zip(names, numbers(cells[2]) if names else []))
    return values


def main():
    root = pathlib.Path(sys.argv[1])
    wanted = constants((root / "src/support/limits.h").read_text(encoding="utf-8"))
    told = documented((root / "docs/limits.md").read_text(encoding="utf-8"))
    failures = [f"{name} is {value}, but docs/limits.md says {told.get(name, 'nothing')}"
                for name, value in wanted.items() if name not in INTERNAL and told.get(name) != value]
    failures += [f"docs/limits.md names {name}, which is no constant" for name in told if name not in wanted]
    print("\n".join(failures) or f"{len(told)} numbers agree")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
