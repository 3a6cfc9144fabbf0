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
// A connection holds a thread for as long as it is open, also while a request on it hangs.
constexpr std::size_t connectionThreads = 64;
constexpr std::size_t largestRequestBody = std::size_t{16} * 1024 * 1024;
constexpr time_t idleConnectionSeconds = 120;

bool hasBody(const httplib::Request& request) {
  return request.has_header("Content-Length") || request.has_header("Transfer-Encoding");
}

}  // namespace

HttpServer::HttpServer(const Certificate& certificate, Handler theHandler)
    : handler(std::move(theHandler)), server(certificate) {
  configure();
  route();
}

HttpServer::~HttpServer() {
  stop();
}

void HttpServer::configure() {
  server.set_tcp_nodelay(true);
  // Told to clients in a header; the connections themselves have no such limit.
  server.set_keep_alive_max_count(std::numeric_limits<std::int32_t>::max());
  server.set_keep_alive_timeout(idleConnectionSeconds);
  server.set_read_timeout(std::chrono::seconds(10));
  server.set_write_timeout(std::chrono::seconds(30));
  server.set_payload_max_length(largestRequestBody);
  // Not SO_REUSEPORT, which would let two services share a port unawares.
  server.set_socket_options([](socket_t socket) {
    const int on = 1;
    ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
  });
}

void HttpServer::route() {
  const auto handle = [this](const httplib::Request& request, httplib::Response& response) {
    handler(request, response);
  };
  // A request that announces no body has none. The server would wait for the end of the connection instead.
  server.set_pre_routing_handler([handle](const httplib::Request& request, httplib::Response& response) {
    if (hasBody(request)) return httplib::Server::HandlerResponse::Unhandled;
    handle(request, response);
    return httplib::Server::HandlerResponse::Handled;
  });
  const std::string everything = R"([\s\S]*)";
  server.Get(everything, handle);
  server.Post(everything, handle);
  server.Put(everything, handle);
  server.Patch(everything, handle);
  server.Delete(everything, handle);
  server.Options(everything, handle);
  // What the server itself refuses, such as a body that is too large.
  server.set_error_handler([](const httplib::Request&, httplib::Response& response) {
    if (!response.body.empty() || response.content_length_ != 0) return;
    response.set_content(R"({"error":"the request was refused"})", "application/json");
  });
}

int HttpServer::start(int port) {
  const bool anyPort = port == 0;
  const int bound = anyPort ? server.bind_to_any_port(host) : server.bind_to_port(host, port) ? port : -1;
  if (bound <= 0) throw std::runtime_error("port " + std::to_string(port) + " cannot be used");
  server.widenBacklog();
  std::promise<void> accepting;
  server.new_task_queue = [&accepting] {
    auto threads = std::make_unique<httplib::ThreadPool>(connectionThreads);
    accepting.set_value();
    return threads.release();
  };
  listener = std::thread([this] { server.listen_after_bind(); });
  accepting.get_future().wait();
  return bound;
}

void HttpServer::stop() {
  if (!listener.joinable()) return;
  server.stop();
  server.closeConnections();
  listener.join();
}

}  // namespace orrelo::devservice
