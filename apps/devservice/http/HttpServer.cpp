#include "http/HttpServer.h"

#include <future>
#include <limits>
#include <stdexcept>
#include <string>
#include <sys/socket.h>
#include <utility>

namespace orrelo::devservice {

namespace {

constexpr auto host = "127.0.0.1";
// Each connection occupies a thread while it is open, even if a request on it hangs.
constexpr std::size_t connectionThreads = 64;
constexpr std::size_t maxRequestBodySize = std::size_t{16} * 1024 * 1024;
constexpr time_t idleConnectionSeconds = 120;

bool hasBody(const httplib::Request& request) {
  return request.has_header("Content-Length") || request.has_header("Transfer-Encoding");
}

}  // namespace

HttpServer::HttpServer(const Certificate& certificate, Handler handler)
    : handler_(std::move(handler)), server_(certificate) {
  configure();
  route();
}

HttpServer::~HttpServer() {
  stop();
}

void HttpServer::configure() {
  server_.set_tcp_nodelay(true);
  // This limit is only announced to clients in a header. TlsServer does not enforce it.
  server_.set_keep_alive_max_count(std::numeric_limits<std::int32_t>::max());
  server_.set_keep_alive_timeout(idleConnectionSeconds);
  server_.set_read_timeout(std::chrono::seconds(10));
  server_.set_write_timeout(std::chrono::seconds(30));
  server_.set_payload_max_length(maxRequestBodySize);
  // Replaces the server library's SO_REUSEPORT, which would let two services share a port unnoticed.
  server_.set_socket_options([](socket_t socket) {
    const int on = 1;
    ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
  });
}

void HttpServer::route() {
  const auto handle = [this](const httplib::Request& request, httplib::Response& response) {
    handler_(request, response);
  };
  // A request that announces no body has none. The server library would read one until the connection ends.
  server_.set_pre_routing_handler([handle](const httplib::Request& request, httplib::Response& response) {
    if (hasBody(request)) return httplib::Server::HandlerResponse::Unhandled;
    handle(request, response);
    return httplib::Server::HandlerResponse::Handled;
  });
  const std::string everything = R"([\s\S]*)";
  server_.Get(everything, handle);
  server_.Post(everything, handle);
  server_.Put(everything, handle);
  server_.Patch(everything, handle);
  server_.Delete(everything, handle);
  server_.Options(everything, handle);
  // Handles requests that the server library itself rejects, such as those with too large a body.
  server_.set_error_handler([](const httplib::Request&, httplib::Response& response) {
    if (!response.body.empty() || response.content_length_ != 0) return;
    response.set_content(R"({"error":"the request was refused"})", "application/json");
  });
}

int HttpServer::start(int port) {
  const bool anyPort = port == 0;
  const int bound = anyPort ? server_.bind_to_any_port(host) : server_.bind_to_port(host, port) ? port : -1;
  if (bound <= 0) throw std::runtime_error("port " + std::to_string(port) + " cannot be used");
  server_.widenBacklog();
  std::promise<void> accepting;
  server_.new_task_queue = [&accepting] {
    auto threads = std::make_unique<httplib::ThreadPool>(connectionThreads);
    accepting.set_value();
    return threads.release();
  };
  listener_ = std::thread([this] { server_.listen_after_bind(); });
  accepting.get_future().wait();
  return bound;
}

void HttpServer::stop() {
  if (!listener_.joinable()) return;
  server_.stop();
  server_.closeConnections();
  listener_.join();
}

}  // namespace orrelo::devservice
