#include "svg/id_index.h"

#include <bit>
#include <functional>

namespace Svg {

/// From back to front, so that chains end up in document order. As starts and ends share their ids, at most
/// half of the table is ever filled, and more is filled only where a document was cut.
IdIndex::IdIndex(const RecordList& records)
    : elements(records), table(std::bit_ceil(records.size() + 1), kNone), next(records.size()) {
  std::size_t slot = 0;
  for (std::size_t i = elements.size(); i-- > 0;) {
    const std::string_view id = elements[i]->id;
    // The end of an element without content stands right behind its start.
    if (i + 1 == elements.size() || elements[i + 1]->id != id) slot = SlotOf(id);
    next[i] = table[slot];
    table[slot] = static_cast<Place>(i);
  }
}

/// Where `id` stands in the table, or the free slot where it belongs. There always is one, as the table has
/// more slots than there are records.
std::size_t IdIndex::SlotOf(std::string_view id) const {
  std::size_t slot = std::hash<std::string_view>()(id);
  for (;; ++slot) {
    slot &= table.size() - 1;
    if (table[slot] == kNone || elements[table[slot]]->id == id) return slot;
  }
}

}  // namespace Svg
