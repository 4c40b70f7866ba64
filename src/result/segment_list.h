#ifndef DRAWLOAD_RESULT_SEGMENT_LIST_H
#define DRAWLOAD_RESULT_SEGMENT_LIST_H

#include "drawload/file_curve.h"

/// Appends a straight segment to `curve`.
void AppendLine(CFileCurve& curve, FilePosition start, FilePosition end);

/// Appends a cubic Bezier segment to `curve`.
void AppendCubic(CFileCurve& curve, FilePosition start, FilePosition control1, FilePosition control2,
                 FilePosition end);

#endif
