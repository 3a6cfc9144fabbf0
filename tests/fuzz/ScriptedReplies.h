#pragma once

#include "model/UserManager.h"
#include "support/TestPlatform.h"

#include <functional>
#include <map>
#include <string>

namespace orrelo::test {

/// The bodies of a network's replies, by the end of a request's path.
using ScriptedReplies = std::map<std::string, std::string, std::less<>>;

/// A platform of a signed-in user whose network gives the current `replies`, and status 404 for all else,
/// such as images. There is one for the whole process, which keeps the reference of the first call.
inline TestPlatform& platformWith(const ScriptedReplies& replies) {
  static TestPlatform platform;
  [[maybe_unused]] static const bool isReady = [&replies] {
    platform.session->responder = [&replies](const URLRequest& request) {
      for (const auto& [path, body] : replies) {
        if (request.url.path().ends_with(path)) return ScriptedURLSession::reply(200, body);
      }
      return ScriptedURLSession::reply(404);
    };
    setCurrentUserId("minji");
    return true;
  }();
  return platform;
}

}  // namespace orrelo::test
