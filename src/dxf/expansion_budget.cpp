#include "dxf/expansion_budget.h"

#include <algorithm>
#include <variant>

#include "dxf/dxf_annotations.h"
#include "dxf/dxf_hatch.h"
#include "dxf/dxf_mleader.h"
#include "dxf/dxf_text.h"
#include "support/limits.h"

namespace {

/// A quarter turn that an arc may have counts as a point.
constexpr std::size_t kQuarterTurns = 4;

std::size_t PointsOfVertex(double bulge) { return bulge == 0.0 ? 1 : 1 + kQuarterTurns; }

std::size_t PointsOf(const DXF_Polyline& record) {
  std::size_t points = 0;
  for (const auto& vertex : record.vertices) points += PointsOfVertex(vertex->bulge);
  return points;
}

std::size_t PointsOf(const DXF_List<DXF_Vertex2D>& vertices) {
  std::size_t points = 0;
  for (const DXF_Vertex2D& vertex : vertices) points += PointsOfVertex(vertex.bulge);
  return points;
}

std::size_t PointsOf(const DXF_Spline& record) {
  return record.knots.size() + record.controlPoints.size() + record.weights.size() + record.fitPoints.size();
}

std::size_t PointsOf(const DXF_HatchEdge& edge) {
  if (const auto* spline = std::get_if<std::shared_ptr<const DXF_HatchSpline>>(&edge.record)) {
    return 4 + PointsOf(**spline);
  }
  if (const auto* polyline = std::get_if<std::shared_ptr<const DXF_HatchLWPolyline>>(&edge.record)) {
    return 4 + PointsOf((*polyline)->vertices);
  }
  return 4;
}

std::size_t PointsOf(const DXF_Hatch& record) {
  std::size_t points = record.seeds.size();
  for (const DXF_HatchEdge& edge : record.edges) points += PointsOf(edge);
  for (const DXF_HatchPatternLine& line : record.patternLines) points += 1 + line.dashes.size();
  return points;
}

std::size_t PointsOf(const DXF_Mline& record) {
  std::size_t points = 0;
  for (const DXF_MlineVertex& vertex : record.vertices) {
    points += 3;
    for (const ElemPram& element : vertex.elements) {
      points += 1 + element.values.size() + element.fillValues.size();
    }
  }
  return points;
}

std::size_t PointsOf(const DXF_MLeader& record) {
  if (record.context == nullptr) return 0;
  std::size_t points = record.context->text.size();
  for (const DXF_Leader& leader : record.context->leaders) {
    points += 1;
    for (const DXF_LeaderLine& line : leader.lines) points += 1 + line.points.size();
  }
  return points;
}

std::size_t PointsOf(const DXF_Table& record) {
  return record.cells.size() + record.rowHeights.size() + record.columnWidths.size();
}

template <typename Record>
const Record& As(const DXF_Entity& record) {
  return static_cast<const Record&>(record);
}

std::size_t PointsOf(const DXF_Entity& record) {
  switch (record.kind) {
    case kDxfPolyline: return PointsOf(As<DXF_Polyline>(record));
    case kDxfLWPolyline: return PointsOf(As<DXF_LWPolyline>(record).vertices);
    case kDxfCircle:
    case kDxfEllipse:
    case kDxfArc: return kQuarterTurns;
    case kDxfSpline: return PointsOf(As<DXF_Spline>(record));
    case kDxfHelix: return PointsOf(As<DXF_Helix>(record).spline);
    case kDxfText:
    case kDxfMText: return As<DXF_Text>(record).text.size();
    case kDxfHatch: return PointsOf(As<DXF_Hatch>(record));
    case kDxfMline: return PointsOf(As<DXF_Mline>(record));
    case kDxfTable: return PointsOf(As<DXF_Table>(record));
    case kDxfMLeader: return PointsOf(As<DXF_MLeader>(record));
    default: return 0;
  }
}

}  // namespace

std::size_t ConversionUnits(const DXF_Entity& record) { return 4 + PointsOf(record); }

void DXF_ExpansionBudget::Open(const DXF_Document& document) {
  using namespace support::limits;
  if (!left) left = kExpansionBase + kExpansionPerUnit * document.conversionUnits;
  account = *left / 2;
  *left -= account;
}

void DXF_ExpansionBudget::Close() {
  if (left) *left += account;
  account = 0;
}

bool DXF_ExpansionBudget::Pay(const DXF_Entity& record, int depth) {
  const int beyond = std::max(0, depth - support::limits::kInsertUsualDepth);
  const std::size_t price = ConversionUnits(record) * (1 + static_cast<std::size_t>(beyond));
  if (price > account) {
    account = 0;
    return false;
  }
  account -= price;
  return true;
}
