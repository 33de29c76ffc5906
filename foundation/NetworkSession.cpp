#include "foundation/NetworkSession.h"

#include <curl/curl.h>
#include <dlfcn.h>

#include <atomic>
#include <cmath>
#include <thread>
#include <utility>
#include <vector>

namespace foundation {

using platform::URLSession;

namespace {

constexpr int maxPause = 1000;
constexpr long maxRedirects = 5;

/// A look-up of a name cannot be called off. What is left of one ends by itself, so libcurl has to
/// stay in the process even when the plug-in that brought it is unloaded.
void keepLibraryLoaded() {
  Dl_info info;
  if (::dladdr(reinterpret_cast<const void*>(&::curl_easy_perform), &info) && info.dli_fname)
    ::dlopen(info.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
}

void prepareLibrary() {
  static const bool isReady = [] {
    keepLibraryLoaded();
    return ::curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
  }();
  (void)isReady;
}

struct EasyDeleter {
  void operator()(CURL* handle) const { ::curl_easy_cleanup(handle); }
};
struct MultiDeleter {
  void operator()(CURLM* handle) const { ::curl_multi_cleanup(handle); }
};
using Easy = std::unique_ptr<CURL, EasyDeleter>;
using Multi = std::unique_ptr<CURLM, MultiDeleter>;

long milliseconds(double seconds) { return std::lround(seconds * 1000); }

class NetworkTask : public platform::URLSessionDataTask {
 public:
  NetworkTask(std::string url, NetworkSession::Limits limits, URLSession::Completion completion)
      : url_(std::move(url)), limits_(limits), completion_(std::move(completion)) {
    prepareLibrary();
    multi_.reset(::curl_multi_init());
  }

  ~NetworkTask() override {
    cancelled_ = true;
    if (multi_) ::curl_multi_wakeup(multi_.get());
    if (thread_.joinable()) thread_.join();
  }

  void resume() override {
    if (!thread_.joinable()) thread_ = std::thread([this] { run(); });
  }

 private:
  static std::size_t receive(char* bytes, std::size_t size, std::size_t count, void* owner) {
    auto& task = *static_cast<NetworkTask*>(owner);
    const std::size_t length = size * count;
    if (length > task.limits_.answer - task.answer_.data.size()) return 0;
    task.answer_.data.insert(task.answer_.data.end(), bytes, bytes + length);
    return length;
  }

  void run() {
    answer_.error = ask();
    if (cancelled_) return;
    if (!answer_.error.empty()) answer_.data.clear();
    if (completion_) completion_(std::move(answer_));
  }

  /// What went wrong, or an empty text. Comes back soon when it is cancelled.
  std::string ask() {
    const Easy easy(::curl_easy_init());
    if (!easy || !multi_) return "no memory for a request";
    CURL* const handle = easy.get();
    ::curl_easy_setopt(handle, CURLOPT_URL, url_.c_str());
    // Holds for redirects as well.
    ::curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "http,https");
    ::curl_easy_setopt(handle, CURLOPT_FOLLOWLOCATION, 1L);
    ::curl_easy_setopt(handle, CURLOPT_MAXREDIRS, maxRedirects);
    ::curl_easy_setopt(handle, CURLOPT_TIMEOUT_MS, milliseconds(limits_.whole));
    ::curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
    ::curl_easy_setopt(handle, CURLOPT_QUICK_EXIT, 1L);
    ::curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, &NetworkTask::receive);
    ::curl_easy_setopt(handle, CURLOPT_WRITEDATA, this);
    if (::curl_multi_add_handle(multi_.get(), handle) != CURLM_OK) return "no request can be made";
    const CURLcode result = wait();
    long status = 0;
    ::curl_easy_getinfo(handle, CURLINFO_RESPONSE_CODE, &status);
    answer_.statusCode = static_cast<int>(status);
    ::curl_multi_remove_handle(multi_.get(), handle);
    return result == CURLE_OK ? std::string() : ::curl_easy_strerror(result);
  }

  CURLcode wait() {
    while (!cancelled_) {
      int running = 0;
      if (::curl_multi_perform(multi_.get(), &running) != CURLM_OK) return CURLE_RECV_ERROR;
      int waiting = 0;
      while (const CURLMsg* message = ::curl_multi_info_read(multi_.get(), &waiting))
        if (message->msg == CURLMSG_DONE) return message->data.result;
      // The destructor wakes it.
      if (::curl_multi_poll(multi_.get(), nullptr, 0, maxPause, nullptr) != CURLM_OK)
        return CURLE_RECV_ERROR;
    }
    return CURLE_ABORTED_BY_CALLBACK;
  }

  const std::string url_;
  const NetworkSession::Limits limits_;
  const URLSession::Completion completion_;
  Multi multi_;
  std::atomic<bool> cancelled_{false};
  URLSession::Answer answer_;
  std::thread thread_;
};

}  // namespace

std::unique_ptr<platform::URLSessionDataTask> NetworkSession::dataTask(const std::string& url,
                                                                       Completion completion) {
  return std::make_unique<NetworkTask>(url, limits_, std::move(completion));
}

}  // namespace foundation
