#include "fuzz/mutators/svg_mutator.h"
#include "fuzz/read_drawing.h"
#include "fuzz/target.h"

namespace {

void Run(std::string_view input) { fuzz::ReadDrawing(input, "svg"); }

const fuzz::Target target("svg", Run, fuzz::MutateSvg);

}  // namespace
