#include "quick/inspector/InspectorBridge.h"

#include <orrelo/Orrelo.h>

#include <QClipboard>
#include <QGuiApplication>
#include <chrono>

namespace orrelo::quick {
namespace {

constexpr std::chrono::seconds updateInterval{1};

}  // namespace

InspectorBridge::InspectorBridge(QObject* parent) : QObject(parent) {
  rows_.reset(current());
  connect(&timer_, &QTimer::timeout, this, [this] { rows_.update(current()); });
  timer_.start(updateInterval);
}

void InspectorBridge::setSection(inspector::Section section) {
  if (section_ == section) return;
  section_ = section;
  rows_.reset(current());
  Q_EMIT sectionChanged();
}

void InspectorBridge::copyJson() const {
  QGuiApplication::clipboard()->setText(QString::fromStdString(Orrelo::diagnostics().json()));
}

QList<InspectorRow> InspectorBridge::current() const {
  return inspectorRows(Orrelo::diagnostics(), section_);
}

}  // namespace orrelo::quick
