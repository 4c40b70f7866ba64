#include "svg/svg_interface.h"

#include <algorithm>
#include <iterator>
#include <new>

#include "support/text_to_number.h"
#include "svg/document_walker.h"
#include "svg/text_pieces.h"

namespace Svg {

namespace {

bool IsWordCharacter(char c) {
  return support::IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool IsGradient(const SVG_Element& record) {
  return record.elementName() == "linearGradient" || record.elementName() == "radialGradient";
}

bool IsStop(const SVG_Element& record) {
  return record.elementName() == "stop" || record.elementName() == "stoptail";
}

/// `records` with the stops of `linked` inserted, each at the index that it has there, or at the end.
RecordList WithStops(const RecordList& records, const RecordList& linked) {
  RecordList result;
  result.reserve(records.size() + linked.size());
  auto next = records.begin();
  for (std::size_t index = 0; index < linked.size(); ++index) {
    if (!IsStop(*linked[index])) continue;
    while (result.size() < index && next != records.end()) result.push_back(*next++);
    result.push_back(linked[index]);
  }
  result.insert(result.end(), next, records.end());
  return result;
}

}  // namespace

std::string_view ExtractHrefId(std::string_view text) {
  if (text.find_first_of("\n\r") != std::string_view::npos) return {};
  const std::size_t hash = text.rfind('#');
  if (hash == std::string_view::npos) return {};
  std::size_t end = hash + 1;
  while (end < text.size() && IsWordCharacter(text[end])) ++end;
  return text.substr(hash + 1, end - hash - 1);
}

SVG_Interface::SVG_Interface(std::string filePath) : path(std::move(filePath)) {
  SvgDocumentWalker walker(path, *this);
  walker.Load();
  loaded = walker.loadOk;
}

SVG_Interface::~SVG_Interface() = default;

void SVG_Interface::AddElement(const SVG_Element& record) {
  elements.push_back(new (elementMemory.RoomFor<SVG_Element>()) SVG_Element(record));
}

void SVG_Interface::AddStyleRule(std::string_view className, const StyleRule& rule) {
  styleRules.insert_or_assign(className, rule);
}

const StyleProperties* SVG_Interface::ClassProperties(std::string_view className) const {
  const auto found = styleRules.find(className);
  return found == styleRules.end() ? nullptr : &found->second.properties;
}

/// The first look-up pays for an index; most documents have none.
const IdIndex& SVG_Interface::Index() {
  if (!index) index.emplace(elements);
  return *index;
}

/// Calls `visit` with the places of each range of `id`: its begin and its end.
template <typename Visitor>
void SVG_Interface::ForEachRange(std::string_view id, Visitor visit) {
  IdIndex::Place begin = Index().First(id);
  while (begin != IdIndex::kNone) {
    const IdIndex::Place last = index->Next(begin);
    const bool isClosed = last != IdIndex::kNone;
    visit(static_cast<std::ptrdiff_t>(begin), isClosed ? std::ptrdiff_t{last} + 1 : std::ssize(elements));
    begin = isClosed ? index->Next(last) : IdIndex::kNone;
  }
}

/// Counted once for each id, as an id may have very many ranges.
std::size_t SVG_Interface::RangeSize(std::string_view id) {
  const IdIndex::Place first = Index().First(id);
  if (first == IdIndex::kNone) return 0;
  const auto [place, isNew] = rangeSizes.try_emplace(elements[first]->id, 0);
  std::size_t& size = place->second;
  if (isNew) {
    ForEachRange(id, [&size](std::ptrdiff_t begin, std::ptrdiff_t end) {
      size += static_cast<std::size_t>(end - begin);
    });
  }
  return size;
}

RecordList SVG_Interface::FindRange(std::string_view id) {
  RecordList found;
  found.reserve(RangeSize(id));
  ForEachRange(id, [this, &found](std::ptrdiff_t begin, std::ptrdiff_t end) {
    found.insert(found.end(), elements.begin() + begin, elements.begin() + end);
  });
  return found;
}

std::string_view SVG_Interface::HrefOf(const SVG_Element& record) const {
  const AttributeEntry* href = LastOf(record.RuleProperties(), kXlinkHref);
  if (href == nullptr) href = LastOf(record.Written(), kXlinkHref);
  if (href == nullptr && record.inherited != nullptr) href = LastOf(record.inherited->entries, kXlinkHref);
  return href == nullptr ? std::string_view{} : TrimBlanks(href->Value());
}

/// The id to which the gradient `id` links; empty where `id` is no gradient or has no link.
std::string_view SVG_Interface::LinkedGradient(std::string_view id) {
  if (RangeSize(id) < 2) return {};
  const SVG_Element& first = *elements[Index().First(id)];
  return IsGradient(first) ? ExtractHrefId(HrefOf(first)) : std::string_view{};
}

std::size_t SVG_Interface::LookupCost(std::string_view id) {
  const std::string_view linked = LinkedGradient(id);
  return RangeSize(id) + (linked.empty() ? 0 : RangeSize(linked));
}

const RecordList& SVG_Interface::FindById(std::string_view id) {
  lookupResult = FindRange(id);
  const std::string_view linked = LinkedGradient(id);
  if (!linked.empty()) lookupResult = WithStops(lookupResult, FindRange(linked));
  return lookupResult;
}

}  // namespace Svg
