#ifndef DRAWLOAD_FILE_SEGMENT_H
#define DRAWLOAD_FILE_SEGMENT_H

#include <cstdint>

/// Values of `FileSegment::type`.
enum FileSegmentType : std::uint16_t {
  kSegmentLine = 0,
  kSegmentCubic = 3,
};

/// A point of the drawing, in millimetres, y up.
struct FilePosition {
  alignas(8) double x;
  alignas(8) double y;
};

/// One straight or cubic Bezier segment: a node of the circular doubly linked list of a `CFileCurve`.
/// 104 bytes where pointers have 8 bytes, 96 where they have 4. A quadratic curve arrives as a cubic
/// segment whose two control points are both its one control point.
struct FileSegment {
  std::uint16_t type;
  std::uint16_t paddingAfterType[3];
  FilePosition start;
  FilePosition end;
  FilePosition control1;  ///< zero for a line
  FilePosition control2;  ///< zero for a line
  std::uint8_t tail[14];  ///< zero
  std::uint8_t paddingAfterTail[2];
  FileSegment* previous;
  FileSegment* next;
};

#endif
