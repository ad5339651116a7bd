// A text that knows which format printed it and where in it each argument stands, so that a value
// can be said in other words, as to a screen reader, without taking its characters apart: "9 m" is
// nine minutes if "%d m" has printed it, and nine metres if "%0.0f m" has.
//
// It reads as a std::string wherever one is asked for. What it knows besides allocates nothing and
// has room for 12 marks, one for each format and each argument: further arguments are not known,
// nor is what has printed them. A text of more than 65,535 bytes knows nothing.
#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace wayfell {

class FormatArgument;

class FormattedText {
 public:
  class Piece;

  FormattedText() = default;
  FormattedText(std::string text) : text_(std::move(text)) {}
  FormattedText(std::string_view text) : text_(text) {}
  FormattedText(const char* text) : text_(text) {}
  /// The text of a key that takes no arguments. The key has to outlive it.
  FormattedText(std::string_view key, std::string_view text) : text_(text), key_(key) {}

  /// All of it. It reads from this text, which must not change meanwhile.
  Piece whole() const;

  operator std::string_view() const { return text_; }
  operator const std::string&() const { return text_; }

  /// Of the same characters, printed by the same key.
  friend bool operator==(const FormattedText& one, const FormattedText& other) {
    return one.text_ == other.text_ &&
           (one.key_.data() == other.key_.data() || one.key_ == other.key_);
  }
  template <std::convertible_to<std::string_view> String>
  requires(!std::same_as<String, FormattedText>) friend bool operator==(const FormattedText& one,
                                                                        const String& other) {
    return one.text_ == std::string_view(other);
  }

 private:
  // Where an argument stands, and what has printed it.
  struct Mark {
    std::string_view key;  // empty for what no format has printed
    std::uint16_t begin;
    std::uint16_t end;
    std::uint8_t argument;  // its position within the format that it is an argument of
    std::uint8_t size;      // in marks: itself and its own arguments', which follow it
  };

  // Each mark is packed into two words: texts are moved right after they are made, and a processor
  // waits long for what has been written in smaller pieces than it is read. For speed, too,
  // only what is in use is ever written.

  // NOLINTBEGIN(cppcoreguidelines-pro-type-member-init)
  class Marks {
   public:
    Marks() = default;
    Marks(const Marks& other) { *this = other; }
    Marks& operator=(const Marks& other) {
      count_ = other.count_;
      for (std::size_t i = 0; i < count_; ++i) {
        keys_[i] = other.keys_[i];
        places_[i] = other.places_[i];
      }
      return *this;
    }
    ~Marks() = default;

    std::size_t count() const { return count_; }
    Mark at(std::size_t index) const;
    void add(const Mark& mark) {
      if (count_ == kMost) return;
      keys_[count_] = mark.key.data();
      places_[count_] = std::uint64_t{mark.begin} | std::uint64_t{mark.end} << 16U |
                        std::uint64_t{static_cast<std::uint16_t>(mark.key.size())} << 32U |
                        std::uint64_t{mark.argument} << 48U | std::uint64_t{mark.size} << 56U;
      ++count_;
    }
    bool hasRoomFor(std::size_t marks) const { return count_ + marks <= kMost; }

   private:
    static constexpr std::size_t kMost = 10;
    std::size_t count_ = 0;
    std::array<const char*, kMost> keys_;      // set up to count_, as the others
    std::array<std::uint64_t, kMost> places_;  // all other members of a mark
  };
  // NOLINTEND(cppcoreguidelines-pro-type-member-init)

  /// Notes an argument that has come to stand from `begin` to `end`, and what is known within it.
  void add(std::size_t argument, std::size_t begin, std::size_t end, const FormattedText* within);

  friend FormattedText formattedText(std::string_view key, std::string_view format,
                                     std::initializer_list<FormatArgument> arguments);

  std::string text_;
  std::string_view key_;
  Marks marks_;
};

/// The whole of a text, or what an argument has printed.
class FormattedText::Piece {
 public:
  std::string_view text() const { return text_; }
  /// The format that has printed it, untranslated; empty if none has.
  std::string_view key() const { return key_; }
  /// An argument, counted from 0 as the key has them, wherever the translation puts it. Empty if
  /// there is none.
  Piece argument(std::size_t position) const;

 private:
  friend class FormattedText;
  const FormattedText* whole_ = nullptr;
  std::string_view text_;
  std::string_view key_;
  std::size_t begin_ = 0;  // of its arguments' marks
  std::size_t end_ = 0;
};

}  // namespace wayfell
