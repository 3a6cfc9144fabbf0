#include "inappmessage/InAppMessageSkipTimeCheckService.h"

#include "base/DateFormat.h"
#include "base/TimeZone.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Clock.h>

namespace orrelo {
namespace {

std::string today() {
  const auto now = Platform::current().clock->now();
  return formatDate(now, "yyyy-MM-dd", TimeZone::current().offset(now));
}

}  // namespace

bool InAppMessageSkipTimeCheckServiceImpl::hasSkippedToday() const {
  const auto skipped = userDefaults_->text(key);
  return skipped && *skipped == today();
}

void InAppMessageSkipTimeCheckServiceImpl::recordSkipToday() {
  userDefaults_->set(key, today());
}

}  // namespace orrelo
