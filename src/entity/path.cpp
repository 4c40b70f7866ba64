#include "entity/path.h"

#include <algorithm>

namespace Entity_ZR {

void ZR_Path::Close() {
  const auto lastMove = std::find_if(segments.rbegin(), segments.rend(),
                                     [](const PathSegment& segment) { return segment.type == kMoveTo; });
  if (lastMove == segments.rend()) return;
  const Point3 start = lastMove->end;
  LineTo(start.x, start.y);
}

}  // namespace Entity_ZR
