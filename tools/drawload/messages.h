#ifndef DRAWLOAD_TOOLS_MESSAGES_H
#define DRAWLOAD_TOOLS_MESSAGES_H

#include <string>

/// Prints "drawload: `text`" on standard error.
void Complain(const std::string& text);

/// Whether `path` is a regular file that this user may read.
bool IsReadableFile(const std::string& path);

/// Why nothing could be read from the file at `path`, and what to do, for a person.
std::string WhyNothingRead(const std::string& path);

#endif
