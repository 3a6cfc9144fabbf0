#include "image/explainPicture.h"

#include "base/explain.h"
#include "image/Downloader.h"
#include "network/RequestHistory.h"
#include "network/explainRequest.h"

#include <string>

namespace orrelo {

void explainPicture(const Url& url, const Error& error) {
  if (error == makeError(DownloaderError::canceled)) return;
  RequestHistory::addPicture(url, error);
  explain(ExplanationLevel::warning, [&] {
    std::string remedy = ".";
    if (error == makeError(DownloaderError::dataConversion)) {
      remedy =
          Platform::current().imageCodec
              ? ": what the URL has is no PNG, JPEG, WebP or GIF file, or a page about an error."
              : ": this platform has no ImageCodec. Install quick::platform(), or set Platform::imageCodec.";
    }
    return "The picture " + explainedUrl(url) + " is not shown: " + error.description() + remedy;
  });
}

}  // namespace orrelo
