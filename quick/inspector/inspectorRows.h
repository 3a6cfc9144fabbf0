#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace orrelo {

struct ORLDiagnostics;

namespace quick {

/// The enumerations of the inspector for QML.
namespace inspector {
Q_NAMESPACE
QML_NAMED_ELEMENT(Inspector)

/// One page of the screen.
enum class Section { Overview, Events, Requests, Pages };
Q_ENUM_NS(Section)

enum class Tone { Plain, Good, Warning, Bad };
Q_ENUM_NS(Tone)

}  // namespace inspector

/// A line of the inspector.
struct InspectorRow {
  /// A heading has a title alone.
  bool isHeading = false;
  QString title;
  QString value;
  /// Smaller, below the others.
  QString detail;
  inspector::Tone tone = inspector::Tone::Plain;

  /// All texts in one line.
  QString summary() const;

  friend bool operator==(const InspectorRow&, const InspectorRow&) = default;
};

/// What a section shows of a snapshot; requests and pages begin with the last one.
QList<InspectorRow> inspectorRows(const ORLDiagnostics& snapshot, inspector::Section section);

}  // namespace quick
}  // namespace orrelo
