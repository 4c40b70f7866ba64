#include "pdf/page_tree.h"

#include <algorithm>

#include "pdf/token_walk.h"
#include "support/account.h"
#include "support/limits.h"
#include "support/text_to_number.h"

namespace pdf {

namespace {

/// Work of visiting a kid of a page node, for which no byte of the file may stand.
constexpr std::uint64_t kKidWork = 2048;

class PageWalker {
 public:
  explicit PageWalker(ObjectSource& objects) : source(objects) {}

  void WalkCatalog(std::int32_t number);

  /// False where the object is no node, which is how a page is told.
  bool WalkPageNode(std::int32_t number);

  std::vector<std::int32_t> pages;

 private:
  void WalkKids(const PdfTokens& tokens, std::size_t index);
  bool IsBeyondLimits(std::int32_t kid) const;

  ObjectSource& source;
  std::vector<std::int32_t> ancestors;
};

void PageWalker::WalkCatalog(std::int32_t number) {
  const auto object = source.Fetch(number);
  const PdfTokens& tokens = object->tokens;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i] == "/Pages" && !WalkPageNode(support::AtoI(tokens.at(i + 1)))) break;
  }
}

bool PageWalker::WalkPageNode(std::int32_t number) {
  const auto object = source.Fetch(number);
  const PdfTokens& tokens = object->tokens;
  ancestors.push_back(number);
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i] == "/Type" && tokens.at(i + 1) != "/Pages") {
      ancestors.pop_back();
      return false;
    }
    if (tokens[i] == "/Kids" && tokens.at(i + 1) == "[") WalkKids(tokens, i + 2);
  }
  ancestors.pop_back();
  return true;
}

void PageWalker::WalkKids(const PdfTokens& tokens, std::size_t index) {
  for (const std::int32_t kid : ReferencesFrom(tokens, index)) {
    support::SpendWork(kKidWork);
    if (IsBeyondLimits(kid)) continue;
    WalkPageNode(kid);
    pages.push_back(kid);
  }
}

bool PageWalker::IsBeyondLimits(std::int32_t kid) const {
  return ancestors.size() >= support::limits::kPdfPageTreeDepth ||
         std::find(ancestors.begin(), ancestors.end(), kid) != ancestors.end();
}

}  // namespace

std::vector<std::int32_t> ListPages(ObjectSource& source, std::int32_t catalog) {
  PageWalker walker(source);
  support::RunItem([&] { walker.WalkCatalog(catalog); });
  return std::move(walker.pages);
}

}  // namespace pdf
