#ifndef DRAWLOAD_DXF_DXF_CONVERTER_H
#define DRAWLOAD_DXF_DXF_CONVERTER_H

#include <cstdint>
#include <string>

#include "dxf/codepages/double_byte.h"
#include "dxf/codepages/single_byte.h"

/// Text of a file to UTF-8 and back. This one, which every file ends up with, leaves the bytes as they are
/// and decodes the escapes `\U+XXXX`.
class DXF_Converter {
 public:
  DXF_Converter() = default;
  DXF_Converter(const DXF_Converter&) = delete;
  DXF_Converter& operator=(const DXF_Converter&) = delete;

  virtual ~DXF_Converter();
  virtual std::string fromUtf8(std::string text) const;
  virtual std::string toUtf8(std::string text) const;

  const std::uint32_t* table = nullptr;  ///< code points, read-only
  std::int32_t cpLength = 0;             ///< number of entries
};

/// A code page of single bytes: `table` has the 128 code points of 0x80 to 0xFF, 0 where undefined.
class DXF_ConvTable : public DXF_Converter {
 public:
  explicit DXF_ConvTable(const codepages::SingleByteTable& page);

  std::string fromUtf8(std::string text) const override;
  std::string toUtf8(std::string text) const override;
};

/// A code page of pairs: a byte above 0x80 leads a pair. Here `cpLength` counts `doubleTable`.
class DXF_ConvDBCSTable : public DXF_Converter {
 public:
  explicit DXF_ConvDBCSTable(const codepages::DoubleByteTable& page);

  std::string fromUtf8(std::string text) const override;
  std::string toUtf8(std::string text) const override;

  const std::uint32_t* leadTable;
  const codepages::DoubleBytePair* doubleTable;
};

#endif
