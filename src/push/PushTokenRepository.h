#pragma once

#include "push/PushNetworkConfig.h"
#include "push/PushToken.h"
#include "reactive/ObservableType.h"

#include <string>
#include <utility>

namespace orrelo {

/// Tells the service under which token a user can be reached.
class PushTokenRepository {
 public:
  virtual ~PushTokenRepository() = default;

  /// A cold stream: emits one signal after the service has accepted the token, or fails with an error of the
  /// network or the service. Both texts must be valid UTF-8. Any thread.
  virtual reactive::Observable<reactive::Unit> saveToken(const PushToken& token,
                                                         const std::string& userId) = 0;
};

/// POST "/token".
class PushTokenRepositoryImpl final : public PushTokenRepository {
 public:
  explicit PushTokenRepositoryImpl(PushNetworkConfig networkConfig)
      : networkConfig_(std::move(networkConfig)) {}

  reactive::Observable<reactive::Unit> saveToken(const PushToken& token, const std::string& userId) override;

 private:
  PushNetworkConfig networkConfig_;
};

}  // namespace orrelo
