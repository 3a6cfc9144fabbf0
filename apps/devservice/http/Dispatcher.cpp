#include "http/Dispatcher.h"

#include "JsonText.h"
#include "http/TlsStream.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <utility>

namespace orrelo::devservice {

namespace {

using Kind = Fault::Kind;

RequestRecord recordOf(const httplib::Request& request) {
  const auto now = std::chrono::time_point_cast<std::chrono::milliseconds>(std::chrono::system_clock::now());
  RequestRecord record{request.method, request.path, request.target, {}, request.body.size(), now};
  record.headers.assign(request.headers.begin(), request.headers.end());
  return record;
}

/// Announces the whole body and sends its first `sent` bytes. The connection ends there if those are fewer.
void write(const Reply& reply, std::size_t sent, httplib::Response& response) {
  response.status = reply.status;
  for (const auto& [name, value] : reply.headers) response.set_header(name, value);
  if (reply.body->empty()) {
    response.set_content("", reply.contentType);
    return;
  }
  // The server library would compress a body that does not come from a content provider.
  response.set_content_provider(
      reply.body->size(), reply.contentType,
      [body = reply.body, sent](std::size_t offset, std::size_t length, httplib::DataSink& sink) {
        constexpr std::size_t chunk = std::size_t{64} * 1024;
        if (offset >= sent) return false;
        return sink.write(body->data() + offset, std::min({length, chunk, sent - offset}));
      });
}

void write(const Reply& reply, httplib::Response& response) {
  write(reply, reply.body->size(), response);
}

Reply replyOf(const Fault& fault, int status) {
  return Reply::text(fault.status.value_or(status), fault.body, fault.contentType);
}

}  // namespace

Dispatcher::Dispatcher(EventStore& store, UserDatabase& users, const Scenario& scenario, RequestLog& requests,
                       FaultBook& faults)
    : wallets_(users, scenario),
      service_(store, users, wallets_, scenario),
      admin_(store, users, wallets_, scenario, requests, faults),
      requests_(requests),
      faults_(faults) {}

void Dispatcher::handle(const httplib::Request& request, httplib::Response& response) {
  try {
    dispatch(request, response);
  } catch (const std::exception& error) {
    write(errorReply(500, error.what()), response);
  }
}

void Dispatcher::dispatch(const httplib::Request& request, httplib::Response& response) {
  if (AdminRoutes::isAdmin(request)) {
    write(admin_.answer(request), response);
    return;
  }
  requests_.add(recordOf(request));
  const auto ticket = faults_.take(request.method, request.path);
  if (!ticket) {
    write(service_.answer(request), response);
    return;
  }
  switch (faults_.hold(ticket, [&] { return TlsStream::of(request).clientLeft(); })) {
    case FaultBook::Outcome::elapsed:
      answerWith(ticket->fault, request, response);
      break;
    case FaultBook::Outcome::cleared:
      write(service_.answer(request), response);
      break;
    case FaultBook::Outcome::stopped:
    case FaultBook::Outcome::abandoned:
      TlsStream::of(request).drop();
      break;
  }
}

void Dispatcher::answerWith(const Fault& fault, const httplib::Request& request,
                            httplib::Response& response) {
  Reply usualReply;
  if (fault.carryOut || fault.kind == Kind::truncate || fault.kind == Kind::delay)
    usualReply = service_.answer(request);
  switch (fault.kind) {
    case Kind::delay:
    case Kind::hang:
      write(usualReply, response);
      break;
    case Kind::status:
      write(replyOf(fault, 500), response);
      break;
    case Kind::drop:
      TlsStream::of(request).drop();
      break;
    case Kind::truncate: {
      const auto reply = fault.body.empty() ? usualReply : replyOf(fault, 200);
      write(reply, reply.body->size() / 2, response);
      break;
    }
    case Kind::body:
      write(replyOf(fault, 200), response);
      break;
    case Kind::redirect: {
      auto reply = replyOf(fault, 302);
      reply.headers.emplace_back("Location", fault.location);
      write(reply, response);
      break;
    }
  }
}

}  // namespace orrelo::devservice
