#ifndef DRAWLOAD_PDF_OBJECT_TEXT_H
#define DRAWLOAD_PDF_OBJECT_TEXT_H

#include <string>
#include <string_view>
#include <vector>

/// A PDF object stays text: it is rewritten so that names, numbers, brackets and delimiters stand on lines of
/// their own, and split at the line ends. Everybody walks the resulting list by index and compares tokens
/// with literal keys.
namespace pdf {

/// Views into a text that its owner keeps. Indices that a file decides are checked with `at`, whose
/// `std::out_of_range` ends the whole read.
using PdfTokens = std::vector<std::string_view>;

/// `text` with every `from` (not empty) turned into `to`; what a replacement produced is not looked at again.
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);

/// `text` as the reader wants objects, trailers and the file's tail: line ends around "<<", ">>", "[" and
/// "]", before "(" and "/", between "><", and in the place of blanks and carriage returns. A run of k line
/// ends is then cut to k/4, rounded up, so runs of five and more leave empty lines.
/// Kept: tabs, form feeds and ")" separate nothing.
std::string NormaliseObjectText(std::string_view text);

/// Appends the pieces of `text` to `tokens`: each `delimiter` ends one, which may be empty; what stands
/// behind the last delimiter is one more unless it is empty.
void Split(std::string_view text, char delimiter, PdfTokens& tokens);
PdfTokens Split(std::string_view text, char delimiter);

}  // namespace pdf

#endif
