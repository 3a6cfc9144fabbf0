#pragma once

#include "image/ImageView.h"
#include "quick/bridge/ViewBridge.h"

#include <QSizeF>
#include <QUrl>
#include <map>

class QQuickItem;

namespace orrelo::quick {

/// Exposes an ImageView, which several items may draw.
class ImageBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  /// The URL of one of the kit's own images; empty if another image or none is shown.
  Q_PROPERTY(QUrl asset READ asset NOTIFY stateChanged)
  /// The size of the loaded image in points; empty until it has been loaded. It is the same for all frames of
  /// an animation.
  Q_PROPERTY(QSizeF size READ size NOTIFY stateChanged)
  /// True to scale the image to fit the view, false to show it in its own size.
  Q_PROPERTY(bool fits READ fits CONSTANT)
  /// The height that an AutoLayoutImageView derives from its image; 0 for other views.
  Q_PROPERTY(double height READ height NOTIFY heightChanged)
  /// True while an animation is being loaded.
  Q_PROPERTY(bool showsSpinner READ showsSpinner NOTIFY playbackChanged)
  /// True while an animation waits for `play`.
  Q_PROPERTY(bool showsPlayButton READ showsPlayButton NOTIFY playbackChanged)

 public:
  ImageBridge(const std::shared_ptr<ImageView>& view, QObject* parent);
  ~ImageBridge() override;

  QUrl asset() const { return assetFile(image_.state.value().asset); }
  QSizeF size() const;
  bool fits() const {
    return autoLayout_ == nullptr ||
           autoLayout_->contentMode == AutoLayoutImageView::ContentMode::scaleAspectFit;
  }
  double height() const { return autoLayout_ != nullptr ? autoLayout_->height.value() : 0.0; }
  bool showsSpinner() const { return image_.showsSpinner.value(); }
  bool showsPlayButton() const { return image_.showsPlayButton.value(); }
  /// True with a loaded image, and while an animation is being loaded.
  bool hasContent() const { return image_.state.value().image != nullptr || showsSpinner(); }
  /// Starts an animation that waits because the user prefers reduced motion.
  Q_INVOKABLE void play() { image_.play(); }

  /// The image that is drawn now: the current frame of an animation, or else the image. Null if there is
  /// none.
  ImagePtr image() const;
  /// True from an animation's first frame on.
  bool isAnimated() const { return image_.frame.value() != nullptr; }

  /// Reports where an item that draws the view is. The view is on screen if one of its items is.
  void setPlacement(const QQuickItem& item, ImageView::Placement placement);
  /// The item does not draw the view any more.
  void removePlacement(const QQuickItem& item);

 Q_SIGNALS:
  void heightChanged();
  void playbackChanged();
  /// The animation shows another frame; the size stays.
  void frameChanged();

 private:
  void reportPlacement();

  ImageView& image_;
  const AutoLayoutImageView* const autoLayout_;
  std::map<const QQuickItem*, ImageView::Placement> placements_;
  Subscriptions details_;
};

}  // namespace orrelo::quick
