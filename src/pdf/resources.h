#ifndef DRAWLOAD_PDF_RESOURCES_H
#define DRAWLOAD_PDF_RESOURCES_H

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "pdf/font.h"
#include "pdf/shading.h"
#include "pdf/xobject.h"

namespace pdf {

/// All that is read of a colour space: which gray its lowest and its highest value stand for.
struct PdfColorSpaceEntry {
  double c0 = 0.0;
  double c1 = 1.0;
};

/// What a page's /Resources name. Names have their slash.
struct PageResources {
  template <typename Record>
  using ByName = std::map<std::string, std::shared_ptr<const Record>, std::less<>>;

  ByName<PdfShading> shadings;
  ByName<PdfXObject> xobjects;
  ByName<PdfFont> fonts;
  ByName<PdfColorSpaceEntry> colorSpaces;
};

/// The record under `name`, or null.
template <typename Record>
const Record* FindResource(const PageResources::ByName<Record>& records, std::string_view name) {
  const auto found = records.find(name);
  return found == records.end() ? nullptr : found->second.get();
}

}  // namespace pdf

#endif
