// The history of points: what a page costs on the main thread when it is appended, and what its rows cost in
// memory.
#include "rewards/point/PointRedemptionHistoryViewController.h"
#include "screens/ScreenBenches.h"
#include "screens/Stage.h"
#include "screens/growth.h"
#include "ui/RunningKit.h"

#include <ctime>

namespace orrelo::bench {
namespace {

constexpr std::size_t rowsPerPage = 100;
constexpr std::size_t lastRow = 10'000;
/// The rows that are there before memory is measured; by then the screen and its delegates have theirs.
constexpr std::size_t firstRows = 1'000;

const std::string title = "출석체크 이벤트에서 받은 포인트";
const std::string body = "매일 한 번 출석하고 받았어요";
const std::string date = "2026-11-18T09:00:00+09:00";
const auto textBytesPerRow = static_cast<double>(title.size() + body.size() + date.size());

std::string page() {
  std::string rows;
  for (std::size_t i = 0; i < rowsPerPage; ++i) {
    rows += std::string(i > 0 ? "," : "") + R"({"id":)" + std::to_string(i) + R"(,"title":")" + title +
            R"(","description":")" + body + R"(","date":")" + date + R"(","point_amount":)" +
            (i % 2 == 0 ? "100" : "-100") + "}";
  }
  return "[" + rows + "]";
}

/// The processor time of this thread, which leaves out its waiting.
double threadMilliseconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

std::shared_ptr<PointRedemptionHistoryViewController> open() {
  auto& stage = Stage::shared();
  stage.service().answers["/point-redemption-history"] = {200, page()};
  stage.service().answers["/my-point"] = {
      200, R"({"amount":1,"description":"내 포인트","point_unit":"P","icon_url":""})"};
  RunningKit::current()->routers.at(Page::Fixed::pointRedemptionHistory)->route(stage.host(), {}, {});
  return std::dynamic_pointer_cast<PointRedemptionHistoryViewController>(
      stage.host()->presentedViewController());
}

/// Appends a page. Returns the processor time of the turn of the event loop that appends it, which updates
/// the core's rows, the list and its items, and of the next turn, which lays the list out.
double append(PointRedemptionHistoryViewController& screen, std::size_t expected) {
  double turn = 0.0;
  QDeadlineTimer deadline(10'000);
  while (screen.state().rowCount < expected) {
    const double start = threadMilliseconds();
    QCoreApplication::processEvents();
    turn = threadMilliseconds() - start;
    if (deadline.hasExpired()) std::abort();
  }
  const double start = threadMilliseconds();
  QCoreApplication::processEvents();
  return turn + threadMilliseconds() - start;
}

std::vector<double> measure() {
  const auto screen = open();
  if (!screen) std::abort();
  append(*screen, rowsPerPage);
  std::vector<double> appends;
  double before = 0.0;
  for (std::size_t rows = 2 * rowsPerPage; rows <= lastRow; rows += rowsPerPage) {
    screen->refresh();
    appends.push_back(append(*screen, rows));
    if (rows == firstRows) before = residentMebibytes();
  }
  const double growth = (residentMebibytes() - before) * 1024.0 * 1024.0;
  screen->dismiss(false);
  return {quantile(appends, 0.99), growth / (lastRow - firstRows) - textBytesPerRow};
}

}  // namespace

void addPointHistory() {
  add({{"appending 100 rows to a history of up to 10,000: p99", "ms", 4},
       {"resident memory for each row, beyond its texts", "B", 256}},
      &measure);
}

}  // namespace orrelo::bench
