#include "platform/host_directory.h"

namespace platform {

std::string DirectoryOf(std::string_view path, char separator) {
  path = path.substr(0, kHostPathBytes);
  return std::string(path.substr(0, path.rfind(separator) + 1));
}

}  // namespace platform
