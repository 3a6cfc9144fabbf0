#include "quick/web/WebProfile.h"

#include "network/KelsoMutator.h"

#include <orrelo/Platform.h>

#include <QCoreApplication>
#include <filesystem>
#include <utility>

namespace orrelo::quick {
namespace {

QString folderIn(const std::filesystem::path& parent) {
  return QString::fromStdString((parent / "web").string());
}

}  // namespace

WebProfile::WebProfile() {
  const auto& platform = Platform::current();
  setStorageName(QStringLiteral("orrelo"));
  setPersistentStoragePath(folderIn(platform.directories->data()));
  setCachePath(folderIn(platform.directories->cache()));
  const auto locale = QString::fromStdString(platform.device->localeIdentifier());
  setHttpAcceptLanguage(QString(locale).replace(QLatin1Char('_'), QLatin1Char('-')));
  // Must come last: a profile that is made persistent before its folders are set creates the default ones.
  setOffTheRecord(false);
}

WebProfile* WebProfile::create(QQmlEngine*, QJSEngine*) {
  static WebProfile* profile = nullptr;
  if (profile == nullptr) {
    profile = new WebProfile;
    QJSEngine::setObjectOwnership(profile, QJSEngine::CppOwnership);
    // Deletes the profile before the browser engine, which ends together with the application.
    qAddPostRoutine([] { delete std::exchange(profile, nullptr); });
  }
  return profile;
}

bool WebProfile::trusts(const QWebEngineCertificateError& error) {
  const auto url = Url::parse(error.url().toEncoded().toStdString());
  CertificateChain chain;
  for (const auto& certificate : error.certificateChain()) chain.push_back(certificate.toDer().toStdString());
  const auto environment = KelsoMutator::current();
  return url && error.isOverridable() && environment.trusts(*url, chain);
}

}  // namespace orrelo::quick
