#ifndef DRAWLOAD_DXF_CODEPAGES_SINGLE_BYTE_H
#define DRAWLOAD_DXF_CODEPAGES_SINGLE_BYTE_H

#include <array>
#include <cstdint>

namespace codepages {

/// Code points of the bytes 0x80 to 0xFF in a Windows code page; 0 marks an undefined byte.
using SingleByteTable = std::array<std::uint32_t, 128>;

extern const SingleByteTable kCodePage874;
extern const SingleByteTable kCodePage1250;
extern const SingleByteTable kCodePage1251;
extern const SingleByteTable kCodePage1252;
extern const SingleByteTable kCodePage1253;
extern const SingleByteTable kCodePage1254;
extern const SingleByteTable kCodePage1255;
extern const SingleByteTable kCodePage1256;
extern const SingleByteTable kCodePage1257;
extern const SingleByteTable kCodePage1258;

}  // namespace codepages

#endif
