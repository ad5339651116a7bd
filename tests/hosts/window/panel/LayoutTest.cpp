// Where things stand: at every width, in every layout and language, nothing is cut or covered.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QJSValue>
#include <cmath>
#include <map>

#include "ShownPanel.h"

namespace wayfell {
namespace {

using Texts = std::map<std::string, std::string, std::less<>>;

struct Language {
  const char* name;
  bool rightToLeft;
  Texts texts;
};

const Language kLanguages[] = {
    {"English", false, {}},
    {"German",
     false,
     {{"Latitude\nLongitude", "Breitengrad\nLängengrad"},
      {"Altitude", "Höhe über Meer"},
      {"Pace", "Lauftempo"},
      {"Distance", "Entfernung"},
      {"Time", "Dauer der Spur"},
      {"ETA", "Ankunft in"},
      {"Open", "Öffnen"},
      {"Dec", "Dezimal"},
      {"%d hr %d m", "%d Std. %d Min."}}},
    {"Arabic",
     true,
     {{"Latitude\nLongitude", "خط العرض\nخط الطول"},
      {"Altitude", "الارتفاع"},
      {"Pace", "الوتيرة"},
      {"Distance", "المسافة"},
      {"ETA", "الوصول"},
      {"Open", "فتح"}}},
};

// A widget that shows the longest texts there are: slow, far away, on a long track.
void fill(ReplayedWidget& widget, const Language& language) {
  for (const auto& [key, text] : language.texts) widget.host().strings.translations[key] = text;
  widget.host().geocoder.answer = CLPlacemark{CNPostalAddress{
      "Rindfleischetikettierungsüberwachungsstraße 1234 b, Hinterhaus",
      "Llanfairpwllgwyngyllgogerychwyrndrobwllllantysiliogogogoch", "Sachsen-Anhalt"}};
  widget.apply(event::WriteSuite{{{"units", PropertyValue(2)},
                                  {"speed", PropertyValue(1)},
                                  {"useMils", PropertyValue(true)},
                                  {"hasWaypoint", PropertyValue(true)},
                                  {"waypointLatitude", PropertyValue(40.0)},
                                  {"waypointLongitude", PropertyValue(-100.0)},
                                  {"distance", PropertyValue(12345678.9)},
                                  {"time", PropertyValue(3599999.0)}}});
  widget.start();
  widget.apply(event::Locate{{CLLocation{{-46.98274, -127.94186}, 12345, 5, 5, -1, -1, {}}}});
  widget.apply(event::Turn{{355, 0, 1}});
}

std::vector<QQuickItem*> visibleTexts(const ShownPanel& panel) {
  std::vector<QQuickItem*> texts;
  for (QQuickItem* item : panel.items()) {
    if (item->inherits("QQuickText") && item->isVisible() &&
        !item->property("text").toString().isEmpty()) {
      texts.push_back(item);
    }
  }
  return texts;
}

QRectF placeOf(const QQuickItem& item, const QQuickItem& within) {
  return item.mapRectToItem(&within, QRectF({0, 0}, item.size()));
}

double pixelSize(const QQuickItem& text) {
  return text.property("fontInfo").value<QJSValue>().property("pixelSize").toNumber();
}

// Values have letters of 11 points at least, whatever else is to be read 9.
double leastSize(const QQuickItem& text) {
  const bool isValue = text.property("caption").isValid() && !text.property("caption").toBool() &&
                       text.parentItem()->objectName() != "open";
  return isValue ? 11 : 9;
}

void expectNothingCut(ShownPanel& panel) {
  panel.draw();
  const auto texts = visibleTexts(panel);
  ASSERT_GE(texts.size(), 5U);
  for (const QQuickItem* text : texts) {
    SCOPED_TRACE(text->objectName().toStdString() + ": " +
                 text->property("text").toString().toStdString());
    const QRectF allowed = text->parentItem()->boundingRect().adjusted(-0.01, -0.01, 0.01, 0.01);
    EXPECT_TRUE(allowed.contains(placeOf(*text, *text->parentItem())));
    EXPECT_TRUE(panel.root().boundingRect().contains(placeOf(*text, panel.root())));
    EXPECT_GE(pixelSize(*text), std::floor(leastSize(*text) * panel.style().unit()));
    EXPECT_LE(text->property("contentWidth").toDouble(), text->width() + 0.5);
    EXPECT_LE(text->property("contentHeight").toDouble(), text->height() + 1);
    const bool mayEndEarly = text->objectName() == "address" || text->objectName() == "hostTitle" ||
                             text->property("caption").toBool();
    EXPECT_TRUE(mayEndEarly || !text->property("truncated").toBool());
    for (const QQuickItem* other : texts) {
      if (other == text) continue;
      EXPECT_FALSE(placeOf(*text, panel.root()).intersects(placeOf(*other, panel.root())))
          << "covers " << other->objectName().toStdString();
    }
  }
}

// A coordinate is never broken, and a reference only at its blanks.
void expectWholePosition(ShownPanel& panel) {
  QStringList lines;
  for (const QQuickItem* text : visibleTexts(panel)) {
    if (text->parentItem()->parentItem()->objectName() != "position") continue;
    if (text->property("caption").toBool()) continue;
    EXPECT_EQ(text->property("lineCount").toInt(), 1);
    lines.append(text->property("value").toString());
  }
  const bool isReference = panel.adapter().format() > 2;
  panel.adapter().copyPosition();
  EXPECT_EQ(lines.join(isReference ? " " : ", "), QGuiApplication::clipboard()->text());
}

void expectRowsOfOneSize(ShownPanel& panel) {
  std::map<double, double> sizes;
  for (const QQuickItem* text : visibleTexts(panel)) {
    if (!text->objectName().endsWith("Value")) continue;
    const double row = placeOf(*text, panel.root()).top();
    EXPECT_EQ(sizes.emplace(row, pixelSize(*text)).first->second, pixelSize(*text));
  }
  EXPECT_LE(sizes.size(), 2U);
}

class Layout : public testing::TestWithParam<std::size_t> {};

TEST_P(Layout, NothingIsCutOrCovered) {
  const Language& language = kLanguages[GetParam()];
  ReplayedWidget widget;
  fill(widget, language);
  ShownPanel panel(widget);
  panel.style().setRightToLeft(language.rightToLeft);
  for (const double height : {286.0, 78.0}) {
    for (const double width : {280.0, 359.0, 600.0}) {
      for (const double fontScale : {1.0, 2.0}) {
        panel.resize(width);
        panel.style().setFontScale(fontScale);
        for (int format = 0; format < 5; ++format) {
          SCOPED_TRACE(testing::Message() << language.name << " " << width << " x " << height
                                          << ", fonts x " << fontScale << ", format " << format);
          panel.adapter().pickFormat(format);
          EXPECT_EQ(panel.root().height(), std::round(height * panel.style().unit()));
          expectNothingCut(panel);
          expectWholePosition(panel);
          expectRowsOfOneSize(panel);
        }
      }
    }
    panel.adapter().switchLayout();
  }
}

INSTANTIATE_TEST_SUITE_P(Languages, Layout, testing::Range<std::size_t>(0, std::size(kLanguages)),
                         [](const auto& language) { return kLanguages[language.param].name; });

TEST(PanelLayout, ShowsWhatThereIs) {
  ReplayedWidget widget;
  fill(widget, kLanguages[0]);
  ShownPanel panel(widget);
  const char* const names[] = {"corner",    "open",    "trackTimeValue", "compass",
                               "tapeFrame", "address", "waypointArrow",  "waypointDistanceValue"};
  const auto seen = [&] {
    std::size_t count = 0;
    while (count < std::size(names) && panel.item(names[count]).isVisible()) ++count;
    return count;
  };
  EXPECT_EQ(seen(), 8U);
  panel.adapter().switchLayout();
  EXPECT_EQ(seen(), 3U);
  widget.apply(event::WriteSuite{{{"hasWaypoint", PropertyValue(false)}}});
  panel.adapter().switchLayout();
  EXPECT_EQ(seen(), 6U);
}

TEST(HostLine, HasRoomForAllItSays) {
  ReplayedWidget widget;
  widget.start();
  for (const double width : {280.0, 359.0, 600.0}) {
    ShownPanel line(widget, width, "HostLine");
    line.scene().said = {Scene::Kind::replay,
                         "a-long-walk-over-the-hills-and-back-again.gpx",
                         "12:05:00  angehalten, wartet auf den Empfänger  ×0.1",
                         "Vorführung: nicht Ihre Position, und die letzte ist 3600 Sekunden alt",
                         {},
                         {}};
    line.scene().failed =
        "line 1234: the number of satellites in \"used\" is no whole number: \"many\"";
    for (const double fontScale : {1.0, 2.0}) {
      SCOPED_TRACE(testing::Message() << width << ", fonts x " << fontScale);
      line.style().setFontScale(fontScale);
      expectNothingCut(line);
    }
    const double height = line.root().height();
    line.scene().failed.reset();
    line.draw();
    EXPECT_LT(line.root().height(), height);
    EXPECT_FALSE(line.item("hostMessage").isVisible());
  }
}

TEST(PanelLayout, MirrorsAllButTheTape) {
  ReplayedWidget widget;
  fill(widget, kLanguages[2]);
  ShownPanel panel(widget);
  const auto place = [&](const char* name) { return placeOf(panel.item(name), panel.root()); };
  const char* const names[] = {"corner",           "position", "tapeFrame",      "open",   "speed",
                               "waypointDistance", "altitude", "trackTimeValue", "format0"};
  std::map<const char*, double> starts;
  for (const char* name : names) starts[name] = place(name).left();
  const double tape = panel.item("tape").x();
  panel.style().setRightToLeft(true);
  for (const char* name : names) EXPECT_EQ(359 - place(name).right(), starts[name]) << name;
  EXPECT_EQ(panel.item("tape").x(), tape);
}

}  // namespace
}  // namespace wayfell
