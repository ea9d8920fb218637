// Clock source of the random generator's normal mode.
#include "model/random.h"

#include <chrono>
#include <ctime>

namespace velmora {

uint64_t Random::NanosecondsSinceMidnight() {
  using namespace std::chrono;
  const auto now = system_clock::now();
  const std::time_t t = system_clock::to_time_t(now);
  std::tm local{};
  localtime_r(&t, &local);
  const auto since_epoch = duration_cast<nanoseconds>(now.time_since_epoch()).count();
  const long long sub_second = since_epoch % 1000000000LL;
  const long long seconds = local.tm_hour * 3600LL + local.tm_min * 60LL + local.tm_sec;
  return static_cast<uint64_t>(seconds * 1000000000LL + sub_second);
}

}  // namespace velmora
