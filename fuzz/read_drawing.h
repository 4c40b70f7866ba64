#ifndef DRAWLOAD_FUZZ_READ_DRAWING_H
#define DRAWLOAD_FUZZ_READ_DRAWING_H

#include <string_view>

namespace fuzz {

/// Reads `file` as a drawing with this extension through the three exported functions, as a host does: walks
/// the results, copies each, and looks at every byte of them.
void ReadDrawing(std::string_view file, std::string_view extension);

}  // namespace fuzz

#endif
