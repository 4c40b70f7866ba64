#ifndef DRAWLOAD_PLATFORM_HOST_DIRECTORY_H
#define DRAWLOAD_PLATFORM_HOST_DIRECTORY_H

#include <cstddef>
#include <string>
#include <string_view>

namespace platform {

/// So much of the host program's path counts.
constexpr std::size_t kHostPathBytes = 255;

/// The part of a path up to its last separator, which it includes; empty where there is none. Only the first
/// `kHostPathBytes` of the path count.
std::string DirectoryOf(std::string_view path, char separator);

/// The directory of the program that loaded the library, with the system's separator at its end. Empty where
/// the system does not tell.
std::string HostDirectory();

}  // namespace platform

#endif
