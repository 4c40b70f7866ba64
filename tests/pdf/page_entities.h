#ifndef DRAWLOAD_TESTS_PDF_PAGE_ENTITIES_H
#define DRAWLOAD_TESTS_PDF_PAGE_ENTITIES_H

#include <variant>
#include <vector>

#include "pdf/page_records.h"

using PageEntity = std::variant<pdf::PDF_PagePath, pdf::PDF_PageText, pdf::PDF_PageImage>;

inline std::vector<PageEntity> EntitiesOf(const pdf::PDF_Page& page) {
  std::vector<PageEntity> entities;
  page.entities.ForEach([&](const auto& entity) { entities.emplace_back(entity); });
  return entities;
}

/// The entity at `index`, which must be there and of this kind.
template <typename Entity>
Entity EntityOf(const pdf::PDF_Page& page, std::size_t index) {
  return std::get<Entity>(EntitiesOf(page).at(index));
}

#endif
