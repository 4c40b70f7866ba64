#include "platform/profile_file.h"

#include <unordered_map>
#include <unordered_set>

#include "support/file_bytes.h"
#include "support/text_to_number.h"

namespace platform {
namespace {

constexpr std::size_t kValueBytes = 254;

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && support::IsSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && support::IsSpace(text.back())) text.remove_suffix(1);
  return text;
}

std::string LowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

std::string IndexKey(std::string_view section, std::string_view key) {
  return LowerCase(Trimmed(section)) + '\0' + LowerCase(Trimmed(key));
}

std::string_view WithoutQuotes(std::string_view value) {
  if (value.size() < 2 || value.front() != value.back()) return value;
  if (value.front() != '"' && value.front() != '\'') return value;
  return value.substr(1, value.size() - 2);
}

/// Takes the first line off `text`.
std::string_view TakeLine(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(line.size() + 1, text.size()));
  return Trimmed(line);
}

}  // namespace

class ProfileFile::Contents {
 public:
  explicit Contents(const std::string& path) {
    if (const auto file = support::FileBytes::Read(path)) Parse(file->View());
  }

  std::string Value(std::string_view section, std::string_view key) const {
    const auto found = values.find(IndexKey(section, key));
    return found == values.end() ? std::string() : found->second;
  }

 private:
  void Parse(std::string_view text);

  std::unordered_map<std::string, std::string> values;  ///< by section, NUL, key, all in lower case
};

void ProfileFile::Contents::Parse(std::string_view text) {
  // Editors put the mark of UTF-8 in front of the first line.
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  std::unordered_set<std::string> sections;
  std::string_view section;
  bool isInSection = false;
  while (!text.empty()) {
    const std::string_view line = TakeLine(text);
    if (line.starts_with(';')) continue;
    if (line.starts_with('[')) {
      section = line.substr(1, line.find(']') - 1);
      isInSection = sections.insert(LowerCase(Trimmed(section))).second;
      continue;
    }
    const std::size_t equals = line.find('=');
    if (!isInSection || equals == line.npos) continue;
    const std::string_view value = WithoutQuotes(Trimmed(line.substr(equals + 1)));
    values.try_emplace(IndexKey(section, line.substr(0, equals)), value.substr(0, kValueBytes));
  }
}

ProfileFile::ProfileFile(const std::string& path) : contents(std::make_unique<Contents>(path)) {}

ProfileFile::~ProfileFile() = default;

std::string ProfileFile::Value(std::string_view section, std::string_view key) const {
  return contents->Value(section, key);
}

}  // namespace platform
