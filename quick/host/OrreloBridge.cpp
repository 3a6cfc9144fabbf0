#include "quick/host/OrreloBridge.h"

#include "base/explain.h"
#include "model/Delegates.h"
#include "quick/host/HostWindow.h"
#include "quick/host/eventValues.h"

#include <orrelo/Orrelo.h>
#include <orrelo/quick/OrreloQuick.h>

#include <QMetaEnum>
#include <QMetaMethod>
#include <QPointer>
#include <QQuickItem>
#include <cmath>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

namespace orrelo::quick {
namespace {

std::shared_ptr<ViewController> screenAt(QObject* place) {
  if (place == nullptr) return HostWindow::keyScreen();
  if (const auto* const item = qobject_cast<QQuickItem*>(place)) return hostViewController(item->window());
  if (auto* const window = qobject_cast<QQuickWindow*>(place)) return hostViewController(window);
  throw std::invalid_argument(std::string("A screen is shown in a window or in that of an item, not in a ") +
                              place->metaObject()->className());
}

/// The enumerator of this value; nullopt without one. `undefined`, the value of a misspelt name, is none.
template <class Enumeration>
std::optional<Enumeration> enumerator(const QJSValue& value) {
  const auto names = QMetaEnum::fromType<Enumeration>();
  for (int i = 0; i < names.keyCount(); ++i) {
    if (value.isNumber() && value.toNumber() == names.value(i)) return Enumeration(names.value(i));
  }
  return std::nullopt;
}

template <class Enumeration>
std::invalid_argument noEnumerator(const std::string& what) {
  std::string text = what + " is one of";
  const auto names = QMetaEnum::fromType<Enumeration>();
  for (int i = 0; i < names.keyCount(); ++i) {
    text += (i == 0 ? " Orrelo." : ", Orrelo.") + std::string(names.key(i));
  }
  return std::invalid_argument(text);
}

QVariantMap variants(const std::optional<EventValues>& values) {
  QVariantMap map;
  for (const auto& [key, value] : values.value_or(EventValues())) {
    if (const auto* const text = std::get_if<std::string>(&value.variant())) {
      map.insert(QString::fromStdString(key), QString::fromStdString(*text));
    }
  }
  return map;
}

void explainOtherDelegate(const char* signal) {
  explain(ExplanationLevel::warning, [signal] {
    return std::string("The signal ") + signal +
           " of Orrelo is not emitted while the host has a delegate in C++, which is called instead: use one "
           "of both.";
  });
}

constexpr bool hasValue(OrreloBridge::CampaignType type, ORLCampaignType value) {
  return static_cast<int>(type) == static_cast<int>(value);
}
constexpr bool hasValue(OrreloBridge::MarketingStatus status, ORLMarketingStatus value) {
  return static_cast<int>(status) == static_cast<int>(value);
}
static_assert(hasValue(OrreloBridge::CampaignType::Attendance, ORLCampaignType::attendance) &&
              hasValue(OrreloBridge::CampaignType::Referral, ORLCampaignType::referral) &&
              hasValue(OrreloBridge::CampaignType::OptInMarketing, ORLCampaignType::optInMarketing) &&
              hasValue(OrreloBridge::CampaignType::ScratchLottery, ORLCampaignType::scratchLottery) &&
              hasValue(OrreloBridge::CampaignType::Roulette, ORLCampaignType::roulette) &&
              hasValue(OrreloBridge::MarketingStatus::Unknown, ORLMarketingStatus::unknown) &&
              hasValue(OrreloBridge::MarketingStatus::OptIn, ORLMarketingStatus::optIn) &&
              hasValue(OrreloBridge::MarketingStatus::OptOut, ORLMarketingStatus::optOut));

}  // namespace

/// The delegate of all engines' singletons. Main thread.
class OrreloBridge::Relay final : public ORLUserEventDelegate, public ORLOptInMarketingCampaignDelegate {
 public:
  static std::shared_ptr<Relay> shared() {
    static auto* const current = new std::weak_ptr<Relay>;
    auto relay = current->lock();
    if (!relay) *current = relay = std::make_shared<Relay>();
    return relay;
  }

  void add(OrreloBridge* bridge) { bridges_.append(bridge); }

  void userEventDidOccur(const ORLUserEvent& event) override {
    forEach([name = QString::fromStdString(event.name), values = variants(event.values)](
                OrreloBridge& bridge) { Q_EMIT bridge.userEventDidOccur(name, values); });
  }
  void onMoveButtonTapped(const std::shared_ptr<ViewController>& screen) override {
    forEach([window = HostWindow::windowOf(screen)](OrreloBridge& bridge) {
      Q_EMIT bridge.moveButtonTapped(window);
    });
  }

 private:
  template <class Emit>
  void forEach(const Emit& emitFrom) {
    bridges_.removeIf([](const auto& bridge) { return bridge.isNull(); });
    for (const auto& bridge : QList(bridges_)) {
      if (bridge) emitFrom(*bridge);  // a slot may destroy an engine
    }
  }

  QList<QPointer<OrreloBridge>> bridges_;
};

template <class Call>
void OrreloBridge::run(const Call& call) {
  try {
    call();
  } catch (const std::invalid_argument& error) {
    engine_.throwError(QJSValue::TypeError, QString::fromUtf8(error.what()));
  }
}

void OrreloBridge::showHome(QObject* place) {
  run([&] { Orrelo::showHome(screenAt(place)); });
}

void OrreloBridge::showCampaign(const QString& id, QObject* place) {
  run([&] { Orrelo::showCampaign(id.toStdString(), screenAt(place)); });
}

void OrreloBridge::showCampaignOfType(const QJSValue& value, QObject* place) {
  run([&] {
    const auto type = enumerator<CampaignType>(value);
    if (!type) throw noEnumerator<CampaignType>("The type of a campaign");
    Orrelo::showCampaign(static_cast<ORLCampaignType>(*type), screenAt(place));
  });
}

void OrreloBridge::showPage(const QString& id) {
  Orrelo::showPage(id.toStdString());
}

void OrreloBridge::showInAppMessage(QObject* place) {
  run([&] { Orrelo::showInAppMessage(screenAt(place)); });
}

void OrreloBridge::setUser(const QJSValue& id, const QJSValue& marketingStatus, const QJSValue& properties) {
  run([&] {
    if (id.isNull() || id.isUndefined()) return Orrelo::setUser(std::nullopt);
    // A larger number may stand for several ids.
    constexpr double firstInexact = 9'007'199'254'740'992.0;
    const bool isWhole = id.isNumber() && std::trunc(id.toNumber()) == id.toNumber();
    if (!id.isString() && !(isWhole && std::abs(id.toNumber()) < firstInexact)) {
      throw std::invalid_argument("A user's id is a text, a whole number below 2^53 or null");
    }
    auto status = std::optional(MarketingStatus::Unknown);
    if (!marketingStatus.isUndefined()) status = enumerator<MarketingStatus>(marketingStatus);
    if (!status) throw noEnumerator<MarketingStatus>("The marketing status");
    Orrelo::setUser(ORLUser(id.toString().toStdString(), static_cast<ORLMarketingStatus>(*status),
                            eventValues(engine_, properties)));
  });
}

void OrreloBridge::sendEvent(const QString& name, const QJSValue& values) {
  run([&] { Orrelo::sendEvent(name.toStdString(), eventValues(engine_, values)); });
}

void OrreloBridge::connectNotify(const QMetaMethod& signal) {
  const bool isUserEvent = signal == QMetaMethod::fromSignal(&OrreloBridge::userEventDidOccur);
  if (!isUserEvent && signal != QMetaMethod::fromSignal(&OrreloBridge::moveButtonTapped)) return;
  if (!relay_) {
    relay_ = Relay::shared();
    relay_->add(this);
  }
  // A delegate that the host has set in C++ goes before.
  if (isUserEvent) {
    if (Orrelo::userEventDelegate()) explainOtherDelegate("userEventDidOccur");
    setUserEventDelegateOfFront(relay_);
  } else {
    if (Orrelo::optInMarketingCampaignDelegate()) explainOtherDelegate("moveButtonTapped");
    setOptInMarketingCampaignDelegateOfFront(relay_);
  }
}

}  // namespace orrelo::quick

#include "moc_OrreloBridge.cpp"
