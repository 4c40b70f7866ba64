#include "versions.h"

#include <CLI/Version.hpp>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <link.h>
#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <string_view>
#include <vector>

namespace {

/// The file name without its folder, with links followed: it ends in the library's full version.
std::string RealName(const char* path) {
  const std::unique_ptr<char, decltype(&std::free)> real(realpath(path, nullptr), std::free);
  const std::string_view name = real != nullptr ? real.get() : path;
  return std::string(name.substr(name.rfind('/') + 1));
}

bool IsOfInterest(std::string_view name) {
  constexpr std::array<std::string_view, 8> kNames{"libdrawload.", "libfreetype.", "libfontconfig.",
                                                   "libz.",        "libtinyxml2.", "libopenjp2.",
                                                   "libcairo.",    "libpng16."};
  return std::any_of(kNames.begin(), kNames.end(),
                     [name](std::string_view start) { return name.substr(0, start.size()) == start; });
}

int NoteLibrary(dl_phdr_info* info, std::size_t, void* names) {
  const std::string name = RealName(info->dlpi_name);
  if (IsOfInterest(name)) static_cast<std::vector<std::string>*>(names)->push_back(name);
  return 0;
}

std::string LibrariesInUse() {
  std::vector<std::string> names;
  dl_iterate_phdr(NoteLibrary, &names);
  std::sort(names.begin(), names.end());
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
  return text;
}

}  // namespace

std::string Versions() {
  std::string text =
      "drawload " DRAWLOAD_VERSION "\nbuilt with " DRAWLOAD_LIBRARY_VERSIONS ", nlohmann-json ";
  text += std::to_string(NLOHMANN_JSON_VERSION_MAJOR) + '.';
  text += std::to_string(NLOHMANN_JSON_VERSION_MINOR) + '.';
  text += std::to_string(NLOHMANN_JSON_VERSION_PATCH);
  text += ", CLI11 " CLI11_VERSION "\nrunning with ";
  text += LibrariesInUse();
  return text;
}
