#ifndef DRAWLOAD_PLATFORM_HOST_DIRECTORY_H
#define DRAWLOAD_PLATFORM_HOST_DIRECTORY_H

#include <string>
#include <string_view>

namespace platform {

/// The part of a path up to its last "/", which it includes; empty where there is none. Only the first 255
/// bytes of the path count.
std::string DirectoryOf(std::string_view path);

/// The directory of the program that loaded the library, with a "/" at its end. Empty where the system does
/// not tell.
std::string HostDirectory();

}  // namespace platform

#endif
