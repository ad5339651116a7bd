// From a host's name to the addresses behind it, without keeping the loop waiting: names are looked
// up in a thread, as that can take as long as a name server takes to answer.
#pragma once

#include <netdb.h>

#include <functional>
#include <memory>
#include <string>

#include "hosts/loop/IoRunLoop.h"
#include "hosts/services/location/GpsdAddress.h"

namespace wayfell {

/// A list in the order in which they are to be tried; none, and the reason, when the lookup failed.
struct FoundAddresses {
  std::shared_ptr<addrinfo> first;
  std::string failure;
};

class NameLookup {
 public:
  using Completion = std::function<void(FoundAddresses)>;

  /// Calls the completion once, on the loop's thread and not before this returns, unless it is
  /// destroyed first. The loop may end before the lookup does.
  NameLookup(IoRunLoop& loop, const GpsdAddress& address, Completion completion);
  ~NameLookup();
  NameLookup(const NameLookup&) = delete;
  NameLookup& operator=(const NameLookup&) = delete;

 private:
  struct Shared;
  std::shared_ptr<Shared> shared_;
};

}  // namespace wayfell
