#pragma once

#include "http/Certificate.h"
#include "http/TlsServer.h"

#include <functional>
#include <httplib.h>
#include <memory>
#include <thread>

namespace orrelo::devservice {

/// An HTTPS server on 127.0.0.1 that passes every request, with its body read, to one handler. It can be
/// started only once.
class HttpServer {
 public:
  /// Called on many threads concurrently.
  using Handler = std::function<void(const httplib::Request&, httplib::Response&)>;

  HttpServer(const Certificate& certificate, Handler handler);
  ~HttpServer();
  HttpServer(const HttpServer&) = delete;
  HttpServer& operator=(const HttpServer&) = delete;

  /// Returns the port; 0 selects a free one. Throws std::runtime_error if the port is taken.
  int start(int port);
  /// Returns once all threads have ended. Handlers that block must be released first.
  void stop();

 private:
  void configure();
  void route();

  Handler handler_;
  TlsServer server_;
  std::thread listener_;
};

}  // namespace orrelo::devservice
