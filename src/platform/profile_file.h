#ifndef DRAWLOAD_PLATFORM_PROFILE_FILE_H
#define DRAWLOAD_PLATFORM_PROFILE_FILE_H

#include <memory>
#include <string>
#include <string_view>

namespace platform {

/// A private profile file: lines of `key = value` under headings of `[section]`, read as the profile
/// functions of desktop systems read them. Lines that begin with ";" are comments. Blanks around sections,
/// keys and values do not count, nor does the case of the letters A to Z in sections and keys. Of sections,
/// and of keys in one section, that bear the same name the first wins.
class ProfileFile {
 public:
  /// The file at `path`, from the root on. One that cannot be read has no keys.
  explicit ProfileFile(const std::string& path);
  ProfileFile(const ProfileFile&) = delete;
  ProfileFile& operator=(const ProfileFile&) = delete;
  ~ProfileFile();

  /// The value of `key` without one pair of quotes around it, cut to 254 bytes; empty where there is none.
  std::string Value(std::string_view section, std::string_view key) const;

 private:
  class Contents;
  std::unique_ptr<const Contents> contents;
};

}  // namespace platform

#endif
