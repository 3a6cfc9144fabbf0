#include "http/TlsServer.h"

#include "http/TlsStream.h"

#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

namespace orrelo::devservice {

namespace {

constexpr int listenBacklog = 128;

}  // namespace

TlsServer::TlsServer(const Certificate& certificate) : context_(SSL_CTX_new(TLS_server_method())) {
  if (!context_ || SSL_CTX_set_min_proto_version(context_.get(), TLS1_2_VERSION) != 1 ||
      SSL_CTX_use_certificate_chain_file(context_.get(), certificate.certificateFile.c_str()) != 1 ||
      SSL_CTX_use_PrivateKey_file(context_.get(), certificate.keyFile.c_str(), SSL_FILETYPE_PEM) != 1) {
    throw std::runtime_error("the certificate cannot be used");
  }
}

void TlsServer::widenBacklog() {
  ::listen(svr_sock_, listenBacklog);
}

void TlsServer::add(socket_t socket) {
  const std::lock_guard lock(mutex_);
  sockets_.insert(socket);
  if (closing_) ::shutdown(socket, SHUT_RDWR);
}

void TlsServer::remove(socket_t socket) {
  const std::lock_guard lock(mutex_);
  sockets_.erase(socket);
}

void TlsServer::closeConnections() {
  const std::lock_guard lock(mutex_);
  closing_ = true;
  for (const auto socket : sockets_) ::shutdown(socket, SHUT_RDWR);
}

bool TlsServer::process_and_close_socket(socket_t socket) {
  add(socket);
  bool served = false;
  try {
    served = serve(socket);
  } catch (...) {
    // An exception ends only the connection that caused it.
  }
  // The descriptor leaves the list before `close`, after which another connection may get its number.
  remove(socket);
  ::shutdown(socket, SHUT_RDWR);
  ::close(socket);
  return served;
}

bool TlsServer::serve(socket_t socket) {
  TlsStream stream(context_.get(), socket);
  if (!stream.handshake()) return false;
  while (stream.waitForRequest(std::chrono::seconds(keep_alive_timeout_sec_))) {
    bool closed = false;
    const bool answered = process_request(stream, false, closed, [&](httplib::Request& request) {
      stream.adopt(request);
      // Ranges are ignored, because one could lie past the end of the body.
      request.ranges.clear();
    });
    if (!answered) return false;
    if (closed) break;
  }
  stream.close();
  return true;
}

}  // namespace orrelo::devservice
