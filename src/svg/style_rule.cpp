#include "svg/style_rule.h"

#include <algorithm>

#include "svg/text_pieces.h"

namespace Svg {

namespace {

bool IsRemoved(char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; }

/// All white space goes, wherever it stands.
std::string WithoutSpace(std::string_view text) {
  std::string kept;
  kept.reserve(text.size());
  std::copy_if(text.begin(), text.end(), std::back_inserter(kept), [](char c) { return !IsRemoved(c); });
  return kept;
}

/// The first pieces between separators, as many as there are places.
struct FirstPieces {
  std::string_view pieces[2];
  std::size_t count = 0;
};

FirstPieces Split(std::string_view text, char separator) {
  FirstPieces found;
  ForEachPiece(text, separator, [&found](std::string_view piece) {
    if (found.count < 2) found.pieces[found.count] = piece;
    ++found.count;
  });
  return found;
}

StyleRule& RuleOfSelector(std::string_view selector, RuleQueue& queue) {
  const FirstPieces names = Split(selector, '.');
  if (names.count == 1) return queue.RuleFor({}, names.pieces[0]);
  if (names.count == 2) return queue.RuleFor(names.pieces[0], names.pieces[1]);
  return queue.RuleFor({}, {});
}

}  // namespace

StyleRule& RuleQueue::RuleFor(std::string_view tag, std::string_view className) {
  ++version;
  const auto [place, isAdded] =
      bySelector.try_emplace({tag, className}, static_cast<RuleIndex>(rules.size()));
  if (isAdded) {
    if (!tag.empty()) byTag[tag].push_back(place->second);
    StyleRule& rule = rules.emplace_back();
    rule.selectorTag = tag;
    rule.selectorClass = className;
  }
  return rules[place->second];
}

void RuleQueue::CollectSelector(const Selector& selector, std::vector<RuleIndex>& found) const {
  const auto place = bySelector.find(selector);
  if (place != bySelector.end()) found.push_back(place->second);
}

void RuleQueue::Collect(std::string_view elementName, bool hasClass, std::string_view classText,
                        std::vector<const StyleRule*>& found) const {
  std::vector<RuleIndex> indices;
  if (hasClass) {
    ForEachPiece(classText, ' ', [&](std::string_view token) {
      CollectSelector({{}, token}, indices);
      if (!elementName.empty()) CollectSelector({elementName, token}, indices);
    });
    std::sort(indices.begin(), indices.end());
    indices.erase(std::unique(indices.begin(), indices.end()), indices.end());
  } else if (const auto place = byTag.find(elementName); place != byTag.end()) {
    indices = place->second;
  }
  for (const RuleIndex index : indices) found.push_back(&rules[index]);
}

void ReadStyleSheet(std::string_view text, RuleQueue& queue) {
  const std::string_view sheet = queue.store.Store(WithoutSpace(text));
  bool isBroken = false;
  ForEachPiece(sheet, '}', [&](std::string_view piece) {
    if (isBroken || piece.find('{') == std::string_view::npos) return;
    const FirstPieces parts = Split(piece, '{');
    if (parts.count < 2) {
      isBroken = true;
      return;
    }
    StyleRule& rule = RuleOfSelector(parts.pieces[0], queue);
    ForEachDeclaration(parts.pieces[1], [&](const Declaration& declaration) {
      rule.Set({queue.store.KeyOf(declaration.key), declaration.value});
    });
  });
}

}  // namespace Svg
