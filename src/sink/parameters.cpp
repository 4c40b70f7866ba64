#include "sink/parameters.h"

#include <string_view>

#include "support/float_to_integer.h"
#include "support/text_to_number.h"

namespace {

using Entity_ZR::Attribute;
using support::AtoF;
using support::AtoI;

enum class Parameter {
  kUnknown = 0,
  kCutPower = 1,
  kEngraveSpeed = 2,
  kCutSpeed = 3,
  kEngDensity = 4,
  kHighFocus = 5,
  kEngMinP = 6,
  kEngMaxP = 7,
  kProcessType = 8,
  kDiameter = 9,
  kMachineType = 10,
  kImageType = 11,
  kReverse = 12,
  kFrequency = 13,
};

struct NamedParameter {
  std::string_view key;
  Parameter code;
};

constexpr NamedParameter kParameterTable[] = {
    {"cutPower", Parameter::kCutPower},   {"engraveSpeed", Parameter::kEngraveSpeed},
    {"cutSpeed", Parameter::kCutSpeed},   {"engDensity", Parameter::kEngDensity},
    {"highFocus", Parameter::kHighFocus}, {"EngMinP", Parameter::kEngMinP},
    {"EngMaxP", Parameter::kEngMaxP},     {"processType", Parameter::kProcessType},
    {"diameter", Parameter::kDiameter},   {"machineType", Parameter::kMachineType},
    {"imageType", Parameter::kImageType}, {"Reverse", Parameter::kReverse},
    {"frequency", Parameter::kFrequency},
};

constexpr double kMillimetresPerInch = 25.4;

/// Keys count exactly, with their case.
Parameter ParameterOf(std::string_view key) {
  for (const NamedParameter& entry : kParameterTable) {
    if (entry.key == key) return entry.code;
  }
  return Parameter::kUnknown;
}

std::int16_t LowSixteenBits(std::int32_t value) {
  return static_cast<std::int16_t>(static_cast<std::uint32_t>(value));
}

/// The nine parameters that all three kinds of result convert in the same way.
void ApplyCommon(Parameter parameter, std::string_view value, CFileDraw& object) {
  switch (parameter) {
    case Parameter::kCutPower: object.cutPower = AtoF(value); break;
    case Parameter::kEngraveSpeed: object.engraveSpeed = AtoF(value); break;
    case Parameter::kCutSpeed: object.cutSpeed = AtoF(value); break;
    case Parameter::kHighFocus: object.highFocus = object.highFocus2 = AtoF(value); break;
    case Parameter::kEngMinP: object.EngMinP = AtoF(value); break;
    case Parameter::kEngMaxP: object.EngMaxP = AtoF(value); break;
    case Parameter::kProcessType:
      object.processType = AtoI(value);
      object.cutMode = object.processType == 0 ? 1 : 0;
      break;
    case Parameter::kDiameter: object.diameter = AtoF(value); break;
    case Parameter::kFrequency: object.frequency = AtoI(value); break;
    default: break;
  }
}

void ApplyToCurve(Parameter parameter, std::string_view value, CFileDraw& object) {
  switch (parameter) {
    case Parameter::kEngDensity: object.engStep = kMillimetresPerInch / AtoI(value); break;
    case Parameter::kMachineType: object.machineType = LowSixteenBits(AtoI(value)); break;
    default: ApplyCommon(parameter, value, object); break;
  }
}

void ApplyToImage(Parameter parameter, std::string_view value, CFileDraw& object) {
  switch (parameter) {
    case Parameter::kImageType: object.imageType = LowSixteenBits(AtoI(value)); break;
    case Parameter::kReverse: object.Reverse = AtoI(value); break;
    default: ApplyToCurve(parameter, value, object); break;
  }
}

// Kept: a group reads these two as numbers with fractions, where curves and images read whole ones.
void ApplyToGroup(Parameter parameter, std::string_view value, CFileDraw& object) {
  switch (parameter) {
    case Parameter::kEngDensity: object.engStep = kMillimetresPerInch / AtoF(value); break;
    case Parameter::kMachineType: object.machineType = support::TruncateToI16(AtoF(value)); break;
    default: ApplyCommon(parameter, value, object); break;
  }
}

template <typename Apply>
void ApplyAll(const std::vector<Attribute>& attributes, CFileDraw& object, Apply apply) {
  object.frequency = 1.0;
  for (const Attribute& attribute : attributes) {
    if (attribute.tag != Entity_ZR::kParameterAttribute) continue;
    for (const auto& [key, value] : attribute.pairs) apply(ParameterOf(key), value, object);
  }
}

}  // namespace

void ApplyCurveParameters(const std::vector<Attribute>& attributes, CFileDraw& curve) {
  ApplyAll(attributes, curve, ApplyToCurve);
}

void ApplyImageParameters(const std::vector<Attribute>& attributes, CFileDraw& image) {
  ApplyAll(attributes, image, ApplyToImage);
}

void ApplyGroupParameters(const std::vector<Attribute>& attributes, CFileDraw& group) {
  ApplyAll(attributes, group, ApplyToGroup);
}
