#include "dxf/dxf_hatch.h"

#include <utility>

#include "dxf/take_value.h"

namespace {

constexpr std::int32_t kPolylinePath = 2;  ///< in group 92

/// Values of group 72.
enum EdgeType : std::int32_t { kNoEdge = 0, kLineEdge = 1, kArcEdge = 2, kEllipseEdge = 3, kSplineEdge = 4 };

/// Moves the edge into the list and leaves the record at its defaults for the next one.
template <typename Edge>
void StoreEdge(Edge& edge, std::vector<DXF_HatchEdge>& edges) {
  edges.push_back({std::make_shared<const Edge>(std::exchange(edge, Edge{}))});
}

bool ClosesEdge(std::int32_t code, std::int32_t edgeType) {
  // Group 97 of a spline is its number of fit points; only the number of seeds comes behind.
  return code == 72 || code == (edgeType == kSplineEdge ? 98 : 97);
}

}  // namespace

bool DXF_HatchLine::parseEdge(std::int32_t code, const dxfReader& reader) {
  return TakeCoord(code, 10, reader, point) || TakeCoord(code, 11, reader, secondPoint);
}

bool DXF_HatchArc::parseEdge(std::int32_t code, const dxfReader& reader) {
  if (TakeCoord(code, 10, reader, point)) return true;
  switch (code) {
    case 40: radius = reader.realValue; return true;
    case 50: startAngle = RadiansFrom(reader.realValue); return true;
    case 51: endAngle = RadiansFrom(reader.realValue); return true;
    case 73: counterClockwise = reader.intValue; return true;
    default: return false;
  }
}

bool DXF_HatchEllipse::parseEdge(std::int32_t code, const dxfReader& reader) {
  if (TakeCoord(code, 10, reader, point) || TakeCoord(code, 11, reader, secondPoint)) return true;
  switch (code) {
    case 40: ratio = reader.realValue; return true;
    case 50: startParam = reader.realValue; return true;
    case 51: endParam = reader.realValue; return true;
    case 73: counterClockwise = reader.intValue; return true;
    default: return false;
  }
}

bool DXF_HatchSpline::parseEdge(std::int32_t code, const dxfReader& reader) {
  if (code >= 10 && code <= 31) {
    return parsePointGroup(code, reader) || TakeCoord(code, 12, reader, startTangent) ||
           TakeCoord(code, 13, reader, endTangent);
  }
  switch (code) {
    case 40: knots.push_back(reader.realValue); return true;
    case 42: weights.push_back(reader.realValue); return true;
    case 73: rational = reader.intValue; return true;
    case 74: periodic = reader.intValue; return true;
    case 94: degree = reader.intValue; return true;
    case 95: knotCount = reader.intValue; return true;
    case 96: controlCount = reader.intValue; return true;
    case 97: fitCount = reader.intValue; return true;
    default: return false;
  }
}

bool DXF_HatchLWPolyline::parseEdge(std::int32_t code, const dxfReader& reader) {
  if (parseVertexGroup(code, reader)) return true;
  switch (code) {
    case 72: hasBulge = reader.intValue; return true;
    case 73: closed = reader.intValue & 1; return true;
    case 93: vertexCount = reader.intValue; return true;
    default: return false;
  }
}

void DXF_Hatch::parseGroup(std::int32_t code, const dxfReader& reader) {
  if ((pathFlags & kPolylinePath) != 0) {
    parsePolylinePath(code, reader);
  } else if (edgeType >= kLineEdge && edgeType <= kSplineEdge) {
    if (ClosesEdge(code, edgeType)) {
      storeCurrentEdge();
    } else if (parseCurrentEdge(code, reader)) {
      return;
    }
  }
  parseOwnGroup(code, reader);
}

/// Kept: what the polyline takes goes on to the hatch too, which is how the seeds behind it get through.
void DXF_Hatch::parsePolylinePath(std::int32_t code, const dxfReader& reader) {
  if (code == 97) {
    StoreEdge(open().polyline, edges);
    edgeType = kNoEdge;
  } else {
    open().polyline.parseEdge(code, reader);
  }
}

bool DXF_Hatch::parseCurrentEdge(std::int32_t code, const dxfReader& reader) {
  switch (edgeType) {
    case kLineEdge: return open().line.parseEdge(code, reader);
    case kArcEdge: return open().arc.parseEdge(code, reader);
    case kEllipseEdge: return open().ellipse.parseEdge(code, reader);
    default: return open().spline.parseEdge(code, reader);
  }
}

void DXF_Hatch::storeCurrentEdge() {
  switch (edgeType) {
    case kLineEdge: StoreEdge(open().line, edges); break;
    case kArcEdge: StoreEdge(open().arc, edges); break;
    case kEllipseEdge: StoreEdge(open().ellipse, edges); break;
    default: StoreEdge(open().spline, edges); break;
  }
  edgeType = kNoEdge;
}

void DXF_Hatch::parseOwnGroup(std::int32_t code, const dxfReader& reader) {
  if (parsePatternGroup(code, reader) || parseGradientGroup(code, reader) || parseSeedGroup(code, reader))
    return;
  switch (code) {
    case 2: patternName = reader.text(); break;
    case 47: pixelSize = reader.realValue; break;
    case 70: fillType = reader.intValue; break;
    case 71: associative = reader.intValue; break;
    case 72: edgeType = reader.intValue; break;
    case 75: hatchStyle = reader.intValue; break;
    case 91: pathCount = reader.intValue; break;
    case 92: pathFlags = reader.intValue; break;
    case 93: edgeCount = reader.intValue; break;
    case 97: sourceCount = reader.intValue; break;
    default: DXF_Point::parseGroup(code, reader); break;
  }
}

bool DXF_Hatch::parsePatternGroup(std::int32_t code, const dxfReader& reader) {
  switch (code) {
    case 41:
      if (fillType == 0) patternScale = reader.realValue;
      return true;
    case 43: lastPatternLine().lineBaseX = reader.realValue; return true;
    case 44: lastPatternLine().lineBaseY = reader.realValue; return true;
    case 45: lastPatternLine().lineOffsetX = reader.realValue; return true;
    case 46: lastPatternLine().lineOffsetY = reader.realValue; return true;
    case 49: lastPatternLine().dashes.push_back(reader.realValue); return true;
    case 52:
      if (fillType == 0) patternAngle = reader.realValue;
      return true;
    case 53: patternLines.emplace_back().lineAngle = reader.realValue; return true;
    case 76: patternType = reader.intValue; return true;
    case 77: patternDouble = reader.intValue; return true;
    case 78: patternLineCount = reader.intValue; return true;
    case 79: lastPatternLine().dashCount = reader.intValue; return true;
    default: return false;
  }
}

bool DXF_Hatch::parseGradientGroup(std::int32_t code, const dxfReader& reader) {
  switch (code) {
    case 450: gradientFlag = reader.intValue; return true;
    case 451: gradientColorCount = reader.intValue; return true;
    case 452: gradientOneColor = reader.intValue; return true;
    case 453: gradientStopCount = reader.intValue; return true;
    case 460: gradientAngle = reader.realValue; return true;
    case 461: gradientShift = reader.realValue; return true;
    case 462: gradientTint = reader.realValue; return true;
    case 463: gradientValue = reader.realValue; return true;
    case 470: gradientName = reader.text(); return true;
    default: return false;
  }
}

/// Before the number of seeds, 10 and 20 are the hatch's elevation point.
bool DXF_Hatch::parseSeedGroup(std::int32_t code, const dxfReader& reader) {
  if (code == 98) {
    seedCount = reader.intValue;
    seeds.clear();
    return true;
  }
  if (seedCount <= 0 || (code != 10 && code != 20)) return false;
  if (code == 10) {
    seedX = reader.realValue;
  } else if (seedCount >= 2) {
    // Kept: a single seed is never stored.
    seeds.push_back({seedX, reader.realValue, 0.0});
  }
  return true;
}

DXF_Hatch::OpenEdges& DXF_Hatch::open() {
  if (openEdges == nullptr) openEdges = std::make_shared<OpenEdges>();
  return *openEdges;
}

DXF_HatchPatternLine& DXF_Hatch::lastPatternLine() {
  return patternLines.empty() ? patternLines.emplace_back() : patternLines.back();
}
