// The one place where what somebody has written becomes a position. It reads degrees in all
// spellings (DegreesText.h), UTM and MGRS references (ReferenceText.h) and geo URIs (GeoUri.h), so
// everything that positionText prints, behind the label of its format or without one.
//
// Degrees and URIs are on WGS 84, references on the selected datum.
#pragma once

#include <string_view>

#include "hosts/places/DegreesText.h"
#include "hosts/places/ReferenceText.h"
#include "platform/CLLocation.h"

namespace wayfell {

enum class PositionForm { any, utm, mgrs };

/// What a text alone does not tell.
struct PositionNotation {
  PositionForm form = PositionForm::any;
  UtmLetters utmLetters = UtmLetters::hemispheres;
  HemisphereLetters hemispheres = {};
};

/// The position that a text holds, and nothing else. Throws std::invalid_argument, whose text says
/// what is wrong and how a position is written.
CLLocationCoordinate2D readPosition(std::string_view text, const PositionNotation& notation);

}  // namespace wayfell
