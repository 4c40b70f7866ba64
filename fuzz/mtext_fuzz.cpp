#include "dxf/mtext_format.h"
#include "fuzz/target.h"

namespace {

void Run(std::string_view input) {
  for (const Entity_ZR::MTextParagraph& paragraph : ParseMTextFormat(input, {}, {})) {
    for (const Entity_ZR::MTextItem& item : paragraph.items) {
      if (const auto* text = std::get_if<std::string>(&item.value)) fuzz::Touch(*text);
      if (const auto* font = std::get_if<Entity_ZR::SharedText>(&item.value)) fuzz::Touch(font->Get());
    }
  }
}

const fuzz::Target target("mtext", Run);

}  // namespace
