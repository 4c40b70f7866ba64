#include "pdf/filters/run_length.h"

#include <algorithm>
#include <stdexcept>

namespace pdf {

std::string DecodeRunLength(std::string_view input, bool nulFollows) {
  std::string output;
  std::size_t index = 0;
  while (index + 1 < input.size()) {
    const auto length = static_cast<unsigned char>(input[index]);
    if (length < 128) {
      const std::size_t copied = length + std::size_t{1};
      const std::size_t left = input.size() - index - 1;
      if (copied > left + (nulFollows ? 1 : 0)) throw std::out_of_range("invalid vector subscript");
      output.append(input, index + 1, std::min(copied, left));
      if (copied > left) output.push_back('\0');
      index += copied + 1;
    } else {
      output.append(257 - std::size_t{length}, input[index + 1]);
      index += 2;
    }
  }
  return output;
}

}  // namespace pdf
