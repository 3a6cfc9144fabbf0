#include "network/explainRequest.h"

#include "base/Ascii.h"
#include "base/Utf8.h"
#include "base/explain.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace orrelo {
namespace {

constexpr std::size_t replyLength = 200;

bool identifiesUser(std::string_view name) {
  std::string decoded;
  for (std::size_t at = 0; at < name.size(); ++at) {
    if (name[at] == '%' && at + 2 < name.size()) {
      decoded += static_cast<char>(16 * ascii::hexValue(name[at + 1]) + ascii::hexValue(name[at + 2]));
      at += 2;
    } else {
      decoded += name[at];
    }
  }
  const auto key = ascii::lowercased(decoded);
  return key == "buid" || key == "userid";
}

std::string withoutUser(std::string_view query) {
  std::string shown;
  while (true) {
    const auto item = query.substr(0, query.find('&'));
    const auto equals = item.find('=');
    const bool isCut = equals != std::string_view::npos && identifiesUser(item.substr(0, equals));
    shown += isCut ? std::string(item.substr(0, equals)) + "=…" : std::string(item);
    if (item.size() == query.size()) return shown;
    shown += '&';
    query.remove_prefix(item.size() + 1);
  }
}

std::string_view remedyOf(const Error& error) {
  if (error == makeError(URLError::cannotFindHost) || error == makeError(URLError::cannotConnectToHost)) {
    return "Check that the service runs there and that the network reaches it.";
  }
  if (error == makeError(URLError::secureConnectionFailed)) {
    return "Name the file of the development service's certificate; the URL's host must be one that it is "
           "for.";
  }
  if (error == makeError(URLError::badURL) || error == makeError(URLError::unsupportedURL)) {
    return "Only absolute http and https URLs can be requested.";
  }
  return "";
}

std::string_view remedyOf(int status) {
  if (status == 404) return " Check the application key and the service's URL.";
  if (status == 401 || status == 403) return " The service does not accept this application key.";
  if (status >= 500) return " The service's own log says why.";
  return "";
}

void explainReply(const std::string& name, int status, const std::string& reply) {
  const bool isSuccess = status >= 200 && status <= 299;
  explain(isSuccess ? ExplanationLevel::debug : ExplanationLevel::warning, [&] {
    return name + (isSuccess ? " has got" : " has failed:") + " status " + std::to_string(status) + '.' +
           std::string(remedyOf(status));
  });
  explain(ExplanationLevel::debug, [&] {
    if (reply.empty()) return name + ": the reply is empty";
    return name + ": the reply begins " + utf8::beginning(reply, replyLength);
  });
}

}  // namespace

std::string withoutQuery(std::string_view text) {
  const auto path = text.substr(0, text.find('?'));
  return std::string(path) + (path.size() < text.size() ? "?…" : "");
}

std::string explainedUrl(const Url& url) {
  std::string shown(url.scheme());
  if (!shown.empty()) shown += "://";
  shown += url.host();
  if (!url.port().empty()) shown.append(":").append(url.port());
  shown += url.path();
  if (const auto query = url.query()) shown.append("?").append(withoutUser(*query));
  return shown;
}

void explainResult(std::string_view method, const Url& url, const URLSessionResult& result) {
  if (!isExplained(ExplanationLevel::warning)) return;
  const auto name = std::string(method) + " " + explainedUrl(url);
  if (result.error) {
    explain(ExplanationLevel::warning, [&] {
      return name + " has failed: " + result.error->description() + ". " +
             std::string(remedyOf(*result.error));
    });
  } else if (result.response) {
    explainReply(name, result.response->statusCode, result.data.value_or(""));
  } else {
    explain(ExplanationLevel::warning, name + " has failed: what answers there does not speak HTTP.");
  }
}

}  // namespace orrelo
