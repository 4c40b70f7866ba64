#include "dxf/dxf_converter.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "support/text_to_number.h"

namespace {

constexpr std::size_t kEscapeLength = 7;  // \U+XXXX

std::uint8_t ByteAt(std::string_view text, std::size_t i) { return static_cast<std::uint8_t>(text[i]); }

/// UTF-8 of `point`; nothing for 0. Surrogates get no special treatment.
void AppendUtf8(std::string& out, std::uint32_t point) {
  const auto append = [&out](std::uint32_t byte) {
    out += static_cast<char>(static_cast<std::uint8_t>(byte));
  };
  const auto appendTail = [&](std::uint32_t shift) { append(0x80U | ((point >> shift) & 0x3FU)); };
  if (point == 0) return;
  if (point < 0x80) {
    append(point);
  } else if (point < 0x800) {
    append(0xC0U | (point >> 6U));
    appendTail(0);
  } else if (point < 0x10000) {
    append(0xE0U | (point >> 12U));
    appendTail(6);
    appendTail(0);
  } else {
    append(0xF0U | ((point >> 18U) & 0x07U));
    appendTail(12);
    appendTail(6);
    appendTail(0);
  }
}

/// Whether an escape stands at `i`, with all of its seven characters.
bool EscapeAt(std::string_view text, std::size_t i) {
  return text[i] == '\\' && i + 6 < text.size() && text[i + 1] == 'U' && text[i + 2] == '+';
}

void AppendEscape(std::string& out, std::string_view text, std::size_t i) {
  AppendUtf8(out, support::HexToU32(text.substr(i + 3, 4)));
}

/// How many bytes the plain converter steps over behind `lead`, whatever they hold.
std::size_t BytesBehind(std::uint8_t lead) {
  if (lead < 0x80) return 0;
  if (lead <= 0xDF) return 1;
  if (lead <= 0xEF) return 2;
  return lead <= 0xF7 ? 3 : 0;
}

/// Takes one UTF-8 sequence off `text` from `i` on, by a look at its first byte alone. Bytes that are missing
/// at the end count as 0.
std::uint32_t TakeSequence(std::string_view text, std::size_t& i) {
  const std::uint8_t lead = ByteAt(text, i++);
  std::size_t tails = 3;
  std::uint32_t point = lead & 0x07U;
  if ((lead & 0xE0U) == 0xC0U) {
    tails = 1;
    point = lead & 0x1FU;
  } else if ((lead & 0xF0U) == 0xE0U) {
    tails = 2;
    point = lead & 0x0FU;
  }
  for (; tails > 0; --tails) {
    const std::uint32_t tail = i < text.size() ? ByteAt(text, i++) & 0x3FU : 0U;
    point = (point << 6U) | tail;
  }
  return point;
}

/// `\U+` and the code point in four or more upper-case hexadecimal digits.
void AppendAsEscape(std::string& out, std::uint32_t point) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string digits;
  for (std::uint32_t rest = point; rest != 0; rest >>= 4U)
    digits.insert(digits.begin(), kDigits[rest & 0xFU]);
  if (digits.size() < 4) digits.insert(0, 4 - digits.size(), '0');
  out += "\\U+" + digits;
}

/// The walk that both tables share on the way back: `appendEncoded(out, point)` is false for a code point
/// that the page does not have.
template <typename AppendEncoded>
std::string EncodeWith(std::string_view text, AppendEncoded appendEncoded) {
  std::string out;
  std::size_t i = 0;
  while (i < text.size()) {
    if (ByteAt(text, i) < 0x80) {
      out += text[i++];
      continue;
    }
    const std::uint32_t point = TakeSequence(text, i);
    if (!appendEncoded(out, point)) AppendAsEscape(out, point);
  }
  return out;
}

/// The walk that both tables share on the way to UTF-8: `takeHigh(out, i)` decodes what begins at a byte from
/// 0x80 up and leaves `i` behind it.
template <typename TakeHigh>
std::string DecodeWith(std::string_view text, TakeHigh takeHigh) {
  std::string out;
  out.reserve(text.size());
  std::size_t i = 0;
  while (i < text.size()) {
    if (ByteAt(text, i) >= 0x80) {
      takeHigh(out, i);
    } else if (EscapeAt(text, i)) {
      AppendEscape(out, text, i);
      i += kEscapeLength;
    } else {
      out += text[i++];
    }
  }
  return out;
}

}  // namespace

DXF_Converter::~DXF_Converter() = default;

std::string DXF_Converter::fromUtf8(std::string text) const { return text; }

std::string DXF_Converter::toUtf8(std::string text) const {
  if (text.find("\\U+") == std::string::npos) return text;
  const std::string_view bytes = text;
  std::string out;
  out.reserve(bytes.size());
  std::size_t flushed = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (EscapeAt(bytes, i)) {
      out += bytes.substr(flushed, i - flushed);
      AppendEscape(out, bytes, i);
      i += kEscapeLength - 1;
      flushed = i + 1;
    } else {
      // Kept: a byte out of place steps like a lead byte, and so can hide the backslash of an escape.
      i += BytesBehind(ByteAt(bytes, i));
    }
  }
  out += bytes.substr(flushed);
  return out;
}

DXF_ConvTable::DXF_ConvTable(const codepages::SingleByteTable& page) {
  table = page.data();
  cpLength = static_cast<std::int32_t>(page.size());
}

std::string DXF_ConvTable::fromUtf8(std::string text) const {
  const std::span points(table, static_cast<std::size_t>(cpLength));
  return EncodeWith(text, [points](std::string& out, std::uint32_t point) {
    const auto hit = std::find(points.begin(), points.end(), point);
    if (hit == points.end()) return false;
    out += static_cast<char>(static_cast<std::uint8_t>(0x80 + (hit - points.begin())));
    return true;
  });
}

std::string DXF_ConvTable::toUtf8(std::string text) const {
  return DecodeWith(text, [this, &text](std::string& out, std::size_t& i) {
    AppendUtf8(out, table[ByteAt(text, i++) - 0x80]);
  });
}

DXF_ConvDBCSTable::DXF_ConvDBCSTable(const codepages::DoubleByteTable& page)
    : leadTable(page.leadTable.data()), doubleTable(page.pairs.data()) {
  cpLength = static_cast<std::int32_t>(page.pairs.size());
}

std::string DXF_ConvDBCSTable::fromUtf8(std::string text) const {
  const std::span pairs(doubleTable, static_cast<std::size_t>(cpLength));
  return EncodeWith(text, [pairs](std::string& out, std::uint32_t point) {
    const auto hit = std::find_if(pairs.begin(), pairs.end(), [point](const codepages::DoubleBytePair& pair) {
      return pair.point == point;
    });
    if (hit == pairs.end()) return false;
    out += static_cast<char>(static_cast<std::uint8_t>(hit->code >> 8U));
    out += static_cast<char>(static_cast<std::uint8_t>(hit->code));
    return true;
  });
}

std::string DXF_ConvDBCSTable::toUtf8(std::string text) const {
  const codepages::DoubleByteTable page = {std::span<const std::uint32_t, 128>(leadTable, 128),
                                           std::span(doubleTable, static_cast<std::size_t>(cpLength))};
  return DecodeWith(text, [&page, &text](std::string& out, std::size_t& i) {
    const std::uint8_t lead = ByteAt(text, i++);
    if (lead == 0x80) {
      out += "\xE2\x82\xAC";
      return;
    }
    // A lead byte at the very end has no trail; none of the pairs has the trail 0.
    const std::uint8_t trail = i < text.size() ? ByteAt(text, i++) : std::uint8_t{0};
    const std::uint32_t point = codepages::CodePointOf(page, lead, trail);
    if (point == 0) {
      out += '?';
    } else {
      AppendUtf8(out, point);
    }
  });
}
