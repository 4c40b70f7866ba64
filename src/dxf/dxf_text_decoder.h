#ifndef DRAWLOAD_DXF_DXF_TEXT_DECODER_H
#define DRAWLOAD_DXF_DXF_TEXT_DECODER_H

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "dxf/dxf_converter.h"

/// Decodes every text of a file on its way into a record. As wired, it ends up on the plain converter for
/// every file, whatever its version and code page; the character set of a text is worked out later from its
/// bytes.
class DXF_TextDecoder {
 public:
  DXF_TextDecoder();

  /// Takes the text of `$ACADVER`.
  void setVersion(std::string_view acadVersion);
  /// Takes the text of `$DWGCODEPAGE` or a canonical name.
  void setCodePage(std::string_view name);

  std::string decode(std::string_view text) const { return converter->toUtf8(std::string(text)); }

  std::int32_t versionClass = 7;  ///< 2, 5 or 7
  std::string encodingName;       ///< canonical
  std::unique_ptr<DXF_Converter> converter;

 private:
  std::unique_ptr<DXF_Converter> converterOfOldVersion();
};

/// The canonical name of a code page, by any of the names that files use; "ANSI_1252" for any other.
std::string_view CanonicalCodePage(std::string_view name);

#endif
