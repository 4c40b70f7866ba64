#ifndef DRAWLOAD_DXF_DXF_ANNOTATIONS_H
#define DRAWLOAD_DXF_DXF_ANNOTATIONS_H

#include <array>
#include <string>
#include <vector>

#include "dxf/dxf_shapes.h"

/// One cell of a table, by the groups that state it.
struct DXF_TableCell {
  std::int32_t type = 0;          ///< 171
  std::int32_t flags = 0;         ///< 172
  std::int32_t merged = 0;        ///< 173
  std::int32_t autoFit = 0;       ///< 174
  std::int32_t mergedWidth = 0;   ///< 175
  std::int32_t mergedHeight = 0;  ///< 176
  std::int32_t virtualEdge = 0;   ///< 178
  double rotation = 0.0;          ///< 145

  bool operator==(const DXF_TableCell&) const = default;
};

/// ACAD_TABLE. `secondPoint` is its direction; the block shows it drawn.
class DXF_Table : public DXF_Line {
 public:
  DXF_Table() : DXF_Line(kDxfTable) {}

  void parseGroup(std::int32_t code, const dxfReader& reader);

  std::string blockName;
  std::int32_t rowCount = 0;
  std::int32_t columnCount = 0;
  std::vector<double> rowHeights;
  std::vector<double> columnWidths;
  std::vector<DXF_TableCell> cells;

 private:
  bool parseCellGroup(std::int32_t code, const dxfReader& reader);

  DXF_TableCell cell;
};

/// Angles in degrees, as the file states them.
class DXF_Dimension : public DXF_Line {
 public:
  DXF_Dimension() : DXF_Line(kDxfDimension) {}

  void parseGroup(std::int32_t code, const dxfReader& reader);

  std::string text;
  std::string blockName;
  std::string styleName;
  /// Groups 12 to 16. Group 10 is in `point`, 11 in `secondPoint`.
  std::array<DXF_Coord, 5> definitionPoints = {};
  std::int32_t type = 0;
  std::int32_t attachment = 0;
  std::int32_t spacingStyle = 0;
  double spacingFactor = 0.0;
  double measurement = 0.0;
  double angle = 0.0;
  double horizontalDir = 0.0;
  double obliqueAngle = 0.0;
  double textAngle = 0.0;
  std::int32_t version = 0;

 private:
  bool parseDefinitionPoint(std::int32_t code, const dxfReader& reader);
};

/// What one element of a multiline needs at one vertex.
struct ElemPram {
  std::int32_t count = 0;
  std::vector<double> values;
  std::int32_t fillCount = 0;
  std::vector<double> fillValues;

  bool operator==(const ElemPram&) const = default;
};

struct DXF_MlineVertex {
  DXF_Coord position;
  DXF_Coord direction;
  DXF_Coord miter;
  std::vector<ElemPram> elements;

  bool operator==(const DXF_MlineVertex&) const = default;
};

class DXF_Mline : public DXF_Entity {
 public:
  DXF_Mline() : DXF_Entity(kDxfMline) {}

  void applyExtrusion() override {}
  void parseGroup(std::int32_t code, const dxfReader& reader);

  std::string styleName;
  std::uint32_t styleHandle = 0;
  double scale = 20.0;
  std::int32_t justification = 0;
  std::int32_t flags = 0;
  std::int32_t vertexCount = 0;  ///< counts as the file states them; the lists may differ
  std::int32_t elementCount = 0;
  DXF_Coord startPoint;
  DXF_Coord normal = {0.0, 0.0, 1.0};
  std::vector<DXF_MlineVertex> vertices;

 private:
  bool parseVertexGroup(std::int32_t code, const dxfReader& reader);
  bool parseElementGroup(std::int32_t code, const dxfReader& reader);
};

#endif
