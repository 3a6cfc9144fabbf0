#pragma once

#include "ModularPages.h"
#include "model/Delegates.h"
#include "modular/ModularCampaignView.h"
#include "support/Reports.h"
#include "support/TestPlatform.h"

#include <functional>

namespace orrelo::test {

/// Records what a page asks of its screen.
class Requests final : public ModularCampaignViewDelegate {
 public:
  void participate(const std::string& url) override { note("participate " + url); }
  void route(const Page& page) override;
  void reload() override { note("reload"); }

  Lines lines;
  std::function<void()> onRequest;

 private:
  void note(const std::string& line) {
    lines.push_back(line);
    if (onRequest) onRequest();
  }
};

class Screen final : public ORLUIViewController {
 public:
  std::string_view kind() const override { return "Screen"; }
};

/// Pages built into views on the test platform.
class RenderedPage : public testing::Test {
 protected:
  RenderedPage();
  ~RenderedPage() override;

  std::shared_ptr<ModularCampaignView> build(const Json& page);
  /// A page of one block, and its arranged view.
  StackView::Arranged arrange(const std::string& kind, const Json& block);
  template <class BlockView>
  std::shared_ptr<BlockView> render(const std::string& kind, const Json& block) {
    auto view = std::dynamic_pointer_cast<BlockView>(arrange(kind, block).view);
    EXPECT_TRUE(view) << kind;
    return view;
  }

  TestPlatform platform_;
  std::shared_ptr<Reports> reports_ = std::make_shared<Reports>();
  std::shared_ptr<Requests> requests_ = std::make_shared<Requests>();
  std::shared_ptr<ModularCampaignView> page_;
};

}  // namespace orrelo::test
