#pragma once

#include "platform/http/CurlURLSession.h"

#include <chrono>
#include <future>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>

namespace orrelo::test {

/// Requests through the real session.
class SessionFixture : public testing::Test {
 protected:
  using Reply = std::future<URLSessionResult>;

  static URLRequest request(const std::string& url) { return URLRequest{.url = Url::parse(url).value()}; }
  static URLRequest post(const std::string& url, std::string body) {
    auto made = request(url);
    made.method = "POST";
    made.body = std::move(body);
    return made;
  }

  Reply start(URLRequest request) {
    const auto promise = std::make_shared<std::promise<URLSessionResult>>();
    const auto task = session_->dataTask(
        std::move(request), [promise](URLSessionResult result) { promise->set_value(std::move(result)); });
    task->resume();
    return promise->get_future();
  }
  static URLSessionResult wait(Reply reply) {
    if (reply.wait_for(std::chrono::seconds(60)) != std::future_status::ready) {
      return {Error("Test", "noReply"), {}, {}};
    }
    return reply.get();
  }
  URLSessionResult run(URLRequest request) { return wait(start(std::move(request))); }

  /// "200 body", or the error's case, or "none".
  static std::string text(const URLSessionResult& result) {
    if (result.error) return result.error->caseName();
    if (!result.response) return "none";
    return std::to_string(result.response->statusCode) + " " + result.data.value_or("(no data)");
  }
  std::string outcome(URLRequest request) { return text(run(std::move(request))); }

  std::shared_ptr<URLSession> session_ = makeCurlURLSession();
};

}  // namespace orrelo::test
