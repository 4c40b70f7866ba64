#include "svg/points.h"

#include "support/text_to_number.h"
#include "svg/text_pieces.h"

namespace Svg {

namespace {

std::string_view CutFront(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \r\n\t");
  return first == std::string_view::npos ? std::string_view{} : text.substr(first);
}

void AddPoint(std::string_view x, std::string_view y, std::vector<Point>& points) {
  if (!x.empty() && !y.empty()) points.push_back({support::AtoF(x), support::AtoF(y)});
}

void AddPairs(std::string_view text, std::vector<Point>& points) {
  std::string_view first;
  bool hasFirst = false;
  ForEachPiece(text, ' ', [&](std::string_view piece) {
    if (hasFirst) AddPoint(CutFront(first), CutFront(piece), points);
    first = piece;
    hasFirst = !hasFirst;
  });
}

}  // namespace

std::vector<Point> ParsePoints(std::string_view text) {
  std::vector<Point> points;
  bool hasPairs = false;
  ForEachPiece(text, ' ', [&](std::string_view piece) {
    piece = CutFront(piece);
    if (hasPairs || piece.empty()) return;
    const std::size_t comma = piece.find(',');
    if (comma == std::string_view::npos) {
      hasPairs = true;
    } else {
      AddPoint(piece.substr(0, comma), CutFront(piece.substr(comma + 1)), points);
    }
  });
  if (hasPairs) AddPairs(text, points);
  return points;
}

}  // namespace Svg
