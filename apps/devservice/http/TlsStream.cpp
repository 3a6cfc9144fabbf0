#include "http/TlsStream.h"

#include <algorithm>
#include <openssl/err.h>
#include <poll.h>
#include <string_view>
#include <sys/socket.h>

namespace orrelo::devservice {

namespace {

constexpr std::string_view endOfHead = "\r\n\r\n";
constexpr std::size_t maxHeadSize = std::size_t{1024} * 1024;
constexpr std::chrono::seconds readTimeout{10};

std::string_view trimmed(std::string_view text) {
  const auto start = text.find_first_not_of(" \t");
  if (start == std::string_view::npos) return {};
  return text.substr(start, text.find_last_not_of(" \t") - start + 1);
}

httplib::Headers headersOf(std::string_view head) {
  httplib::Headers headers;
  for (auto end = head.find("\r\n"); end != std::string_view::npos; end = head.find("\r\n")) {
    const auto line = head.substr(0, end);
    head.remove_prefix(end + 2);
    const auto colon = line.find(':');
    if (colon == std::string_view::npos) continue;
    headers.emplace(line.substr(0, colon), trimmed(line.substr(colon + 1)));
  }
  return headers;
}

}  // namespace

TlsStream::TlsStream(SSL_CTX* context, socket_t socket) : ssl_(SSL_new(context)), descriptor_(socket) {
  if (ssl_ == nullptr) return;
  SSL_set_fd(ssl_, descriptor_);
  SSL_set_app_data(ssl_, this);
}

TlsStream::~TlsStream() {
  SSL_free(ssl_);
  // The error queue is the thread's: the next connection on it must not report errors of this one.
  ERR_clear_error();
}

bool TlsStream::handshake() {
  return ssl_ != nullptr && SSL_accept(ssl_) == 1;
}

bool TlsStream::poll(short events, std::chrono::milliseconds timeout) const {
  pollfd waiting{descriptor_, events, 0};
  return ::poll(&waiting, 1, static_cast<int>(timeout.count())) > 0;
}

bool TlsStream::waitForRequest(std::chrono::milliseconds timeout) {
  head_.clear();
  headComplete_ = false;
  return !dropped_ && (incomingStart_ < incomingEnd_ || SSL_pending(ssl_) > 0 || poll(POLLIN, timeout));
}

void TlsStream::close() {
  if (!dropped_) SSL_shutdown(ssl_);
}

void TlsStream::adopt(httplib::Request& request) {
  request.ssl = ssl_;
  const auto firstLine = head_.find("\r\n");
  if (headComplete_) request.headers = headersOf(std::string_view(head_).substr(firstLine + 2));
}

TlsStream& TlsStream::of(const httplib::Request& request) {
  return *static_cast<TlsStream*>(SSL_get_app_data(request.ssl));
}

void TlsStream::drop() {
  dropped_ = true;
  ::shutdown(descriptor_, SHUT_RDWR);
}

bool TlsStream::clientLeft() const {
  return poll(POLLRDHUP, std::chrono::milliseconds(0));
}

bool TlsStream::is_readable() const {
  return incomingStart_ < incomingEnd_ || SSL_pending(ssl_) > 0 || poll(POLLIN, readTimeout);
}

ssize_t TlsStream::read(char* buffer, std::size_t size) {
  // Buffered, because the server library reads the headers byte by byte.
  if (incomingStart_ == incomingEnd_) {
    const int got = SSL_read(ssl_, incoming_.data(), static_cast<int>(incoming_.size()));
    if (got <= 0) return SSL_get_error(ssl_, got) == SSL_ERROR_ZERO_RETURN ? 0 : -1;
    incomingStart_ = 0;
    incomingEnd_ = static_cast<std::size_t>(got);
  }
  const auto taken = std::min(size, incomingEnd_ - incomingStart_);
  std::copy_n(incoming_.data() + incomingStart_, taken, buffer);
  incomingStart_ += taken;
  keepHead(buffer, taken);
  return static_cast<ssize_t>(taken);
}

void TlsStream::keepHead(const char* bytes, std::size_t size) {
  if (headComplete_ || head_.size() > maxHeadSize) return;
  head_.append(bytes, size);
  headComplete_ = head_.ends_with(endOfHead);
}

ssize_t TlsStream::write(const char* bytes, std::size_t size) {
  if (dropped_) return -1;
  if (size == 0) return 0;
  const int written = SSL_write(ssl_, bytes, static_cast<int>(std::min<std::size_t>(size, INT32_MAX)));
  return written > 0 ? written : -1;
}

// The service has no use for the addresses: all its clients are on this machine.
void TlsStream::get_remote_ip_and_port(std::string& ip, int& port) const {
  ip.clear();
  port = 0;
}

void TlsStream::get_local_ip_and_port(std::string& ip, int& port) const {
  ip.clear();
  port = 0;
}

}  // namespace orrelo::devservice
