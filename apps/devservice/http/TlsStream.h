#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <httplib.h>
#include <openssl/ssl.h>
#include <string>

namespace orrelo::devservice {

/// One connection of a client, as the server library reads and writes it. Used by the thread that serves it.
class TlsStream : public httplib::Stream {
 public:
  /// Does not take the socket over.
  TlsStream(SSL_CTX* context, socket_t socket);
  ~TlsStream() override;
  TlsStream(const TlsStream&) = delete;
  TlsStream& operator=(const TlsStream&) = delete;

  bool handshake();
  /// False when the client has closed, or the time is up.
  bool waitForRequest(std::chrono::milliseconds timeout);
  /// Tells the client that nothing more follows.
  void close();

  /// To be called for each request once its headers are read. Ties it to this stream, and gives it its
  /// headers as they were sent: the server library leaves out empty values and decodes percent signs.
  void adopt(httplib::Request& request);
  /// The stream that the request came by.
  static TlsStream& of(const httplib::Request& request);

  /// Ends the connection at once, so that no reply reaches the client.
  void drop();
  bool clientLeft() const;

  bool is_readable() const override;
  bool is_writable() const override { return !dropped; }
  ssize_t read(char* buffer, std::size_t size) override;
  ssize_t write(const char* bytes, std::size_t size) override;
  using httplib::Stream::write;
  void get_remote_ip_and_port(std::string& ip, int& port) const override;
  void get_local_ip_and_port(std::string& ip, int& port) const override;
  socket_t socket() const override { return descriptor; }

 private:
  bool poll(short events, std::chrono::milliseconds timeout) const;
  void keepHead(const char* bytes, std::size_t size);

  SSL* ssl;
  socket_t descriptor;
  bool dropped = false;
  std::array<char, 16384> incoming{};
  std::size_t incomingStart = 0;
  std::size_t incomingEnd = 0;
  /// Request line and headers of the request that is being read, with the blank line after them.
  std::string head;
  bool headComplete = false;
};

}  // namespace orrelo::devservice
