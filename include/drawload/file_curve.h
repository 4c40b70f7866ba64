#ifndef DRAWLOAD_FILE_CURVE_H
#define DRAWLOAD_FILE_CURVE_H

#include "file_draw.h"
#include "file_segment.h"

namespace drawload {
class ResultStore;
}

/// A chain of segments. Copies are shallow and share the segments, which the walk frees at its end.
class DRAWLOAD_API CFileCurve : public CFileDraw {
 public:
  /// Allocates the sentinel of an empty segment list with `new`. A `CFileGroup` that the curve is a member of
  /// frees it with the segments; otherwise the caller does, with `delete`.
  CFileCurve();
  CFileCurve(const CFileCurve& other);
  CFileCurve& operator=(const CFileCurve& other);

  void TransMove(double dx, double dy) override;
  void TransRotate(double cx, double cy, double angle) override;
  void TransMirrorX(double x) override;
  void TransMirrorY(double y) override;
  void TransDrag(double cx, double cy, double sx, double sy) override;
  /// Tight bounds of the curve itself, not of its control points.
  structRect CalRect() override;

  /// Adds (dx, dy) to every point of every segment.
  void Move(double dx, double dy);

  FileSegment* segmentHead;    ///< sentinel; never null
  FileSegment* segmentCursor;  ///< the first append sets it to the first segment
  std::int32_t segmentCount;   ///< without the sentinel
  std::uint32_t trailingWord;

 private:
  friend class drawload::ResultStore;
  /// An empty curve around a sentinel that somebody else owns.
  explicit CFileCurve(FileSegment* sentinel);
};

#endif
