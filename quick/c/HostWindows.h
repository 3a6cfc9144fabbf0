#pragma once

#include <QByteArrayList>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickWindow>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace orrelo::quick {

/// The application and the windows of a host that has no Qt of its own. GUI thread.
class HostWindows final {
 public:
  /// The process's only one; null until `start` and after `finish`.
  static HostWindows* current();
  /// Creates the QGuiApplication. There must be no application yet.
  static void start(int count, const char* const* words);
  static void finish();

  ~HostWindows();

  /// The window of this QML file. Throws CallFailure with the file's errors.
  QQuickWindow* open(const QString& path);
  /// False if this is no open window of these; the pointer is only compared.
  bool close(const QObject* window);

 private:
  explicit HostWindows(QByteArrayList arguments);

  // Qt keeps references to the arguments.
  QByteArrayList arguments_;
  std::vector<char*> words_;
  int count_ = 0;
  std::optional<QGuiApplication> application_;
  std::optional<QQmlEngine> engine_;
  std::set<QQuickWindow*> windows_;
  // They are destroyed once their own callbacks have returned.
  std::set<QQuickWindow*> closing_;
};

}  // namespace orrelo::quick
