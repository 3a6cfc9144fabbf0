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

long residentMemory() {
  std::ifstream file("/proc/self/status");
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("RssAnon:")) return std::stol(line.substr(8));
  }
  throw std::runtime_error("no RssAnon");
}

std::uintmax_t fileSizes(const fs::path& folder) {
  std::uintmax_t sum = 0;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) sum += entry.file_size();
  }
  return sum;
}

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
  std::uintmax_t files = 0;
  std::uintmax_t mostFiles = 0;
  for (int hour = 0, number = 0; hour < hours; ++hour) {
    for (const int last = static_cast<int>(std::int64_t{events} * (hour + 1) / hours); number < last;
         ++number) {
      Orrelo::sendEvent("reported", {{"n", std::to_string(number)}, {"text", std::string(200, 'v')}});
      kit.run(pause);
    }
    const auto nowMemory = residentMemory();
    const auto nowFiles = fileSizes(folder.path());
    std::fprintf(stderr, "hour %2d: RssAnon %ld KiB, files %ju KiB\n", hour + 1, nowMemory, nowFiles / 1024);
    if (hour == 0) memory = nowMemory, files = nowFiles;
    mostMemory = std::max(mostMemory, nowMemory);
    mostFiles = nowFiles;
  }
  kit.run(std::chrono::seconds(60));
  mostFiles = fileSizes(folder.path());

  for (const auto count : sent) {
    if (count == 0) ++line.lost;
    if (count > 1) line.repeats += count - 1U;
  }
  if (mostMemory > memory + tolerance) line.outcome = "memory grows";
  if (mostFiles > files) line.outcome += " files grow";
  if (strangers != 0) line.outcome += " strange events";
  line.remark = "RssAnon " + std::to_string(memory) + " KiB after an hour, at most " +
                std::to_string(mostMemory) + " KiB; files " + std::to_string(files / 1024) +
                " KiB, at last " + std::to_string(mostFiles / 1024) + " KiB";
  line.print();
  return line.isGood();
}

}  // namespace orrelo::prove
