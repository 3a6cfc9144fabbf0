#pragma once

#include "ui/View.h"
#include "viewkit/bulletLines.h"

#include <orrelo/Export.h>

#include <string>
#include <vector>

namespace orrelo {

/// A list of notes for the user.
class ORRELO_EXPORT NoticeView : public View {
 public:
  explicit NoticeView(const std::vector<std::string>& items) : text(bulletLines(items)) {}

  static constexpr std::string_view kindName = "NoticeView";
  std::string_view kind() const override { return kindName; }

  /// One bulleted line per item.
  const std::string text;
};

}  // namespace orrelo
