#include "quick/viewkit/WebPageDelegate.h"

namespace orrelo::quick {
namespace {

QUrl& delegate() {
  static QUrl file;
  return file;
}

}  // namespace

QUrl webPageDelegate() {
  return delegate();
}

void setWebPageDelegate(const QUrl& file) {
  delegate() = file;
}

}  // namespace orrelo::quick
