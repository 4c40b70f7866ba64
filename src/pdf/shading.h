#ifndef DRAWLOAD_PDF_SHADING_H
#define DRAWLOAD_PDF_SHADING_H

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "pdf/function.h"

namespace pdf {

/// An entry of a page's /Shading dictionary. Types other than axial (2) and radial (3) have the common keys
/// only.
struct PdfShading {
  std::int32_t type = 0;  ///< /ShadingType; 0 for a plain path
  std::string colourSpace;
  std::string background;
  std::array<double, 4> box{};
  bool antiAlias = false;
  std::vector<double> coords;
  std::array<double, 2> domain{0.0, 1.0};
  std::int32_t functionNumber = 0;  ///< object number
  std::array<bool, 2> extend{};
  PdfFunction function;
};

/// Reads the shading in this object. The result is true: nothing of it can fail but an index behind its
/// tokens, which throws `std::out_of_range`.
bool ReadShading(PdfFileReader& reader, PdfXrefSection& section, std::int32_t objectNumber,
                 PdfShading& shading);

}  // namespace pdf

#endif
