#ifndef DRAWLOAD_TOOLS_SUMMARY_H
#define DRAWLOAD_TOOLS_SUMMARY_H

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "geometry.h"
#include "job.h"

/// Results that the machine works with the same colour and the same settings.
struct SettingsGroup {
  std::uint32_t color = 0;
  Settings settings;
  std::size_t curves = 0;
  std::size_t bitmaps = 0;
  double cutLength = 0.0;  ///< millimetres
};

struct BitmapFacts {
  std::uint32_t width = 0;  ///< pixels
  std::uint32_t height = 0;
  double placedWidth = 0.0;  ///< millimetres along the rows
  double placedHeight = 0.0;
  double dpiX = 0.0;  ///< pixels an inch; 0 where a side has no length
  double dpiY = 0.0;
};

/// The check of a drawing in short; `drawload check` tells the rest.
struct CheckFacts {
  std::size_t duplicates = 0;
  double duplicateLength = 0.0;  ///< millimetres
  std::size_t contoursClosed = 0;
  std::size_t contoursOpen = 0;
  std::size_t outlinesTooEarly = 0;  ///< cut before what lies inside them
};

/// What `drawload info` tells of one drawing. Lengths in millimetres.
struct Summary {
  std::string path;
  std::string format;  ///< "DXF", "SVG", "PDF", or empty for an unknown extension
  std::size_t results = 0;
  std::size_t dropped = 0;
  std::size_t curves = 0;
  std::size_t lines = 0;
  std::size_t cubics = 0;
  std::vector<BitmapFacts> bitmaps;
  Box bounds;
  double cutLength = 0.0;
  double travelLength = 0.0;
  std::map<std::uint32_t, double> cutLengthByColor;
  CheckFacts check;
  std::vector<SettingsGroup> groups;  ///< in the order in which they first occur
};

Summary Summarize(const Job& job);

/// The summary as text for a person to read.
std::string SummaryText(const Summary& summary);

/// A table with one row for each summary.
std::string OverviewText(const std::vector<Summary>& summaries);

#endif
