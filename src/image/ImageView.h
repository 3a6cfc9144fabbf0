#pragma once

#include "viewkit/base/View.h"

#include <orrelo/Export.h>

#include <string>

namespace orrelo {

class ORRELO_EXPORT ImageView : public View {
 public:
  struct State {
    std::string asset;
    std::string url;
    friend bool operator==(const State&, const State&) = default;
  };
  std::string_view kind() const override { return "ImageView"; }
  void load(const std::string& url);
  void setAsset(const std::string& name);
  Followed<State> state;
};
class ORRELO_EXPORT AutoLayoutImageView final : public ImageView {
 public:
  std::string_view kind() const override { return "AutoLayoutImageView"; }
};

}  // namespace orrelo
