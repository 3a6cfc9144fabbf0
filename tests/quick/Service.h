#pragma once

#include "support/ServiceReplies.h"

#include <orrelo/Platform.h>
#include <orrelo/platform/URLSession.h>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace orrelo::test {

/// A service in the process. It answers from the main loop, by the end of the request's path; a request
/// without an answer waits for ever.
class Service final : public URLSession {
 public:
  explicit Service(std::shared_ptr<MainLoop> loop) : loop_(std::move(loop)) {
    answers["/config"] = {200, configReply()};
    answers["/event"] = answers["/events"] = {200, ""};
  }

  struct Answer {
    int status = 200;
    std::string body;
  };
  /// Used on the main thread only.
  std::map<std::string, Answer> answers;
  std::vector<std::string> asked;
  /// The bodies of the requests, in the order of their arrival; empty for a request without one.
  std::vector<std::string> bodies;

  /// Sets an answer and gives it to the requests that wait.
  void answerWaiting(const std::string& path, const Answer& reply) {
    answers[path] = reply;
    for (const auto& [waitingPath, completion] : std::exchange(waiting_, {})) answer(waitingPath, completion);
  }

  int timesAsked(const std::string& pathEnd) const {
    return static_cast<int>(
        std::count_if(asked.begin(), asked.end(), [&](const auto& path) { return path.ends_with(pathEnd); }));
  }

  std::shared_ptr<URLSessionTask> dataTask(URLRequest request, Completion completion) override {
    class Task final : public URLSessionTask {
     public:
      explicit Task(std::function<void()> start) : start_(std::move(start)) {}
      void resume() override { start_(); }
      void cancel() override {}

     private:
      std::function<void()> start_;
    };
    return std::make_shared<Task>([this, path = std::string(request.url.path()),
                                   body = request.body.value_or(""), completion = std::move(completion)] {
      loop_->post([this, path, body, completion] {
        bodies.push_back(body);
        answer(path, completion);
      });
    });
  }
  std::shared_ptr<URLSessionTask> streamingTask(URLRequest request,
                                                std::shared_ptr<URLSessionDataDelegate> delegate) override {
    return dataTask(std::move(request), [delegate](const URLSessionResult& result) {
      delegate->onData(*result.data);
      delegate->onCompletion(result.error);
    });
  }
  void trust(std::string_view, const std::string&) override {}

 private:
  void answer(const std::string& path, const Completion& completion) {
    asked.push_back(path);
    for (const auto& [end, reply] : answers) {
      if (path.ends_with(end))
        return completion({std::nullopt, reply.body, HTTPURLResponse{reply.status, {}}});
    }
    waiting_.emplace_back(path, completion);
  }

  std::shared_ptr<MainLoop> loop_;
  std::vector<std::pair<std::string, Completion>> waiting_;
};

/// A page of an attendance campaign; `more` are members of its detail, each after a comma.
inline std::string richAttendancePage(const std::string& more = "", bool isEnabled = true) {
  return R"({"page_type":"attendance","page_id":"p-1","page_detail":{"toolbar_text":"매일 출석체크",
    "first_title":"매일매일 출석하고","second_title":"포인트 받아가세요!","status_message":"오늘 출석하면 100P를 드려요",
    "today":"2026-11-18","attended_date":["2026-11-02","2026-11-03","2026-11-04","2026-11-09","2026-11-10","2026-11-17"],
    "highlighted_date":["2026-11-10","2026-11-20","2026-11-30"],"highlight_icon":"https://cdn.example/gift.png",
    "button_enable":)" +
         std::string(isEnabled ? "true" : "false") + R"(,"button_text":")" +
         (isEnabled ? "출석체크 하기" : "오늘은 출석했어요") + R"(","button_url":"/attend",
    "calendar_description":["이번 달 출석 6일","다음 보너스까지 2일 남았어요"],"color":"#4A5DF0","highlight_color":"#FFE08A",
    "guide_message":"하루에 한 번, 자정이 지나면 다시 출석할 수 있어요.",
    "notice":["출석은 하루에 한 번만 인정됩니다.","포인트는 출석 직후 지급되며 30일 안에 사용하지 않으면 사라집니다.",
      "이벤트는 사정에 따라 예고 없이 변경될 수 있습니다."])" +
         more + "}}";
}

}  // namespace orrelo::test
