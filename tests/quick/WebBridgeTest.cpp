#include "PlainServer.h"
#include "WebTest.h"
#include "support/ExplanationCapture.h"
#include "support/LogCapture.h"

#include <orrelo/orrelo_web_c.h>
#include <orrelo/quick/OrreloWeb.h>

#include <QQmlComponent>
#include <QWebChannel>

namespace orrelo::test {
namespace {

/// A page's script that reports events named `name` + "-early" before the page is read, and `name` + "-late"
/// when it is.
QByteArray reporting(const QByteArray& name) {
  return R"(<!doctype html><script>
    const event = (name, values) => JSON.stringify({method: 'sendEvent', parameters: {event_name: name, event_values: values}})
    webkit.messageHandlers.Orrelo.postMessage(event(')" +
         name + R"(-early', {script: typeof OrreloJavaScriptInterface, channel: typeof qt}))
    let heard = 0
    onmessage = () => heard++
    addEventListener('load', () => setTimeout(() =>
      OrreloJavaScriptInterface.postMessage(event(')" +
         name + R"(-late', {heard})), 300))
  </script>)";
}

/// A host's own WebEngineView with the bridge.
class WebBridgeTest : public WebTest {
 protected:
  /// Loads the page in a new view; `more` is added to the view's QML.
  void load(const QString& url, const QByteArray& more = "OrreloWebKit.enabled: true") {
    QQmlComponent component(engine_.get());
    component.setData(R"(
      import QtQuick
      import QtWebEngine
      import Orrelo.Web
      WebEngineView {
        property var failures: []
        width: 390; height: 400
        OrreloWebKit.onFailed: (error, description) => failures = failures.concat([error + '|' + description])
        onCertificateError: error => error.acceptCertificate()
        onJavaScriptConsoleMessage: {}
        )" + more + "\n}",
                      QUrl());
    view_.reset(qobject_cast<QQuickItem*>(component.create()));
    ASSERT_NE(view_, nullptr) << component.errorString().toStdString();
    view_->setParentItem(window_->contentItem());
    view_->setProperty("url", QUrl(url));
  }
  void run(const QByteArray& body) {
    server_.pages[QStringLiteral("/page")] = "<!doctype html><script>" + body + "</script>";
    load(server_.url(QStringLiteral("/page")));
  }
  /// The values of the events of this name, as logged.
  QStringList events(const std::string& name) const {
    QStringList found;
    const auto start = "is called with name:" + name + " values:";
    for (const auto& line : log_.lines()) {
      if (const auto at = line.find(start); at != std::string::npos) {
        found.push_back(QString::fromStdString(line.substr(at + start.size())));
      }
    }
    return found;
  }
  bool waitForEvent(const std::string& name) {
    return waitFor([&] { return !events(name).isEmpty(); });
  }
  QStringList failures() const { return view_->property("failures").toStringList(); }
  bool waitForFailures(int count) {
    return waitFor([&] { return failures().size() >= count; });
  }

  const LogCapture log_;
  PlainServer server_;
  std::unique_ptr<QQuickItem> view_;
};

TEST_F(WebBridgeTest, EachFrameCallsTheKitOverHttpAndAfterANavigation) {
  server_.pages[QStringLiteral("/page")] =
      reporting("page") + "<iframe src='%OTHER%/frame'></iframe><iframe src='/same'></iframe>";
  server_.pages[QStringLiteral("/frame")] = reporting("frame") + "<iframe src='/inner'></iframe>";
  server_.pages[QStringLiteral("/same")] = reporting("same");
  server_.pages[QStringLiteral("/inner")] = reporting("inner");
  server_.pages[QStringLiteral("/next")] = reporting("next");
  load(server_.url(QStringLiteral("/page")));
  for (const std::string name : {"page", "frame", "same", "inner"}) {
    ASSERT_TRUE(waitForEvent(name + "-late")) << name;
    EXPECT_EQ(events(name + "-early"), QStringList(R"(["channel": "undefined", "script": "undefined"])"))
        << name << ": the script comes at the end of the document, and no page reaches the channel";
    EXPECT_EQ(events(name + "-late"), QStringList(R"(["heard": 0])")) << "pages do not see the transport";
  }
  view_->setProperty("url", QUrl(server_.url(QStringLiteral("/next"))));
  EXPECT_TRUE(waitForEvent("next-late"));
  EXPECT_EQ(events("next-early").size(), 1);
  EXPECT_EQ(failures(), QStringList());
}

TEST_F(WebBridgeTest, AFrameOfADocumentThatAPageWritesCallsTheKit) {
  server_.pages[QStringLiteral("/frame")] = reporting("frame");
  run(R"(
    onload = () => setTimeout(() => {
      document.open()
      document.write('<iframe src=/frame></iframe>')
      document.close()
    }, 0))");
  EXPECT_TRUE(waitForEvent("frame-early"));
  EXPECT_TRUE(waitForEvent("frame-late"));
}

TEST_F(WebBridgeTest, EachFrameCallsTheKitOverHttps) {
  const auto folder = folder_.path() / "scenario/pages";
  std::filesystem::create_directories(folder);
  auto other = pages_.baseUrl();
  const auto at = other.find("127.0.0.1");
  const bool isNumber = at != std::string::npos;
  other.replace(isNumber ? at : other.find("localhost"), 9, isNumber ? "localhost" : "127.0.0.1");
  std::ofstream(folder / "page.html")
      << reporting("page").toStdString() << "<iframe src='" << other << "/pages/frame.html'></iframe>";
  std::ofstream(folder / "frame.html") << reporting("frame").toStdString();
  load(QString::fromStdString(pages_.baseUrl() + "/pages/page.html"));
  EXPECT_TRUE(waitForEvent("page-late"));
  EXPECT_TRUE(waitForEvent("frame-late"));
}

TEST_F(WebBridgeTest, APageSignsInAndOpensAScreen) {
  run(R"(
    const post = message => webkit.messageHandlers.Orrelo.postMessage(JSON.stringify(message))
    post({method: 'setUser', parameters: {user_id: '지은', properties: {grade: 'gold'}}})
    post({method: 'showNaverPayExchange'}))");
  EXPECT_TRUE(waitFor([&] { return host()->presentedViewController() != nullptr; }));
  EXPECT_EQ(events("ol_set_user_profile").back(), QStringLiteral(R"(["grade": "gold", "user_id": "지은"])"));
}

TEST_F(WebBridgeTest, AMessageThatIsNotCarriedOutBecomesASignal) {
  run(R"(
    const post = message => webkit.messageHandlers.Orrelo.postMessage(message)
    const values = json => '{"method":"sendEvent","parameters":{"event_name":"e","event_values":' + json + '}}'
    post('{"method":"ShowHome"}')
    post({method: 'showHome'})
    post(undefined)
    post(() => 0)
    post('{"method":"setUser","parameters":{}}')
    post(values('{"x": null}'))
    post('x'.repeat(10 * 1024 * 1024))
    post('['.repeat(10000))
    let deep = []
    for (let i = 0; i < 3000; ++i) deep = [deep]
    post(deep)
    for (let i = 0; i < 1000; ++i) post(values('{"i":' + i + '}')))");
  ASSERT_TRUE(waitForFailures(9));
  const auto notJson = QStringLiteral("bodyIsNotJsonConvetableFormat|bodyIsNotJsonConvetableFormat");
  EXPECT_EQ(failures(),
            QStringList({QStringLiteral("unknownMethod|unknownMethod"), notJson, notJson, notJson,
                         QStringLiteral("requiredParamterNotSpecified|requiredParamterNotSpecified(user_id)"),
                         failures().value(5), notJson, notJson, notJson}));
  EXPECT_TRUE(failures().value(5).startsWith(QLatin1Char('|')));
  EXPECT_TRUE(failures().value(5).endsWith(QStringLiteral("is not supported class")));
  ASSERT_TRUE(waitFor([&] { return events("e").size() >= 1001; }));
  EXPECT_EQ(events("e").back(), QStringLiteral(R"(["i": 999])")) << "in the order of the calls";
}

TEST_F(WebBridgeTest, TheCallForAViewIsTheSame) {
  load(QStringLiteral("about:blank"), "");
  std::vector<std::string> reported;
  const auto install = [&](QQuickItem* item) {
    return quick::installBridge(
        item, [&](const std::optional<OrreloWebkitError>& error, const std::string& description) {
          reported.push_back(std::string(error ? error->caseName() : "unsupported") + "|" + description);
        });
  };
  EXPECT_TRUE(install(view_.get()));
  EXPECT_TRUE(install(view_.get()));
  EXPECT_FALSE(install(nullptr));
  const auto children = window_->contentItem()->children();
  EXPECT_FALSE(install(window_->contentItem()));
  EXPECT_EQ(window_->contentItem()->children(), children) << "nothing is made in another item";
  server_.pages[QStringLiteral("/page")] =
      "<script>webkit.messageHandlers.Orrelo.postMessage('{\"method\":1}')</script>";
  view_->setProperty("url", QUrl(server_.url(QStringLiteral("/page"))));
  ASSERT_TRUE(waitFor([&] { return !reported.empty(); }));
  EXPECT_EQ(reported.front(), "methodNotSpecified|methodNotSpecified");
  EXPECT_EQ(reported.size(), 1U);
}

TEST_F(WebBridgeTest, TheCallInCIsTheSame) {
  load(QStringLiteral("about:blank"), "");
  struct Heard {
    std::vector<std::int32_t> reasons;
    int destroyed = 0;
  } heard;
  const auto install = [&](QObject* item) {
    return orrelo_web_install_bridge(
        item,
        [](void* context, std::int32_t reason, const char*) {
          static_cast<Heard*>(context)->reasons.push_back(reason);
        },
        &heard, [](void* context) { ++static_cast<Heard*>(context)->destroyed; });
  };
  EXPECT_EQ(install(view_.get()), ORRELO_OK);
  EXPECT_EQ(install(window_->contentItem()), ORRELO_FAILED);
  EXPECT_EQ(install(engine_.get()), ORRELO_INVALID_ARGUMENT);
  EXPECT_EQ(install(nullptr), ORRELO_INVALID_ARGUMENT);
  EXPECT_EQ(heard.destroyed, 3);
  EXPECT_EQ(orrelo_web_initialize(), ORRELO_FAILED) << "after the application";
  server_.pages[QStringLiteral("/page")] =
      "<script>webkit.messageHandlers.Orrelo.postMessage('{\"method\":1}')</script>";
  view_->setProperty("url", QUrl(server_.url(QStringLiteral("/page"))));
  ASSERT_TRUE(waitFor([&] { return !heard.reasons.empty(); }));
  EXPECT_EQ(heard.reasons, std::vector<std::int32_t>{ORRELO_WEB_KIT_METHOD_NOT_SPECIFIED});
  view_.reset();
  EXPECT_EQ(heard.destroyed, 4);
}

TEST_F(WebBridgeTest, NothingHappensAfterTheViewIsGone) {
  run("setInterval(() => webkit.messageHandlers.Orrelo.postMessage("
      "'{\"method\":\"sendEvent\",\"parameters\":{\"event_name\":\"tick\"}}'), 1)");
  ASSERT_TRUE(waitForEvent("tick"));
  view_.reset();
  const auto count = events("tick").size();
  server_.pages[QStringLiteral("/next")] = reporting("next");
  load(server_.url(QStringLiteral("/next")));
  ASSERT_TRUE(waitForEvent("next-late"));
  EXPECT_EQ(events("tick").size(), count);
}

TEST_F(WebBridgeTest, AHostKeepsItsOwnScriptsAndItsOwnChannel) {
  load(QStringLiteral("about:blank"), R"(
    OrreloWebKit.enabled: true
    Component.onCompleted: userScripts.collection = [{
      name: "shop", sourceCode: "shop = 'open'", worldId: WebEngineScript.MainWorld,
      injectionPoint: WebEngineScript.DocumentCreation}])");
  EXPECT_NE(view_->property("webChannelWorld").toUInt(), 0U);
  auto* const channel = qobject_cast<QWebChannel*>(view_->property("webChannel").value<QObject*>());
  ASSERT_NE(channel, nullptr);
  QObject hosts;
  channel->registerObject(QStringLiteral("shop"), &hosts);
  {
    const ExplanationCapture explanations;
    EXPECT_TRUE(waitFor([&] { return !explanations.lines().empty(); })) << "pages do not reach the object";
    EXPECT_THAT(explanations.lines(), testing::ElementsAre(testing::HasSubstr("set webChannelWorld")));
  }
  view_->setProperty("webChannelWorld", 0U);
  server_.pages[QStringLiteral("/page")] = reporting("page") + R"(<script>
    webkit.messageHandlers.Orrelo.postMessage(event('shop', {shop})))"
                                                               "</script>";
  view_->setProperty("url", QUrl(server_.url(QStringLiteral("/page"))));
  ASSERT_TRUE(waitForEvent("page-late"));
  EXPECT_EQ(events("page-early"), QStringList(R"(["channel": "object", "script": "undefined"])"));
  EXPECT_EQ(events("shop"), QStringList(R"(["shop": "open"])"));
}

TEST_F(WebBridgeTest, TheKitsOwnPagesCannotGetIt) {
  show("");
  ASSERT_TRUE(waitForGreen());
  const ExplanationCapture explanations;
  EXPECT_FALSE(quick::installBridge(engineView()));
  EXPECT_FALSE(quick::installBridge(nullptr));
  quick::initializeWeb();
  EXPECT_THAT(explanations.lines(),
              testing::ElementsAre(testing::HasSubstr("is not installed in QQuickWebEngineView"),
                                   testing::HasSubstr("is not installed in a null item"),
                                   testing::HasSubstr("initializeWeb comes after")));
}

}  // namespace
}  // namespace orrelo::test
