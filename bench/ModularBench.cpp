// Builds the views of a modular page from its decoded blocks.
#include "Benches.h"
#include "ModularPage.h"
#include "Targets.h"
#include "campaign/CampaignMapper.h"
#include "modular/ModularCampaignView.h"
#include "support/ServiceReplies.h"
#include "support/TestPlatform.h"

#include <stdexcept>
#include <variant>

namespace orrelo::bench {
namespace {

constexpr std::size_t blockCount = 30;

ModularCampaign decoded(const std::string& salt) {
  const auto page = modularPage(mixedBlocks(blockCount), salt);
  auto campaign = CampaignMapper().map(CampaignDTO::decode(test::campaignReply(page)));
  return std::get<ModularCampaign>(std::move(campaign.type));
}

// The time in microseconds per block.
double timeToBuild(ModularCampaign campaign) {
  const auto start = std::chrono::steady_clock::now();
  const auto view = ModularCampaignView::create(std::move(campaign));
  const double elapsed = secondsSince(start);
  // The first blank adds a view.
  if (view->stackView->arrangedSubviews.size() != blockCount + 1)
    throw std::runtime_error("blocks are missing");
  return elapsed * 1e6 / blockCount;
}

struct Sample {
  double first = 0.0;
  double again = 0.0;
};

// Builds a page whose pictures are not cached, then the same page again, after another page has warmed up the
// process.
Sample takeSample() {
  test::TestPlatform platform;
  const auto build = [&](const std::string& salt) {
    const double time = timeToBuild(decoded(salt));
    auto& session = *platform.session;
    while (!session.waiting.empty()) {
      session.answer(test::ScriptedURLSession::reply(200, test::PlainImageCodec::file(200, 200)));
    }
    platform.loop->run();
    return time;
  };
  build("other");
  return {build("page"), build("page")};
}

std::vector<double> measure() {
  std::vector<double> first;
  std::vector<double> again;
  for (int i = 0; i < 200; ++i) {
    const auto sample = takeSample();
    first.push_back(sample.first);
    again.push_back(sample.again);
  }
  return {quantile(first, 0.5), quantile(again, 0.5)};
}

}  // namespace

void addModular() {
  add({{"30 blocks to views, each, pictures asked for", "us", 2.2},
       {"30 blocks to views, each, pictures in memory", "us", 1}},
      measure);
}

}  // namespace orrelo::bench
