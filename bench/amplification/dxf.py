"""What grows in a DXF drawing: tag pairs, runs of them, entities, table entries, blocks, sections and values."""

import re

from .drawing import Drawing, Element, Reference, Step, nest, repeat, replace, tokens_of

# A format code of a paragraph text, an escape, a brace, or what lies between them.
VALUE_TOKEN = re.compile(rb"\\[A-Za-z][^;\\{}]*;|\\.|%%.|[{}]|[^\\{}%]+")
NUMBER = re.compile(rb"[-+0-9. eE]*")
COMPOUNDS = {b"BLOCK": b"ENDBLK", b"TABLE": b"ENDTAB", b"POLYLINE": b"SEQEND", b"SECTION": b"ENDSEC"}


class Tag:
    def __init__(self, start, code, value_start, value, end):
        self.start, self.code, self.value_start, self.value, self.end = start, code, value_start, value, end


def many(count):
    return replace(count, b"1000000", f"{count.label}many")


def tags_of(data):
    tags = []
    place = 0
    while place < len(data):
        middle = data.find(b"\n", place) + 1
        end = data.find(b"\n", middle) + 1
        if not middle or not end:
            break
        tags.append(Tag(place, data[place:middle].strip(), middle, data[middle:end].rstrip(b"\r\n"), end))
        place = end
    return tags


def numbered(text, times):
    """Copies whose names and handles differ."""
    found = re.search(rb"\n[ ]*2\r?\n([^\r\n]+)|^[^\n]+\n[^\n]+\n[ ]*2\r?\n([^\r\n]+)", text)
    handle = re.search(rb"\n[ ]*5\r?\n([0-9A-F]+)", text)
    if found is None and handle is None:
        return text * times
    out = [text]
    for copy in range(1, times):
        changed = text
        for match, new in ((found, b"%s_%d"), (handle, b"%sF%X")):
            if match is not None:
                old = match[0]
                changed = changed.replace(old, new % (old, copy), 1)
        out.append(changed)
    return b"".join(out)


class DxfDrawing(Drawing):
    suffix = "dxf"

    def __init__(self, data):
        super().__init__()
        self.parts["file"] = data
        self.tags = tags_of(data)
        self.records = []  # (first tag, tag past the last, name): an entity, a table entry, a marker
        starts = [i for i, tag in enumerate(self.tags) if tag.code == b"0"] + [len(self.tags)]
        for first, last in zip(starts, starts[1:]):
            self.records.append((first, last, self.tags[first].value))
        self.targets = {}  # name: its element
        self.compounds = self.find_compounds()
        self.find_targets()
        self.find_references()

    def build(self, parts, packed, steps, times):
        return parts["file"]

    def element(self, first, last, kind, label="", inner=None, context=""):
        return Element("file", self.tags[first].start, self.tags[last - 1].end, kind, label, inner, context)

    def find_compounds(self):
        """Records that reach to another: blocks, tables, polylines, sections."""
        found = []
        for index, (first, _, name) in enumerate(self.records):
            if name not in COMPOUNDS:
                continue
            for _, last, other in self.records[index + 1:]:
                if other == COMPOUNDS[name]:
                    found.append(self.element(first, last, name.decode().lower(), self.name_in(first, last)))
                    break
        return found

    def name_in(self, first, last):
        for tag in self.tags[first:last]:
            if tag.code == b"2":
                return tag.value.decode("latin-1")
        return ""

    def record_element(self, record):
        first, last, name = record
        return self.element(first, last, "entity", name.decode("latin-1"), context=name.decode("latin-1"))

    def find_targets(self):
        for first, last, name in self.records:
            if name in (b"SECTION", b"TABLE"):
                continue
            element = self.element(first, last, "entry")
            if name == b"BLOCK":
                element = next((block for block in self.compounds if block.start == element.start), element)
            for tag in self.tags[first + 1:last]:
                if tag.code in (b"2", b"5") and tag.value and not tag.value.startswith(b"*"):
                    if tag.code == b"2" and name not in (b"BLOCK", b"LTYPE", b"LAYER", b"STYLE", b"DIMSTYLE", b"MLINESTYLE"):
                        continue
                    key = f"{name.decode('latin-1')} {tag.value.decode('latin-1')}"
                    self.targets.setdefault(key, element)

    def find_references(self):
        by_value = {}
        for key in self.targets:
            by_value.setdefault(key.split(" ", 1)[1], []).append(key)
        for record in self.records:
            holder = self.record_element(record)
            for tag in self.tags[record[0] + 1:record[1]]:
                place = Element("file", tag.value_start, tag.value_start + len(tag.value), "name", tag.code.decode())
                for key in by_value.get(tag.value.decode("latin-1"), ()):
                    target = self.targets[key]
                    if tag.code in (b"5", b"1", b"9", b"62", b"70") or target.start == holder.start:
                        continue
                    self.references.append(Reference(place, key, self.owner_of(place), [repeat(holder)]))

    def owner_of(self, element):
        inside = [key for key, target in self.targets.items() if target.contains(element)]
        return min(inside, key=lambda key: self.targets[key].length, default="")

    def runs(self, record):
        """Single tag pairs, and those up to the next one of the same code: a vertex, an edge, a cell."""
        first, last, name = record
        context = name.decode("latin-1")
        for index in range(first + 1, last):
            tag = self.tags[index]
            label = f"{context}.{tag.code.decode()}"
            yield index, self.element(index, index + 1, "tag", label, context=context)
            for other in range(index + 2, min(index + 40, last)):
                if self.tags[other].code == tag.code:
                    yield index, self.element(index, other, "vertex", label, context=context)
                    break
            else:
                if index + 2 <= last:
                    yield index, self.element(index, min(index + 3, last), "vertex", label, context=context)

    def counts_before(self, record, index):
        """The two nearest numbers before a tag that may say how many of it there are."""
        found = []
        for place in range(index - 1, record[0], -1):
            tag = self.tags[place]
            if re.fullmatch(rb"7\d|9\d", tag.code) and tag.value.strip().isdigit():
                found.append(Element("file", tag.value_start, tag.value_start + len(tag.value), "count", tag.code.decode()))
            if len(found) == 2:
                break
        return found

    def values(self, record):
        """Pieces of values: of text, of names, of digits."""
        first, last, name = record
        context = name.decode("latin-1")
        for tag in self.tags[first + 1:last]:
            label = f"{context}.{tag.code.decode()}"
            end = tag.value_start + len(tag.value)
            places = tokens_of(VALUE_TOKEN, self.parts["file"], tag.value_start, end)
            for count in (1, 2, 3):
                for i in range(len(places) - count + 1):
                    start = places[i][0]
                    yield Element("file", start, places[i + count - 1][1], "value", label, places[i][1], label)

    def grown_runs(self, record):
        """Steps that grow something within one record, with and without the counts before it."""
        for index, element in self.runs(record):
            yield [repeat(element)]
            for count in self.counts_before(record, index):
                yield [many(count), repeat(element)]
            yield [many(count) for count in self.counts_before(record, index)] + [repeat(element)]

    def singles(self):
        for record in self.records:
            entity = self.record_element(record)
            yield [repeat(entity)], ()
            yield [Step(entity, numbered, name="numbered")], ()
            for steps in self.grown_runs(record):
                yield steps, ()
            for element in self.values(record):
                yield [repeat(element)], ()
                if element.end - element.inner > 0:
                    yield [nest(element)], ()
        for compound in self.compounds:
            yield [repeat(compound)], ()
            yield [Step(compound, numbered, name="numbered")], ()
        for reference in self.references:
            yield from self.turned(reference)

    def turned(self, reference):
        """The reference names the block that it lies in."""
        for key in self.targets:
            if key.startswith("BLOCK ") and self.targets[key].contains(reference.place):
                name = key.split(" ", 1)[1].encode("latin-1")
                for step in reference.holders:
                    yield [step, replace(reference.place, name, "itself")], ()

    def growing_in(self, target):
        element = self.targets[target]
        for record in self.records:
            inside = self.record_element(record)
            if not element.contains(inside):
                continue
            if inside.start != element.start and record[2] not in (b"ENDBLK",):
                yield [repeat(inside)], ()
            seen = set()
            for index, run in self.runs(record):
                tag = self.tags[index]
                if (run.kind, tag.code) in seen:
                    continue
                seen.add((run.kind, tag.code))
                counts = self.counts_before(record, index)
                yield [many(count) for count in counts[:1]] + [repeat(run)], ()
                if not NUMBER.fullmatch(tag.value):
                    end = tag.value_start + len(tag.value)
                    yield [repeat(Element("file", tag.value_start, end, "value", run.label))], ()
                    yield [repeat(Element("file", tag.value_start, tag.value_start + 1, "letter", run.label))], ()

    def growing_holders(self, reference):
        """The holders of a reference, and what grows within them while the reference stays."""
        holder = reference.holders[0].element
        yield [reference.holders[0]]
        for record in self.records:
            if self.tags[record[0]].start != holder.start:
                continue
            seen = set()
            for index, run in self.runs(record):
                if run.contains(reference.place) or (run.kind, self.tags[index].code) in seen:
                    continue
                seen.add((run.kind, self.tags[index].code))
                counts = self.counts_before(record, index)
                yield [many(count) for count in counts[:1]] + [repeat(run)]
            for element in self.values(record):
                if not element.contains(reference.place) and not NUMBER.fullmatch(self.text_of(element)):
                    yield [repeat(element)]
