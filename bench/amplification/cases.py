"""The cases of the search: which elements of which seed grow together, and how much."""

import itertools
import re
import zlib

from . import drawing as drawings
from .drawing import fit_together
from .dxf import DxfDrawing
from .pdf import Clones, PdfDrawing
from .svg import SvgDrawing
from . import fragments

FORMATS = {".dxf": DxfDrawing, ".svg": SvgDrawing, ".pdf": PdfDrawing}
LABEL_BYTES = 5  # what makes a copy differ from the others
PACKED_TIMES = 64  # a packed stream may have so many times the bytes of the file
BY_CHANCE = 200_000  # cases of any two changes
CHAIN = 3  # references that follow one another
SHORT_TEXT = 24  # bytes of a text that makes a chain another one


class Case:
    """Elements of one drawing that grow together."""

    def __init__(self, drawing, steps, packed, group):
        self.drawing, self.steps, self.packed, self.group = drawing, steps, packed, group
        self.are_equal = all(step.how is drawings.copies for step in steps if step.grows)  # copies that pack well
        self.scale = None

    @property
    def name(self):
        grown = [f"{kind}:{label}@{part}.{start}-{end}.{step.name}" for step in self.steps
                 for part, start, end, kind, label, *_ in [step.element]]
        packed = ".packed" if self.packed else ""
        return re.sub(r"[^!-~]", "_", f"{self.drawing.name}/{self.group}/{'+'.join(grown)}{packed}")

    @property
    def file_name(self):
        readable = re.sub(r"[^\w.+-]", "_", self.name)[:120]
        return f"{readable}-{zlib.crc32(self.name.encode()):08x}.{self.drawing.suffix}"

    @property
    def signature(self):
        """Equal for cases that grow the same in the same surroundings; chains need not be tried for each long text."""
        grown = []
        for step in self.steps:
            element, text = step.element, self.drawing.text_of(step.element)
            grown.append((element.kind, element.label, element.context, step.name,
                          text if self.group == "one" or len(text) < SHORT_TEXT else b""))
        return self.drawing.suffix, tuple(grown), bool(self.packed), bool(self.drawing.always_packed)

    def make(self, quarters, size):
        """The file, `quarters` quarters of each number that fills `size` bytes."""
        if self.scale is not None:
            return self.file(quarters)
        self.scale = self.scale_for(size)
        while len(file := self.file(4)) > 1.05 * size and self.scale > 2:
            self.scale *= 0.7
        return file if quarters == 4 else self.file(quarters)

    def file(self, quarters):
        times = [count * quarters // 4 if step.grows else 1 for step, count in zip(self.steps, self.times(self.scale))]
        return self.drawing.build(self.drawing.rendered(self.steps, times), self.packed, self.steps, times)

    def is_packed(self, step):
        part = step.element.part
        return part in self.packed or self.are_equal and part in self.drawing.always_packed

    def times(self, scale):
        return [max(4, int(scale * (PACKED_TIMES if self.is_packed(step) else 1) / step.element.length))
                if step.grows else 1 for step in self.steps]

    def scale_for(self, size):
        """The most for which the file has `size` bytes."""
        room = size - sum(map(len, self.drawing.parts.values())) - 1000
        low, high = 1.0, float(max(room, 1000))
        while high / low > 1.01:
            middle = (low + high) / 2
            if self.grown_bytes(middle) <= room:
                low = middle
            else:
                high = middle
        return low

    def grown_bytes(self, scale):
        """What the steps add, counted as bytes of the file; copies within copies count for all of them."""
        times = self.times(scale)
        total = 0
        for step, count in zip(self.steps, times):
            if not step.grows:
                continue
            copies = count
            for other, more in zip(self.steps, times):
                if other is not step and other.grows and is_within(step, other):
                    copies *= more
            unit = step.element.length + LABEL_BYTES * (step.how is not drawings.copies)
            if isinstance(step.how, Clones):
                unit += step.how.extra_bytes()
            for other in self.steps:
                if other.new_length is not None and step.element.contains(other.element):
                    unit += other.new_length - other.element.length
            total += copies * unit / (PACKED_TIMES if self.is_packed(step) else 1)
        return total


def is_within(step, other):
    """Whether all that `other` copies has the element of `step` in it."""
    if isinstance(other.how, Clones) and int(step.element.part.split(".")[0]) in other.how.members:
        return True
    return other.element.contains(step.element) and other.element != step.element


def names_of_seeds(root):
    return {name for name, _ in seeds(root)}


def seeds(root):
    """All drawings, and the small seeds put into drawings."""
    for folder in ("fuzz/corpus", "tests/data", "examples"):
        for path in sorted((root / folder).rglob("*")):
            if path.suffix in FORMATS and path.is_file():
                yield path.name, FORMATS[path.suffix](path.read_bytes())
    for name, suffix, data in fragments.drawings(root / "fuzz" / "corpus"):
        yield name, FORMATS[suffix](data)


def chains(drawing):
    """A reference and what names it grow, and something in what it names; that may be another reference."""
    by_owner = {}
    for reference in drawing.references:
        by_owner.setdefault(reference.owner, []).append(reference)

    def onward(target, depth, visited):
        yield from drawing.growing_in(target)
        if depth < CHAIN:
            for reference in by_owner.get(target, ()):
                if reference.target not in visited:
                    for steps, packed in onward(reference.target, depth + 1, visited | {reference.target}):
                        yield steps, packed  # what lies deeper grows alone
                        for holder in reference.holders[:2]:
                            yield [holder] + steps, packed

    for reference in drawing.references:
        for first in drawing.growing_holders(reference):
            for steps, packed in onward(reference.target, 1, {reference.target, reference.owner}):
                yield first + steps, packed


def is_sound(steps):
    grown = [step for step in steps if step.grows]
    clones = sum(isinstance(step.how, Clones) for step in steps)
    return grown and all(step.element.length for step in grown) and clones <= 1 and fit_together(steps)


def in_order(chance, root, only=""):
    """All cases, or those of one seed: those of each format and kind by turns, shuffled by `chance`, and then any two
    changes together."""
    groups = {}
    drawings = []
    for name, drawing in seeds(root):
        if only not in ("", name):
            continue
        drawing.name = name
        singles = [(steps, packed) for steps, packed in drawing.singles() if is_sound(steps)]
        drawings.append((drawing, singles))
        for group, made in (("one", singles), ("chain", chains(drawing))):
            for steps, packed in made:
                kind = (drawing.suffix, group, steps[-1].element.kind, steps[-1].name)
                groups.setdefault(kind, []).append((drawing, steps, packed, group))
    for kind in sorted(groups):
        chance.shuffle(groups[kind])
    known = set()
    turns = [new_cases(groups[kind], known) for kind in sorted(groups)]
    for row in itertools.zip_longest(*turns):
        yield from (case for case in row if case is not None)
    yield from by_chance(drawings, chance)


def new_cases(made, known):
    """Those that are sound and not known yet."""
    for drawing, steps, packed, group in made:
        if is_sound(steps):
            case = Case(drawing, steps, packed, group)
            if case.signature not in known:
                known.add(case.signature)
                yield case


def by_chance(drawings, chance):
    """Any two changes of one drawing together."""
    able = [(drawing, singles) for drawing, singles in drawings if len(singles) > 1]
    for _ in range(BY_CHANCE):
        drawing, singles = chance.choice(able)
        (first, packed), (second, also_packed) = chance.choice(singles), chance.choice(singles)
        steps = first + second
        if is_sound(steps):
            yield Case(drawing, steps, tuple(packed) + tuple(also_packed), "two")
