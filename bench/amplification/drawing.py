"""Drawings as parts of text with elements that grow: what the three formats share."""

from typing import Callable, NamedTuple


class Element(NamedTuple):
    """A piece of a part that can be repeated."""
    part: str
    start: int
    end: int
    kind: str
    label: str  # what it is, for the name of a case
    inner: int | None = None  # where a copy of it can be put into it
    context: str = ""  # what it lies in: the same text in the same context is tried once

    @property
    def length(self):
        return self.end - self.start

    def contains(self, other):
        return self.part == other.part and self.start <= other.start and other.end <= self.end

    def is_apart_from(self, other):
        return self.part != other.part or self.end <= other.start or other.end <= self.start


class Step(NamedTuple):
    """One change of an element: how its text becomes `times` copies."""
    element: Element
    how: Callable[[bytes, int], bytes]
    grows: bool = True
    name: str = "x"
    new_length: int | None = None  # the length of what replaces it


class Reference(NamedTuple):
    """A place that names another part of the drawing."""
    place: Element  # the name alone
    target: str
    owner: str  # the target within which the reference lies, or "" on the outermost level
    holders: list  # what can be repeated with the name in it, as Steps


def copies(text, times):
    return text * times


def nested(element):
    """In itself: all that precedes the inner place so often, then all that follows it."""
    cut = element.inner - element.start
    return lambda text, times: text[:cut] * times + text[cut:] * times


def replaced_by(text):
    return lambda _, times: text


def repeat(element):
    return Step(element, copies)


def nest(element):
    return Step(element, nested(element), name="nested")


def replace(element, text, name):
    return Step(element, replaced_by(text), False, name, len(text))


class Drawing:
    """A drawing in memory. Formats say what its elements and references are, and how parts become a file."""

    suffix = ""
    name = ""

    def __init__(self):
        self.parts: dict[str, bytes] = {}
        self.always_packed: set[str] = set()
        self.references: list[Reference] = []

    def build(self, parts, packed, steps, times):
        """The file; `packed` names the parts to be deflated."""
        raise NotImplementedError

    def singles(self):
        """Changes of one element, as (name, steps, packed parts)."""
        raise NotImplementedError

    def growing_in(self, target):
        """Ways in which the text of a target grows, as (steps, packed parts)."""
        raise NotImplementedError

    def text_of(self, element):
        return self.parts[element.part][element.start:element.end]

    def rendered(self, steps, times):
        changed = {}
        for part in {step.element.part for step in steps}:
            inside = sorted(((step, count) for step, count in zip(steps, times) if step.element.part == part),
                            key=lambda pair: (pair[0].element.start, -pair[0].element.end))
            changed[part] = render(self.parts[part], 0, len(self.parts[part]), inside)
        return {**self.parts, **changed}


def render(text, start, end, steps):
    """`text` from `start` to `end` with all steps done, the outer ones after those inside them."""
    pieces = []
    while steps:
        (element, how, *_), times = steps[0]
        inside = 1
        while inside < len(steps) and steps[inside][0].element.start < element.end:
            inside += 1
        pieces.append(text[start:element.start])
        pieces.append(how(render(text, element.start, element.end, steps[1:inside]), times))
        start = element.end
        steps = steps[inside:]
    pieces.append(text[start:end])
    return b"".join(pieces)


def fit_together(steps):
    """Whether every two of the elements are apart or one within the other."""
    elements = [step.element for step in steps]
    return all(a.is_apart_from(b) or a.contains(b) or b.contains(a)
               for i, a in enumerate(elements) for b in elements[:i])


def tokens_of(pattern, text, start=0, end=None):
    return [(match.start(), match.end()) for match in pattern.finditer(text, start, len(text) if end is None else end)]
