#ifndef DRAWLOAD_SVG_STYLE_RULE_H
#define DRAWLOAD_SVG_STYLE_RULE_H

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "svg/attribute_store.h"

namespace Svg {

/// Declarations by key: the last one of a key holds.
using StyleProperties = std::map<AttributeKey, AttributeEntry>;

/// One rule of a style sheet. A selector `tag.class` fills both names. Kept: a selector without a dot is a
/// class as well, so that `rect{...}` acts on class="rect" and on no `rect` element.
struct StyleRule {
  std::string_view selectorTag;
  std::string_view selectorClass;
  StyleProperties properties;

  void Set(const AttributeEntry& entry) { properties.insert_or_assign(entry.key, entry); }
};

/// The rules of all style sheets met so far, in document order.
class RuleQueue {
 public:
  explicit RuleQueue(AttributeStore& attributeStore) : store(attributeStore) {}

  bool IsEmpty() const { return rules.empty(); }
  const std::deque<StyleRule>& Rules() const { return rules; }
  /// Differs whenever a rule may have changed.
  std::uint64_t Version() const { return version; }

  /// The rule with this selector, to be filled; appended where there is none.
  StyleRule& RuleFor(std::string_view tag, std::string_view className);

  /// The rules that act on an element called `elementName`, in document order. `classText` is the text of its
  /// "class" attribute; `hasClass` tells an empty one from none.
  void Collect(std::string_view elementName, bool hasClass, std::string_view classText,
               std::vector<const StyleRule*>& found) const;

  AttributeStore& store;

 private:
  struct Selector {
    std::string_view tag;
    std::string_view className;
    bool operator==(const Selector&) const = default;
  };
  struct SelectorHash {
    std::size_t operator()(const Selector& selector) const {
      const std::hash<std::string_view> hash;
      return hash(selector.tag) * 31 + hash(selector.className);
    }
  };
  using RuleIndex = std::uint32_t;

  void CollectSelector(const Selector& selector, std::vector<RuleIndex>& found) const;

  std::deque<StyleRule> rules;
  std::uint64_t version = 0;
  std::unordered_map<Selector, RuleIndex, SelectorHash> bySelector;
  std::unordered_map<std::string_view, std::vector<RuleIndex>> byTag;
};

/// Appends the rules of the style sheet `text` to `queue`. A rule without a selector or without a body ends
/// the sheet: the rules before it stand, those behind it are not read.
void ReadStyleSheet(std::string_view text, RuleQueue& queue);

}  // namespace Svg

#endif
