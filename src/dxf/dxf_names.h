#ifndef DRAWLOAD_DXF_DXF_NAMES_H
#define DRAWLOAD_DXF_DXF_NAMES_H

#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>

/// The names that entities and table entries state: a few, again and again. Each is kept once, for the
/// records to point at.
class DXF_Names {
 public:
  /// The kept name of these bytes; it lives as long as the names.
  std::string_view keep(std::string name) {
    if (name != last) last = *names.insert(std::move(name)).first;
    return last;
  }

 private:
  std::unordered_set<std::string> names;  // its elements never move
  std::string_view last;                  // entities of one layer often stand together
};

#endif
