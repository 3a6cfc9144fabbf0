#pragma once

#include "quick/inspector/inspectorRows.h"

#include <QAbstractListModel>
#include <QTimer>

namespace orrelo::quick {

/// The rows of one section, taken from a new snapshot once a second.
class InspectorModel : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(orrelo::quick::inspector::Section section READ section WRITE setSection NOTIFY sectionChanged)

 public:
  explicit InspectorModel(QObject* parent = nullptr);

  inspector::Section section() const { return section_; }
  void setSection(inspector::Section section);

  /// Copies a snapshot as JSON to the clipboard.
  Q_INVOKABLE void copyJson() const;

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

 Q_SIGNALS:
  void sectionChanged();

 private:
  enum Role { IsHeading = Qt::UserRole, Title, Value, Detail, Tone };

  void update();

  inspector::Section section_ = inspector::Section::Overview;
  QList<InspectorRow> rows_;
  QTimer timer_;
};

}  // namespace orrelo::quick
