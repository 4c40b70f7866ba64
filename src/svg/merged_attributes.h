#ifndef DRAWLOAD_SVG_MERGED_ATTRIBUTES_H
#define DRAWLOAD_SVG_MERGED_ATTRIBUTES_H

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "entity/entity.h"
#include "svg/element.h"

namespace Svg {

/// The merged attributes of one record at a time, found by key. The same object serves record after record:
/// loading one costs as much as the record has attributes.
class MergedAttributes {
 public:
  explicit MergedAttributes(const AttributeStore& attributeStore) : store(attributeStore) {}

  void Load(const SVG_Element& record);
  /// The same of what an element hands on.
  void Load(const InheritedAttributes& inherited);
  /// Forgets what was loaded.
  void Clear();
  /// Adds an entry, or replaces that of the same key.
  void Set(const AttributeEntry& entry);

  /// The value of `key` as it stands, null where there is none.
  const AttributeEntry* Find(AttributeKey key) const;
  /// The value of `key` without blanks at its ends; the key's default where that is empty or missing.
  std::string_view Field(KnownKey key) const;

  /// Takes `key` out of what remains. `Find` and `Field` still see it.
  void Erase(AttributeKey key);
  /// What was not erased, by ascending name.
  Entity_ZR::AttributePairs Remaining();

  /// All entries, in the order in which their keys first came.
  template <typename Visitor>
  void ForEach(Visitor visit) const {
    for (const AttributeKey key : loadedKeys) visit(slots[key].entry);
  }

 private:
  struct Slot {
    AttributeEntry entry = {0, {}};
    std::uint32_t generation = 0;
    bool isErased = false;
  };

  const Slot* SlotOf(AttributeKey key) const {
    return key < slots.size() && slots[key].generation == generation ? &slots[key] : nullptr;
  }

  void LoadInherited(const InheritedAttributes& inherited);
  void SetInherited(std::span<const AttributeEntry> entries);
  void SetAll(std::span<const AttributeEntry> entries);

  const AttributeStore& store;
  std::vector<const InheritedAttributes*> levels;  ///< room for `LoadInherited`
  std::size_t valueBytes = 0;                      ///< of what was set since the last `Load`
  std::vector<Slot> slots;                         ///< by key; valid where they are of this generation
  std::vector<AttributeKey> loadedKeys;
  std::vector<const AttributeEntry*> sorted;  ///< room for `Remaining`
  std::uint32_t generation = 0;
};

}  // namespace Svg

#endif
