#include "hosts/window/positions/NmeaReader.h"

#include <cstdio>
#include <iterator>

namespace wayfell {
namespace {

// Sentences of one instant may be told with times that lie a little apart.
constexpr qint64 kSettling = 1000;  // milliseconds

std::string checksumOf(const std::string& sentence) {
  unsigned sum = 0;
  for (const char character : sentence.substr(1)) sum ^= static_cast<unsigned char>(character);
  std::string text(4, '\0');
  std::snprintf(text.data(), text.size(), "*%02X", sum & 0xFFU);
  text.pop_back();
  return text;
}

QDateTime utc(const QDate& date, const QTime& time) { return {date, time, Qt::UTC}; }

QDateTime nearest(const QTime& time, const QDateTime& to) {
  constexpr qint64 kHalfADay = 12 * 3600;
  const QDateTime sameDay = utc(to.date(), time);
  const qint64 ahead = to.secsTo(sameDay);
  return sameDay.addDays(ahead > kHalfADay ? -1 : ahead < -kHalfADay ? 1 : 0);
}

// Half a second before midnight, and half as far on as its fraction says; none for other times.
QTime leapSecond(const std::string& sentence) {
  const std::string written = ",235960";
  const std::size_t start = sentence.find(written);
  if (start == std::string::npos) return {};
  const QString fraction =
      '0' + QString::fromLatin1(sentence.c_str() + start + written.size()).section(',', 0, 0);
  return QTime(23, 59, 59, 500).addMSecs(static_cast<int>(fraction.toDouble() * 500));
}

}  // namespace

bool NmeaReader::parsePosInfoFromNmeaData(const char* data, int size, QGeoPositionInfo* position,
                                          bool* hasFix) {
  std::string line(data, static_cast<std::size_t>(size));
  const std::size_t start = line.rfind('$');
  if (start == std::string::npos || !parse(line.substr(start), position, hasFix)) return false;
  QDateTime time = position->timestamp();
  if (const QTime leap = leapSecond(line); leap.isValid()) time = utc(time.date(), leap);
  if (!time.time().isValid()) return true;
  if (!time.date().isValid()) time = dated(time);
  position->setTimestamp(time.date().isValid() ? goingOn(time) : time);
  return true;
}

bool NmeaReader::parse(std::string sentence, QGeoPositionInfo* position, bool* hasFix) {
  const bool hasChecksum = sentence.find('*') != std::string::npos;
  if (!hasChecksum) {
    if (sendsChecksums_) return false;
    sentence.erase(sentence.find_last_not_of("\r\n") + 1);
    sentence += checksumOf(sentence) + "\r\n";
  }
  if (!QNmeaPositionInfoSource::parsePosInfoFromNmeaData(
          sentence.data(), static_cast<int>(sentence.size()), position, hasFix)) {
    return false;
  }
  sendsChecksums_ = sendsChecksums_ || hasChecksum;
  return true;
}

QDateTime NmeaReader::dated(const QDateTime& time) {
  if (last_.isValid()) return nearest(time.time(), last_);
  if (!undated_) undated_ = time.time();
  if (undated_ == time.time()) return time;
  return nearest(time.time(), QDateTime::currentDateTimeUtc());
}

QDateTime NmeaReader::goingOn(const QDateTime& time) {
  const qint64 ahead = ahead_.empty() ? 0 : ahead_.rbegin()->second;
  const qint64 back = last_.isValid() ? time.msecsTo(last_) : 0;
  last_ = time;
  if (back <= kSettling) return time.addMSecs(ahead);
  const qint64 more = ahead + back + kSettling;
  ahead_[time.addMSecs(more)] = more;
  // What was told before may not have come yet.
  if (ahead_.size() > 2) ahead_.erase(ahead_.begin());
  return time.addMSecs(more);
}

QGeoPositionInfo NmeaReader::asSaid(QGeoPositionInfo position) const {
  const auto next = ahead_.upper_bound(position.timestamp());
  if (next != ahead_.begin()) {
    position.setTimestamp(position.timestamp().addMSecs(-std::prev(next)->second));
  }
  return position;
}

}  // namespace wayfell
