// Measures `Orrelo::initialize` with existing stores and the journal of an ended process, each sample in its
// own process.
#include "Benches.h"
#include "DevService.h"
#include "Targets.h"
#include "events/EventRecord.h"
#include "platform/journal/FileEventJournal.h"
#include "support/TemporaryFolder.h"

#include <cstdio>
#include <stdexcept>

namespace orrelo::bench {
namespace {

struct Sample {
  double milliseconds = 0.0;
  double threads = 0.0;
  double mebibytes = 0.0;
};

Sample takeSample(const std::string& command) {
  FILE* const output = popen(command.c_str(), "r");
  if (output == nullptr) throw std::runtime_error("the sample does not start");
  Sample sample;
  const int read =
      std::fscanf(output, "%lf %lf %lf", &sample.milliseconds, &sample.threads, &sample.mebibytes);
  if (pclose(output) != 0 || read != 3) throw std::runtime_error("the sample failed");
  return sample;
}

// Leaves 1,000 events in a journal that no process holds.
void leaveJournal(const std::filesystem::path& data) {
  const auto platform = Platform::posix({.bundleIdentifier = "bench", .dataDirectory = data});
  FileEventJournal journal({platform.directories, platform.clock, platform.random,
                            std::make_shared<WriterQueue>(), platform.workers});
  for (int i = 0; i < 1000; ++i) {
    const auto record = EventRecord::encode(platform.random->uuid(), platform.clock->now(), "user-1",
                                            "purchase", {{"item", "blue shoes"}, {"price", 39.9}});
    if (journal.append(record).index() != 0) throw std::runtime_error("the journal is not written");
  }
}

std::vector<double> measureInitialize() {
  const test::TemporaryFolder folder;
  devservice::DevService service({.dataDirectory = folder.path() / "service"});
  service.start();
  const auto command = std::string(ORRELO_INITIALIZE_SAMPLE) + " '" + (folder.path() / "kit").string() +
                       "' " + service.baseUrl() + " '" + service.certificatePath().string() + "'";
  takeSample(command);  // creates the stores
  std::vector<double> times;
  std::vector<double> threads;
  std::vector<double> sizes;
  for (int i = 0; i < 11; ++i) {
    leaveJournal(folder.path() / "kit");
    const auto sample = takeSample(command);
    times.push_back(sample.milliseconds);
    threads.push_back(sample.threads);
    sizes.push_back(sample.mebibytes);
  }
  return {quantile(times, 0.5), quantile(threads, 1.0), quantile(sizes, 0.5)};
}

}  // namespace

void addInitialize() {
  add({{"initialize on the caller's thread, median", "ms", 1.5},
       {"threads after initialize, most", "", 8},
       {"resident memory that initialize adds, median", "MiB", 1.2}},
      &measureInitialize);
}

}  // namespace orrelo::bench
