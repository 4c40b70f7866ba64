#ifndef DRAWLOAD_RESULT_MEMBER_LIST_H
#define DRAWLOAD_RESULT_MEMBER_LIST_H

#include "drawload/file_group.h"

/// Moves all nodes of `from`, in order, behind the last node of `to`. `from` is empty afterwards.
void SpliceMembers(FileMember* from, FileMember* to);

#endif
