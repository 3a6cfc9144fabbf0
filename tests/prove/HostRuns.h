#pragma once

#include "DevService.h"
#include "prove/Ledger.h"
#include "support/Program.h"
#include "support/TemporaryFolder.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <random>
#include <string>

namespace orrelo::prove {

/// A local service and the data folder of one host whose processes come and go.
class HostRuns {
 public:
  HostRuns(std::string program, std::string name);

  /// Starts a process that reports events numbered "<prefix>-0" and so on, or none if the prefix is empty.
  std::unique_ptr<test::Program> start(const std::string& prefix, std::chrono::microseconds pause) const;
  /// Starts a process and kills it: half a `longest` after its first event on average, or sometimes earlier.
  /// Returns its output.
  std::string runAndKill(const std::string& prefix, std::chrono::microseconds pause,
                         std::chrono::milliseconds longest, std::mt19937& random) const;
  /// Lets one process report an event and stores the configuration.
  void prepare();
  /// Clears the faults and lets a process take in what the killed ones have left. Returns at once when
  /// nothing is lost, otherwise after a minute.
  void settle();
  /// The line that compares what was told with what was stored or delivered.
  Line line(std::size_t runs);

  std::filesystem::path data() const { return folder_ / "data"; }

  Ledger ledger;

 private:
  void addFound();

  std::string program_;
  std::string name_;
  test::TemporaryFolder folder_;

 public:
  devservice::DevService service;
};

}  // namespace orrelo::prove
