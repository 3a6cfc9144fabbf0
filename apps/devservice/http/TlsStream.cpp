#include "http/TlsStream.h"

#include <algorithm>
#include <openssl/err.h>
#include <poll.h>
#include <string_view>
#include <sys/socket.h>

namespace orrelo::devservice {

namespace {

constexpr std::string_view headEnd = "\r\n\r\n";
constexpr std::size_t largestHead = std::size_t{1024} * 1024;
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

TlsStream::TlsStream(SSL_CTX* context, socket_t socket) : ssl(SSL_new(context)), descriptor(socket) {
  if (ssl == nullptr) return;
  SSL_set_fd(ssl, descriptor);
  SSL_set_app_data(ssl, this);
}

TlsStream::~TlsStream() {
  SSL_free(ssl);
  // What failed here must not be taken for a failure of this thread's next connection.
  ERR_clear_error();
}

bool TlsStream::handshake() {
  return ssl != nullptr && SSL_accept(ssl) == 1;
}

bool TlsStream::poll(short events, std::chrono::milliseconds timeout) const {
  pollfd waiting{descriptor, events, 0};
  return ::poll(&waiting, 1, static_cast<int>(timeout.count())) > 0;
}

bool TlsStream::waitForRequest(std::chrono::milliseconds timeout) {
  head.clear();
  headComplete = false;
  return !dropped && (incomingStart < incomingEnd || SSL_pending(ssl) > 0 || poll(POLLIN, timeout));
}

void TlsStream::close() {
  if (!dropped) SSL_shutdown(ssl);
}

void TlsStream::adopt(httplib::Request& request) {
  request.ssl = ssl;
  const auto firstLine = head.find("\r\n");
  if (headComplete) request.headers = headersOf(std::string_view(head).substr(firstLine + 2));
}

TlsStream& TlsStream::of(const httplib::Request& request) {
  return *static_cast<TlsStream*>(SSL_get_app_data(request.ssl));
}

void TlsStream::drop() {
  dropped = true;
  ::shutdown(descriptor, SHUT_RDWR);
}

bool TlsStream::clientLeft() const {
  return poll(POLLRDHUP, std::chrono::milliseconds(0));
}

bool TlsStream::is_readable() const {
  return incomingStart < incomingEnd || SSL_pending(ssl) > 0 || poll(POLLIN, readTimeout);
}

ssize_t TlsStream::read(char* buffer, std::size_t size) {
  // Buffered, because the server library reads the headers byte by byte.
  if (incomingStart == incomingEnd) {
    const int got = SSL_read(ssl, incoming.data(), static_cast<int>(incoming.size()));
    if (got <= 0) return SSL_get_error(ssl, got) == SSL_ERROR_ZERO_RETURN ? 0 : -1;
    incomingStart = 0;
    incomingEnd = static_cast<std::size_t>(got);
  }
  const auto taken = std::min(size, incomingEnd - incomingStart);
  std::copy_n(incoming.data() + incomingStart, taken, buffer);
  incomingStart += taken;
  keepHead(buffer, taken);
  return static_cast<ssize_t>(taken);
}

void TlsStream::keepHead(const char* bytes, std::size_t size) {
  if (headComplete || head.size() > largestHead) return;
  head.append(bytes, size);
  headComplete = head.ends_with(headEnd);
}

ssize_t TlsStream::write(const char* bytes, std::size_t size) {
  if (dropped) return -1;
  if (size == 0) return 0;
  const int written = SSL_write(ssl, bytes, static_cast<int>(std::min<std::size_t>(size, INT32_MAX)));
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
