#ifndef DRAWLOAD_FILE_POINT_H
#define DRAWLOAD_FILE_POINT_H

#include "file_draw.h"

/// A single point, for the caller's use: no parse makes one.
class DRAWLOAD_API CFilePoint : public CFileDraw {
 public:
  CFilePoint();
  CFilePoint(const CFilePoint& other);
  CFilePoint& operator=(const CFilePoint& other);

  void TransMove(double dx, double dy) override;
  void TransRotate(double cx, double cy, double angle) override;
  void TransMirrorX(double x) override;
  void TransMirrorY(double y) override;
  void TransDrag(double cx, double cy, double sx, double sy) override;
  structRect CalRect() override;

  alignas(8) double x;
  alignas(8) double y;
  std::uint32_t trailingWord;
};

#endif
