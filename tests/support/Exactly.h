// A value written out so that two values give the same text only when they are the same to the
// last bit: 0.0 is not -0.0, and 1 is not 1.0. All NaNs are one.
#pragma once

#include <cstdio>
#include <string>
#include <variant>

#include "platform/PropertyValue.h"

namespace wayfell {

inline std::string exactly(const PropertyValue& value) {
  struct Write {
    std::string operator()(std::int64_t integer) const { return std::to_string(integer); }
    std::string operator()(bool boolean) const { return boolean ? "yes" : "no"; }
    std::string operator()(double real) const {
      if (real != real) return "nan";
      char text[64];
      std::snprintf(text, sizeof text, "%a", real);
      return text;
    }
    std::string operator()(const std::string& text) const {
      return std::to_string(text.size()) + ":" + text;
    }
    std::string operator()(NSDate date) const {
      return (*this)(date.timeIntervalSinceReferenceDate) + " s";
    }
    std::string operator()(const PropertyValue::Data& data) const {
      return (*this)(std::string(data.begin(), data.end())) + " data";
    }
    std::string operator()(const PropertyValue::List& list) const {
      std::string text = "[";
      for (const PropertyValue& element : list) text += exactly(element) + ",";
      return text + "]";
    }
    std::string operator()(const PropertyValue::Dictionary& dictionary) const {
      std::string text = "{";
      for (const auto& [key, member] : dictionary) text += (*this)(key) + exactly(member) + ",";
      return text + "}";
    }
  };
  return std::visit(Write(), value.storage());
}

}  // namespace wayfell
