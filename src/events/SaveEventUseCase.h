#pragma once

#include "events/Event.h"
#include "events/EventRepository.h"

#include <memory>
#include <utility>

namespace orrelo {

class SaveEventUseCase {
 public:
  explicit SaveEventUseCase(std::shared_ptr<EventRepository> repository)
      : repository_(std::move(repository)) {}

  /// See EventPipeline::save. Any thread.
  void save(const Event& event, bool mayBeStored = false,
            EventPipeline::SaveCompletion completion = nullptr) const {
    repository_->save(event, mayBeStored, std::move(completion));
  }
  void stopSending() const { repository_->stopSending(); }
  ORLDiagnostics::Pipeline status() const { return repository_->status(); }

 private:
  std::shared_ptr<EventRepository> repository_;
};

}  // namespace orrelo
