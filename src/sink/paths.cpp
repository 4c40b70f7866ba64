// Paths: one curve for each subpath.
#include "entity/path.h"
#include "result/processing_block.h"
#include "sink/my_draw_load.h"
#include "sink/parameters.h"
#include "support/account.h"

namespace {

using Entity_ZR::PathSegment;

/// Appends one drawn segment from `from` to `to` to `curve`; false for a type that draws nothing.
/// Kept: control points are mapped by the path's matrix in its own record, and the control point of a
/// quadratic curve serves as both controls of the cubic.
bool AppendSegment(ResultStore& store, CFileCurve& curve, const CoordinateChain& chain,
                   const Matrix2D& matrix, FilePosition from, FilePosition to, PathSegment& segment) {
  switch (segment.type) {
    case Entity_ZR::kLineTo: store.AppendLine(curve, from, to); return true;
    case Entity_ZR::kQuadTo: {
      segment.control1 = matrix.Apply(segment.control1);
      const FilePosition control = chain.PlaceDocumentPoint(segment.control1);
      store.AppendCubic(curve, from, control, control, to);
      return true;
    }
    case Entity_ZR::kCubicTo:
      segment.control1 = matrix.Apply(segment.control1);
      segment.control2 = matrix.Apply(segment.control2);
      store.AppendCubic(curve, from, chain.PlaceDocumentPoint(segment.control1),
                        chain.PlaceDocumentPoint(segment.control2), to);
      return true;
    default: return false;
  }
}

}  // namespace

CFileCurve* CMyDrawLoad::NewPathCurve(const Entity_ZR::ZR_Entity& entity) {
  CFileCurve* curve = store.NewCurve();
  if (!entity.attributes.empty()) {
    ApplyCurveParameters(entity.attributes, *curve);
  } else if (groupDepth != 0) {
    CopyProcessingBlock(*frames.back().group, *curve);
  }
  return curve;
}

CFileGroup& CMyDrawLoad::PathHolder() {
  if (groupDepth != 0) return *frames.back().group;
  return CollectsText() ? *textGroup : *pathGroup;
}

void CMyDrawLoad::HandOutPath() {
  MoveToResults(pathGroup);
  pathGroup = nullptr;
}

void CMyDrawLoad::HandOutText() {
  MoveToResults(textGroup);
  textGroup = nullptr;
  textMode = 0;
}

void CMyDrawLoad::FinishPath(CFileCurve* lastCurve) {
  const bool collectsText = CollectsText();
  if (groupDepth == 0 && collectsText) CopyProcessingBlock(*lastCurve, *textGroup);
  store.Append(PathHolder(), lastCurve);
  if (groupDepth != 0) return;
  if (!collectsText) {
    HandOutPath();
  } else if (textLast != 0) {
    HandOutText();
  }
}

bool CMyDrawLoad::AddPath(Entity_ZR::ZR_Path* entity, PARSE::Context) {
  if (!entity->IsShown()) return false;
  if (groupDepth == 0 && !CollectsText()) {
    if (pathGroup != nullptr) store.Recycle(pathGroup);
    pathGroup = store.NewGroup();
  }
  try {
    CFileCurve* curve = AppendSubpaths(*entity);
    // Kept: a path that ends in a move leaves the curves before it in the group, which the next one replaces.
    if (curve->segmentCount != 0) {
      FinishPath(curve);
    } else {
      store.Recycle(curve);
    }
  } catch (const support::BeyondAllowance&) {
    // What stands of the path is drawn.
    if (groupDepth == 0 && !CollectsText()) HandOutPath();
    throw;
  }
  return true;
}

CFileCurve* CMyDrawLoad::AppendSubpaths(Entity_ZR::ZR_Path& entity) {
  const CoordinateChain chain = ChainOf(entity);
  CFileCurve* curve = NewPathCurve(entity);
  FilePosition current = chain.Place({});
  for (PathSegment& segment : entity.segments) {
    const FilePosition end = chain.Place(segment.end);
    if (segment.type == Entity_ZR::kMoveTo) {
      if (curve->segmentCount != 0) {
        store.Append(PathHolder(), curve);
        curve = NewPathCurve(entity);
      }
    } else if (AppendSegment(store, *curve, chain, entity.matrix, current, end, segment)) {
      curve->color = ResultColor(entity);
    } else {
      continue;
    }
    current = end;
  }
  return curve;
}
