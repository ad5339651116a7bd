// An HTTP server on the run loop of what asks it: whoever blocks the loop gets no answer.
#pragma once

#include <string>
#include <vector>

#include "support/LoopbackServer.h"

namespace wayfell {

class HttpServer : public LoopbackServer {
 public:
  explicit HttpServer(IoRunLoop& loop) : LoopbackServer(loop) {
    answer = [this](const std::string& request) {
      requests.push_back(request);
      say(reply);
      if (closesAfterwards) hangUp();
      return std::string();
    };
  }

  std::string reply;  // bytes, as they are
  bool closesAfterwards = true;
  std::vector<std::string> requests;

  std::string url() const { return "http://127.0.0.1:" + std::to_string(port()); }
};

inline std::string httpAnswer(const std::string& body, const std::string& status = "200 OK",
                              const std::string& headers = "") {
  return "HTTP/1.1 " + status + "\r\n" + headers +
         "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

}  // namespace wayfell
