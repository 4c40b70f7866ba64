#ifndef DRAWLOAD_SVG_ATTRIBUTE_STORE_H
#define DRAWLOAD_SVG_ATTRIBUTE_STORE_H

#include <array>
#include <cstddef>
#include <new>
#include <span>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <vector>

#include "support/arena.h"
#include "svg/attribute_keys.h"

namespace Svg {

/// One attribute. Its value lies in an `AttributeStore` or in the bytes of the file.
struct AttributeEntry {
  AttributeEntry(AttributeKey attributeKey, std::string_view value)
      : data(value.data()), size(static_cast<std::uint32_t>(value.size())), key(attributeKey) {}

  std::string_view Value() const { return {data, size}; }

  const char* data;
  std::uint32_t size;
  AttributeKey key;
};

/// Holds the texts and the attribute names of one document. What was stored stays in its place until the
/// store ends; nothing is freed before.
class AttributeStore {
 public:
  AttributeStore();
  AttributeStore(const AttributeStore&) = delete;
  AttributeStore& operator=(const AttributeStore&) = delete;

  AttributeKey KeyOf(std::string_view name);
  std::string_view NameOf(AttributeKey key) const { return names[key]; }
  std::size_t KeyCount() const { return names.size(); }

  std::string_view Store(std::string_view text);
  std::span<const AttributeEntry> Store(std::span<const AttributeEntry> entries);

  /// A copy of `value` that lives as long as the store.
  template <typename Value>
  const Value* Make(const Value& value) {
    static_assert(std::is_trivially_destructible_v<Value>);
    return new (arena.RoomFor<Value>()) Value(value);
  }

 private:
  AttributeKey KeyOfRare(std::string_view name);

  support::Arena arena;
  std::vector<std::string_view> names;
  std::unordered_map<std::string_view, AttributeKey> keys;
  /// For each of some cheap name hashes the key that was found last.
  std::array<AttributeKey, 256> recentKeys = {};
};

}  // namespace Svg

#endif
