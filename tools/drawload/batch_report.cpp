#include "batch_report.h"

#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>

#include "output_file.h"

namespace {

using Json = nlohmann::ordered_json;

constexpr int kReportSchema = 1;

/// JSON texts are UTF-8, file names are any bytes. Latin-1 maps every byte to one character and back, so that
/// a name that is not UTF-8 survives; names that are UTF-8 stand as they are.
struct JsonName {
  std::string text;
  bool isLatin1;
};

bool IsUtf8(const std::string& bytes) {
  try {
    Json(bytes).dump();
    return true;
  } catch (const Json::exception&) {
    return false;
  }
}

JsonName ToJsonName(const std::string& bytes) {
  if (IsUtf8(bytes)) return {bytes, false};
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80) {
      text += c;
    } else {
      text += static_cast<char>(0xC0 | byte >> 6);
      text += static_cast<char>(0x80 | (byte & 0x3F));
    }
  }
  return {text, true};
}

std::string FromLatin1(const std::string& text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto lead = static_cast<unsigned char>(text[i]);
    if (lead < 0x80 || i + 1 == text.size()) {
      bytes += text[i];
    } else {
      bytes += static_cast<char>((lead & 0x03) << 6 | (static_cast<unsigned char>(text[++i]) & 0x3F));
    }
  }
  return bytes;
}

Json RowJson(const BatchRow& row) {
  const JsonName input = ToJsonName(row.input);
  const JsonName output = ToJsonName(row.output);
  Json json = {{"input", input.text},
               {"output", output.text},
               {"status", NameOf(row.outcome.status)},
               {"results", row.outcome.results},
               {"seconds", row.outcome.seconds},
               {"peakKilobytes", row.outcome.peakKilobytes},
               {"message", ToJsonName(row.outcome.message).text}};
  if (input.isLatin1) json["inputIsLatin1"] = true;
  if (output.isLatin1) json["outputIsLatin1"] = true;
  return json;
}

BatchRow RowFrom(const Json& json) {
  BatchRow row;
  row.input = json.at("input").get<std::string>();
  row.output = json.at("output").get<std::string>();
  if (json.value("inputIsLatin1", false)) row.input = FromLatin1(row.input);
  if (json.value("outputIsLatin1", false)) row.output = FromLatin1(row.output);
  row.outcome.status = StatusNamed(json.at("status").get<std::string>()).value_or(FileStatus::kFailed);
  row.outcome.results = json.at("results").get<std::size_t>();
  row.outcome.seconds = json.at("seconds").get<double>();
  row.outcome.peakKilobytes = json.at("peakKilobytes").get<long>();
  row.outcome.message = json.at("message").get<std::string>();
  return row;
}

/// A field of a CSV row (RFC 4180): quoted where it holds a comma, a quote or a line end.
std::string CsvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + "\"";
}

std::string Csv(const std::vector<BatchRow>& rows) {
  std::string text = "input,output,status,results,seconds,peakKilobytes,message\r\n";
  for (const BatchRow& row : rows) {
    char seconds[32];
    std::snprintf(seconds, sizeof seconds, "%.3f", row.outcome.seconds);
    text += CsvField(row.input) + "," + CsvField(row.output) + "," + NameOf(row.outcome.status) + "," +
            std::to_string(row.outcome.results) + "," + seconds + "," +
            std::to_string(row.outcome.peakKilobytes) + "," + CsvField(row.outcome.message) + "\r\n";
  }
  return text;
}

}  // namespace

void WriteReport(const std::string& folder, const std::vector<BatchRow>& rows) {
  Json files = Json::array();
  for (const BatchRow& row : rows) files.push_back(RowJson(row));
  const Json report = {{"schema", kReportSchema}, {"files", std::move(files)}};
  WriteOutputFile(folder + "/report.json", report.dump(2) + "\n", true);
  WriteOutputFile(folder + "/report.csv", Csv(rows), true);
}

std::map<std::string, BatchRow> ReadReport(const std::string& folder) {
  std::map<std::string, BatchRow> rows;
  std::ifstream file(folder + "/report.json");
  try {
    const Json report = Json::parse(file);
    for (const Json& json : report.at("files")) {
      BatchRow row = RowFrom(json);
      rows.emplace(row.input, row);
    }
  } catch (const Json::exception&) {
    rows.clear();
  }
  return rows;
}
