#pragma once

#include "base/Error.h"
#include "base/Json.h"
#include "base/explain.h"
#include "base/jsonPointer.h"

#include <orrelo/Date.h>
#include <orrelo/ORLDiagnostics.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orrelo {

/// Collects what is left out of the reply with pages that the calling thread decodes.
class PageOmissions {
 public:
  /// Returns what `decode` returns, and adds the page to the last pages of the process; one that `decode`
  /// throws an Error for is left out as a whole.
  template <class Decode>
  static auto collect(Date time, std::string path, const Decode& decode) {
    PageOmissions omissions(time, std::move(path));
    try {
      return decode();
    } catch (const Error& error) {
      omissions.add("", "cannot be read: " + error.localizedDescription());
      throw;
    }
  }

  /// Those of the calling thread; null if it decodes no page.
  static PageOmissions* current();
  /// Any thread.
  static std::vector<ORLDiagnostics::Page> lastPages();

  PageOmissions(const PageOmissions&) = delete;
  PageOmissions& operator=(const PageOmissions&) = delete;

  /// Further omissions are only counted, since finding the place of each one takes time.
  bool isFull() const { return page_.omissions.size() == ORLDiagnostics::Page::maximumOmissions; }
  void add(std::string_view pointer, std::string_view reason);
  void addUnnamed() { ++page_.omissionCount; }

 private:
  PageOmissions(Date time, std::string path);
  ~PageOmissions();

  ORLDiagnostics::Page page_;
  PageOmissions* const outer_;
};

/// True if somebody needs to know what is left out of the reply that the calling thread decodes, and where.
inline bool isOmissionNoted() {
  const auto* const page = PageOmissions::current();
  return page != nullptr ? !page->isFull() : isExplained(ExplanationLevel::warning);
}

/// Explains that a part of a reply is left out, and adds it to the page that this thread decodes. The line is
/// "A reply's ", the JSON pointer of `place` with `suffix`, and the text that `reason` returns. `reason` is
/// only called if anybody needs it.
template <class Place, class Reason>
void explainOmission(const Place& place, std::string_view suffix, const Reason& reason) {
  auto* const page = PageOmissions::current();
  if (!isOmissionNoted()) {
    if (page != nullptr) page->addUnnamed();
    return;
  }
  const auto pointer = jsonPointer(place).append(suffix);
  const std::string text = reason();
  explain(ExplanationLevel::warning,
          [&] { return (pointer.empty() ? "A reply" : "A reply's " + pointer) + ' ' + text; });
  if (page != nullptr) page->add(pointer, text);
}

}  // namespace orrelo
