#ifndef DRAWLOAD_PDF_TOKEN_WALK_H
#define DRAWLOAD_PDF_TOKEN_WALK_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "pdf/object_text.h"

/// Steps over the parts of a token list. All indices are checked: a list that breaks off throws
/// `std::out_of_range`.
namespace pdf {

/// Index of the first "]" at or behind `index`.
std::size_t EndOfArray(const PdfTokens& tokens, std::size_t index);

/// Index of the last token of the value that starts at `index`: the bracket that matches an opening one, the
/// "R" of a reference, or the token itself.
std::size_t EndOfValue(const PdfTokens& tokens, std::size_t index);

/// Every first of three tokens from `index` up to "]", as numbers: the object numbers of an array of
/// references.
std::vector<std::int32_t> ReferencesFrom(const PdfTokens& tokens, std::size_t index);

/// The four numbers of the box whose key stands at `index`; its "[" is not asked for.
std::array<double, 4> BoxBehind(const PdfTokens& tokens, std::size_t index);

}  // namespace pdf

#endif
