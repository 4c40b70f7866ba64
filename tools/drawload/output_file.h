#ifndef DRAWLOAD_TOOLS_OUTPUT_FILE_H
#define DRAWLOAD_TOOLS_OUTPUT_FILE_H

#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/types.h>

/// A file that could not be written; `what()` says which, why, and what to do.
class OutputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The name under which process `process` writes `path` until the file is whole. It lies in the same folder,
/// and is short, so that an output may have the longest name that there is.
std::string UnfinishedName(const std::string& path, pid_t process);

/// Makes the folder at `path` and those above it, where they are missing. Throws OutputError.
void MakeFolder(const std::string& path);

/// Writes `bytes` to `path` under its unfinished name, beside it, and renames it at the end, so that no
/// half-written file ever stands there. An existing file is replaced only where `replace` is set.
void WriteOutputFile(const std::string& path, std::string_view bytes, bool replace);

#endif
