#pragma once

#include "modular/content/PageEntryView.h"
#include "quick/image/ImageBridge.h"

#include <QUrl>

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

 private:
  const PageEntryView& entry_;
};

}  // namespace orrelo::quick
