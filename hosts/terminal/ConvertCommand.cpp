// `wayfell convert`: positions, however they are written, into the texts of all formats.
#include <poll.h>
#include <unistd.h>

#include <cstddef>
#include <memory>
#include <stdexcept>

#include "datums/Catalogue.h"
#include "hosts/places/DatumNote.h"
#include "hosts/places/PositionText.h"
#include "hosts/places/PositionWords.h"
#include "hosts/terminal/Commands.h"
#include "hosts/terminal/DatumChoice.h"
#include "hosts/terminal/Output.h"
#include "hosts/terminal/Progress.h"
#include "hosts/terminal/UserNotation.h"
#include "hosts/text/InputBytes.h"
#include "hosts/text/InputError.h"
#include "hosts/text/JsonWriter.h"
#include "hosts/text/LineReader.h"
#include "hosts/text/TextScanner.h"
#include "hosts/text/TextWidth.h"
#include "platform/SimulatedHost.h"

namespace wayfell {
namespace {

constexpr const char* kConvertMore =
    "Positions come from the arguments, or without any from standard input, one a\n"
    "line; # begins a comment. A line that cannot be read is complained about, and the\n"
    "rest goes on. Several arguments are a position each, if they can be, or else\n"
    "each two are, or all together are one.\n"
    "\n"
    "Whatever is printed is read: degrees with a fraction, with minutes or with\n"
    "seconds, on WGS 84, latitude first unless letters say otherwise; UTM and MGRS\n"
    "references; and geo: URIs.\n"
    "\n"
    "In UTM texts a zone is followed by its hemisphere, N or S, or by the letter of a\n"
    "latitude band; with --utm-type 1, N and S are bands as well.\n"
    "\n"
    "Examples:\n"
    "  wayfell convert 48.2082 16.3738\n"
    "  wayfell convert --to mgrs -33.9 18.4\n"
    "  wayfell convert --to utm --datum 'Adindan---Sudan' 15.6N 32.5E\n"
    "  wayfell convert 33U XP 02065 40354\n"
    "  wayfell convert --to dms 33 N 602065.2mE 5340353.7mN\n"
    "  wayfell convert \"46° 58.8' N, 7° 56.4' E\" 46:58:48,7:56:24 geo:46.98,7.94\n"
    "  wayfell convert --to mgrs --json < positions.txt\n"
    "Exit status: 0 done, 1 some of the input is bad, 2 the command line is.";

// What the command line asks for.
struct ConvertCommand {
  std::vector<std::string> input;  // none: standard input
  // A name from kPositionFormats, or "all". Unset is all, but decimal degrees that programs read
  // if only references are asked for.
  std::optional<std::string> to;
  std::optional<std::string> from;  // "utm" or "mgrs" only; unset is however they are written
  std::optional<std::string> datum;
  int utmType = 0;  // 1: letters of UTM texts are latitude bands
  bool json = false;
};

// Formats by number; none means plain decimal degrees.
std::vector<std::size_t> formatsAskedFor(const ConvertCommand& command) {
  std::vector<std::size_t> formats;
  if (!command.to && command.from) return formats;
  for (std::size_t i = 0; i < kPositionFormats.size(); ++i) {
    if (command.to.value_or("all") == "all" || command.to == kPositionFormats[i]) {
      formats.push_back(i);
    }
  }
  return formats;
}

class Converter {
 public:
  explicit Converter(const ConvertCommand& command)
      : command_(command),
        formats_(formatsAskedFor(command)),
        columns_(outputColumns()),
        labelled_(command.to.value_or("all") == "all") {}

  /// Throws std::invalid_argument when the format asked for cannot show it.
  void print(const CLLocationCoordinate2D& position) {
    if (command_.json) {
      output_.line(json(position));
    } else if (formats_.empty()) {
      output_.line(plainPosition(position));
    } else if (labelled_) {
      printAll(position);
    } else {
      output_.line(text(position, formats_.front()));
    }
  }

  Output& output() { return output_; }

 private:
  static std::string text(const CLLocationCoordinate2D& position, std::size_t format) {
    if (auto text = positionText(position, format)) return *text;
    throw std::invalid_argument(plainPosition(position) + " has no " +
                                std::string(kPositionFormats[format]) + " text");
  }

  std::string json(const CLLocationCoordinate2D& position) const {
    JsonWriter line;
    line.beginObject();
    line.member("latitude", position.latitude).member("longitude", position.longitude);
    for (const std::size_t format : formats_) {
      line.member(kPositionFormats[format], positionText(position, format));
    }
    return line.endObject().text();
  }

  // A block of labelled lines. On a narrow terminal a pair of long coordinates takes two.
  void printAll(const CLLocationCoordinate2D& position) {
    constexpr std::size_t kLabelColumns = 6;
    constexpr std::string_view kBetween = ", ";
    if (printed_) output_.line("");
    printed_ = true;
    for (const std::size_t format : formats_) {
      std::string line(kPositionFormats[format]);
      line.resize(kLabelColumns, ' ');
      line += positionText(position, format).value_or("–");
      const std::size_t between = line.find(kBetween);
      if (columnsOf(line) > columns_ && between != std::string::npos) {
        line.replace(between, kBetween.size(), ",\n" + std::string(kLabelColumns, ' '));
      }
      output_.line(line);
    }
  }

  const ConvertCommand& command_;
  std::vector<std::size_t> formats_;
  int columns_;
  bool labelled_;
  bool printed_ = false;
  Output output_;
};

PositionNotation notationOf(const ConvertCommand& command) {
  PositionNotation notation = userNotation();
  if (command.from)
    notation.form = *command.from == "mgrs" ? PositionForm::mgrs : PositionForm::utm;
  if (command.utmType == 1) notation.utmLetters = UtmLetters::bands;
  return notation;
}

int convertArguments(const ConvertCommand& command, Converter& converter) {
  try {
    for (const auto& position : allPositions(command.input, notationOf(command))) {
      converter.print(position);
    }
  } catch (const std::invalid_argument& error) {
    converter.output().flush();
    complain(error.what());
    return kBadInput;
  }
  return kDone;
}

// What is converted so far is shown before waiting for more.
ByteSource standardInput(Output& output) {
  return [&output, read = bytesOfFile(STDIN_FILENO)](char* buffer, std::size_t size) {
    pollfd input{STDIN_FILENO, POLLIN, 0};
    if (poll(&input, 1, 0) == 0) output.flush();
    return read(buffer, size);
  };
}

void convertLine(std::string_view line, const PositionNotation& notation, Converter& converter) {
  const std::string_view text = line.substr(0, line.find('#'));
  if (!TextScanner(text).atEnd()) converter.print(readPosition(text, notation));
}

int convertLines(const PositionNotation& notation, Converter& converter) {
  const bool showsOutput = outputIsTerminal();
  if (isatty(STDIN_FILENO) != 0) {
    complainMore("reading a position a line from the keyboard; Ctrl-D ends");
  }
  std::optional<Progress> progress;
  if (!showsOutput && isatty(STDIN_FILENO) == 0) progress.emplace();
  Output& output = converter.output();
  LineReader lines(InputBytes(standardInput(output)));
  int status = kDone;
  const auto refuse = [&](const std::string& what) {
    if (showsOutput) output.flush();
    if (progress) progress->clear();
    complain(what);
    status = kBadInput;
  };
  try {
    lines.peekFirstLine(1);
    for (auto line = lines.next(); line && output.ok(); line = lines.next()) {
      try {
        convertLine(*line, notation, converter);
      } catch (const std::invalid_argument& error) {
        refuse("line " + std::to_string(lines.number()) + ": " + error.what());
      }
      if (progress) {
        progress->reach(
            [&lines] { return "converted " + std::to_string(lines.number()) + " lines"; });
      }
    }
  } catch (const InputError& error) {
    refuse(std::string("standard input: ") + error.what());
  }
  return status;
}

int convert(const ConvertCommand& command) {
  SimulatedHost host;
  host.local.set("utmType", PropertyValue(command.utmType));
  if (command.datum) {
    const auto datum = chosenDatum(*command.datum);
    if (!datum) return kBadUsage;
    host.local.set("selectedDatum", PropertyValue(*datum));
    if (const std::string note = selectedDatumNote(); !note.empty()) complain(note);
  }
  Converter converter(command);
  const int status = command.input.empty() ? convertLines(notationOf(command), converter)
                                           : convertArguments(command, converter);
  return converter.output().finish(status);
}

}  // namespace

Command convertCommand() {
  const auto command = std::make_shared<ConvertCommand>();
  Words formats = wordsOf(kPositionFormats);
  formats.push_back({"all"});
  return {.name = "convert",
          .help = "Shows positions in other formats",
          .more = kConvertMore,
          .options = {{"POSITION", kPositionHelp, &command->input},
                      {"--to", "Format: dec, dm, dms, mgrs, utm or all (if none)", &command->to,
                       "FORMAT", formats},
                      {"--from",
                       "Read only references: utm or mgrs",
                       &command->from,
                       "FORMAT",
                       {{"utm"}, {"mgrs"}}},
                      {.name = "--datum",
                       .help = "Datum of texts and references; WGS 84 if none",
                       .target = &command->datum,
                       .value = "NAME",
                       .offered =
                           [](const auto& /*before*/) {
                             Words names;
                             for (const CatalogueDatum& each : kDatums) {
                               names.push_back({std::string(each.name)});
                             }
                             return names;
                           }},
                      {"--utm-type",
                       "Letters: 0 hemispheres (if none), 1 bands",
                       &command->utmType,
                       "TYPE",
                       {{"0", "hemispheres"}, {"1", "latitude bands"}}},
                      jsonOption(command->json)},
          .run = [command] { return convert(*command); }};
}

}  // namespace wayfell
