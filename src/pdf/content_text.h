#ifndef DRAWLOAD_PDF_CONTENT_TEXT_H
#define DRAWLOAD_PDF_CONTENT_TEXT_H

#include <string_view>

#include "support/large_block.h"

namespace pdf {

/// `text` of a page or form rewritten so that each operator ends a line. The result is that of the table of
/// replacements in the source file, run one after the other; the cost is one pass.
support::BlockText NormaliseContentText(std::string_view text);

}  // namespace pdf

#endif
