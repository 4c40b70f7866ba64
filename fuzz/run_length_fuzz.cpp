#include <stdexcept>

#include "fuzz/target.h"
#include "pdf/filters/run_length.h"

namespace {

void Decode(std::string_view input, bool nulFollows) {
  try {
    fuzz::Touch(pdf::DecodeRunLength(input, nulFollows));
  } catch (const std::out_of_range&) {
    // Data that break off.
  }
}

void Run(std::string_view input) {
  Decode(input, false);
  Decode(input, true);
}

const fuzz::Target target("run_length", Run);

}  // namespace
