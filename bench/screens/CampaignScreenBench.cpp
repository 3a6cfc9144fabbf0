// Campaign screens: the time from the service's bytes to the first frame, and the memory that stays in use.
#include "ModularPage.h"
#include "campaign/attendance/AttendanceCampaignView.h"
#include "modular/ModularCampaignView.h"
#include "modular/content/BoxedInformationListView.h"
#include "modular/content/PageEntryView.h"
#include "screens/ScreenBenches.h"
#include "screens/Stage.h"
#include "screens/growth.h"

#include <QBuffer>
#include <QImage>
#include <algorithm>

namespace orrelo::bench {
namespace {

using Pictures = std::vector<std::shared_ptr<ImageView>>;

// A PNG file of a picture with many colours.
std::string picture(int width, int height) {
  QImage image(width, height, QImage::Format_ARGB32);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) image.setPixel(x, y, qRgba(x, y, x ^ y, 255 - x * 255 / width));
  }
  QBuffer file;
  image.save(&file, "PNG");
  return file.data().toStdString();
}

// The pictures are as large as those that a service sends.
Stage& stage() {
  static auto& stage = [&]() -> Stage& {
    auto& answers = Stage::shared().service().answers;
    answers["/campaigns/attendance"] = {200, test::campaignReply(test::richAttendancePage())};
    answers["/attend"] = {200, test::richAttendancePage()};
    answers["/campaigns/modular"] = {200, test::campaignReply(modularPage(mixedBlocks(30)))};
    answers["/image/box.png"] = {200, picture(1170, 780)};
    answers["/image/line.png"] = {200, picture(1170, 90)};
    for (const auto* const icon :
         {"/gift.png", "/icon/coffee.png", "/icon/point.png", "/icon/attendance.png"}) {
      answers[icon] = {200, picture(192, 192)};
    }
    return Stage::shared();
  }();
  return stage;
}

Pictures picturesOf(const ModularCampaignView& page) {
  Pictures pictures;
  for (const auto& arranged : page.stackView->arrangedSubviews) {
    if (auto image = std::dynamic_pointer_cast<AutoLayoutImageView>(arranged.view)) pictures.push_back(image);
    if (const auto* list = dynamic_cast<const BoxedInformationListView*>(arranged.view.get())) {
      for (const auto& box : list->boxes) pictures.push_back(box->leftImageView);
    }
  }
  return pictures;
}

void waitForPictures() {
  const auto pictures = picturesOf(dynamic_cast<const ModularCampaignView&>(*stage().content()));
  runUntil([&] {
    return std::all_of(pictures.begin(), pictures.end(),
                       [](const auto& view) { return view->state.value().image != nullptr; });
  });
}

std::vector<double> measureAttendance() {
  std::vector<double> openings;
  std::vector<double> rebuildings;
  for (int i = 0; i < 20; ++i) {
    openings.push_back(stage().open("attendance"));
    const auto page = std::dynamic_pointer_cast<AttendanceCampaignView>(stage().content());
    rebuildings.push_back(stage().change([&] { page->actionView->onClick(); }));
    stage().close();
  }
  return {quantile(openings, 0.5), quantile(rebuildings, 0.5)};
}

std::vector<double> measureModular() {
  std::vector<double> openings;
  for (int i = 0; i < 20; ++i) {
    openings.push_back(stage().open("modular"));
    waitForPictures();
    stage().close();
  }
  return {quantile(openings, 0.5)};
}

}  // namespace

void addCampaignScreens() {
  add({{"campaign screen, from the bytes to the first frame", "ms", 60},
       {"campaign screen, rebuilt after a participation", "ms", 25}},
      &measureAttendance);
  add({{"page of 30 blocks, from the bytes to the first frame", "ms", 60}}, &measureModular);
  add({{"resident memory that 200 openings add", "MiB", 1}}, [] {
    return growthBy([] {
      stage().open("attendance");
      stage().close();
    });
  });
  add({{"resident memory that 200 pages of 30 blocks add", "MiB", 1}}, [] {
    return growthBy([] {
      stage().open("modular");
      waitForPictures();
      stage().close();
    });
  });
}

}  // namespace orrelo::bench
