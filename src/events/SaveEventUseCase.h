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

  void save(const Event& event) const { repository_->save(event); }
  void stopSending() const { repository_->stopSending(); }

 private:
  std::shared_ptr<EventRepository> repository_;
};

}  // namespace orrelo
