#include "hosts/services/addresses/AddressFile.h"

#include <string_view>

#include "hosts/services/addresses/AddressCsv.h"
#include "hosts/services/addresses/AddressFeatures.h"
#include "hosts/text/InputError.h"

namespace wayfell {
namespace {

bool beginsWith(std::string_view bytes, std::string_view start) {
  return bytes.substr(0, start.size()) == start;
}

}  // namespace

std::unique_ptr<AddressFile> openAddressFile(InputBytes input) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (beginsWith(input.peek(kByteOrderMark.size()), kByteOrderMark)) {
    input.skip(kByteOrderMark.size());
  }
  std::string_view start = input.peek(4);
  if (beginsWith(start, "\x1f\x8b") || beginsWith(start, "PK\x03\x04")) {
    throw InputError("compressed: unpack it first (zcat FILE.gz | wayfell addresses import -)");
  }
  start.remove_prefix(std::min(start.find_first_not_of(" \t\r\n"), start.size()));
  if (beginsWith(start, "{")) return std::make_unique<AddressFeatures>(std::move(input));
  return std::make_unique<AddressCsv>(std::move(input));
}

}  // namespace wayfell
