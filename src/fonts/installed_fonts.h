#ifndef DRAWLOAD_FONTS_INSTALLED_FONTS_H
#define DRAWLOAD_FONTS_INSTALLED_FONTS_H

#include <memory>
#include <string>

using FcConfig = struct _FcConfig;

namespace fonts {

/// The fonts that the system offers, by a Fontconfig configuration of its own: the host program's stays as it
/// is, and nothing of this one outlives the object.
class InstalledFonts {
 public:
  InstalledFonts();

  /// The first font in the order of Fontconfig's list for `name` whose style holds the text behind the first
  /// "-" of `name`: the path of its file. Empty where there is none, or no "-".
  std::string StyleSearch(const std::string& name) const;

  /// The file of the font that Fontconfig would take for `name`; empty where it has none.
  std::string BestMatch(const std::string& name) const;

 private:
  struct ConfigDeleter {
    void operator()(FcConfig* config) const;
  };

  std::unique_ptr<FcConfig, ConfigDeleter> config;  ///< null where Fontconfig could not start
};

}  // namespace fonts

#endif
