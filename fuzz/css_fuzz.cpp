#include "fuzz/target.h"
#include "svg/style_rule.h"
#include "svg/text_pieces.h"

namespace {

/// Reads the input as a style sheet, asks for the rules of elements whose class is the input, and takes it
/// apart as a "style" attribute.
void Run(std::string_view input) {
  Svg::AttributeStore store;
  Svg::RuleQueue queue(store);
  Svg::ReadStyleSheet(input, queue);
  Svg::ReadStyleSheet(input, queue);
  std::vector<const Svg::StyleRule*> found;
  for (const std::string_view name : {"", "rect", "a"}) {
    queue.Collect(name, true, input, found);
    queue.Collect(name, false, {}, found);
  }
  for (const Svg::StyleRule* const rule : found) {
    fuzz::Touch(rule->selectorTag);
    fuzz::Touch(rule->selectorClass);
    for (const auto& [key, entry] : rule->properties) fuzz::Touch(entry.Value());
  }
  Svg::ForEachDeclaration(input, [](const Svg::Declaration& declaration) {
    fuzz::Touch(Svg::TrimBlanks(declaration.key));
    fuzz::Touch(Svg::TrimBlanks(declaration.value));
  });
}

const fuzz::Target target("css", Run);

}  // namespace
