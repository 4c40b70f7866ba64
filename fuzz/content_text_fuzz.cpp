#include <algorithm>
#include <string>

#include "fuzz/target.h"
#include "pdf/content_lines.h"
#include "pdf/content_text.h"
#include "pdf/naive_rewriting.h"

namespace {

/// The literal replacements cost the square of the text.
constexpr std::size_t kMostCompared = 4096;

/// Rewrites a text as the content of a page, against the literal replacements, and walks its lines.
void Run(std::string_view input) {
  const std::string text(pdf::NormaliseContentText(input).View());
  if (input.size() <= kMostCompared) {
    std::string naiveText(input);
    naive::NormaliseContentText(naiveText);
    fuzz::Check(text == naiveText, "not the text that the literal replacements give");
  }
  pdf::ContentLines lines(text);
  pdf::ContentLine line;
  while (lines.Next(line)) {
    fuzz::Touch(lines.Peek());
    const std::size_t kept = std::min(line.count, pdf::ContentLine::kKeptTokens);
    for (std::size_t i = 0; i < kept; ++i) fuzz::Touch(line.At(i));
  }
}

const fuzz::Target target("content_text", Run);

}  // namespace
