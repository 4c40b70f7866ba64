#include "support/c_locale.h"

#include <clocale>
#include <cstdlib>
#include <locale.h>

namespace support {

double StrToDInCLocale(const char* text) {
  static const locale_t cLocale = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(text, nullptr, cLocale);
}

}  // namespace support
