#include "fuzz/mutators/dxf_mutator.h"
#include "fuzz/read_drawing.h"
#include "fuzz/target.h"

namespace {

void Run(std::string_view input) { fuzz::ReadDrawing(input, "dxf"); }

const fuzz::Target target("dxf", Run, fuzz::MutateDxf);

}  // namespace
