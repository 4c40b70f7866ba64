#include <string>

#include "fuzz/target.h"
#include "pdf/filters/flate.h"

namespace {

void Run(std::string_view input) {
  std::string output = "before";
  const pdf::FlateResult result = pdf::Inflate(input, output);
  fuzz::Check(output.starts_with("before"), "output replaced");
  fuzz::Check(result == pdf::FlateResult::kComplete || output == "before", "bytes of corrupt data");
  fuzz::Touch(output);
}

const fuzz::Target target("flate", Run);

}  // namespace
