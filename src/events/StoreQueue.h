#pragma once

#include "events/AcceptedEvent.h"
#include "events/Event.h"
#include "events/EventPipeline.h"

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace orrelo {

/// Hands events to one store, in the order in which they were accepted. Usually an event is handed over at
/// once. After a refusal, the events wait in the form of their records, a quarter of the memory, and are
/// stored in small parts; while the store refuses the first part, it is tried again with growing pauses. An
/// event that is a day old is dropped. Any thread.
class StoreQueue {
 public:
  using Save =
      std::function<void(const Event& event, bool mayBeStored, EventPipeline::SaveCompletion completion)>;
  using Settle = std::function<void(const EventPlace& place)>;

  /// `settle` is called once for each event, after its commit or when it is dropped.
  StoreQueue(Save save, Settle settle) : save_(std::move(save)), settle_(std::move(settle)) {}

  /// Several events are stored in parts, so that few of them are decoded at the same time.
  void store(std::vector<AcceptedEvent> events);
  /// Continues with the events that wait. Must be called after the platform was replaced, whose tasks may
  /// have been dropped.
  void restart();

 private:
  static constexpr std::chrono::milliseconds firstPause{100};
  static constexpr std::chrono::milliseconds longestPause{30'000};
  static constexpr std::size_t partSize = 16;

  void save(const AcceptedEvent& event, const std::shared_ptr<const void>& part);
  void onRefused(AcceptedEvent event, const Error& failure);
  void insert(AcceptedEvent event);
  void storeNextPart(std::size_t run);
  void endPart(std::size_t run);

  const Save save_;
  const Settle settle_;

  std::mutex mutex_;
  /// In ascending order of their tickets.
  std::deque<AcceptedEvent> waiting_;
  /// True while a part is on its way or its task is posted. New events then wait behind the others.
  bool isRunning_ = false;
  /// A store has refused an event of the current part.
  bool isRefused_ = false;
  std::chrono::milliseconds pause_ = firstPause;
  /// Tasks of former runs do nothing.
  std::size_t run_ = 0;
};

}  // namespace orrelo
