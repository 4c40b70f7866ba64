#include "platform/profile_file.h"

#include <array>

#include "platform/windows/system.h"

namespace platform {

/// The system reads the file; all that is kept is where it lies.
class ProfileFile::Contents {
 public:
  explicit Contents(const std::string& filePath) : path(filePath) {}

  std::string Value(const std::string& section, const std::string& key) const {
    std::array<char, 255> value;
    const DWORD length = GetPrivateProfileStringA(section.c_str(), key.c_str(), "", value.data(),
                                                  static_cast<DWORD>(value.size()), path.c_str());
    return {value.data(), length};
  }

 private:
  std::string path;
};

ProfileFile::ProfileFile(const std::string& path) : contents(std::make_unique<Contents>(path)) {}

ProfileFile::~ProfileFile() = default;

std::string ProfileFile::Value(std::string_view section, std::string_view key) const {
  return contents->Value(std::string(section), std::string(key));
}

}  // namespace platform
