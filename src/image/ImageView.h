#pragma once

#include "viewkit/base/View.h"

#include <string>

namespace orrelo {

class ImageView : public View {
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
class AutoLayoutImageView final : public ImageView {
 public:
  std::string_view kind() const override { return "AutoLayoutImageView"; }
};

}  // namespace orrelo
