#include "WebProfile.h"

#include "network/KelsoMutator.h"

#include <orrelo/Platform.h>

#include <filesystem>

namespace orrelo::quick {
namespace {

QString folderIn(const std::filesystem::path& parent) {
  return QString::fromStdString((parent / "web").string());
}

}  // namespace

WebProfile::WebProfile(QObject* parent) : QQuickWebEngineProfile(parent) {
  const auto& platform = Platform::current();
  setOffTheRecord(false);
  setStorageName(QStringLiteral("orrelo"));
  setPersistentStoragePath(folderIn(platform.directories->data()));
  setCachePath(folderIn(platform.directories->cache()));
  const auto locale = QString::fromStdString(platform.device->localeIdentifier());
  setHttpAcceptLanguage(QString(locale).replace(QLatin1Char('_'), QLatin1Char('-')));
}

bool WebProfile::trusts(const QWebEngineCertificateError& error) {
  const auto url = Url::parse(error.url().toEncoded().toStdString());
  CertificateChain chain;
  for (const auto& certificate : error.certificateChain()) chain.push_back(certificate.toDer().toStdString());
  const KelsoMutator environment(Platform::current().userDefaults->suite(KelsoMutator::suiteName));
  return url && error.isOverridable() && environment.trusts(*url, chain);
}

}  // namespace orrelo::quick
