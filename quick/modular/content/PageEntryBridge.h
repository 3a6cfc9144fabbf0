#pragma once

#include "modular/content/PageEntryView.h"
#include "quick/image/ImageBridge.h"

#include <QColor>
#include <QUrl>

namespace orrelo::quick {

class PageEntryBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString title READ title CONSTANT)
  Q_PROPERTY(QString label READ label CONSTANT)
  Q_PROPERTY(orrelo::quick::ImageBridge* icon READ icon CONSTANT)
  Q_PROPERTY(QUrl tapAsset READ tapAsset CONSTANT)
  Q_PROPERTY(QColor backgroundColor READ backgroundColor CONSTANT)
  Q_PROPERTY(double cornerRadius READ cornerRadius CONSTANT)
  Q_PROPERTY(double inset READ inset CONSTANT)
  Q_PROPERTY(double margin READ margin CONSTANT)
  Q_PROPERTY(double gap READ gap CONSTANT)
  Q_PROPERTY(double lineSpacing READ lineSpacing CONSTANT)

 public:
  PageEntryBridge(const std::shared_ptr<PageEntryView>& view, QObject* parent)
      : ViewBridge(view, parent), entry_(*view), icon_(new ImageBridge(view->iconImageView, this)) {}

  QString title() const { return toQt(entry_.title); }
  QString label() const { return toQt(entry_.label); }
  ImageBridge* icon() const { return icon_; }
  QUrl tapAsset() const { return assetFile(PageEntryView::tapAsset); }
  QColor backgroundColor() const { return toQt(PageEntryView::backgroundColor); }
  double cornerRadius() const { return PageEntryView::cornerRadius; }
  double inset() const { return PageEntryView::inset; }
  double margin() const { return PageEntryView::margin; }
  double gap() const { return PageEntryView::gap; }
  double lineSpacing() const { return PageEntryView::lineSpacing; }

  Q_INVOKABLE void didAction() { entry_.didAction(); }

 private:
  PageEntryView& entry_;
  ImageBridge* const icon_;
};

}  // namespace orrelo::quick
