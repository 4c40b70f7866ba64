#include "fuzz/mutators/pdf_mutator.h"
#include "fuzz/read_drawing.h"
#include "fuzz/target.h"

namespace {

void Run(std::string_view input) { fuzz::ReadDrawing(input, "pdf"); }

const fuzz::Target target("pdf", Run, fuzz::MutatePdf);

}  // namespace
