#include "support/account.h"

#include <algorithm>

#include "support/limits.h"

namespace support {

namespace {

/// Unwinding an item costs some microseconds.
constexpr std::uint64_t kCutWork = 4096;

}  // namespace

Allowance Allowance::Of(std::uint64_t fileBytes) {
  const std::uint64_t working = limits::kWorkingBase + limits::kWorkingPerByte * fileBytes;
  return {.held = limits::kHeldBytes,
          .working = std::min<std::uint64_t>(working, limits::kHeldBytes),
          .work = limits::kWorkBase + limits::kWorkPerByte * fileBytes};
}

bool Account::HasRoomFor(std::uint64_t bytes, MemoryUse use) const noexcept {
  if (bytes > allowance.held || Held() > allowance.held - bytes) return false;
  return use == MemoryUse::kResults || (bytes <= allowance.working && working <= allowance.working - bytes);
}

void Account::Add(std::uint64_t bytes, MemoryUse use) noexcept {
  (use == MemoryUse::kWorking ? working : results) += bytes;
  spent += bytes;
}

void Account::Hold(std::uint64_t bytes, MemoryUse use) {
  if (!HasRoomFor(bytes, use)) throw MemoryUsedUp();
  if (spent + bytes > WorkLimit()) throw WorkUsedUp();
  Add(bytes, use);
}

bool Account::TryHold(std::uint64_t bytes, MemoryUse use) noexcept {
  if (!HasRoomFor(bytes, use) || spent + bytes > WorkLimit()) return false;
  Add(bytes, use);
  return true;
}

void Account::Release(std::uint64_t bytes, MemoryUse use) noexcept {
  std::uint64_t& held = use == MemoryUse::kWorking ? working : results;
  held -= std::min(held, bytes);
}

void Account::Spend(std::uint64_t units) {
  if (units > WorkLimit() || spent > WorkLimit() - units) throw WorkUsedUp();
  spent += units;
}

AccountItem::AccountItem(Account* read) noexcept
    : account(read), isOutermost(read == nullptr || !read->isWithinItem) {
  if (account == nullptr || !isOutermost) return;
  account->isWithinItem = true;
  account->itemLimit = account->spent + (account->allowance.work - account->spent) / 2;
}

AccountItem::~AccountItem() {
  if (account != nullptr && isOutermost) account->isWithinItem = false;
}

bool AccountItem::MayRun() noexcept {
  if (account == nullptr || !isOutermost || account->spent < account->allowance.work) return true;
  ++account->cuts;
  return false;
}

void AccountItem::CountCut() {
  if (account == nullptr) return;
  ++account->cuts;
  if (isOutermost) {
    account->spent = std::min(account->spent + kCutWork, account->allowance.work);
  } else {
    account->Spend(kCutWork);
  }
}

}  // namespace support
