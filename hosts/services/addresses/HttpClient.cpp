#include "hosts/services/addresses/HttpClient.h"

#include <curl/curl.h>

#include <array>
#include <exception>
#include <map>
#include <new>
#include <utility>

namespace wayfell {
namespace {

struct Cleanup {
  void operator()(CURLM* multi) const { curl_multi_cleanup(multi); }
  void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};
struct CleanupEasy {
  void operator()(CURL* easy) const { curl_easy_cleanup(easy); }
};

void initialiseOnce() {
  [[maybe_unused]] static const CURLcode kDone = curl_global_init(CURL_GLOBAL_DEFAULT);
}

}  // namespace

// libcurl tells what it waits for, and is told when it has come.
class HttpClient::Transfers {
 public:
  explicit Transfers(IoRunLoop& loop) : loop_(loop) {
    initialiseOnce();
    multi_.reset(curl_multi_init());
    if (multi_ == nullptr) throw std::bad_alloc();
    set(CURLMOPT_SOCKETFUNCTION, &socketWanted);
    set(CURLMOPT_SOCKETDATA, this);
    set(CURLMOPT_TIMERFUNCTION, &timerWanted);
    set(CURLMOPT_TIMERDATA, this);
  }
  ~Transfers() {
    cancel();
    multi_.reset();
    for (const auto& [socket, watch] : watches_) loop_.unwatch(watch);
    if (timer_) loop_.cancelTimer(*timer_);
  }

  void get(const Request& request, Completion completion) {
    cancel();
    answer_ = {};
    easy_.reset(curl_easy_init());
    if (easy_ == nullptr) throw std::bad_alloc();
    prepare(request);
    completion_ = std::move(completion);
    if (curl_multi_add_handle(multi_.get(), easy_.get()) != CURLM_OK) throw std::bad_alloc();
  }
  void cancel() {
    completion_ = nullptr;
    if (easy_ == nullptr) return;
    curl_multi_remove_handle(multi_.get(), easy_.get());
    easy_.reset();
  }
  bool isBusy() const { return easy_ != nullptr; }

 private:
  // NOLINTBEGIN(cppcoreguidelines-pro-type-vararg): that is how libcurl takes its options.
  template <class Value>
  void set(CURLMoption option, Value value) {
    curl_multi_setopt(multi_.get(), option, value);
  }
  template <class Value>
  void set(CURLoption option, Value value) {
    curl_easy_setopt(easy_.get(), option, value);
  }
  template <class Value>
  Value info(CURLINFO which) const {
    Value value{};
    curl_easy_getinfo(easy_.get(), which, &value);
    return value;
  }
  // NOLINTEND(cppcoreguidelines-pro-type-vararg)

  void prepare(const Request& request) {
    problem_.front() = 0;
    set(CURLOPT_ERRORBUFFER, problem_.data());
    set(CURLOPT_URL, request.url.c_str());
    set(CURLOPT_PROTOCOLS_STR, "http,https");
    set(CURLOPT_FOLLOWLOCATION, 0L);
    set(CURLOPT_USERAGENT, request.userAgent.c_str());
    set(CURLOPT_TIMEOUT_MS, static_cast<long>(request.timeout * 1000));
    set(CURLOPT_NOSIGNAL, 1L);
    set(CURLOPT_ACCEPT_ENCODING, "");  // all that this libcurl can unpack
    // Names are resolved on a thread of libcurl's. A request given up does not wait for it.
    set(CURLOPT_QUICK_EXIT, 1L);
    set(CURLOPT_WRITEFUNCTION, &received);
    set(CURLOPT_WRITEDATA, this);
    headers_.reset();
    if (!request.acceptLanguage.empty()) {
      headers_.reset(
          curl_slist_append(nullptr, ("Accept-Language: " + request.acceptLanguage).c_str()));
      set(CURLOPT_HTTPHEADER, headers_.get());
    }
  }

  static std::size_t received(char* bytes, std::size_t size, std::size_t count, void* self) {
    std::string& body = static_cast<Transfers*>(self)->answer_.body;
    if (body.size() + size * count > kLongestBody) return 0;  // which ends the transfer
    body.append(bytes, size * count);
    return size * count;
  }

  static int socketWanted(CURL* /*easy*/, curl_socket_t socket, int what, void* self,
                          void* /*ofSocket*/) {
    return static_cast<Transfers*>(self)->watch(socket, what) ? 0 : -1;
  }

  bool watch(curl_socket_t socket, int what) {
    const auto watched = watches_.extract(socket);
    if (watched) loop_.unwatch(watched.mapped());
    if (what == CURL_POLL_REMOVE) return true;
    const IoRunLoop::Readiness awaited{what == CURL_POLL_IN || what == CURL_POLL_INOUT,
                                       what == CURL_POLL_OUT || what == CURL_POLL_INOUT};
    try {
      watches_[socket] = loop_.watch(socket, awaited, [this, socket](IoRunLoop::Readiness ready) {
        goOn(socket,
             (ready.readable ? CURL_CSELECT_IN : 0) | (ready.writable ? CURL_CSELECT_OUT : 0));
      });
      return true;
    } catch (const std::exception&) {
      return false;  // nothing may be thrown through libcurl; the transfer fails
    }
  }

  static int timerWanted(CURLM* /*multi*/, long milliseconds, void* self) {
    static_cast<Transfers*>(self)->setTimer(milliseconds);
    return 0;
  }

  void setTimer(long milliseconds) {
    if (timer_) loop_.cancelTimer(*timer_);
    timer_.reset();
    if (milliseconds < 0) return;
    timer_ = loop_.scheduleTimer(static_cast<double>(milliseconds) / 1000, false, [this] {
      timer_.reset();
      goOn(CURL_SOCKET_TIMEOUT, 0);
    });
  }

  // The last thing that a handler does: the completion may destroy this.
  void goOn(curl_socket_t socket, int events) {
    int running = 0;
    curl_multi_socket_action(multi_.get(), socket, events, &running);
    int left = 0;
    const CURLMsg* const message = curl_multi_info_read(multi_.get(), &left);
    if (message != nullptr && message->msg == CURLMSG_DONE) finish(message->data.result);
  }

  void finish(CURLcode result) {
    if (result == CURLE_OK) {
      answer_.status = info<long>(CURLINFO_RESPONSE_CODE);
      const auto wait = info<curl_off_t>(CURLINFO_RETRY_AFTER);
      if (wait > 0) answer_.retryAfter = static_cast<double>(wait);
      const char* const redirection = info<const char*>(CURLINFO_REDIRECT_URL);
      if (redirection != nullptr) answer_.redirection = redirection;
    } else {
      answer_.error = whyNot(result);
    }
    const Completion completion = std::exchange(completion_, nullptr);
    const Answer answer = std::move(answer_);
    cancel();
    completion(answer);
  }

  // libcurl's own words for the first few mislead who knows nothing of it.
  std::string whyNot(CURLcode result) const {
    switch (result) {
      case CURLE_OPERATION_TIMEDOUT:
        return "no answer in time";
      case CURLE_COULDNT_CONNECT:
        return "no connection";
      case CURLE_GOT_NOTHING:
        return "no answer";
      case CURLE_PARTIAL_FILE:
        return "the answer is cut off";
      case CURLE_UNSUPPORTED_PROTOCOL:  // of the answer: requests have been looked at
      case CURLE_WEIRD_SERVER_REPLY:
        return "the answer is not HTTP";
      case CURLE_WRITE_ERROR:
        return "the answer is too long";
      default:
        return problem_.front() != 0 ? problem_.data() : curl_easy_strerror(result);
    }
  }

  IoRunLoop& loop_;
  std::array<char, CURL_ERROR_SIZE> problem_ = {};  // in libcurl's words; of the last request
  std::unique_ptr<CURLM, Cleanup> multi_;
  std::unique_ptr<curl_slist, Cleanup> headers_;
  std::unique_ptr<CURL, CleanupEasy> easy_;  // of the request under way, or null
  Completion completion_;
  Answer answer_;
  std::map<curl_socket_t, IoRunLoop::WatchId> watches_;
  std::optional<RunLoop::TimerId> timer_;
};

HttpClient::HttpClient(IoRunLoop& loop) : transfers_(std::make_unique<Transfers>(loop)) {}
HttpClient::~HttpClient() = default;
void HttpClient::get(const Request& request, Completion completion) {
  transfers_->get(request, std::move(completion));
}
void HttpClient::cancel() { transfers_->cancel(); }
bool HttpClient::isBusy() const { return transfers_->isBusy(); }

}  // namespace wayfell
