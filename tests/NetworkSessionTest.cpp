// Requests to a real server on this machine.

#include "foundation/NetworkSession.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <optional>
#include <thread>

#include "foundation/SharedURLSession.h"
#include "tests/support/HttpServer.h"

namespace foundation {
namespace {

using platform::URLSession;
using support::HttpServer;
using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

/// What a session answers; none within ten seconds when it does not.
std::optional<URLSession::Answer> ask(URLSession& session, const std::string& url) {
  std::promise<URLSession::Answer> promise;
  std::future<URLSession::Answer> answered = promise.get_future();
  const auto task = session.dataTask(
      url, [&](URLSession::Answer answer) { promise.set_value(std::move(answer)); });
  task->resume();
  if (answered.wait_for(std::chrono::seconds(10)) != std::future_status::ready) return {};
  return answered.get();
}

std::string textOf(const URLSession::Answer& answer) {
  return {answer.data.begin(), answer.data.end()};
}

TEST(NetworkSession, GivesTheAnswerAsTheServerSendsIt) {
  const std::string binary("\xff\x00\n{", 4);
  struct Case {
    const char* status;
    std::string body;
    int code;
  };
  for (const Case& c : {Case{"200 OK", "help", 200}, Case{"200 OK", "", 200},
                        Case{"200 OK", binary, 200}, Case{"404 Not Found", "gone", 404}}) {
    HttpServer server([&](const std::string&) { return HttpServer::response(c.status, c.body); });
    NetworkSession session;
    const auto answer = ask(session, server.address() + "/a?b=c");
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->error, "");
    EXPECT_EQ(answer->statusCode, c.code);
    EXPECT_EQ(textOf(*answer), c.body);
    EXPECT_EQ(server.requests(), std::vector<std::string>{"GET /a?b=c HTTP/1.1"});
  }
}

TEST(NetworkSession, FollowsTheServerToAnotherAddress) {
  HttpServer server([](const std::string& line) {
    return line.starts_with("GET /old ")
               ? HttpServer::response("302 Found", "", "Location: /new\r\n")
               : HttpServer::response("200 OK", "here");
  });
  NetworkSession session;
  const auto answer = ask(session, server.address() + "/old");
  ASSERT_TRUE(answer);
  EXPECT_EQ(textOf(*answer), "here");
}

TEST(NetworkSession, SaysInOneLineWhyThereIsNoAnswer) {
  std::string closed;
  {
    HttpServer server([](const std::string&) { return ""; });
    closed = server.address();
  }
  HttpServer broken([](const std::string&) { return ""; });
  // More than arrives at a time.
  constexpr std::size_t most = 100000;
  HttpServer sized([](const std::string& line) {
    return HttpServer::response("200 OK",
                                std::string(line.starts_with("GET /most ") ? most : most + 1, 'x'));
  });
  HttpServer sendsOn([](const std::string& line) {
    const bool toFile = line.starts_with("GET /file ");
    return HttpServer::response(
        "302 Found", "", toFile ? "Location: file:///etc/hostname\r\n" : "Location: /round\r\n");
  });
  NetworkSession session(NetworkSession::Limits{.whole = 2, .answer = most});
  EXPECT_EQ(ask(session, sized.address() + "/most")->error, "");
  for (const std::string& url :
       {closed, broken.address(), sized.address() + "/more", sendsOn.address() + "/file",
        sendsOn.address() + "/round", std::string("file:///etc/hostname"), std::string("nonsense:"),
        std::string()}) {
    const auto answer = ask(session, url);
    ASSERT_TRUE(answer) << url;
    EXPECT_NE(answer->error, "") << url;
    EXPECT_EQ(answer->error.find('\n'), std::string::npos) << url;
    EXPECT_TRUE(answer->data.empty()) << url;
  }
  EXPECT_LT(sendsOn.requests().size(), 10u);
}

TEST(NetworkSession, GivesUpAServerThatNeverAnswers) {
  HttpServer server([](const std::string&) { return ""; }, HttpServer::Answers::whenReleased);
  NetworkSession session(NetworkSession::Limits{.whole = 0.3});
  const auto start = Clock::now();
  const auto answer = ask(session, server.address());
  ASSERT_TRUE(answer);
  EXPECT_NE(answer->error, "");
  EXPECT_GE(secondsSince(start), 0.25);
}

TEST(NetworkSession, ATaskThatIsDestroyedIsCancelledAtOnceAndStaysSilent) {
  HttpServer server([](const std::string&) { return HttpServer::response("200 OK", "late"); },
                    HttpServer::Answers::whenReleased);
  NetworkSession session;
  bool wasCalled = false;
  auto task =
      session.dataTask(server.address(), [&](const URLSession::Answer&) { wasCalled = true; });
  task->resume();
  ASSERT_TRUE(server.waitForRequest());
  // Until the task does nothing but wait.
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  const auto start = Clock::now();
  task.reset();
  EXPECT_LT(secondsSince(start), 0.5) << "whoever closes an editor waits for it";
  server.release();
  EXPECT_FALSE(wasCalled);
}

TEST(NetworkSession, ATaskSendsNothingBeforeItIsResumedAndOnlyOneRequestAfter) {
  HttpServer server([](const std::string&) { return HttpServer::response("200 OK", ""); });
  NetworkSession session;
  std::promise<void> answered;
  {
    const auto task = session.dataTask(server.address(),
                                       [&](const URLSession::Answer&) { answered.set_value(); });
    EXPECT_TRUE(server.requests().empty());
    task->resume();
    task->resume();
    answered.get_future().wait();
  }
  EXPECT_EQ(server.requests().size(), 1u);
}

TEST(URLSession, TheLastSharedOneIsTheProcesssWhateverOrderTheyGoIn) {
  URLSession& real = foundation::SharedURLSession::current();
  NetworkSession first, second;
  auto firstScope = std::make_unique<foundation::SharedURLSession>(first);
  auto secondScope = std::make_unique<foundation::SharedURLSession>(second);
  EXPECT_EQ(&foundation::SharedURLSession::current(), &second);
  firstScope.reset();
  EXPECT_EQ(&foundation::SharedURLSession::current(), &second);
  secondScope.reset();
  EXPECT_EQ(&foundation::SharedURLSession::current(), &real);
}

}  // namespace
}  // namespace foundation
