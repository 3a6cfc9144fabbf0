#pragma once

#include <orrelo/MainLoop.h>

#include <chrono>
#include <memory>
#include <utility>

namespace orrelo::test {

/// A main loop that seems to run on another thread than the test's.
class ElsewhereLoop final : public MainLoop {
 public:
  explicit ElsewhereLoop(std::shared_ptr<MainLoop> loop) : loop_(std::move(loop)) {}

  void post(Task task) override { loop_->post(std::move(task)); }
  void postAfter(std::chrono::microseconds delay, Task task) override {
    loop_->postAfter(delay, std::move(task));
  }
  bool isCurrent() const override { return false; }

 private:
  std::shared_ptr<MainLoop> loop_;
};

}  // namespace orrelo::test
