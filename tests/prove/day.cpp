#include "prove/Ledger.h"
#include "prove/Proofs.h"
#include "prove/VirtualKit.h"
#include "support/TemporaryFolder.h"

#include <orrelo/Orrelo.h>

#include <cstdio>
#include <fstream>
#include <vector>

namespace orrelo::prove {
namespace {

namespace fs = std::filesystem;
constexpr int hours = 24;
/// The allocator's own noise, in KiB.
constexpr long tolerance = 512;
/// The empty tables, which SQLite writes to the files only when it writes a log back.
constexpr std::uintmax_t tables = 64 * 1024;
/// SQLite writes a log back when it has 1000 pages; one transaction may exceed that.
constexpr std::uintmax_t maximumLog = 5 * 1024 * 1024;

long residentMemory() {
  std::ifstream file("/proc/self/status");
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("RssAnon:")) return std::stol(line.substr(8));
  }
  throw std::runtime_error("no RssAnon");
}

struct FileSizes {
  std::uintmax_t whole = 0;
  /// SQLite's logs and their indexes, which are used anew from their start but never shrink.
  std::uintmax_t logs = 0;
  std::uintmax_t largestLog = 0;

  explicit FileSizes(const fs::path& folder) {
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
      if (!entry.is_regular_file()) continue;
      const auto name = entry.path().filename().string();
      const bool isLog = name.ends_with("-wal") || name.ends_with("-shm");
      (isLog ? logs : whole) += entry.file_size();
      if (isLog) largestLog = std::max(largestLog, entry.file_size());
    }
  }
};

}  // namespace

bool proveDay(int events) {
  const test::TemporaryFolder folder;
  VirtualKit kit(folder.path(), 0);
  std::vector<unsigned char> sent(static_cast<std::size_t>(events), 0);
  std::size_t strangers = 0;
  kit.onSent = [&](const std::string& number, const std::string&) {
    const auto index = static_cast<std::size_t>(std::stoul(number));
    if (index >= sent.size()) return void(++strangers);
    if (sent[index] < 255) ++sent[index];
  };
  Orrelo::initialize(ORLConfig("prove"));
  const std::chrono::microseconds pause(24LL * 3600 * 1'000'000 / events);

  Line line{.name = "a day of events", .runs = 1, .tried = sent.size()};
  long memory = 0;
  long mostMemory = 0;
  kit.run(pause);
  const FileSizes first(folder.path());
  for (int hour = 0, number = 0; hour < hours; ++hour) {
    for (const int last = static_cast<int>(std::int64_t{events} * (hour + 1) / hours); number < last;
         ++number) {
      Orrelo::sendEvent("reported", {{"n", std::to_string(number)}, {"text", std::string(200, 'v')}});
      kit.run(pause);
    }
    const auto nowMemory = residentMemory();
    const FileSizes files(folder.path());
    std::fprintf(stderr, "hour %2d: RssAnon %ld KiB, files %ju KiB, SQLite's logs %ju KiB\n", hour + 1,
                 nowMemory, files.whole / 1024, files.logs / 1024);
    if (hour == 0) memory = nowMemory;
    mostMemory = std::max(mostMemory, nowMemory);
  }
  kit.run(std::chrono::minutes(2));  // a journal is replaced at a tick once it is free
  const FileSizes last(folder.path());

  for (const auto count : sent) {
    if (count == 0) ++line.lost;
    if (count > 1) line.repeats += count - 1U;
  }
  if (mostMemory > memory + tolerance) line.outcome = "memory grows";
  if (last.whole > first.whole + tables || last.largestLog > maximumLog) line.outcome += " files grow";
  if (strangers != 0) line.outcome += " strange events";
  line.remark = "RssAnon " + std::to_string(memory) + " KiB after an hour, at most " +
                std::to_string(mostMemory) + " KiB; files " + std::to_string(first.whole / 1024) +
                " KiB at first, " + std::to_string(last.whole / 1024) + " KiB at last, and SQLite's logs " +
                std::to_string(last.logs / 1024) + " KiB";
  line.print();
  return line.isGood();
}

}  // namespace orrelo::prove
