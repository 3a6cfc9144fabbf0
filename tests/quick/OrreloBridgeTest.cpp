#include "QuickTest.h"
#include "model/Delegates.h"
#include "support/ExplanationCapture.h"
#include "support/Reports.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QQmlComponent>
#include <QQmlEngine>
#include <map>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr auto listener = R"(
  property var heard: []
  property var tapped: null
  property Connections connections: Connections {
    target: Orrelo
    function onUserEventDidOccur(name, values) { root.heard.push(name + " " + JSON.stringify(values)) }
    function onMoveButtonTapped(window) { root.tapped = window }
  })";

/// A host that calls the kit from QML alone.
class OrreloBridgeTest : public QuickTest {
 protected:
  OrreloBridgeTest() {
    service_->answers["/campaigns/c-1"] = {200, campaignReply(optInMarketingPage())};
    service_->answers["/campaigns"] = {200, "[]"};
  }

  /// An object of a QML file with these members.
  static std::unique_ptr<QObject> make(QQmlEngine& engine, const QString& members) {
    QQmlComponent component(&engine);
    component.setData(
        "import QtQuick\nimport Orrelo\nQtObject { id: root; property var place; property list<int> scores: "
        "[1, 2]; property url home: 'https://shop.example/'; " +
            members.toUtf8() + " }",
        {});
    EXPECT_TRUE(component.isReady()) << component.errorString().toStdString();
    return std::unique_ptr<QObject>(component.create());
  }
  /// Runs a statement, in which `place` is an object of the host; returns the error that it throws.
  std::string run(const QString& statement, QObject* place = nullptr) {
    const auto file = make(*engine_, "function run() { try { " + statement +
                                         " } catch (error) { return error.toString() } return '' }");
    file->setProperty("place", QVariant::fromValue(place));
    QVariant error;
    EXPECT_TRUE(QMetaObject::invokeMethod(file.get(), "run", Q_RETURN_ARG(QVariant, error)));
    return error.toString().toStdString();
  }
  /// The body of the last event of this name that the service has got.
  QJsonObject sent(const QString& name) {
    QJsonObject found;
    EXPECT_TRUE(waitFor([&] {
      for (const auto& body : service_->bodies) {
        const auto event = QJsonDocument::fromJson(QByteArray::fromStdString(body)).object();
        if (event["event_name"] == name) found = event;
      }
      return !found.isEmpty();
    })) << name.toStdString();
    return found;
  }
  bool waitForScreen(QQuickWindow* window) {
    return waitFor(
        [window] { return quick::hostViewController(window)->presentedViewController() != nullptr; });
  }
};

TEST_F(OrreloBridgeTest, TheValuesOfQmlBecomeThoseOfAnEvent) {
  EXPECT_EQ(run(R"(
    Orrelo.sendEvent("purchase", {
      item: "신발", whole: 3, negative: -7, large: 9007199254740991, huge: 1e300, price: 39.9, isGift: false,
      at: new Date(0), page: Qt.resolvedUrl("https://shop.example/a?b"),
      sizes: [41, 41.5, "L", null, undefined, [true]], shop: { name: "파랑", at: { floor: 2 } }, none: {},
      scores: scores, home: home }))"),
            "");
  const auto event = sent("purchase");
  const std::map<QString, QString> expected{{"item", "신발"},
                                            {"whole", "3"},
                                            {"negative", "-7"},
                                            {"large", "9007199254740991"},
                                            {"huge", "1e+300"},
                                            {"price", "39.9"},
                                            {"isGift", "false"},
                                            {"at", "1970-01-01 00:00:00 +0000"},
                                            {"page", "https://shop.example/a?b"},
                                            {"sizes", R"([41,41.5,"L",null,null,[true]])"},
                                            {"scores", "[1,2]"},
                                            {"home", "https://shop.example/"},
                                            {"shop", R"({"at":{"floor":2},"name":"파랑"})"},
                                            {"none", "{}"},
                                            {"user_id", "u-1"}};
  for (const auto& [key, text] : expected) EXPECT_EQ(event[key].toString(), text) << key.toStdString();

  EXPECT_EQ(run("Orrelo.setUser(42, Orrelo.OptOut, { level: 3 }); Orrelo.sendEvent('by 42')"), "");
  EXPECT_EQ(sent("by 42")["user_id"], "42");
  EXPECT_EQ(sent("ol_set_user_profile")["opt_in_marketing"], "false");
  EXPECT_EQ(sent("ol_set_user_profile")["level"], "3");
  EXPECT_EQ(run("Orrelo.setUser('u-3'); Orrelo.setUser(null); Orrelo.sendEvent('by nobody', null)"), "");
  EXPECT_FALSE(sent("by nobody").contains("user_id"));
  EXPECT_FALSE(sent("ol_set_user_profile").contains("opt_in_marketing"));
}

TEST_F(OrreloBridgeTest, WhatIsWrongIsThrownToQml) {
  const auto types =
      "TypeError: The type of a campaign is one of Orrelo.Attendance, Orrelo.Referral, "
      "Orrelo.OptInMarketing, Orrelo.ScratchLottery, Orrelo.Roulette";
  const std::string id = "TypeError: A user's id is a text, a whole number below 2^53 or null";
  const auto statuses =
      "TypeError: The marketing status is one of Orrelo.Unknown, Orrelo.OptIn, Orrelo.OptOut";
  const auto values = R"(TypeError: An event's values are the members of an object, such as {"price": 39.9})";
  const auto deep = "TypeError: The event's values are nested more than 512 deep, or contain themselves";
  const std::map<QString, std::string> errors{
      {"Orrelo.showCampaignOfType(Orrelo.Attendence)", types},
      {"Orrelo.showCampaignOfType('Attendance')", types},
      {"Orrelo.showCampaignOfType(5)", types},
      {"Orrelo.showCampaignOfType(0.5)", types},
      {"Orrelo.setUser('u', 'OptIn')", statuses},
      {"Orrelo.setUser({})", id},
      {"Orrelo.setUser(1e16)", id},
      {"Orrelo.setUser('u', Orrelo.OptIn, { a: null })", "TypeError: Null is not supported class"},
      {"Orrelo.sendEvent('e', { a: undefined })", "TypeError: Null is not supported class"},
      {"Orrelo.sendEvent('e', { a: () => 1 })", "TypeError: Function is not supported class"},
      {"Orrelo.sendEvent('e', { a: new Map() })", "TypeError: Map is not supported class"},
      {"Orrelo.sendEvent('e', { a: Symbol('s') })", "TypeError: Symbol is not supported class"},
      {"Orrelo.sendEvent('e', { a: Qt.point(1, 2) })", "TypeError: QPointF is not supported class"},
      {"Orrelo.sendEvent('e', { a: new Date(NaN) })", "TypeError: Invalid Date is not supported class"},
      {"Orrelo.sendEvent('e', { a: place.contentItem })", "TypeError: QQuickRootItem is not supported class"},
      {"Orrelo.sendEvent('e', [1])", values},
      {"Orrelo.sendEvent('e', 'a')", values},
      {"Orrelo.sendEvent('e', place)", values},
      {"const a = { b: 1 }; a.a = a; Orrelo.sendEvent('e', a)", deep},
      {"Orrelo.showHome(Orrelo)",
       "TypeError: A screen is shown in a window or in that of an item, not in a "
       "orrelo::quick::OrreloBridge"},
  };
  for (const auto& [statement, error] : errors) {
    EXPECT_EQ(run(statement, window_), error) << statement.toStdString();
  }
  EXPECT_EQ(host()->presentedViewController(), nullptr);
}

TEST_F(OrreloBridgeTest, AScreenIsShownInTheWindowThatIsNamedOrElseInTheActiveOne) {
  for (const QString statement : {"Orrelo.showHome()", "Orrelo.showCampaign('c-1', place)",
                                  "Orrelo.showCampaignOfType(Orrelo.Attendance, place.contentItem)",
                                  "Orrelo.showPage('main')", "Orrelo.showInAppMessage(place)"}) {
    SCOPED_TRACE(statement.toStdString());
    open({390, 844});
    EXPECT_EQ(run(statement, window_), "");
    if (statement.contains("Message")) {
      EXPECT_TRUE(waitFor([&] { return service_->timesAsked("/in-app-message/banner") > 0; }));
    } else {
      EXPECT_TRUE(waitForScreen(window_));
    }
  }
  open({390, 844});
  const auto first = std::exchange(engine_, nullptr);
  auto* const other = std::exchange(window_, nullptr);
  open({390, 844});
  EXPECT_EQ(run("Orrelo.showCampaign('c-1')"), "");
  EXPECT_TRUE(waitForScreen(window_));
  EXPECT_EQ(run("Orrelo.showCampaign('c-1', place)", other), "");
  EXPECT_TRUE(waitForScreen(other));
}

TEST_F(OrreloBridgeTest, APlaceWithoutTheKitsScreensIsExplained) {
  const ExplanationCapture log;
  QQuickWindow bare;
  QQuickItem nowhere;
  EXPECT_EQ(run("Orrelo.showCampaign('c-1', place)", &bare), "");
  EXPECT_EQ(run("Orrelo.showCampaign('c-1', place)", &nowhere), "");
  open({390, 844});
  delete std::exchange(window_, nullptr);
  EXPECT_EQ(run("Orrelo.showHome(); Orrelo.showCampaign('c-1')"), "");
  EXPECT_THAT(log.lines(),
              ElementsAre(HasSubstr("without an OrreloHost"), HasSubstr("was given no window"),
                          HasSubstr("showHome shows nothing"), HasSubstr("showCampaign shows nothing")));
}

TEST_F(OrreloBridgeTest, TheDelegatesAreSignalsOfAllEnginesUntilTheHostSetsItsOwn) {
  EXPECT_EQ(run("Orrelo.sendEvent('e')"), "");
  EXPECT_EQ(calledUserEventDelegate(), nullptr) << "nobody listens";
  auto one = make(*engine_, listener);
  auto second = std::make_unique<QQmlEngine>();
  auto other = make(*second, listener);
  showCampaign();
  const QString button = "알림 받으러 가기";
  ASSERT_TRUE(waitForNamed(button));
  settle();
  click(button);
  for (const auto& file : {one.get(), other.get()}) {
    const auto heard = file->property("heard").toStringList();
    EXPECT_TRUE(heard.contains("ol_opt_in_marketing_move_button_click {}")) << heard.join("; ").toStdString();
    EXPECT_EQ(file->property("tapped").value<QQuickWindow*>(), window_);
  }
  one.reset();
  engine_.reset();
  EXPECT_EQ(Orrelo::userEventDelegate(), nullptr) << "the host has set none";
  calledUserEventDelegate()->userEventDidOccur({"ol_e", EventValues{{"page_name", "p"}}});
  EXPECT_EQ(other->property("heard").toStringList().back(), R"(ol_e {"page_name":"p"})");

  other.reset();
  second.reset();
  EXPECT_EQ(calledOptInMarketingCampaignDelegate(), nullptr) << "no engine leaves it behind";

  auto reports = std::make_shared<Reports>();
  Orrelo::setUserEventDelegate(reports);
  open({390, 844});
  const ExplanationCapture log;
  one = make(*engine_, listener);
  EXPECT_EQ(calledUserEventDelegate(), reports);
  EXPECT_THAT(log.lines(), ElementsAre(HasSubstr("userEventDidOccur of Orrelo is not emitted")));
  reports.reset();
  calledUserEventDelegate()->userEventDidOccur({"ol_e", std::nullopt});
  EXPECT_EQ(one->property("heard").toStringList(), QStringList("ol_e {}")) << "the host's own has gone";
}

}  // namespace
}  // namespace orrelo::test
