"""What grows in a PDF drawing: tokens, keys with values, openers, objects, operator lines, references, and streams."""

import pathlib
import re
import sys
import zlib

from .drawing import Drawing, Element, Reference, Step, nest, repeat, replace, tokens_of

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "examples"))
import make_pdf_examples  # noqa: E402

OBJECT = re.compile(rb"\b(\d+) 0 obj\b\s*(.*?)\s*endobj", re.S)
TOKEN = re.compile(rb"\((?:\\.|[^\\()]|\((?:\\.|[^\\()])*\))*\)|<<|>>|<[0-9A-Fa-f\s]*>|[\[\]]|\d+ 0 R|"
                   rb"/[^\s/<>\[\]()]*|[^\s/<>\[\]()]+", re.S)
OPENERS = {b"<<": b">>", b"[": b"]"}
REFERENCE = re.compile(rb"(\d+) 0 R")

SECTION = b"+" * 90  # in the file, so long as a section of one save
ROW = b"+" * 7

# Objects to be named from every place: each is a text, with what in it is repeated.
LARGE = {"numbers": (b"[ 1 2 3 4 5 6 ]", b"1 2 3 4 5 6 "), "arrays": (b"[ 1 [ 2 ] ]", b"1 [ 2 ] "),
         "keys": (b"<< /A 1 >>", b"/A 1 "), "names": (b"[ /A ]", b"/A ")}


class PdfDrawing(Drawing):
    """Parts: "N" is the text of object N, without what the file says of its stream's packing; "N.data" its stream,
    unpacked; "trailer", "table" (the keys of a cross-reference stream), "container" (those of an object stream);
    "pairs", "rows" and "sections" have one entry to repeat, which is not in the file itself."""

    suffix = "pdf"

    def __init__(self, data):
        super().__init__()
        self.coded = set()  # the objects whose stream stays as it is, with its own filters
        self.in_container = set()
        self.is_streamed = False
        self.header = data[:data.find(b"\n") + 1] or b"%PDF-1.4\n"
        self.take_objects(data)
        self.root = int(re.findall(rb"/Root (\d+) 0 R", data)[-1])
        self.add_large_objects()
        self.parts["trailer"] = b" /ID [ <00> <00> ] "
        self.parts["sections"] = SECTION
        if self.is_streamed:
            self.parts.update(pairs=b"0 0 ", rows=ROW)
            self.always_packed = self.in_container | {"pairs", "rows"}
        self.tokens = {}
        for part in list(self.parts):
            if part not in ("pairs", "rows", "sections"):
                self.tokens[part] = tokens_of(TOKEN, self.parts[part]) if self.is_text(part) else []
        self.references = []
        self.find_references()

    # ---- reading

    def take_objects(self, data):
        for match in OBJECT.finditer(data):
            number, body = match[1].decode(), match[2]
            if b"stream" not in body or b"/Length" not in body:
                self.parts[number] = body
                continue
            head, stream = re.split(rb"stream\r?\n", body, maxsplit=1)
            length = re.search(rb"/Length (\d+)(?! 0 R)", head)
            stream = stream[:int(length[1])] if length else stream.rsplit(b"endstream", 1)[0].rstrip(b"\r\n")
            is_flate = re.search(rb"/Filter\s*/FlateDecode", head) and (b"/DecodeParms" not in head or b"/XRef" in head)
            head = re.sub(rb"\s*/Length \d+(?! 0 R)", b"", head)
            if is_flate:
                stream = zlib.decompressobj().decompress(stream)
                head = re.sub(rb"\s*/Filter\s*/FlateDecode", b"", head)
            elif b"/Filter" in head:
                self.coded.add(number)
            if b"/XRef" in head:
                self.is_streamed = True
                written = rb"/Size \d+|/DecodeParms\s*<<.*?>>|/W\s*\[.*?\]|/Root \d+ 0 R"
                self.parts["table"] = re.sub(written, b"", head.strip()[2:-2])
            elif b"/ObjStm" in head:
                self.is_streamed = True
                self.take_container(head, stream)
            else:
                self.parts[number], self.parts[number + ".data"] = head.strip(), stream

    def take_container(self, head, stream):
        first = int(re.search(rb"/First (\d+)", head)[1])
        self.parts["container"] = re.sub(rb"/First \d+|/N \d+", b"", head.strip()[2:-2])
        pairs = [int(word) for word in stream[:first].split()]
        starts = pairs[1::2] + [len(stream) - first]
        for number, start, end in zip(pairs[::2], starts, starts[1:]):
            self.parts[str(number)] = stream[first + start:first + end].strip()
            self.in_container.add(str(number))

    def add_large_objects(self):
        self.largest = {}
        number = max(self.numbers()) + 1
        for name, (text, unit) in LARGE.items():
            self.parts[str(number)] = text
            place = text.index(unit)
            self.largest[name] = (str(number), Element(str(number), place, place + len(unit), "largest", name), ())
            number += 1
        for name, text in (("spaces", b"\x20"), ("zeros", b"\0"), ("lines", b"0 0 m\n")):
            self.parts[str(number)], self.parts[f"{number}.data"] = b"<< >>", text
            element = Element(f"{number}.data", 0, len(text), "largest", name)
            self.largest[name] = (str(number), element, (f"{number}.data",))
            number += 1
        self.own = {number for number, _, _ in self.largest.values()}

    def numbers(self):
        return [int(part) for part in self.parts if part.isdigit()]

    def is_text(self, part):
        text = self.parts[part]
        return part.split(".")[0] not in self.coded and len(text) < 100_000 and all(9 <= byte < 127 for byte in text)

    # ---- writing

    def build(self, parts, packed, steps, times):
        objects = {int(part): self.object_text(parts, part, packed) for part in parts if part.isdigit()}
        for step, count in zip(steps, times):
            if isinstance(step.how, Clones):
                objects.update(step.how.objects_of(objects, count))
        container = {int(number) for number in self.in_container}
        sections = len(parts["sections"]) // len(SECTION) - 1
        if not self.is_streamed:
            return make_pdf_examples.file_with_table(objects, self.root, self.header, parts["trailer"], sections)
        return make_pdf_examples.file_with_streams(
            objects, self.root, container, self.header, table_keys=parts.get("table", b""),
            container_keys=parts.get("container", b""), pairs=parts["pairs"][4:], rows=len(parts["rows"]) // len(ROW) - 1)

    def object_text(self, parts, number, packed):
        head = parts[number]
        data = parts.get(number + ".data")
        if data is None:
            return self.true_length(parts, number, packed) or head
        keys = b""
        if number + ".data" in packed:
            data = deflated(data)
            keys = b" /Filter /FlateDecode"
        if b"/Length" not in self.parts[number]:
            keys += b" /Length %d" % len(data)
        return head.replace(b"<<", b"<<" + keys, 1) + b"\nstream\n" + data + b"\nendstream"

    def true_length(self, parts, number, packed):
        """The text of an object that is named as the length of a stream; None for all others."""
        if not re.fullmatch(rb"\s*\d+\s*", self.parts[number]):
            return None
        for other in self.numbers():
            if re.search(rb"/Length %s 0 R" % number.encode(), self.parts[str(other)]) and f"{other}.data" in parts:
                data = parts[f"{other}.data"]
                return b"%d" % (len(deflated(data)) if f"{other}.data" in packed else len(data))
        return None

    # ---- elements

    def element(self, part, first, last, kind, inner=None, label=None):
        tokens = self.tokens[part]
        start, end = tokens[first][0], tokens[last][1]
        while self.parts[part][end:end + 1] in (b" ", b"\n", b"\r"):
            end += 1
        if label is None:
            words = [self.token(part, index) for index in range(first, min(last, first + 1) + 1)]
            label = b" ".join(words).decode("latin-1")[:16]
        return Element(part, start, end, kind, label, inner, self.kind_of(part))

    def kind_of(self, part):
        number = part.split(".")[0]
        names = re.findall(rb"/(?:Type|Subtype) ?/(\w+)", self.parts.get(number, b""))
        return b".".join(names).decode() + ("." + part.split(".")[1] if "." in part else "")

    def token(self, part, index):
        start, end = self.tokens[part][index]
        return self.parts[part][start:end]

    def end_of_value(self, part, index):
        """The last token of the value that begins at a token."""
        closing = OPENERS.get(self.token(part, index))
        if closing is None:
            return index
        depth = 0
        for place in range(index, len(self.tokens[part])):
            word = self.token(part, place)
            depth += word in OPENERS
            depth -= word in OPENERS.values()
            if depth == 0:
                return place
        return index

    def keys(self, part):
        """Each key of the dictionaries of a part: its index, those of its value."""
        tokens = self.tokens[part]
        stack = []
        index = 0
        while index < len(tokens):
            word = self.token(part, index)
            if word in OPENERS:
                stack.append(word)
            elif word in OPENERS.values() and stack:
                stack.pop()
            elif word.startswith(b"/") and index + 1 < len(tokens) and (not stack or stack[-1] == b"<<"):
                following = self.token(part, index + 1)
                if following not in OPENERS.values():
                    yield index, index + 1, self.end_of_value(part, index + 1)
                    if following not in OPENERS:
                        index += 1
            index += 1

    def lines(self, part):
        """The lines of a text, and in a text of one line its operators with their operands."""
        data = self.parts[part]
        place = 0
        while place < len(data):
            end = data.find(b"\n", place) + 1 or len(data)
            yield Element(part, place, end, "line", data[place:end].strip().decode("latin-1")[:16], None, self.kind_of(part))
            place = end
        if data.count(b"\n") < 2:
            start = 0
            for index, (_, end) in enumerate(self.tokens[part]):
                if re.fullmatch(rb"[A-Za-z'\"*]+", self.token(part, index)):
                    label = data[start:end].strip().decode("latin-1")[:16]
                    yield Element(part, start, end, "operator", label, None, self.kind_of(part))
                    start = end

    def singles(self):
        for part in self.parts:
            if part.split(".")[0] in self.own:
                continue
            if part in ("pairs", "rows", "sections"):
                yield [repeat(Element(part, 0, len(self.parts[part]), part, part, None, self.name))], ()
            elif part.endswith(".data"):
                yield from self.stream_singles(part)
            else:
                yield from self.object_singles(part)
        for reference in self.references:
            for holder in reference.holders:
                yield [holder], ()

    def object_singles(self, part):
        count = len(self.tokens.get(part, ()))
        for length in (1, 2, 3):
            for first in range(count - length + 1):
                yield [repeat(self.element(part, first, first + length - 1, f"tokens{length}"))], ()
        for first in range(count):
            last = self.end_of_value(part, first)
            if last > first:
                container = self.element(part, first, last, "container", self.tokens[part][first][1])
                yield [repeat(container)], ()
                yield [nest(container)], ()
            elif self.token(part, first).startswith((b"/", b"(")):
                start, end = self.tokens[part][first]
                yield [repeat(Element(part, start + 1, end - 1 if end - 1 > start + 1 else end, "name",
                                      self.token(part, first).decode("latin-1")[:16], None, self.kind_of(part)))], ()
        for key, first, last in self.keys(part):
            whole = self.element(part, key, last, "key")
            value = self.element(part, first, last, "value", label=whole.label)
            yield [repeat(whole)], ()
            yield [Step(whole, numbered_key, name="numbered")], ()
            if re.fullmatch(rb"-?[\d.]+", self.token(part, first)):
                for number in (b"0", b"5000", b"2000000000"):
                    yield [repeat(whole), replace(value, number + b" ", number.decode())], ()
            if part.isdigit():
                yield [repeat(whole), replace(value, b"%s 0 R " % part.encode(), "itself")], ()
                for name, (number, element, packed) in self.largest.items():
                    turned = replace(value, b"%s 0 R " % number.encode(), name)
                    yield [turned, repeat(element)], packed
                    yield [repeat(whole), turned, repeat(element)], packed

    def stream_singles(self, part):
        data = self.parts[part]
        if part.split(".")[0] in self.coded or not self.is_text(part):
            yield [repeat(Element(part, 0, len(data), "data", "data"))], ()
        else:
            for line in self.lines(part):
                for packed in ((), (part,)):
                    yield [repeat(line)], packed
            count = len(self.tokens[part])
            for length in (1, 2, 3):
                for first in range(min(count - length + 1, 200)):
                    element = self.element(part, first, first + length - 1, f"tokens{length}")
                    for packed in ((), (part,)):
                        yield [repeat(element)], packed
                    if length == 1 and element.length > 2:
                        place = element.start + 1
                        yield [repeat(Element(part, place, place + 1, "letter", element.label, None, element.context))], ()
        if part.split(".")[0] not in self.coded:
            whole = Element(part, 0, len(data), "stream", "stream", None, self.kind_of(part))
            for name, unit in (("spaces", b" "), ("zeros", b"\0"), ("again", data or b" ")):
                yield [filled(whole, unit, name)], (part,)

    # ---- references

    def find_references(self):
        places = {}  # name of a resource: its object
        for part, tokens in self.tokens.items():
            if not part.isdigit() or part in self.own:
                continue
            for key, first, last in self.keys(part):
                whole = self.element(part, key, last, "key")
                for index in range(first, last + 1):
                    match = REFERENCE.fullmatch(self.token(part, index))
                    if not match or match[1].decode() not in self.parts or self.token(part, key) == b"/Parent":
                        continue
                    target = match[1].decode()
                    place = self.element(part, index, index, "reference")
                    holders = [repeat(whole)] + ([repeat(place)] if last > first else [])
                    for deep in (False, True):
                        clones = Clones(self, target, deep)
                        holders.append(Step(place if last > first else whole, clones, name="deep" if deep else "objects"))
                    self.references.append(Reference(place, target, part, holders))
                    if first == last:
                        places[self.token(part, key)] = target
        for part in self.tokens:
            if not part.endswith(".data"):
                continue
            for line in self.lines(part):
                for name in TOKEN.findall(self.text_of(line)):
                    if name in places:
                        self.references.append(Reference(line, places[name], part.split(".")[0], [repeat(line)]))

    def growing_in(self, target):
        for key, first, last in self.keys(target) if target in self.tokens else ():
            whole = self.element(target, key, last, "key")
            if last > first + 1:
                yield [repeat(self.element(target, last - 1, last - 1, "item", label=whole.label))], ()
            yield [Step(whole, numbered_key, name="numbered")], ()
            if re.fullmatch(rb"\d+", self.token(target, first)):
                yield [replace(self.element(target, first, first, "value", label=whole.label), b"5000 ", "5000")], ()
        if target in self.tokens and self.token_count(target) > 2 and self.token(target, 0) == b"[":
            yield [repeat(self.element(target, self.token_count(target) - 2, self.token_count(target) - 2, "item"))], ()
        data = target + ".data"
        if data in self.parts and target not in self.coded:
            for line in list(self.lines(data))[-2:]:
                yield [repeat(line)], ()
            whole = Element(data, 0, len(self.parts[data]), "stream", "stream")
            for name, unit in (("spaces", b" "), ("zeros", b"\0")):
                yield [filled(whole, unit, name)], (data,)

    def token_count(self, part):
        return len(self.tokens[part])

    def growing_holders(self, reference):
        for holder in reference.holders:
            yield [holder]


class Clones:
    """Copies of an object, each under a number of its own, named one after the other where the object is; `deep` also
    copies all that the object names."""

    def __init__(self, drawing, target, deep):
        self.drawing, self.target = drawing, target
        self.members = [int(target)]
        for number in self.members if deep else ():
            text = drawing.parts.get(str(number), b"")
            for other in re.findall(rb"(?<!/Parent )\b(\d+) 0 R", text):
                if other.decode() in drawing.parts and int(other) not in self.members:
                    self.members.append(int(other))
        self.first = max(drawing.numbers()) + 1

    def extra_bytes(self):
        """What a copy adds elsewhere than in its place."""
        texts = [self.drawing.parts.get(part, b"") for member in self.members for part in (str(member), f"{member}.data")]
        return sum(45 + len(text) for text in texts)

    def __call__(self, text, times):
        out = [text]
        for copy in range(times - 1):
            number = b"%d 0 R" % (self.first + copy * len(self.members))
            changed = re.sub(rb"\b%s 0 R" % self.target.encode(), number, text)
            if changed.startswith(b"/"):
                changed = re.sub(rb"^/[^\s/<>\[\]()]*", lambda match: match[0] + b"_%d" % copy, changed)
            out.append(changed)
        return b" ".join(out)

    def objects_of(self, objects, times):
        pattern = re.compile(rb"\b(" + b"|".join(b"%d" % member for member in self.members) + rb") 0 R")
        made = {}
        for copy in range(times - 1):
            start = self.first + copy * len(self.members)
            renumbered = {b"%d" % member: b"%d 0 R" % (start + i) for i, member in enumerate(self.members)}
            for i, member in enumerate(self.members):
                made[start + i] = pattern.sub(lambda match: renumbered[match[1]], objects[member])
        return made


def filled(stream, unit, name):
    """A stream of as many bytes as copies of it would have."""
    return Step(stream, lambda _, times: unit * max(1, times * stream.length // len(unit)), name=name)


def numbered_key(text, times):
    name = re.match(rb"/[^\s/<>\[\]()]*", text)[0]
    return b" ".join(name + b"_%d" % copy + text[len(name):] for copy in range(times))


def deflated(data):
    packer = zlib.compressobj(1 if len(data) > 1_000_000 else 9)
    return packer.compress(data) + packer.flush()
