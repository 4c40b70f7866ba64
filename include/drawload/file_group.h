#ifndef DRAWLOAD_FILE_GROUP_H
#define DRAWLOAD_FILE_GROUP_H

#include "file_draw.h"
#include "platform/string_class.h"

/// Node of a circular doubly linked list of result objects.
struct FileMember {
  CFileDraw* object;
  FileMember* previous;
  FileMember* next;
};

namespace drawload {
class ResultStore;
}

/// A list of result objects that are transformed together. The walk never hands one out. Copies are
/// shallow and share the members, so only one of the copies may be destroyed.
///
/// A group owns its members and frees them by their `kind`: every node, every member and every segment of a
/// member curve is made with plain `new`, each on its own. A member is never an object from the walk.
class DRAWLOAD_API CFileGroup : public CFileDraw {
 public:
  CFileGroup();
  CFileGroup(const CFileGroup& other);
  CFileGroup& operator=(const CFileGroup& other);
  /// Frees every node, every member and all that members own.
  ~CFileGroup();

  void TransMove(double dx, double dy) override;
  void TransRotate(double cx, double cy, double angle) override;
  void TransMirrorX(double x) override;
  void TransMirrorY(double y) override;
  void TransDrag(double cx, double cy, double sx, double sy) override;
  /// Bounds of all members; an empty group returns `rect` as it stands.
  structRect CalRect() override;

  FileMember* memberHead;    ///< sentinel
  FileMember* memberCursor;  ///< iteration position, moved by the operations above
  std::int32_t memberCount;
  drawload::StringClass name;
  alignas(8) std::uint64_t trailingValue;

 private:
  friend class drawload::ResultStore;
  /// An empty group around a sentinel that somebody else owns.
  explicit CFileGroup(FileMember* sentinel);
};

#endif
