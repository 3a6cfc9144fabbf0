#include "base/preconditionFailure.h"

#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <utility>

namespace orrelo {
namespace {

std::mutex handlerMutex;

std::function<void(std::string_view)>& handlerSlot() {
  static auto* const slot = new std::function<void(std::string_view)>;
  return *slot;
}

}  // namespace

void setPreconditionFailureHandler(std::function<void(std::string_view)> handler) {
  const std::lock_guard lock(handlerMutex);
  handlerSlot() = std::move(handler);
}

void preconditionFailure(std::string_view message) {
  std::function<void(std::string_view)> handler;
  {
    const std::lock_guard lock(handlerMutex);
    handler = handlerSlot();
  }
  if (handler) handler(message);
  std::fprintf(stderr, "%.*s\n", static_cast<int>(message.size()), message.data());
  std::fflush(stderr);
  std::abort();
}

}  // namespace orrelo
