#ifndef DRAWLOAD_ENTITY_MTEXT_H
#define DRAWLOAD_ENTITY_MTEXT_H

#include <string>
#include <variant>
#include <vector>

#include "entity/entity.h"

namespace Entity_ZR {

/// What an item of a paragraph is: a piece of text, or the change of one attribute for all text behind it.
enum MTextAttribute : std::int32_t {
  kMTextRun = 0,        ///< string: the text's own bytes, see `ZR_MText::encoding`
  kMTextFont = 1,       ///< shared text: family name
  kMTextHeight = 2,     ///< number
  kMTextColor = 3,      ///< colour, as in `ZR_Entity::color`
  kMTextWidth = 4,      ///< number: factor
  kMTextOblique = 5,    ///< number: degrees
  kMTextBold = 6,       ///< flag
  kMTextItalic = 7,     ///< flag
  kMTextOverline = 8,   ///< flag
  kMTextUnderline = 9,  ///< flag
  kMTextStrike = 10,    ///< flag
  kMTextTracking = 11,  ///< number: factor
};

/// The value of an item, in the type that its attribute has.
using MTextValue = std::variant<std::string, SharedText, double, std::uint32_t, bool>;

struct MTextItem {
  MTextAttribute attribute = kMTextRun;
  MTextValue value;

  bool operator==(const MTextItem&) const = default;
};

/// Values of `MTextParagraph::lineSpacingStyle`.
enum MTextSpacing : std::int32_t {
  kExactSpacing = 1,
  kAtLeastSpacing = 2,
  kMultipleSpacing = 3,
};

/// One paragraph. Margins are lengths of the drawing; the indent is in text heights.
struct MTextParagraph {
  std::vector<MTextItem> items;
  std::int32_t alignment = 10;  ///< 10 left, 11 centre, 12 right, 13 justified, 17 distributed
  std::int32_t lineSpacingStyle = kAtLeastSpacing;
  double lineSpacingFactor = 1.0;
  double indent = 0.0;
  double leftMargin = 0.0;
  double rightMargin = 0.0;
  double topMargin = 0.0;
  double bottomMargin = 0.0;
  double afterMargin = 0.0;

  bool operator==(const MTextParagraph&) const = default;
};

/// Text of several paragraphs in a box.
class ZR_MText : public ZR_Entity {
 public:
  ZR_MText() : ZR_Entity(kMText) {}

  std::vector<MTextParagraph> paragraphs;
  Point3 position;
  Point3 direction;
  double height = 0.0;
  double rectWidth = 0.0;
  std::int32_t attachment = 1;  ///< 1 to 9: the corner or middle of the box that stands at `position`
  std::int32_t lineSpacingStyle = kAtLeastSpacing;
  double lineSpacingFactor = 1.0;
  double rotation = 0.0;           ///< degrees
  std::string encoding = "UTF-8";  ///< of the runs: "UTF-8", "GBK", "UTF-32" or "unknown"
};

}  // namespace Entity_ZR

#endif
