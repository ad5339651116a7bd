// Positions among the words of a command line: which words belong together.
//
// A word that is a position by itself is never joined with others. Words that could be joined in
// several ways are refused. The functions throw std::invalid_argument as readPosition does.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "hosts/places/PositionReader.h"

namespace wayfell {

/// All words are one position.
CLLocationCoordinate2D onePosition(const std::vector<std::string>& words,
                                   const PositionNotation& notation);

/// The first words are a position, and the others are another.
std::pair<CLLocationCoordinate2D, CLLocationCoordinate2D> twoPositions(
    const std::vector<std::string>& words, const PositionNotation& notation);

/// Each word is a position, or each two are, or all are one.
std::vector<CLLocationCoordinate2D> allPositions(const std::vector<std::string>& words,
                                                 const PositionNotation& notation);

}  // namespace wayfell
