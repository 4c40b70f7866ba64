// The guard of the campaigns sees what it is there for.
#include "faults/child.h"

#include <csignal>
#include <cstdlib>
#include <gmock/gmock.h>
#include <stdexcept>
#include <vector>

using testing::AnyOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST(AChild, ThatEndsWellIsFoundWell) {
  EXPECT_THAT(RunInChild([] { return std::string(); }), IsEmpty());
}

TEST(AChild, TellsWhatItFoundWrong) {
  EXPECT_EQ(RunInChild([] { return std::string("two and two are five"); }), "two and two are five");
}

TEST(AChild, ThatCrashesIsNoticed) {
  EXPECT_THAT(RunInChild([]() -> std::string {
                std::raise(SIGKILL);
                return {};
              }),
              StartsWith("ended by signal"));
}

TEST(AChild, ThatRunsOnIsEnded) {
  ChildLimits limits;
  limits.cpuSeconds = 1;
  const auto runOn = []() -> std::string {
    for (volatile bool forever = true; forever;) {
    }
    return {};
  };
  EXPECT_THAT(RunInChild(runOn, limits), StartsWith("ended by signal"));
}

TEST(AChild, ThatThrowsIsNoticed) {
  EXPECT_EQ(RunInChild([]() -> std::string { throw std::runtime_error("no"); }), "threw an exception");
}

#if defined(__SANITIZE_ADDRESS__)
TEST(AChild, ThatLeaksIsNoticed) {
  EXPECT_EQ(RunInChild([]() -> std::string {
              for (int i = 0; i < 100; ++i) {
                void* volatile lost = std::malloc(100);
                if (lost == nullptr) return "no memory";
                lost = nullptr;
              }
              return {};
            }),
            "leaked");
}
#else
TEST(AChild, ThatTakesTooMuchMemoryIsNoticedEvenWhereItCatchesTheFailure) {
  EXPECT_EQ(RunInChild([]() -> std::string {
              try {
                const std::vector<char> large(std::size_t{600} << 20);
              } catch (const std::bad_alloc&) {
              }
              return {};
            }),
            "ran out of memory");
}
#endif
