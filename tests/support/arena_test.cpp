#include "support/arena.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

TEST(Arena, KeepsAPieceAndWhatLiesBehindIt) {
  constexpr std::size_t pieceBytes = 100000;
  constexpr int pieceCount = 100;  // in chunks of several sizes
  support::Arena arena;
  std::vector<char*> pieces;
  for (int i = 0; i < pieceCount; ++i) {
    pieces.push_back(static_cast<char*>(arena.Allocate(pieceBytes)));
    std::fill_n(pieces.back(), pieceBytes, static_cast<char>(i));
  }
  for (int i = 0; i < pieceCount; ++i) {
    char* const piece = pieces[static_cast<std::size_t>(i)];
    arena.FreeBefore(piece);
    EXPECT_EQ(std::count(piece, piece + pieceBytes, static_cast<char>(i)), std::ptrdiff_t{pieceBytes}) << i;
  }
  char* const another = static_cast<char*>(arena.Allocate(pieceBytes));
  std::fill_n(another, pieceBytes, 'x');
  arena.FreeBefore(another);
  EXPECT_EQ(std::count(another, another + pieceBytes, 'x'), std::ptrdiff_t{pieceBytes});
}
