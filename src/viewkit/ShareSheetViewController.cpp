#include "viewkit/ShareSheetViewController.h"

#include "base/explain.h"
#include "ui/KeyWindow.h"
#include "viewkit/mailtoUrl.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/Application.h>

namespace orrelo {

void ShareSheetViewController::share(const std::string& text) {
  const auto root = keyWindowRootViewController();
  if (!root) return explain(ExplanationLevel::error, "There is no screen to share a text from");
  root->topmost()->present(std::make_shared<ShareSheetViewController>(text), true);
}

void ShareSheetViewController::copy() {
  const auto keep = shared_from_this();
  close();
  Platform::current().application->setPasteboard(text);
}

void ShareSheetViewController::mail() {
  const auto keep = shared_from_this();
  close();
  // `canOpen` is not asked: it is about the links of the service.
  Platform::current().application->open(mailtoUrl(text));
}

}  // namespace orrelo
