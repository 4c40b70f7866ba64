#include "svg/svg_interface.h"

#include <algorithm>
#include <cstdint>
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

/// Tells the names of a document apart; others may share a place, which costs them memory only.
std::size_t RecentPlace(const std::string_view* name) {
  return reinterpret_cast<std::uintptr_t>(name) / sizeof *name % 256;
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
  isComplete = walker.isComplete;
}

SVG_Interface::~SVG_Interface() = default;

/// Records of one name often say the same, as the ends of elements without ids do: these are kept once.
void SVG_Interface::AddElement(const SVG_Element& record) {
  const SVG_Element*& recent = recentRecords[RecentPlace(record.name)];
  if (recent == nullptr || !recent->IsSameAs(record)) {
    recent = new (elementMemory.RoomFor<SVG_Element>()) SVG_Element(record);
  }
  elements.push_back(recent);
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
  if (href == nullptr) href = LastOf(record.inherited, kXlinkHref);
  return href == nullptr ? std::string_view{} : TrimBlanks(href->Value());
}

/// The id to which the gradient `id` links; empty where `id` is no gradient or has no link.
std::string_view SVG_Interface::LinkedGradient(std::string_view id) {
  if (RangeSize(id) < 2) return {};
  const SVG_Element& first = *elements[Index().First(id)];
  return IsGradient(first) ? ExtractHrefId(HrefOf(first)) : std::string_view{};
}

bool SVG_Interface::IsLinearGradient(std::string_view id) {
  const IdIndex::Place first = Index().First(id);
  if (first == IdIndex::kNone || elements[first]->elementType != ElementType::LinearGradient) return false;
  const auto known = linearGradients.find(first);
  if (known != linearGradients.end()) return known->second;
  const std::string_view linked = LinkedGradient(id);
  const IdIndex::Place other = linked.empty() ? IdIndex::kNone : Index().First(linked);
  // Kept: a link may name a stop, which is inserted in front of the gradient.
  return linearGradients.emplace(first, other == IdIndex::kNone || !IsStop(*elements[other])).first->second;
}

const RecordList& SVG_Interface::FindById(std::string_view id) {
  lookupResult = FindRange(id);
  const std::string_view linked = LinkedGradient(id);
  if (!linked.empty()) lookupResult = WithStops(lookupResult, FindRange(linked));
  return lookupResult;
}

}  // namespace Svg
