#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <httplib.h>
#include <openssl/ssl.h>
#include <string>

namespace orrelo::devservice {

/// A client's connection as a stream of the server library. Used only by the thread that serves it.
class TlsStream : public httplib::Stream {
 public:
  /// Does not take ownership of the socket.
  TlsStream(SSL_CTX* context, socket_t socket);
  ~TlsStream() override;
  TlsStream(const TlsStream&) = delete;
  TlsStream& operator=(const TlsStream&) = delete;

  bool handshake();
  /// Waits until there are bytes to read. Returns false on timeout, or if the connection was dropped.
  bool waitForRequest(std::chrono::milliseconds timeout);
  /// Sends the TLS close notification.
  void close();

  /// Must be called for each request once its headers are read. Ties the request to this stream and restores
  /// its headers as sent, since the server library drops empty values and decodes percent signs.
  void adopt(httplib::Request& request);
  /// The stream that the request arrived on.
  static TlsStream& of(const httplib::Request& request);

  /// Ends the connection at once, so that no reply reaches the client.
  void drop();
  bool clientLeft() const;

  bool is_readable() const override;
  bool is_writable() const override { return !dropped_; }
  ssize_t read(char* buffer, std::size_t size) override;
  ssize_t write(const char* bytes, std::size_t size) override;
  using httplib::Stream::write;
  void get_remote_ip_and_port(std::string& ip, int& port) const override;
  void get_local_ip_and_port(std::string& ip, int& port) const override;
  socket_t socket() const override { return descriptor_; }

 private:
  bool poll(short events, std::chrono::milliseconds timeout) const;
  void keepHead(const char* bytes, std::size_t size);

  SSL* ssl_;
  socket_t descriptor_;
  bool dropped_ = false;
  std::array<char, 16384> incoming_{};
  std::size_t incomingStart_ = 0;
  std::size_t incomingEnd_ = 0;
  /// The request line and headers of the request that is being read, including the blank line after them.
  std::string head_;
  bool headComplete_ = false;
};

}  // namespace orrelo::devservice
