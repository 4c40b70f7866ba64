#ifndef DRAWLOAD_FILE_DIB_H
#define DRAWLOAD_FILE_DIB_H

#include "file_draw.h"
#include "platform/string_class.h"

/// An 8-bit grey bitmap in a packed device-independent form, with the matrix that places its pixels:
/// x' = a·x + c·y + e, y' = b·x + d·y + f, in millimetres, for pixel coordinates x and y.
/// Copies are shallow and share the bitmap block, which the walk frees at its end. The library frees the two
/// pointers with the object: what a host puts there is allocated as each says.
class DRAWLOAD_API CFileDib : public CFileDraw {
 public:
  CFileDib();
  CFileDib(const CFileDib& other);
  CFileDib& operator=(const CFileDib& other);

  void TransMove(double dx, double dy) override;
  void TransMirrorY(double y) override;
  void TransDrag(double cx, double cy, double sx, double sy) override;
  /// Bounds of the four placed corners of the pixel rectangle (0, 0) to (width, height).
  structRect CalRect() override;

  /// BITMAPINFOHEADER (40 bytes), 256 palette entries (i, i, i, 0), then rows of one byte a pixel, padded
  /// to four bytes, in the order of the source. Null in a bitmap that has none. Freed with `free` on Linux
  /// (allocate it with `malloc`), with `GlobalFree` on Windows.
  drawload::GlobalHandle bitmap;
  alignas(8) double a;
  alignas(8) double c;
  alignas(8) double b;
  alignas(8) double d;
  alignas(8) double e;
  alignas(8) double f;
  void* auxiliary;  ///< not set by the parse; freed with `::operator delete(void*)`, no destructor runs
  std::uint32_t trailingWords[2];
};

#endif
