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

  void save(const BIEvent& event) const { repository_->save(event); }
  void stopSending() const { repository_->stopSending(); }

 private:
  std::shared_ptr<BIEventRepository> repository_;
};

}  // namespace orrelo
