#include "support/c_locale.h"

#include <cstdlib>
#include <locale.h>

namespace support {

double StrToDInCLocale(const char* text) {
  static const _locale_t cLocale = _create_locale(LC_ALL, "C");
  return _strtod_l(text, nullptr, cLocale);
}

}  // namespace support
