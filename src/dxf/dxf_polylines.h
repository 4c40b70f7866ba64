#ifndef DRAWLOAD_DXF_DXF_POLYLINES_H
#define DRAWLOAD_DXF_DXF_POLYLINES_H

#include <array>
#include <memory>
#include <vector>

#include "dxf/dxf_entity.h"

/// VERTEX, read only within a POLYLINE.
class DXF_Vertex : public DXF_Point {
 public:
  DXF_Vertex() : DXF_Point(kDxfNoKind) {}

  void applyExtrusion() override {}
  void parseGroup(std::int32_t code, const dxfReader& reader);

  double startWidth = 0.0;
  double endWidth = 0.0;
  double bulge = 0.0;
  std::int32_t flags = 0;
  double tangentAngle = 0.0;
  std::array<std::int32_t, 4> faceIndex = {};  ///< 1 to 4 of the file
  std::int32_t identifier = 0;
};

/// `point` is the elevation point. Copies share the vertices, and one vertex may stand in the list twice.
class DXF_Polyline : public DXF_Point {
 public:
  DXF_Polyline() : DXF_Point(kDxfPolyline) {}

  void applyExtrusion() override;
  void parseGroup(std::int32_t code, const dxfReader& reader);

  std::int32_t flags = 0;
  double defaultStartWidth = 0.0;
  double defaultEndWidth = 0.0;
  std::int32_t meshCountM = 0;
  std::int32_t meshCountN = 0;
  std::int32_t smoothM = 0;
  std::int32_t smoothN = 0;
  std::int32_t curveType = 0;
  std::vector<std::shared_ptr<DXF_Vertex>> vertices;
};

struct DXF_Vertex2D {
  double x = 0.0;
  double y = 0.0;
  double startWidth = 0.0;
  double endWidth = 0.0;
  double bulge = 0.0;

  bool operator==(const DXF_Vertex2D&) const = default;
};

class DXF_LWPolyline : public DXF_Entity {
 public:
  DXF_LWPolyline() : DXF_Entity(kDxfLWPolyline) {}

  void applyExtrusion() override;
  void parseGroup(std::int32_t code, const dxfReader& reader);

  std::int32_t vertexCount = 0;  ///< as the file states it; `vertices` may differ
  std::int32_t flags = 0;        ///< bit 0: closed
  double width = 0.0;
  double elevation = 0.0;
  double thickness = 0.0;
  DXF_Coord extrusion = {0.0, 0.0, 1.0};
  DXF_List<DXF_Vertex2D> vertices;

 protected:
  /// Takes the groups of a vertex (10, 20, 40, 41, 42); false for any other.
  bool parseVertexGroup(std::int32_t code, const dxfReader& reader);
};

#endif
