#pragma once

#include "rewards/point/FetchPointRedemptionHistoriesUseCase.h"
#include "rewards/point/FetchPointUseCase.h"
#include "rewards/point/PointRedemptionHistoryViewController.h"

#include <memory>
#include <utility>

namespace orrelo {

/// Creates the screen of the history.
class PointRedemptionHistoryViewControllerFactory {
 public:
  virtual ~PointRedemptionHistoryViewControllerFactory() = default;

  virtual std::shared_ptr<ViewController> make() const = 0;
};

/// Creates each screen with its own view model.
class PointRedemptionHistoryViewControllerFactoryImpl final
    : public PointRedemptionHistoryViewControllerFactory {
 public:
  PointRedemptionHistoryViewControllerFactoryImpl(
      FetchPointRedemptionHistoriesUseCase fetchPointRedemptionHistoriesUseCase,
      std::shared_ptr<FetchPointUseCase> fetchPointUseCase)
      : fetchPointRedemptionHistoriesUseCase_(std::move(fetchPointRedemptionHistoriesUseCase)),
        fetchPointUseCase_(std::move(fetchPointUseCase)) {}

  // The screen keeps the default presentation style, which is full screen.
  std::shared_ptr<ViewController> make() const override {
    return PointRedemptionHistoryViewController::create(
        PointRedemptionHistoryViewModel::create(fetchPointRedemptionHistoriesUseCase_, fetchPointUseCase_));
  }

 private:
  const FetchPointRedemptionHistoriesUseCase fetchPointRedemptionHistoriesUseCase_;
  const std::shared_ptr<FetchPointUseCase> fetchPointUseCase_;
};

}  // namespace orrelo
