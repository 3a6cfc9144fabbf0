// The cost of a hit in the memory cache, and the requests and decodes of a hundred views of one URL.
#include "Benches.h"
#include "Targets.h"
#include "image/ImageLoader.h"
#include "support/TestPlatform.h"

#include <benchmark/benchmark.h>

namespace orrelo::bench {
namespace {

std::string urlOf(int number) {
  return "https://images.example.com/campaigns/attendance/2026/banner-" + std::to_string(number) +
         ".png?size=3x";
}

class CountingView final : public ImageTarget {
 public:
  void setImage(const ImagePtr& image) override { shown = image; }
  Size boundsSize() const override { return {100.0, 100.0}; }
  double scale() const override { return 1.0; }

  ImagePtr shown;
};

std::vector<double> measureHit() {
  constexpr int keys = 1000;
  constexpr int rounds = 300;
  MemoryCache memory;
  std::vector<std::string> urls;
  for (int i = 0; i < keys; ++i) {
    urls.push_back(urlOf(i));
    memory.insert(urls.back(), makeData(std::string(20'000, 'p')));
  }
  std::size_t bytes = 0;
  const auto start = std::chrono::steady_clock::now();
  for (int round = 0; round < rounds; ++round) {
    for (const auto& url : urls) bytes += memory.value(url)->size();
  }
  const double elapsed = secondsSince(start);
  benchmark::DoNotOptimize(bytes);
  return {elapsed * 1e6 / (keys * rounds)};
}

std::vector<double> measureSharing() {
  test::TestPlatform platform;
  std::vector<std::shared_ptr<CountingView>> views;
  for (int i = 0; i < 100; ++i) {
    ImageLoader::load(urlOf(1), views.emplace_back(std::make_shared<CountingView>()));
  }
  platform.session->answer(test::ScriptedURLSession::reply(200, test::PlainImageCodec::file(200, 200)));
  platform.loop->run();
  const auto withoutImage =
      std::count_if(views.begin(), views.end(), [](const auto& view) { return view->shown == nullptr; });
  return {static_cast<double>(platform.session->requests.size()),
          static_cast<double>(platform.codec->decodes), static_cast<double>(withoutImage)};
}

}  // namespace

void addImage() {
  add({{"image: hit in memory, from the URL to the bytes", "us", 2}}, measureHit);
  add({{"100 views of one URL: requests", "", 1},
       {"100 views of one URL: decodes", "", 1},
       {"100 views of one URL: views without the image", "", 0}},
      measureSharing);
}

}  // namespace orrelo::bench
