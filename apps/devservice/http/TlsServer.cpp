#include "http/TlsServer.h"

#include "http/TlsStream.h"

#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

namespace orrelo::devservice {

namespace {

constexpr int waitingClients = 128;

}  // namespace

TlsServer::TlsServer(const Certificate& certificate) : context(SSL_CTX_new(TLS_server_method())) {
  if (!context || SSL_CTX_set_min_proto_version(context.get(), TLS1_2_VERSION) != 1 ||
      SSL_CTX_use_certificate_chain_file(context.get(), certificate.certificateFile.c_str()) != 1 ||
      SSL_CTX_use_PrivateKey_file(context.get(), certificate.keyFile.c_str(), SSL_FILETYPE_PEM) != 1) {
    throw std::runtime_error("the certificate cannot be used");
  }
}

void TlsServer::widenBacklog() {
  ::listen(svr_sock_, waitingClients);
}

void TlsServer::add(socket_t socket) {
  const std::lock_guard lock(mutex);
  sockets.insert(socket);
  if (closing) ::shutdown(socket, SHUT_RDWR);
}

void TlsServer::remove(socket_t socket) {
  const std::lock_guard lock(mutex);
  sockets.erase(socket);
}

void TlsServer::closeConnections() {
  const std::lock_guard lock(mutex);
  closing = true;
  for (const auto socket : sockets) ::shutdown(socket, SHUT_RDWR);
}

bool TlsServer::process_and_close_socket(socket_t socket) {
  add(socket);
  bool served = false;
  try {
    served = serve(socket);
  } catch (...) {
    // The connection that caused it is lost, and no more.
  }
  // Off the list before its number can be another connection's.
  remove(socket);
  ::shutdown(socket, SHUT_RDWR);
  ::close(socket);
  return served;
}

bool TlsServer::serve(socket_t socket) {
  TlsStream stream(context.get(), socket);
  if (!stream.handshake()) return false;
  while (stream.waitForRequest(std::chrono::seconds(keep_alive_timeout_sec_))) {
    bool closed = false;
    const bool answered = process_request(stream, false, closed, [&](httplib::Request& request) {
      stream.adopt(request);
      // Replies are whole: a range could ask for what lies past the end.
      request.ranges.clear();
    });
    if (!answered) return false;
    if (closed) break;
  }
  stream.close();
  return true;
}

}  // namespace orrelo::devservice
