#include "campaign/update/InduceUpdateView.h"

#include "events/UserEventTracker.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Application.h>

#include <utility>

namespace orrelo {

InduceUpdateView::InduceUpdateView(std::string updateUrl, const Color& brandColor,
                                   std::weak_ptr<ToastLayer> toastLayer)
    : color(brandColor),
      // The space at the start of the last line is part of the designed text.
      errorView(std::make_shared<ErrorView>("버전 업데이트 후 참여할 수 있는 이벤트입니다.\n지금 바로 앱을 "
                                            "업데이트하고\n 새 캠페인에 참여해 보세요!")),
      updateUrl_(std::move(updateUrl)),
      toastLayer_(std::move(toastLayer)) {}

void InduceUpdateView::routeToUpdateLink() {
  const auto url = Url::parse(updateUrl_);
  const auto& application = Platform::current().application;
  if (!url || !application->canOpen(*url)) {
    if (const auto toasts = toastLayer_.lock()) {
      toasts->showToast("업데이트 페이지 이동에 실패했습니다.", Color());
    }
    return;
  }
  application->open(*url);
  UserEventTracker::track(UserEventName::induceUpdateButtonClick);
}

}  // namespace orrelo
