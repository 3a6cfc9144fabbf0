#include "platform/http/CurlTransfer.h"

#include "base/Ascii.h"

#include <algorithm>
#include <array>
#include <utility>

namespace orrelo {
namespace {

constexpr int maximumRedirects = 20;
constexpr std::size_t maximumHeaderSize = std::size_t{256} * 1024;

// The result is a single line whatever `value` contains, so that a value cannot inject further headers.
std::string headerLine(const std::string& name, std::string value) {
  std::replace_if(
      value.begin(), value.end(), [](unsigned char c) { return c < 0x20 || c == 0x7F; }, ' ');
  const auto rest = ascii::trimmed(value);
  if (rest.empty()) return name + ";";  // curl's way to send a header whose value is empty
  return (name + ": ").append(rest);
}

bool isRedirect(long status) {
  return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

URLError errorOf(CURLcode code) {
  switch (code) {
    case CURLE_URL_MALFORMAT:
      return URLError::badURL;
    case CURLE_UNSUPPORTED_PROTOCOL:
      return URLError::unsupportedURL;
    case CURLE_OPERATION_TIMEDOUT:
      return URLError::timedOut;
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
      return URLError::cannotFindHost;
    case CURLE_COULDNT_CONNECT:
      return URLError::cannotConnectToHost;
    case CURLE_RECV_ERROR:
    case CURLE_SEND_ERROR:
    case CURLE_SEND_FAIL_REWIND:
    case CURLE_GOT_NOTHING:
    case CURLE_PARTIAL_FILE:
    case CURLE_HTTP2:
    case CURLE_HTTP2_STREAM:
      return URLError::networkConnectionLost;
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_SSL_CERTPROBLEM:
    case CURLE_SSL_CIPHER:
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CACERT_BADFILE:
    case CURLE_SSL_ISSUER_ERROR:
      return URLError::secureConnectionFailed;
    case CURLE_BAD_CONTENT_ENCODING:
      return URLError::cannotDecodeContentData;
    default:
      return URLError::unknown;
  }
}

}  // namespace

CurlTransfer::CurlTransfer(URLRequest request, URLSession::Completion completion)
    : request_(std::move(request)), completion_(std::move(completion)) {}

CurlTransfer::CurlTransfer(URLRequest request, std::shared_ptr<URLSessionDataDelegate> delegate)
    : request_(std::move(request)),
      completion_([delegate](const URLSessionResult& result) {
        if (result.data && !result.data->empty()) delegate->onData(*result.data);
        delegate->onCompletion(result.error);
      }),
      delegate_(delegate) {}

void CurlTransfer::startClock() {
  deadline_ = std::chrono::steady_clock::now() + request_.timeout;
}

std::optional<std::chrono::steady_clock::time_point> CurlTransfer::idleDeadline() const {
  return request_.isTimeoutIdle ? std::optional(deadline_) : std::nullopt;
}

std::optional<std::chrono::steady_clock::time_point> CurlTransfer::waitingDeadline() const {
  return request_.isTimeoutIdle ? std::nullopt : std::optional(deadline_);
}

CurlTransfer::~CurlTransfer() = default;

CURL* CurlTransfer::prepare(const std::optional<TrustedOrigin>& trusted) {
  if (!easy_) easy_.reset(curl_easy_init());
  CURL* const easy = easy_.get();
  if (easy == nullptr) return nullptr;
  curl_easy_reset(easy);
  body_.clear();
  failure_.fill('\0');
  trust_ = trusted ? "the certificates in " + trusted->certificateFile : "this machine's certificates";
  bodySize_ = 0;
  headerSize_ = 0;
  response_ = {};

  curl_easy_setopt(easy, CURLOPT_ERRORBUFFER, failure_.data());
  curl_easy_setopt(easy, CURLOPT_URL, request_.url.text().c_str());
  curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(easy, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_2TLS));
  curl_easy_setopt(easy, CURLOPT_ACCEPT_ENCODING, "");
  curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
  setTimeout();
  // Cancelling a request whose host name is still being resolved must not block the other requests.
  curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L);
  if (trusted) {
    curl_easy_setopt(easy, CURLOPT_CAINFO, trusted->certificateFile.c_str());
    curl_easy_setopt(easy, CURLOPT_CAPATH, nullptr);  // else the system's stay trusted too
  }

  // Sends the path as it was given, without resolving "." and "..".
  curl_easy_setopt(easy, CURLOPT_PATH_AS_IS, 1L);
  if (request_.body) {
    curl_easy_setopt(easy, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(request_.body->size()));
    curl_easy_setopt(easy, CURLOPT_POSTFIELDS, request_.body->data());
  } else if (request_.method == "POST") {
    curl_easy_setopt(easy, CURLOPT_POSTFIELDSIZE_LARGE, curl_off_t{0});
    curl_easy_setopt(easy, CURLOPT_POSTFIELDS, "");
  }
  curl_easy_setopt(easy, CURLOPT_CUSTOMREQUEST, request_.method.c_str());
  setHeaders();

  curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &CurlTransfer::onBody);
  curl_easy_setopt(easy, CURLOPT_WRITEDATA, this);
  curl_easy_setopt(easy, CURLOPT_HEADERFUNCTION, &CurlTransfer::onHeader);
  curl_easy_setopt(easy, CURLOPT_HEADERDATA, this);
  curl_easy_setopt(easy, CURLOPT_PRIVATE, this);
  return easy;
}

void CurlTransfer::setTimeout() {
  if (request_.isTimeoutIdle) return startClock();  // waiting in the queue is not idling
  using std::chrono::milliseconds;
  const auto left = std::chrono::duration_cast<milliseconds>(deadline_ - std::chrono::steady_clock::now());
  curl_easy_setopt(easy_.get(), CURLOPT_TIMEOUT_MS, std::max(1L, static_cast<long>(left.count())));
}

void CurlTransfer::setHeaders() {
  curl_slist* list = curl_slist_append(nullptr, "Expect:");  // sends bodies without waiting for status 100
  bool hasContentType = false;
  for (const auto& [name, value] : request_.headers) {
    hasContentType = hasContentType || ascii::lowercased(name) == "content-type";
    list = curl_slist_append(list, headerLine(name, value).c_str());
  }
  if (!hasContentType) list = curl_slist_append(list, "Content-Type:");
  headerList_.reset(list);
  curl_easy_setopt(easy_.get(), CURLOPT_HTTPHEADER, list);
}

std::size_t CurlTransfer::onBody(char* bytes, std::size_t, std::size_t count, void* self) {
  auto& transfer = *static_cast<CurlTransfer*>(self);
  transfer.bodySize_ += count;
  if (transfer.bodySize_ > transfer.request_.maximumReplySize) {
    transfer.isTooLarge_ = true;
    return 0;  // ends the transfer
  }
  if (transfer.request_.isTimeoutIdle) transfer.startClock();
  transfer.body_.append(bytes, count);
  return count;
}

std::size_t CurlTransfer::onHeader(char* bytes, std::size_t, std::size_t count, void* self) {
  auto& transfer = *static_cast<CurlTransfer*>(self);
  transfer.headerSize_ += count;
  if (transfer.headerSize_ > maximumHeaderSize) {
    transfer.isTooLarge_ = true;
    return 0;
  }
  if (transfer.request_.isTimeoutIdle) transfer.startClock();
  transfer.takeHeader(std::string_view(bytes, count));
  return count;
}

void CurlTransfer::takeHeader(std::string_view line) {
  if (line.starts_with("HTTP/")) response_.headers.clear();  // drops those of an interim reply
  const auto colon = line.find(':');
  if (colon == std::string_view::npos) return;
  response_.headers[ascii::lowercased(line.substr(0, colon))] = ascii::trimmed(line.substr(colon + 1));
}

bool CurlTransfer::finishRequest(CURLcode code) {
  if (code != CURLE_OK) {
    complete(failureOf(code));
    return false;
  }
  response_.statusCode = status();
  if (isRedirect(response_.statusCode) && follow()) return !isOver();
  complete({std::nullopt, std::move(body_), std::move(response_)});
  return false;
}

int CurlTransfer::status() const {
  long status = 0;
  curl_easy_getinfo(easy_.get(), CURLINFO_RESPONSE_CODE, &status);
  return static_cast<int>(status);
}

void CurlTransfer::deliver() {
  if (body_.empty() || isRedirect(status())) return;  // the body of a followed redirect is not delivered
  std::shared_ptr<URLSessionDataDelegate> delegate;
  {
    const std::lock_guard lock(mutex_);
    delegate = delegate_;
  }
  if (delegate) delegate->onData(std::exchange(body_, {}));
}

URLSessionResult CurlTransfer::failureOf(CURLcode code) const {
  if (isTooLarge_) return {makeError(URLError::dataLengthExceedsMaximum), {}, {}};
  const bool isNotHttp =
      code == CURLE_WEIRD_SERVER_REPLY || (code == CURLE_UNSUPPORTED_PROTOCOL && status() == 0);
  if (isNotHttp) return {{}, {}, {}};
  const auto error = errorOf(code);
  std::string message = failure_.front() != '\0' ? failure_.data() : curl_easy_strerror(code);
  if (error == URLError::secureConnectionFailed) message += " (trusted are " + trust_ + ")";
  return {makeError(error, std::move(message)), {}, {}};
}

bool CurlTransfer::follow() {
  char* location = nullptr;
  curl_easy_getinfo(easy_.get(), CURLINFO_REDIRECT_URL, &location);
  const auto target = location != nullptr ? Url::parse(location) : std::nullopt;
  if (!target || !isHttp(*target)) return false;  // the redirect itself becomes the reply
  const bool becomesGet =
      response_.statusCode == 303 || (response_.statusCode < 303 && request_.method == "POST");
  const bool isDowngrade =
      ascii::lowercased(target->scheme()) == "http" && ascii::lowercased(request_.url.scheme()) == "https";
  const bool leavesHost = hostOf(*target) != hostOf(request_.url) || isDowngrade;
  // A body is sent only to the original host, so the redirect itself becomes the reply here too.
  if (leavesHost && request_.body && !becomesGet) return false;
  if (++redirects_ > maximumRedirects) {
    complete({makeError(URLError::httpTooManyRedirects), {}, {}});
    return true;
  }
  if (leavesHost) {
    // The headers identify the user and the device and are sent only to the original host.
    std::erase_if(request_.headers,
                  [](const auto& header) { return ascii::lowercased(header.first) != "content-type"; });
  }
  if (becomesGet) {
    request_.method = "GET";
    request_.body.reset();
  }
  request_.url = *target;
  return true;
}

void CurlTransfer::fail(const Error& error) {
  complete({error, {}, {}});
}

void CurlTransfer::complete(URLSessionResult result) {
  URLSession::Completion completion;
  {
    const std::lock_guard lock(mutex_);
    completion = std::exchange(completion_, nullptr);
    delegate_.reset();
  }
  if (completion) completion(std::move(result));
}

bool CurlTransfer::cancel() {
  URLSession::Completion completion;  // destroyed outside the lock
  std::shared_ptr<URLSessionDataDelegate> delegate;
  const std::lock_guard lock(mutex_);
  std::swap(completion, completion_);
  std::swap(delegate, delegate_);
  return completion != nullptr;
}

bool CurlTransfer::isOver() const {
  const std::lock_guard lock(mutex_);
  return !completion_;
}

}  // namespace orrelo
