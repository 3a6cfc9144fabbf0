// Takes the first byte as the call and the others as its reply: the banners ('0'). A failure must be a value,
// and the screens must show what can be read.
#include "UsedMessages.h"
#include "base/Error.h"
#include "inappmessage/FetchInAppMessageResponse.h"

#include <chrono>
#include <cstdint>
#include <string_view>

namespace orrelo::test {
namespace {

std::string reply;

// Its network has no pictures.
TestPlatform& device() {
  static TestPlatform platform;
  [[maybe_unused]] static const bool isReady = [] {
    platform.session->responder = [](const URLRequest& request) {
      const bool isCall = request.url.path().ends_with("/in-app-message/banner");
      return isCall ? ScriptedURLSession::reply(200, reply) : ScriptedURLSession::reply(404);
    };
    return true;
  }();
  return platform;
}

std::optional<std::size_t> bannerCount() {
  try {
    return FetchInAppMessageResponse::decode(reply).items.size();
  } catch (const Error& error) {
    require(error.domain() == "DecodingError", "only the reply fails");
    return std::nullopt;
  }
}

void replayMessages(std::string_view bytes) {
  auto& platform = device();
  reply = bytes;
  useMessages(platform, {"https://api.example", {}}, bannerCount());
  platform.loop->runFor(std::chrono::minutes(2));  // longer than any timeout of a screen
  require(platform.loop->pending() == 0, "a screen leaves nothing behind");
  platform.session->requests.clear();
}

}  // namespace
}  // namespace orrelo::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  orrelo::test::replayMessages({reinterpret_cast<const char*>(data) + 1, size - 1});
  return 0;
}
