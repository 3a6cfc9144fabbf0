#include "base/explain.h"
#include "base/preconditionFailure.h"
#include "platform/threads/KitThread.h"
#include "quick/platform/MotionSetting.h"
#include "quick/platform/QtApplication.h"
#include "quick/platform/QtDisplayLink.h"
#include "quick/platform/QtImageCodec.h"
#include "quick/platform/QtMainLoop.h"
#include "quick/platform/loadInspector.h"
#include "quick/platform/warmUpThreads.h"
#include "viewkit/ShareSheetViewController.h"

#include <orrelo/quick/OrreloQuick.h>

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QUrl>
#include <algorithm>
#include <utility>

namespace orrelo::quick {
namespace {

// Qt cannot tell in advance whether it can open a URL, so `canOpen` checks the scheme.
PosixApplication::UrlOpener urlOpener(std::vector<std::string> schemes) {
  schemes.insert(schemes.end(), {"http", "https"});
  const auto canOpen = [schemes = std::move(schemes)](const Url& url) {
    const auto scheme = QByteArray(url.scheme().data(), static_cast<qsizetype>(url.scheme().size()));
    return std::find(schemes.begin(), schemes.end(), scheme.toLower().toStdString()) != schemes.end();
  };
  const auto open = [](const Url& url) {
    if (QDesktopServices::openUrl(QUrl(QString::fromStdString(url.text())))) return;
    // Only the scheme, since the rest may be the user's own text.
    explain(ExplanationLevel::warning, [&] {
      return "This machine has no program for URLs with the scheme \"" + std::string(url.scheme()) + "\"";
    });
  };
  return {canOpen, open};
}

}  // namespace

Platform platform(const HostApplication& host) {
  if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr) {
    preconditionFailure("orrelo::quick::platform() comes before the QGuiApplication");
  }
  auto platform = Platform::posix(host);
  platform.mainLoop = std::make_shared<QtMainLoop>();
  platform.imageCodec = std::make_shared<QtImageCodec>();
  platform.displayLink = std::make_shared<QtDisplayLink>(platform.clock);
  const auto application = std::make_shared<PosixApplication>();
  application->setUrlOpener(urlOpener(host.urlSchemes));
  application->setPasteboardWriter(
      [](const std::string& text) { QGuiApplication::clipboard()->setText(QString::fromStdString(text)); });
  application->setSharer(&ShareSheetViewController::share);
  platform.application = application;
  new QtApplication(application, qGuiApp);
  // Waits for the work on the kit's threads before Qt destroys the image readers that it uses.
  qAddPostRoutine(beginExit);
  new MotionSetting(
      QDBusConnection::sessionBus(),
      [application](bool prefers) { application->setPrefersReducedMotion(prefers); }, qGuiApp);
  setWarmUpThreads({platform.mainLoop, platform.workers});
  loadInspector();
  return platform;
}

}  // namespace orrelo::quick
