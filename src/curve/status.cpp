#include "curve/status.h"

#include <cstdarg>
#include <cstdio>

namespace curve {

StatusCode Succeed(Status* status) {
  if (status != nullptr) {
    status->code = kSuccess;
    status->message[0] = '\0';
  }
  return kSuccess;
}

StatusCode Fail(Status* status, StatusCode code, const char* format, ...) {
  if (status == nullptr) return code;
  status->code = code;
  std::va_list values;
  va_start(values, format);
  std::vsnprintf(status->message, sizeof status->message, format, values);
  va_end(values);
  return code;
}

StatusCode FailOutOfMemory(Status* status) { return Fail(status, kOutOfMemory, "out of memory"); }

}  // namespace curve
