// Tests of what stands on Qt need an application, on a platform that nobody looks at.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QGuiApplication>

namespace {

// What interface files get wrong shows at run time only, as a message.
void failOnInterfaceFaults(QtMsgType /*type*/, const QMessageLogContext& context,
                           const QString& message) {
  if (message.contains(".qml") || QString(context.file).contains(".qml")) {
    ADD_FAILURE() << message.toStdString();
  }
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  const QGuiApplication application(argc, argv);
  QAccessible::setActive(true);
  qInstallMessageHandler(failOnInterfaceFaults);
  return RUN_ALL_TESTS();
}
