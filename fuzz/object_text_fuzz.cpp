#include <string>

#include "fuzz/target.h"
#include "pdf/naive_rewriting.h"
#include "pdf/object_text.h"

namespace {

/// Rewrites a text as an object, against the literal replacements, and splits it.
void Run(std::string_view input) {
  const std::string text = pdf::NormaliseObjectText(input);
  std::string naiveText(input);
  naive::NormaliseObjectText(naiveText);
  fuzz::Check(text == naiveText, "not the text that the literal replacements give");
  for (const std::string_view token : pdf::Split(text, '\n')) fuzz::Touch(token);
}

const fuzz::Target target("object_text", Run);

}  // namespace
