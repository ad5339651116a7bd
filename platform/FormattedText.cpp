#include "platform/FormattedText.h"

#include <limits>

namespace wayfell {
namespace {

template <class Number>
constexpr Number lowest(std::uint64_t bits) {
  return static_cast<Number>(bits & std::numeric_limits<Number>::max());
}

}  // namespace

FormattedText::Mark FormattedText::Marks::at(std::size_t index) const {
  const std::uint64_t place = places_[index];
  return {{keys_[index], lowest<std::uint16_t>(place >> 32U)},
          lowest<std::uint16_t>(place),
          lowest<std::uint16_t>(place >> 16U),
          lowest<std::uint8_t>(place >> 48U),
          lowest<std::uint8_t>(place >> 56U)};
}

void FormattedText::add(std::size_t argument, std::size_t begin, std::size_t end,
                        const FormattedText* within) {
  if (end > std::numeric_limits<std::uint16_t>::max()) return;
  const auto placed = [begin](std::size_t offset) {
    return static_cast<std::uint16_t>(begin + offset);
  };
  Mark mark{{}, placed(0), placed(end - begin), static_cast<std::uint8_t>(argument), 1};
  const std::size_t count = within ? within->marks_.count() : 0;
  if (!within || !marks_.hasRoomFor(1 + count)) {
    marks_.add(mark);
    return;
  }
  mark.key = within->key_;
  mark.size = static_cast<std::uint8_t>(1 + count);
  marks_.add(mark);
  for (std::size_t i = 0; i < count; ++i) {
    Mark inner = within->marks_.at(i);
    inner.begin = placed(inner.begin);
    inner.end = placed(inner.end);
    marks_.add(inner);
  }
}

FormattedText::Piece FormattedText::whole() const {
  Piece piece;
  piece.whole_ = this;
  piece.text_ = text_;
  piece.key_ = key_;
  piece.end_ = marks_.count();
  return piece;
}

FormattedText::Piece FormattedText::Piece::argument(std::size_t position) const {
  for (std::size_t at = begin_; at < end_; at += whole_->marks_.at(at).size) {
    const Mark mark = whole_->marks_.at(at);
    if (mark.argument != position) continue;
    Piece piece;
    piece.whole_ = whole_;
    piece.text_ = std::string_view(whole_->text_).substr(mark.begin, mark.end - mark.begin);
    piece.key_ = mark.key;
    piece.begin_ = at + 1;
    piece.end_ = at + mark.size;
    return piece;
  }
  return {};
}

}  // namespace wayfell
