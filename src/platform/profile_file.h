#ifndef DRAWLOAD_PLATFORM_PROFILE_FILE_H
#define DRAWLOAD_PLATFORM_PROFILE_FILE_H

#include <string>
#include <string_view>
#include <unordered_map>

namespace platform {

/// A private profile file: lines of `key = value` under headings of `[section]`, read as the profile
/// functions of desktop systems read them. Lines that begin with ";" are comments. Blanks around sections,
/// keys and values do not count, nor does the case of the letters A to Z in sections and keys. Of sections,
/// and of keys in one section, that bear the same name the first wins.
class ProfileFile {
 public:
  /// Reads the file at `path`. One that cannot be read has no keys.
  explicit ProfileFile(const std::string& path);

  /// The value of `key` without one pair of quotes around it, cut to 254 bytes; empty where there is none.
  std::string_view Value(std::string_view section, std::string_view key) const;

 private:
  void Parse(std::string_view text);

  std::unordered_map<std::string, std::string> values;  ///< by section, NUL, key, all in lower case
};

}  // namespace platform

#endif
