#pragma once

#include "config/Config.h"
#include "config/FetchConfigUseCase.h"
#include "reactive/Combining.h"

#include <tuple>

namespace orrelo {

/// The first element of `stream`, and the host's colours.
template <class T>
reactive::Observable<std::tuple<T, BrandTheme>> withBrandTheme(const reactive::Observable<T>& stream,
                                                               FetchConfigUseCase& fetchConfigUseCase) {
  return reactive::zip(
      stream, fetchConfigUseCase.fetch().map([](const Config& config) { return config.brandTheme; }));
}

}  // namespace orrelo
