#include "hosts/services/addresses/ServerUrl.h"

#include <curl/curl.h>

#include <memory>
#include <stdexcept>
#include <string_view>

#include "hosts/text/TextScanner.h"
#include "platform/NSString.h"

namespace wayfell {
namespace {

using Url = std::unique_ptr<CURLU, decltype(&curl_url_cleanup)>;

[[noreturn]] void refuse(const std::string& text, const std::string& why) {
  throw std::invalid_argument(inQuotes(text) + " is no server's URL: " + why);
}

Url parsed(const std::string& text) {
  Url url(curl_url(), curl_url_cleanup);
  if (url == nullptr) throw std::bad_alloc();
  const CURLUcode result = curl_url_set(url.get(), CURLUPART_URL, text.c_str(), 0);
  if (result != CURLUE_OK) refuse(text, curl_url_strerror(result));
  return url;
}

std::string part(const Url& url, CURLUPart which) {
  char* value = nullptr;
  if (curl_url_get(url.get(), which, &value, 0) != CURLUE_OK) return {};
  std::string text(value);
  curl_free(value);
  return text;
}

void append(const Url& url, const std::string& parameter) {
  curl_url_set(url.get(), CURLUPART_QUERY, parameter.c_str(), CURLU_APPENDQUERY | CURLU_URLENCODE);
}

void remove(const Url& url, CURLUPart which) { curl_url_set(url.get(), which, nullptr, 0); }

}  // namespace

ServerUrl::ServerUrl(const std::string& text) : text_(text) {
  const Url url = parsed(text);
  const std::string scheme = part(url, CURLUPART_SCHEME);
  if (scheme != "http" && scheme != "https")
    refuse(text, "it begins with neither https:// nor http://");
  if (part(url, CURLUPART_HOST).empty()) refuse(text, "it names no host");
  plain_ = scheme == "http";
  for (const CURLUPart secret :
       {CURLUPART_USER, CURLUPART_PASSWORD, CURLUPART_QUERY, CURLUPART_FRAGMENT}) {
    remove(url, secret);
  }
  shown_ = part(url, CURLUPART_URL);
  while (shown_.back() == '/') shown_.pop_back();
}

std::string ServerUrl::requestFor(const CLLocationCoordinate2D& position) const {
  const Url url = parsed(text_);
  remove(url, CURLUPART_FRAGMENT);
  std::string path = part(url, CURLUPART_PATH);
  while (!path.empty() && path.back() == '/') path.pop_back();
  curl_url_set(url.get(), CURLUPART_PATH, (path + "/reverse").c_str(), 0);
  append(url, "format=jsonv2");
  append(url, "lat=" + fixedText(position.latitude, 5));
  append(url, "lon=" + fixedText(position.longitude, 5));
  append(url, "zoom=18");  // buildings
  append(url, "addressdetails=1");
  return part(url, CURLUPART_URL);
}

}  // namespace wayfell
