#include "platform/Host.h"

#include <stdexcept>

namespace wayfell {
namespace {

Host* inUse = nullptr;

}  // namespace

void Host::install(Host* host) { inUse = host; }

Host& Host::current() {
  if (!inUse) throw std::logic_error("no host is installed");
  return *inUse;
}

Host* Host::installed() { return inUse; }

NSDate NSDate::date() { return Host::current().clock().now(); }

double NSDate::timeIntervalSinceNow() const { return timeIntervalSinceDate(date()); }

}  // namespace wayfell
