#include "c/handles.h"
#include "platform/threads/onMain.h"

#include <orrelo/MainLoop.h>
#include <orrelo/ORLCampaignType.h>
#include <orrelo/Orrelo.h>

#include <utility>

using namespace orrelo;
using namespace orrelo::c;

namespace {

template <class Show>
orrelo_status show(const orrelo_view_controller* with, const Show& onto) {
  return attempt([&] {
    onto(required(with, "with")->screen);
    requireInitialized();
  });
}

template <class Make>
orrelo_view_controller* makeScreen(const Make& screen) {
  return attemptNew([&] {
    if (!Platform::current().mainLoop->isCurrent()) {
      throw CallFailure{ORRELO_WRONG_THREAD, "screens are made on the main thread"};
    }
    return new orrelo_view_controller{screen()};
  });
}

ORLCampaignType typeOf(int32_t type) {
  return caseOf(campaignType(type), "type");
}

}  // namespace

orrelo_view_controller* orrelo_view_controller_copy(const orrelo_view_controller* screen) {
  return attemptNew([&] { return new orrelo_view_controller(*required(screen, "screen")); });
}

void orrelo_view_controller_free(orrelo_view_controller* screen) {
  if (screen == nullptr) return;
  const std::unique_ptr<orrelo_view_controller> handle(screen);
  attemptSilently([&] {
    // A screen ends on the main thread, unless there is no memory for the task.
    onMain(*Platform::current().mainLoop, [held = std::exchange(handle->screen, nullptr)] { (void)held; });
  });
}

orrelo_status orrelo_show_home(const orrelo_view_controller* with) {
  return show(with, [](const auto& screen) { Orrelo::showHome(screen); });
}

orrelo_status orrelo_show_campaign(const char* id, const orrelo_view_controller* with) {
  return show(with, [id](const auto& screen) { Orrelo::showCampaign(required(id, "id"), screen); });
}

orrelo_status orrelo_show_campaign_of_type(int32_t type, const orrelo_view_controller* with) {
  return show(with, [type](const auto& screen) { Orrelo::showCampaign(typeOf(type), screen); });
}

orrelo_status orrelo_show_naver_pay_exchange(const orrelo_view_controller* with) {
  return show(with, [](const auto& screen) { Orrelo::showNaverPayExchange(screen); });
}

orrelo_status orrelo_show_page(const char* id) {
  return attempt([&] {
    Orrelo::showPage(required(id, "id"));
    requireInitialized();
  });
}

orrelo_status orrelo_show_in_app_message(const orrelo_view_controller* with) {
  return show(with, [](const auto& screen) { Orrelo::showInAppMessage(screen); });
}

orrelo_view_controller* orrelo_get_home_view_controller() {
  return makeScreen([] { return Orrelo::getHomeViewController(); });
}

orrelo_view_controller* orrelo_get_campaign_view_controller(const char* id) {
  return makeScreen([&] { return Orrelo::getCampaignViewController(required(id, "id")); });
}

orrelo_view_controller* orrelo_get_campaign_view_controller_of_type(int32_t type) {
  return makeScreen([&] { return Orrelo::getCampaignViewController(typeOf(type)); });
}
