/* A host program in C, which sees the three functions alone: is there anything to cut in a drawing, and how much?
 *
 *   cc -std=c99 host.c $(pkg-config --cflags --libs drawload) -o host_c
 *   ./host_c drawing.dxf
 *
 * The fields of the results are for C++ (host.cpp); docs/abi.md tells their offsets for other languages. */
#include <drawload/exports.h>
#include <stdio.h>

int main(int argc, char** argv) {
  if (argc != 2) {
    fprintf(stderr, "usage: host_c FILE\n");
    return 2;
  }
  if (DrawLoad_Z7(argv[1]) == 0) {
    fprintf(stderr, "host_c: nothing could be read from %s\n", argv[1]);
    return 1;
  }
  CFileDraw* result = NULL;
  int count = 0;
  int found;
  for (found = GetFirstData_Z7(&result); found != 0; found = GetNextData_Z7(&result)) ++count;
  printf("%d results\n", count);
  return 0;
}
