// What the panel means: which layout it has, and what each row of it says. Hosts show this and
// look at no view themselves.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/panel/WidgetInterface.h"

namespace wayfell {

/// In reading order.
enum class PanelRow {
  compass,  ///< no text: where north is, and the waypoint
  heading,
  position,
  zone,  ///< beside or below the position; mostly empty
  altitude,
  speed,  ///< or the pace; its caption tells which
  waypointDistance,
  eta,
  trackTime,
  trackDistance,
  address,
  formats,  ///< no text: see PanelReading::formats
  open,
  layout,  ///< no text: the button that switches the layout
};
inline constexpr std::size_t kPanelRows = static_cast<std::size_t>(PanelRow::layout) + 1;

/// What of that which the panel shows is fresh. The rest is shown dim, whatever its text says.
struct Freshness {
  bool fix = true;
  bool heading = true;
  bool moving = true;  ///< nobody arrives who stands still, whatever the time of arrival says
  friend bool operator==(const Freshness&, const Freshness&) = default;
};

struct PanelReading {
  struct Row {
    bool shown = true;
    /// Empty for what has none. The position's has a line for each of two coordinates.
    std::string caption;
    /// As the label has it, blanks at the ends included; the position's two coordinates have a
    /// line each.
    std::string value;
    bool bold = false;
    bool centered = false;
    double fontSize = 0;  ///< points, if the widget has set one; 0 for the host to choose
    bool dim = false;     ///< old, or not known yet
    friend bool operator==(const Row&, const Row&) = default;
  };

  const Row& operator[](PanelRow row) const { return rows[static_cast<std::size_t>(row)]; }
  Row& operator[](PanelRow row) { return rows[static_cast<std::size_t>(row)]; }

  /// Whether each line of the position's caption names the line of the value beside it. A grid
  /// reference is one line, of parts with a blank between them, and the caption stands apart.
  bool captionNamesLines = true;

  bool compact = false;
  double height = 0;  ///< points: 78 compact, 286 expanded
  std::array<Row, kPanelRows> rows;

  std::string tape;       ///< readTape() takes it apart
  double tapeOffset = 0;  ///< points, to the right
  bool markShown = true;
  /// Degrees clockwise from up, for someone who looks along the heading. The waypoint's is none
  /// where there is no waypoint or the way to it is not known yet.
  double north = 0;
  bool northDim = false;
  std::optional<double> waypoint;
  bool waypointDim = false;

  std::vector<std::string> formats;
  int format = UISegmentedControl::kNoSegment;  ///< none for a number that no format has
  double layoutTurn = 0;  ///< degrees, clockwise, by which the layout's button is turned

  CALayer tapeFrame;
  CALayer openPlate;

  friend bool operator==(const PanelReading&, const PanelReading&) = default;
};

/// How many arguments of the format that has printed a position are the latitude's; as many follow
/// for the longitude. 0 for what is no pair of coordinates.
std::size_t latitudeArguments(std::string_view key);

/// Whether the panel is in its compact layout.
bool isCompact(const WidgetInterface& interface);

/// The label of a row's value in the present layout; null for a row without a text.
const UILabel* valueLabel(const WidgetInterface& interface, PanelRow row);

/// The way to the waypoint for someone who looks along the heading that the tape shows, in degrees
/// clockwise from up; none where there is no waypoint or the way to it is not known yet.
std::optional<double> waypointDirection(const WidgetInterface& interface);

PanelReading readPanel(const WidgetInterface& interface, const Freshness& fresh = {});

}  // namespace wayfell
