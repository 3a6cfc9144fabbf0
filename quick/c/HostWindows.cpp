#include "quick/c/HostWindows.h"

#include "c/CallStatus.h"

#include <QDir>
#include <QQmlComponent>
#include <QThread>
#include <algorithm>
#include <utility>

namespace orrelo::quick {
namespace {

std::unique_ptr<HostWindows>& slot() {
  // Never destroyed: Qt cannot end after `main`.
  static auto* const slot = new std::unique_ptr<HostWindows>;
  return *slot;
}

}  // namespace

HostWindows* HostWindows::current() {
  return slot().get();
}

void HostWindows::start(int count, const char* const* words) {
  QByteArrayList arguments;
  for (int i = 0; i < count && words != nullptr; ++i) arguments.append(words[i]);
  if (arguments.isEmpty()) arguments.append("host");
  slot().reset(new HostWindows(std::move(arguments)));
}

void HostWindows::finish() {
  slot().reset();
}

HostWindows::HostWindows(QByteArrayList arguments) : arguments_(std::move(arguments)) {
  for (auto& word : arguments_) words_.push_back(word.data());
  count_ = static_cast<int>(words_.size());
  words_.push_back(nullptr);
  application_.emplace(count_, words_.data());
  engine_.emplace();
  QObject::connect(&*engine_, &QQmlEngine::quit, &*application_, &QCoreApplication::quit,
                   Qt::QueuedConnection);
}

HostWindows::~HostWindows() {
  windows_.merge(closing_);
  while (!windows_.empty()) delete *windows_.begin();
}

QQuickWindow* HostWindows::open(const QString& path) {
  QQmlComponent component(&*engine_, QUrl::fromUserInput(path, QDir::currentPath(), QUrl::AssumeLocalFile));
  std::unique_ptr<QObject> root(component.isReady() ? component.create() : nullptr);
  if (!root) throw c::CallFailure{ORRELO_FAILED, component.errorString().toStdString()};
  auto* const window = qobject_cast<QQuickWindow*>(root.get());
  if (window == nullptr) {
    throw c::CallFailure{ORRELO_INVALID_ARGUMENT, path.toStdString() + ": the root is not a Window"};
  }
  windows_.insert(window);
  // The file itself can destroy its window.
  QObject::connect(window, &QObject::destroyed, [this, window] {
    windows_.erase(window);
    closing_.erase(window);
  });
  root.release();
  return window;
}

bool HostWindows::close(const QObject* window) {
  const auto found = std::find(windows_.begin(), windows_.end(), window);
  if (found == windows_.end()) return false;
  auto* const open = *found;
  if (QThread::currentThread()->loopLevel() == 0) {
    delete open;
    return true;
  }
  closing_.insert(windows_.extract(found));
  open->close();
  open->hide();  // its file can refuse to be closed
  open->deleteLater();
  return true;
}

}  // namespace orrelo::quick
