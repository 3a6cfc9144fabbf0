#include "image/ImageLoader.h"

#include "base/Ascii.h"
#include "base/Logger.h"
#include "base/Utf8.h"
#include "base/explain.h"
#include "image/gif/GifLoad.h"
#include "image/gif/GifPlaybackManager.h"
#include "network/explainRequest.h"

#include <algorithm>
#include <array>
#include <utility>

namespace orrelo {
namespace {

constexpr auto queryAllowed = [] {
  std::array<bool, 256> isAllowed{};
  for (const char c : std::string_view("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
                                       "!$&'()*+,-./:;=?@_~")) {
    isAllowed[static_cast<unsigned char>(c)] = true;
  }
  return isAllowed;
}();

bool isQueryAllowed(char c) {
  return queryAllowed[static_cast<unsigned char>(c)];
}

// Percent-encodes the text; returns malformed UTF-8 unchanged.
std::string urlEncoded(std::string_view text) {
  if (std::all_of(text.begin(), text.end(), isQueryAllowed) || !utf8::isValid(text)) return std::string(text);
  return ascii::percentEncoded(text, isQueryAllowed);
}

// The path's extension in lower case; "a/.b" has none.
std::string pathExtension(const Url& url) {
  auto name = url.path();
  while (name.ends_with('/')) name.remove_suffix(1);
  name.remove_prefix(name.rfind('/') + 1);
  const auto dot = name.rfind('.');
  if (dot == std::string_view::npos || dot == 0) return {};
  return ascii::lowercased(name.substr(dot + 1));
}

}  // namespace

bool ImageLoader::load(std::string_view urlString, const std::shared_ptr<ImageTarget>& imageView,
                       ImagePipeline::Completion completion) {
  const auto url = Url::parse(urlEncoded(urlString));
  if (!url) {
    log(LogLevel::WARNING, [&] { return "ImageLoader: " + std::string(urlString) + " is not valid URL"; });
    explain(ExplanationLevel::warning, [&] {
      return "A picture is not shown, since \"" + withoutQuery(urlString) +
             "\" is no URL: mend it in the service.";
    });
    return false;
  }
  if (pathExtension(*url) == "gif") {
    loadAnimation(imageView, *url, GifPlaybackManager::shared(), *Platform::current().urlSession,
                  {.completion = std::move(completion)});
    return true;
  }
  ImageLoad::setImage(imageView, url, {.completion = std::move(completion)});
  return true;
}

}  // namespace orrelo
