#pragma once

#include "events/BIEventRepository.h"
#include "events/Event.h"

#include <memory>
#include <utility>

namespace orrelo {

class SaveBIEventUseCase {
 public:
  explicit SaveBIEventUseCase(std::shared_ptr<BIEventRepository> repository)
      : repository_(std::move(repository)) {}

  /// See EventPipeline::save. Any thread.
  void save(const BIEvent& event, bool mayBeStored = false,
            EventPipeline::SaveCompletion completion = nullptr) const {
    repository_->save(event, mayBeStored, std::move(completion));
  }
  void stopSending() const { repository_->stopSending(); }
  ORLDiagnostics::Pipeline status() const { return repository_->status(); }

 private:
  std::shared_ptr<BIEventRepository> repository_;
};

}  // namespace orrelo
