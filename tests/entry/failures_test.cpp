// What escapes a reader: the dispatch below stands in for the library's, and every path names a failure.
#include <gtest/gtest.h>
#include <new>
#include <stdexcept>
#include <string>

#include "drawload/exports.h"
#include "entity/hatch.h"
#include "entry/file_dispatch.h"
#include "sink/my_draw_load.h"

namespace {

void AddLine(CMyDrawLoad& sink) {
  Entity_ZR::ZR_Line line;
  sink.AddLine(&line, 0);
}

/// A hatch whose only edge holds another shape than its kind says.
void AddBrokenHatch(CMyDrawLoad& sink) {
  Entity_ZR::ZR_Hatch hatch;
  hatch.edges.push_back({Entity_ZR::kArcEdge, Entity_ZR::ZR_Line()});
  sink.AddHatch(&hatch, 0);
}

int CountResults() {
  CFileDraw* object = nullptr;
  int count = 0;
  for (int found = GetFirstData_Z7(&object); found == 1; found = GetNextData_Z7(&object)) ++count;
  return count;
}

}  // namespace

bool DispatchFile(CMyDrawLoad& sink, const std::string& path) {
  if (path.find("line") != std::string::npos) AddLine(sink);
  if (path.find("range") != std::string::npos) return path.at(1000) == 'x';
  if (path.find("memory") != std::string::npos) throw std::bad_alloc();
  if (path.find("text") != std::string::npos) throw "a text that is thrown";
  if (path.find("number") != std::string::npos) throw 42;
  if (path.find("hatch") != std::string::npos) AddBrokenHatch(sink);
  return true;
}

TEST(Failures, OfAReaderStayInside) {
  for (const char* path : {"range", "memory", "text", "number", "hatch"}) {
    EXPECT_EQ(DrawLoad_Z7(path), 0) << path;
  }
}

TEST(Failures, LeaveTheResultsSoFar) {
  for (const char* path : {"line, range", "line, memory", "line, text", "line, number", "line, hatch"}) {
    EXPECT_EQ(DrawLoad_Z7(path), 1) << path;
    EXPECT_EQ(CountResults(), 1) << path;
  }
}

TEST(Failures, ThrowEarlierResultsAwayLikeAnyLoad) {
  ASSERT_EQ(DrawLoad_Z7("line"), 1);
  EXPECT_EQ(DrawLoad_Z7("range"), 0);
  EXPECT_EQ(CountResults(), 0);
}
