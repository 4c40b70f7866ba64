#ifndef DRAWLOAD_FUZZ_DXF_MUTATOR_H
#define DRAWLOAD_FUZZ_DXF_MUTATOR_H

#include "fuzz/target.h"

namespace fuzz {

/// Changes the tags of a DXF file as wholes, so that group codes and values stay in step.
std::string MutateDxf(std::string_view input, Chance& chance);

}  // namespace fuzz

#endif
