#include "fuzz/target.h"
#include "support/account.h"
#include "support/picture.h"

namespace {

void Decode(std::string_view input) {
  const support::Picture picture = support::DecodePicture(input);
  fuzz::Touch(picture.pixels.get(), picture.pixelBytes);
  fuzz::Check(picture.pixels == nullptr || picture.pixelBytes == std::size_t(picture.width) *
                                                                     std::size_t(picture.height) *
                                                                     std::size_t(picture.channels),
              "a picture whose bytes are not those of its sizes");
}

void Run(std::string_view input) {
  support::Account account(support::Allowance::Of(input.size()));
  const support::AccountScope scope(account);
  support::RunItem([&] { Decode(input); });
}

const fuzz::Target target("picture", Run);

}  // namespace
