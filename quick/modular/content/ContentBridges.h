#pragma once

#include "modular/ModularCampaignView.h"
#include "modular/content/ActionButtonView.h"
#include "modular/content/BoxedInformationListView.h"
#include "modular/content/NoticeView.h"
#include "modular/content/PageEntryView.h"
#include "modular/content/SpacerView.h"
#include "modular/content/TooltipInformationView.h"
#include "modular/content/WebView.h"
#include "quick/bridge/StackBridge.h"
#include "quick/image/ImageBridge.h"
#include "quick/modular/content/WebPageDelegate.h"
#include "quick/viewkit/TooltipBridge.h"

#include <QColor>

namespace orrelo::quick {

// The blocks of pages that the service puts together. A block never changes.

class ModularCampaignBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(orrelo::quick::StackBridge* stack READ stack CONSTANT)
  Q_PROPERTY(QColor backgroundColor READ backgroundColor CONSTANT)

 public:
  ModularCampaignBridge(const std::shared_ptr<ModularCampaignView>& view, QObject* parent)
      : ViewBridge(view, parent), stack_(new StackBridge(view->stackView, this)) {}

  StackBridge* stack() const { return stack_; }
  QColor backgroundColor() const { return toQt(ModularCampaignView::backgroundColor); }

 private:
  StackBridge* const stack_;
};

class InformationBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString firstTitle READ firstTitle CONSTANT)
  Q_PROPERTY(QString secondTitle READ secondTitle CONSTANT)
  Q_PROPERTY(QString guideMessage READ guideMessage CONSTANT)
  Q_PROPERTY(double margin READ margin CONSTANT)
  Q_PROPERTY(double spacing READ spacing CONSTANT)

 public:
  InformationBridge(const std::shared_ptr<InformationView>& view, QObject* parent)
      : ViewBridge(view, parent), information_(*view) {}

  QString firstTitle() const { return toQt(information_.firstTitle); }
  QString secondTitle() const { return toQt(information_.secondTitle); }
  QString guideMessage() const { return toQt(information_.guideMessage); }
  double margin() const { return InformationView::margins.left; }
  double spacing() const { return InformationView::spacingAfterSecondTitle; }

 private:
  const InformationView& information_;
};

class TooltipInformationBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString firstTitle READ firstTitle CONSTANT)
  Q_PROPERTY(QString secondTitle READ secondTitle CONSTANT)
  Q_PROPERTY(QString tooltipTitle READ tooltipTitle CONSTANT)
  /// Whether a tap on the line shows something.
  Q_PROPERTY(bool hasMessage READ hasMessage CONSTANT)
  Q_PROPERTY(QUrl tooltipAsset READ tooltipAsset CONSTANT)
  Q_PROPERTY(double tooltipMaximumWidth READ tooltipMaximumWidth CONSTANT)
  Q_PROPERTY(double zPosition READ zPosition CONSTANT)
  Q_PROPERTY(double margin READ margin CONSTANT)
  Q_PROPERTY(double spacing READ spacing CONSTANT)
  Q_PROPERTY(orrelo::quick::TooltipBridge* tooltip READ tooltip CONSTANT)

 public:
  TooltipInformationBridge(const std::shared_ptr<TooltipInformationView>& view, QObject* parent)
      : ViewBridge(view, parent), information_(*view), tooltip_(new TooltipBridge(view->tooltipView, this)) {}

  QString firstTitle() const { return toQt(information_.firstTitle); }
  QString secondTitle() const { return toQt(information_.secondTitle); }
  QString tooltipTitle() const { return toQt(information_.tooltipTitle); }
  bool hasMessage() const { return !information_.guideMessage.empty(); }
  QUrl tooltipAsset() const { return assetFile(TooltipInformationView::tooltipAsset); }
  double tooltipMaximumWidth() const { return TooltipInformationView::tooltipMaximumWidth; }
  double zPosition() const { return TooltipInformationView::zPosition; }
  double margin() const { return InformationView::margins.left; }
  double spacing() const { return InformationView::spacingAfterSecondTitle; }
  TooltipBridge* tooltip() const { return tooltip_; }

  Q_INVOKABLE void tooltipTitleTapped() { information_.tooltipTitleTapped(); }

 private:
  TooltipInformationView& information_;
  TooltipBridge* const tooltip_;
};

class NoticeBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString text READ text CONSTANT)

 public:
  NoticeBridge(const std::shared_ptr<NoticeView>& view, QObject* parent)
      : ViewBridge(view, parent), notice_(*view) {}

  QString text() const { return toQt(notice_.text); }

 private:
  const NoticeView& notice_;
};

class SpacerBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(double height READ height CONSTANT)

 public:
  SpacerBridge(const std::shared_ptr<SpacerView>& view, QObject* parent)
      : ViewBridge(view, parent), spacer_(*view) {}

  double height() const { return spacer_.height; }

 private:
  const SpacerView& spacer_;
};

class ActionButtonBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString text READ text CONSTANT)
  Q_PROPERTY(QString statusMessage READ statusMessage CONSTANT)
  Q_PROPERTY(bool isEnabled READ isEnabled CONSTANT)
  /// Of the button.
  Q_PROPERTY(QColor fill READ fill CONSTANT)
  Q_PROPERTY(QColor titleColor READ titleColor CONSTANT)
  Q_PROPERTY(QColor statusColor READ statusColor CONSTANT)
  Q_PROPERTY(double margin READ margin CONSTANT)
  Q_PROPERTY(double spacing READ spacing CONSTANT)
  Q_PROPERTY(double buttonHeight READ buttonHeight CONSTANT)

 public:
  ActionButtonBridge(const std::shared_ptr<ActionButtonView>& view, QObject* parent)
      : ViewBridge(view, parent), action_(*view) {}

  QString text() const { return toQt(action_.content.text); }
  QString statusMessage() const { return toQt(action_.content.statusMessage); }
  bool isEnabled() const { return action_.content.isEnabled; }
  QColor fill() const { return toQt(isEnabled() ? action_.content.color : ActionButtonView::disabledColor); }
  QColor titleColor() const {
    return isEnabled() ? textColorOn(fill()) : toQt(ActionButtonView::disabledTitleColor);
  }
  QColor statusColor() const { return toQt(ActionButtonView::statusColor); }
  double margin() const { return ActionButtonView::margins.left; }
  double spacing() const { return ActionButtonView::spacing; }
  double buttonHeight() const { return ActionButtonView::buttonHeight; }

  Q_INVOKABLE void onClick() { action_.onClick(); }

 private:
  ActionButtonView& action_;
};

class InformationBoxBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString leftText READ leftText CONSTANT)
  Q_PROPERTY(QString rightText READ rightText CONSTANT)
  Q_PROPERTY(QColor rightTextColor READ rightTextColor CONSTANT)
  Q_PROPERTY(orrelo::quick::ImageBridge* image READ image CONSTANT)
  /// 0 until the picture is there.
  Q_PROPERTY(double imageWidth READ imageWidth NOTIFY stateChanged)
  Q_PROPERTY(double imageHeight READ imageHeight CONSTANT)
  Q_PROPERTY(double boxHeight READ boxHeight CONSTANT)
  Q_PROPERTY(double margin READ margin CONSTANT)
  Q_PROPERTY(double leftSpacing READ leftSpacing CONSTANT)
  Q_PROPERTY(double cornerRadius READ cornerRadius CONSTANT)
  Q_PROPERTY(QColor backgroundColor READ backgroundColor CONSTANT)

 public:
  InformationBoxBridge(const std::shared_ptr<InformationBox>& view, QObject* parent)
      : ViewBridge(view, parent), box_(*view), image_(new ImageBridge(view->leftImageView, this)) {
    follow(box_.imageWidth);
  }

  QString leftText() const { return toQt(box_.leftText); }
  QString rightText() const { return toQt(box_.rightText); }
  QColor rightTextColor() const { return toQt(box_.rightTextColor); }
  ImageBridge* image() const { return image_; }
  double imageWidth() const { return box_.imageWidth.value().value_or(0.0); }
  double imageHeight() const { return InformationBox::imageHeight; }
  double boxHeight() const { return InformationBox::height; }
  double margin() const { return InformationBox::margins.left; }
  double leftSpacing() const { return InformationBox::leftSpacing; }
  double cornerRadius() const { return InformationBox::cornerRadius; }
  QColor backgroundColor() const { return toQt(InformationBox::backgroundColor); }

 private:
  const InformationBox& box_;
  ImageBridge* const image_;
};

class BoxedInformationListBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString title READ title CONSTANT)
  Q_PROPERTY(QVariantList boxes READ boxes CONSTANT)
  Q_PROPERTY(double margin READ margin CONSTANT)
  Q_PROPERTY(double spacing READ spacing CONSTANT)

 public:
  BoxedInformationListBridge(const std::shared_ptr<BoxedInformationListView>& view, QObject* parent)
      : ViewBridge(view, parent), list_(*view) {
    for (const auto& box : list_.boxes) {
      boxes_.push_back(QVariant::fromValue(new InformationBoxBridge(box, this)));
    }
  }

  QString title() const { return toQt(list_.title); }
  QVariantList boxes() const { return boxes_; }
  double margin() const { return BoxedInformationListView::margins.left; }
  double spacing() const { return BoxedInformationListView::spacing; }

 private:
  const BoxedInformationListView& list_;
  QVariantList boxes_;
};

class WebBridge final : public ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QUrl url READ url CONSTANT)
  /// 0 where the stack gives it.
  Q_PROPERTY(double ownWidth READ ownWidth CONSTANT)
  Q_PROPERTY(double height READ height CONSTANT)
  /// The file that draws a page, to be filled with this as `model`; empty without a browser engine.
  Q_PROPERTY(QUrl browser READ browser CONSTANT)
  Q_PROPERTY(bool isLoading READ isLoading NOTIFY stateChanged)
  Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY stateChanged)

 public:
  WebBridge(const std::shared_ptr<WebView>& view, QObject* parent) : ViewBridge(view, parent), web_(*view) {
    follow(web_.state);
  }

  QUrl url() const { return QUrl(toQt(web_.url.text())); }
  double ownWidth() const { return web_.width.value_or(0.0); }
  double height() const { return web_.height; }
  QUrl browser() const { return webPageDelegate(); }
  bool isLoading() const { return web_.state.value() == WebView::State::loading; }
  bool isEmpty() const { return web_.state.value() == WebView::State::empty; }

  Q_INVOKABLE void didStart() { web_.didStart(); }
  Q_INVOKABLE void didReceive() { web_.didReceive(); }
  Q_INVOKABLE void didFinish(bool succeeded) { web_.didFinish(succeeded); }
  Q_INVOKABLE void processDidEnd() { web_.processDidEnd(); }
  Q_INVOKABLE bool mayGoTo(const QUrl& url, bool isFrame) const {
    return WebView::mayGoTo(url.scheme().toStdString(), isFrame);
  }
  Q_INVOKABLE void openWindow(const QUrl& url, bool isAskedFor) {
    web_.openWindow(url.toEncoded().toStdString(), isAskedFor);
  }

 private:
  WebView& web_;
};

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
