#include "svg/merged_attributes.h"

#include <algorithm>
#include <bit>

#include "support/account.h"
#include "svg/text_pieces.h"

namespace Svg {

namespace {

constexpr std::size_t kEntryWork = 8;
constexpr std::size_t kLevelWork = 64;
constexpr std::size_t kComparisonWork = 16;

}  // namespace

void MergedAttributes::Clear() {
  loadedKeys.clear();
  if (++generation != 0) return;
  // The numbers of the generations start over: no slot may look valid.
  slots.clear();
  generation = 1;
}

void MergedAttributes::Load(const SVG_Element& record) {
  Clear();
  valueBytes = 0;
  if (record.inherited != nullptr) LoadInherited(*record.inherited);
  SetAll(record.Written());
  SetAll(record.RuleProperties());
  const std::size_t inheritedCount = record.inherited == nullptr ? 0 : record.inherited->count;
  support::SpendWork(kEntryWork * (inheritedCount + record.Written().size() + record.ruleCount) + valueBytes);
}

void MergedAttributes::Load(const InheritedAttributes& inherited) {
  Clear();
  valueBytes = 0;
  LoadInherited(inherited);
  support::SpendWork(kEntryWork * inherited.count + valueBytes);
}

/// From the outermost list to the innermost.
void MergedAttributes::LoadInherited(const InheritedAttributes& inherited) {
  levels.clear();
  for (const auto* level = &inherited; level != nullptr; level = level->outer) levels.push_back(level);
  support::SpendWork(kLevelWork * levels.size());
  for (auto level = levels.rbegin(); level != levels.rend(); ++level) {
    for (const auto entries : {(*level)->written, (*level)->ruled, (*level)->restyled}) SetInherited(entries);
  }
}

void MergedAttributes::SetInherited(std::span<const AttributeEntry> entries) {
  for (const AttributeEntry& entry : entries) {
    if (entry.key != kTransform && entry.key != kId) Set(entry);
  }
}

void MergedAttributes::SetAll(std::span<const AttributeEntry> entries) {
  for (const AttributeEntry& entry : entries) Set(entry);
}

void MergedAttributes::Set(const AttributeEntry& entry) {
  if (entry.key >= slots.size()) slots.resize(std::max<std::size_t>(store.KeyCount(), entry.key + 1));
  Slot& slot = slots[entry.key];
  if (slot.generation != generation) loadedKeys.push_back(entry.key);
  slot = {entry, generation, false};
  valueBytes += entry.size;
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

Entity_ZR::AttributePairs MergedAttributes::Remaining() {
  sorted.clear();
  for (const AttributeKey key : loadedKeys) {
    if (!slots[key].isErased) sorted.push_back(&slots[key].entry);
  }
  support::SpendWork(kComparisonWork * sorted.size() * std::bit_width(sorted.size()));
  std::sort(sorted.begin(), sorted.end(), [this](const AttributeEntry* a, const AttributeEntry* b) {
    return store.NameOf(a->key) < store.NameOf(b->key);
  });
  Entity_ZR::AttributePairs pairs;
  pairs.reserve(sorted.size());
  for (const AttributeEntry* entry : sorted) pairs.emplace_back(store.NameOf(entry->key), entry->Value());
  return pairs;
}

}  // namespace Svg
