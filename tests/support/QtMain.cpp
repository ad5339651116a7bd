// Tests of what stands on Qt need an application, on a platform that nobody looks at.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QGuiApplication>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  const QGuiApplication application(argc, argv);
  QAccessible::setActive(true);
  return RUN_ALL_TESTS();
}
