#pragma once

#include "base/preconditionFailure.h"
#include "modular/ModularCampaignPageDTO.h"
#include "support/Json.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace orrelo::test {

using Lines = std::vector<std::string>;

/// A page with every kind of block, dialogs and one unknown block name.
Json wholePage();

/// One block of the kind, from the whole page.
Json block(const std::string& kind, std::size_t index = 0);

/// A page of these blocks in this order.
Json pageOf(const Lines& order, const Json& arrays = Json::object());

ModularCampaignPageDTO decodePage(const std::string& json);
ModularCampaignPageDTO decodePage(const Json& json);

/// "image", "blank 8", …
Lines namesOf(const std::vector<std::shared_ptr<UIComponent>>& components);

/// The names of the page's blocks, or the domain of the decoding error.
Lines outcomeOf(const std::string& json);

/// Turns a failed precondition into a thrown `Stop` while this object lives.
class StopsThrow {
 public:
  struct Stop {
    std::string message;
  };

  StopsThrow() {
    setPreconditionFailureHandler([](std::string_view message) { throw Stop{std::string(message)}; });
  }
  StopsThrow(const StopsThrow&) = delete;
  ~StopsThrow() { setPreconditionFailureHandler(nullptr); }
};

}  // namespace orrelo::test
