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

// ISO 3166-1 alpha-2, as officially assigned in 2024, and XK, which the European Union uses for
// Kosovo. Separated by blanks.
constexpr std::string_view kCountries =
    "AD AE AF AG AI AL AM AO AQ AR AS AT AU AW AX AZ BA BB BD BE BF BG BH BI BJ BL BM BN BO BQ BR "
    "BS BT BV BW BY BZ CA CC CD CF CG CH CI CK CL CM CN CO CR CU CV CW CX CY CZ DE DJ DK DM DO DZ "
    "EC EE EG EH ER ES ET FI FJ FK FM FO FR GA GB GD GE GF GG GH GI GL GM GN GP GQ GR GS GT GU GW "
    "GY HK HM HN HR HT HU ID IE IL IM IN IO IQ IR IS IT JE JM JO JP KE KG KH KI KM KN KP KR KW KY "
    "KZ LA LB LC LI LK LR LS LT LU LV LY MA MC MD ME MF MG MH MK ML MM MN MO MP MQ MR MS MT MU MV "
    "MW MX MY MZ NA NC NE NF NG NI NL NO NP NR NU NZ OM PA PE PF PG PH PK PL PM PN PR PS PT PW PY "
    "QA RE RO RS RU RW SA SB SC SD SE SG SH SI SJ SK SL SM SN SO SR SS ST SV SX SY SZ TC TD TF TG "
    "TH TJ TK TL TM TN TO TR TT TV TW TZ UA UG UM US UY UZ VA VC VE VG VI VN VU WF WS XK YE YT ZA "
    "ZM ZW";

bool holds(std::string_view list, std::string_view code) {
  return code.size() == 2 && list.find(upperCased(code)) != list.npos;
}

}  // namespace

bool isCountryCode(std::string_view text) {
  return text.find(' ') == text.npos && holds(kCountries, text);
}

std::optional<std::string> streetText(std::string_view number, std::string_view street,
                                      std::string_view countryCode) {
  if (number.empty() && street.empty()) return std::nullopt;
  const bool numberFirst = isCountryCode(countryCode) && holds(kNumberFirst, countryCode);
  std::string text(numberFirst ? number : street);
  const std::string_view rest = numberFirst ? street : number;
  if (!text.empty() && !rest.empty()) text += ' ';
  return text += rest;
}

std::optional<std::string> textOrNone(std::string_view text) {
  return text.empty() ? std::nullopt : std::optional<std::string>(text);
}

}  // namespace wayfell
