#ifndef DRAWLOAD_SVG_ID_INDEX_H
#define DRAWLOAD_SVG_ID_INDEX_H

#include <cstdint>
#include <string_view>
#include <vector>

#include "svg/element.h"

namespace Svg {

/// Records in document order, not owned.
using RecordList = std::vector<const SVG_Element*>;

/// The records of each id, by their places in one list. A hash table of 4 bytes for each place and a chain
/// through the places of each id: drawings have hundreds of thousands of ids, few of which are ever asked
/// for.
class IdIndex {
 public:
  using Place = std::uint32_t;
  static constexpr Place kNone = 0xFFFFFFFF;

  /// `records` must stay as it is while the index is used.
  explicit IdIndex(const RecordList& records);

  /// The first place of `id`, or `kNone`.
  Place First(std::string_view id) const { return table[SlotOf(id)]; }
  /// The next place with the id of the record at `place`, or `kNone`.
  Place Next(Place place) const { return next[place]; }

 private:
  std::size_t SlotOf(std::string_view id) const;

  const RecordList& elements;
  std::vector<Place> table;  ///< the first place of an id, at its hash or behind it; a power of two
  std::vector<Place> next;   ///< by place
};

}  // namespace Svg

#endif
