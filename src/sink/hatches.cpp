// Hatches: their boundary edges as ordinary curves. No fill lines are made.
#include "entity/hatch.h"
#include "sink/my_draw_load.h"

namespace {

/// A copy of the edge that the called operation may change. Throws boost::bad_get where the edge's kind
/// does not fit what it holds.
template <typename Shape>
Shape CopyOf(const Entity_ZR::HatchEdge& edge) {
  return boost::get<Shape>(edge.shape);
}

}  // namespace

void CMyDrawLoad::AddHatchEdge(const Entity_ZR::HatchEdge& edge) {
  switch (edge.kind) {
    case Entity_ZR::kLineEdge: {
      auto line = CopyOf<Entity_ZR::ZR_Line>(edge);
      AddLine(&line, 0);
      break;
    }
    case Entity_ZR::kArcEdge: {
      auto arc = CopyOf<Entity_ZR::ZR_Arc>(edge);
      AddArc(&arc, 0);
      break;
    }
    case Entity_ZR::kEllipseEdge: {
      auto ellipse = CopyOf<Entity_ZR::ZR_Ellipse>(edge);
      AddEllipse(&ellipse, 0);
      break;
    }
    case Entity_ZR::kSplineEdge: {
      auto spline = CopyOf<Entity_ZR::ZR_Spline>(edge);
      AddSpline(&spline, 0);
      break;
    }
    case Entity_ZR::kPolylineEdge: {
      auto polyline = CopyOf<Entity_ZR::ZR_LWPolyline>(edge);
      AddLWPolyline(&polyline, 0);
      break;
    }
    default: break;
  }
}

bool CMyDrawLoad::AddHatch(Entity_ZR::ZR_Hatch* entity, PARSE::Context) {
  if (!entity->IsShown()) return false;
  for (const Entity_ZR::HatchEdge& edge : entity->edges) AddHatchEdge(edge);
  return true;
}
