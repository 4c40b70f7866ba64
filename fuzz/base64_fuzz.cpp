#include <string>
#include <vector>

#include "fuzz/target.h"
#include "support/base64.h"

namespace {

/// Decodes into a buffer that is just large enough, and once more in place.
void Run(std::string_view input) {
  const std::string decoded = support::DecodeBase64(input);
  fuzz::Check(decoded.size() <= input.size() / 4 * 3 + input.size() % 4, "more bytes than the text can hold");
  std::vector<char> inPlace(input.begin(), input.end());
  const std::size_t size = support::DecodeBase64({inPlace.data(), inPlace.size()}, inPlace.data());
  fuzz::Check(decoded == std::string_view(inPlace.data(), size), "decoding in place gives other bytes");
}

const fuzz::Target target("base64", Run);

}  // namespace
