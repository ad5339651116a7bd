#include "platform/Host.h"

#include <stdexcept>

namespace wayfell {
namespace {

Host* installed = nullptr;

}  // namespace

void Host::install(Host* host) { installed = host; }

Host& Host::current() {
  if (!installed) throw std::logic_error("no host is installed");
  return *installed;
}

NSDate NSDate::date() { return Host::current().clock().now(); }

double NSDate::timeIntervalSinceNow() const { return timeIntervalSinceDate(date()); }

}  // namespace wayfell
