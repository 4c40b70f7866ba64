// `Param` elements: the machine that a document was drawn for.

#include "support/text_to_number.h"
#include "svg/svg_rw.h"

/// Each `Param` makes a complete record: what it does not say is at its default.
void SVG_RW::EmitMachineInfo(const Svg::SVG_Element& record, PARSE::Context context) {
  PARSE::MachineInfo info;
  for (const Svg::AttributeEntry& entry : record.OwnAttributes()) {
    const std::int32_t value = support::AtoI(entry.Value());
    switch (entry.key) {
      case Svg::kDiameter: info.diameter = value; break;
      case Svg::kMachineType: info.machineType = value; break;
      case Svg::kAutoFocus: info.AutoFocus = value; break;
      case Svg::kMachineModel: info.machineModel = value; break;
      case Svg::kFrequency: info.frequency = value; break;
      default: break;
    }
  }
  sink->SetMachineInfo(&info, context);
}
