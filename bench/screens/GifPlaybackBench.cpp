// Ten animations of 320 by 240 that play for ten seconds, against Qt's own player: the processor time of the
// process for each frame shown, with decoding and painting. Both show the same frames in windows of one size
// in the software renderer. Time is virtual: each step is painted before the next one, so neither leaves a
// frame out.
#include "image/ImageView.h"
#include "image/gif/GifLoad.h"
#include "image/gif/GifPlaybackManager.h"
#include "modular/ModularCampaignView.h"
#include "screens/ScreenBenches.h"
#include "screens/Stage.h"

#include <QDir>
#include <QFile>
#include <QQuickItem>
#include <QTemporaryDir>
#include <ctime>
#include <string>
#include <utility>

namespace orrelo::bench {
namespace {

using Views = std::vector<std::shared_ptr<ImageView>>;

constexpr int viewCount = 10;
constexpr int frameCount = 60;
/// Ten seconds; each frame of the file lasts for three ticks.
constexpr int tickCount = 600;
constexpr int stepCount = tickCount / 3;
/// High enough for all of them.
constexpr QSize windowPoints(390, 3100);

const QString file = QStringLiteral(ORRELO_BENCH_DATA "/gif/front-bench.gif");

double cpuSeconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// A page of ten images in their own size.
std::string page() {
  std::string names;
  std::string images;
  for (int i = 0; i < viewCount; ++i) {
    const std::string comma = i > 0 ? "," : "";
    names += comma + R"("image")";
    images +=
        comma + R"({"url":"https://cdn.example/)" + std::to_string(i) + R"(/bench.gif","style":"none"})";
  }
  return R"({"page_type":"box","page_id":"p","page_details_v2":{"page_config":{"layout":{"toolbar":{"text":""},
    "component_order":[)" +
         names + R"(]}},"blank":[],"image":[)" + images + "]}}";
}

Views viewsOf(const ModularCampaignView& page) {
  Views views;
  for (const auto& arranged : page.stackView->arrangedSubviews) {
    if (auto view = std::dynamic_pointer_cast<ImageView>(arranged.view)) views.push_back(view);
  }
  if (views.size() != viewCount) std::abort();
  return views;
}

// Returns the processor time for each frame that was shown, in seconds.
double playInKit(std::int64_t memoryLimit) {
  auto& stage = Stage::shared();
  QFile bytes(file);
  if (!bytes.open(QIODevice::ReadOnly)) std::abort();
  stage.service().answers["/bench.gif"] = {200, bytes.readAll().toStdString()};
  stage.service().answers["/campaigns/moving"] = {200, test::campaignReply(page())};
  const auto formerSize = stage.window().size();
  stage.window().resize(windowPoints);
  stage.open("moving");
  const auto views = viewsOf(dynamic_cast<const ModularCampaignView&>(*stage.content()));
  const auto manager = std::make_shared<GifPlaybackManager>(memoryLimit, Platform::current());
  int loaded = 0;
  for (int i = 0; i < viewCount; ++i) {
    const auto url = Url::parse("https://cdn.example/" + std::to_string(i) + "/bench.gif");
    loadAnimation(views[static_cast<std::size_t>(i)], *url, manager, stage.service(),
                  {.completion = [&loaded](const auto&) { ++loaded; }});
  }
  const QDeadlineTimer arrival(1000);  // longer than the screen slides in
  runUntil([&] { return loaded == viewCount && arrival.hasExpired(); });

  int shown = 0;
  std::vector<reactive::Disposable> counting;
  for (const auto& view : views) {
    counting.push_back(view->frame.changes().subscribe([&](reactive::Unit) { ++shown; }));
  }
  const auto tick = [&] {
    const auto framesBefore = stage.frames();
    const int before = shown;
    stage.display().tick();
    stage.waitForWorkers();
    if (shown > before) runUntil([&] { return stage.frames() > framesBefore; });
  };
  // The first ticks find the views on screen and begin to decode the frames that are kept.
  const double start = cpuSeconds();
  for (int i = 0; i < tickCount; ++i) tick();
  const double spent = cpuSeconds() - start;
  // The first step and the last may lie on the edges of the ten seconds.
  if (shown < (stepCount - 2) * viewCount || shown > (stepCount + 1) * viewCount) std::abort();
  for (const auto& each : counting) each.dispose();
  stage.close();
  stage.window().resize(formerSize);
  return spent / shown;
}

double playInQt(bool isCached) {
  // One file for each, since the toolkit shares the frames of a file.
  const QTemporaryDir folder;
  for (int i = 0; i < viewCount; ++i) QFile::copy(file, folder.filePath(QStringLiteral("%1.gif").arg(i)));
  QQmlApplicationEngine engine;
  engine.setInitialProperties({{"width", windowPoints.width()}, {"height", windowPoints.height()}});
  engine.loadData(
      QByteArray("import QtQuick\nWindow { visible: true\n Column { Repeater { model: ") +
      QByteArray::number(viewCount) +
      "; AnimatedImage { width: 320; height: 240; paused: true; cache: " + (isCached ? "true" : "false") +
      "; source: 'file://" + folder.path().toUtf8() + "/' + index + '.gif' } } } }");
  auto* const window = qobject_cast<QQuickWindow*>(engine.rootObjects().value(0));
  if (window == nullptr) std::abort();
  int frames = 0;
  QObject::connect(window, &QQuickWindow::frameSwapped, window, [&] { ++frames; });
  QList<QQuickItem*> images;
  for (auto* const item : window->contentItem()->childItems().value(0)->childItems()) {
    if (item->property("frameCount").toInt() == frameCount) images.push_back(item);
  }
  if (images.size() != viewCount) std::abort();
  runUntil([&] { return frames > 0; });
  const double start = cpuSeconds();
  for (int step = 1; step <= stepCount; ++step) {
    const int before = frames;
    for (auto* const image : images) image->setProperty("currentFrame", step % frameCount);
    runUntil([&] { return frames > before; });
  }
  const double spent = cpuSeconds() - start;
  if (images.front()->property("currentFrame").toInt() != stepCount % frameCount) std::abort();
  return spent / (stepCount * viewCount);
}

}  // namespace

void addGifPlayback() {
  add({{"10 animations of 320 by 240, processor time against Qt's own player", "times", 1.1},
       {"the same with frames that are kept", "times", 1.0}},
      [] {
        constexpr std::int64_t forNone = 0;
        constexpr std::int64_t forAll = 1000;
        return std::vector{playInKit(forNone) / playInQt(false), playInKit(forAll) / playInQt(true)};
      });
}

}  // namespace orrelo::bench
