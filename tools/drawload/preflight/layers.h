#ifndef DRAWLOAD_TOOLS_PREFLIGHT_LAYERS_H
#define DRAWLOAD_TOOLS_PREFLIGHT_LAYERS_H

#include <cstdint>
#include <vector>

#include "job.h"

/// Coordinates beyond that, in millimetres, have no place on any machine, and the distance of neighboring
/// doubles comes near the tolerances. Results that reach so far are reported and otherwise left alone.
constexpr double kFarthest = 1e9;

bool IsWithinReach(const Box& box);
bool IsWithinReach(const Result& result);

/// The layer of each result of the job: results of one color and one block of settings have the same number,
/// from 0 on in the order of their first occurrence. A bitmap's color counts as black,
/// and the frequencies 0 and 1 as the same: a drawing that states none has both.
std::vector<std::uint32_t> LayersOf(const Job& job);

#endif
