#include <stdexcept>

#include "fuzz/target.h"
#include "pdf/to_unicode.h"

namespace {

void Run(std::string_view input) {
  pdf::PdfToUnicode map;
  try {
    pdf::ReadCMap(input, map);
  } catch (const std::out_of_range&) {
    // A list of mappings without an end.
  }
  for (std::size_t i = 0; i + 4 <= input.size(); ++i) {
    if (const std::uint16_t* unit = map.Find(input.substr(i, 4))) fuzz::Touch(unit, sizeof *unit);
  }
}

const fuzz::Target target("cmap", Run);

}  // namespace
