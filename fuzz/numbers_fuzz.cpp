#include <cmath>
#include <cstdlib>
#include <string>

#include "fuzz/target.h"
#include "support/text_to_number.h"

namespace {

/// The number readers against the C library's, which they must equal.
void Run(std::string_view input) {
  const std::string text(input.substr(0, input.find('\0')));
  fuzz::Check(support::AtoI(text) == std::atoi(text.c_str()),
              "an integer that the C library reads differently");
  const double value = support::AtoF(text);
  const double expected = std::atof(text.c_str());
  fuzz::Check(value == expected || (std::isnan(value) && std::isnan(expected)),
              "a number that the C library reads differently");
  const double ofAll = support::AtoF(input) + support::AtoI(input) + support::HexToU32(input);
  fuzz::Touch(&ofAll, sizeof ofAll);
}

const fuzz::Target target("numbers", Run);

}  // namespace
