#include "fuzz/target.h"

#include <cstdio>
#include <cstdlib>

namespace fuzz {

namespace {

std::vector<const Target*>& Registered() {
  static std::vector<const Target*> targets;
  return targets;
}

}  // namespace

Target::Target(const char* targetName, void (*runInput)(std::string_view), Mutator inputMutator)
    : name(targetName), run(runInput), mutate(inputMutator) {
  Registered().push_back(this);
}

const std::vector<const Target*>& Targets() { return Registered(); }

void Check(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "fuzz: %s\n", what);
  std::abort();
}

void Touch(const void* bytes, std::size_t size) {
  [[maybe_unused]] static volatile unsigned char sum;
  const auto* byte = static_cast<const unsigned char*>(bytes);
  unsigned char total = 0;
  for (std::size_t i = 0; i < size; ++i) total = static_cast<unsigned char>(total + byte[i]);
  sum = total;
}

}  // namespace fuzz
