// Number/text conversions shared by files, messages and option texts.
#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

// The leading-blank form: " 7" for 7, "-3" for -3. Every reader of undo
// entries, size lines and messages relies on it.
std::string Str(long long n);

// Trimmed decimal text, no leading blank ("12").
std::string NumText(long long n);

// Lenient numeric value of a text: leading blanks, an optional sign, digits
// and an optional fraction; anything else ends the number, no digits give 0.
double Val(std::string_view text);

// Val rounded half-to-even into a 32-bit integer; nullopt on overflow.
std::optional<int32_t> ValInt(std::string_view text);

std::string Trim(std::string_view text);
std::string ToLower(std::string_view text);
bool ContainsNoCase(std::string_view haystack, std::string_view needle);
bool StartsWithNoCase(std::string_view text, std::string_view prefix);

// The short date and time forms, a blank between, of the texts the program
// stamps: titles of new puzzles and the configuration's first line
// ("15/11/2026 10:03:33").
std::string DateTimeText(const std::tm& when);
// The local time now.
std::tm LocalTimeNow();

// CR LF inside message texts.
inline constexpr const char* kNewLine = "\r\n";

}  // namespace velmora
