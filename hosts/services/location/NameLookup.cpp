#include "hosts/services/location/NameLookup.h"

#include <cerrno>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace wayfell {
namespace {

// Takes as long as it takes, but no time for an address in digits.
FoundAddresses lookUp(const GpsdAddress& address, int flags) {
  addrinfo hints = {};
  hints.ai_family = AF_UNSPEC;
  hints.ai_socktype = SOCK_STREAM;
  hints.ai_flags = AI_NUMERICSERV | flags;
  addrinfo* first = nullptr;
  const int failure = getaddrinfo(address.host.c_str(), address.port.c_str(), &hints, &first);
  FoundAddresses found;
  if (failure == 0) {
    found.first.reset(first, freeaddrinfo);
  } else if (failure == EAI_SYSTEM) {
    found.failure = std::generic_category().message(errno);
  } else {
    found.failure = gai_strerror(failure);
  }
  return found;
}

}  // namespace

// What the thread and its owner both hold. The loop is null once the owner has gone.
struct NameLookup::Shared {
  std::mutex mutex;
  IoRunLoop* loop;
  Completion completion;  // called on the loop's thread
};

NameLookup::NameLookup(IoRunLoop& loop, const GpsdAddress& address, Completion completion)
    : shared_(new Shared{{}, &loop, std::move(completion)}) {
  const auto report = [shared = shared_](FoundAddresses found) {
    const std::lock_guard lock(shared->mutex);
    if (shared->loop == nullptr) return;
    shared->loop->perform([shared, found = std::move(found)]() mutable {
      const Completion complete = std::exchange(shared->completion, nullptr);
      if (complete) complete(std::move(found));
    });
  };
  FoundAddresses numeric = lookUp(address, AI_NUMERICHOST);
  if (numeric.first != nullptr) {
    report(std::move(numeric));
    return;
  }
  try {
    std::thread([report, address] { report(lookUp(address, 0)); }).detach();
  } catch (const std::system_error& error) {
    report({{}, error.code().message()});
  }
}

NameLookup::~NameLookup() {
  const std::lock_guard lock(shared_->mutex);
  shared_->loop = nullptr;
  shared_->completion = nullptr;
}

}  // namespace wayfell
