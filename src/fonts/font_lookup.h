#ifndef DRAWLOAD_FONTS_FONT_LOOKUP_H
#define DRAWLOAD_FONTS_FONT_LOOKUP_H

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "fonts/installed_fonts.h"
#include "platform/host_directory.h"
#include "platform/profile_file.h"

namespace fonts {

/// From font names of a drawing to font files, for one parse. "font.ini" beside the host program comes first:
/// its section "Font" maps names to files of the directory "fonts/" there. Then come the installed fonts.
/// What was looked up once is kept.
class FontLookup {
 public:
  /// `directory` holds "font.ini" and "fonts/", with a "/" at its end.
  explicit FontLookup(std::string iniDirectory = platform::HostDirectory())
      : directory(std::move(iniDirectory)) {}

  /// The path of the font file for `fontName`, which may have a prefix before a "+" and a style after a "-".
  /// Empty where there is none.
  const std::string& FileOf(const std::string& fontName);

 private:
  std::string Search(const std::string& fontName);
  std::string SearchWithPrefix(const std::string& fontName, std::size_t plus);
  /// The installed font with the style of `name`. Subsets of one font differ in their prefixes alone, which
  /// are no part of `name`.
  const std::string& StyledFile(const std::string& name);
  /// What "font.ini" says of `key`.
  std::string MappedFile(std::string_view key);
  const InstalledFonts& Installed();

  const std::string noFile;
  std::string directory;
  std::optional<platform::ProfileFile> profile;        ///< read when the first name is looked up
  std::unique_ptr<InstalledFonts> installed;           ///< made when the first name is not in the profile
  std::unordered_map<std::string, std::string> files;  ///< by font name
  std::unordered_map<std::string, std::string> styledFiles;  ///< by font name without its prefix
};

}  // namespace fonts

#endif
