#include <stdexcept>

#include "fuzz/target.h"
#include "pdf/filters/run_length.h"

namespace {

constexpr std::size_t kMostBytes = std::size_t{1} << 20;

void Run(std::string_view input) {
  try {
    const auto decoded = pdf::DecodeRunLength(input, kMostBytes);
    if (!decoded) return;
    fuzz::Check(decoded->size() <= kMostBytes, "more bytes than allowed");
    fuzz::Touch(*decoded);
  } catch (const std::out_of_range&) {
    // Data that break off.
  }
}

const fuzz::Target target("run_length", Run);

}  // namespace
