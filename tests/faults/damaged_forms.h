#ifndef DRAWLOAD_TESTS_DAMAGED_FORMS_H
#define DRAWLOAD_TESTS_DAMAGED_FORMS_H

#include <cstdlib>
#include <functional>
#include <string>

#include "faults/damage.h"
#include "faults/drawing_files.h"

/// The damaged forms of a file that the campaigns read, one after the other.
namespace damaged_forms {

/// How many places of a file are damaged in each way: DRAWLOAD_FAULT_POINTS, else what the build was given.
inline std::size_t Points() {
  const char* wanted = std::getenv("DRAWLOAD_FAULT_POINTS");
  return wanted == nullptr ? DRAWLOAD_FAULT_POINTS : std::strtoul(wanted, nullptr, 10);
}

/// Takes a damaged form, with a name that says what was done.
using Take = std::function<void(const std::string& name, const std::string& damaged)>;
using Damage = void (*)(const std::string& bytes, const Take& take);

inline void CutIt(const std::string& bytes, const Take& take) {
  for (const std::size_t place : damage::Places(bytes.size(), Points())) {
    take("cut at " + std::to_string(place), damage::CutAt(bytes, place));
  }
}

inline void FlipIt(const std::string& bytes, const Take& take) {
  damage::Random random(1);
  for (const std::size_t place : damage::Places(bytes.size(), Points())) {
    const std::string name = "flipped at " + std::to_string(place);
    take(name, damage::FlippedAt(bytes, place, 0xFF));
    const auto bit = static_cast<unsigned char>(1u << damage::Below(8, random));
    take(name + " by " + std::to_string(bit), damage::FlippedAt(bytes, place, bit));
  }
}

inline void ShuffleIt(const std::string& bytes, const Take& take) {
  damage::Random random(2);
  for (std::size_t i = 0; i < Points() / 2; ++i) {
    take("swapped " + std::to_string(i), damage::WithBlocksSwapped(bytes, random));
    take("repeated " + std::to_string(i), damage::WithABlockRepeated(bytes, random));
  }
}

/// A file that broke something, kept where it can be looked at.
inline std::string Kept(const std::string& file, const std::string& name, const std::string& bytes) {
  const drawing_files::Path folder = DRAWLOAD_FAULT_FINDINGS;
  std::filesystem::create_directories(folder);
  const drawing_files::Path path = folder / (name + " " + file);
  drawing_files::WriteBytes(path, bytes);
  return path.string();
}

}  // namespace damaged_forms

#endif
