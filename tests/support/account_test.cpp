#include "support/account.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "support/arena.h"
#include "support/counted_memory.h"
#include "support/large_block.h"

namespace {

using support::Account;
using support::AccountScope;
using support::MemoryUse;

/// An account of `held` bytes for both uses, `working` of them for working memory, and `work` units.
support::Allowance Granted(std::uint64_t held, std::uint64_t working, std::uint64_t work) {
  return {.held = held, .working = working, .work = work};
}

TEST(Account, CountsWhatNewTakesAndCreditsWhatDeleteGivesBack) {
  Account account;
  const AccountScope scope(account);
  {
    const std::vector<char> bytes(1000);
    EXPECT_EQ(account.Held(MemoryUse::kWorking), 1000u + 16);  // the C library adds 16 bytes
  }
  EXPECT_EQ(account.Held(), 0u);
}

TEST(Account, CountsTextsMapsAndObjectsOfAnyClass) {
  Account account;
  const AccountScope scope(account);
  {
    const std::string text(100, 'x');
    EXPECT_EQ(account.Held(), 100u + 1 + 16);
    const auto number = std::make_unique<std::uint64_t>(5);
    EXPECT_EQ(account.Held(), 117u + 8 + 16);
  }
  EXPECT_EQ(account.Held(), 0u);
}

TEST(Account, CountsNothingOutsideItsScope) {
  Account account;
  { const AccountScope scope(account); }
  const std::vector<char> bytes(1000);
  EXPECT_EQ(account.Held(), 0u);
  EXPECT_EQ(account.Spent(), 0u);
}

TEST(Account, FailsNewBeforeTheMemoryIsTaken) {
  Account account(Granted(2000, 1000, 1'000'000));
  const AccountScope scope(account);
  EXPECT_THROW(std::vector<char>(985), support::MemoryUsedUp);
  EXPECT_EQ(account.Held(), 0u);
  EXPECT_NO_THROW(std::vector<char>(984));
}

TEST(Account, LetsResultsUseWhatWorkingMemoryMayNot) {
  Account account(Granted(2000, 1000, 1'000'000));
  account.Hold(1000, MemoryUse::kWorking);
  EXPECT_THROW(account.Hold(1, MemoryUse::kWorking), support::MemoryUsedUp);
  account.Hold(1000, MemoryUse::kResults);
  EXPECT_THROW(account.Hold(1, MemoryUse::kResults), support::MemoryUsedUp);
  account.Release(400, MemoryUse::kWorking);
  account.Hold(400, MemoryUse::kResults);
  EXPECT_EQ(account.Held(MemoryUse::kResults), 1400u);
}

TEST(Account, CountsEveryByteTakenAsWorkAndKeepsItSpent) {
  Account account(Granted(10'000, 10'000, 3000));
  account.Hold(2000, MemoryUse::kWorking);
  account.Release(2000, MemoryUse::kWorking);
  EXPECT_EQ(account.Spent(), 2000u);
  EXPECT_THROW(account.Hold(1001, MemoryUse::kWorking), support::WorkUsedUp);
  account.Spend(1000);
  EXPECT_THROW(account.Spend(1), support::WorkUsedUp);
}

TEST(Account, DoesNotWrapAroundAtHugeRequests) {
  Account account(Granted(2000, 1000, 3000));
  account.Hold(500, MemoryUse::kWorking);
  EXPECT_THROW(account.Hold(~std::uint64_t{0}, MemoryUse::kWorking), support::MemoryUsedUp);
  EXPECT_THROW(account.Spend(~std::uint64_t{0}), support::WorkUsedUp);
}

TEST(Account, StaysAtZeroWhereMemoryFromBeforeTheReadIsFreed) {
  Account account;
  auto early = std::make_unique<std::vector<char>>(1000);
  const AccountScope scope(account);
  early.reset();
  EXPECT_EQ(account.Held(), 0u);
}

TEST(Account, GrantsMoreForEachByteOfTheFile) {
  const support::Allowance none = support::Allowance::Of(0);
  const support::Allowance megabyte = support::Allowance::Of(1 << 20);
  EXPECT_EQ(megabyte.working - none.working, 64u << 20);
  EXPECT_EQ(megabyte.work - none.work, 1024u << 20);
  EXPECT_EQ(megabyte.held, none.held);
}

TEST(Account, NeverGrantsMoreWorkingMemoryThanMemory) {
  EXPECT_EQ(support::Allowance::Of(std::uint64_t{1} << 31).working, support::Allowance::Of(0).held);
}

TEST(AccountItem, EndsWhereTheAccountRefusesAndLetsTheNextGoOn) {
  Account account(Granted(1000, 1000, 1'000'000));
  const AccountScope scope(account);
  bool wasReached = false;
  EXPECT_FALSE(support::RunItem([&] {
    const std::vector<char> tooMuch(2000);
    wasReached = true;
  }));
  EXPECT_FALSE(wasReached);
  EXPECT_TRUE(support::RunItem([] { const std::vector<char> enough(500); }));
  EXPECT_EQ(account.Cuts(), 1u);
}

TEST(AccountItem, GivesTheOutermostHalfOfTheWorkThatIsLeft) {
  Account account(Granted(1000, 1000, 1'000'000));
  const AccountScope scope(account);
  EXPECT_TRUE(support::RunItem([] { support::SpendWork(500'000); }));
  EXPECT_FALSE(support::RunItem([] { support::SpendWork(250'001); }));
  EXPECT_TRUE(support::RunItem([] { support::SpendWork(240'000); }));
}

TEST(AccountItem, EndsTheOutermostWhereAnInnerOneHasNoWorkLeft) {
  Account account(Granted(1000, 1000, 1000));
  const AccountScope scope(account);
  int innerItems = 0;
  EXPECT_FALSE(support::RunItem([&] {
    for (int i = 0; i < 10; ++i) {
      ++innerItems;
      support::RunItem([] { support::SpendWork(200); });
    }
  }));
  EXPECT_EQ(innerItems, 3);  // 200 and 200 of half of 1,000
}

TEST(AccountItem, KeepsTheOuterOneGoingWhereAnInnerOneHasNoMemory) {
  Account account(Granted(1000, 1000, 1'000'000));
  const AccountScope scope(account);
  int innerItems = 0;
  EXPECT_TRUE(support::RunItem([&] {
    for (int i = 0; i < 10; ++i) {
      ++innerItems;
      support::RunItem([] { const std::vector<char> tooMuch(2000); });
    }
  }));
  EXPECT_EQ(innerItems, 10);
  EXPECT_EQ(account.Cuts(), 10u);
}

TEST(AccountItem, EndsALoopOfRefusedItemsBecauseRefusalsAreWork) {
  Account account(Granted(1000, 1000, 1'000'000));
  const AccountScope scope(account);
  EXPECT_FALSE(support::RunItem([] {
    for (;;) support::RunItem([] { const std::vector<char> tooMuch(2000); });
  }));
}

TEST(AccountItem, RunsNothingAtAllWhereNoWorkIsLeft) {
  Account account(Granted(1000, 1000, 1'000'000));
  const AccountScope scope(account);
  account.Spend(1'000'000);
  bool wasReached = false;
  EXPECT_FALSE(support::RunItem([&] { wasReached = true; }));
  EXPECT_FALSE(wasReached);
  EXPECT_EQ(account.Cuts(), 1u);
}

TEST(AccountItem, CountsRefusalsOfOutermostItemsAsWork) {
  Account account(Granted(1000, 1000, 1'000'000));
  const AccountScope scope(account);
  for (int i = 0; i < 1000; ++i) support::RunItem([] { const std::vector<char> tooMuch(2000); });
  EXPECT_EQ(account.Spent(), 1'000'000u);
  EXPECT_EQ(account.Cuts(), 1000u);
}

TEST(AccountItem, LetsOtherFailuresThrough) {
  EXPECT_THROW(support::RunItem([] { throw std::bad_alloc(); }), std::bad_alloc);
}

TEST(LargeBlock, IsCountedAsWhatItIsFor) {
  Account account;
  const AccountScope scope(account);
  {
    const support::LargeBlock small = support::NewLargeBlock(1000, MemoryUse::kResults);
    const support::LargeBlock mapped = support::NewLargeBlock(3'000'000);
    EXPECT_EQ(account.Held(MemoryUse::kResults), 1000u);
    EXPECT_EQ(account.Held(MemoryUse::kWorking), 3'000'000u);
  }
  EXPECT_EQ(account.Held(), 0u);
}

TEST(LargeBlock, CanBeWrittenFromEndToEnd) {
  const support::LargeBlock mapped = support::NewLargeBlock(3'000'001);
  mapped[0] = 'a';
  mapped[3'000'000] = 'z';
  EXPECT_EQ(mapped[0] + mapped[3'000'000], 'a' + 'z');
}

TEST(LargeBlock, IsRefusedBeforeItIsMapped) {
  Account account(Granted(1000, 1000, 1'000'000'000'000));
  const AccountScope scope(account);
  EXPECT_THROW(support::NewLargeBlock(1001), support::MemoryUsedUp);
  EXPECT_EQ(account.Held(), 0u);
}

TEST(Arena, CountsItsChunksAndCreditsThoseFreedFromTheFront) {
  Account account;
  const AccountScope scope(account);
  support::Arena arena(MemoryUse::kResults);
  arena.Allocate(100'000);
  void* second = arena.Allocate(200'000);
  EXPECT_EQ(account.Held(MemoryUse::kResults), 100'000u + 200'000);
  arena.FreeBefore(second);
  EXPECT_EQ(account.Held(MemoryUse::kResults), 200'000u);
}

TEST(CountedMemory, CountsBlocksOfCLibrariesUntilTheyAreFreed) {
  Account account;
  const AccountScope scope(account);
  void* block = support::CountedMalloc(1000);
  EXPECT_EQ(account.Held(), 1016u);
  block = support::CountedRealloc(block, 3000);
  EXPECT_EQ(account.Held(), 3016u);
  support::CountedFree(block);
  EXPECT_EQ(account.Held(), 0u);
}

TEST(CountedMemory, KeepsABlockThatMayNotGrow) {
  Account account(Granted(2000, 2000, 1'000'000));
  const AccountScope scope(account);
  auto* block = static_cast<char*>(support::CountedCalloc(1000));
  EXPECT_EQ(support::CountedRealloc(block, 1500), nullptr);
  EXPECT_EQ(block[999], 0);
  EXPECT_EQ(account.Held(), 1016u);
  support::CountedFree(block);
}

TEST(CountedMemory, RefusesSizesThatCannotBe) {
  EXPECT_EQ(support::CountedMalloc(~std::size_t{0}), nullptr);
  EXPECT_EQ(support::CountedMalloc(~std::size_t{0} - 20), nullptr);
}

}  // namespace
