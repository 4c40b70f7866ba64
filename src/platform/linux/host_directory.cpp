#include "platform/host_directory.h"

#include <array>
#include <unistd.h>

namespace platform {

std::string HostDirectory() {
  std::array<char, kHostPathBytes> path;
  const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
  if (length < 0) return {};
  return DirectoryOf({path.data(), static_cast<std::size_t>(length)}, '/');
}

}  // namespace platform
