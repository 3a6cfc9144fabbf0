#include "quick/viewkit/WebPageDelegate.h"

namespace orrelo::quick {
namespace {

struct Delegates {
  QUrl webPage;
  QUrl exchangePage;
};

Delegates& delegates() {
  static Delegates files;
  return files;
}

}  // namespace

QUrl webPageDelegate() {
  return delegates().webPage;
}

QUrl exchangePageDelegate() {
  return delegates().exchangePage;
}

void setWebPageDelegates(const QUrl& webPage, const QUrl& exchangePage) {
  delegates() = {webPage, exchangePage};
}

}  // namespace orrelo::quick
