#include <stdexcept>

#include "fuzz/target.h"
#include "pdf/filters/lzw.h"

namespace {

void Run(std::string_view input) {
  try {
    fuzz::Touch(pdf::PdfLzwDecoder(input).Decode());
  } catch (const std::out_of_range&) {
    // Data that break off.
  }
}

const fuzz::Target target("lzw", Run);

}  // namespace
