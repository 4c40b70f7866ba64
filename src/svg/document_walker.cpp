#include "svg/document_walker.h"

#include <algorithm>
#include <tinyxml2.h>

#include "support/account.h"
#include "support/file_bytes.h"
#include "svg/svg_interface.h"
#include "svg/xml_bounds.h"

namespace Svg {

namespace {

constexpr ElementName kKnownNames[] = {
    {"svg", "svg", "svgtail", ElementType::Svg, Activity::On},
    {"g", "g", "gtail", ElementType::G, Activity::On},
    {"defs", "defs", "defstail", ElementType::Defs},
    {"symbol", "symbol", "symboltail", ElementType::Symbol},
    {"flowRoot", "flowroot", "flowRoottail", ElementType::FlowRoot, Activity::Off},
    {"flowRegion", "", "flowRegiontail", ElementType::Unknown, Activity::Off},
    {"line", "line", "linetail", ElementType::Line, Activity::On},
    {"rect", "rect", "recttail", ElementType::Rect, Activity::On},
    {"circle", "circle", "circletail", ElementType::Circle, Activity::On},
    {"ellipse", "ellipse", "ellipsetail", ElementType::Ellipse, Activity::On},
    {"polyline", "polyline", "polylinetail", ElementType::Polyline, Activity::On},
    {"polygon", "polygon", "polygontail", ElementType::Polygon, Activity::On},
    {"path", "path", "pathtail", ElementType::Path, Activity::On},
    {"text", "text", "texttail", ElementType::Text, Activity::On},
    {"tspan", "tspan", "tspantail", ElementType::Tspan, Activity::On},
    {"image", "image", "imagetail", ElementType::Image, Activity::On},
    {"use", "use", "usetail", ElementType::Use, Activity::On},
    {"style", "style", "styletail", ElementType::Style},
    {"linearGradient", "linearGradient", "linearGradienttail", ElementType::LinearGradient, Activity::Off},
    {"radialGradient", "radialGradient", "radialGradienttail", ElementType::RadialGradient, Activity::Off},
    {"stop", "stop", "stoptail", ElementType::Stop},
    {"Param", "Param", "Paramtail", ElementType::Param},
    {"clipPath", "", "clipPathtail", ElementType::ClipPath},
    {"switch", "", "switchtail", ElementType::Switch},
    {"foreignObject", "", "foreignObjecttail", ElementType::ForeignObject},
    // Kept: an element that is itself called so is not drawn; any other unknown one is left as it is.
    {"unknown", "unknown", "unknowntail", ElementType::Unknown, Activity::Off},
};

/// What the two records of an element cost, which are drawn later.
constexpr std::uint64_t kRepeatedElementWork = 512;

/// The element's own text, if it stands before any element inside it; comments do not count.
std::string_view TextOf(const tinyxml2::XMLElement& node) {
  const char* const text = node.GetText();
  return text == nullptr ? std::string_view{} : std::string_view(text);
}

}  // namespace

SvgDocumentWalker::SvgDocumentWalker(std::string filePath, SVG_Interface& recordOwner)
    : path(std::move(filePath)), owner(recordOwner), queue(recordOwner.store) {}

/// Where the account refuses more, the records so far stand.
void SvgDocumentWalker::Load() {
  isComplete = support::RunItem([this] { ReadAndWalk(); });
  support::RunItem([this] { HandOverRules(); });
}

void SvgDocumentWalker::ReadAndWalk() {
  owner.file = support::FileBytes::ReadDrawing(path);
  if (!owner.file) return;
  const std::string_view bytes = owner.file->View();
  const std::optional<XmlExtent> extent = MeasureXml(bytes);
  if (!extent) return;
  const support::HeldElsewhere tree(extent->TreeBytes() + bytes.size());
  tinyxml2::XMLDocument document(true, tinyxml2::PRESERVE_WHITESPACE);
  document.Parse(bytes.data(), bytes.size());
  if (document.Error()) return;
  loadOk = true;
  source.emplace(bytes, document);
  resolver.emplace(owner.store, queue);
  owner.elements.reserve(2 * extent->elements);
  Walk(document);
}

/// Kept: with several top-level elements the walk starts again at each of them and runs to the last one.
void SvgDocumentWalker::Walk(const tinyxml2::XMLDocument& document) {
  const tinyxml2::XMLElement* start = document.FirstChildElement();
  WalkNodes(start);
  // Nothing is drawn of a document with another root.
  if (owner.elements.empty() || owner.elements.front()->elementType != ElementType::Svg) return;
  isRepeating = true;
  while (start != nullptr) {
    start = start->NextSiblingElement();
    WalkNodes(start);
  }
}

void SvgDocumentWalker::WalkNodes(const tinyxml2::XMLElement* node) {
  for (; node != nullptr; node = node->NextSiblingElement()) {
    if (isRepeating) support::SpendWork(kRepeatedElementWork);
    const ElementName& name = NameOf(node->Value());
    StartElement(*node, name);
    WalkNodes(node->FirstChildElement());
    EndElement(name);
  }
}

void SvgDocumentWalker::StartElement(const tinyxml2::XMLElement& node, const ElementName& name) {
  SVG_Element record;
  record.elementType = name.elementType;
  record.name = &name.elementName;
  resolver->ReadWritten(record, node.FirstAttribute(), *source);
  if (record.elementType != ElementType::Style) pathNames.push_back(&name);
  ResolveByType(record, node);
  nameStack.push_back(record.id);
  UpdateActive(record, true);
  owner.AddElement(record);
}

void SvgDocumentWalker::ResolveByType(SVG_Element& record, const tinyxml2::XMLElement& node) {
  switch (record.elementType) {
    case ElementType::G:
    case ElementType::Defs:
      resolver->Resolve(record, record.elementName(), inheritedAttributes);
      inheritedAttributes = resolver->HandOnMerged(record);
      break;
    case ElementType::Symbol:
      inheritedAttributes = resolver->HandOnWritten(record);
      resolver->Resolve(record, record.elementName(), inheritedAttributes);
      break;
    case ElementType::Text:
      if (++textDepth == 1) textAttributes = resolver->HandOnWritten(record);
      resolver->Resolve(record, record.elementName(), inheritedAttributes);
      record.AppendText(TextOf(node), owner.store);
      break;
    case ElementType::Tspan:
      resolver->Resolve(record, record.elementName(), textAttributes);
      record.AppendText(TextOf(node), owner.store);
      break;
    case ElementType::Style:
      record.AppendText(TextOf(node), owner.store);
      UpdateActive(record, false);
      resolver->Resolve(record, record.elementName(), inheritedAttributes);
      break;
    default:
      // Rules know the flowed text's region by a name that its record does not have.
      const bool isFlowRegion = pathNames.back()->xmlName == "flowRegion";
      resolver->Resolve(record, isFlowRegion ? "flowregion" : record.elementName(), inheritedAttributes);
  }
}

void SvgDocumentWalker::EndElement(const ElementName& name) {
  // Kept: the attributes of a group around this one are not handed on any more.
  if (name.elementType == ElementType::G) inheritedAttributes = nullptr;
  if (name.elementType == ElementType::Text) --textDepth;
  SVG_Element tail;
  tail.elementType = ElementType::Tail;
  tail.name = &name.tailName;
  tail.id = nameStack.back();
  nameStack.pop_back();
  const bool isStyle = name.elementType == ElementType::Style;
  if (isStyle) {
    tail.active = false;
  } else {
    UpdateActive(tail, true);
  }
  // Kept: the name of a `style` element is never pushed and yet one is taken off here, so that the path of
  // everything behind it is one name short.
  if (!pathNames.empty()) pathNames.pop_back();
  owner.AddElement(tail);
}

void SvgDocumentWalker::UpdateActive(SVG_Element& record, bool allow) const {
  if (pathNames.size() == 1) {
    if (pathNames[0]->elementType == ElementType::Svg) record.active = true;
  } else if (pathNames.size() >= 2) {
    const ElementType second = pathNames[1]->elementType;
    const Activity activity = pathNames.back()->activity;
    if (second == ElementType::Defs || second == ElementType::Symbol || activity == Activity::Off) {
      record.active = false;
    } else if (activity == Activity::On) {
      record.active = true;
    }
  }
  if (record.elementType == ElementType::Style || !allow) record.active = false;
}

/// The last rule goes first, so that of two rules for a class the first one stays.
void SvgDocumentWalker::HandOverRules() {
  const std::deque<StyleRule>& rules = queue.Rules();
  std::for_each(rules.rbegin(), rules.rend(),
                [this](const StyleRule& rule) { owner.AddStyleRule(rule.selectorClass, rule); });
}

const ElementName& SvgDocumentWalker::NameOf(std::string_view xmlName) {
  if (lastName != nullptr && lastName->xmlName == xmlName) return *lastName;
  const auto* const known =
      std::find_if(std::begin(kKnownNames), std::end(kKnownNames),
                   [xmlName](const ElementName& row) { return row.xmlName == xmlName; });
  if (known != std::end(kKnownNames)) return *(lastName = known);
  const auto found = unknownNames.find(xmlName);
  if (found != unknownNames.end()) return *(lastName = found->second);
  const std::string_view kept = owner.store.Store(xmlName);
  const std::string_view tailName = owner.store.Store(std::string(xmlName).append("tail"));
  lastName = owner.store.Make<ElementName>({kept, "unknown", tailName});
  unknownNames.emplace(kept, lastName);
  return *lastName;
}

}  // namespace Svg
