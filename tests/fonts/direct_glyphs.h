#ifndef DRAWLOAD_TESTS_FONTS_DIRECT_GLYPHS_H
#define DRAWLOAD_TESTS_FONTS_DIRECT_GLYPHS_H

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <string>
#include <vector>

#include "fonts/outline.h"

/// The font engine called directly and without any cache: what drawing a text must give, bit for bit.
namespace direct {

inline constexpr const char* kSans = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
inline constexpr const char* kSerifBold = "/usr/share/fonts/truetype/dejavu/DejaVuSerif-Bold.ttf";
inline constexpr const char* kNimbusOtf = "/usr/share/fonts/opentype/urw-base35/NimbusSans-Regular.otf";
inline constexpr const char* kNimbusType1 = "/usr/share/fonts/type1/urw-base35/NimbusSans-Regular.t1";

inline fonts::OutlinePoint InPixels(const FT_Vector* v) {
  return {static_cast<double>(v->x) / 64.0, static_cast<double>(v->y) / 64.0};
}

inline fonts::Outline Decomposed(FT_Outline& source) {
  using fonts::OutlineStep;
  FT_Outline_Funcs callbacks = {};
  callbacks.move_to = [](const FT_Vector* to, void* user) {
    static_cast<fonts::Outline*>(user)->push_back({OutlineStep::kMove, InPixels(to)});
    return 0;
  };
  callbacks.line_to = [](const FT_Vector* to, void* user) {
    static_cast<fonts::Outline*>(user)->push_back({OutlineStep::kLine, InPixels(to)});
    return 0;
  };
  callbacks.conic_to = [](const FT_Vector* control, const FT_Vector* to, void* user) {
    static_cast<fonts::Outline*>(user)->push_back({OutlineStep::kConic, InPixels(to), InPixels(control)});
    return 0;
  };
  callbacks.cubic_to = [](const FT_Vector* control1, const FT_Vector* control2, const FT_Vector* to,
                          void* user) {
    static_cast<fonts::Outline*>(user)->push_back(
        {OutlineStep::kCubic, InPixels(to), InPixels(control1), InPixels(control2)});
    return 0;
  };
  fonts::Outline outline;
  FT_Outline_Decompose(&source, &callbacks, &outline);
  return outline;
}

/// The outlines of all glyphs of `text`, each loaded at its place, by an engine and a face made for this
/// text. Empty where the engine cannot open `file`.
inline std::vector<fonts::Outline> Glyphs(const std::string& file, unsigned pixelSize,
                                          const std::u32string& text, double x, double y, bool flipY) {
  std::vector<fonts::Outline> outlines;
  FT_Library library = nullptr;
  FT_Face face = nullptr;
  if (FT_Init_FreeType(&library) != 0) return outlines;
  if (FT_New_Face(library, file.c_str(), 0, &face) == 0) {
    FT_Set_Pixel_Sizes(face, pixelSize, 0);
    double penX = x * 64;
    const double penY = y * 64;
    for (const char32_t codePoint : text) {
      if (codePoint == 10 || codePoint == 13) continue;
      FT_Matrix matrix = {0x10000, 0, 0, flipY ? -0x10000 : 0x10000};
      FT_Vector delta = {static_cast<FT_Pos>(penX), static_cast<FT_Pos>(penY)};
      FT_Set_Transform(face, &matrix, &delta);
      if (FT_Load_Glyph(face, FT_Get_Char_Index(face, codePoint), 8) != 0) continue;
      outlines.push_back(Decomposed(face->glyph->outline));
      penX += static_cast<double>(face->glyph->advance.x);
    }
    FT_Done_Face(face);
  }
  FT_Done_FreeType(library);
  return outlines;
}

}  // namespace direct

#endif
