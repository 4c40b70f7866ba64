#include "dxf/dxf_text_decoder.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr std::string_view kLatin = "ANSI_1252";
constexpr std::string_view kUtf8 = "UTF-8";

struct AcceptedName {
  std::string_view name;
  std::string_view canonical;
};

/// In the order of the look-up. Kept: a name is turned to capitals before it is compared, so the four in
/// small letters never match and stay on "ANSI_1252".
constexpr AcceptedName kAcceptedNames[] = {
    {"ANSI_874", "ANSI_874"},
    {"CP874", "ANSI_874"},
    {"ISO8859-11", "ANSI_874"},
    {"TIS-620", "ANSI_874"},
    {"ANSI_1250", "ANSI_1250"},
    {"CP1250", "ANSI_1250"},
    {"ISO8859-2", "ANSI_1250"},
    {"ANSI_1251", "ANSI_1251"},
    {"CP1251", "ANSI_1251"},
    {"ISO8859-5", "ANSI_1251"},
    {"KOI8-R", "ANSI_1251"},
    {"KOI8-U", "ANSI_1251"},
    {"IBM 866", "ANSI_1251"},
    {"ANSI_1252", "ANSI_1252"},
    {"CP1252", "ANSI_1252"},
    {"LATIN1", "ANSI_1252"},
    {"ISO-8859-1", "ANSI_1252"},
    {"CP819", "ANSI_1252"},
    {"CSISO", "ANSI_1252"},
    {"IBM819", "ANSI_1252"},
    {"ISO_8859-1", "ANSI_1252"},
    {"APPLE ROMAN", "ANSI_1252"},
    {"ISO8859-1", "ANSI_1252"},
    {"ISO8859-15", "ANSI_1252"},
    {"ISO-IR-100", "ANSI_1252"},
    {"L1", "ANSI_1252"},
    {"IBM 850", "ANSI_1252"},
    {"ANSI_1253", "ANSI_1253"},
    {"CP1253", "ANSI_1253"},
    {"iso8859-7", "ANSI_1253"},
    {"ANSI_1254", "ANSI_1254"},
    {"CP1254", "ANSI_1254"},
    {"iso8859-9", "ANSI_1254"},
    {"iso8859-3", "ANSI_1254"},
    {"ANSI_1255", "ANSI_1255"},
    {"CP1255", "ANSI_1255"},
    {"iso8859-8", "ANSI_1255"},
    {"ANSI_1256", "ANSI_1256"},
    {"CP1256", "ANSI_1256"},
    {"ISO8859-6", "ANSI_1256"},
    {"ANSI_1257", "ANSI_1257"},
    {"CP1257", "ANSI_1257"},
    {"ISO8859-4", "ANSI_1257"},
    {"ISO8859-10", "ANSI_1257"},
    {"ISO8859-13", "ANSI_1257"},
    {"ANSI_1258", "ANSI_1258"},
    {"CP1258", "ANSI_1258"},
    {"ANSI_932", "ANSI_932"},
    {"SHIFT-JIS", "ANSI_932"},
    {"SHIFT_JIS", "ANSI_932"},
    {"CSSHIFTJIS", "ANSI_932"},
    {"CSWINDOWS31J", "ANSI_932"},
    {"MS_KANJI", "ANSI_932"},
    {"X-MS-CP932", "ANSI_932"},
    {"X-SJIS", "ANSI_932"},
    {"EUCJP", "ANSI_932"},
    {"EUC-JP", "ANSI_932"},
    {"CSEUCPKDFMTJAPANESE", "ANSI_932"},
    {"X-EUC", "ANSI_932"},
    {"X-EUC-JP", "ANSI_932"},
    {"JIS7", "ANSI_932"},
    {"ANSI_936", "ANSI_936"},
    {"GBK", "ANSI_936"},
    {"GB2312", "ANSI_936"},
    {"CHINESE", "ANSI_936"},
    {"CN-GB", "ANSI_936"},
    {"CSGB2312", "ANSI_936"},
    {"CSGB231280", "ANSI_936"},
    {"CSISO58BG231280", "ANSI_936"},
    {"GB_2312-80", "ANSI_936"},
    {"GB231280", "ANSI_936"},
    {"GB2312-80", "ANSI_936"},
    {"ISO-IR-58", "ANSI_936"},
    {"GB18030", "ANSI_936"},
    {"ANSI_949", "ANSI_949"},
    {"EUCKR", "ANSI_949"},
    {"ANSI_950", "ANSI_950"},
    {"BIG5", "ANSI_950"},
    {"CN-BIG5", "ANSI_950"},
    {"CSBIG5", "ANSI_950"},
    {"X-X-BIG5", "ANSI_950"},
    {"BIG5-HKSCS", "ANSI_950"},
    {"UTF-8", "UTF-8"},
    {"UTF8", "UTF-8"},
    {"UTF8-BIT", "UTF-8"},
    {"UTF-16", "UTF-16"},
    {"UTF16", "UTF-16"},
    {"UTF16-BIT", "UTF-16"},
};

std::string InCapitals(std::string_view name) {
  std::string capitals(name);
  for (char& c : capitals) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return capitals;
}

/// The page of a canonical name; that of "ANSI_1252" where we have none, as for Japanese and Korean.
const codepages::SingleByteTable& SingleBytePage(std::string_view canonical) {
  if (canonical == "ANSI_874") return codepages::kCodePage874;
  if (canonical == "ANSI_1250") return codepages::kCodePage1250;
  if (canonical == "ANSI_1251") return codepages::kCodePage1251;
  if (canonical == "ANSI_1253") return codepages::kCodePage1253;
  if (canonical == "ANSI_1254") return codepages::kCodePage1254;
  if (canonical == "ANSI_1255") return codepages::kCodePage1255;
  if (canonical == "ANSI_1256") return codepages::kCodePage1256;
  if (canonical == "ANSI_1257") return codepages::kCodePage1257;
  if (canonical == "ANSI_1258") return codepages::kCodePage1258;
  return codepages::kCodePage1252;
}

}  // namespace

std::string_view CanonicalCodePage(std::string_view name) {
  const std::string capitals = InCapitals(name);
  const auto* const row =
      std::find_if(std::begin(kAcceptedNames), std::end(kAcceptedNames),
                   [&](const AcceptedName& accepted) { return accepted.name == capitals; });
  return row == std::end(kAcceptedNames) ? kLatin : row->canonical;
}

DXF_TextDecoder::DXF_TextDecoder() : converter(std::make_unique<DXF_Converter>()) {}

void DXF_TextDecoder::setVersion(std::string_view acadVersion) {
  const bool classTwo = acadVersion == "AC1009" || acadVersion == "AC1006";
  const bool classFive = acadVersion == "AC1012" || acadVersion == "AC1014" || acadVersion == "AC1015" ||
                         acadVersion == "AC1018";
  if (classTwo || classFive) {
    versionClass = classTwo ? 2 : 5;
    setCodePage(kLatin);
  }
  // Kept: whatever the version, the class is 7 afterwards, so a file's version selects no decoding.
  versionClass = 7;
  setCodePage(kUtf8);
}

void DXF_TextDecoder::setCodePage(std::string_view name) {
  encodingName = CanonicalCodePage(name);
  const bool old = versionClass == 2 || versionClass == 5;
  converter = old ? converterOfOldVersion() : std::make_unique<DXF_Converter>();
}

std::unique_ptr<DXF_Converter> DXF_TextDecoder::converterOfOldVersion() {
  if (encodingName == kUtf8) {
    encodingName = kLatin;
    return std::make_unique<DXF_Converter>();
  }
  if (encodingName == "ANSI_936") return std::make_unique<DXF_ConvDBCSTable>(codepages::kCodePage936);
  if (encodingName == "ANSI_950") return std::make_unique<DXF_ConvDBCSTable>(codepages::kCodePage950);
  return std::make_unique<DXF_ConvTable>(SingleBytePage(encodingName));
}
