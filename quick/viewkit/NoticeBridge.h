#pragma once

#include "quick/bridge/ViewBridge.h"
#include "viewkit/NoticeView.h"

namespace orrelo::quick {

class NoticeBridge final : public orrelo::quick::ViewBridge {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("")
  Q_PROPERTY(QString text MEMBER text CONSTANT)

 public:
  NoticeBridge(const std::shared_ptr<NoticeView>& view, QObject* parent)
      : ViewBridge(view, parent), text(toQt(view->text)) {}

  const QString text;
};

}  // namespace orrelo::quick
