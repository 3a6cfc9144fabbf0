#pragma once

namespace orrelo {

/// The result of a background fetch, as reported to the platform.
enum class BackgroundFetchResult { newData, noData, failed };

}  // namespace orrelo
