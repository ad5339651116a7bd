// What a widget may ask of the program that shows it.
#pragma once

#include <functional>
#include <optional>

#include "platform/Host.h"

namespace wayfell {

class NSExtensionContext {
 public:
  void openURLCompletionHandler(const std::optional<NSURL>& url,
                                const std::function<void(bool opened)>& completion) {
    completion(Host::current().urlOpener().openURL(url));
  }
};

}  // namespace wayfell
