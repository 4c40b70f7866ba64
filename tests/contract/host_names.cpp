// A host that has the names of the library's inside for things of its own.
int platform = 0;
enum ResultStore { support, entity };
namespace fonts {}
namespace curve {}

#include "drawload/exports.h"

int main() { return platform; }
