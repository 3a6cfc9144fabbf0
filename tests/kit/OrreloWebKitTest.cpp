#include "support/LogCapture.h"
#include "support/ServiceReplies.h"
#include "support/TestPlatform.h"
#include "ui/ViewController.h"

#include <orrelo/Orrelo.h>
#include <orrelo/OrreloWebKit.h>

#include <gmock/gmock.h>

namespace orrelo::test {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using Missing = OrreloWebkitError::RequiredParamterNotSpecified;
using Result = std::optional<OrreloWebkitError>;

const Result done;
const Result noMethod = OrreloWebkitError::MethodNotSpecified();
const Result unknown = OrreloWebkitError::UnknownMethod();

Result notJson(const EventValue& body) {
  return OrreloWebkitError::BodyIsNotJsonConvetableFormat{body};
}

/// The façade is told apart by its log: it traces events, and before `initialize` it refuses each screen by
/// the operation's name.
class OrreloWebKitTest : public testing::Test {
 protected:
  Result handle(const EventValue& body) { return OrreloWebKit::handle(host_, "Orrelo", body); }
  /// The façade calls since the last call, without the dates.
  std::vector<std::string> calls() {
    std::vector<std::string> found;
    for (; seen_ < log_.lines().size(); ++seen_) {
      const auto line = log_.lines()[seen_];
      for (const std::string_view start : {"name:", "before "}) {
        if (const auto at = line.find(start); at != std::string::npos) {
          found.push_back(line.substr(at + start.size()));
          break;
        }
      }
    }
    return found;
  }

  TestPlatform platform_;
  const LogCapture log_;
  const std::shared_ptr<HostViewController> host_ = std::make_shared<HostViewController>();

 private:
  std::size_t seen_ = 0;
};

TEST_F(OrreloWebKitTest, TheScriptIsExact) {
  EXPECT_EQ(OrreloWebKit::handlerName, "Orrelo");
  EXPECT_EQ(OrreloWebKit::userScriptSource, R"(const OrreloJavaScriptInterface = {};
Object.defineProperty(OrreloJavaScriptInterface, 'postMessage', {
  value: function(message) {
    window.webkit.messageHandlers.Orrelo.postMessage(message);
  },
  writable: false,
  enumerable: false,
  configurable: false
});)");
  const auto& script = OrreloWebKit::userScript;
  EXPECT_EQ(script.source, OrreloWebKit::userScriptSource);
  EXPECT_EQ(script.injectionTime, OrreloWebKit::UserScript::InjectionTime::atDocumentEnd);
  EXPECT_FALSE(script.forMainFrameOnly);
}

TEST_F(OrreloWebKitTest, EachMethodCallsItsOperation) {
  const auto refused = [](const std::string& operation) { return ElementsAre(operation); };
  EXPECT_EQ(handle(R"({"method":"showHome"})"), done);
  EXPECT_THAT(calls(), refused("showHome(with:)"));
  EXPECT_EQ(handle(R"({"method":"showHome","parameters":5})"), done);
  EXPECT_THAT(calls(), refused("showHome(with:)"));
  EXPECT_EQ(handle(R"({"method":"showInAppMessage"})"), done);
  EXPECT_THAT(calls(), refused("showInAppMessage(with:)"));
  EXPECT_EQ(handle(R"({"method":"showNaverPayExchange"})"), done);
  EXPECT_THAT(calls(), refused("showNaverPayExchange(with:)"));
  EXPECT_EQ(handle(R"({"method":"sendEvent","parameters":{"event_name":"e","event_values":
      {"b":true,"d":0.5,"n":{"a":[1,"x",null]},"t":"신발","i":3,"i":4,"w":1e300}}})"),
            done);
  EXPECT_THAT(
      calls(),
      ElementsAre(R"(e values:["b": true, "d": 0.5, "i": 3, "n": ["a": [1, "x", <null>]], "t": "신발", )"
                  R"("w": 1e+300])",
                  "sendEvent(_:values:)"));
  EXPECT_EQ(handle(R"({"method":"setUser","parameters":{"user_id":"u-1","properties":{"grade":"gold"}}})"),
            done);
  EXPECT_THAT(calls(), ElementsAre(R"(ol_set_user_profile values:["grade": "gold", "user_id": "u-1"])",
                                   "sendEvent(_:values:)"));
  EXPECT_EQ(platform_.defaults->standard()->text("orrelo_user_id"), "u-1");
}

TEST_F(OrreloWebKitTest, ABodyThatIsNoObjectInATextIsHandedBack) {
  const std::string tooLarge = R"({"method":")" + std::string(10 * 1024 * 1024, 'x') + R"("})";
  const std::string tooDeep =
      R"({"method":"sendEvent","parameters":)" + std::string(10'000, '[') + std::string(10'000, ']') + "}";
  const EventValue bodies[] = {EventDictionary{{"method", "showHome"}},
                               nullptr,
                               5,
                               EventBytes(3),
                               "",
                               "[1,2]",
                               "\"showHome\"",
                               R"({"method":"showHome"} x)",
                               "{\"method\":\"showHome\xFF\"}",
                               std::string_view("{\"method\":\"showHome\"}\0", 22),
                               tooLarge,
                               tooDeep};
  for (const auto& body : bodies) {
    const auto error = handle(body);
    ASSERT_TRUE(error);
    EXPECT_EQ(error, notJson(body)) << error->description();
  }
  EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(OrreloWebKitTest, WhatIsMissingIsNamed) {
  EXPECT_EQ(handle(R"({"parameters":{}})"), noMethod);
  EXPECT_EQ(handle(R"({"method":1})"), noMethod);
  EXPECT_EQ(handle(R"({"method":null})"), noMethod);
  EXPECT_EQ(handle(R"({"method":"ShowHome"})"), unknown);
  EXPECT_EQ(handle(R"({"method":"","parameters":{}})"), unknown);
  for (const std::string method : {"setUser", "sendEvent"}) {
    const auto key = method == "setUser" ? "user_id" : "event_name";
    EXPECT_EQ(handle(R"({"method":")" + method + R"("})"), Missing{"parameters"});
    EXPECT_EQ(handle(R"({"method":")" + method + R"(","parameters":"x"})"), Missing{"parameters"});
    EXPECT_EQ(handle(R"({"method":")" + method + R"(","parameters":{}})"), Missing{key});
    EXPECT_EQ(handle(R"({"method":")" + method + R"(","parameters":{")" + key + R"(":5}})"), Missing{key});
  }
  EXPECT_THAT(calls(), IsEmpty());
  EXPECT_EQ(Result(Missing{"user_id"})->description(), "requiredParamterNotSpecified(user_id)");
  EXPECT_EQ(unknown->description(), "unknownMethod");
}

TEST_F(OrreloWebKitTest, OptionalParametersOfAnotherTypeAreEmpty) {
  for (const auto* const properties : {R"({"a":1})", R"({"a":"x","b":null})", "[]", "null", "\"x\""}) {
    EXPECT_EQ(handle(R"({"method":"setUser","parameters":{"user_id":"u","properties":)" +
                     std::string(properties) + "}}"),
              done);
    EXPECT_EQ(calls().front(), R"(ol_set_user_profile values:["user_id": "u"])");
  }
  for (const auto* const values : {"3", "[1]", "null"}) {
    EXPECT_EQ(handle(R"({"method":"sendEvent","parameters":{"event_name":"e","event_values":)" +
                     std::string(values) + "}}"),
              done);
    EXPECT_EQ(calls().front(), "e values:[:]");
  }
}

TEST_F(OrreloWebKitTest, AMessageOfAnotherHandlerPasses) {
  for (const auto* const name : {"orrelo", "Orrelo ", "", "OrreloX", "Native"}) {
    EXPECT_EQ(OrreloWebKit::handle(host_, name, R"({"method":"showHome"})"), done);
    EXPECT_EQ(OrreloWebKit::handle(host_, {name, nullptr}), done);
  }
  EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(OrreloWebKitTest, TheOutParameterIsSetOnFailureAlone) {
  Result error;
  EXPECT_TRUE(OrreloWebKit::handleWith(host_, "Orrelo", R"({"method":"showHome"})", &error));
  EXPECT_EQ(error, done);
  EXPECT_FALSE(OrreloWebKit::handleWith(host_, {"Orrelo", R"({"method":"x"})"}, &error));
  EXPECT_EQ(error, unknown);
  EXPECT_TRUE(OrreloWebKit::handleWith(host_, {"Other", ""}, &error));
  EXPECT_EQ(error, unknown) << "a success leaves it alone";
  EXPECT_FALSE(OrreloWebKit::handleWith(host_, "Orrelo", 5, nullptr));
}

TEST_F(OrreloWebKitTest, OnlyAnUnsupportedValueIsThrown) {
  const std::string body =
      R"({"method":"sendEvent","parameters":{"event_name":"e","event_values":{"x":null}}})";
  EXPECT_EQ(handle(body), done) << "the façade refuses it before it looks at the values";
  platform_.session->responder = [](const URLRequest& request) {
    return std::optional(
        ScriptedURLSession::reply(200, request.url.path().ends_with("/config") ? configReply() : ""));
  };
  Orrelo::initialize(ORLConfig("shop"));
  EXPECT_THROW(handle(body), UnsupportedEventValueException);
  EXPECT_THROW(OrreloWebKit::handleWith(host_, "Orrelo", body, nullptr), UnsupportedEventValueException);
  for (int i = 0; i < 1000; ++i) {
    EXPECT_EQ(handle(R"({"method":"sendEvent","parameters":{"event_name":"e)" + std::to_string(i) + R"("}})"),
              done);
  }
  platform_.loop->runFor(std::chrono::seconds(100));
  const auto sent = platform_.session->requestsTo("/event");
  ASSERT_FALSE(sent.empty());
  EXPECT_THAT(*sent.front().body, HasSubstr(R"("e0")"));
  EXPECT_THAT(calls(), testing::Contains("e999 values:[:]"));
}

}  // namespace
}  // namespace orrelo::test
