#ifndef DRAWLOAD_SINK_ARC_SECTIONS_H
#define DRAWLOAD_SINK_ARC_SECTIONS_H

#include <vector>

#include "entity/point3.h"
#include "result/result_store.h"

/// Appends a segment to `curve` for each section that `ArcToBezier` made, of which there is at least one;
/// `place` maps a point to the result. Returns where the last one ends. A section begins where the one before
/// it ends.
template <typename Place>
FilePosition AppendSections(ResultStore& store, CFileCurve& curve,
                            const std::vector<Entity_ZR::Point3>& points, Place place) {
  FilePosition from = place(points.front());
  for (std::size_t i = 0; i + 3 < points.size(); i += 4) {
    const FilePosition to = place(points[i + 3]);
    store.AppendCubic(curve, from, place(points[i + 1]), place(points[i + 2]), to);
    from = to;
  }
  return from;
}

#endif
