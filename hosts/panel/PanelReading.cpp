#include "hosts/panel/PanelReading.h"

#include <algorithm>

#include "platform/UnitFactors.h"
#include "widget/CompassTape.h"

namespace wayfell {
namespace {

struct Labels {
  const UILabel* value = nullptr;
  const UILabel* caption = nullptr;
};

Labels labelsOf(const PanelViews& views, PanelRow row, bool compact) {
  switch (row) {
    case PanelRow::heading:
      return {&views.headingLabel};
    case PanelRow::position:
      return {&views.userCoordinateLabel, &views.latLongLabel};
    case PanelRow::zone:
      return {&views.utmZoneLabel};
    case PanelRow::altitude:
      return {&views.altitudeLabel, &views.altitudeNameLabel};
    case PanelRow::speed:
      return {&views.speedLabel, &views.speedNameLabel};
    case PanelRow::waypointDistance:
      return {&views.waypointDistanceLabel, &views.waypointDistanceNameLabel};
    case PanelRow::eta:
      return {&views.etaLabel, &views.etaNameLabel};
    case PanelRow::trackTime:
      if (compact) return {&views.miniTimeLabel, &views.miniTimeNameLabel};
      return {&views.timeLabel, &views.timeNameLabel};
    case PanelRow::trackDistance:
      if (compact) return {&views.miniDistanceLabel, &views.miniDistanceNameLabel};
      return {&views.distanceLabel, &views.distanceNameLabel};
    case PanelRow::address:
      return {&views.addressLabel};
    case PanelRow::open:
      return {compact ? &views.openMiniLabel : &views.openLabel};
    case PanelRow::compass:
    case PanelRow::formats:
    case PanelRow::layout:
      break;
  }
  return {};
}

// The compact layout has no room for the compass, the waypoint and the address.
bool isShown(const PanelViews& views, PanelRow row, bool compact) {
  switch (row) {
    case PanelRow::compass:
      return !views.compassRotatingView.hidden();
    case PanelRow::position:
    case PanelRow::zone:
      return !views.dataView.hidden();
    case PanelRow::waypointDistance:
    case PanelRow::eta:
      return !compact && !views.waypointDataView.hidden();
    case PanelRow::heading:
    case PanelRow::address:
      return !compact;
    default:
      return true;
  }
}

std::string textOf(const UILabel* label) {
  if (!label || label->hidden() || !label->text()) return {};
  return *label->text();
}

// Latitude and longitude, which come as one text: up to the end of what the last of the latitude's
// arguments has printed, and from the longitude's first on.
std::string onTwoLines(const FormattedText& position) {
  const std::string_view text = position;
  const FormattedText::Piece whole = position.whole();
  const std::size_t longitude = latitudeArguments(whole.key());
  if (longitude == 0) return std::string(text);
  const std::string_view last = whole.argument(longitude - 1).text();
  const std::string_view first = whole.argument(longitude).text();
  const auto end = static_cast<std::size_t>(last.data() + last.size() - text.data());
  const auto begin = static_cast<std::size_t>(first.data() - text.data());
  if (begin < end) return std::string(text);  // a translation has the longitude first
  return std::string(text.substr(0, end)) + '\n' + std::string(text.substr(begin));
}

// Degrees; none before the first. A standing receiver's course is no direction: the widget turns
// the arrow by it all the same, but not the tape.
std::optional<double> shownHeading(const PanelViews& views) {
  const auto offset = views.leftConstraint.constant();
  if (!offset) return std::nullopt;
  return *offset / -kTapePointsPerTurn * 360;
}

// A course is as fresh as the fix that it came with.
bool isHeadingFresh(const PanelViews& views, const Freshness& fresh) {
  return shownHeading(views) && fresh.heading &&
         (fresh.fix || !views.compassRotatingView.compassDisplayCourse());
}

bool isDim(PanelRow row, const Freshness& fresh, bool heading) {
  switch (row) {
    case PanelRow::heading:
      return !heading;
    case PanelRow::position:
    case PanelRow::zone:
    case PanelRow::altitude:
    case PanelRow::speed:
    case PanelRow::waypointDistance:
      return !fresh.fix;
    case PanelRow::eta:
      return !fresh.fix || !fresh.moving;
    default:
      return false;
  }
}

std::ptrdiff_t lineCount(std::string_view text) {
  return std::count(text.begin(), text.end(), '\n') + 1;
}

PanelReading::Row readRow(const PanelViews& views, PanelRow row, bool compact) {
  const Labels labels = labelsOf(views, row, compact);
  PanelReading::Row read = {isShown(views, row, compact), textOf(labels.caption),
                            textOf(labels.value)};
  if (labels.value) {
    const UIFont& font = labels.value->font();
    read.bold = font.bold;
    if (font != UIFont()) read.fontSize = font.pointSize;
    read.centered = labels.value->textAlignment() == NSTextAlignment::center;
  }
  if (row == PanelRow::position && !read.value.empty()) {
    read.value = onTwoLines(*labels.value->text());
  }
  return read;
}

}  // namespace

std::size_t latitudeArguments(std::string_view key) {
  if (key == "%@, %@") return 1;
  return key == "%0.5f°%@, %0.5f°%@" ? 2 : 0;
}

// By what the layouts hide and show; before either has been applied, the panel is expanded.
bool isCompact(const WidgetInterface& interface) {
  return interface.views().trackDataView.hidden();
}

const UILabel* valueLabel(const WidgetInterface& interface, PanelRow row) {
  return labelsOf(interface.views(), row, isCompact(interface)).value;
}

std::optional<double> waypointDirection(const WidgetInterface& interface) {
  const CompassView& compass = interface.views().compassRotatingView;
  if (!compass.arrow() || compass.compassArrowView()->hidden()) return std::nullopt;
  return compass.arrow()->bearing - shownHeading(interface.views()).value_or(0);
}

PanelReading readPanel(const WidgetInterface& interface, const Freshness& fresh) {
  const PanelViews& views = interface.views();
  const bool headingFresh = isHeadingFresh(views, fresh);
  PanelReading reading;
  reading.compact = isCompact(interface);
  reading.height = interface.preferredContentSize().height;
  for (std::size_t i = 0; i < kPanelRows; ++i) {
    const PanelRow row{static_cast<int>(i)};
    reading.rows[i] = readRow(views, row, reading.compact);
    reading.rows[i].dim = isDim(row, fresh, headingFresh);
  }
  const PanelReading::Row& position = reading[PanelRow::position];
  reading.captionNamesLines =
      position.value.empty() || lineCount(position.value) == lineCount(position.caption);

  reading.tape = textOf(&views.compassLabel);
  reading.tapeOffset = views.leftConstraint.constant().value_or(0);
  reading.markShown = !views.compassArrowImageView.hidden();
  reading.north = -shownHeading(views).value_or(0);
  reading.northDim = !headingFresh;
  reading.waypoint = waypointDirection(interface);
  reading.waypointDim = !headingFresh || !fresh.fix;

  const UISegmentedControl& control = views.coordinateControl;
  for (std::size_t i = 0; i < control.numberOfSegments(); ++i) {
    reading.formats.push_back(control.titleForSegmentAtIndex(i));
  }
  reading.format = control.selectedSegmentIndex();
  reading.layoutTurn = views.toggleViewButton.transform().rotation * kDegreesPerRadian;
  reading.tapeFrame = views.compassView.layer();
  reading.openPlate = (reading.compact ? views.openMiniView : views.openView).layer();
  return reading;
}

}  // namespace wayfell
