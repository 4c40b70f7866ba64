#ifndef DRAWLOAD_TOOLS_OUTPUT_FILE_H
#define DRAWLOAD_TOOLS_OUTPUT_FILE_H

#include <stdexcept>
#include <string>
#include <string_view>

/// A file that could not be written; `what()` says which, why, and what to do.
class OutputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Writes `bytes` to `path` under a temporary name beside it and renames it at the end, so that no
/// half-written file ever stands there. An existing file is replaced only where `replace` is set.
void WriteOutputFile(const std::string& path, std::string_view bytes, bool replace);

#endif
