#pragma once

#include "http/Certificate.h"

#include <httplib.h>
#include <memory>
#include <mutex>
#include <openssl/ssl.h>
#include <set>

namespace orrelo::devservice {

/// The server library's server over TLS. It tracks its connections, so that it can stop without waiting for
/// its clients.
class TlsServer : public httplib::Server {
 public:
  /// Throws std::runtime_error if the certificate cannot be used.
  explicit TlsServer(const Certificate& certificate);

  /// Raises the listen backlog above the server library's. Call it once the port is bound.
  void widenBacklog();
  /// Shuts down all connections, and from now on each new one as well.
  void closeConnections();

 private:
  struct FreeContext {
    void operator()(SSL_CTX* freed) const { SSL_CTX_free(freed); }
  };

  bool process_and_close_socket(socket_t socket) override;
  bool serve(socket_t socket);
  void add(socket_t socket);
  void remove(socket_t socket);

  std::unique_ptr<SSL_CTX, FreeContext> context_;
  std::mutex mutex_;
  std::set<socket_t> sockets_;
  bool closing_ = false;
};

}  // namespace orrelo::devservice
