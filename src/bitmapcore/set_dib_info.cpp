#include "bitmapcore/set_dib_info.h"

#include "drawload/file_dib.h"

bool _dib_SetDibInfo(CFileDib* dib, double a, double c, double b, double d, double e, double f) {
  if (dib == nullptr) return false;
  dib->a = a;
  dib->c = c;
  dib->b = b;
  dib->d = d;
  dib->e = e;
  dib->f = f;
  return true;
}
