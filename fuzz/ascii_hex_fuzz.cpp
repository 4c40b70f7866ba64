#include <string>

#include "fuzz/target.h"
#include "pdf/filters/ascii_hex.h"

namespace {

void Run(std::string_view input) {
  const std::string decoded = pdf::DecodeAsciiHex(input);
  fuzz::Check(decoded.size() <= input.size() / 2 + 1, "more bytes than pairs of digits");
  fuzz::Touch(decoded);
}

const fuzz::Target target("ascii_hex", Run);

}  // namespace
