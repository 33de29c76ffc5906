#include "backends/headless/HeadlessSession.h"

#include <thread>
#include <utility>

namespace headless {

class HeadlessSession::Task : public platform::URLSessionDataTask {
 public:
  Task(HeadlessSession& session, std::shared_ptr<Request> request)
      : session_(session), request_(std::move(request)) {}

  void resume() override {
    session_.waiting_.push_back(request_);
    session_.requested_(request_->url);
  }

 private:
  HeadlessSession& session_;
  std::shared_ptr<Request> request_;
};

std::unique_ptr<platform::URLSessionDataTask> HeadlessSession::dataTask(const std::string& url,
                                                                        Completion completion) {
  return std::make_unique<Task>(*this,
                                std::make_shared<Request>(Request{url, std::move(completion)}));
}

bool HeadlessSession::respond(Answer answer) {
  while (!waiting_.empty()) {
    const std::shared_ptr<Request> request = waiting_.front().lock();
    waiting_.erase(waiting_.begin());
    if (!request) continue;
    std::thread([&] { request->completion(std::move(answer)); }).join();
    return true;
  }
  return false;
}

}  // namespace headless
