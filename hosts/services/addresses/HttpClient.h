// Asks HTTP servers, on a run loop: nothing blocks, names are resolved aside.
//
// What comes back is at most kLongestBody bytes; no redirection is followed, so that nobody is
// asked but the server that was named.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "hosts/loop/IoRunLoop.h"

namespace wayfell {

class HttpClient {
 public:
  static constexpr std::size_t kLongestBody = std::size_t{256} << 10U;

  struct Request {
    std::string url;  ///< http or https
    std::string userAgent;
    std::string acceptLanguage;  ///< empty: none is named
    double timeout = 10;         ///< seconds, for all of it
  };
  struct Answer {
    long status = 0;  ///< of HTTP; 0 when there was no complete answer
    std::string body;
    std::optional<double> retryAfter;  ///< seconds that the server wants to be left alone for
    std::string redirection;           ///< where the server sends instead; may be empty
    std::string error;                 ///< why there was none
  };
  using Completion = std::function<void(const Answer& answer)>;

  explicit HttpClient(IoRunLoop& loop);
  /// What was asked for and has not come is never answered.
  ~HttpClient();

  /// Answers later, once; the completion may destroy the client. One request at a time: another
  /// one is dropped first.
  void get(const Request& request, Completion completion);
  void cancel();
  bool isBusy() const;

 private:
  class Transfers;
  std::unique_ptr<Transfers> transfers_;
};

}  // namespace wayfell
