#pragma once

#include "c/CallStatus.h"

#include <QGuiApplication>
#include <QObject>
#include <QThread>
#include <string>
#include <string_view>

namespace orrelo::c {

/// Throws a CallFailure without a QGuiApplication, and on any thread but its own.
inline void requireMainThread() {
  const auto* const application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
  if (application == nullptr) throw CallFailure{ORRELO_FAILED, "there is no QGuiApplication"};
  if (QThread::currentThread() != application->thread()) {
    throw CallFailure{ORRELO_WRONG_THREAD, "the call belongs to the thread of the QGuiApplication"};
  }
}

/// The object that a host passes, or a CallFailure if it is null or of another class.
template <class T>
T* objectOf(void* pointer, std::string_view name) {
  auto* const object = qobject_cast<T*>(static_cast<QObject*>(required(pointer, name)));
  if (object == nullptr) {
    throw CallFailure{ORRELO_INVALID_ARGUMENT,
                      std::string(name) + " is not a " + T::staticMetaObject.className()};
  }
  return object;
}

}  // namespace orrelo::c
