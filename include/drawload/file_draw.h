#ifndef DRAWLOAD_FILE_DRAW_H
#define DRAWLOAD_FILE_DRAW_H

#include <cstddef>
#include <cstdint>

#include "struct_rect.h"
#include "visibility.h"

/// Values of `CFileDraw::kind`: which class an object from the walk really is.
enum FileDrawKind : std::uint16_t {
  kFileCurve = 0,
  kFileDib = 1,
  kFilePoint = 2,
  kFileGroup = 3,
};

/// Base of every result object. Hosts read the fields directly, so their order, widths and offsets are the
/// contract: padding is spelled out and 64-bit floats are aligned to 8 on every platform.
///
/// Lengths are millimetres (those of a DXF drawing as they stand in its file), y up; angles are radians.
/// There is no virtual destructor: who frees an object switches on `kind`.
class DRAWLOAD_API CFileDraw {
 public:
  CFileDraw();
  CFileDraw(const CFileDraw& other);
  CFileDraw& operator=(const CFileDraw& other);

  virtual void TransMove(double dx, double dy);
  virtual void TransRotate(double cx, double cy, double angle);
  virtual void TransMirrorX(double x);
  virtual void TransMirrorY(double y);
  /// Scales by (sx, sy) about the fixed point (cx, cy).
  virtual void TransDrag(double cx, double cy, double sx, double sy);
  /// Computes the bounds, stores them in `rect` and returns them.
  virtual structRect CalRect() = 0;

  structRect rect;  ///< last computed bounds; (0, 0, 100, 100) before the first CalRect
  std::uint16_t kind;
  std::uint16_t paddingAfterKind;
  std::uint32_t color;  ///< byte 0 red, byte 1 green, byte 2 blue, byte 3 zero

  // The processing block, 176 bytes from `flag0` to `diameter`, that the parse copies as a whole from a
  // group to its members. Fields named reserved are never written by the parse.
  std::uint16_t flag0;
  std::uint16_t paddingAfterFlag0;
  std::int32_t cutMode;         ///< 1 when `processType` is 0, else 0
  alignas(8) double cutSpeed;   ///< "cutSpeed"
  alignas(8) double cutPower;   ///< "cutPower", percent
  alignas(8) double highFocus;  ///< "highFocus"
  std::int32_t reservedInt1;
  std::int32_t paddingAfterReservedInt1;
  alignas(8) double reservedFloat1;
  alignas(8) double frequency;  ///< "frequency"
  alignas(8) double reservedFloat2;
  alignas(8) double reservedFloat3;
  std::int32_t reservedInt2;
  std::int32_t paddingAfterReservedInt2;
  alignas(8) double reservedFloat4;
  std::int16_t reservedShort1;
  std::int16_t paddingAfterReservedShort1;
  std::int32_t processType;        ///< "processType"
  alignas(8) double engraveSpeed;  ///< "engraveSpeed"
  alignas(8) double EngMaxP;       ///< "EngMaxP", percent
  alignas(8) double engStep;       ///< line spacing in mm: 25.4 / "engDensity"
  alignas(8) double reservedFloat5;
  alignas(8) double highFocus2;  ///< second copy of "highFocus"
  std::int16_t imageType;        ///< "imageType", bitmaps only
  std::int16_t paddingAfterImageType[3];
  alignas(8) double EngMinP;  ///< "EngMinP", percent
  std::int32_t reservedInt3;
  std::int32_t Reverse;  ///< "Reverse", bitmaps only
  std::int16_t reservedShort2;
  std::int16_t machineType;  ///< "machineType"
  std::int32_t paddingAfterMachineType;
  alignas(8) double diameter;  ///< "diameter"
};

#endif
