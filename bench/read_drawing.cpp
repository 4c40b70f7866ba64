// read_drawing FILE: loads a drawing, walks its results and writes how many there are to standard error.
// Nothing more, so that its time is the library's.
#include <cstdio>

#include "drawload/exports.h"

int main(int argc, char** argv) {
  if (argc != 2 || DrawLoad_Z7(argv[1]) == 0) return 1;
  CFileDraw* result = nullptr;
  std::size_t count = 0;
  for (int more = GetFirstData_Z7(&result); more != 0; more = GetNextData_Z7(&result)) ++count;
  std::fprintf(stderr, "%zu results\n", count);
  return 0;
}
