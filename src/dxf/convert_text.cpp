#include <cmath>
#include <numbers>

#include "dxf/convert.h"
#include "dxf/mtext_format.h"
#include "dxf/text_encoding.h"
#include "dxf/text_format.h"

namespace {

constexpr std::int32_t kDefaultAlignment = 10;

std::int32_t AlignmentOf(std::int32_t horizontal, std::int32_t vertical) {
  const std::int64_t place = horizontal + std::int64_t{10} * vertical;
  if (place >= 0 && place <= 4) return static_cast<std::int32_t>(10 + place);
  if (place >= 10 && place <= 12) return static_cast<std::int32_t>(7 + place - 10);
  if (place >= 20 && place <= 22) return static_cast<std::int32_t>(4 + place - 20);
  if (place >= 30 && place <= 32) return static_cast<std::int32_t>(1 + place - 30);
  return kDefaultAlignment;
}

Entity_ZR::Point3 RotateAbout(Entity_ZR::Point3 center, double degrees, Entity_ZR::Point3 point) {
  const double angle = degrees * std::numbers::pi / 180.0;
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  const double x = point.x - center.x;
  const double y = point.y - center.y;
  return {center.x + cosine * x - sine * y, center.y + sine * x + cosine * y, point.z};
}

void FillFont(const DXF_TextFormat& format, Entity_ZR::ZR_Text& entity) {
  entity.fontName = format.fontName;
  entity.bigFontName = format.bigFontName;
  entity.bold = format.bold ? 1 : 0;
  entity.italic = format.italic ? 1 : 0;
  entity.vertical = format.vertical ? 1 : 0;
}

std::int32_t ParagraphAlignment(std::int32_t attachment) {
  switch (attachment) {
    case 1:
    case 4:
    case 7: return 10;
    case 2:
    case 5:
    case 8: return 11;
    default: return 12;
  }
}

/// The first piece of text decides for the whole.
std::string_view EncodingOf(const std::vector<Entity_ZR::MTextParagraph>& paragraphs) {
  for (const Entity_ZR::MTextParagraph& paragraph : paragraphs) {
    for (const Entity_ZR::MTextItem& item : paragraph.items) {
      const std::string* run = std::get_if<std::string>(&item.value);
      if (item.attribute == Entity_ZR::kMTextRun && run != nullptr && !run->empty())
        return GuessEncoding(*run);
    }
  }
  return "UTF-8";
}

}  // namespace

void fillEntity(DXF_Conversion& conversion, const DXF_Text& record, Entity_ZR::ZR_Text& entity) {
  conversion.fillCommon(record, entity);
  FillFont(conversion.formatOf(record.styleName), entity);
  entity.text = record.text;
  entity.height = record.height;
  entity.widthScale = record.widthScale;
  entity.oblique = record.oblique;
  entity.rotation = record.angle;
  entity.position = record.point;
  entity.secondPosition = record.secondPoint;
  entity.alignment = AlignmentOf(record.horizontalAlign, record.verticalAlign);
  entity.backward = record.generationFlags == 2 || record.generationFlags == 6 ? 1 : 0;
  entity.upsideDown = record.generationFlags == 4 || record.generationFlags == 6 ? 1 : 0;
  if (entity.alignment != kDefaultAlignment && record.angle != 0.0) {
    entity.position = RotateAbout(record.secondPoint, record.angle, record.point);
  }
}

void fillEntity(DXF_Conversion& conversion, const DXF_MText& record, Entity_ZR::ZR_MText& entity) {
  conversion.fillCommon(record, entity);
  DXF_TextFormat format = conversion.formatOf(record.styleName);
  format.color = entity.color;
  entity.position = record.point;
  entity.direction = record.secondPoint;
  entity.rectWidth = record.rectWidth;
  entity.height = record.height;
  entity.attachment = record.attachment;
  // Kept: the two styles change places.
  entity.lineSpacingStyle =
      record.lineSpacingStyle == 2 ? Entity_ZR::kExactSpacing : Entity_ZR::kAtLeastSpacing;
  entity.lineSpacingFactor = record.lineSpacingFactor;
  entity.rotation = record.angle;
  Entity_ZR::MTextParagraph defaults;
  defaults.alignment = ParagraphAlignment(record.attachment);
  defaults.lineSpacingStyle = entity.lineSpacingStyle;
  defaults.lineSpacingFactor = entity.lineSpacingFactor;
  entity.paragraphs = ParseMTextFormat(record.text, format, defaults);
  entity.encoding = EncodingOf(entity.paragraphs);
}
