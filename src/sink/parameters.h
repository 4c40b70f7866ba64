#ifndef DRAWLOAD_SINK_PARAMETERS_H
#define DRAWLOAD_SINK_PARAMETERS_H

#include <vector>

#include "drawload/file_draw.h"
#include "entity/entity.h"

/// Processing parameters: the (key, value) texts of a file, into the processing block of a result. Each
/// function first sets `frequency` to 1.0, also where there is no pair. Later pairs win over earlier ones;
/// unknown keys are passed over.

/// For curves: "engDensity" is a whole number; "imageType" and "Reverse" are passed over.
void ApplyCurveParameters(const std::vector<Entity_ZR::Attribute>& attributes, CFileDraw& curve);

/// For bitmaps: as for curves, and "imageType" and "Reverse" count.
void ApplyImageParameters(const std::vector<Entity_ZR::Attribute>& attributes, CFileDraw& image);

/// For groups: "engDensity" and "machineType" may have fractions; "imageType" and "Reverse" are passed over.
void ApplyGroupParameters(const std::vector<Entity_ZR::Attribute>& attributes, CFileDraw& group);

#endif
