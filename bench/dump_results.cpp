// dump_results FILE: writes every byte that the results of a drawing hand to the caller, but for addresses,
// and their bounds, to standard output, so that two builds of the library can be compared.
#include <cstdio>

#include "dump/result_dump.h"

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  std::string dump = result_dump::OfFile(argv[1]);
  if (DrawLoad_Z7(argv[1]) == 0) return 1;
  CFileDraw* object = nullptr;
  for (int found = GetFirstData_Z7(&object); found == 1; found = GetNextData_Z7(&object)) {
    result_dump::AppendValue(dump, object->CalRect());
  }
  std::fwrite(dump.data(), 1, dump.size(), stdout);
  return 0;
}
