#pragma once

#include "campaign/optinmarketing/OptInMarketingCampaignView.h"
#include "campaign/stamp/StampCampaignView.h"
#include "campaign/update/InduceUpdateView.h"
#include "quick/bridge/StackBridge.h"
#include "quick/image/ImageBridge.h"
#include "quick/viewkit/CampaignNoticeBridge.h"
#include "quick/viewkit/ErrorBridge.h"

#include <QColor>

namespace orrelo::quick {

class StampCampaignBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(orrelo::quick::StackBridge* stack READ stack CONSTANT)

 public:
  StampCampaignBridge(const std::shared_ptr<StampCampaignView>& view, QObject* parent)
      : ViewBridge(view, parent), stack_(new StackBridge(view->stackView, this)) {}

  StackBridge* stack() const { return stack_; }

 private:
  StackBridge* const stack_;
};

/// A mission of a stamp board.
class StampCellBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString name READ name CONSTANT)
  Q_PROPERTY(orrelo::quick::ImageBridge* image READ image CONSTANT)

 public:
  StampCellBridge(const std::shared_ptr<StampViewCell>& view, QObject* parent)
      : ViewBridge(view, parent), cell_(*view), image_(new ImageBridge(view->imageView, this)) {}

  QString name() const { return toQt(cell_.name); }
  ImageBridge* image() const { return image_; }

 private:
  const StampViewCell& cell_;
  ImageBridge* const image_;
};

class StampBoardBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(int columnCount READ columnCount CONSTANT)
  Q_PROPERTY(QVariantList cells READ cells CONSTANT)

 public:
  StampBoardBridge(const std::shared_ptr<StampBoardView>& view, QObject* parent)
      : ViewBridge(view, parent), board_(*view) {
    for (const auto& cell : board_.cells) {
      cells_.push_back(QVariant::fromValue(new StampCellBridge(cell, this)));
    }
  }

  int columnCount() const { return static_cast<int>(board_.columnCount); }
  QVariantList cells() const { return cells_; }

 private:
  const StampBoardView& board_;
  QVariantList cells_;
};

class OptInMarketingCampaignBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString buttonTitle READ buttonTitle CONSTANT)
  Q_PROPERTY(bool isButtonEnabled READ isButtonEnabled CONSTANT)
  Q_PROPERTY(bool isButtonHidden READ isButtonHidden CONSTANT)
  Q_PROPERTY(QColor fill READ fill CONSTANT)
  Q_PROPERTY(QColor textColor READ textColor CONSTANT)
  Q_PROPERTY(orrelo::quick::ImageBridge* image READ image CONSTANT)
  Q_PROPERTY(orrelo::quick::CampaignNoticeBridge* notice READ notice CONSTANT)
  Q_PROPERTY(orrelo::quick::ErrorBridge* error READ error CONSTANT)

 public:
  OptInMarketingCampaignBridge(const std::shared_ptr<OptInMarketingCampaignView>& view, QObject* parent)
      : ViewBridge(view, parent),
        optIn_(*view),
        image_(new ImageBridge(view->imageView, this)),
        notice_(new CampaignNoticeBridge(view->noticeView, this)),
        error_(new ErrorBridge(view->errorView, this)) {}

  QString buttonTitle() const { return toQt(optIn_.moveButton.title); }
  bool isButtonEnabled() const { return optIn_.moveButton.isEnabled; }
  bool isButtonHidden() const { return optIn_.moveButton.isHidden; }
  QColor fill() const { return buttonFill(optIn_.moveButton.color, isButtonEnabled()); }
  QColor textColor() const { return buttonTextColor(optIn_.moveButton.color, isButtonEnabled()); }
  ImageBridge* image() const { return image_; }
  CampaignNoticeBridge* notice() const { return notice_; }
  ErrorBridge* error() const { return error_; }

  Q_INVOKABLE void onTapMoveButton() { optIn_.onTapMoveButton(); }

 private:
  OptInMarketingCampaignView& optIn_;
  ImageBridge* const image_;
  CampaignNoticeBridge* const notice_;
  ErrorBridge* const error_;
};

class InduceUpdateBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(orrelo::quick::ErrorBridge* error READ error CONSTANT)
  Q_PROPERTY(QString buttonTitle READ buttonTitle CONSTANT)
  Q_PROPERTY(QColor color READ color CONSTANT)
  Q_PROPERTY(double spacing READ spacing CONSTANT)
  Q_PROPERTY(double buttonWidth READ buttonWidth CONSTANT)
  Q_PROPERTY(double buttonHeight READ buttonHeight CONSTANT)
  Q_PROPERTY(double borderWidth READ borderWidth CONSTANT)
  Q_PROPERTY(double cornerRadius READ cornerRadius CONSTANT)

 public:
  InduceUpdateBridge(const std::shared_ptr<InduceUpdateView>& view, QObject* parent)
      : ViewBridge(view, parent), update_(*view), error_(new ErrorBridge(view->errorView, this)) {}

  ErrorBridge* error() const { return error_; }
  QString buttonTitle() const { return toQt(InduceUpdateView::buttonTitle); }
  QColor color() const { return legibleOnWhite(toQt(update_.color)); }
  double spacing() const { return InduceUpdateView::spacing; }
  double buttonWidth() const { return InduceUpdateView::buttonWidth; }
  double buttonHeight() const { return InduceUpdateView::buttonHeight; }
  double borderWidth() const { return InduceUpdateView::buttonBorderWidth; }
  double cornerRadius() const { return InduceUpdateView::buttonCornerRadius; }

  Q_INVOKABLE void routeToUpdateLink() { update_.routeToUpdateLink(); }

 private:
  InduceUpdateView& update_;
  ErrorBridge* const error_;
};

}  // namespace orrelo::quick
