#ifndef DRAWLOAD_FUZZ_PDF_MUTATOR_H
#define DRAWLOAD_FUZZ_PDF_MUTATOR_H

#include "fuzz/target.h"

namespace fuzz {

/// Changes bytes anywhere in a PDF file, or the data of one stream as they are before packing, and mostly
/// repairs the file behind the change.
std::string MutatePdf(std::string_view input, Chance& chance);

/// The objects of `file`, each with the true length of its stream, and behind them a cross-reference section
/// with their true offsets: a stream where the file has one ("/XRef"), in which objects without an offset are
/// said to lie in the file's object stream; otherwise a table.
std::string RepairPdf(std::string_view file);

}  // namespace fuzz

#endif
