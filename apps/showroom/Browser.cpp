#include "Browser.h"

#ifdef SHOWROOM_HAS_WEB
#include <orrelo/quick/OrreloWeb.h>

#include <QCryptographicHash>
#include <QLoggingCategory>
#include <QSslCertificate>
#include <QSslKey>
#include <unistd.h>

namespace orrelo::showroom {
namespace {

QtMessageHandler defaultHandler = nullptr;

void addFlag(const QByteArray& flag) {
  constexpr auto flags = "QTWEBENGINE_CHROMIUM_FLAGS";
  qputenv(flags, qgetenv(flags) + ' ' + flag);
}

// The engine of Qt 6.4 warns of types in its own QML module, and where there is no graphics card. The lines
// have no logging category by which they could be switched off without the others.
void passOn(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (message.contains(QStringLiteral("is neither a QObject, nor default- and copy-constructible")) ||
      message.startsWith(QStringLiteral("No suitable graphics backend found"))) {
    return;
  }
  defaultHandler(type, context, message);
}

}  // namespace

void Browser::initialize() {
  // The sandbox refuses to run as root, as in a container. Going without it is safe here, because only the
  // showroom's own pages are shown.
  if (geteuid() == 0) addFlag("--no-sandbox");
  QLoggingCategory::setFilterRules(QStringLiteral("qt.webenginecontext=false"));
  defaultHandler = qInstallMessageHandler(&passOn);
  quick::initializeWeb();
}

void Browser::accept(const std::filesystem::path& certificateFile) {
  const auto certificates = QSslCertificate::fromPath(QString::fromStdString(certificateFile.string()));
  if (certificates.isEmpty()) return;
  const auto key = certificates.front().publicKey().toDer();
  addFlag("--ignore-certificate-errors-spki-list=" +
          QCryptographicHash::hash(key, QCryptographicHash::Sha256).toBase64());
}

}  // namespace orrelo::showroom

#else

namespace orrelo::showroom {

void Browser::initialize() {}
void Browser::accept(const std::filesystem::path&) {}

}  // namespace orrelo::showroom

#endif
