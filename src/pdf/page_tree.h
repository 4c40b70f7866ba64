#ifndef DRAWLOAD_PDF_PAGE_TREE_H
#define DRAWLOAD_PDF_PAGE_TREE_H

#include <cstdint>
#include <vector>

#include "pdf/object_source.h"

namespace pdf {

/// The object numbers of the document's pages, in order. Each node of the tree stands behind its own kids, as
/// a page of its own. Empty where the catalog has no /Pages that is a node.
std::vector<std::int32_t> ListPages(ObjectSource& source, std::int32_t catalog);

}  // namespace pdf

#endif
