#ifndef DRAWLOAD_FONTS_PARSE_FONTS_H
#define DRAWLOAD_FONTS_PARSE_FONTS_H

#include <memory>

#include "fonts/face_cache.h"
#include "fonts/font_lookup.h"

namespace fonts {

/// Everything of fonts that one parse keeps from text to text.
struct ParseFonts {
  FontLookup lookup;
  std::unique_ptr<FaceCache> faces;  ///< null until a text needs one
};

}  // namespace fonts

#endif
