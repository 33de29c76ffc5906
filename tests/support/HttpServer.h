#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace support {

/// A server on this machine that answers one request after another. `answer` gets the first line of
/// each and gives all that is sent back.
class HttpServer {
 public:
  enum class Answers { atOnce, whenReleased };

  explicit HttpServer(std::function<std::string(const std::string& line)> answer,
                      Answers when = Answers::atOnce)
      : answer_(std::move(answer)), released_(when == Answers::atOnce) {
    // The requests must not go through a proxy of this machine.
    ::setenv("no_proxy", "127.0.0.1", 1);
    socket_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    ::bind(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address);
    ::listen(socket_, 8);
    socklen_t size = sizeof address;
    ::getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size);
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { run(); });
  }
  ~HttpServer() {
    stopping_ = true;
    thread_.join();
    ::close(socket_);
  }

  std::string address() const { return "http://127.0.0.1:" + std::to_string(port_); }
  void release() { released_ = true; }
  std::vector<std::string> requests() {
    const std::lock_guard lock(mutex_);
    return requests_;
  }
  /// False when no request came for ten seconds.
  bool waitForRequest() {
    for (int i = 0; i < 1000 && requests().empty(); ++i)
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return !requests().empty();
  }

  /// An answer of a given status.
  static std::string response(const std::string& status, const std::string& body,
                              const std::string& headers = "") {
    return "HTTP/1.1 " + status + "\r\nConnection: close\r\n" + headers +
           "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
  }

 private:
  void run() {
    while (!stopping_) {
      pollfd waiting{socket_, POLLIN, 0};
      if (::poll(&waiting, 1, 20) <= 0) continue;
      const int connection = ::accept(socket_, nullptr, nullptr);
      if (connection < 0) continue;
      serve(connection);
      ::close(connection);
    }
  }
  void serve(int connection) {
    std::string request;
    char bytes[1024];
    while (request.find("\r\n\r\n") == std::string::npos) {
      const ssize_t count = ::recv(connection, bytes, sizeof bytes, 0);
      if (count <= 0) return;
      request.append(bytes, static_cast<std::size_t>(count));
    }
    const std::string line = request.substr(0, request.find("\r\n"));
    {
      const std::lock_guard lock(mutex_);
      requests_.push_back(line);
    }
    while (!released_ && !stopping_) std::this_thread::sleep_for(std::chrono::milliseconds(5));
    const std::string text = answer_(line);
    ::send(connection, text.data(), text.size(), MSG_NOSIGNAL);
  }

  const std::function<std::string(const std::string&)> answer_;
  std::atomic<bool> released_, stopping_{false};
  int socket_ = -1;
  int port_ = 0;
  std::mutex mutex_;
  std::vector<std::string> requests_;
  std::thread thread_;
};

}  // namespace support
