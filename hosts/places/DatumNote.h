// What the shift to a datum leaves out.
#pragma once

#include <string>
#include <string_view>

namespace wayfell {

/// "Tokyo---Japan: shifted without dz, up to 685 m off", in the user's language. Conversions apply
/// dx and dy of a datum but never dz, which moves positions by dz cos(latitude), north or south: up
/// to dz. Empty for a datum that has no dz, that the catalogue lacks, or that nothing converts to.
std::string datumNote(std::string_view datum);

/// That of the setting "selectedDatum".
std::string selectedDatumNote();

}  // namespace wayfell
