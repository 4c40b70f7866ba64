#include <stdexcept>

#include "fuzz/target.h"
#include "pdf/filters/run_length.h"

namespace {

constexpr std::size_t kMostBytes = std::size_t{1} << 20;

void Decode(std::string_view input, bool nulFollows) {
  try {
    const auto decoded = pdf::DecodeRunLength(input, kMostBytes, nulFollows);
    if (!decoded) return;
    fuzz::Check(decoded->size() <= kMostBytes, "more bytes than allowed");
    fuzz::Touch(*decoded);
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
