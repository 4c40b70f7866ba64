#include "curve/curve_block.h"

#include <cstring>
#include <limits>

#include "curve/knots.h"
#include "support/limits.h"

namespace curve {

static_assert(sizeof(CurveBlock) == 16, "the floats begin behind four 32-bit integers");

namespace {

/// Beyond it the size of a block would not fit the address space.
constexpr std::uint64_t kMaxFloats = std::uint64_t{std::numeric_limits<std::ptrdiff_t>::max()} / 16;

}  // namespace

StatusCode AllocateCurve(std::uint64_t controlPointCount, std::uint32_t dimension, std::uint32_t degree,
                         CurvePointer& curve, Status* status) {
  curve.reset();
  const std::uint64_t knotCount = controlPointCount + degree + 1;
  if (knotCount > std::numeric_limits<std::uint32_t>::max()) return FailOutOfMemory(status);
  if (controlPointCount > kMaxFloats / dimension) return FailOutOfMemory(status);
  const CurveBlock head{degree, dimension, static_cast<std::uint32_t>(controlPointCount),
                        static_cast<std::uint32_t>(knotCount)};
  void* block = support::CountedMalloc(head.BlockSize());
  if (block == nullptr) return FailOutOfMemory(status);
  std::memcpy(block, &head, sizeof head);
  curve.reset(static_cast<CurveBlock*>(block));
  return Succeed(status);
}

StatusCode CreateCurve(std::uint32_t controlPointCount, std::uint32_t dimension, std::uint32_t degree,
                       KnotMode mode, CurvePointer& curve, Status* status) {
  curve.reset();
  if (dimension == 0) return Fail(status, kUnsupportedDimension, "unsupported dimension: 0");
  const std::uint64_t knotCount = std::uint64_t{controlPointCount} + degree + 1;
  if (knotCount > support::limits::kSplineKnots) return FailKnotCount(knotCount, status);
  if (degree >= controlPointCount) return FailDegree(degree, controlPointCount, status);
  StatusCode code = AllocateCurve(controlPointCount, dimension, degree, curve, status);
  if (code == kSuccess) code = GenerateKnots(*curve, mode, status);
  if (code != kSuccess) curve.reset();
  return code;
}

StatusCode CopyCurve(const CurveBlock& source, CurvePointer& copy, Status* status) {
  CurvePointer made;
  const StatusCode code =
      AllocateCurve(source.controlPointCount, source.dimension, source.degree, made, status);
  if (code == kSuccess) std::memcpy(made.get(), &source, source.BlockSize());
  copy = std::move(made);
  return code;
}

}  // namespace curve
