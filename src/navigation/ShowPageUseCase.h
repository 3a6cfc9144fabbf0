#pragma once

#include "config/FetchConfigUseCase.h"
#include "reactive/Disposable.h"
#include "reactive/Scheduler.h"
#include "ui/PageRouter.h"

#include <memory>
#include <string>

namespace orrelo {

class ShowPageUseCase {
 public:
  virtual ~ShowPageUseCase() = default;

  /// Navigates to the page that the configuration lists under `pageId`. Failures are only logged. Any thread.
  virtual void execute(const std::string& pageId) = 0;
};

/// Opens pages over the topmost screen.
class ShowPageUseCaseImpl final : public ShowPageUseCase,
                                  public std::enable_shared_from_this<ShowPageUseCaseImpl> {
 public:
  static std::shared_ptr<ShowPageUseCaseImpl> create(std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase,
                                                     std::shared_ptr<PageRouter> pageRouter);

  void execute(const std::string& pageId) override;

 private:
  ShowPageUseCaseImpl(std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase,
                      std::shared_ptr<PageRouter> pageRouter);

  std::shared_ptr<FetchConfigUseCase> fetchConfigUseCase_;
  std::shared_ptr<PageRouter> pageRouter_;
  reactive::SchedulerPtr concurrentDispatchQueueScheduler_;
  reactive::SchedulerPtr mainScheduler_;
  reactive::DisposeBag disposeBag_;
};

}  // namespace orrelo
