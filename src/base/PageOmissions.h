#pragma once

#include "base/Json.h"
#include "base/explain.h"
#include "base/jsonPointer.h"

#include <orrelo/Date.h>
#include <orrelo/ORLDiagnostics.h>

#include <string>
#include <string_view>
#include <vector>

namespace orrelo {

/// Collects what is left out of the page that the calling thread decodes while this object lives, and then
/// adds the page to the last pages of the process.
class PageOmissions {
 public:
  PageOmissions(Date time, std::string path);
  ~PageOmissions();
  PageOmissions(const PageOmissions&) = delete;
  PageOmissions& operator=(const PageOmissions&) = delete;

  /// Those of the calling thread; null if it decodes no page.
  static PageOmissions* current();
  /// Any thread.
  static std::vector<ORLDiagnostics::Page> lastPages();

  void add(std::string pointer, std::string reason);

 private:
  ORLDiagnostics::Page page_;
  PageOmissions* const outer_;
};

/// Explains that a part of a reply is left out, and adds it to the page that this thread decodes. The line is
/// "A reply's ", the JSON pointer of `place` with `suffix`, and the text that `reason` returns. `reason` is
/// only called if anybody needs it.
template <class Place, class Reason>
void explainOmission(const Place& place, std::string_view suffix, const Reason& reason) {
  auto* const page = PageOmissions::current();
  if (page == nullptr && !isExplained(ExplanationLevel::warning)) return;
  auto pointer = jsonPointer(place).append(suffix);
  std::string text = reason();
  explain(ExplanationLevel::warning,
          [&] { return (pointer.empty() ? "A reply" : "A reply's " + pointer) + ' ' + text; });
  if (page != nullptr) page->add(std::move(pointer), std::move(text));
}

}  // namespace orrelo
