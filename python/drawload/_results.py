"""The results of a load, as plain objects that hold copies of everything."""

from dataclasses import dataclass
from typing import List, NamedTuple, Optional, Tuple

Point = Tuple[float, float]


class Segment(NamedTuple):
    """A straight segment, or a cubic Bezier where it has control points. Millimetres, y up."""

    start: Point
    end: Point
    control1: Optional[Point] = None
    control2: Optional[Point] = None

    @property
    def is_cubic(self) -> bool:
        return self.control1 is not None


@dataclass(frozen=True)
class Settings:
    """What the machine is told about a result: speeds, powers in percent, line spacing in millimetres."""

    cut_mode: int
    cut_speed: float
    cut_power: float
    high_focus: float
    frequency: float
    process_type: int
    engrave_speed: float
    eng_min_power: float
    eng_max_power: float
    eng_step: float
    image_type: int
    reverse: int
    machine_type: int
    diameter: float


@dataclass(frozen=True)
class Curve:
    """A chain of segments. ``color`` is (red, green, blue), each 0 to 255."""

    color: Tuple[int, int, int]
    settings: Settings
    segments: List[Segment]


@dataclass(frozen=True)
class Bitmap:
    """An 8-bit grey bitmap: ``pixels`` holds ``height`` rows of ``width`` bytes without gaps.

    ``matrix`` is (a, b, c, d, e, f): pixel (x, y) lies at (a*x + c*y + e, b*x + d*y + f), in millimetres, y up.
    """

    width: int
    height: int
    matrix: Tuple[float, float, float, float, float, float]
    settings: Settings
    pixels: bytes
