#include "image/Downloader.h"

namespace orrelo {

Error makeError(DownloaderError error) {
  return Error("DownloaderError", error == DownloaderError::canceled ? "canceled" : "dataConversion");
}

}  // namespace orrelo
