#include "platform/host_directory.h"

#include <array>

#include "platform/windows/system.h"

namespace platform {

std::string HostDirectory() {
  std::array<char, kHostPathBytes> path;
  const DWORD length =
      GetModuleFileNameA(GetModuleHandleA(nullptr), path.data(), static_cast<DWORD>(path.size()));
  return DirectoryOf({path.data(), length}, '\\');
}

}  // namespace platform
