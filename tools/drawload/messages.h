#ifndef DRAWLOAD_TOOLS_MESSAGES_H
#define DRAWLOAD_TOOLS_MESSAGES_H

#include <string>

/// Prints "drawload: `text`" on standard error.
void Complain(const std::string& text);

/// `path` as one line of printable text: control characters, and bytes that are not UTF-8, as \n or \xE9.
std::string Shown(const std::string& path);

/// "DXF", "SVG" or "PDF", by which the library reads `path`; empty where it reads it by none of them.
std::string FormatOf(const std::string& path);

/// Whether `path` is a regular file that this user may read.
bool IsReadableFile(const std::string& path);

/// Why nothing could be read from the file at `path`, and what to do, for a person.
std::string WhyNothingRead(const std::string& path);

/// "1 curve", "2 curves".
std::string Counted(std::size_t count, const std::string& thing);

/// "1 curve without segments is left out".
std::string LeftOut(std::size_t count, const std::string& thing, const std::string& nature);

/// The same of results with coordinates that are not finite.
std::string NotFiniteLeftOut(std::size_t count);

/// What went wrong while something was written, by its error number, and what to do.
std::string WhyNotWritten(int error);

#endif
