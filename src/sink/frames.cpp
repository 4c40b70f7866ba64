// Groups: frames on a stack, of which only the innermost places points.
#include <cmath>

#include "entity/insert.h"
#include "sink/my_draw_load.h"
#include "sink/parameters.h"

namespace {

constexpr double kNoShear = 1e-8;

/// Kept: a frame that at most translates is ignored, its translation with it. Its content has been moved
/// to its place by the reader.
bool PlacesPoints(const Matrix2D& m) {
  return !(m.a == 1.0 && m.d == 1.0 && std::fabs(m.b) < kNoShear && std::fabs(m.c) < kNoShear);
}

}  // namespace

CoordinateChain CMyDrawLoad::ChainOf(const Entity_ZR::ZR_Entity& entity) const {
  const Matrix2D* frame = groupDepth == 0 ? nullptr : &frames.back().matrix;
  if (frame != nullptr && !PlacesPoints(*frame)) frame = nullptr;
  return {entity.matrix, frame, pageMatrix};
}

bool CMyDrawLoad::AddInsert(Entity_ZR::ZR_Insert* entity, PARSE::Context) {
  if (!entity->IsShown()) return false;
  // Kept: a frame neither composes with the one around it nor inherits its processing block.
  CFileGroup* group = store.NewGroup();
  ApplyGroupParameters(entity->attributes, *group);
  frames.push_back({entity->matrix, group});
  ++groupDepth;
  return true;
}

void CMyDrawLoad::EndGroup(PARSE::Context) {
  if (groupDepth == 0) return;
  MoveToResults(frames.back().group);
  frames.pop_back();
  --groupDepth;
}
