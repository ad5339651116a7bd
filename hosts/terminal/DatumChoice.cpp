#include "hosts/terminal/DatumChoice.h"

#include <cstddef>
#include <vector>

#include "datums/DatumManager.h"
#include "hosts/places/DatumSearch.h"
#include "hosts/terminal/Output.h"
#include "hosts/text/TextScanner.h"

namespace wayfell {
namespace {

void suggest(const DatumSearch& search, std::string_view name) {
  constexpr std::size_t kMost = 5;
  const auto near = search.near(name);
  if (near.empty()) {
    complainMore("\"wayfell datums\" lists all that there are");
    return;
  }
  complainMore("did you mean");
  for (std::size_t i = 0; i < near.size() && i < kMost; ++i) {
    complainMore("  " + DatumManager::sharedInstance().datumAndRegions()[near[i]]);
  }
  if (near.size() > kMost) {
    complainMore("or one of " + std::to_string(near.size() - kMost) +
                 " more? \"wayfell datums WORDS\" searches them all");
  }
}

void listRegions(std::string_view name, const std::vector<std::size_t>& datums) {
  complain(inQuotes(name) + " is several datums; name one of");
  for (const std::size_t number : datums) {
    complainMore("  " + DatumManager::sharedInstance().datumAndRegions()[number]);
  }
}

}  // namespace

std::optional<std::string> chosenDatum(std::string_view name) {
  const DatumSearch search;
  const auto named = search.named(name);
  if (named.size() > 1) {
    listRegions(name, named);
    return std::nullopt;
  }
  if (named.empty()) {
    complain("there is no datum " + inQuotes(name));
    suggest(search, name);
    return std::nullopt;
  }
  const DatumManager& manager = DatumManager::sharedInstance();
  const std::string& datum = manager.datumAndRegions()[named.front()];
  if (manager.getAxisFromDatum(datum) > 0) return datum;
  complain("the datum " + inQuotes(datum) + " cannot be used: its ellipsoid, " +
           inQuotes(manager.getEllipsoidFromDatum(datum).value_or("")) +
           ", is not in the catalogue");
  return std::nullopt;
}

}  // namespace wayfell
