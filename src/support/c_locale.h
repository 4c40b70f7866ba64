#ifndef DRAWLOAD_SUPPORT_C_LOCALE_H
#define DRAWLOAD_SUPPORT_C_LOCALE_H

namespace support {

/// What `strtod` gives for the number at the start of `text` in the "C" locale, whatever locale the host has
/// set. src/platform/ has it, in the folder of each system.
double StrToDInCLocale(const char* text);

}  // namespace support

#endif
