#pragma once

#include "modular/content/PageEntryView.h"
#include "quick/image/ImageBridge.h"

#include <QUrl>
#include <algorithm>

namespace orrelo::quick {

class PageEntryBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString title MEMBER title CONSTANT)
  Q_PROPERTY(QString label MEMBER label CONSTANT)
  Q_PROPERTY(QString accessibilityLabel MEMBER accessibilityLabel CONSTANT)
  Q_PROPERTY(orrelo::quick::ImageBridge* icon MEMBER icon CONSTANT)
  Q_PROPERTY(QUrl tapAsset MEMBER tapAsset CONSTANT)

 public:
  PageEntryBridge(const std::shared_ptr<PageEntryView>& view, QObject* parent)
      : ViewBridge(view, parent),
        title(toQt(view->title)),
        label(toQt(view->label)),
        accessibilityLabel(toQt(view->accessibilityLabel())),
        icon(new ImageBridge(view->iconImageView, this)),
        entry_(*view) {}

  const QString title;
  const QString label;
  const QString accessibilityLabel;
  ImageBridge* const icon;
  const QUrl tapAsset = assetFile(PageEntryView::tapAsset);

  Q_INVOKABLE void didAction() { entry_.didAction(); }

 protected:
  // The layout of PageEntryView.qml.
  double measuredHeight(double width, const TextMeasure& measure) const override {
    constexpr double margin = 20.0;
    constexpr double iconSide = 32.0;
    constexpr double arrowSide = 16.0;
    constexpr double spacing = 10.0;
    const double panel = width - 2 * 24.0;
    const double left = margin + (icon->hasContent() ? iconSide + spacing : 0.0);
    const double lines = panel - left - spacing - arrowSide - margin;
    const double titleHeight = measure.height(title, lines, {.size = 16.0, .isBold = true});
    const double labelHeight = measure.height(label, lines, {.size = 12.0});
    const double gap = titleHeight > 0.0 && labelHeight > 0.0 ? 4.0 : 0.0;
    return std::max(64.0, titleHeight + gap + labelHeight + 32.0);
  }

 private:
  const PageEntryView& entry_;
};

}  // namespace orrelo::quick
