#ifndef DRAWLOAD_ENTITY_ANNOTATIONS_H
#define DRAWLOAD_ENTITY_ANNOTATIONS_H

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "entity/entity.h"

namespace Entity_ZR {

/// What one element of a multiline needs at one vertex, as the file states it.
struct MLineElement {
  std::vector<double> parameters;
  std::vector<double> fillParameters;

  bool operator==(const MLineElement&) const = default;
};

struct MLineVertex {
  Point3 position;
  Point3 direction;
  Point3 miter;
  std::vector<MLineElement> elements;

  bool operator==(const MLineVertex&) const = default;
};

/// Parallel lines along one course.
class ZR_MLine : public ZR_Entity {
 public:
  ZR_MLine() : ZR_Entity(kMLine) {}

  std::string styleName;
  double scale = 1.0;
  std::int32_t justification = 0;
  std::int32_t flags = 0;
  std::int32_t vertexCount = 0;  ///< counts as the file states them; the lists may differ
  std::int32_t elementCount = 0;
  Point3 start;
  Point3 normal;
  std::vector<MLineVertex> vertices;
};

/// One cell of a table, as the file states it.
struct TableCell {
  std::int32_t type = 0;
  std::int32_t flags = 0;
  std::int32_t merged = 0;
  std::int32_t autoFit = 0;
  std::int32_t mergedWidth = 0;
  std::int32_t mergedHeight = 0;
  std::int32_t virtualEdge = 0;
  double rotation = 0.0;

  bool operator==(const TableCell&) const = default;
};

/// A table, and what the block that shows it holds.
class ZR_Table : public ZR_Entity {
 public:
  ZR_Table() : ZR_Entity(kTable) {}

  Point3 position;
  Point3 direction;
  std::string blockName;
  std::int32_t rowCount = 0;
  std::int32_t columnCount = 0;
  std::vector<double> rowHeights;
  std::vector<double> columnWidths;
  std::vector<TableCell> cells;
  /// The entities of the block. A block reference among them stands for itself: what it refers to is not
  /// here.
  std::vector<std::shared_ptr<ZR_Entity>> entities;
};

/// A frame of geometric tolerances.
class ZR_Tolerance : public ZR_Entity {
 public:
  ZR_Tolerance() : ZR_Entity(kTolerance) {}

  Point3 position;
  Point3 direction;
  std::string text;
  std::string styleName;
};

/// A dimension; its block shows it drawn.
class ZR_Dimension : public ZR_Entity {
 public:
  ZR_Dimension() : ZR_Entity(kDimension) {}

  std::int32_t dimensionType = 0;
  std::string text;
  std::int32_t attachment = 0;
  std::int32_t spacingStyle = 1;
  double spacingFactor = 1.0;
  double measurement = 0.0;
  std::string styleName;
  std::string blockName;
  /// The points of groups 10 to 16, in this order: definition point, middle of the text, then what the type
  /// of dimension says.
  std::array<Point3, 7> points = {};
};

/// A window on the model; only its place is carried.
class ZR_Viewport : public ZR_Entity {
 public:
  ZR_Viewport() : ZR_Entity(kViewport) {}

  Point3 position;
};

}  // namespace Entity_ZR

#endif
