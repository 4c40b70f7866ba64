#ifndef DRAWLOAD_TESTS_SVG_SVG_DRAWING_H
#define DRAWLOAD_TESTS_SVG_SVG_DRAWING_H

#include <atomic>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>
#include <unistd.h>

#include "recording/recording_sink.h"
#include "support/account.h"
#include "svg/merged_attributes.h"
#include "svg/svg_interface.h"
#include "svg/svg_rw.h"

/// A file of its own for as long as the object lives.
class TemporarySvg {
 public:
  explicit TemporarySvg(std::string_view text) : path(NextPath()) {
    std::ofstream file(path, std::ios::binary);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
  }
  TemporarySvg(const TemporarySvg&) = delete;
  TemporarySvg& operator=(const TemporarySvg&) = delete;
  ~TemporarySvg() { std::remove(path.c_str()); }

  const std::string path;

 private:
  static std::string NextPath() {
    static std::atomic<int> count = 0;
    return testing::TempDir() + "drawload_" + std::to_string(getpid()) + "_" + std::to_string(count++) +
           ".svg";
  }
};

inline std::string Repeated(std::string_view text, std::size_t count) {
  std::string result;
  result.reserve(text.size() * count);
  for (std::size_t i = 0; i < count; ++i) result += text;
  return result;
}

/// The account of a read of `text` that may still do `units` of work.
class AccountWithWork {
 public:
  AccountWithWork(std::string_view text, std::uint64_t units) {
    account.AllowForFile(text.size());
    account.Spend(support::Allowance::Of(text.size()).work - units);
  }

  support::Account account;
  const support::AccountScope scope{account};
};

/// The account of a read of `text` that may still hold `bytes` of working memory.
class AccountWithMemory {
 public:
  AccountWithMemory(std::string_view text, std::uint64_t bytes) {
    account.AllowForFile(text.size());
    rest = support::HeldElsewhere(support::Allowance::Of(text.size()).working - bytes);
  }

  support::Account account;
  const support::AccountScope scope{account};

 private:
  support::HeldElsewhere rest;
};

/// What the reader makes of a document.
class SvgDrawing {
 public:
  explicit SvgDrawing(std::string_view text, bool answer = true) {
    const TemporarySvg file(text);
    SVG_RW reader;
    reader.sink = &sink;
    sink.answer = answer;
    isRead = reader.Read(file.path, 0);
  }

  std::vector<std::string> Names() const { return sink.Names(); }
  template <typename Entity>
  std::vector<std::shared_ptr<const Entity>> All() const {
    return sink.All<Entity>();
  }
  /// The only entity of its class.
  template <typename Entity>
  Entity Only() const {
    const auto found = All<Entity>();
    EXPECT_EQ(found.size(), 1U);
    return found.empty() ? Entity() : *found.front();
  }
  std::size_t Count(std::string_view name) const {
    std::size_t count = 0;
    for (const RecordedCall& call : sink.calls) count += call.name == name ? 1 : 0;
    return count;
  }

  RecordingSink sink;
  bool isRead = false;
};

/// The pairs that reach the sink as parameters.
inline Entity_ZR::AttributePairs ParametersOf(const Entity_ZR::ZR_Entity& entity) {
  for (const Entity_ZR::Attribute& attribute : entity.attributes) {
    if (attribute.tag == 7) return attribute.pairs;
  }
  return {};
}

inline std::string ParameterOf(const Entity_ZR::ZR_Entity& entity, std::string_view key) {
  for (const auto& [name, value] : ParametersOf(entity)) {
    if (name == key) return value;
  }
  return "(none)";
}

/// A loaded document, without a walk over it.
class LoadedSvg {
 public:
  explicit LoadedSvg(std::string_view text) {
    const TemporarySvg file(text);
    document = std::make_unique<Svg::SVG_Interface>(file.path);
  }

  /// The first record of this name.
  const Svg::SVG_Element& Find(std::string_view elementName) const {
    for (const Svg::SVG_Element* const record : document->elements) {
      if (record->elementName() == elementName) return *record;
    }
    ADD_FAILURE() << "no record " << elementName;
    static const Svg::SVG_Element none;
    return none;
  }
  const Svg::SVG_Element& FindId(std::string_view id) const {
    for (const Svg::SVG_Element* const record : document->elements) {
      if (record->id == id) return *record;
    }
    ADD_FAILURE() << "no record with id " << id;
    static const Svg::SVG_Element none;
    return none;
  }
  /// The merged attribute `key` of `record` as it stands; "(none)" where it has none.
  std::string Merged(const Svg::SVG_Element& record, std::string_view key) const {
    Svg::MergedAttributes merged(document->store);
    merged.Load(record);
    const Svg::AttributeEntry* const entry = merged.Find(document->store.KeyOf(key));
    return entry == nullptr ? "(none)" : std::string(entry->Value());
  }
  std::string Field(const Svg::SVG_Element& record, Svg::KnownKey key) const {
    Svg::MergedAttributes merged(document->store);
    merged.Load(record);
    return std::string(merged.Field(key));
  }

  std::unique_ptr<Svg::SVG_Interface> document;
};

#endif
