#ifndef DRAWLOAD_STRUCT_RECT_H
#define DRAWLOAD_STRUCT_RECT_H

/// An axis-parallel rectangle in millimetres, y up.
struct structRect {
  alignas(8) double minX;
  alignas(8) double minY;
  alignas(8) double maxX;
  alignas(8) double maxY;
};

#endif
