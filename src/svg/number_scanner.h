#ifndef DRAWLOAD_SVG_NUMBER_SCANNER_H
#define DRAWLOAD_SVG_NUMBER_SCANNER_H

#include <vector>

#include "svg/text_cursor.h"

namespace Svg {

/// Whether a number of a list may begin with `c`.
constexpr bool StartsNumber(char c) { return support::IsDigit(c) || c == '-' || c == '+' || c == '.'; }

/// Reads a number at `cursor` and moves past it: sign, digits, point and digits, "e" with sign and digits,
/// each of them optional. At most 255 characters belong to one number. Text that starts no number gives 0.
double ScanNumber(TextCursor& cursor);

/// Appends to `out` the numbers at `cursor`, which white space and single commas separate, and stops at the
/// first character that starts none.
void ScanNumberList(TextCursor& cursor, std::vector<double>& out);

/// The same with a percent sign allowed after each number, with or without white space before it. Returns
/// whether there was any.
bool ScanPercentList(TextCursor& cursor, std::vector<double>& out);

}  // namespace Svg

#endif
