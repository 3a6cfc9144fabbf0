#pragma once

#include "inappmessage/InAppMessageRepository.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace orrelo {

class FetchInAppMessagesUseCase {
 public:
  virtual ~FetchInAppMessagesUseCase() = default;

  /// See InAppMessageRepository::fetch.
  virtual reactive::Observable<std::vector<InAppMessage>> fetch(const std::string& buid) = 0;
};

class FetchInAppMessagesUseCaseImpl final : public FetchInAppMessagesUseCase {
 public:
  explicit FetchInAppMessagesUseCaseImpl(std::shared_ptr<InAppMessageRepository> repository)
      : repository_(std::move(repository)) {}

  reactive::Observable<std::vector<InAppMessage>> fetch(const std::string& buid) override {
    return repository_->fetch(buid);
  }

 private:
  const std::shared_ptr<InAppMessageRepository> repository_;
};

}  // namespace orrelo
