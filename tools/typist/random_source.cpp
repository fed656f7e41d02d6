#include "typist/random_source.h"

#include <cmath>

namespace mirvane {

double RandomSource::uniform() {
  constexpr double unit = 1.0 / 9007199254740992.0;  // 2^-53, one step of a double below 1
  return static_cast<double>(generator_() >> 11) * unit;
}

double RandomSource::logNormal(double median, double sigma) {
  // The sum of twelve uniform numbers is close to normal, and exact on every machine.
  double z = -6;
  for (int i = 0; i < 12; ++i) z += uniform();
  return median * std::exp(sigma * z);
}

}  // namespace mirvane
