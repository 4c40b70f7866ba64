#ifndef DRAWLOAD_SVG_SVG_INTERFACE_H
#define DRAWLOAD_SVG_SVG_INTERFACE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "support/arena.h"
#include "support/file_bytes.h"
#include "svg/element.h"
#include "svg/id_index.h"
#include "svg/style_rule.h"

namespace Svg {

class SvgDocumentWalker;

/// The id in a link: the letters, digits and underscores behind the last "#" of `text`. Empty where there is
/// no "#", or where `text` has more than one line.
std::string_view ExtractHrefId(std::string_view text);

/// A loaded document: its records, its style rules, and the look-ups among them.
class SVG_Interface {
 public:
  /// Loads the file at `filePath`.
  explicit SVG_Interface(std::string filePath);
  SVG_Interface(const SVG_Interface&) = delete;
  SVG_Interface& operator=(const SVG_Interface&) = delete;
  virtual ~SVG_Interface();

  /// Appends a copy of `record` to `elements`, which other equal ones may share.
  virtual void AddElement(const SVG_Element& record);
  /// Makes `rule` the one of `className`, in place of any other.
  virtual void AddStyleRule(std::string_view className, const StyleRule& rule);

  /// The records that belong to `id`: from each record with this id to the next one with it, or to the end of
  /// the document. As a tail has its element's id, that is the element with all that it holds, for each
  /// element of that id. A child with the id of its parent ends the range early.
  RecordList FindRange(std::string_view id);
  /// The same into `lookupResult`. Where the first record is a gradient that links to another element, each
  /// stop of that element is inserted at the place that it has there.
  const RecordList& FindById(std::string_view id);
  /// Whether the first record of `FindById` is a linear gradient. Costs nothing from the second time on.
  bool IsLinearGradient(std::string_view id);

  /// The properties of the rule of `className`, or null.
  const StyleProperties* ClassProperties(std::string_view className) const;

  bool loaded = false;     ///< the file could be read and is well-formed XML
  bool isComplete = true;  ///< it has records for all of the file
  std::string path;
  std::optional<support::FileBytes> file;  ///< its bytes are the values of most attributes
  RecordList lookupResult;
  RecordList elements;
  AttributeStore store;
  std::unordered_map<std::string_view, StyleRule> styleRules;  ///< by class

 private:
  const IdIndex& Index();
  template <typename Visitor>
  void ForEachRange(std::string_view id, Visitor visit);
  std::size_t RangeSize(std::string_view id);
  std::string_view LinkedGradient(std::string_view id);
  std::string_view HrefOf(const SVG_Element& record) const;

  support::Arena elementMemory;  ///< records own nothing: their memory is all that there is to free
  std::array<const SVG_Element*, 256> recentRecords = {};        ///< the last ones of some names
  std::optional<IdIndex> index;                                  ///< of `elements`, from the first look-up on
  std::unordered_map<std::string_view, std::size_t> rangeSizes;  ///< of the ids that were looked up
  std::unordered_map<IdIndex::Place, bool> linearGradients;      ///< by the places of their first records
};

}  // namespace Svg

#endif
