#include "Tour.h"

#include <QColor>

namespace orrelo::showroom {

void Tour::movingPictures() {
  click(QStringLiteral("행운의 동전 보기"));
  await(QStringLiteral("오늘의 행운은 모두 모았어요"));
  // The ground of the coin, the star, and the ground of the word.
  for (const auto& color : {QColor(0xFF, 0xF3, 0xCF), QColor(0x5B, 0x50, 0xE8), QColor(0xE8, 0x32, 0x3C)}) {
    await([&] { return colorShare(window_.grabWindow(), color) > 0.0003; },
          QStringLiteral("a picture of the colour %1 did not appear").arg(color.name()));
  }
  // Both waits end while no picture is about to change, so that a frame which was decoded late is there, too.
  tick(7);
  const auto early = snapshot(QStringLiteral("Three pictures that move: a coin, a star and a word"));
  tick(48);
  const auto late = snapshot(QStringLiteral("The same page after 48 more ticks of the display"));
  require(colorShare(early, QColor(0xE8, 0x32, 0x3C)) > 2 * colorShare(late, QColor(0xE8, 0x32, 0x3C)),
          QStringLiteral("the word does not blink"));
  close();
}

void Tour::tick(int count) {
  for (int i = 1; i <= count; ++i) {
    frames_.next();
    if (i == count - 1) settle();
    showroom_.tickDisplay();
  }
}

}  // namespace orrelo::showroom
