#pragma once

#include "quick/viewkit/PageBridge.h"
#include "referral/ReferralViewController.h"

#include <QColor>

namespace orrelo::quick {

class ReferralScreenBridge final : public orrelo::quick::PageBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString message MEMBER message CONSTANT)
  Q_PROPERTY(QString placeholder MEMBER placeholder CONSTANT)
  Q_PROPERTY(QString codeIdentifier MEMBER codeIdentifier CONSTANT)
  Q_PROPERTY(QString verificationIdentifier MEMBER verificationIdentifier CONSTANT)
  Q_PROPERTY(QString code READ code NOTIFY stateChanged)
  Q_PROPERTY(bool isLoading READ isLoading NOTIFY stateChanged)
  Q_PROPERTY(bool isCodeEditable READ isCodeEditable NOTIFY stateChanged)
  Q_PROPERTY(QColor codeColor READ codeColor NOTIFY stateChanged)
  Q_PROPERTY(QString verificationTitle READ verificationTitle NOTIFY stateChanged)
  Q_PROPERTY(bool canVerify READ canVerify NOTIFY stateChanged)
  Q_PROPERTY(QColor verificationFill READ verificationFill NOTIFY stateChanged)
  Q_PROPERTY(QColor verificationTextColor READ verificationTextColor NOTIFY stateChanged)
  Q_PROPERTY(QString authorizationTitle READ authorizationTitle NOTIFY stateChanged)
  Q_PROPERTY(bool canAuthorize READ canAuthorize NOTIFY stateChanged)
  Q_PROPERTY(QColor authorizationFill READ authorizationFill NOTIFY stateChanged)
  Q_PROPERTY(QColor authorizationTextColor READ authorizationTextColor NOTIFY stateChanged)

 public:
  ReferralScreenBridge(const std::shared_ptr<ReferralViewController>& screen, QObject* parent)
      : PageBridge(screen, parent),
        verificationIdentifier(toQt(screen->verificationButton->accessibilityIdentifier)),
        referral_(*screen) {
    follow(referral_.stateChanges());
    follow(referral_.verificationButton->state.changes());
    follow(referral_.authorizationButton->state.changes());
  }

  const QString message = toQt(ReferralViewController::messageLabel);
  const QString placeholder = toQt(ReferralViewController::codePlaceholder);
  const QString codeIdentifier = toQt(ReferralViewController::codeTextFieldIdentifier);
  const QString verificationIdentifier;

  QString code() const { return toQt(referral_.code()); }
  bool isLoading() const { return referral_.state().isLoading; }
  bool isCodeEditable() const { return referral_.state().isCodeEditable; }
  QColor codeColor() const { return toQt(referral_.state().codeColor); }
  QString verificationTitle() const { return toQt(verification().title); }
  bool canVerify() const { return verification().isEnabled; }
  QColor verificationFill() const { return toQt(buttonFill(brand(), canVerify())); }
  QColor verificationTextColor() const { return toQt(buttonTextColor(brand(), canVerify())); }
  QString authorizationTitle() const { return toQt(authorization().title); }
  bool canAuthorize() const { return authorization().isEnabled; }
  QColor authorizationFill() const { return toQt(buttonFill(brand(), canAuthorize())); }
  QColor authorizationTextColor() const { return toQt(buttonTextColor(brand(), canAuthorize())); }

  Q_INVOKABLE void setCode(const QString& code) { referral_.setCode(code.toStdString()); }
  Q_INVOKABLE void verify() { referral_.verificationButton->onTouchUpInside(); }
  Q_INVOKABLE void authorize() { referral_.authorizationButton->onTouchUpInside(); }

 private:
  const RxButton::State& verification() const { return referral_.verificationButton->state.value(); }
  const RxButton::State& authorization() const { return referral_.authorizationButton->state.value(); }
  const Color& brand() const { return referral_.brandTheme.primary; }

  ReferralViewController& referral_;
};

}  // namespace orrelo::quick
