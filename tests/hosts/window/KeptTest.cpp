// What the window keeps between two runs.
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "hosts/window/Theme.h"
#include "hosts/window/WindowMemory.h"

namespace wayfell {
namespace {

class Kept : public testing::Test {
 protected:
  std::unique_ptr<SqliteStore> open() const {
    return std::make_unique<SqliteStore>(folder.filePath("widget.db").toStdString(),
                                         SqliteStore::Access::readWrite, turnOfEachRead(),
                                         [](const std::string& warning) { FAIL() << warning; });
  }
  QTemporaryDir folder;
};

TEST_F(Kept, PlaceAndWidthAreThereNextTime) {
  EXPECT_FALSE(WindowMemory(open().get()).place());
  WindowMemory(open().get()).keep(QPoint(-20, 300), 400);
  // Where windows do not know their place, the last known one stays.
  WindowMemory(open().get()).keep(std::nullopt, 500);
  EXPECT_EQ(WindowMemory(open().get()).place(), QPoint(-20, 300));
  EXPECT_EQ(WindowMemory(open().get()).width(), 500);
}

TEST_F(Kept, WhatMakesNoSenseWasNeverKept) {
  const auto store = open();
  WindowMemory memory(store.get());
  memory.keep(QPoint(1, 2), 300);
  for (const PropertyValue& nonsense :
       {PropertyValue("left"), PropertyValue(1.5), PropertyValue(100000), PropertyValue(true)}) {
    store->set("hostWindowLeft", nonsense);
    store->set("hostWindowWidth", nonsense);
    EXPECT_FALSE(memory.place());
    EXPECT_FALSE(memory.width());
  }
}

TEST_F(Kept, WithoutAStoreNothingIsAndNothingFails) {
  WindowMemory memory(nullptr);
  memory.keep(QPoint(1, 2), 300);
  memory.keepTheme("light");
  EXPECT_FALSE(memory.place());
  EXPECT_FALSE(memory.theme());
}

TEST_F(Kept, TheLookIsTheLastChosenOne) {
  PanelStyle style;
  const auto themeAfter = [&](const std::string& wished, int changes) {
    const auto store = open();
    WindowMemory memory(store.get());
    Theme theme(style, memory, wished);
    for (int i = 0; i < changes; ++i) theme.next();
    return theme.name();
  };
  EXPECT_EQ(themeAfter("", 0), "dark");
  EXPECT_EQ(themeAfter("", 2), "sunlight");
  EXPECT_EQ(themeAfter("", 0), "sunlight");
  EXPECT_EQ(themeAfter("light", 0), "light");
  EXPECT_EQ(style.theme(), PanelStyle::light);
  EXPECT_EQ(themeAfter("", 3), "dark");  // all the way round
  open()->set("hostWindowTheme", "pink");
  EXPECT_EQ(themeAfter("", 0), "dark");
}

}  // namespace
}  // namespace wayfell
