#ifndef DRAWLOAD_FUZZ_SVG_MUTATOR_H
#define DRAWLOAD_FUZZ_SVG_MUTATOR_H

#include "fuzz/target.h"

namespace fuzz {

/// Changes the elements, attributes and texts of an SVG file, which stays well-formed XML. Empty where the
/// input is not.
std::string MutateSvg(std::string_view input, Chance& chance);

}  // namespace fuzz

#endif
