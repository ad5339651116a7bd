// `wayfell datums`: the catalogue of datums, and what a conversion to each really does.
#include <algorithm>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string_view>

#include "datums/Catalogue.h"
#include "datums/DatumManager.h"
#include "hosts/commandline/FilledText.h"
#include "hosts/places/DatumSearch.h"
#include "hosts/terminal/Commands.h"
#include "hosts/terminal/Output.h"
#include "hosts/text/JsonWriter.h"
#include "hosts/text/TextScanner.h"
#include "platform/NSString.h"
#include "platform/SimulatedHost.h"

namespace wayfell {
namespace {

constexpr const char* kDatumsMore =
    "Shows the ellipsoid and the shift to WGS 84 of each datum, and what conversions "
    "apply of it. With WORDS: of those that have them all in their names, whatever the "
    "case, blanks, hyphens and diacritics.\n"
    "\n"
    "Examples:\n"
    "  wayfell datums\n"
    "  wayfell datums tokyo japan\n"
    "  wayfell datums near 16on\n"
    "  wayfell datums --names krassovsky\n"
    "Exit status: 0 done, 1 nothing is found, 2 the command line is wrong.";

// What the command line asks for.
struct DatumsCommand {
  std::vector<std::string> words;  // all of them are looked for; none lists everything
  bool names = false;              // names alone, one a line
  bool json = false;
};

constexpr char kTie = '~';

// A row of the catalogue beside what conversions use of it.
struct Datum {
  std::string name;
  std::string ellipsoid;
  std::optional<double> axis;  // metres; none when the ellipsoid is unknown
  std::optional<double> inverseFlattening;
  double dx;  // metres, as the others; those that conversions apply
  double dy;
  double dz;
  double listedDz;
};

std::optional<double> entryOf(const DatumManager::NumberDictionary& numbers,
                              std::string_view ellipsoid) {
  const auto found = numbers.find(ellipsoid);
  return found == numbers.end() ? std::nullopt : std::optional(found->second);
}

Datum datumNumber(std::size_t number) {
  const DatumManager& manager = DatumManager::sharedInstance();
  const std::string& name = manager.datumAndRegions()[number];
  const CatalogueDatum& row = kDatums[number];
  return {name,
          std::string(row.ellipsoid),
          entryOf(manager.axisDictionary(), row.ellipsoid),
          entryOf(manager.flatteningDictionary(), row.ellipsoid),
          manager.getDxFromDatum(name),
          manager.getDyFromDatum(name),
          manager.getDzFromDatum(name),
          row.dz};
}

std::string ellipsoidText(const Datum& datum) {
  if (!datum.axis || !datum.inverseFlattening) {
    return inQuotes(datum.ellipsoid) + " is no ellipsoid of the catalogue: nothing converts";
  }
  return datum.ellipsoid + ", a~" + shortestText(*datum.axis) + "~m, 1/f~" +
         shortestText(*datum.inverseFlattening);
}

std::string shiftText(const Datum& datum) {
  std::string text = "no shift";
  if (datum.dx != 0 || datum.dy != 0) {
    text = "shift dx~" + shortestText(datum.dx) + "~m, dy~" + shortestText(datum.dy) + "~m";
  }
  if (datum.listedDz != datum.dz) {
    text += " (dz~" + shortestText(datum.listedDz) + "~m is never applied)";
  }
  return text;
}

// Where the catalogue's ellipsoid is not the one that the datum is defined on.
std::optional<std::string_view> remarkOn(const Datum& datum) {
  if (datum.name != "CGCS2000---China") return std::nullopt;
  return "defined on an ellipsoid of its own, a~6378137~m, 1/f~298.257222101, which the catalogue "
         "lacks";
}

// A tie is a blank where no line breaks.
std::string untied(std::string text) {
  std::replace(text.begin(), text.end(), kTie, ' ');
  return text;
}

class Printer {
 public:
  void print(const Datum& datum) {
    if (printed_) output_.line("");
    printed_ = true;
    output_.line(bold_ + filled(datum.name, columns_, kIndent) + plain_);
    printDetail(ellipsoidText(datum));
    if (const auto remark = remarkOn(datum)) printDetail(*remark);
    printDetail(shiftText(datum));
  }

  Output& output() { return output_; }

 private:
  static constexpr std::string_view kIndent = "    ";

  void printDetail(std::string_view text) {
    output_.line("  " + untied(filled(text, columns_, kIndent)));
  }

  static bool emphasises() {
    const char* const terminal = std::getenv("TERM");
    return outputIsTerminal() && terminal != nullptr && std::string_view(terminal) != "dumb";
  }

  int columns_ = outputColumns() - static_cast<int>(kIndent.size());
  std::string bold_ = emphasises() ? "\033[1m" : "";
  std::string plain_ = emphasises() ? "\033[0m" : "";
  bool printed_ = false;
  Output output_;
};

std::string json(const Datum& datum) {
  JsonWriter line;
  const auto shift = [&](std::string_view name, double dz) {
    line.key(name).beginObject();
    line.member("dx", datum.dx).member("dy", datum.dy).member("dz", dz).endObject();
  };
  line.beginObject().member("name", datum.name).member("ellipsoid", datum.ellipsoid);
  line.member("axis", datum.axis).member("inverseFlattening", datum.inverseFlattening);
  shift("listedShift", datum.listedDz);
  shift("appliedShift", datum.dz);
  return line.endObject().text();
}

void complainOfNothing(const DatumSearch& search, const std::string& text) {
  const auto hints = search.hints(text);
  if (hints.empty()) {
    complain("each of these words is in the catalogue, but no datum has them all");
  }
  for (const DatumSearch::Hint& hint : hints) {
    std::string meant;
    for (const std::string& word : hint.near) meant += (meant.empty() ? "" : ", ") + word;
    complain("no datum has " + inQuotes(hint.word) +
             (meant.empty() ? std::string() : "; did you mean " + meant + '?'));
  }
}

int list(const DatumsCommand& command) {
  const SimulatedHost host;
  const DatumSearch search;
  std::string text;
  for (const std::string& word : command.words) text += word + ' ';
  const auto found = search.find(text);
  if (found.empty()) {
    complainOfNothing(search, text);
    return kBadInput;
  }
  Printer printer;
  for (const std::size_t number : found) {
    const Datum datum = datumNumber(number);
    if (command.names) {
      printer.output().line(datum.name);
    } else if (command.json) {
      printer.output().line(json(datum));
    } else {
      printer.print(datum);
    }
  }
  return printer.output().finish(kDone);
}

}  // namespace

Command datumsCommand() {
  const auto command = std::make_shared<DatumsCommand>();
  return {
      .name = "datums",
      .help = "Lists and searches the datums that positions can be shown on",
      .more = kDatumsMore,
      .options = {{"WORDS", "What to look for", &command->words},
                  {"--names", "Print names only, one a line (not with --json)", &command->names},
                  jsonOption(command->json)},
      .alternatives = {"--names", "--json"},
      .run = [command] { return list(*command); }};
}

}  // namespace wayfell
