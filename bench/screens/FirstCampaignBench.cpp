// Measures the first campaign of a process, each sample in its own process: how much later it comes than a
// text of the host's own, with and without the kit's preparation while the host rests.
#include "ModularPage.h"
#include "Targets.h"
#include "quick/Service.h"
#include "screens/ScreenBenches.h"
#include "support/TemporaryFolder.h"

#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>

namespace orrelo::bench {
namespace {

constexpr int sampleCount = 9;

struct Samples {
  std::vector<double> milliseconds;
  std::vector<double> turns;
  std::vector<double> mebibytes;
};

void takeSample(const std::string& command, Samples& samples) {
  FILE* const output = popen(command.c_str(), "r");
  if (output == nullptr) throw std::runtime_error("the sample does not start");
  double milliseconds = 0.0;
  double turn = 0.0;
  double mebibytes = 0.0;
  const int read = std::fscanf(output, "%lf %lf %lf", &milliseconds, &turn, &mebibytes);
  if (pclose(output) != 0 || read != 3) throw std::runtime_error("the sample failed");
  samples.milliseconds.push_back(milliseconds);
  samples.turns.push_back(turn);
  samples.mebibytes.push_back(mebibytes);
}

std::vector<double> measureFirstCampaigns() {
  const test::TemporaryFolder folder;
  const auto sample =
      std::string(ORRELO_FIRST_CAMPAIGN_SAMPLE) + " '" + (folder.path() / "kit").string() + "'";
  const auto withReply = [&](const std::string& name, const std::string& page) {
    const auto file = folder.path() / name;
    std::ofstream(file) << test::campaignReply(page);
    return sample + " '" + file.string() + "'";
  };
  const auto page =
      withReply("page", modularPage({"information", "action", "information", "notice", "action", "notice"}));
  const auto attendance = withReply("attendance", test::richAttendancePage());
  const std::string cold = "ORRELO_WARM_UP=0 ";

  Samples texts;
  Samples pages;
  Samples attendances;
  Samples coldPages;
  Samples coldAttendances;
  for (int i = 0; i < sampleCount; ++i) {
    takeSample(sample, texts);
    takeSample(page, pages);
    takeSample(attendance, attendances);
    takeSample(cold + page, coldPages);
    takeSample(cold + attendance, coldAttendances);
  }
  const auto delay = [text = quantile(texts.milliseconds, 0.5)](Samples& samples) {
    return quantile(samples.milliseconds, 0.5) - text;
  };
  return {delay(pages),
          delay(attendances),
          delay(coldPages),
          delay(coldAttendances),
          quantile(pages.turns, 0.5),
          quantile(pages.mebibytes, 0.5) - quantile(coldPages.mebibytes, 0.5)};
}

}  // namespace

void addFirstCampaign() {
  add({{"a process's first campaign, a page without pictures, after a first text", "ms", 12},
       {"a process's first campaign, attendance, after a first text", "ms", 16},
       {"the same page without the preparation", "ms"},
       {"the same attendance without the preparation", "ms"},
       {"the preparation's longest turn of the event loop, median", "ms", 2},
       {"resident memory that the preparation adds before a campaign", "MiB", 2.5}},
      &measureFirstCampaigns);
}

}  // namespace orrelo::bench
