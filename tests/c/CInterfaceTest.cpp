#include "c/CallStatus.h"
#include "support/TestPlatform.h"
#include "ui/RunningKit.h"
#include "ui/ViewController.h"

#include <orrelo/Orrelo.h>
#include <orrelo/orrelo_c.h>

#include <array>
#include <gmock/gmock.h>
#include <string>
#include <thread>

namespace orrelo::test {
namespace {

using testing::HasSubstr;

/// Counts the calls of a callback and of its destroy function.
struct Calls {
  int called = 0;
  int destroyed = 0;

  static void call(void* context) { ++static_cast<Calls*>(context)->called; }
  static void destroy(void* context) { ++static_cast<Calls*>(context)->destroyed; }
};

TEST(CInterfaceTest, ValuesAreReadAsTheyWereMade) {
  auto* const values = orrelo_values_new();
  const std::array<std::uint8_t, 16> uuid{1, 2, 3};
  auto* const list = orrelo_value_new_list();
  auto* const set = orrelo_value_new_set();
  for (const int element : {2, 1, 2}) {
    EXPECT_EQ(orrelo_value_append(list, orrelo_value_new_integer(element)), ORRELO_OK);
    EXPECT_EQ(orrelo_value_append(set, orrelo_value_new_integer(element)), ORRELO_OK);
  }
  auto* const inner = orrelo_values_new();
  orrelo_values_set_text(inner, "key", "text");
  const std::array made{orrelo_value_new_null(),
                        orrelo_value_new_bool(true),
                        orrelo_value_new_integer(INT64_MIN),
                        orrelo_value_new_number(0.5),
                        orrelo_value_new_text("안녕"),
                        orrelo_value_new_date(-1),
                        orrelo_value_new_uuid(uuid.data()),
                        orrelo_value_new_url("https://shop.example"),
                        list,
                        set,
                        orrelo_value_new_dictionary(inner),
                        orrelo_value_new_bytes("\0b", 2),
                        orrelo_value_new_other("Widget")};
  for (std::size_t type = 0; type < made.size(); ++type) {
    EXPECT_EQ(orrelo_value_type(made[type]), static_cast<std::int32_t>(type));
    const auto key = std::string(1, static_cast<char>('a' + type));
    EXPECT_EQ(orrelo_values_set(values, key.c_str(), made[type]), ORRELO_OK);
  }
  auto* const copy = orrelo_values_copy(values);
  orrelo_values_free(values);
  ASSERT_EQ(orrelo_values_count(copy), made.size());
  EXPECT_STREQ(orrelo_values_key(copy, 12), "m");
  EXPECT_EQ(orrelo_values_key(copy, 13), nullptr);
  const auto at = [copy](const char* key) { return orrelo_values_get(copy, key); };
  bool boolean = false;
  std::int64_t integer = 0;
  double number = 0;
  std::array<std::uint8_t, 16> bytes{};
  std::size_t size = 0;
  EXPECT_TRUE(orrelo_value_get_bool(at("b"), &boolean) == ORRELO_OK && boolean);
  EXPECT_TRUE(orrelo_value_get_integer(at("c"), &integer) == ORRELO_OK && integer == INT64_MIN);
  EXPECT_TRUE(orrelo_value_get_number(at("d"), &number) == ORRELO_OK && number == 0.5);
  EXPECT_STREQ(orrelo_value_get_text(at("e"), &size), "안녕");
  EXPECT_EQ(size, 6U);
  EXPECT_TRUE(orrelo_value_get_date(at("f"), &integer) == ORRELO_OK && integer == -1);
  EXPECT_TRUE(orrelo_value_get_uuid(at("g"), bytes.data()) == ORRELO_OK && bytes == uuid);
  EXPECT_STREQ(orrelo_value_get_text(at("h"), nullptr), "https://shop.example");
  EXPECT_EQ(orrelo_value_count(at("i")), 3U);
  EXPECT_EQ(orrelo_value_count(at("j")), 2U);
  orrelo_value_get_integer(orrelo_value_element(at("j"), 1), &integer);
  EXPECT_EQ(integer, 1);
  EXPECT_EQ(orrelo_value_element(at("j"), 2), nullptr);
  const auto* const text = orrelo_values_get(orrelo_value_get_dictionary(at("k")), "key");
  EXPECT_STREQ(orrelo_value_get_text(text, nullptr), "text");
  const auto* const data = static_cast<const char*>(orrelo_value_get_bytes(at("l"), &size));
  EXPECT_EQ(std::string(data, size), std::string("\0b", 2));
  EXPECT_STREQ(orrelo_value_get_text(at("m"), nullptr), "Widget");
  EXPECT_EQ(orrelo_value_get_bool(at("c"), &boolean), ORRELO_INVALID_ARGUMENT);
  EXPECT_EQ(orrelo_value_get_text(at("c"), nullptr), nullptr);
  EXPECT_EQ(orrelo_last_status(), ORRELO_INVALID_ARGUMENT);
  orrelo_values_free(copy);
}

TEST(CInterfaceTest, JsonBecomesValues) {
  auto* const values = orrelo_values_from_json(R"({"Orrelo": null, "a": [1.5, {"b": true}], "a": 2})");
  ASSERT_NE(values, nullptr) << orrelo_last_error();
  EXPECT_EQ(*reinterpret_cast<EventDictionary*>(values),
            (EventDictionary{{"Orrelo", nullptr}, {"a", EventArray{1.5, EventDictionary{{"b", true}}}}}));
  orrelo_values_free(values);
  for (const auto* const wrong : {"", "[1]", "{\"a\":", "{\"a\":\"\xff\"}"}) {
    EXPECT_EQ(orrelo_values_from_json(wrong), nullptr) << wrong;
    EXPECT_EQ(orrelo_last_status(), ORRELO_INVALID_ARGUMENT) << wrong;
  }
}

TEST(CInterfaceTest, NestingHasALimit) {
  auto* value = orrelo_value_new_list();
  orrelo_status status = ORRELO_OK;
  int levels = 1;
  for (; levels < 2000 && status == ORRELO_OK; ++levels) {
    auto* const outer = orrelo_value_new_list();
    status = orrelo_value_append(outer, value);
    value = outer;
  }
  EXPECT_EQ(status, ORRELO_INVALID_ARGUMENT);
  EXPECT_EQ(levels, 513);
  EXPECT_EQ(orrelo_value_append(value, value), ORRELO_INVALID_ARGUMENT) << "into itself";
  orrelo_value_free(value);
}

TEST(CInterfaceTest, AWrongArgumentIsNamedAndChangesNothing) {
  const TestPlatform platform;
  auto* const values = orrelo_values_new();
  auto* const user = orrelo_user_new("user-1");
  auto* const host = orrelo_host_application_new(nullptr);
  auto* const reserved = orrelo_config_new("NSGlobalDomain");
  auto* const number = orrelo_value_new_integer(1);
  const auto expect = [](orrelo_status status, const char* message) {
    EXPECT_EQ(status, ORRELO_INVALID_ARGUMENT) << message;
    EXPECT_THAT(orrelo_last_error(), HasSubstr(message));
  };
  expect(orrelo_values_set_bool(nullptr, "key", true), "values is NULL");
  expect(orrelo_values_set_bool(values, nullptr, true), "key is NULL");
  expect(orrelo_values_set(values, "key", nullptr), "value is NULL");
  expect(orrelo_values_set_text(values, "key", nullptr), "text is NULL");
  expect(orrelo_value_append(number, orrelo_value_new_null()), "neither a list nor a set");
  expect((orrelo_value_new_url("not a url"), orrelo_last_status()), "not a URL");
  expect((orrelo_value_new_bytes(nullptr, 1), orrelo_last_status()), "bytes is NULL");
  expect((orrelo_user_new(nullptr), orrelo_last_status()), "userId is NULL");
  expect((orrelo_config_new(nullptr), orrelo_last_status()), "appKey is NULL");
  expect(orrelo_user_set_marketing_status(user, 3), "status is out of range");
  expect(orrelo_host_application_set_version(host, "1", nullptr), "bundleVersion is NULL");
  for (const auto* const url : {"", "http://localhost:9443", "https://", "localhost:9443"}) {
    expect(orrelo_host_application_set_development_service(host, url, nullptr), "not an https URL");
  }
  expect(orrelo_initialize(nullptr), "config is NULL");
  expect(orrelo_initialize(reserved), "reserved name");
  expect(orrelo_send_event(nullptr, values), "name is NULL");
  expect(orrelo_show_campaign("id", nullptr), "with is NULL");
  expect(orrelo_set_push_token(nullptr), "token is NULL");
  expect(orrelo_flush(-1), "negative");
  expect((orrelo_diagnostics(2), orrelo_last_status()), "userIdentity is out of range");
  expect(orrelo_explanations_set_sink(0, nullptr, nullptr, nullptr), "level is out of range");
  expect(orrelo_main_loop_post(nullptr, nullptr, nullptr), "task is NULL");
  EXPECT_EQ(orrelo_values_count(values), 0U);
  EXPECT_EQ(orrelo_user_get_marketing_status(user), ORRELO_MARKETING_UNKNOWN);
  orrelo_value_free(number);
  orrelo_config_free(reserved);
  orrelo_host_application_free(host);
  orrelo_user_free(user);
  orrelo_values_free(values);
}

TEST(CInterfaceTest, StatusesBelongToTheirThread) {
  EXPECT_EQ(orrelo_values_from_json(nullptr), nullptr);
  std::thread([] {
    EXPECT_EQ(orrelo_last_status(), ORRELO_OK);
    EXPECT_STREQ(orrelo_last_error(), "");
  }).join();
  EXPECT_STREQ(orrelo_last_error(), "json is NULL");
  EXPECT_EQ(orrelo_set_user_event_delegate(nullptr, nullptr, nullptr), ORRELO_OK);
  EXPECT_STREQ(orrelo_last_error(), "");
  for (const auto status : {ORRELO_OK - 1, ORRELO_FAILED + 1}) {
    EXPECT_STREQ(orrelo_status_text(status), "unknown status");
  }
  EXPECT_STREQ(orrelo_status_text(ORRELO_FAILED), "failed");
  const std::string text(510, 'a');
  c::finish(ORRELO_FAILED, text + "bcd");
  EXPECT_EQ(orrelo_last_error(), text + "b");
  c::finish(ORRELO_FAILED, text + "안");
  EXPECT_EQ(orrelo_last_error(), text) << "cut between code points";
}

TEST(CInterfaceTest, BeforeInitializeCallsSaySo) {
  const TestPlatform platform;
  Calls calls;
  auto* const payload = orrelo_values_from_json(R"({"Orrelo": true})");
  auto* const screen = orrelo_get_home_view_controller();
  ASSERT_NE(screen, nullptr);
  for (const auto status :
       {orrelo_send_event("early", nullptr), orrelo_show_home(screen), orrelo_show_page("page"),
        orrelo_set_push_token("token"), orrelo_set_device_token("token", 5),
        orrelo_notification_tapped(payload, &Calls::call, &calls, &Calls::destroy)}) {
    EXPECT_EQ(status, ORRELO_NOT_INITIALIZED);
  }
  EXPECT_EQ(calls.called, 0);
  EXPECT_EQ(calls.destroyed, 1);
  orrelo_view_controller_free(screen);
  orrelo_values_free(payload);
}

TEST(CInterfaceTest, DelegatesAreKeptUntilTheyAreReplaced) {
  struct Heard : Calls {
    std::string name;
    orrelo_view_controller* screen = nullptr;
  } heard;
  orrelo_set_user_event_delegate(
      [](void* context, const char* name, const orrelo_values* values) {
        static_cast<Heard*>(context)->name = name + std::to_string(orrelo_values_count(values));
      },
      &heard, &Calls::destroy);
  orrelo_set_opt_in_marketing_campaign_delegate(
      [](void* context, const orrelo_view_controller* screen) {
        static_cast<Heard*>(context)->screen = orrelo_view_controller_copy(screen);
      },
      &heard, &Calls::destroy);
  EXPECT_TRUE(orrelo_has_user_event_delegate() && orrelo_has_opt_in_marketing_campaign_delegate());
  Orrelo::userEventDelegate()->userEventDidOccur({"ol_tap", EventValues{{"a", 1}, {"b", 2}}});
  EXPECT_EQ(heard.name, "ol_tap2");
  Orrelo::userEventDelegate()->userEventDidOccur({"ol_show", {}});
  EXPECT_EQ(heard.name, "ol_show0");
  std::weak_ptr<ViewController> alive;
  {
    const auto screen = std::make_shared<HostViewController>();
    alive = screen;
    Orrelo::optInMarketingCampaignDelegate()->onMoveButtonTapped(screen);
  }
  const TestPlatform platform;
  EXPECT_FALSE(alive.expired()) << "the delegate has copied the handle";
  orrelo_view_controller_free(heard.screen);
  EXPECT_TRUE(alive.expired());
  EXPECT_EQ(heard.destroyed, 0);
  orrelo_set_user_event_delegate(nullptr, nullptr, nullptr);
  orrelo_set_opt_in_marketing_campaign_delegate(nullptr, nullptr, nullptr);
  EXPECT_EQ(heard.destroyed, 2);
  EXPECT_FALSE(orrelo_has_user_event_delegate() || orrelo_has_opt_in_marketing_campaign_delegate());
}

TEST(CInterfaceTest, MessagesOfWebPagesGiveTheReason) {
  const TestPlatform platform;
  const auto* const handler = orrelo_web_kit_handler_name();
  const struct {
    const char* body;
    std::int32_t reason;
    const char* message;
  } cases[] = {
      {"no json", ORRELO_WEB_KIT_BODY_IS_NOT_JSON, "bodyIsNotJsonConvetableFormat"},
      {"{}", ORRELO_WEB_KIT_METHOD_NOT_SPECIFIED, "methodNotSpecified"},
      {R"({"method":"fly"})", ORRELO_WEB_KIT_UNKNOWN_METHOD, "unknownMethod"},
      {R"({"method":"setUser","parameters":{}})", ORRELO_WEB_KIT_REQUIRED_PARAMETER_NOT_SPECIFIED, "user_id"},
  };
  for (const auto& [body, reason, message] : cases) {
    std::int32_t found = 0;
    EXPECT_EQ(orrelo_web_kit_handle(nullptr, handler, body, &found), ORRELO_INVALID_ARGUMENT);
    EXPECT_EQ(found, reason) << body;
    EXPECT_THAT(orrelo_last_error(), HasSubstr(message));
  }
  std::int32_t reason = 0;
  EXPECT_EQ(orrelo_web_kit_handle(nullptr, "Another", "no json", &reason), ORRELO_OK);
  EXPECT_EQ(reason, -1);
  EXPECT_THAT(orrelo_web_kit_user_script_source(), HasSubstr("OrreloJavaScriptInterface"));
}

}  // namespace
}  // namespace orrelo::test
