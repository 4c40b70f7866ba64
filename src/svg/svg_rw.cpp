#include "svg/svg_rw.h"

#include <algorithm>

#include "support/limits.h"

namespace {

std::size_t LimitOfReferences(std::size_t fileBytes) {
  namespace limits = support::limits;
  return std::min(limits::kSvgReferencedBase + limits::kSvgReferencedPerByte * fileBytes,
                  limits::kSvgReferencedMost);
}

}  // namespace

SVG_RW::~SVG_RW() { SVG_RW::ResetReader(); }

bool SVG_RW::Read(const std::string& filePath, PARSE::Context context) {
  if (filePath.empty()) return false;
  path = filePath;
  referencedUnits = gradientUnits = pictureWork = 0;
  sink->BeginRead(0);
  sink->BeginFile(context);
  document = std::make_unique<Svg::SVG_Interface>(filePath);
  if (document->loaded && !document->elements.empty() &&
      document->elements.front()->elementType == Svg::ElementType::Svg) {
    groupAttributes.emplace(document->store);
    referencedAttributes.emplace(document->store);
    styleProperties.emplace(document->store);
    referencedUnitsLimit = LimitOfReferences(document->file->View().size());
    DrawElements(document->elements, context);
  }
  sink->EndFile(context);
  sink->EndRead(0);
  groupAttributes.reset();
  referencedAttributes.reset();
  styleProperties.reset();
  decodedHref = {};
  decodedPicture = {};
  document.reset();
  return true;
}

void SVG_RW::ResetReader() {
  groupAttributes.reset();
  referencedAttributes.reset();
  styleProperties.reset();
  document.reset();
  hasDocumentMatrix = false;
}
