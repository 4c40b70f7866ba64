#include "pdf/filters/run_length.h"

#include <cstdint>
#include <stdexcept>

namespace pdf {

std::optional<std::string> DecodeRunLength(std::string_view input, std::size_t mostBytes) {
  std::string output;
  std::size_t index = 0;
  while (index + 1 < input.size()) {
    const int count = static_cast<std::int8_t>(input[index]);
    if (count >= 0) {
      const auto copied = static_cast<std::size_t>(count) + 1;
      if (input.size() - index - 1 < copied) throw std::out_of_range("invalid vector subscript");
      output.append(input, index + 1, copied);
      index += copied + 1;
    } else {
      output.append(static_cast<std::size_t>(1 - count), input[index + 1]);
      index += 2;
    }
    if (output.size() > mostBytes) return std::nullopt;
  }
  return output;
}

}  // namespace pdf
