#pragma once

#include "quick/bridge/ViewBridge.h"
#include "viewkit/NoticeView.h"

namespace orrelo::quick {

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

}  // namespace orrelo::quick
