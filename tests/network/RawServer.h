#pragma once

#include <algorithm>
#include <arpa/inet.h>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <netinet/in.h>
#include <stdexcept>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace orrelo::test {

/// A plain HTTP server that answers with raw bytes, for replies that no real server sends and for counting
/// connections.
class RawServer {
 public:
  /// Returns the bytes that answer one request (head and body); an empty string leaves it unanswered.
  using Responder = std::function<std::string(const std::string& request)>;

  explicit RawServer(Responder responder)
      : responder_(std::move(responder)), listener_(socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_ANY);
    socklen_t size = sizeof(address);
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    if (bind(listener_, generic, size) != 0 || listen(listener_, 256) != 0 ||
        getsockname(listener_, generic, &size) != 0) {
      throw std::runtime_error("no port");
    }
    port_ = ntohs(address.sin_port);
    acceptor_ = std::thread([this] { acceptAll(); });
  }
  ~RawServer() {
    shutdown(listener_, SHUT_RDWR);
    acceptor_.join();
    for (const int connection : connections_) shutdown(connection, SHUT_RDWR);
    threads_.clear();
    for (const int connection : connections_) close(connection);
    close(listener_);
  }
  RawServer(const RawServer&) = delete;
  RawServer& operator=(const RawServer&) = delete;

  /// `host` is any name or address of this machine.
  std::string url(const std::string& path = "/", const std::string& host = "127.0.0.1") const {
    return "http://" + host + ":" + std::to_string(port_) + path;
  }
  std::size_t connectionCount() const {
    const std::lock_guard lock(mutex_);
    return connections_.size();
  }
  /// Sends more bytes on the newest connection.
  void sendMore(const std::string& bytes) {
    const std::lock_guard lock(mutex_);
    send(connections_.back(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
  }
  /// Wait until `count` requests have come, or until the client has closed `count` connections.
  bool waitForRequests(int count) { return waitFor(requests_, count); }
  bool waitForClosed(int count) { return waitFor(closed_, count); }

  static std::string reply(const std::string& body = "", const std::string& head = "HTTP/1.1 200 OK") {
    return head + "\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
  }

 private:
  bool waitFor(const int& counter, int count) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, std::chrono::seconds(30), [&] { return counter >= count; });
  }
  void count(int& counter) {
    const std::lock_guard lock(mutex_);
    ++counter;
    changed_.notify_all();
  }

  void acceptAll() {
    for (int connection = 0; (connection = accept(listener_, nullptr, nullptr)) >= 0;) {
      const std::lock_guard lock(mutex_);
      connections_.push_back(connection);
      threads_.emplace_back([this, connection] { serve(connection); });
    }
  }

  void serve(int connection) {
    std::string bytes;
    std::vector<char> chunk(65536);
    for (ssize_t got = 0; (got = recv(connection, chunk.data(), chunk.size(), 0)) > 0;) {
      bytes.append(chunk.data(), static_cast<std::size_t>(got));
      for (auto size = requestSize(bytes); size > 0; size = requestSize(bytes)) {
        count(requests_);
        const auto answer = responder_(bytes.substr(0, size));
        bytes.erase(0, size);
        send(connection, answer.data(), answer.size(), MSG_NOSIGNAL);
      }
    }
    count(closed_);
  }

  /// The size of the first whole request; 0 while there is none.
  static std::size_t requestSize(const std::string& bytes) {
    const auto head = bytes.find("\r\n\r\n");
    if (head == std::string::npos) return 0;
    const auto length = bytes.find("Content-Length: ");
    const auto body = length < head ? std::stoul(bytes.substr(length + 16)) : 0;
    return bytes.size() >= head + 4 + body ? head + 4 + body : 0;
  }

  Responder responder_;
  int listener_;
  int port_ = 0;
  mutable std::mutex mutex_;
  std::condition_variable changed_;
  int requests_ = 0;
  int closed_ = 0;
  std::vector<int> connections_;
  std::vector<std::jthread> threads_;
  std::thread acceptor_;
};

}  // namespace orrelo::test
