#include "base/PageOmissions.h"

#include "base/RecentItems.h"

#include <utility>

namespace orrelo {
namespace {

constexpr std::size_t maximumOmissions = 50;

thread_local PageOmissions* currentOmissions = nullptr;

RecentItems<ORLDiagnostics::Page>& pages() {
  static auto* const pages = new RecentItems<ORLDiagnostics::Page>(ORLDiagnostics::maximumPages);
  return *pages;
}

}  // namespace

PageOmissions::PageOmissions(Date time, std::string path)
    : page_{time, std::move(path), {}}, outer_(std::exchange(currentOmissions, this)) {}

PageOmissions::~PageOmissions() {
  currentOmissions = outer_;
  pages().add(std::move(page_));
}

PageOmissions* PageOmissions::current() {
  return currentOmissions;
}

std::vector<ORLDiagnostics::Page> PageOmissions::lastPages() {
  return pages().items();
}

void PageOmissions::add(std::string pointer, std::string reason) {
  if (page_.omissions.size() == maximumOmissions) return;
  page_.omissions.push_back({std::move(pointer), std::move(reason)});
}

}  // namespace orrelo
