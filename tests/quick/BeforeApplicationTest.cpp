#include <orrelo/quick/OrreloQuick.h>

#include <QCoreApplication>
#include <gtest/gtest.h>

namespace orrelo::test {
namespace {

TEST(BeforeApplicationDeathTest, ThePlatformStopsAndSaysWhy) {
  constexpr auto message = "orrelo::quick::platform\\(\\) comes before the QGuiApplication";
  EXPECT_DEATH(quick::platform(), message);
  int count = 1;
  std::string name = "host";
  auto* names = name.data();
  const QCoreApplication console(count, &names);
  EXPECT_DEATH(quick::platform(), message);
}

}  // namespace
}  // namespace orrelo::test
