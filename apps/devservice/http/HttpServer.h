#pragma once

#include "http/Certificate.h"
#include "http/TlsServer.h"

#include <functional>
#include <httplib.h>
#include <memory>
#include <thread>

namespace orrelo::devservice {

/// An HTTPS server on 127.0.0.1 that gives every request, its body read, to one function. Runs once: for
/// another start make another one.
class HttpServer {
 public:
  /// Called on many threads at once.
  using Handler = std::function<void(const httplib::Request&, httplib::Response&)>;

  HttpServer(const Certificate& certificate, Handler handler);
  ~HttpServer();
  HttpServer(const HttpServer&) = delete;
  HttpServer& operator=(const HttpServer&) = delete;

  /// Gives the port. Throws std::runtime_error if it is taken.
  int start(int port);
  /// Returns when all threads have ended. A handler that waits must have been released before.
  void stop();

 private:
  void configure();
  void route();

  Handler handler;
  TlsServer server;
  std::thread listener;
};

}  // namespace orrelo::devservice
