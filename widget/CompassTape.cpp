#include "widget/CompassTape.h"

#include "platform/NSBundle.h"

namespace wayfell {
namespace {

// From the first N (or 0) to the second is one turn, kTapePointsPerTurn. The degree tape's two
// halves differ by one dot: the spacing is matched to how the tape slides.
constexpr std::string_view kMilsTape =
    "...5600......0.......800....1600....2400...3200...4000...4800....5600......0.......800...."
    "1600."
    "...2400...3200...4000.....";
constexpr std::string_view kDegreeTape = textKey(
    // Translators: the tape slides under a mark. Change the letters only, one for one; keep these
    // where the script runs from right to left, which would reorder the numbers.
    "...315.......N........45........E.......135.......S.......225.......W......315.......N........"
    "45.......E.......135.....");

}  // namespace

std::string_view compassTape(bool mils) { return mils ? kMilsTape : localized(kDegreeTape); }

}  // namespace wayfell
