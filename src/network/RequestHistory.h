#pragma once

#include <orrelo/ORLDiagnostics.h>
#include <orrelo/Url.h>
#include <orrelo/platform/URLSession.h>

#include <chrono>
#include <string>
#include <vector>

namespace orrelo {

/// Times a request and adds it to the last requests of the process when it ends. A cancelled request is not
/// added. Any thread.
class RequestHistory {
 public:
  /// At the start of the request.
  RequestHistory(std::string method, Url url);

  /// Adds the request and explains how it has ended.
  void end(const URLSessionResult& result) const;

  /// Adds the failure of a picture.
  static void addPicture(const Url& url, const Error& failure);
  static std::vector<ORLDiagnostics::Request> lastRequests();

 private:
  const std::string method_;
  const Url url_;
  const std::chrono::microseconds start_;
};

}  // namespace orrelo
