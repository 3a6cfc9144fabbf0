#include "quick/host/WarmUp.h"

#include "quick/bridge/Conversions.h"
#include "quick/bridge/explainUnloadable.h"

#include <orrelo/MainLoop.h>
#include <orrelo/platform/WorkerPool.h>

#include <QFont>
#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlProperty>
#include <QQuickWindow>
#include <array>
#include <string_view>
#include <utility>

namespace orrelo::quick {
namespace {

/// The QML files of a campaign's screen and of its most frequent content, with the files that they use.
constexpr std::array compiled{"CampaignViewController", "AttendanceCampaignView",
                              "ModularCampaignView",    "InformationView",
                              "ActionButtonView",       "BoxedInformationListView",
                              "AutoLayoutImageView",    "NoticeView",
                              "PageEntryView",          "SpacerView",
                              "TooltipInformationView"};

/// Files that can be created without data, each before those that use it. The first object of a type costs
/// several times as much as the next one.
constexpr std::array created{"PressArea", "IconButton",        "ModalTopBar", "ORLUIViewController",
                             "TitleRows", "ActivityIndicator", "PageScroll",  "ActionButton"};

struct Style {
  int size;
  QFont::Weight weight;
};

/// The fonts of the files above, and those of the calendar on a window as wide as a phone.
constexpr std::array styles{Style{10, QFont::Normal}, Style{12, QFont::Normal}, Style{13, QFont::Normal},
                            Style{14, QFont::Normal}, Style{16, QFont::Normal}, Style{19, QFont::Normal},
                            Style{24, QFont::Normal}, Style{14, QFont::Bold},   Style{16, QFont::Bold},
                            Style{17, QFont::Bold},   Style{20, QFont::Bold},   Style{24, QFont::Bold}};

/// Digits, punctuation, the names of the weekdays, and frequent syllables. A glyph is loaded once per style.
constexpr std::array<std::string_view, 6> texts{
    "0123456789",      "PA.,!%•", "월화수목금토일", "이다는에을로하고가지를은", "한기도서요세트인포출석받",
    "오늘매시해어참여"};

QUrl fileOf(const char* name) {
  return moduleFile(QLatin1String(name) + QStringLiteral(".qml"));
}

void loadPlugins() {
  static_cast<void>(QImageReader::supportedImageFormats());  // loads all of them
  for (const auto* const icon : {"orl_bg_gray_gradient", "orl_ic_arrow_back", "orl_ic_attendance"}) {
    static_cast<void>(QImageReader(QLatin1Char(':') + assetFile(icon).path()).read());
  }
}

void setStyle(QObject& label, const Style& style) {
  label.setProperty("size", style.size);
  QQmlProperty::write(&label, QStringLiteral("font.weight"), style.weight);
}

// Lays the text out and draws it, so that the font has its glyphs.
void loadGlyphs(QObject& label, const QString& text) {
  label.setProperty("text", text);
  QImage image(1, 1, QImage::Format_RGB32);
  QPainter painter(&image);
  painter.setFont(label.property("font").value<QFont>());
  painter.drawText(0, 0, text);
}

}  // namespace

void WarmUp::begin(QQmlEngine& engine, QQuickWindow& window) {
  auto threads = warmUpThreads();
  if (!threads.workers || engine.property(isDone).isValid()) return;
  engine.setProperty(isDone, false);
  auto* const warmUp = new WarmUp(engine, std::move(threads));
  connect(&window, &QQuickWindow::frameSwapped, warmUp, &WarmUp::start,
          static_cast<Qt::ConnectionType>(Qt::AutoConnection | Qt::SingleShotConnection));
}

WarmUp::WarmUp(QQmlEngine& engine, WarmUpThreads threads)
    : QObject(&engine), engine_(engine), threads_(std::move(threads)) {}

void WarmUp::start() {
  work_.add([this] {
    threads_.workers->post(QualityOfService::background, [self = QPointer(this), loop = threads_.mainLoop] {
      loadPlugins();
      loop->post([self] {
        if (self) self->compile(0);
      });
    });
  });
}

void WarmUp::compile(std::size_t index) {
  if (index == compiled.size()) return loadFonts();
  auto* const component = new QQmlComponent(&engine_, &engine_);  // while it exists, the type stays loaded
  connect(component, &QQmlComponent::statusChanged, this, [this, index, component] {
    if (component->isLoading()) return;
    if (component->isError()) explainUnloadable(*component);
    work_.add([this, index] { compile(index + 1); });
  });
  component->loadUrl(fileOf(compiled.at(index)), QQmlComponent::Asynchronous);
}

void WarmUp::loadFonts() {
  auto* const label = create("KitText");
  if (label == nullptr) return finish();
  for (const auto& style : styles) {
    work_.add([label, &style] { setStyle(*label, style); });
    for (const auto& text : texts) work_.add([label, &text] { loadGlyphs(*label, toQt(text)); });
  }
  for (const auto* const name : created) {
    work_.add([this, name] { delete create(name); });
  }
  work_.add([this] { finish(); });
}

void WarmUp::finish() {
  engine_.setProperty(isDone, true);
  deleteLater();
}

QObject* WarmUp::create(const char* name) {
  QQmlComponent component(&engine_, fileOf(name));
  auto* const object = component.create();
  if (object != nullptr)
    object->setParent(this);
  else
    explainUnloadable(component);
  return object;
}

}  // namespace orrelo::quick
