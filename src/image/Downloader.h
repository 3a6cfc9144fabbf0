#pragma once

#include "image/Data.h"
#include "platform/threads/KitThread.h"
#include "platform/threads/onMain.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/URLSession.h>

#include <atomic>
#include <map>
#include <mutex>
#include <vector>

namespace orrelo {

enum class DownloaderError { dataConversion, canceled };
Error makeError(DownloaderError error);

template <class T>
class Downloader;

/// One transfer and the completions that wait for it, each identified by a token: 0, 1, 2 …
template <class T>
class Download {
 public:
  using Completion = std::function<void(Result<T>)>;

  /// Adds a completion and returns its token; nullopt if the download has been cancelled.
  std::optional<int> addCompletion(Completion completion) {
    const std::lock_guard lock(mutex_);
    if (isCancelled_) return std::nullopt;
    tokenCompletions_.emplace(currentToken_, std::move(completion));
    return currentToken_++;
  }

  std::vector<Completion> completions() const {
    const std::lock_guard lock(mutex_);
    std::vector<Completion> all;
    for (const auto& [token, completion] : tokenCompletions_) all.push_back(completion);
    return all;
  }

  /// Completes one waiter with `canceled`, and cancels the transfer if it was the last one. Does nothing for
  /// a token that has completed or was cancelled.
  void cancel(int token) {
    Completion completion;
    bool isLast = false;
    {
      const std::lock_guard lock(mutex_);
      auto node = tokenCompletions_.extract(token);
      if (node.empty()) return;
      completion = std::move(node.mapped());
      isLast = tokenCompletions_.empty();
      isCancelled_ = isLast;
    }
    if (isLast) {
      task_->cancel();
      onCancelled_();
    }
    runGuarded([&] { completion(makeError(DownloaderError::canceled)); });
  }

 private:
  friend class Downloader<T>;

  /// Runs each completion once, even if another one throws, except those that another one cancels.
  void complete(const Result<T>& result) {
    while (auto completion = takeFirst()) runGuarded([&] { completion(result); });
  }
  Completion takeFirst() {
    const std::lock_guard lock(mutex_);
    if (tokenCompletions_.empty()) return nullptr;
    return std::move(tokenCompletions_.extract(tokenCompletions_.begin()).mapped());
  }

  /// Set before the download is shared with other threads, and constant from then on.
  std::string key_;
  std::shared_ptr<URLSessionTask> task_;
  std::function<void()> onCancelled_;
  std::atomic<bool> isStarting_ = true;
  /// Accessed only on the session's thread.
  std::string data_;

  mutable std::mutex mutex_;
  bool isCancelled_ = false;
  int currentToken_ = 0;
  std::map<int, Completion> tokenCompletions_;
};

/// One caller's share of a download.
template <class T>
struct DownloadTask {
  std::shared_ptr<Download<T>> download;
  int cancelToken = 0;

  void cancel() const { download->cancel(cancelToken); }
};

/// Downloads URLs. Concurrent requests for the same URL share one transfer, one conversion and the resulting
/// value. Completions run on the main thread, never inside the `fetch` that they belong to. Any thread.
template <class T>
class Downloader : public std::enable_shared_from_this<Downloader<T>> {
 public:
  using Completion = typename Download<T>::Completion;

  /// In bytes; a larger reply fails.
  static constexpr std::size_t maximumSize = maximumFileSize;
  /// The idle timeout.
  static constexpr std::chrono::seconds timeout{60};

  Downloader(std::shared_ptr<DataConvertible<T>> convertible, const Platform& platform)
      : convertible_(std::move(convertible)), session_(platform.urlSession), mainLoop_(platform.mainLoop) {}

  /// Cancels all transfers without calling their completions.
  ~Downloader() {
    for (const auto& [url, download] : downloads_) download->task_->cancel();
  }

  Downloader(const Downloader&) = delete;
  Downloader& operator=(const Downloader&) = delete;

  /// Joins a running download of the URL or starts a new one. Completes with an error if the session cannot
  /// start it.
  DownloadTask<T> fetch(const Url& url, Completion completion) {
    std::unique_lock lock(mutex_);
    if (const auto found = downloads_.find(url.text()); found != downloads_.end()) {
      if (const auto token = found->second->addCompletion(completion)) return {found->second, *token};
    }
    const auto download = makeDownload(url);
    DownloadTask<T> task{download, *download->addCompletion(std::move(completion))};
    downloads_[url.text()] = download;
    lock.unlock();
    try {
      download->task_->resume();
    } catch (...) {
      complete(download, Error::fromCurrentException());
    }
    download->isStarting_ = false;
    return task;
  }

 private:
  class SessionDelegate final : public URLSessionDataDelegate {
   public:
    SessionDelegate(std::weak_ptr<Downloader> downloader, std::weak_ptr<Download<T>> download)
        : downloader_(std::move(downloader)), download_(std::move(download)) {}

    void onData(std::string_view bytes) override {
      if (const auto download = download_.lock()) download->data_ += bytes;
    }
    void onCompletion(const std::optional<Error>& error) override {
      const auto downloader = downloader_.lock();
      const auto download = download_.lock();
      if (downloader && download) downloader->finish(download, error);
    }

   private:
    std::weak_ptr<Downloader> downloader_;
    std::weak_ptr<Download<T>> download_;
  };

  std::shared_ptr<Download<T>> makeDownload(const Url& url) {
    const auto download = std::make_shared<Download<T>>();
    const std::weak_ptr<Download<T>> weak = download;
    URLRequest request{
        .url = url, .timeout = timeout, .isTimeoutIdle = true, .maximumReplySize = maximumSize};
    download->key_ = url.text();
    download->task_ = session_->streamingTask(
        std::move(request), std::make_shared<SessionDelegate>(this->weak_from_this(), weak));
    download->onCancelled_ = [weak, downloader = this->weak_from_this()] {
      if (const auto self = downloader.lock()) self->remove(weak.lock());
    };
    return download;
  }

  void finish(const std::shared_ptr<Download<T>>& download, const std::optional<Error>& error) {
    if (error) return complete(download, *error);
    convertible_->value(makeData(std::move(download->data_)),
                        [weak = this->weak_from_this(), download](std::optional<T> value) {
                          const auto self = weak.lock();
                          if (!self) return;
                          if (value) return self->complete(download, *std::move(value));
                          self->complete(download, makeError(DownloaderError::dataConversion));
                        });
  }

  /// Removes the entry first, so that a completion that fetches the URL again starts a new download. A
  /// download that ends while it is being started completes later; otherwise a caller that retries each
  /// failure would never return from `fetch`.
  void complete(const std::shared_ptr<Download<T>>& download, Result<T> result) {
    auto task = [self = this->shared_from_this(), download, result = std::move(result)] {
      self->remove(download);
      download->complete(result);
    };
    if (download->isStarting_) return mainLoop_->post(std::move(task));
    onMain(*mainLoop_, std::move(task));
  }

  /// Removes the download from the table unless a newer one has replaced it.
  void remove(const std::shared_ptr<Download<T>>& download) {
    const std::lock_guard lock(mutex_);
    const auto found = downloads_.find(download->key_);
    if (found != downloads_.end() && found->second == download) downloads_.erase(found);
  }

  std::shared_ptr<DataConvertible<T>> convertible_;
  std::shared_ptr<URLSession> session_;
  std::shared_ptr<MainLoop> mainLoop_;

  std::mutex mutex_;
  std::map<std::string, std::shared_ptr<Download<T>>> downloads_;
};

}  // namespace orrelo
