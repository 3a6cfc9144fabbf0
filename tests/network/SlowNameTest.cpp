#include "RawServer.h"
#include "SessionFixture.h"

#include <dlfcn.h>
#include <netdb.h>
#include <string_view>

namespace {

// Names that end in ".slow" do not resolve, and their resolution blocks until the test sets `told`.
struct Names {
  std::promise<void> asked;
  std::promise<void> told;
  std::promise<void> left;
};
Names& names() {
  static auto* const names = new Names;
  return *names;
}

/// Tells when the resolving thread ends.
struct Leaving {
  ~Leaving() { names().left.set_value(); }
};
thread_local const Leaving leaving;

}  // namespace

// Replaces the C library's function, for libcurl too.
extern "C" [[gnu::visibility("default")]] int getaddrinfo(const char* node, const char* service,
                                                          const addrinfo* hints, addrinfo** result) {
  if (node != nullptr && std::string_view(node).ends_with(".slow")) {
    names().asked.set_value();
    names().told.get_future().wait();
    static_cast<void>(leaving);
    return EAI_NONAME;
  }
  static const auto real = reinterpret_cast<decltype(&getaddrinfo)>(dlsym(RTLD_NEXT, "getaddrinfo"));
  return real(node, service, hints, result);
}

namespace orrelo::test {
namespace {

using SlowNameTest = SessionFixture;

TEST_F(SlowNameTest, ARequestGivenUpWhileItsNameResolvesHoldsUpNoOther) {
  names() = {};
  RawServer server([](const std::string&) { return RawServer::reply("ok"); });
  const auto task = session_->dataTask(request("http://host.slow/"), [](const auto&) { FAIL(); });
  task->resume();
  names().asked.get_future().wait();
  task->cancel();
  EXPECT_EQ(outcome(request(server.url())), "200 ok");
  session_.reset();
  names().told.set_value();
  names().left.get_future().wait();
}

}  // namespace
}  // namespace orrelo::test
