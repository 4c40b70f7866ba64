#include "platform/host_directory.h"

#include <array>
#include <unistd.h>

namespace platform {
namespace {

constexpr std::size_t kPathBytes = 255;

}  // namespace

std::string DirectoryOf(std::string_view path) {
  path = path.substr(0, kPathBytes);
  return std::string(path.substr(0, path.rfind('/') + 1));
}

std::string HostDirectory() {
  std::array<char, kPathBytes> path;
  const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
  if (length < 0) return {};
  return DirectoryOf({path.data(), static_cast<std::size_t>(length)});
}

}  // namespace platform
