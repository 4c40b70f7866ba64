#include "mending.h"

#include <cstdio>

#include "dropping.h"
#include "joining.h"
#include "messages.h"
#include "ordering.h"
#include "simplifying.h"

namespace {

std::string DropText(const Dropped& dropped) {
  std::string text = "dropped " + Counted(dropped.segments, "duplicate");
  if (dropped.segments > 0) text += " (" + LengthText(dropped.length) + ")";
  if (dropped.partsLeft > 0) text += ", left " + Counted(dropped.partsLeft, "partial overlap");
  return text;
}

std::string JoinText(const Joined& joined) {
  std::string text =
      "joined " + Counted(joined.pieces, "piece") + " into " + Counted(joined.contours, "contour");
  text += ", closed " + std::to_string(joined.closed);
  if (joined.moved >= 1e-6) text += ", moved ends by up to " + LengthText(joined.moved);
  return text;
}

std::string SimplifyText(const Simplified& simplified) {
  return "simplified " + Counted(simplified.before, "segment") + " to " + std::to_string(simplified.after);
}

std::string OrderText(const Ordered& ordered) {
  return "put " + Counted(ordered.outlines, "outline") + " after what lies inside, travel " +
         LengthText(ordered.travelAfter) + " instead of " + LengthText(ordered.travelBefore);
}

}  // namespace

std::vector<std::string> Mend(Job& job, const MendOptions& options) {
  std::vector<std::string> done;
  if (options.dropDuplicates) done.push_back(DropText(DropDuplicates(job, options.tolerance)));
  if (options.join) done.push_back(JoinText(JoinCurves(job, *options.join)));
  if (options.simplify) done.push_back(SimplifyText(Simplify(job, *options.simplify)));
  if (options.insideFirst) done.push_back(OrderText(OrderInsideFirst(job, options.tolerance)));
  return done;
}

std::string LengthText(double millimetres) {
  char text[64];
  if (millimetres >= 1000.0) {
    std::snprintf(text, sizeof text, "%.1f m", millimetres / 1000.0);
  } else {
    std::snprintf(text, sizeof text, "%.3g mm", millimetres);
  }
  return text;
}
