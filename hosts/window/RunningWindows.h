// The windows of this program that a display has, so that nobody gets one twice by chance.
//
// Each listens on a socket in $XDG_RUNTIME_DIR, wayfell-widget-DISPLAY-NUMBER, and tells who asks
// there whether it is the same. A socket that nobody listens on any more is taken away. Without
// that folder windows do not know of each other.
#pragma once

#include <QByteArray>
#include <QLocalServer>
#include <QString>
#include <functional>

namespace wayfell {

class RunningWindows {
 public:
  using Handler = std::function<void(const QByteArray& activationToken)>;

  /// `identity`: what makes a window the same as another. Asks the others, each for a second at
  /// most, and then listens unless one of them is the same.
  explicit RunningWindows(const QByteArray& identity);

  /// There is the same window, and it has been told to come to the front.
  bool hasSame() const { return hasSame_; }
  /// The least number, from 0, that no other window has.
  int number() const { return number_; }
  /// To be called when somebody asks for the same window. The token, if any, is what the one who
  /// asks may become active by on Wayland.
  void onAsked(Handler handler) { asked_ = std::move(handler); }

 private:
  void askOthers(const QString& folder);
  void answer(QLocalSocket& socket) const;

  QByteArray identity_;  // a hash
  bool hasSame_ = false;
  int number_ = 0;
  QLocalServer server_;
  Handler asked_;
};

}  // namespace wayfell
