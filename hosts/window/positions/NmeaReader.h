// Qt's reader of NMEA 0183, for what receivers really say. Besides what Qt takes:
//   - a sentence after other bytes, and, from receivers that never send one, without a checksum;
//   - times without a date: the day that fits to what was told before, or the machine's when a
//   whole
//     instant has passed without a date (receivers that tell GLL or GGA alone);
//   - a leap second, 23:59:60, which is pressed into the second half of the second before;
//   - times that go back, as when a clock is put right, which Qt would pass over until they have
//     caught up: it is told times that go on, and asSaid() makes them the receiver's again.
#pragma once

#include <QDateTime>
#include <QNmeaPositionInfoSource>
#include <map>
#include <optional>
#include <string>

namespace wayfell {

class NmeaReader : public QNmeaPositionInfoSource {
 public:
  NmeaReader() : QNmeaPositionInfoSource(RealTimeMode) {}

  /// A position that was told of, with the time that the receiver said.
  QGeoPositionInfo asSaid(QGeoPositionInfo position) const;

 protected:
  bool parsePosInfoFromNmeaData(const char* data, int size, QGeoPositionInfo* position,
                                bool* hasFix) override;

 private:
  bool parse(std::string sentence, QGeoPositionInfo* position, bool* hasFix);
  QDateTime dated(const QDateTime& time);
  QDateTime goingOn(const QDateTime& time);

  bool sendsChecksums_ = false;
  std::optional<QTime> undated_;       // the first time without a date, while there is none
  QDateTime last_;                     // as the receiver said it
  std::map<QDateTime, qint64> ahead_;  // milliseconds that Qt is told more from each time on
};

}  // namespace wayfell
