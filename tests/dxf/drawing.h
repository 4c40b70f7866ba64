#ifndef DRAWLOAD_TESTS_DXF_DRAWING_H
#define DRAWLOAD_TESTS_DXF_DRAWING_H

#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>
#include <unistd.h>

#include "dxf/dxf_rw.h"
#include "recording/recording_sink.h"

/// A drawing as text. The sections are written in short: "|" stands for the end of a line, so that
/// "8|walls|62|1" are two tags.
struct Drawing {
  std::string header;
  std::string tables;
  std::string blocks;
  std::string entities;
  std::string objects;
};

inline std::string Lines(std::string_view tags) {
  if (tags.empty()) return {};
  std::string lines(tags);
  for (char& c : lines) {
    if (c == '|') c = '\n';
  }
  return lines + "\n";
}

/// A table of the TABLES section: each entry begins with its name.
inline std::string Table(const std::string& kind, const std::vector<std::string>& entries) {
  std::string table = "0|TABLE|2|" + kind + "|";
  for (const std::string& entry : entries) table += "0|" + kind + "|2|" + entry + "|";
  return table + "0|ENDTAB|";
}

/// A block with its base point at the origin, or where `baseTags` puts it. Its entities begin with a handle,
/// as the tag that follows the name of a block's first entity is not read.
inline std::string Block(const std::string& name, const std::string& entities,
                         const std::string& baseTags = "") {
  return "0|BLOCK|2|" + name + "|" + baseTags + entities + "0|ENDBLK|";
}

inline std::string Section(const std::string& name, std::string tags) {
  while (tags.ends_with('|')) tags.pop_back();
  return "0\nSECTION\n2\n" + name + "\n" + Lines(tags) + "0\nENDSEC\n";
}

inline std::string TextOf(const Drawing& drawing) {
  return Section("HEADER", drawing.header) + Section("TABLES", drawing.tables) +
         Section("BLOCKS", drawing.blocks) + Section("ENTITIES", drawing.entities) +
         Section("OBJECTS", drawing.objects) + "0\nEOF\n";
}

/// A file that lives as long as the object.
class TemporaryFile {
 public:
  TemporaryFile(const std::string& extension, const std::string& contents) {
    static int count = 0;
    path = testing::TempDir() + "drawload_" + std::to_string(getpid()) + "_" + std::to_string(++count) + "." +
           extension;
    std::ofstream(path, std::ios::binary) << contents;
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() { unlink(path.c_str()); }

  std::string path;
};

/// Reads the drawing into `sink`.
inline void ReadInto(RecordingSink& sink, const Drawing& drawing) {
  const TemporaryFile file("dxf", TextOf(drawing));
  DXF_RW reader;
  reader.sink = &sink;
  EXPECT_TRUE(reader.Read(file.path, 0));
}

/// The one entity of its class that the drawing yields.
template <typename Entity>
std::shared_ptr<const Entity> ReadOne(const Drawing& drawing) {
  RecordingSink sink;
  ReadInto(sink, drawing);
  const auto found = sink.All<Entity>();
  EXPECT_EQ(found.size(), 1u);
  return found.empty() ? std::make_shared<const Entity>() : found.front();
}

/// The same for a drawing of entities alone.
template <typename Entity>
std::shared_ptr<const Entity> ReadOne(const std::string& entities) {
  Drawing drawing;
  drawing.entities = entities;
  return ReadOne<Entity>(drawing);
}

#endif
