#include "svg/attribute_store.h"

#include <cstring>
#include <memory>

namespace Svg {

namespace {

/// Tells the usual names apart; others may share a place, which costs them time only.
std::size_t RecentPlace(std::string_view name) {
  if (name.empty()) return 0;
  const std::size_t first = static_cast<unsigned char>(name.front());
  const std::size_t middle = static_cast<unsigned char>(name[name.size() / 2]);
  const std::size_t last = static_cast<unsigned char>(name.back());
  return (name.size() * 37 + first * 5 + middle * 11 + last * 3) % 256;
}

}  // namespace

AttributeStore::AttributeStore() {
  names.reserve(2 * kKnownAttributes.size());
  keys.reserve(2 * kKnownAttributes.size());
  for (const KnownAttribute& known : kKnownAttributes) {
    keys.emplace(known.name, static_cast<AttributeKey>(names.size()));
    names.push_back(known.name);
  }
}

AttributeKey AttributeStore::KeyOf(std::string_view name) {
  AttributeKey& recent = recentKeys[RecentPlace(name)];
  if (names[recent] != name) recent = KeyOfRare(name);
  return recent;
}

AttributeKey AttributeStore::KeyOfRare(std::string_view name) {
  const auto found = keys.find(name);
  if (found != keys.end()) return found->second;
  const auto key = static_cast<AttributeKey>(names.size());
  const std::string_view kept = Store(name);
  keys.emplace(kept, key);
  names.push_back(kept);
  return key;
}

std::string_view AttributeStore::Store(std::string_view text) {
  if (text.empty()) return {};
  auto* const copy = static_cast<char*>(arena.Allocate(text.size()));
  std::memcpy(copy, text.data(), text.size());
  return {copy, text.size()};
}

std::span<const AttributeEntry> AttributeStore::Store(std::span<const AttributeEntry> entries) {
  if (entries.empty()) return {};
  static_assert(alignof(AttributeEntry) <= support::Arena::kAlignment);
  auto* const copy = static_cast<AttributeEntry*>(arena.Allocate(entries.size_bytes()));
  std::uninitialized_copy(entries.begin(), entries.end(), copy);
  return {copy, entries.size()};
}

}  // namespace Svg
