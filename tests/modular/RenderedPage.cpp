#include "RenderedPage.h"

#include <orrelo/Orrelo.h>

namespace orrelo::test {

void Requests::route(const Page& page) {
  JsonWriter json;
  page.encode(json);
  note("route " + json.result());
}

RenderedPage::RenderedPage() {
  Orrelo::setUserEventDelegate(reports_);
}

RenderedPage::~RenderedPage() = default;

std::shared_ptr<ModularCampaignView> RenderedPage::build(const Json& page) {
  auto dto = decodePage(page);
  auto view = ModularCampaignView::create({std::move(dto.components), std::move(dto.config)});
  view->delegate = requests_;
  return view;
}

StackView::Arranged RenderedPage::arrange(const std::string& kind, const Json& block) {
  page_ = build(pageOf({kind}, {{kind, Json::array({block})}}));
  const auto arranged = page_->stackView->arrangedSubviews;
  EXPECT_EQ(arranged.size(), 1U);
  return arranged.at(0);
}

}  // namespace orrelo::test
