#ifndef DRAWLOAD_DXF_DXF_OPEN_FILE_H
#define DRAWLOAD_DXF_DXF_OPEN_FILE_H

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "dxf/dxf_interface.h"
#include "dxf/dxf_reader.h"
#include "support/account.h"

/// Walks one file from top to bottom in a single pass and hands the finished records to a receiver: one loop
/// for the file, one walker per section and table, one reader per kind of record. Nothing in a file makes it
/// fail.
class DXF_OpenFile {
 public:
  explicit DXF_OpenFile(std::string filePath);
  DXF_OpenFile(const DXF_OpenFile&) = delete;
  DXF_OpenFile& operator=(const DXF_OpenFile&) = delete;
  ~DXF_OpenFile();

  /// True when the file could be opened. False at once without a receiver.
  bool run(DXF_Interface* target);

  std::string path;
  std::string entityName;             ///< of the last group 0 that the entity walker saw; dispatched next
  bool applyExtrusion = false;        ///< true from the start of the read on
  std::unique_ptr<dxfReader> reader;  ///< live for the pass
  DXF_Interface* receiver = nullptr;  ///< not owned

 private:
  using EntityReader = bool (DXF_OpenFile::*)();
  static EntityReader entityReaderOf(std::string_view name);

  /// Runs `read` as an item. If the account refuses it, runs `skip`, unless the name of the next item has
  /// been read already. Returns what they return.
  template <typename Read, typename Skip>
  bool readItem(Read read, Skip skip) {
    bool goesOn = false;
    nameIsRead = false;
    if (support::RunItem([&] { goesOn = read(); })) return goesOn;
    return nameIsRead || skip();
  }

  // A walker that returns false ends the walk of the file.
  void walkFile();
  bool walkSection(const std::string& name);
  bool walkHeader();
  bool walkTables();
  void walkTable(const std::string& name);
  bool walkBlocks();
  bool walkEntities(bool inBlock);
  bool walkObjects();

  /// One reader for all tables. `add` gets the entry at the group 0 behind it.
  template <typename Record>
  void readTable(std::string_view entry, void (DXF_Interface::*add)(const Record&));
  void readBlock();
  /// Skips to the next group 0 and keeps its name as `entityName`. False where the file ends before.
  bool skipEntity();
  /// One reader for all kinds of entities. False where the file ends within the entity: it is not stored.
  template <typename Record, void (DXF_Interface::*add)(Record&&)>
  bool readEntity();
  bool readInsert();
  bool readPolyline();
  bool readVertices(DXF_Polyline& polyline);
  bool readViewport();
  /// Reads the object of that name, or skips one of another kind, up to the next group 0.
  bool readObject(std::string& name);
  /// Skips to the next group 0, whose name becomes `name`. False where the file ends before.
  bool skipObject(std::string& name);
  template <typename Record, typename Add>
  bool readObjectAs(std::string& name, Add add);

  /// Takes tags into the record up to the next group 0, whose name becomes `nextName`. False where the file
  /// ends before.
  template <typename Record>
  bool readGroups(Record& record, std::string& nextName) {
    std::int32_t code = 0;
    nameIsRead = false;
    while (reader->nextGroup(code)) {
      if (code == 0) {
        nextName = reader->text();
        nameIsRead = true;
        return true;
      }
      record.parseGroup(code, *reader);
    }
    return false;
  }

  bool nameIsRead = false;  ///< of what follows the item being read
};

#endif
