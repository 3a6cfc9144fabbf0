#include "base/PageOmissions.h"

#include "base/RecentItems.h"
#include "base/Utf8.h"

#include <utility>

namespace orrelo {
namespace {

/// The length of a text that is kept, in code points.
constexpr std::size_t maximumLength = 500;

thread_local PageOmissions* currentOmissions = nullptr;

RecentItems<ORLDiagnostics::Page>& pages() {
  static auto* const pages = new RecentItems<ORLDiagnostics::Page>(ORLDiagnostics::maximumPages);
  return *pages;
}

}  // namespace

PageOmissions::PageOmissions(Date time, std::string path)
    : page_{time, utf8::beginning(utf8::repaired(path), maximumLength), {}, 0},
      outer_(std::exchange(currentOmissions, this)) {}

PageOmissions::~PageOmissions() {
  currentOmissions = outer_;
  const auto unnamed = page_.omissionCount - page_.omissions.size();
  if (unnamed > 0) {
    explain(ExplanationLevel::warning,
            [&] { return std::to_string(unnamed) + " further parts of the same reply are left out."; });
  }
  pages().add(std::move(page_));
}

PageOmissions* PageOmissions::current() {
  return currentOmissions;
}

std::vector<ORLDiagnostics::Page> PageOmissions::lastPages() {
  return pages().items();
}

void PageOmissions::add(std::string_view pointer, std::string_view reason) {
  ++page_.omissionCount;
  if (isFull()) return;
  page_.omissions.push_back({utf8::beginning(utf8::repaired(pointer), maximumLength),
                             utf8::beginning(utf8::repaired(reason), maximumLength)});
}

}  // namespace orrelo
