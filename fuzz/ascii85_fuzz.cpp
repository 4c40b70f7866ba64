#include "fuzz/target.h"
#include "pdf/filters/ascii85.h"

namespace {

void Run(std::string_view input) {
  const pdf::Ascii85Output output = pdf::DecodeAscii85(input);
  fuzz::Check(output.count <= output.bytes.size(), "more bytes count than there are");
  fuzz::Touch(output.bytes);
}

const fuzz::Target target("ascii85", Run);

}  // namespace
