#include <string>

#include "fuzz/target.h"
#include "pdf/filters/flate.h"

namespace {

constexpr std::size_t kMostBytes = std::size_t{1} << 20;

void Run(std::string_view input) {
  std::string output = "before";
  const pdf::FlateResult result = pdf::Inflate(input, kMostBytes, output);
  fuzz::Check(output.starts_with("before") && output.size() <= kMostBytes + 6, "more bytes than allowed");
  fuzz::Check(result == pdf::FlateResult::kComplete || output == "before", "bytes of corrupt data");
  fuzz::Touch(output);
}

const fuzz::Target target("flate", Run);

}  // namespace
