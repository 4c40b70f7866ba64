#include <stdexcept>
#include <vector>

#include "fuzz/target.h"
#include "pdf/filters/jpeg2000.h"

namespace {

void Run(std::string_view input) {
  try {
    std::vector<std::uint8_t> plane;
    fuzz::Check(pdf::DecodeJpeg2000(input, plane) || plane.empty(), "pixels of a refused picture");
    fuzz::Touch(plane.data(), plane.size());
  } catch (const std::runtime_error&) {
    // Data that break off.
  }
}

const fuzz::Target target("jpeg2000", Run);

}  // namespace
