#ifndef DRAWLOAD_TOOLS_PREFLIGHT_CHECK_H
#define DRAWLOAD_TOOLS_PREFLIGHT_CHECK_H

#include "findings.h"
#include "job.h"

/// Finds what will go wrong on the machine. It changes nothing, and takes time in n log n for n segments.
///
/// Of weight are all findings but segments repeated in another layer, short segments, and open contours whose
/// ends lie farther apart than a millimetre or a tenth of their length: those may be meant.
Report CheckJob(const Job& job, const CheckOptions& options);

/// The densities between which a bitmap is sensible: below, a dot is wider than a quarter of a millimetre and
/// shows; above, dots are closer than the spot of any common laser is wide.
constexpr double kLeastDpi = 100.0;
constexpr double kMostDpi = 1000.0;

/// How far the ends of an open contour may be apart to be taken for a mistake, in millimetres.
constexpr double kLikelyGap = 1.0;

#endif
