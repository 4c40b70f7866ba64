#ifndef DRAWLOAD_BITMAPCORE_SET_DIB_INFO_H
#define DRAWLOAD_BITMAPCORE_SET_DIB_INFO_H

class CFileDib;

/// Attaches a placement to `dib`, as the six numbers of its matrix in the order of its fields. On this
/// platform the fields are all that drawing a bitmap needs. True when it is attached; false without a `dib`.
/// The name is fixed: another component may take the place of this one.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
bool _dib_SetDibInfo(CFileDib* dib, double a, double c, double b, double d, double e, double f);

#endif
