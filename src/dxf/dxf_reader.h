#ifndef DRAWLOAD_DXF_DXF_READER_H
#define DRAWLOAD_DXF_DXF_READER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "dxf/dxf_names.h"
#include "dxf/dxf_text_decoder.h"
#include "dxf/line_stream.h"

/// Turns an open DXF file into tags, each a group code and a value. Call `nextGroup` until it is false; after
/// each true result the value stands in the slot of its kind, and the other slots hold what they held before.
class dxfReader {
 public:
  /// The stream, the bytes behind it and the names outlive the reader.
  dxfReader(LineStream& lines, DXF_Names& keptNames) : stream(&lines), names(&keptNames) {}
  dxfReader(const dxfReader&) = delete;
  dxfReader& operator=(const dxfReader&) = delete;

  virtual ~dxfReader();
  virtual bool fetchGroupCode(std::int32_t& code);
  virtual bool fetchText();
  virtual bool fetchLine(std::string_view& line);
  virtual bool fetchShort();
  virtual bool fetchLong();
  virtual bool fetchWide();
  virtual bool fetchReal();
  virtual bool fetchFlag();

  /// False where the code could not be read or the stream is not clean after the value. The last line of a
  /// file without a line feed at its end is thus lost as a tag.
  bool nextGroup(std::int32_t& code);

  /// The text value as a hexadecimal number of 32 bits, 0 where it is none. Right after a text group only.
  std::uint32_t handleFromText() const;

  /// The text value, decoded.
  std::string text() const { return decoder.decode(textValue); }

  /// The same for a name that the records of many entities point at.
  std::string_view name() const { return names->keep(text()); }

  /// How many records of `linesEach` lines the rest of the file could hold: a stated count reserves no more,
  /// nor more than a fixed bound.
  std::size_t reservable(std::int32_t count, std::size_t linesEach) const;

  std::int32_t valueKind = 5;  ///< 0 after every value, whatever its kind: nothing may depend on it
  LineStream* stream;
  DXF_Names* names;
  std::string_view textValue;  ///< undecoded, within the file's bytes, less one trailing carriage return
  double realValue = 0.0;
  std::int32_t intValue = 0;
  std::int64_t wideValue = 0;  ///< Kept: nothing writes it, 64-bit groups go to `intValue`
  DXF_TextDecoder decoder;
  bool skipComments = false;  ///< when set, `nextGroup` swallows groups 999

 private:
  bool fetchValue(std::int32_t code);
};

#endif
