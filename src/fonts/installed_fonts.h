#ifndef DRAWLOAD_FONTS_INSTALLED_FONTS_H
#define DRAWLOAD_FONTS_INSTALLED_FONTS_H

#include <memory>
#include <string>

#include "support/account.h"

using FcConfig = struct _FcConfig;  // NOLINT(bugprone-reserved-identifier): as Fontconfig declares it

namespace fonts {

/// An installed font. Empty where none was found.
struct StyledFont {
  std::string file;
  std::string family;
  std::string style;
};

/// The fonts that the system offers, by a Fontconfig configuration of its own: the host program's stays as it
/// is, and nothing of this one outlives the object. Everything throws `std::bad_alloc` where memory is short
/// or the account of the read refuses.
class InstalledFonts {
 public:
  InstalledFonts();

  /// The first font in the order of Fontconfig's list for `name` whose style holds the text behind the first
  /// "-" of `name`. Empty where there is none, or no "-".
  StyledFont FindStyled(const std::string& name) const;

  /// The path of that font's file.
  std::string StyleSearch(const std::string& name) const { return FindStyled(name).file; }

  /// The file of the font that Fontconfig would take for `name`; empty where it has none.
  std::string BestMatch(const std::string& name) const;

 private:
  struct ConfigDeleter {
    void operator()(FcConfig* config) const;
  };

  support::HeldElsewhere held;                      ///< what Fontconfig takes
  std::unique_ptr<FcConfig, ConfigDeleter> config;  ///< null where Fontconfig could not start
};

}  // namespace fonts

#endif
