#ifndef DRAWLOAD_TOOLS_VERSIONS_H
#define DRAWLOAD_TOOLS_VERSIONS_H

#include <string>

/// The program's version, those of the libraries that it was built with, and the shared libraries in use.
std::string Versions();

#endif
