#ifndef DRAWLOAD_SUPPORT_ACCOUNT_H
#define DRAWLOAD_SUPPORT_ACCOUNT_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <new>
#include <utility>

namespace support {

/// What memory is held for.
enum class MemoryUse {
  kWorking,  ///< the file, its records, texts, decoded data, pictures: everything that ends with the read
  kResults,  ///< curves, segments and bitmaps, which the caller receives
};

/// What one read may hold, in bytes, and do, in units of work. The same on every machine.
struct Allowance {
  /// Of a drawing of `fileBytes` bytes; docs/limits.md tells users.
  static Allowance Of(std::uint64_t fileBytes);

  std::uint64_t held = 0;     ///< of both uses together
  std::uint64_t working = 0;  ///< of `MemoryUse::kWorking`
  std::uint64_t work = 0;
};

/// An account refused: the item being read ends with what it has. A failed allocation for all who know
/// nothing of accounts.
class BeyondAllowance : public std::bad_alloc {};
/// The memory of the allowance is in use. Memory may be given back, so what follows may still be read.
class MemoryUsedUp final : public BeyondAllowance {};
/// The work of the allowance, or of the outermost item's share, is done.
class WorkUsedUp final : public BeyondAllowance {};

/// Counts what one read holds and what it does, against its allowance.
///
/// Memory is counted where it is taken: each `new` of the library (counted_new.cpp), each large block and
/// each block of the C libraries that accept an allocator. Work is counted in bytes moved, roughly a
/// nanosecond each: every byte allocated, and what `SpendWork` adds for work without allocations that goes
/// beyond one pass over the file.
class Account {
 public:
  Account() : allowance(Allowance::Of(0)) {}
  explicit Account(const Allowance& granted) : allowance(granted) {}
  Account(const Account&) = delete;
  Account& operator=(const Account&) = delete;

  /// The account of the read that runs in this thread; null outside a read.
  static Account* Current() noexcept { return current; }

  /// Grants what a drawing of `fileBytes` bytes may hold and do.
  void AllowForFile(std::uint64_t fileBytes) { allowance = Allowance::Of(fileBytes); }

  /// Counts memory before it is taken. Throws `BeyondAllowance`, and counts nothing, where it is refused.
  void Hold(std::uint64_t bytes, MemoryUse use);
  /// The same for callers that cannot throw: false where it is refused.
  bool TryHold(std::uint64_t bytes, MemoryUse use) noexcept;
  /// Credits memory that was given back. Memory from before the read may be among it.
  void Release(std::uint64_t bytes, MemoryUse use) noexcept;

  /// Counts work. Throws `WorkUsedUp` where the allowance or the outermost item's share has less left.
  void Spend(std::uint64_t units);

  /// What the outermost item, or the read outside of items, may still do.
  std::uint64_t WorkLeft() const noexcept { return WorkLimit() - std::min(spent, WorkLimit()); }

  std::uint64_t Held() const { return working + results; }
  std::uint64_t Held(MemoryUse use) const { return use == MemoryUse::kWorking ? working : results; }
  std::uint64_t Spent() const { return spent; }
  /// How many items ended early.
  std::uint64_t Cuts() const { return cuts; }

 private:
  friend class AccountScope;
  friend class AccountItem;

  bool HasRoomFor(std::uint64_t bytes, MemoryUse use) const noexcept;
  std::uint64_t WorkLimit() const noexcept { return isWithinItem ? itemLimit : allowance.work; }
  void Add(std::uint64_t bytes, MemoryUse use) noexcept;

  inline static constinit thread_local Account* current = nullptr;

  Allowance allowance;
  std::uint64_t working = 0;
  std::uint64_t results = 0;
  std::uint64_t spent = 0;
  std::uint64_t itemLimit = 0;  ///< of `spent`, for the outermost item
  bool isWithinItem = false;
  std::uint64_t cuts = 0;
};

/// Makes an account the current one of this thread while it lives.
class AccountScope {
 public:
  explicit AccountScope(Account& account) : outer(std::exchange(Account::current, &account)) {}
  AccountScope(const AccountScope&) = delete;
  AccountScope& operator=(const AccountScope&) = delete;
  ~AccountScope() { Account::current = outer; }

 private:
  Account* outer;
};

/// Memory that a library takes from elsewhere than us, counted while this lives.
class HeldElsewhere {
 public:
  HeldElsewhere() = default;
  /// Throws `BeyondAllowance` where it is refused.
  explicit HeldElsewhere(std::uint64_t count) : bytes(count) {
    if (Account::Current() != nullptr) Account::Current()->Hold(bytes, MemoryUse::kWorking);
  }
  HeldElsewhere(HeldElsewhere&& other) noexcept : bytes(std::exchange(other.bytes, 0)) {}
  HeldElsewhere& operator=(HeldElsewhere&& other) noexcept {
    std::swap(bytes, other.bytes);
    return *this;
  }
  ~HeldElsewhere() {
    if (Account::Current() != nullptr) Account::Current()->Release(bytes, MemoryUse::kWorking);
  }

 private:
  std::uint64_t bytes = 0;
};

/// Counts work beyond one pass over the file, roughly in nanoseconds. Throws `WorkUsedUp`.
inline void SpendWork(std::uint64_t units) {
  if (Account* account = Account::Current()) account->Spend(units);
}

/// One item: an image, an entity, an element, a font, a page, a text. The outermost may do half of the work
/// that is left, so that one bad item leaves enough for all that follow.
class AccountItem {
 public:
  explicit AccountItem(Account* read) noexcept;
  AccountItem(const AccountItem&) = delete;
  AccountItem& operator=(const AccountItem&) = delete;
  ~AccountItem();

  bool IsOutermost() const { return isOutermost; }
  /// False where no work at all is left for the item, which is counted as a cut.
  bool MayRun() noexcept;
  /// Counts that the item ended early, and the work of noticing that: so a loop of items that are all refused
  /// has an end. Throws `WorkUsedUp` within another item.
  void CountCut();

 private:
  Account* account;
  bool isOutermost;
};

/// Runs `item` from its begin to its end. Where the account refuses something, the item ends with what it
/// has; where its work is used up, so do the items around it. Returns whether it came to its end.
template <typename Item>
bool RunItem(Item&& item) {
  AccountItem guard(Account::Current());
  if (!guard.MayRun()) return false;
  try {
    std::forward<Item>(item)();
    return true;
  } catch (const MemoryUsedUp&) {
    guard.CountCut();
  } catch (const WorkUsedUp&) {
    if (!guard.IsOutermost()) throw;
    guard.CountCut();
  }
  return false;
}

}  // namespace support

#endif
