// Lines, circles, ellipses and arcs: one curve each.
#include <numbers>
#include <vector>

#include "entity/shapes.h"
#include "result/processing_block.h"
#include "sink/arc_sections.h"
#include "sink/arc_to_bezier.h"
#include "sink/my_draw_load.h"
#include "sink/parameters.h"

using Entity_ZR::Point3;

CFileCurve* CMyDrawLoad::NewShapeCurve(const Entity_ZR::ZR_Entity& entity) {
  CFileCurve* curve = store.NewCurve();
  curve->color = ResultColor(entity);
  if (groupDepth == 0) {
    ApplyCurveParameters(entity.attributes, *curve);
  } else {
    CopyProcessingBlock(*frames.back().group, *curve);
  }
  return curve;
}

bool CMyDrawLoad::AddShape(const Entity_ZR::ZR_Entity& entity) {
  if (arcPoints.empty()) return false;
  CFileCurve* curve = NewShapeCurve(entity);
  const CoordinateChain chain = ChainOf(entity);
  AppendSections(store, *curve, arcPoints, [&](Point3 p) { return chain.Place(p); });
  AddResult(curve);
  return true;
}

bool CMyDrawLoad::AddLine(Entity_ZR::ZR_Line* entity, PARSE::Context) {
  if (!entity->IsShown()) return false;
  CFileCurve* curve = NewShapeCurve(*entity);
  const CoordinateChain chain = ChainOf(*entity);
  store.AppendLine(*curve, chain.Place(entity->start), chain.Place(entity->end));
  AddResult(curve);
  return true;
}

bool CMyDrawLoad::AddCircle(Entity_ZR::ZR_Circle* entity, PARSE::Context) {
  if (!entity->IsShown()) return false;
  ArcToBezier(true, entity->center, entity->radius, 0.0, 0.0, 2.0 * std::numbers::pi, entity->radius,
              arcPoints);
  return AddShape(*entity);
}

bool CMyDrawLoad::AddEllipse(Entity_ZR::ZR_Ellipse* entity, PARSE::Context) {
  if (!entity->IsShown()) return false;
  ArcToBezier(entity->reversed != 0, entity->center, entity->radiusY, entity->rotation, entity->startAngle,
              entity->endAngle, entity->radiusX, arcPoints);
  return AddShape(*entity);
}

// Kept: an arc takes neither its own matrix nor any processing block, unlike all other shapes.
bool CMyDrawLoad::AddArc(Entity_ZR::ZR_Arc* entity, PARSE::Context) {
  if (!entity->IsShown()) return false;
  ArcToBezier(entity->reversed != 0, entity->center, entity->radius, 0.0, entity->startAngle,
              entity->endAngle, entity->radius, arcPoints);
  if (arcPoints.empty()) return false;
  CFileCurve* curve = store.NewCurve();
  curve->color = ResultColor(*entity);
  const CoordinateChain chain = ChainOf(*entity);
  AppendSections(store, *curve, arcPoints, [&](Point3 p) { return chain.PlaceDocumentPoint(p); });
  AddResult(curve);
  return true;
}
