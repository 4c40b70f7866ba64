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

Entity_ZR::AttributePairs MergedAttributes::Remaining() {
  sorted.clear();
  for (const AttributeKey key : loadedKeys) {
    if (!slots[key].isErased) sorted.push_back(&slots[key].entry);
  }
  std::sort(sorted.begin(), sorted.end(), [this](const AttributeEntry* a, const AttributeEntry* b) {
    return store.NameOf(a->key) < store.NameOf(b->key);
  });
  Entity_ZR::AttributePairs pairs;
  pairs.reserve(sorted.size());
  for (const AttributeEntry* entry : sorted) pairs.emplace_back(store.NameOf(entry->key), entry->Value());
  return pairs;
}

}  // namespace Svg
