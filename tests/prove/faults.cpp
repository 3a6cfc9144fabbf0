#include "prove/FileCalls.h"
#include "prove/Ledger.h"
#include "prove/Proofs.h"
#include "prove/VirtualKit.h"
#include "prove/script.h"
#include "support/TemporaryFolder.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <map>

namespace orrelo::prove {
namespace {

using Life = void (*)(const std::filesystem::path&);
constexpr std::array<Life, 3> lives{&firstLife, &secondLife, [](const auto& folder) { settleLife(folder); }};
/// No call has more kinds of failures.
constexpr int variants = 3;

struct Day {
  Ledger ledger;
  std::array<int, lives.size()> calls{};
  std::string fault;
  std::string crash;
  /// No single failure makes a file unusable, so that its rows would not be sent any more.
  bool isSetAside = false;
};

/// Runs the script in a new folder; the call `number` of the life `failing` fails, if that is not 0.
Day runDay(std::size_t failing, int number, int variant) {
  const test::TemporaryFolder folder;
  const auto errors = folder / "errors";
  Day day;
  for (std::size_t i = 0; i < lives.size(); ++i) {
    const auto ended = runInChild(errors, [&] {
      FileCalls::watch(folder.path());
      if (i == failing) FileCalls::fail(number, variant);
      lives[i](folder.path());
      writeLine("calls " + std::to_string(FileCalls::count()) + " " + FileCalls::failed());
    });
    day.ledger.addLines(ended.output);
    if (const auto at = ended.output.rfind("calls "); at != std::string::npos) {
      const auto text = ended.output.substr(at + 6, ended.output.find('\n', at) - at - 6);
      day.calls[i] = std::stoi(text);
      if (i == failing) day.fault = text.substr(text.find(' ') + 1);
    }
    if (!ended.isWell()) {
      std::ifstream file(errors);
      day.crash = "life " + std::to_string(i + 1) + " ended with status " + std::to_string(ended.status) +
                  ": " + std::string(std::istreambuf_iterator<char>(file), {});
    }
  }
  day.ledger.addStores(folder / "data");
  for (const auto& entry : std::filesystem::directory_iterator(folder / "data"))
    day.isSetAside = day.isSetAside || entry.path().string().find(".corrupt-") != std::string::npos;
  return day;
}

/// What the line has no column for.
struct Others {
  std::size_t crashes = 0;
  std::size_t setAside = 0;
  std::size_t goneFromMemory = 0;
};

/// Prints what one fault has done. The line gathers the numbers.
void judge(const Day& day, std::size_t life, int number, Line& line, Others& others) {
  const auto lost = day.ledger.lost();
  const auto doubled = day.ledger.underTwoIds();
  ++line.runs;
  line.tried += day.ledger.told();
  line.lost += lost.size();
  line.underTwoIds += doubled.size();
  line.repeats += day.ledger.repeats;
  others.crashes += day.crash.empty() ? 0 : 1;
  others.setAside += day.isSetAside ? 1 : 0;
  others.goneFromMemory += day.ledger.goneFromMemory();
  if (lost.empty() && doubled.empty() && day.crash.empty() && !day.isSetAside) return;
  std::fprintf(stderr, "life %zu, call %d (%s):", life + 1, number, day.fault.c_str());
  for (const auto& event : lost) std::fprintf(stderr, " lost %s", event.c_str());
  for (const auto& event : doubled) std::fprintf(stderr, " %s has two ids", event.c_str());
  std::fprintf(stderr, "%s %s\n", day.isSetAside ? " a file was set aside" : "", day.crash.c_str());
}

}  // namespace

bool proveFaults(int every) {
  const auto calm = runDay(lives.size(), 0, 0);
  Line line{.name = "a system call fails"};
  Others others;
  judge(calm, 0, 0, line, others);
  for (std::size_t life = 0; life < 2; ++life) {
    for (int number = 1; number <= calm.calls[life]; number += every) {
      std::string first;
      for (int variant = 0; variant < variants; ++variant) {
        const auto day = runDay(life, number, variant);
        if (day.fault == first) break;  // all kinds of this call's failures are through
        if (variant == 0) first = day.fault;
        judge(day, life, number, line, others);
      }
    }
  }
  if (others.crashes != 0) line.outcome = std::to_string(others.crashes) + " crashes";
  if (others.setAside != 0) line.outcome += " " + std::to_string(others.setAside) + " files set aside";
  line.remark = std::to_string(calm.calls[0] + calm.calls[1]) + " calls; " +
                std::to_string(others.goneFromMemory) +
                " events waited in memory when their process was killed";
  line.print();
  return line.isGood();
}

}  // namespace orrelo::prove
