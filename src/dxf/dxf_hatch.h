#ifndef DRAWLOAD_DXF_DXF_HATCH_H
#define DRAWLOAD_DXF_DXF_HATCH_H

#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "dxf/dxf_polylines.h"
#include "dxf/dxf_shapes.h"
#include "dxf/dxf_spline.h"

class DXF_HatchLine : public DXF_Line {
 public:
  /// False for a group that an edge of this kind does not take; so for all five.
  bool parseEdge(std::int32_t code, const dxfReader& reader);
};

class DXF_HatchArc : public DXF_Arc {
 public:
  bool parseEdge(std::int32_t code, const dxfReader& reader);
};

/// Kept: the parameters of an edge stay in degrees, other than those of an ELLIPSE.
class DXF_HatchEllipse : public DXF_Ellipse {
 public:
  bool parseEdge(std::int32_t code, const dxfReader& reader);
};

class DXF_HatchSpline : public DXF_Spline {
 public:
  bool parseEdge(std::int32_t code, const dxfReader& reader);

  std::int32_t rational = 0;
  std::int32_t periodic = 0;
};

class DXF_HatchLWPolyline : public DXF_LWPolyline {
 public:
  bool parseEdge(std::int32_t code, const dxfReader& reader);

  std::int32_t hasBulge = 0;
  std::int32_t closed = 0;
};

/// One boundary edge. The alternatives stand in the order of the file's edge types 1 to 4, then the polyline
/// as 5. Copies of a hatch share the edges.
struct DXF_HatchEdge {
  std::variant<std::shared_ptr<const DXF_HatchLine>, std::shared_ptr<const DXF_HatchArc>,
               std::shared_ptr<const DXF_HatchEllipse>, std::shared_ptr<const DXF_HatchSpline>,
               std::shared_ptr<const DXF_HatchLWPolyline>>
      record;

  std::int32_t type() const { return static_cast<std::int32_t>(record.index()) + 1; }
};

/// One family of lines of the pattern; a group 53 opens one. Angle in degrees.
struct DXF_HatchPatternLine {
  double lineAngle = 0.0;
  double lineBaseX = 0.0;
  double lineBaseY = 0.0;
  double lineOffsetX = 0.0;
  double lineOffsetY = 0.0;
  std::int32_t dashCount = 0;
  std::vector<double> dashes;

  bool operator==(const DXF_HatchPatternLine&) const = default;
};

class DXF_Hatch : public DXF_Point {
 public:
  DXF_Hatch() : DXF_Point(kDxfHatch) {}

  // Kept: a hatch is never mapped through its normal.
  void applyExtrusion() override {}
  void parseGroup(std::int32_t code, const dxfReader& reader);

  /// At the end of the entity: an edge that is still open is dropped.
  void finish() { openEdges.reset(); }

  std::string patternName = "SOLID";
  std::int32_t fillType = 0;
  std::int32_t associative = 0;
  std::int32_t pathCount = 0;
  std::int32_t pathFlags = 0;  ///< of the last path; the value 2 says polyline
  std::int32_t edgeCount = 0;
  std::int32_t edgeType = 0;
  std::int32_t sourceCount = 0;
  std::int32_t hatchStyle = 0;
  std::int32_t patternType = 0;
  double patternAngle = 0.0;
  double patternScale = 0.0;
  std::int32_t patternDouble = 0;
  std::int32_t patternLineCount = 0;
  std::vector<DXF_HatchPatternLine> patternLines;
  double pixelSize = 0.0;
  std::int32_t seedCount = 0;
  std::vector<DXF_Coord> seeds;
  std::int32_t gradientFlag = 0;
  std::int32_t gradientColorCount = 0;
  std::int32_t gradientOneColor = 0;   ///< 452
  std::int32_t gradientStopCount = 0;  ///< 453
  std::string gradientName;
  double gradientAngle = 0.0;        ///< 460
  double gradientShift = 0.0;        ///< 461
  double gradientTint = 0.0;         ///< 462
  double gradientValue = 0.0;        ///< 463
  std::vector<DXF_HatchEdge> edges;  ///< all paths in one flat list

 private:
  void parsePolylinePath(std::int32_t code, const dxfReader& reader);
  bool parseCurrentEdge(std::int32_t code, const dxfReader& reader);
  void parseOwnGroup(std::int32_t code, const dxfReader& reader);
  bool parsePatternGroup(std::int32_t code, const dxfReader& reader);
  bool parseGradientGroup(std::int32_t code, const dxfReader& reader);
  bool parseSeedGroup(std::int32_t code, const dxfReader& reader);
  void storeCurrentEdge();
  DXF_HatchPatternLine& lastPatternLine();

  /// One instance of each edge record; on the heap and only while the hatch is read, as it is large.
  struct OpenEdges {
    DXF_HatchLine line;
    DXF_HatchArc arc;
    DXF_HatchEllipse ellipse;
    DXF_HatchSpline spline;
    DXF_HatchLWPolyline polyline;
  };
  OpenEdges& open();

  std::shared_ptr<OpenEdges> openEdges;
  double seedX = 0.0;
};

#endif
