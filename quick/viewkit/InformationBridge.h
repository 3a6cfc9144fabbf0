#pragma once

#include "quick/bridge/ViewBridge.h"
#include "viewkit/InformationView.h"

namespace orrelo::quick {

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

}  // namespace orrelo::quick
