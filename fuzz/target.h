#ifndef DRAWLOAD_FUZZ_TARGET_H
#define DRAWLOAD_FUZZ_TARGET_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

/// What is thrown at the library, and how. Each file `*_fuzz.cpp` defines one target. The fuzzer runs one of
/// them with inputs that it makes up; a test replays the seeds and the regressions of all of them.
namespace fuzz {

/// What a mutator draws on: chance, and the fuzzer's own changes to bytes.
struct Chance {
  /// Some number below `count`, which is not 0.
  std::size_t Below(std::size_t count) { return random() % count; }
  bool OneIn(std::size_t count) { return Below(count) == 0; }

  std::minstd_rand random;
  std::function<std::string(std::string)> mutateBytes;
};

/// A changed form of `input` that keeps the structure without which a reader would stop at once.
using Mutator = std::string (*)(std::string_view input, Chance& chance);

/// Registers itself, so it stands at namespace scope. `run` must not crash, leak, or take long, whatever the
/// input; what it finds wrong otherwise it tells with `Check`.
struct Target {
  Target(const char* targetName, void (*runInput)(std::string_view), Mutator inputMutator = nullptr);

  const char* name;
  void (*run)(std::string_view);
  Mutator mutate;
};

const std::vector<const Target*>& Targets();

/// Ends the process where `holds` is false.
void Check(bool holds, const char* what);

/// Makes sure that every byte was read: a checksum of them that no optimiser can leave out.
void Touch(const void* bytes, std::size_t size);
inline void Touch(std::string_view text) { Touch(text.data(), text.size()); }

/// Hands out the parts of an input: small numbers first, the rest as text.
class InputParts {
 public:
  explicit InputParts(std::string_view input) : rest(input) {}

  /// 0 where the input is used up.
  std::uint8_t Byte() {
    if (rest.empty()) return 0;
    const auto byte = static_cast<std::uint8_t>(rest.front());
    rest.remove_prefix(1);
    return byte;
  }
  std::string_view Rest() const { return rest; }

 private:
  std::string_view rest;
};

}  // namespace fuzz

#endif
