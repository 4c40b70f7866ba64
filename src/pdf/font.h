#ifndef DRAWLOAD_PDF_FONT_H
#define DRAWLOAD_PDF_FONT_H

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace pdf {

/// What a /ToUnicode stream says: which UTF-16 unit each code of four hexadecimal digits stands for. Codes
/// and values compare and read as text: "00e9" and "00E9" are two codes.
class PdfToUnicode {
 public:
  /// `value`, up to four hexadecimal digits, under `code`; the later entry wins.
  void Store(std::string_view code, std::string_view value);

  /// The unit for `code`; nothing where it has no value.
  const std::uint16_t* Find(std::string_view code) const;

  bool IsEmpty() const { return units.empty(); }

 private:
  std::unordered_map<std::uint32_t, std::uint16_t> units;
};

/// Read as the file has it; nothing draws with it.
struct PdfFontDescriptor {
  std::string type;
  std::string fontName;
  std::string fontFamily;
  std::string fontStretch;
  std::int32_t fontWeight = 0;
  std::int32_t flags = 0;
  std::array<double, 4> fontBox{};
  std::int32_t italicAngle = 0;
  std::int32_t ascent = 0;
  std::int32_t descent = 0;
  std::int32_t leading = 0;
  std::int32_t capHeight = 0;
  std::int32_t xHeight = 0;
  std::int32_t stemV = 0;
  std::int32_t stemH = 0;
  std::int32_t averageWidth = 0;
  std::int32_t maximumWidth = 0;
  std::int32_t missingWidth = 0;
  std::string characterSet;
};

/// The width of the glyphs `first` to `last`.
struct PdfWidthRange {
  std::int32_t first = 0;
  std::int32_t last = 0;
  std::int32_t width = 0;

  bool operator==(const PdfWidthRange&) const = default;
};

/// The descendant of a composite font. Carried; the width of a text comes from the font that draws it.
struct PdfCIDFont {
  std::string type;
  std::string subtype;
  std::string baseFont;
  std::string registry;
  std::string ordering;
  std::int32_t supplement = 0;
  std::shared_ptr<const PdfFontDescriptor> descriptor;
  std::int32_t defaultWidth = 0;
  std::array<std::int32_t, 2> defaultVerticalMetrics{};
  std::vector<PdfWidthRange> widths;  ///< of the last /W that was not read before
  std::vector<std::string> verticalWidths;
  std::string cidToGidMap;
};

/// An entry of a page's /Font dictionary. No glyph shapes: text goes out as a string with the font's name.
struct PdfFont {
  std::string name = "SimSun";
  std::string encoding;
  PdfToUnicode toUnicode;
  std::shared_ptr<const PdfCIDFont>
      cidFont;  ///< of a composite font; fonts that name the same object share it
};

}  // namespace pdf

#endif
