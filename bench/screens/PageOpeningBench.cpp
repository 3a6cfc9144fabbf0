// A page of 30 blocks with 14 pictures: the way from the service's bytes to its frames, what each task of the
// main thread takes meanwhile, and the memory of the open page.
#include "ModularPage.h"
#include "modular/ModularCampaignView.h"
#include "modular/content/BoxedInformationListView.h"
#include "modular/content/PageEntryView.h"
#include "screens/ScreenBenches.h"
#include "screens/Stage.h"
#include "screens/TimedApplication.h"
#include "screens/growth.h"

#include <orrelo/platform/ImageCodec.h>

#include <QQuickItem>
#include <algorithm>
#include <atomic>
#include <map>
#include <thread>

namespace orrelo::bench {
namespace {

using Pictures = std::vector<std::shared_ptr<ImageView>>;

constexpr int openings = 20;
constexpr auto pageId = "page";
/// The title of the sample page's entry that has an icon; the other one has none.
constexpr auto entryWithIcon = "출석체크";

// The files of the page's pictures by the end of their path, as large as those that a service sends.
const std::map<std::string, std::string>& files() {
  static const auto& files = *new std::map<std::string, std::string>{
      {"/image/box.png", pngFile(1170, 780)},      {"/image/line.png", pngFile(1170, 90)},
      {"/icon/coffee.png", pngFile(192, 192)},     {"/icon/point.png", pngFile(192, 192)},
      {"/icon/attendance.png", pngFile(192, 192)},
  };
  return files;
}

// Pages with another salt have pictures of their own.
Stage& stageWith(const std::string& salt) {
  auto& stage = Stage::shared();
  auto& answers = stage.service().answers;
  for (const auto& [path, file] : files()) answers[path] = {200, file};
  answers[std::string("/campaigns/") + pageId] = {200,
                                                  test::campaignReply(modularPage(mixedBlocks(30), salt))};
  return stage;
}

const ModularCampaignView& page() {
  return dynamic_cast<const ModularCampaignView&>(*Stage::shared().content());
}

Pictures pictures() {
  Pictures found;
  for (const auto& arranged : page().stackView->arrangedSubviews) {
    auto* const view = arranged.view.get();
    if (dynamic_cast<AutoLayoutImageView*>(view) != nullptr) {
      found.push_back(std::static_pointer_cast<ImageView>(arranged.view));
    } else if (const auto* list = dynamic_cast<const BoxedInformationListView*>(view)) {
      for (const auto& box : list->boxes) found.push_back(box->leftImageView);
    } else if (const auto* entry = dynamic_cast<const PageEntryView*>(view)) {
      if (entry->title == entryWithIcon) found.push_back(entry->iconImageView);
    }
  }
  if (found.size() != 14) std::abort();
  return found;
}

bool areLoaded(const Pictures& pictures) {
  return std::all_of(pictures.begin(), pictures.end(),
                     [](const auto& view) { return view->state.value().image != nullptr; });
}

double pixelMebibytes(const Pictures& pictures) {
  std::size_t bytes = 0;
  for (const auto& view : pictures) bytes += view->state.value().image->bitmap.size();
  return static_cast<double>(bytes) / (1024.0 * 1024.0);
}

// Waits for a frame that has all pictures.
void waitForPictures() {
  bool areShown = false;
  const auto frames =
      QObject::connect(&Stage::shared().window(), &QQuickWindow::frameSwapped,
                       [&, wanted = pictures()] { areShown = areShown || areLoaded(wanted); });
  Stage::shared().window().update();
  runUntil([&] { return areShown; });
  QObject::disconnect(frames);
}

// The milliseconds that two threads take to decode the page's 14 pictures.
double decodeAlone() {
  std::vector<const std::string*> waiting(3, &files().at("/image/box.png"));
  waiting.insert(waiting.end(), 3, &files().at("/image/line.png"));
  waiting.insert(waiting.end(), 8, &files().at("/icon/point.png"));
  std::atomic<std::size_t> next = 0;
  const auto decode = [&] {
    for (auto at = next++; at < waiting.size(); at = next++) {
      if (!Platform::current().imageCodec->decode(*waiting[at])) std::abort();
    }
  };
  const auto start = std::chrono::steady_clock::now();
  std::thread other(decode);
  decode();
  other.join();
  return secondsSince(start) * 1e3;
}

QQuickItem* scrollIn(const QQuickItem& item) {
  for (auto* const child : item.childItems()) {
    if (child->inherits("QQuickFlickable")) return child;
    if (auto* const scroll = scrollIn(*child)) return scroll;
  }
  return nullptr;
}

// Scrolls to the end by 40 points in each frame.
void scrollToEnd() {
  auto& stage = Stage::shared();
  auto* const scroll = scrollIn(*stage.window().contentItem());
  const double end = scroll->property("contentHeight").toDouble() - scroll->height();
  if (end < 3 * scroll->height()) std::abort();
  for (double y = 0.0; y < end; y += 40.0) {
    const auto frames = stage.frames();
    scroll->setProperty("contentY", std::min(y, end));
    runUntil([&] { return stage.frames() > frames; });
  }
}

std::vector<double> measureOpening() {
  auto& application = TimedApplication::shared();
  std::vector<double> firstFrames;
  std::vector<double> lastPictures;
  std::vector<double> alone;
  std::vector<double> openingTasks;
  std::vector<double> scrollingTasks;
  for (int i = 0; i < openings; ++i) {
    auto& stage = stageWith("opening" + std::to_string(i));
    alone.push_back(decodeAlone());
    application.takeLongestTask();
    const auto start = std::chrono::steady_clock::now();
    firstFrames.push_back(stage.open(pageId));
    waitForPictures();
    lastPictures.push_back(secondsSince(start) * 1e3);
    openingTasks.push_back(application.takeLongestTask());
    scrollToEnd();
    scrollingTasks.push_back(application.takeLongestTask());
    stage.close();
  }
  return {quantile(firstFrames, 0.5), quantile(lastPictures, 0.5) / quantile(alone, 0.5),
          quantile(openingTasks, 0.5), quantile(scrollingTasks, 0.5)};
}

std::vector<double> measureOpeningAgain() {
  auto& stage = stageWith("again");
  std::vector<double> firstFrames;
  int lacking = 0;
  for (int i = 0; i < openings; ++i) {
    const auto frames = QObject::connect(&stage.window(), &QQuickWindow::frameSwapped, [&] {
      if (i > 0 && stage.content() && !areLoaded(pictures())) ++lacking;
    });
    const double firstFrame = stage.open(pageId);
    if (i > 0) firstFrames.push_back(firstFrame);
    waitForPictures();
    QObject::disconnect(frames);
    stage.close();
  }
  return {static_cast<double>(lacking), quantile(firstFrames, 0.5)};
}

// The pictures that are kept are given back first, so that the figure has none of them.
std::vector<double> measureMemory() {
  auto& stage = stageWith("memory");
  std::vector<double> growths;
  for (int i = 0; i < 5; ++i) {
    stage.passThroughBackground();
    const double before = residentMebibytes();
    stage.open(pageId);
    waitForPictures();
    scrollToEnd();
    growths.push_back(residentMebibytes() - before - pixelMebibytes(pictures()));
    stage.close();
  }
  return {quantile(growths, 0.5)};
}

}  // namespace

void addPageOpening() {
  add({{"page of 30 blocks, from the bytes to the first frame", "ms", 16},
       {"page of 30 blocks, to the frame with the last picture, against decoding alone", "times", 2.5},
       {"main thread's longest task while the page opens", "ms", 12},
       {"main thread's longest task while the page scrolls", "ms", 4}},
      &measureOpening);
  add({{"page of 30 blocks again, frames that lack a picture", "", 0},
       {"page of 30 blocks again, from the bytes to the first frame", "ms", 16}},
      &measureOpeningAgain);
  add({{"resident memory of the open page of 30 blocks, beyond its pictures", "MiB"}}, &measureMemory);
  add({{"resident memory that 200 pages of 30 blocks add", "MiB", 1}}, [] {
    stageWith("growth");
    return growthBy([] {
      Stage::shared().open(pageId);
      waitForPictures();
      Stage::shared().close();
    });
  });
}

}  // namespace orrelo::bench
