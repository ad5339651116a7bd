#include "hosts/services/addresses/StreetText.h"

#include "hosts/text/TextScanner.h"

namespace wayfell {
namespace {

// After the templates of github.com/OpenCageData/address-formatting, which collect national formats
// (conf/countries/worldwide.yaml). Not as there: Brazil, whose post has "Rua Azul, 12", and
// Morocco, New Zealand and Puerto Rico, whose posts have the number first. Separated by blanks.
constexpr std::string_view kNumberFirst =
    "AD AE AU AZ BD BF BJ BL BM BZ CA CD CI CX DZ EG FK FR GB GF GG GH GP GS HK HM IE IL IM IN IO "
    "JE KE LK LS LU MA MC MG MQ MT MW MY NA NC NF NG NZ PF PH PK PM PR RE RW SA SG SH TC TF TG TH "
    "TN TT TZ UG UM US VI VN YT ZA ZM ZW";

}  // namespace

bool isCountryCode(std::string_view text) {
  const std::string code = upperCased(text);
  return code.size() == 2 &&
         code.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ") == std::string::npos;
}

std::optional<std::string> streetText(std::string_view number, std::string_view street,
                                      std::string_view countryCode) {
  if (number.empty() && street.empty()) return std::nullopt;
  const bool numberFirst =
      isCountryCode(countryCode) && kNumberFirst.find(upperCased(countryCode)) != kNumberFirst.npos;
  std::string text(numberFirst ? number : street);
  const std::string_view rest = numberFirst ? street : number;
  if (!text.empty() && !rest.empty()) text += ' ';
  return text += rest;
}

std::optional<std::string> textOrNone(std::string_view text) {
  return text.empty() ? std::nullopt : std::optional<std::string>(text);
}

}  // namespace wayfell
