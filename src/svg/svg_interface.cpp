#include "svg/svg_interface.h"

#include <algorithm>
#include <new>
#include <tuple>

#include "support/text_to_number.h"
#include "svg/document_walker.h"
#include "svg/text_pieces.h"

namespace Svg {

namespace {

bool IsWordCharacter(char c) {
  return support::IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool IsGradient(const SVG_Element& record) {
  return record.elementName == "linearGradient" || record.elementName == "radialGradient";
}

bool IsStop(const SVG_Element& record) {
  return record.elementName == "stop" || record.elementName == "stoptail";
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
void SVG_Interface::BuildIndex() {
  hasIndex = true;
  nextOfSameId.assign(elements.size(), 0);
  placesById.reserve(elements.size() / 2 + 1);
  auto place = placesById.end();
  for (RecordIndex i = 0; i < elements.size(); ++i) {
    const std::string_view id = elements[i]->id;
    // The tail of an element without content stands right behind its start.
    if (place == placesById.end() || place->first != id) {
      bool isFirst = false;
      std::tie(place, isFirst) = placesById.try_emplace(id, IdPlaces{i, i, true, 0});
      if (isFirst) continue;
    }
    IdPlaces& places = place->second;
    nextOfSameId[places.last] = i;
    if (places.isInside) places.closedRecords += i - places.last + 1;
    places.isInside = !places.isInside;
    places.last = i;
  }
}

const SVG_Interface::IdPlaces* SVG_Interface::PlacesOf(std::string_view id) {
  if (!hasIndex) BuildIndex();
  const auto found = placesById.find(id);
  return found == placesById.end() ? nullptr : &found->second;
}

std::size_t SVG_Interface::RangeSize(std::string_view id) {
  const IdPlaces* const places = PlacesOf(id);
  if (places == nullptr) return 0;
  return places->closedRecords + (places->isInside ? elements.size() - places->last : 0);
}

RecordList SVG_Interface::FindRange(std::string_view id) {
  RecordList found;
  const IdPlaces* const places = PlacesOf(id);
  if (places == nullptr) return found;
  found.reserve(RangeSize(id));
  for (RecordIndex start = places->first;;) {
    const RecordIndex second = nextOfSameId[start];
    const std::size_t end = second == 0 ? elements.size() : second + std::size_t{1};
    found.insert(found.end(), elements.begin() + start, elements.begin() + static_cast<std::ptrdiff_t>(end));
    start = second == 0 ? 0 : nextOfSameId[second];
    if (start == 0) return found;
  }
}

std::string_view SVG_Interface::HrefOf(const SVG_Element& record) const {
  const AttributeEntry* href = LastOf(record.RuleProperties(), kXlinkHref);
  if (href == nullptr) href = LastOf(record.Written(), kXlinkHref);
  if (href == nullptr && record.inherited != nullptr) href = LastOf(record.inherited->entries, kXlinkHref);
  return href == nullptr ? std::string_view{} : TrimBlanks(href->Value());
}

/// The id to which the gradient `id` links; empty where `id` is no gradient or has no link.
std::string_view SVG_Interface::LinkedGradient(std::string_view id) {
  const IdPlaces* const places = PlacesOf(id);
  if (places == nullptr || RangeSize(id) < 2 || !IsGradient(*elements[places->first])) return {};
  return ExtractHrefId(HrefOf(*elements[places->first]));
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
