#include "RewardsFixture.h"

#include "model/Delegates.h"
#include "model/UserManager.h"
#include "network/HTTPClient.h"

#include <utility>

namespace orrelo::test {
namespace {

const std::string pageQuery = "/pointsystem/point-redemption-history?page=";

/// The number of the history's page; nullopt for other requests.
std::optional<std::string> pageOf(const URLRequest& request) {
  const std::string url(request.url.text());
  const auto at = url.find(pageQuery);
  return at == std::string::npos ? std::nullopt : std::optional(url.substr(at + pageQuery.size()));
}

}  // namespace

RewardsFixture::RewardsFixture() {
  config_->config.plugin = {
      .pointSystem = true,
      .externalPointPlugin = ExternalPointPlugin(
          {.entryViewMessage = "", .exchangeText = "", .landingUrl = "https://pay.example/"}),
      .gifticon = true};
  config_->config.brandTheme.primary = {0.5, 0.25, 1.0};
  replies_["/my-point"] = ScriptedURLSession::reply(200, pointReply());
  platform_.session->responder = [this](const URLRequest& request) -> std::optional<URLSessionResult> {
    const auto page = pageOf(request);
    if (page && historyWaits_) return std::nullopt;
    for (const auto& [path, reply] : replies_) {
      if (request.url.path().ends_with(path)) return reply;
    }
    if (!page) return std::nullopt;
    const auto number = std::stoul(*page);
    return ScriptedURLSession::reply(200, "[" + (number < pages_.size() ? pages_[number] : "") + "]");
  };
  const auto scheduler =
      std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(QualityOfService::standard);
  repository_ = PointRepositoryImpl::create(PointRemoteDataSource(
      {"https://api.example/sdk/app/pointsystem", {{"Kelso-UUID", "u"}, {"buid", "nobody"}}},
      std::make_shared<HTTPClientImpl>(), scheduler));
  fetchPoint_ = std::make_shared<FetchPointUseCaseImpl>(config_, repository_);
  setUserEventDelegate(reports_);
  setCurrentUserId("minji");
  host_->appear(false);
}

RewardsFixture::~RewardsFixture() {
  setUserEventDelegate(nullptr);
  setCurrentUserId(std::nullopt);
}

std::string RewardsFixture::pointReply(std::int64_t amount, const std::string& unit) {
  return R"({"amount":)" + std::to_string(amount) + R"(,"description":"포인트","point_unit":")" + unit +
         R"(","icon_url":""})";
}

std::string RewardsFixture::row(std::int64_t id, const std::string& date, std::int64_t amount) {
  return R"({"id":)" + std::to_string(id) + R"(,"title":"출석","description":"매일","date":")" + date +
         R"(","point_amount":)" + std::to_string(amount) + "}";
}

std::vector<std::string> RewardsFixture::pagesAsked() const {
  std::vector<std::string> pages;
  for (const auto& request : platform_.session->requests) {
    if (auto page = pageOf(request)) pages.push_back(*std::move(page));
  }
  return pages;
}

}  // namespace orrelo::test
