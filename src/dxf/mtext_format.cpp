#include "dxf/mtext_format.h"

#include <algorithm>
#include <bitset>
#include <cstddef>
#include <optional>
#include <utility>

#include "dxf/aci_colors.h"
#include "support/text_to_number.h"

namespace {

using Entity_ZR::MTextAttribute;
using Entity_ZR::MTextParagraph;
using Entity_ZR::MTextValue;

constexpr std::size_t kAttributeCount = 12;

std::string KeepNumber(std::string_view text, bool allowMinus) {
  std::string kept;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isSign = allowMinus && i == 0 && text[i] == '-';
    if (isSign || support::IsDigit(text[i]) || text[i] == '.') kept += text[i];
  }
  return kept;
}

std::string KeepDigits(std::string_view text) {
  std::string kept;
  for (const char c : text) {
    if (support::IsDigit(c)) kept += c;
  }
  return kept;
}

/// The options of a paragraph code, without the code itself and the semicolon behind them.
class ParagraphOptions {
 public:
  ParagraphOptions(std::string_view optionText, double textHeight, const MTextParagraph& defaultSettings)
      : text(optionText), height(textHeight), defaults(defaultSettings) {}

  void ApplyTo(MTextParagraph& paragraph) {
    while (at < text.size()) ApplyOption(text[at++], paragraph);
  }

 private:
  void ApplyOption(char option, MTextParagraph& paragraph) {
    switch (option) {
      // Kept: the indent is the one length that does not grow with the text height.
      case 'i': paragraph.indent = Number(); break;
      case 'l': paragraph.leftMargin = Number() * height; break;
      case 'r': paragraph.rightMargin = Number() * height; break;
      case 't': paragraph.topMargin = Number() * height; break;
      case 'b': paragraph.bottomMargin = Number() * height; break;
      case 'a': paragraph.afterMargin = Number() * height; break;
      case 'q': SetAlignment(paragraph); break;
      case 's': SetSpacing(paragraph); break;
      default: break;
    }
  }

  char Take() { return at < text.size() ? text[at++] : '\0'; }

  double Number() {
    const std::size_t start = at;
    while (at < text.size() && (support::IsDigit(text[at]) || text[at] == '.' || text[at] == '-')) ++at;
    return support::AtoF(KeepNumber(text.substr(start, at - start), false));
  }

  void SetAlignment(MTextParagraph& paragraph) {
    switch (Take()) {
      case 'l': paragraph.alignment = 10; break;
      case 'c': paragraph.alignment = 11; break;
      case 'r': paragraph.alignment = 12; break;
      case 'j': paragraph.alignment = 13; break;
      case 'd': paragraph.alignment = 17; break;
      case '*': paragraph.alignment = defaults.alignment; break;
      default: break;
    }
  }

  void SetSpacing(MTextParagraph& paragraph) {
    switch (Take()) {
      case 'e': SetSpacing(paragraph, Entity_ZR::kExactSpacing); break;
      case 'a': SetSpacing(paragraph, Entity_ZR::kAtLeastSpacing); break;
      case 'm': SetSpacing(paragraph, Entity_ZR::kMultipleSpacing); break;
      case '*':
        paragraph.lineSpacingStyle = defaults.lineSpacingStyle;
        paragraph.lineSpacingFactor = defaults.lineSpacingFactor;
        break;
      default: break;
    }
  }

  void SetSpacing(MTextParagraph& paragraph, Entity_ZR::MTextSpacing style) {
    const double factor = Number();
    paragraph.lineSpacingStyle = style;
    paragraph.lineSpacingFactor = style == Entity_ZR::kAtLeastSpacing && factor < 1.0 ? 1.0 : factor;
  }

  std::string_view text;
  double height;
  const MTextParagraph& defaults;
  std::size_t at = 0;
};

class Parser {
 public:
  Parser(std::string_view source, const DXF_TextFormat& defaultFormat, const MTextParagraph& defaultSettings)
      : text(source), format(defaultFormat), defaults(defaultSettings), height(defaultFormat.height) {
    defaults.items.clear();
    paragraph = defaults;
  }

  std::vector<MTextParagraph> Run() {
    PutStartingFormat();
    while (at < text.size() && Step()) {
    }
    CloseRun();
    if (!paragraph.items.empty()) paragraphs.push_back(std::move(paragraph));
    return std::move(paragraphs);
  }

 private:
  /// Handles what stands next; false where the text ends within it.
  bool Step() {
    switch (const char c = text[at++]) {
      // A group is closed as a whole: what an outer group set is reset as well, whatever the nesting.
      case '{': return true;
      case '}': ResetAttributes(); return true;
      case '\\': return Control();
      default: run += c; return true;
    }
  }

  bool Control() {
    if (at == text.size()) return false;
    switch (const char c = text[at++]) {
      case '\\':
      case '{':
      case '}': run += c; return true;
      case '~': run += ' '; return true;
      case 'P': CloseParagraph(); return true;
      case 'A': return Skip(2);
      case 'C': return IndexedColor();
      case 'c': return TrueColor();
      case 'F':
      case 'f': return Font();
      case 'H': return Height();
      case 'W': return Number(Entity_ZR::kMTextWidth, ";x", false);
      case 'Q': return Number(Entity_ZR::kMTextOblique, ";", true);
      case 'T': return Number(Entity_ZR::kMTextTracking, ";", false);
      case 'L':
      case 'l': Change(Entity_ZR::kMTextUnderline, c == 'L'); return true;
      case 'O':
      case 'o': Change(Entity_ZR::kMTextOverline, c == 'O'); return true;
      case 'K':
      case 'k': Change(Entity_ZR::kMTextStrike, c == 'K'); return true;
      case 'S': return Stacked();
      case 'p': return Paragraph();
      default: return true;
    }
  }

  bool Skip(std::size_t count) {
    if (text.size() - at < count) return false;
    at += count;
    return true;
  }

  /// What stands before the next of `terminators`, and moves behind it.
  std::optional<std::string_view> TakeUntil(std::string_view terminators) {
    const std::size_t end = text.find_first_of(terminators, at);
    if (end == text.npos) return std::nullopt;
    const std::string_view taken = text.substr(at, end - at);
    at = end + 1;
    return taken;
  }

  /// As `TakeUntil`; an "x" that ends a factor takes the semicolon behind it along.
  std::optional<std::string_view> TakeFactor(std::string_view terminators) {
    const std::optional<std::string_view> taken = TakeUntil(terminators);
    if (taken && text[at - 1] == 'x' && at < text.size() && text[at] == ';') ++at;
    return taken;
  }

  bool IndexedColor() {
    const std::optional<std::string_view> digits = TakeUntil(";");
    if (!digits) return false;
    const std::int32_t index = support::AtoI(KeepDigits(*digits));
    Change(Entity_ZR::kMTextColor, index == 256 ? format.color : AciColor(index));
    return true;
  }

  bool TrueColor() {
    const std::optional<std::string_view> digits = TakeUntil(";");
    if (!digits) return false;
    const auto number = static_cast<std::uint32_t>(support::AtoI(KeepDigits(*digits)));
    Change(Entity_ZR::kMTextColor, (number & 0x00FFFFFFU) | 0xFF000000U);
    return true;
  }

  bool Font() {
    const std::optional<std::string_view> name = TakeUntil("|;");
    if (!name) return false;
    const bool hasOptions = text[at - 1] == '|';
    Change(Entity_ZR::kMTextFont, Entity_ZR::SharedText(*name));
    if (!hasOptions) return true;
    const std::optional<std::string_view> options = TakeUntil(";");
    if (!options) return false;
    FontOptions(*options);
    return true;
  }

  void FontOptions(std::string_view options) {
    for (std::size_t i = 0; i + 1 < options.size(); ++i) {
      const bool isSwitch = options[i + 1] == '0' || options[i + 1] == '1';
      if (options[i] == 'b' && isSwitch) Change(Entity_ZR::kMTextBold, options[i + 1] == '1');
      if (options[i] == 'i' && isSwitch) Change(Entity_ZR::kMTextItalic, options[i + 1] == '1');
    }
  }

  bool Height() {
    const std::optional<std::string_view> number = TakeFactor(";x");
    if (!number) return false;
    // Kept: without the "x" the number is a factor as well, not a height.
    height *= support::AtoF(KeepNumber(*number, false));
    Change(Entity_ZR::kMTextHeight, height);
    return true;
  }

  bool Number(MTextAttribute attribute, std::string_view terminators, bool allowMinus) {
    const std::optional<std::string_view> number = TakeFactor(terminators);
    if (!number) return false;
    Change(attribute, support::AtoF(KeepNumber(*number, allowMinus)));
    return true;
  }

  bool Stacked() {
    const std::optional<std::string_view> stack = TakeUntil(";");
    if (!stack) return false;
    run += "\\S";
    run += *stack;
    return true;
  }

  bool Paragraph() {
    const std::optional<std::string_view> options = TakeUntil(";");
    if (!options) return false;
    ParagraphOptions(*options, format.height, defaults).ApplyTo(paragraph);
    return true;
  }

  MTextValue DefaultOf(MTextAttribute attribute) const {
    switch (attribute) {
      case Entity_ZR::kMTextFont: return format.fontName;
      case Entity_ZR::kMTextHeight: return format.height;
      case Entity_ZR::kMTextColor: return format.color;
      case Entity_ZR::kMTextWidth: return format.widthScale;
      case Entity_ZR::kMTextOblique: return format.oblique;
      case Entity_ZR::kMTextBold: return format.bold;
      case Entity_ZR::kMTextItalic: return format.italic;
      case Entity_ZR::kMTextTracking: return 1.0;
      default: return false;
    }
  }

  void PutStartingFormat() {
    for (const MTextAttribute attribute :
         {Entity_ZR::kMTextFont, Entity_ZR::kMTextHeight, Entity_ZR::kMTextWidth, Entity_ZR::kMTextOblique,
          Entity_ZR::kMTextBold, Entity_ZR::kMTextItalic, Entity_ZR::kMTextColor}) {
      Put(attribute, DefaultOf(attribute));
    }
  }

  void Put(MTextAttribute attribute, MTextValue value) {
    paragraph.items.push_back({attribute, std::move(value)});
  }

  void Change(MTextAttribute attribute, MTextValue value) {
    CloseRun();
    changed.set(static_cast<std::size_t>(attribute), value != DefaultOf(attribute));
    Put(attribute, std::move(value));
  }

  void ResetAttributes() {
    CloseRun();
    for (std::size_t i = 0; i < changed.size(); ++i) {
      const auto attribute = static_cast<MTextAttribute>(i);
      if (changed[i]) Put(attribute, DefaultOf(attribute));
    }
    changed.reset();
    height = format.height;
  }

  void CloseRun() {
    if (run.empty()) return;
    Put(Entity_ZR::kMTextRun, std::exchange(run, {}));
  }

  /// The paragraph behind keeps the settings, as it keeps the attributes: a code holds until it is taken
  /// back.
  void CloseParagraph() {
    CloseRun();
    std::vector<Entity_ZR::MTextItem> items = std::exchange(paragraph.items, {});
    MTextParagraph following = paragraph;
    paragraph.items = std::move(items);
    paragraphs.push_back(std::move(paragraph));
    paragraph = std::move(following);
  }

  std::string_view text;
  const DXF_TextFormat& format;
  MTextParagraph defaults;
  double height;
  std::size_t at = 0;
  std::string run;
  MTextParagraph paragraph;
  std::vector<MTextParagraph> paragraphs;
  std::bitset<kAttributeCount> changed;  ///< attributes that differ from their defaults
};

}  // namespace

std::vector<MTextParagraph> ParseMTextFormat(std::string_view text, const DXF_TextFormat& format,
                                             const MTextParagraph& defaults) {
  return Parser(text, format, defaults).Run();
}
