// Polylines: one curve each, straight spans and circular arcs. Widths are ignored: the curve follows the
// centre line. Kept: polylines never take a processing block, whatever their own or their group's says.
#include "entity/polylines.h"

#include <cmath>
#include <optional>

#include "entity/shapes.h"
#include "sink/arc_sections.h"
#include "sink/arc_to_bezier.h"
#include "sink/my_draw_load.h"

namespace {

using Entity_ZR::Point3;

constexpr double kSmallestBulge = 0.0001;
constexpr double kClosedTolerance = 0.0001;

/// Appends the spans of one polyline to a curve.
class SpanWriter {
 public:
  SpanWriter(ResultStore& results, CFileCurve& target, const CoordinateChain& coordinates, Point3 firstVertex,
             std::vector<Point3>& roomForArcs)
      : store(results),
        curve(target),
        chain(coordinates),
        start(coordinates.Place(firstVertex)),
        points(roomForArcs) {}

  /// The span between two neighbours, of which the first one states the bulge.
  void AppendSpan(Point3 from, double bulge, Point3 to) {
    if (std::fabs(bulge) >= kSmallestBulge) {
      AppendArc(Entity_ZR::ArcShape(from, bulge, to));
    } else {
      AppendStraight(to);
    }
  }

 private:
  void AppendStraight(Point3 to) {
    const FilePosition end = chain.Place(to);
    store.AppendLine(curve, start, end);
    start = end;
  }

  void AppendArc(const Entity_ZR::ArcShape& arc) {
    ArcToBezier(arc.reversed != 0, arc.center, arc.radius, 0.0, arc.startAngle, arc.endAngle, arc.radius,
                points);
    if (points.empty()) return;
    start = AppendSections(store, curve, points, [this](Point3 point) { return chain.Place(point); });
  }

  ResultStore& store;
  CFileCurve& curve;
  const CoordinateChain& chain;
  FilePosition start;  ///< end of the span before, as drawn
  std::vector<Point3>& points;
};

Point3 PointOf(const Entity_ZR::LWVertex& vertex) { return {vertex.x, vertex.y, 0.0}; }
Point3 PointOf(const Entity_ZR::PolylineVertex& vertex) { return {vertex.x, vertex.y, vertex.z}; }

bool EndsApart(const Entity_ZR::ZR_Polyline& polyline) {
  const Entity_ZR::PolylineVertex& first = *polyline.vertices.front();
  const Entity_ZR::PolylineVertex& last = *polyline.vertices.back();
  return std::fabs(last.x - first.x) >= kClosedTolerance || std::fabs(last.y - first.y) >= kClosedTolerance;
}

void AppendVertices(ResultStore& store, CFileCurve& curve, const CoordinateChain& chain,
                    const Entity_ZR::ZR_Polyline& polyline, std::vector<Point3>& roomForArcs) {
  const auto& vertices = polyline.vertices;
  SpanWriter spans(store, curve, chain, PointOf(*vertices.front()), roomForArcs);
  for (std::size_t i = 1; i < vertices.size(); ++i) {
    spans.AppendSpan(PointOf(*vertices[i - 1]), vertices[i - 1]->bulge, PointOf(*vertices[i]));
  }
  const bool closed = (polyline.polylineFlags & Entity_ZR::kPolylineClosed) != 0;
  if (closed && EndsApart(polyline)) {
    spans.AppendSpan(PointOf(*vertices.back()), vertices.back()->bulge, PointOf(*vertices.front()));
  }
}

/// The vertices that spline fitting made, joined by straight spans. The control vertices between them draw
/// nothing and part the runs; neither bulges nor the closed bit count.
void FitVertices(ResultStore& store, CFileCurve& curve, const CoordinateChain& chain,
                 const Entity_ZR::ZR_Polyline& polyline) {
  std::optional<FilePosition> previous;
  for (const auto& vertex : polyline.vertices) {
    if ((vertex->vertexFlags & Entity_ZR::kVertexFromSplineFit) == 0) {
      previous.reset();
      continue;
    }
    const FilePosition place = chain.Place(PointOf(*vertex));
    if (previous) store.AppendLine(curve, *previous, place);
    previous = place;
  }
}

}  // namespace

bool CMyDrawLoad::AddLWPolyline(Entity_ZR::ZR_LWPolyline* entity, PARSE::Context) {
  const auto& vertices = entity->vertices;
  if (!entity->IsShown() || vertices.empty()) return false;
  CFileCurve* curve = store.NewCurve();
  const CoordinateChain chain = ChainOf(*entity);
  SpanWriter spans(store, *curve, chain, PointOf(vertices.front()), arcPoints);
  for (std::size_t i = 1; i < vertices.size(); ++i) {
    spans.AppendSpan(PointOf(vertices[i - 1]), vertices[i - 1].bulge, PointOf(vertices[i]));
  }
  // Kept: nothing checks whether the last vertex already stands on the first one.
  if ((entity->closed & 1) != 0) {
    spans.AppendSpan(PointOf(vertices.back()), vertices.back().bulge, PointOf(vertices.front()));
  }
  curve->color = ResultColor(*entity);
  AddResult(curve);
  return true;
}

bool CMyDrawLoad::AddPolyline(Entity_ZR::ZR_Polyline* entity, PARSE::Context) {
  if (!entity->IsShown() || entity->vertices.empty()) return false;
  CFileCurve* curve = store.NewCurve();
  const CoordinateChain chain = ChainOf(*entity);
  if ((entity->polylineFlags & Entity_ZR::kPolylineSplineFit) != 0) {
    FitVertices(store, *curve, chain, *entity);
  } else {
    AppendVertices(store, *curve, chain, *entity, arcPoints);
  }
  curve->color = ResultColor(*entity);
  AddResult(curve);
  return true;
}
