#ifndef DRAWLOAD_CURVE_STATUS_H
#define DRAWLOAD_CURVE_STATUS_H

#include <cstddef>
#include <cstdint>

namespace curve {

enum StatusCode : std::int32_t {
  kSuccess = 0,
  kOutOfMemory = -1,
  kUnsupportedDimension = -2,
  kDegreeTooHigh = -3,
  kOutsideDomain = -4,
  kMultiplicityTooHigh = -5,
  kDecreasingKnots = -6,
  kUnsupportedKnotCount = -7,
};

/// Room for the longest message: two 64-bit floats, written out in full, and the words around them.
constexpr std::size_t kMessageSize = 768;

/// What a function of the inner layer tells about its outcome. Every such function takes a null pointer as
/// well, and then only returns the code.
struct Status {
  /// Success. Of the message only its end is written: a status is made for every evaluated point.
  Status() { message[0] = '\0'; }

  StatusCode code = kSuccess;
  char message[kMessageSize];
};

/// Notes success and returns it.
StatusCode Succeed(Status* status);

/// Notes `code` with a message in the manner of printf, and returns the code.
[[gnu::format(printf, 3, 4)]] StatusCode Fail(Status* status, StatusCode code, const char* format, ...);

StatusCode FailOutOfMemory(Status* status);

}  // namespace curve

#endif
