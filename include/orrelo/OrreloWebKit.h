#pragma once

#include <orrelo/EventValue.h>
#include <orrelo/Export.h>

#include <concepts>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace orrelo {

class ViewController;

/// The reason why a script message was not carried out. Compared by case and payload.
class ORRELO_EXPORT OrreloWebkitError {
 public:
  /// The body is not a text with a JSON object.
  struct BodyIsNotJsonConvetableFormat {
    EventValue body;
    friend bool operator==(const BodyIsNotJsonConvetableFormat&,
                           const BodyIsNotJsonConvetableFormat&) = default;
  };
  /// A required parameter is missing or of another type.
  struct RequiredParamterNotSpecified {
    std::optional<std::string> key;
    friend bool operator==(const RequiredParamterNotSpecified&,
                           const RequiredParamterNotSpecified&) = default;
  };
  /// Reserved; never reported.
  struct BodyIsNotSpecified {
    friend bool operator==(const BodyIsNotSpecified&, const BodyIsNotSpecified&) = default;
  };
  /// The body has no text "method".
  struct MethodNotSpecified {
    friend bool operator==(const MethodNotSpecified&, const MethodNotSpecified&) = default;
  };
  /// There is no such method.
  struct UnknownMethod {
    friend bool operator==(const UnknownMethod&, const UnknownMethod&) = default;
  };
  using Variant = std::variant<BodyIsNotJsonConvetableFormat, RequiredParamterNotSpecified,
                               BodyIsNotSpecified, MethodNotSpecified, UnknownMethod>;

  template <class Case>
  requires std::constructible_from<Variant, Case&&> OrreloWebkitError(Case reason)
      : value_(std::move(reason)) {}

  const Variant& variant() const { return value_; }
  /// The name of the case, such as "unknownMethod".
  std::string_view caseName() const;
  /// The name of the case, followed by the missing key in brackets if there is one. Never contains the body.
  std::string description() const;

  friend bool operator==(const OrreloWebkitError&, const OrreloWebkitError&) = default;

 private:
  Variant value_;
};

/// Lets the host's own web pages call Orrelo. The host owns the web view, injects `userScript`, registers a
/// message handler named `handlerName`, and passes each message to `handle`. A page then calls
///
///     OrreloJavaScriptInterface.postMessage(JSON.stringify({method: 'showHome'}));
///
/// With Qt Quick, `orrelo::quick::installBridge` does all of this for a WebEngineView. The methods are:
///
/// | method | parameters |
/// |---|---|
/// | "setUser" | "user_id"; optionally "properties", an object of texts, and otherwise empty |
/// | "showHome", "showInAppMessage", "showNaverPayExchange" | none |
/// | "sendEvent" | "event_name"; optionally "event_values", an object, and otherwise empty |
///
/// A page cannot learn anything from the kit: no method returns a value. Pass only messages of pages that may
/// change the user.
///
/// Threads: any thread; a method that shows a screen shows it on the main thread, as in Orrelo.
///
/// Errors: a message that cannot be carried out is returned as an OrreloWebkitError and not logged. A value
/// that an event cannot hold, such as null in "event_values", throws UnsupportedEventValueException, as in
/// Orrelo::sendEvent; no other exception is thrown. A body may have up to 8 MiB, 512 levels, and only UTF-8.
///
///     const auto error = OrreloWebKit::handle(screen, message.name, message.body);
///     if (error) std::clog << error->description() << '\n';
class ORRELO_EXPORT OrreloWebKit final {
 public:
  OrreloWebKit() = delete;

  /// A script message of a page.
  struct ScriptMessage {
    /// The name of the handler that received the message.
    std::string name;
    EventValue body;
  };
  /// A script to be injected into pages.
  struct UserScript {
    /// When a page's loading reaches the script.
    enum class InjectionTime { atDocumentStart, atDocumentEnd };

    std::string_view source;
    InjectionTime injectionTime;
    /// False if the script also runs in the frames of a page.
    bool forMainFrameOnly;
  };

  static constexpr std::string_view handlerName = "Orrelo";
  static constexpr std::string_view userScriptSource =
      "const OrreloJavaScriptInterface = {};\n"
      "Object.defineProperty(OrreloJavaScriptInterface, 'postMessage', {\n"
      "  value: function(message) {\n"
      "    window.webkit.messageHandlers.Orrelo.postMessage(message);\n"
      "  },\n"
      "  writable: false,\n"
      "  enumerable: false,\n"
      "  configurable: false\n"
      "});";
  static constexpr UserScript userScript{userScriptSource, UserScript::InjectionTime::atDocumentEnd, false};

  /// Carries out a message of a page; screens are shown from `with`, as by `Orrelo::showHome`. Returns
  /// nullopt on success, and for a message of another handler, which is ignored.
  static std::optional<OrreloWebkitError> handle(const std::shared_ptr<ViewController>& with,
                                                 std::string_view messageName, const EventValue& messageBody);
  static std::optional<OrreloWebkitError> handle(const std::shared_ptr<ViewController>& with,
                                                 const ScriptMessage& message);

  /// The same, for callers that prefer an out-parameter: returns true on success. On failure stores the error
  /// in `error`, if that is not null.
  static bool handleWith(const std::shared_ptr<ViewController>& with, std::string_view messageName,
                         const EventValue& messageBody, std::optional<OrreloWebkitError>* error);
  static bool handleWith(const std::shared_ptr<ViewController>& with, const ScriptMessage& message,
                         std::optional<OrreloWebkitError>* error);
};

}  // namespace orrelo
