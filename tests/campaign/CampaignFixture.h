#pragma once

#include "CampaignReplies.h"
#include "campaign/CampaignLocalDataSource.h"
#include "campaign/CampaignRemoteDataSource.h"
#include "campaign/CampaignRepository.h"
#include "campaign/ParticipateCampaignUseCase.h"
#include "reactive/Observable.h"
#include "support/TestPlatform.h"

#include <gtest/gtest.h>

namespace orrelo::test {

/// Records what a stream emits while this object lives.
template <class T>
struct Heard {
  Heard() = default;
  Heard(const Heard&) = delete;
  ~Heard() { subscription.dispose(); }

  std::vector<T> elements;
  /// "done", the error's description, or "" while the stream runs.
  std::string end;
  reactive::Disposable subscription;
};

/// The data layer of campaigns on a scripted network.
class CampaignFixture : public testing::Test {
 protected:
  CampaignFixture();
  ~CampaignFixture() override;

  template <class T>
  static std::shared_ptr<Heard<T>> listenLater(const reactive::Observable<T>& stream) {
    auto heard = std::make_shared<Heard<T>>();
    heard->subscription = stream.subscribe(
        {.onNext = [to = heard.get()](const T& element) { to->elements.push_back(element); },
         .onError = [to = heard.get()](const Error& error) { to->end = error.description(); },
         .onCompleted = [to = heard.get()] { to->end = "done"; }});
    return heard;
  }
  /// Subscribes, then runs the loop.
  template <class T>
  std::shared_ptr<Heard<T>> listen(const reactive::Observable<T>& stream) {
    auto heard = listenLater(stream);
    platform_.loop->run();
    return heard;
  }

  reactive::SchedulerPtr scheduler(QualityOfService qos = QualityOfService::standard) const {
    return std::make_shared<reactive::ConcurrentDispatchQueueScheduler>(qos);
  }
  void lay(const std::string& body, int status = 200) {
    platform_.session->lay(ScriptedURLSession::reply(status, body));
  }
  const std::vector<URLRequest>& requests() const { return platform_.session->requests; }
  void store(const std::string& json);
  std::string stored() const;

  TestPlatform platform_;
  std::shared_ptr<UserDefaults> suite_ = platform_.defaults->suite("app");
  NetworkConfig networkConfig_{"https://api.example/sdk/app", {{"Kelso-UUID", "u"}, {"buid", "nobody"}}};
  std::shared_ptr<HTTPClient> client_;
  std::shared_ptr<CampaignRepository> repository_;
  std::shared_ptr<ParticipateCampaignUseCaseImpl> participate_;
};

}  // namespace orrelo::test
