#ifndef DRAWLOAD_RESULT_RESULT_STORE_H
#define DRAWLOAD_RESULT_RESULT_STORE_H

#include <vector>

#include "drawload/file_curve.h"
#include "drawload/file_dib.h"
#include "drawload/file_group.h"
#include "support/arena.h"

namespace drawload {

/// The memory of one parse's results. All that it makes lies one behind the other in large chunks, in the
/// order of the drawing, lives as long as the store, and is freed with it at once; nobody deletes any of it.
class ResultStore {
 public:
  ResultStore() = default;
  ResultStore(const ResultStore&) = delete;
  ResultStore& operator=(const ResultStore&) = delete;
  ~ResultStore();

  /// A curve without segments.
  CFileCurve* NewCurve();
  /// A bitmap without pixels. What its two pointers hold in the end is freed with the store.
  CFileDib* NewDib();
  /// A group without members.
  CFileGroup* NewGroup();
  /// The sentinel of an empty list of objects, linked to itself.
  FileMember* NewList();

  /// Take back an object that is in no list and whose content nobody needs, to hand it out again as a new
  /// one.
  void Recycle(CFileCurve* curve) noexcept;
  void Recycle(CFileGroup* group) noexcept;

  /// Appends a straight segment to `curve`.
  void AppendLine(CFileCurve& curve, FilePosition from, FilePosition to);
  /// Appends a cubic Bezier segment to `curve`.
  void AppendCubic(CFileCurve& curve, FilePosition from, FilePosition control1, FilePosition control2,
                   FilePosition to);

  /// Appends `object` behind the last node of the list of `head`.
  void Append(FileMember* head, CFileDraw* object);
  /// Appends `object` as the last member of `group`.
  void Append(CFileGroup& group, CFileDraw* object);

 private:
  FileSegment& AppendSegment(CFileCurve& curve, FileSegmentType type);

  support::Arena objects{support::MemoryUse::kResults};
  support::Arena nodes{
      support::MemoryUse::kResults};  ///< of lists, by themselves: a walk passes over little memory
  std::vector<CFileDib*> dibs;
  CFileCurve* spareCurve = nullptr;
  std::vector<CFileGroup*> spareGroups;  ///< has room for all groups
  std::size_t groupCount = 0;
};

}  // namespace drawload

using drawload::ResultStore;

#endif
