#include "hosts/window/RunningWindows.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QGuiApplication>
#include <QLocalSocket>
#include <QLockFile>
#include <algorithm>
#include <utility>
#include <vector>

namespace wayfell {
namespace {

constexpr int kLongestWait = 1000;  // milliseconds, for one window or for who is starting, too
constexpr const char* kTokenVariable = "XDG_ACTIVATION_TOKEN";

enum class Answer { none, same, other };

QByteArray hashOf(const QByteArray& text) {
  return QCryptographicHash::hash(text, QCryptographicHash::Sha1).toHex();
}

// With the dash before a number.
QString nameOnThisDisplay() {
  const QByteArray display = qgetenv(
      QGuiApplication::platformName().startsWith("wayland") ? "WAYLAND_DISPLAY" : "DISPLAY");
  return QStringLiteral("wayfell-widget-") +
         hashOf(QGuiApplication::platformName().toUtf8() + display).left(8) + '-';
}

// One that takes connections but says nothing is stuck, and no less there.
Answer ask(const QString& path, const QByteArray& identity) {
  QLocalSocket socket;
  socket.connectToServer(path);
  if (!socket.waitForConnected(kLongestWait)) {
    const bool nobodyListens = socket.error() == QLocalSocket::ServerNotFoundError ||
                               socket.error() == QLocalSocket::ConnectionRefusedError;
    return nobodyListens ? Answer::none : Answer::other;
  }
  socket.write(identity + '\n' + qgetenv(kTokenVariable) + '\n');
  const QDeadlineTimer end(kLongestWait);
  while (!socket.canReadLine()) {
    if (!socket.waitForReadyRead(static_cast<int>(end.remainingTime()))) return Answer::other;
  }
  return socket.readLine() == "same\n" ? Answer::same : Answer::other;
}

}  // namespace

RunningWindows::RunningWindows(const QByteArray& identity) : identity_(hashOf(identity)) {
  const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
  if (folder.isEmpty() || !QDir(folder).exists()) return;
  // Two that start at the same time are not to miss each other.
  QLockFile starting(folder + "/wayfell-widget.lock");
  starting.tryLock(kLongestWait);
  askOthers(folder);
  if (hasSame_) return;
  QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] {
    QLocalSocket* const socket = server_.nextPendingConnection();
    QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    QObject::connect(socket, &QLocalSocket::readyRead, &server_,
                     [this, socket] { answer(*socket); });
  });
  server_.listen(folder + '/' + nameOnThisDisplay() + QString::number(number_));
}

void RunningWindows::askOthers(const QString& folder) {
  const QString name = nameOnThisDisplay();
  std::vector<int> taken;
  for (const QString& file : QDir(folder).entryList({name + '*'}, QDir::System)) {
    const QString path = folder + '/' + file;
    const Answer answer = ask(path, identity_);
    if (answer == Answer::none) {
      QFile::remove(path);
      continue;
    }
    hasSame_ = hasSame_ || answer == Answer::same;
    taken.push_back(file.mid(name.size()).toInt());
  }
  while (std::find(taken.begin(), taken.end(), number_) != taken.end()) ++number_;
}

// Two lines: who asks, and its token.
void RunningWindows::answer(QLocalSocket& socket) const {
  const QByteArray question = socket.peek(socket.bytesAvailable());
  if (question.count('\n') < 2) return;
  socket.readAll();
  const QList<QByteArray> lines = question.split('\n');
  const bool isSame = lines.at(0) == identity_;
  socket.write(isSame ? "same\n" : "other\n");
  socket.flush();
  if (isSame && asked_) asked_(lines.at(1));
}

}  // namespace wayfell
