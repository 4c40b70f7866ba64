#include "fonts/installed_fonts.h"

#include <cstdint>
#include <cstring>
#include <fontconfig/fontconfig.h>
#include <new>

#include "support/spare_memory.h"

namespace fonts {
namespace {

struct PatternDeleter {
  void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
struct ObjectSetDeleter {
  void operator()(FcObjectSet* objects) const { FcObjectSetDestroy(objects); }
};
struct FontSetDeleter {
  void operator()(FcFontSet* fontSet) const { FcFontSetDestroy(fontSet); }
};

using OwnedPattern = std::unique_ptr<FcPattern, PatternDeleter>;
using OwnedObjectSet = std::unique_ptr<FcObjectSet, ObjectSetDeleter>;
using OwnedFontSet = std::unique_ptr<FcFontSet, FontSetDeleter>;

OwnedPattern ParseName(const std::string& name) {
  return OwnedPattern(FcNameParse(reinterpret_cast<const FcChar8*>(name.c_str())));
}

// What Fontconfig holds while it runs and what it does in each call, with a few hundred fonts installed. The
// same on every machine, however many it has.
constexpr std::uint64_t kHeldBytes = std::uint64_t{1} << 20;
constexpr std::uint64_t kStartWork = 4'000'000;
constexpr std::uint64_t kListWork = 20'000;
constexpr std::uint64_t kMatchWork = 150'000;

/// Fontconfig leaks and crashes where one of its allocations fails.
void ThrowWhereMemoryIsShort() {
  constexpr std::size_t kBytes = std::size_t{16} << 20;
  if (!support::HasSpareMemory(kBytes)) throw std::bad_alloc();
}

/// The first value of `object` in `font`, owned by the font; null where it has none.
const char* TextOf(const FcPattern& font, const char* object) {
  FcChar8* text = nullptr;
  if (FcPatternGetString(&font, object, 0, &text) != FcResultMatch) return nullptr;
  return reinterpret_cast<const char*>(text);
}

}  // namespace

void InstalledFonts::ConfigDeleter::operator()(FcConfig* owned) const { FcConfigDestroy(owned); }

InstalledFonts::InstalledFonts() : held(kHeldBytes) {
  support::SpendWork(kStartWork);
  ThrowWhereMemoryIsShort();
  config.reset(FcInitLoadConfigAndFonts());
}

StyledFont InstalledFonts::FindStyled(const std::string& name) const {
  const std::size_t hyphen = name.find('-');
  if (config == nullptr || hyphen == name.npos) return {};
  support::SpendWork(kListWork);
  ThrowWhereMemoryIsShort();
  const OwnedPattern pattern = ParseName(name);
  const OwnedObjectSet objects(FcObjectSetBuild(FC_FAMILY, FC_STYLE, FC_LANG, FC_FILE, nullptr));
  if (pattern == nullptr || objects == nullptr) return {};
  const OwnedFontSet found(FcFontList(config.get(), pattern.get(), objects.get()));
  if (found == nullptr) return {};
  const char* wantedStyle = name.c_str() + hyphen + 1;
  for (int i = 0; i < found->nfont; ++i) {
    const FcPattern& font = *found->fonts[i];
    const char* file = TextOf(font, FC_FILE);
    const char* style = TextOf(font, FC_STYLE);
    const char* family = TextOf(font, FC_FAMILY);
    if (file == nullptr || style == nullptr || family == nullptr) continue;
    if (std::strstr(style, wantedStyle) != nullptr) return {file, family, style};
  }
  return {};
}

std::string InstalledFonts::BestMatch(const std::string& name) const {
  if (config == nullptr) return {};
  support::SpendWork(kMatchWork);
  ThrowWhereMemoryIsShort();
  const OwnedPattern pattern = ParseName(name);
  if (pattern == nullptr || !FcConfigSubstitute(config.get(), pattern.get(), FcMatchPattern)) return {};
  FcDefaultSubstitute(pattern.get());
  FcResult result = FcResultNoMatch;
  const OwnedPattern match(FcFontMatch(config.get(), pattern.get(), &result));
  if (match == nullptr) return {};
  const char* file = TextOf(*match, FC_FILE);
  return file == nullptr ? std::string() : std::string(file);
}

}  // namespace fonts
