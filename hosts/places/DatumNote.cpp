#include "hosts/places/DatumNote.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "datums/Catalogue.h"
#include "datums/DatumManager.h"
#include "platform/NSBundle.h"
#include "settings/UserDefaults.h"

namespace wayfell {

std::string datumNote(std::string_view datum) {
  const DatumManager& manager = DatumManager::sharedInstance();
  const auto& names = manager.datumAndRegions();
  const auto found = std::find(names.begin(), names.end(), datum);
  if (found == names.end() || !(manager.getAxisFromDatum(datum) > 0)) return "";
  const double listed = kDatums[static_cast<std::size_t>(found - names.begin())].dz;
  const double leftOut = std::abs(listed - manager.getDzFromDatum(datum));
  if (leftOut == 0) return "";
  return localizedStringWithFormat("%@: shifted without dz, up to %0.0f m off", *found,
                                   std::ceil(leftOut));
}

std::string selectedDatumNote() {
  return datumNote(UserDefaults::checkStringDefaults("selectedDatum").value_or(""));
}

}  // namespace wayfell
