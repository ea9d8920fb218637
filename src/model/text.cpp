// Number/text conversions shared by files, messages and option texts.
#include "model/text.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <limits>

namespace velmora {

std::string Str(long long n) { return n >= 0 ? " " + std::to_string(n) : std::to_string(n); }

std::string NumText(long long n) { return std::to_string(n); }

double Val(std::string_view text) {
  size_t i = 0;
  while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
  bool negative = false;
  if (i < text.size() && (text[i] == '-' || text[i] == '+')) {
    negative = text[i] == '-';
    ++i;
  }
  double value = 0;
  while (i < text.size() && text[i] >= '0' && text[i] <= '9') {
    value = value * 10 + (text[i] - '0');
    ++i;
  }
  if (i < text.size() && text[i] == '.') {
    ++i;
    double scale = 0.1;
    while (i < text.size() && text[i] >= '0' && text[i] <= '9') {
      value += (text[i] - '0') * scale;
      scale /= 10;
      ++i;
    }
  }
  return negative ? -value : value;
}

std::optional<int32_t> ValInt(std::string_view text) {
  const double v = std::nearbyint(Val(text));  // default rounding: half to even
  if (!(v >= std::numeric_limits<int32_t>::min() && v <= std::numeric_limits<int32_t>::max())) {
    return std::nullopt;
  }
  return static_cast<int32_t>(v);
}

std::string Trim(std::string_view text) {
  size_t b = 0, e = text.size();
  while (b < e && text[b] == ' ') ++b;
  while (e > b && text[e - 1] == ' ') --e;
  return std::string(text.substr(b, e - b));
}

std::string ToLower(std::string_view text) {
  std::string out(text);
  for (char& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return out;
}

bool ContainsNoCase(std::string_view haystack, std::string_view needle) {
  if (needle.empty()) return true;
  auto it = std::search(haystack.begin(), haystack.end(), needle.begin(), needle.end(), [](char a, char b) {
    return std::toupper(static_cast<unsigned char>(a)) == std::toupper(static_cast<unsigned char>(b));
  });
  return it != haystack.end();
}

bool StartsWithNoCase(std::string_view text, std::string_view prefix) {
  return text.size() >= prefix.size() && ContainsNoCase(text.substr(0, prefix.size()), prefix);
}

std::string DateTimeText(const std::tm& when) {
  char text[64] = {};
  std::strftime(text, sizeof text, "%d/%m/%Y %H:%M:%S", &when);
  return text;
}

std::tm LocalTimeNow() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return local;
}

}  // namespace velmora
