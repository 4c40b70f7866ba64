#ifndef DRAWLOAD_DXF_DXF_SPLINE_H
#define DRAWLOAD_DXF_DXF_SPLINE_H

#include "dxf/dxf_shapes.h"

class DXF_Spline : public DXF_Entity {
 public:
  DXF_Spline() : DXF_Entity(kDxfSpline) {}

  void applyExtrusion() override {}
  void parseGroup(std::int32_t code, const dxfReader& reader);

  DXF_Coord startTangent;
  DXF_Coord endTangent;
  std::int32_t flags = 0;
  std::int32_t degree = 1;
  std::int32_t knotCount = 0;  ///< counts as the file states them; the lists may differ
  std::int32_t controlCount = 0;
  std::int32_t fitCount = 0;
  double knotTolerance = 1e-7;
  double controlTolerance = 1e-7;
  double fitTolerance = 1e-7;
  DXF_List<double> knots;
  DXF_List<DXF_Coord> controlPoints;
  DXF_List<double> weights;
  DXF_List<DXF_Coord> fitPoints;

 protected:
  /// Takes the groups of the two lists of points (10 to 31); false for any other.
  bool parsePointGroup(std::int32_t code, const dxfReader& reader);
};

/// `point` and `secondPoint` are unused: the axis has members of its own.
class DXF_Helix : public DXF_Line {
 public:
  DXF_Helix() : DXF_Line(kDxfHelix) {}

  void parseGroup(std::int32_t code, const dxfReader& reader);

  DXF_Spline spline;
  DXF_Coord axisBase;
  DXF_Coord startPoint;
  DXF_Coord axisVector;
  double radius = 0.0;
  double turns = 0.0;
  double turnHeight = 0.0;
  std::int32_t majorVersion = 0;
  std::int32_t minorVersion = 0;
  std::int32_t handedness = 0;  ///< 0 left, 1 right
  std::int32_t constraint = 0;

 private:
  bool inSpline = false;  ///< from a group 70 up to a group 90 the tags also go to the spline
};

#endif
