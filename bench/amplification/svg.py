"""What grows in an SVG drawing: elements, attributes, properties, rules, references, and pieces of values."""

import re

from .drawing import Drawing, Element, Reference, Step, repeat, replace, tokens_of

MARKUP = re.compile(rb"<!--.*?-->|<\?.*?\?>|<!\[CDATA\[.*?\]\]>|<![^>]*>|"
                    rb"<(/?)([\w:.-]+)((?:\s+[\w:.-]+\s*=\s*(?:\"[^\"]*\"|'[^']*'))*)\s*(/?)>", re.S)
ATTRIBUTE = re.compile(rb"\s+([\w:.-]+)\s*=\s*(?:\"([^\"]*)\"|'([^']*)')")
PROPERTY = re.compile(rb"[^;{}]+;?")
RULE = re.compile(rb"[^{}]+\{[^{}]*\}")
VALUE_TOKEN = re.compile(rb"[A-Za-z#]+\([^)]*\)|&[#\w]+;|[A-Za-z%#]+|[-+]?[\d.]+(?:e[-+]?\d+)?|[^\w\s]|\s+")


def numbered_attributes(text, times):
    name, rest = text.split(b"=", 1)
    return b"".join(b"%s_%d=%s" % (name, copy, rest) for copy in range(times))


def numbered_properties(text, times):
    name, rest = text.rstrip(b";").split(b":", 1)
    return b"".join(b"%s_%d:%s;" % (name, copy, rest) for copy in range(times))


def numbered_names(text, times):
    """Copies whose ids, and what names them within the copy, differ."""
    ids = re.findall(rb"\bid\s*=\s*[\"']([^\"']+)", text)
    if not ids:
        return text * times
    pattern = re.compile(rb"(\bid\s*=\s*[\"']|#)(" + b"|".join(map(re.escape, ids)) + rb")(?=[\"')])")
    return text + b"".join(pattern.sub(rb"\1\g<2>_%d" % copy, text) for copy in range(1, times))


class SvgDrawing(Drawing):
    suffix = "svg"

    def __init__(self, data):
        super().__init__()
        self.parts["file"] = data
        self.tags = []  # (element, start of its tag's name, end of its start tag, attributes)
        self.rules = []
        self.find_elements()
        self.targets = {}
        self.find_targets()
        self.find_references()

    def build(self, parts, packed, steps, times):
        return parts["file"]

    def find_elements(self):
        data = self.parts["file"]
        open_tags = []
        for match in MARKUP.finditer(data):
            if match[2] is None:
                continue
            name = match[2].decode("latin-1")
            if match[1]:
                while open_tags:
                    start, end, label = open_tags.pop()
                    self.add_tag(start, end, match.end() if label == name else match.start(), label, end)
                    if label == name:
                        break
            elif match[4]:
                self.add_tag(match.start(), match.end(), match.end(), name, None)
            else:
                open_tags.append((match.start(), match.end(), name))
        self.tags.sort(key=lambda tag: (tag[0].start, -tag[0].end))

    def add_tag(self, start, tag_end, end, name, inner):
        data = self.parts["file"]
        element = Element("file", start, end, "element", name, inner, name)
        attributes = []
        for match in ATTRIBUTE.finditer(data, start, tag_end):
            group = 2 if match[2] is not None else 3
            key = match[1].decode("latin-1")
            label = f"{name}.{key}"
            attributes.append((Element("file", match.start(), match.end(), "attribute", label, None, name),
                               Element("file", match.start(group), match.end(group), "value", label, None, label)))
        self.tags.append((element, attributes, tag_end))
        if name == "style":
            for match in RULE.finditer(data, tag_end, end):
                self.rules.append(Element("file", match.start(), match.end(), "rule", "rule", None, "style"))

    def find_targets(self):
        data = self.parts["file"]
        for element, attributes, _ in self.tags:
            for attribute, value in attributes:
                if attribute.label.endswith(".id"):
                    self.targets.setdefault(data[value.start:value.end].decode("latin-1"), element)
        for rule in self.rules:
            selector = data[rule.start:rule.end].split(b"{")[0]
            for name in re.findall(rb"\.([\w-]+)", selector):
                self.targets.setdefault("." + name.decode("latin-1"), rule)

    def find_references(self):
        data = self.parts["file"]
        for element, attributes, _ in self.tags:
            for attribute, value in attributes:
                key = attribute.label.rsplit(".", 1)[1]
                pattern = rb"([\w-]+)" if key == "class" else rb"#([\w-]+)"
                for match in re.finditer(pattern, data[value.start:value.end]):
                    target = match[1].decode("latin-1")
                    target = "." + target if key == "class" else target
                    if target in self.targets and not (key == "id"):
                        start = value.start + match.start(1)
                        place = Element("file", start, start + len(match[1]), "name", attribute.label)
                        self.references.append(Reference(place, target, self.owner_of(place), [repeat(element)]))

    def owner_of(self, element):
        inside = [name for name, target in self.targets.items() if target.contains(element)]
        return min(inside, key=lambda name: self.targets[name].length, default="")

    def pieces(self, value, counts=(1, 2, 3)):
        places = tokens_of(VALUE_TOKEN, self.parts["file"], value.start, value.end)
        if len(places) > 200:
            places = places[:100] + places[-100:]
        for count in counts:
            for i in range(len(places) - count + 1):
                if places[i + count - 1][1] - places[i][0] <= 200:
                    yield Element("file", places[i][0], places[i + count - 1][1], "piece", value.label, None, value.label)

    def properties(self, start, end, label):
        for match in PROPERTY.finditer(self.parts["file"], start, end):
            if b":" in match[0]:
                yield Element("file", match.start(), match.end(), "property", label, None, label)

    def as_list(self, element):
        """Steps that repeat a property, under one name and under many."""
        return [Step(element, lambda text, times: (text.rstrip(b";") + b";") * times),
                Step(element, numbered_properties, name="numbered")]

    def texts(self, element, tag_end):
        """What lies between the tags of an element without children, in pieces."""
        data = self.parts["file"]
        end = data.rfind(b"<", tag_end, element.end)
        if element.inner is None or end < 0 or b"<" in data[tag_end:end].replace(b"<![CDATA[", b""):
            return
        yield from self.pieces(Element("file", tag_end, end, "text", f"{element.label}.text"), (1, 2))

    def singles(self):
        data = self.parts["file"]
        for element, attributes, tag_end in self.tags:
            yield [repeat(element)], ()
            yield [Step(element, numbered_names, name="numbered")], ()
            yield [self.nested(element, tag_end)], ()
            for piece in self.texts(element, tag_end):
                yield [repeat(piece)], ()
            for attribute, value in attributes:
                yield [Step(attribute, numbered_attributes, name="numbered")], ()
                for other in (b"0", b"1e9", b"-1", b"99999", b"", b"none"):
                    yield [repeat(element), replace(value, other, other.decode() or "empty")], ()
                if attribute.label.endswith(".style"):
                    for item in self.properties(value.start, value.end, attribute.label):
                        yield from (([step], ()) for step in self.as_list(item))
                for piece in self.pieces(value):
                    yield [repeat(piece)], ()
                if value.length:
                    yield [repeat(value)], ()
        for rule in self.rules:
            yield [repeat(rule)], ()
            start = data.index(b"{", rule.start)
            for item in self.properties(start + 1, rule.end - 1, "rule"):
                yield from (([step], ()) for step in self.as_list(item))
            for piece in self.pieces(Element("file", rule.start, rule.end, "rule", "rule")):
                yield [repeat(piece)], ()
            yield [Step(rule, lambda text, times: b"".join(re.sub(rb"(\.?)([\w-]+)(?=[^{}]*\{)", rb"\1\2_%d" % i, text)
                                                           for i in range(times)), name="numbered")], ()
        for reference in self.references:
            for name, target in self.targets.items():
                if target.contains(reference.place):
                    yield [reference.holders[0], replace(reference.place, name.encode("latin-1"), "itself")], ()
                elif name != reference.target and not name.startswith("."):
                    yield [reference.holders[0], replace(reference.place, name.encode("latin-1"), name)], ()

    def nested(self, element, tag_end):
        """The element within itself; as many as the parser allows, and one after the other."""
        text = self.text_of(element)
        if element.inner is None:
            opening = re.sub(rb"/>$", b">", text)
            closing = b"</%s>" % element.label.encode("latin-1")
        else:
            opening, closing = text[:tag_end - element.start], text[tag_end - element.start:]
        depth = 90
        return Step(element, lambda _, times: (opening * depth + closing * depth) * max(1, times // depth), name="nested")

    def growing_in(self, target):
        element = self.targets[target]
        data = self.parts["file"]
        if element.kind == "rule":
            for item in self.properties(data.index(b"{", element.start) + 1, element.end - 1, "rule"):
                yield from (([step], ()) for step in self.as_list(item))
            yield [repeat(element)], ()
            return
        for inside, attributes, tag_end in self.tags:
            if not element.contains(inside):
                continue
            if inside != element:
                yield [repeat(inside)], ()
            for piece in list(self.texts(inside, tag_end))[:1]:
                yield [repeat(piece)], ()
            for attribute, value in attributes:
                if attribute.label.endswith(".style"):
                    for item in list(self.properties(value.start, value.end, attribute.label))[:1]:
                        yield from (([step], ()) for step in self.as_list(item))
                    continue
                if not attribute.label.endswith(".id"):
                    yield [Step(attribute, numbered_attributes, name="numbered")], ()
                    if value.length:
                        yield [repeat(value)], ()

    def growing_holders(self, reference):
        yield [reference.holders[0]]
        holder = reference.holders[0].element
        for inside, _, _ in self.tags:
            if inside != holder and holder.contains(inside):
                yield [repeat(inside)]
