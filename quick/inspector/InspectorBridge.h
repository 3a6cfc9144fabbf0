#pragma once

#include "quick/inspector/InspectorModel.h"

#include <QTimer>

namespace orrelo::quick {

/// The state of the inspector's screen, taken from a new snapshot once a second.
class InspectorBridge : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(orrelo::quick::inspector::Section section READ section WRITE setSection NOTIFY sectionChanged)
  /// The rows of the section.
  Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)

 public:
  explicit InspectorBridge(QObject* parent = nullptr);

  inspector::Section section() const { return section_; }
  void setSection(inspector::Section section);
  QAbstractListModel* rows() { return &rows_; }

  /// Copies a snapshot as JSON to the clipboard.
  Q_INVOKABLE void copyJson() const;

 Q_SIGNALS:
  void sectionChanged();

 private:
  QList<InspectorRow> current() const;

  inspector::Section section_ = inspector::Section::Overview;
  InspectorModel rows_;
  QTimer timer_;
};

}  // namespace orrelo::quick
