"""Tests of the module against the installed library; DRAWLOAD_LIBRARY names the library under test."""

import math
import os
import subprocess
import sys

import drawload
import pytest

DRAWING = """0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n0\nLAYER\n2\nRED\n62\n1\n0\nENDTAB\n0\nENDSEC
0\nSECTION\n2\nENTITIES
0\nLINE\n8\n0\n10\n1\n20\n2\n11\n30\n21\n2
0\nCIRCLE\n8\nRED\n10\n0\n20\n0\n40\n10
0\nENDSEC\n0\nEOF\n"""

# A BMP of 2 x 1 pixels with 24 bits, spelled out: black, then white.
BMP = (
    b"BM" + (62).to_bytes(4, "little") + bytes(4) + (54).to_bytes(4, "little")
    + (40).to_bytes(4, "little") + (2).to_bytes(4, "little") + (1).to_bytes(4, "little")
    + (1).to_bytes(2, "little") + (24).to_bytes(2, "little") + bytes(24)
    + bytes([0, 0, 0, 255, 255, 255, 0, 0])
)


@pytest.fixture
def drawing(tmp_path):
    path = tmp_path / "a drawing.dxf"
    path.write_text(DRAWING)
    return path


def test_curves_come_with_color_segments_and_default_settings(drawing):
    line, circle = drawload.load(drawing)
    assert line.color == (255, 255, 255)
    assert line.segments == [drawload.Segment((1.0, 2.0), (30.0, 2.0))]
    assert not line.segments[0].is_cubic
    assert line.settings.cut_speed == 100.0
    assert line.settings.cut_power == 30.0
    assert line.settings.eng_step == 0.08
    assert circle.color == (255, 0, 0)
    assert len(circle.segments) == 4
    assert all(segment.is_cubic for segment in circle.segments)
    assert math.isclose(circle.segments[0].start[0], 10.0)


def test_machine_attributes_arrive(tmp_path):
    path = tmp_path / "a.svg"
    path.write_text('<svg width="10mm" height="10mm"><rect width="5" height="5" cutSpeed="12.5" processType="2"/></svg>')
    (curve,) = drawload.load(str(path))
    assert curve.settings.cut_speed == 12.5
    assert curve.settings.process_type == 2
    assert curve.settings.cut_mode == 0


def test_bitmaps_come_with_their_pixels_and_matrix(tmp_path):
    import base64

    path = tmp_path / "a.svg"
    data = base64.b64encode(BMP).decode()
    path.write_text(
        '<svg xmlns:xlink="x" width="100mm" height="50mm" viewBox="0 0 100 50">'
        f'<image x="10" y="20" width="40" height="20" xlink:href="data:image/bmp;base64,{data}"/></svg>'
    )
    (bitmap,) = drawload.load(path)
    assert (bitmap.width, bitmap.height) == (2, 1)
    assert bitmap.pixels == bytes([0, 255])
    a, b, c, d, e, f = bitmap.matrix
    assert a == pytest.approx(20.0)  # 40 mm for 2 pixels
    assert d == pytest.approx(-20.0)  # rows run down the page
    assert (e, f) == (pytest.approx(10.0), pytest.approx(30.0))
    assert b == c == 0.0


def test_nothing_to_read_is_an_empty_list(tmp_path):
    assert drawload.load(tmp_path / "missing.dxf") == []
    assert drawload.load(b"") == []


def test_results_outlive_the_next_load(drawing):
    first = drawload.load(drawing)
    drawload.load("missing.dxf")
    assert first == drawload.load(drawing)


def test_the_notes_of_the_library_stay_off_standard_output(tmp_path):
    path = tmp_path / "broken.pdf"
    path.write_bytes(b"%PDF-1.4\n" + b"x" * 400)
    code = f"import drawload; drawload.load({str(path)!r}); print('mine')"
    done = subprocess.run([sys.executable, "-c", code], capture_output=True, check=True)
    assert done.stdout == b"mine\n"


def test_a_closed_standard_output_is_no_obstacle(drawing):
    code = f"import drawload, sys; assert sys.stdout is None; sys.exit(len(drawload.load({str(drawing)!r})))"
    assert subprocess.run([sys.executable, "-c", code], preexec_fn=lambda: os.close(1)).returncode == 2


def test_names_of_any_bytes_are_read(tmp_path):
    path = os.fsencode(tmp_path) + b"/caf\xe9 \"q\"\n.dxf"
    with open(path, "w", encoding="ascii") as file:
        file.write(DRAWING)
    assert len(drawload.load(path)) == 2
    assert len(drawload.load(os.fsdecode(path))) == 2


def test_a_missing_library_is_told_with_what_to_do(monkeypatch):
    monkeypatch.setenv("DRAWLOAD_LIBRARY", "/nowhere/libdrawload.so")
    with pytest.raises(drawload.LibraryNotFound, match="DRAWLOAD_LIBRARY"):
        drawload.load("a.dxf")
