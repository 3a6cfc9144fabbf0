#pragma once

#include "campaign/referral/ReferralCampaignView.h"
#include "quick/viewkit/CampaignInfoBridge.h"
#include "quick/viewkit/CampaignNoticeBridge.h"
#include "quick/viewkit/ToastLayerBridge.h"
#include "viewkit/legibility.h"

#include <QColor>
#include <QRectF>

namespace orrelo::quick {

class ReferralCampaignBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(orrelo::quick::CampaignInfoBridge* info MEMBER info CONSTANT)
  Q_PROPERTY(QString code MEMBER code CONSTANT)
  Q_PROPERTY(QString codeDescription MEMBER codeDescription CONSTANT)
  Q_PROPERTY(QColor codeColor MEMBER codeColor CONSTANT)
  Q_PROPERTY(QColor highlightColor MEMBER highlightColor CONSTANT)
  Q_PROPERTY(QString copyTitle MEMBER copyTitle CONSTANT)
  Q_PROPERTY(QString copyIdentifier MEMBER copyIdentifier CONSTANT)
  Q_PROPERTY(QColor copyFill MEMBER copyFill CONSTANT)
  Q_PROPERTY(QColor copyTextColor MEMBER copyTextColor CONSTANT)
  Q_PROPERTY(QString shareTitle MEMBER shareTitle CONSTANT)
  Q_PROPERTY(QString shareIdentifier MEMBER shareIdentifier CONSTANT)
  Q_PROPERTY(QUrl shareAsset MEMBER shareAsset CONSTANT)
  Q_PROPERTY(QString navigateHeading MEMBER navigateHeading CONSTANT)
  Q_PROPERTY(QString navigateLabel MEMBER navigateLabel CONSTANT)
  Q_PROPERTY(QString navigateLink MEMBER navigateLink CONSTANT)
  Q_PROPERTY(QString navigateIdentifier MEMBER navigateIdentifier CONSTANT)
  Q_PROPERTY(QColor linkColor MEMBER linkColor CONSTANT)
  Q_PROPERTY(QString joinedHeading MEMBER joinedHeading CONSTANT)
  Q_PROPERTY(QString joinedLabel MEMBER joinedLabel CONSTANT)
  Q_PROPERTY(QString joinedCount MEMBER joinedCount CONSTANT)
  Q_PROPERTY(orrelo::quick::CampaignNoticeBridge* notice MEMBER notice CONSTANT)
  Q_PROPERTY(orrelo::quick::ToastLayerBridge* toasts MEMBER toasts CONSTANT)
  /// True until the navigate box has been in sight.
  Q_PROPERTY(bool awaitsNavigateView READ awaitsNavigateView NOTIFY stateChanged)

 public:
  ReferralCampaignBridge(const std::shared_ptr<ReferralCampaignView>& view, QObject* parent)
      : ReferralCampaignBridge(view, view->referralCampaign.value_or(ReferralCampaign()), parent) {}

  CampaignInfoBridge* const info;
  const QString code;
  const QString codeDescription;
  const QColor codeColor;
  const QColor highlightColor;
  const QString copyTitle;
  const QString copyIdentifier = toQt(ReferralCampaignView::copyCodeButtonIdentifier);
  const QColor copyFill;
  const QColor copyTextColor;
  const QString shareTitle = toQt(ReferralCampaignView::shareTitle);
  const QString shareIdentifier = toQt(ReferralCampaignView::shareMessageButtonIdentifier);
  const QUrl shareAsset = assetFile(ReferralCampaignView::shareAsset);
  const QString navigateHeading = toQt(ReferralCampaignView::navigateHeading);
  const QString navigateLabel = toQt(ReferralCampaignView::navigateLabel);
  const QString navigateLink = toQt(ReferralCampaignView::navigateLink);
  const QString navigateIdentifier = toQt(ReferralCampaignView::navigateViewIdentifier);
  const QColor linkColor;
  const QString joinedHeading = toQt(ReferralCampaignView::joinedHeading);
  const QString joinedLabel = toQt(ReferralCampaignView::joinedLabel);
  const QString joinedCount;
  CampaignNoticeBridge* const notice;
  ToastLayerBridge* const toasts;

  bool awaitsNavigateView() const { return referral_.awaitsNavigateView.value(); }

  Q_INVOKABLE void copyCode() { referral_.copyCode(); }
  Q_INVOKABLE void shareReferralMessage() { referral_.shareReferralMessage(); }
  Q_INVOKABLE void showReferralViewController() { referral_.showReferralViewController(); }
  /// Both in coordinates of the page.
  Q_INVOKABLE void didLayOut(const QRectF& navigateView, const QRectF& visibleBounds) {
    const auto toCore = [](const QRectF& rect) {
      return Rect{rect.x(), rect.y(), rect.width(), rect.height()};
    };
    referral_.didLayOut(toCore(navigateView), toCore(visibleBounds));
  }

 private:
  ReferralCampaignBridge(const std::shared_ptr<ReferralCampaignView>& view, const ReferralCampaign& campaign,
                         QObject* parent)
      : ViewBridge(view, parent),
        info(new CampaignInfoBridge(view->infoView, this)),
        code(toQt(campaign.code)),
        codeDescription(toQt(campaign.codeDescription)),
        codeColor(toQt(legibleOnWhite(campaign.primaryColor))),
        highlightColor(toQt(campaign.secondaryColor)),
        copyTitle(toQt(view->copyTitle)),
        copyFill(toQt(buttonFill(campaign.primaryColor, true))),
        copyTextColor(toQt(buttonTextColor(campaign.primaryColor, true))),
        linkColor(toQt(legibleOnWhite(view->brandColor))),
        joinedCount(toQt(view->joinedCount)),
        notice(new CampaignNoticeBridge(view->noticeView, this)),
        toasts(new ToastLayerBridge(view->toastLayer, this)),
        referral_(*view) {
    follow(referral_.awaitsNavigateView);
  }

  ReferralCampaignView& referral_;
};

}  // namespace orrelo::quick
