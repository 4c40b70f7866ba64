#include "svg/merged_attributes.h"

#include <algorithm>

#include "svg/text_pieces.h"

namespace Svg {

void MergedAttributes::Clear() {
  loadedKeys.clear();
  if (++generation != 0) return;
  // The numbers of the generations start over: no slot may look valid.
  slots.clear();
  generation = 1;
}

void MergedAttributes::Load(const SVG_Element& record) {
  Clear();
  if (record.inherited != nullptr) {
    for (const AttributeEntry& entry : record.inherited->entries) {
      if (entry.key != kTransform && entry.key != kId) Set(entry);
    }
  }
  for (const AttributeEntry& entry : record.Written()) Set(entry);
  for (const AttributeEntry& entry : record.RuleProperties()) Set(entry);
}

void MergedAttributes::Set(const AttributeEntry& entry) {
  if (entry.key >= slots.size()) slots.resize(std::max<std::size_t>(store.KeyCount(), entry.key + 1));
  Slot& slot = slots[entry.key];
  if (slot.generation != generation) loadedKeys.push_back(entry.key);
  slot = {entry, generation, false};
}

const AttributeEntry* MergedAttributes::Find(AttributeKey key) const {
  const Slot* const slot = SlotOf(key);
  return slot == nullptr ? nullptr : &slot->entry;
}

std::string_view MergedAttributes::Field(KnownKey key) const {
  const Slot* const slot = SlotOf(key);
  const std::string_view value = slot == nullptr ? std::string_view{} : TrimBlanks(slot->entry.Value());
  return value.empty() ? kKnownAttributes[key].defaultValue : value;
}

void MergedAttributes::Erase(AttributeKey key) {
  if (SlotOf(key) != nullptr) slots[key].isErased = true;
}

bool MergedAttributes::HasRemaining() const {
  return std::any_of(loadedKeys.begin(), loadedKeys.end(),
                     [this](AttributeKey key) { return !slots[key].isErased; });
}

Entity_ZR::AttributePairs MergedAttributes::Remaining() const {
  std::vector<AttributeEntry> entries;
  for (const AttributeKey key : loadedKeys) {
    if (!slots[key].isErased) entries.push_back(slots[key].entry);
  }
  return PairsByName(std::move(entries), store);
}

Entity_ZR::AttributePairs PairsByName(std::vector<AttributeEntry> entries, const AttributeStore& store) {
  std::stable_sort(entries.begin(), entries.end(),
                   [&store](const AttributeEntry& a, const AttributeEntry& b) {
                     return a.key != b.key && store.NameOf(a.key) < store.NameOf(b.key);
                   });
  Entity_ZR::AttributePairs pairs;
  pairs.reserve(entries.size());
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const bool isReplaced = i + 1 < entries.size() && entries[i + 1].key == entries[i].key;
    if (!isReplaced) pairs.emplace_back(store.NameOf(entries[i].key), entries[i].Value());
  }
  return pairs;
}

}  // namespace Svg
