// `wayfell addresses import`: makes the address book out of files of addresses. The old book stays
// as it was unless the new one is complete.
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <memory>
#include <stdexcept>

#include "hosts/services/addresses/AddressFile.h"
#include "hosts/services/addresses/BookImport.h"
#include "hosts/services/addresses/StreetText.h"
#include "hosts/terminal/Commands.h"
#include "hosts/terminal/Output.h"
#include "hosts/terminal/Progress.h"
#include "hosts/text/InputError.h"
#include "hosts/text/InputFile.h"
#include "hosts/text/TextScanner.h"

namespace wayfell {
namespace {

constexpr const char* kImportMore =
    "FILE is CSV with the columns LON and LAT and any of NUMBER, STREET, CITY, DISTRICT,\n"
    "REGION, or GeoJSON with a Feature a line; - is standard input. The new book takes\n"
    "the place of the old one when it is complete; whatever goes wrong before, the old\n"
    "one is as it was. Rows that cannot be read are told of and left out.\n"
    "\n"
    "Examples:\n"
    "  wayfell addresses import us/dc/statewide.csv us/md/statewide.csv\n"
    "  wayfell addresses import --add --country AT wien.geojson\n"
    "  zcat berlin.csv.gz | wayfell addresses import --country DE -\n"
    "Exit status: 0 done, 1 a row is left out or nothing imported, 2 the command line\n"
    "is wrong.";

// What the command line asks for.
struct AddressImportCommand {
  std::vector<std::string> files;      // "-" is standard input
  std::optional<std::string> country;  // where all files are from; unset: after the path of each
  bool add = false;                    // keeps what the old book holds
};

constexpr std::size_t kComplaints = 5;
constexpr std::array<int, 3> kEndingSignals = {SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t endingSignal = 0;

struct Interrupted {};

// While it lives, signals that end the program end the import first. A second one ends it at once.
class Interruption {
 public:
  Interruption() {
    struct sigaction action = {};
    action.sa_handler = [](int signal) { endingSignal = signal; };
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (const int signal : kEndingSignals) {
      struct sigaction old = {};
      sigaction(signal, nullptr, &old);
      if (old.sa_handler != SIG_IGN) sigaction(signal, &action, nullptr);
    }
  }
  ~Interruption() {
    for (const int signal : kEndingSignals) {
      struct sigaction old = {};
      sigaction(signal, nullptr, &old);
      if (old.sa_handler != SIG_IGN) std::signal(signal, SIG_DFL);
    }
  }
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

  static void check() {
    if (endingSignal != 0) throw Interrupted();
  }
};

// A file that is read until the user interrupts it.
class Input {
 public:
  explicit Input(const std::string& name) : file_(name) {}

  std::size_t read(char* buffer, std::size_t size) const {
    for (;;) {
      const ssize_t count = ::read(file_.descriptor(), buffer, size);
      if (count >= 0) return static_cast<std::size_t>(count);
      if (errno != EINTR) throw InputError(std::string("cannot be read: ") + std::strerror(errno));
      Interruption::check();
    }
  }

 private:
  InputFile file_;
};

// "/home/jo" is somebody's, not Jordan's.
bool isHome(const std::filesystem::path& folder) {
  return folder.is_absolute() && folder.parent_path().filename() == "home";
}

// "us/ca/berkeley.csv" is of US: the folders that the files are published in begin with the
// country.
std::string countryOfPath(const std::string& file) {
  std::string country;
  int levels = 2;
  for (auto folder = std::filesystem::path(file).parent_path(); levels > 0; --levels) {
    const std::string name = folder.filename().string();
    if (!isCountryCode(name) || name == upperCased(name) || isHome(folder)) break;
    country = upperCased(name);
    folder = folder.parent_path();
  }
  return country;
}

std::uintmax_t sizeOfAll(const std::vector<std::string>& files) {
  std::uintmax_t size = 0;
  for (const std::string& file : files) {
    std::error_code unknown;
    const std::uintmax_t one = std::filesystem::file_size(file, unknown);
    if (unknown) return 0;
    size += one;
  }
  return size;
}

std::string counted(std::uint64_t number, const char* one, const char* many) {
  return std::to_string(number) + ' ' + (number == 1 ? one : many);
}

class Importer {
 public:
  explicit Importer(const AddressImportCommand& command)
      : command_(command),
        path_(addressBookPath()),
        import_(path_, command.add ? BookImport::Start::withOld : BookImport::Start::empty),
        kept_(import_.summary().addresses),
        bytes_(sizeOfAll(command.files)) {}

  /// Throws what its parts throw, and Interrupted.
  int run() {
    for (const std::string& file : command_.files) importFile(file);
    import_.commit();
    progress_.clear();
    tellOfLeftOut();
    return print();
  }

 private:
  void importFile(const std::string& file) {
    const std::uint64_t before = rows_;
    try {
      const Input input(file);
      const auto rows = openAddressFile(InputBytes([&](char* buffer, std::size_t size) {
        const std::size_t count = input.read(buffer, size);
        bytesRead_ += count;
        return count;
      }));
      chooseCountry(file);
      while (importRow(file, *rows)) showProgress();
    } catch (const InputError& error) {
      throw InputError(nameOf(file) + ": " + error.what());
    }
    if (rows_ == before) throw InputError(nameOf(file) + ": not one address in it");
  }

  bool importRow(const std::string& file, AddressFile& rows) {
    try {
      if (!rows.next(row_)) return false;
      if (!row_.isAddress()) {
        ++withoutStreet_;
      } else if (!(row_ == last_)) {
        // Flats of one house are rows that differ in what a book does not keep.
        import_.add(row_);
        last_ = row_;
        ++rows_;
      }
    } catch (const std::invalid_argument& error) {
      if (++bad_ <= kComplaints) {
        progress_.clear();
        complain(nameOf(file) + ':' + std::to_string(rows.line()) + ": " + error.what());
      }
    }
    Interruption::check();
    return true;
  }

  void chooseCountry(const std::string& file) {
    const std::string country = upperCased(command_.country.value_or(countryOfPath(file)));
    import_.setCountry(country);
    if (country.empty() && !toldOfOrder_) {
      complainMore(nameOf(file) +
                   ": its country is not known, so streets stand before numbers (--country)");
      toldOfOrder_ = true;
    }
  }

  void showProgress() {
    progress_.reach([this] {
      const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start_;
      const auto rate = static_cast<std::uint64_t>(static_cast<double>(rows_) / passed.count());
      std::string text =
          counted(rows_, "address", "addresses") + ", " + std::to_string(rate) + " a second";
      if (bytes_ > 0) text += ", " + std::to_string(bytesRead_ * 100 / bytes_) + " %";
      return text + "  ";
    });
  }

  void tellOfLeftOut() const {
    if (bad_ > kComplaints) complain(counted(bad_, "row", "rows") + " in all could not be read");
    if (withoutStreet_ > 0) {
      complainMore(counted(withoutStreet_, "row has", "rows have") + " no street: left out");
    }
  }

  int print() const {
    Output output;
    const auto held = static_cast<std::uint64_t>(import_.summary().addresses);
    const std::uintmax_t size = std::filesystem::file_size(path_);
    output.line(counted(rows_, "address", "addresses") + " imported" +
                (kept_ > 0 ? ", " + std::to_string(kept_) + " kept" : std::string()));
    output.line(path_.string() + ": " + std::to_string(size) + " bytes, " +
                std::to_string(size / held) + " an address");
    return output.finish(bad_ == 0 ? kDone : kBadInput);
  }

  static std::string nameOf(const std::string& file) {
    return file == "-" ? "standard input" : file;
  }

  const AddressImportCommand& command_;
  std::filesystem::path path_;
  BookImport import_;
  std::int64_t kept_;
  std::uintmax_t bytes_;  // of all files; 0 is unknown
  std::uintmax_t bytesRead_ = 0;
  std::uint64_t rows_ = 0;
  std::uint64_t withoutStreet_ = 0;
  std::uint64_t bad_ = 0;
  AddressRow row_;
  AddressRow last_;  // of those that were imported
  bool toldOfOrder_ = false;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  Progress progress_;
};

int import(const AddressImportCommand& command) {
  const Interruption interruption;
  std::string trouble;
  try {
    return Importer(command).run();
  } catch (const std::runtime_error& error) {
    trouble = error.what();
  } catch (const Interrupted&) {
    trouble = "interrupted";
  }
  complain(trouble);
  complainMore("no address is imported; the address book is as it was");
  return kBadInput;
}

int importAll(const AddressImportCommand& command) {
  if (command.country && !isCountryCode(*command.country)) {
    complain(inQuotes(*command.country) + " is no country: two letters of ISO 3166-1, such as US");
    return kBadUsage;
  }
  endingSignal = 0;
  const int status = import(command);
  if (endingSignal != 0) std::raise(endingSignal);  // ends the program as it would have at once
  return status;
}

}  // namespace

Command addressImportCommand() {
  const auto command = std::make_shared<AddressImportCommand>();
  return {.name = "import",
          .help = "Makes the address book out of files of OpenAddresses",
          .more = kImportMore,
          .options = {{.name = "FILE",
                       .help = "What to import",
                       .target = &command->files,
                       .listed = Listed::files,
                       .isRequired = true},
                      {"--country",
                       "Two letters: where it is; if not said, after a path like us/ca/...",
                       &command->country, "CC"},
                      {"--add", "Keep what is in the book", &command->add}},
          .run = [command] { return importAll(*command); }};
}

}  // namespace wayfell
