#ifndef DRAWLOAD_TESTS_SINK_RESULTS_H
#define DRAWLOAD_TESTS_SINK_RESULTS_H

#include <cmath>
#include <gmock/gmock.h>
#include <string>
#include <utility>
#include <vector>

#include "drawload/file_curve.h"
#include "entity/entity.h"
#include "entity/insert.h"
#include "sink/my_draw_load.h"

/// The curves that the walk over `sink` hands out, in order. All results of the tests that use it are curves.
inline std::vector<CFileCurve*> Curves(CMyDrawLoad& sink) {
  std::vector<CFileCurve*> curves;
  for (CFileDraw* object = sink.FirstResult(); object != nullptr; object = sink.NextResult()) {
    EXPECT_EQ(object->kind, kFileCurve);
    curves.push_back(static_cast<CFileCurve*>(object));
  }
  return curves;
}

/// The segments of `curve`, in order.
inline std::vector<FileSegment> Segments(const CFileCurve& curve) {
  std::vector<FileSegment> segments;
  for (const FileSegment* s = curve.segmentHead->next; s != curve.segmentHead; s = s->next) {
    segments.push_back(*s);
  }
  EXPECT_EQ(static_cast<std::size_t>(curve.segmentCount), segments.size());
  return segments;
}

/// The segments of the one curve that `sink` holds.
inline std::vector<FileSegment> OnlySegments(CMyDrawLoad& sink) {
  const std::vector<CFileCurve*> curves = Curves(sink);
  EXPECT_EQ(curves.size(), 1u);
  return curves.empty() ? std::vector<FileSegment>{} : Segments(*curves.front());
}

/// A position or a point within `tolerance` of (x, y).
MATCHER_P3(IsNear, x, y, tolerance,
           "lies near (" + testing::PrintToString(x) + ", " + testing::PrintToString(y) + ")") {
  *result_listener << "(" << testing::PrintToString(arg.x) << ", " << testing::PrintToString(arg.y) << ")";
  return std::abs(arg.x - x) <= tolerance && std::abs(arg.y - y) <= tolerance;
}

/// A position or a point at (x, y), but for rounding.
inline auto IsAt(double x, double y) { return IsNear(x, y, 1e-12); }

/// A position or a point exactly at (x, y).
inline auto IsExactly(double x, double y) { return IsNear(x, y, 0.0); }

/// One element of processing parameters.
inline std::vector<Entity_ZR::Attribute> Parameters(Entity_ZR::AttributePairs pairs) {
  return {{Entity_ZR::kParameterAttribute, std::move(pairs)}};
}

/// Opens a frame with this placement and these parameters.
inline void OpenFrame(CMyDrawLoad& sink, const Matrix2D& matrix, Entity_ZR::AttributePairs pairs = {}) {
  Entity_ZR::ZR_Insert insert;
  insert.matrix = matrix;
  if (!pairs.empty()) insert.attributes = Parameters(std::move(pairs));
  EXPECT_TRUE(sink.AddInsert(&insert, 0));
}

#endif
