#include "svg/svg_rw.h"

SVG_RW::~SVG_RW() { SVG_RW::ResetReader(); }

bool SVG_RW::Read(const std::string& filePath, PARSE::Context context) {
  if (filePath.empty()) return false;
  path = filePath;
  openGroups = 0;
  sink->BeginRead(0);
  sink->BeginFile(context);
  document = std::make_unique<Svg::SVG_Interface>(filePath);
  if (document->loaded && !document->elements.empty() &&
      document->elements.front()->elementType == Svg::ElementType::Svg) {
    groupAttributes.emplace(document->store);
    DrawElements(document->elements, context);
    // What is missing holds the ends of its groups, too.
    if (!document->isComplete) CloseGroupsDownTo(0, context);
  }
  sink->EndFile(context);
  sink->EndRead(0);
  groupAttributes.reset();
  decodedHref = {};
  decodedPicture = {};
  document.reset();
  return true;
}

void SVG_RW::ResetReader() {
  groupAttributes.reset();
  document.reset();
  hasDocumentMatrix = false;
}
