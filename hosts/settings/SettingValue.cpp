#include "hosts/settings/SettingValue.h"

#include <array>

namespace wayfell {
namespace {

// In the order of PropertyValue::Storage.
constexpr std::array<std::string_view, 8> kTypeNames = {"integer", "boolean", "real", "text",
                                                        "date",    "data",    "list", "dictionary"};

}  // namespace

std::string_view typeName(const PropertyValue& value) {
  return kTypeNames.at(value.storage().index());
}

}  // namespace wayfell
