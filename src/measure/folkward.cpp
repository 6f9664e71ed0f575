#include "measure/folkward.h"

#include <cmath>

namespace measure {

FOLKWARD folkWard(const std::function<double(int)>& d) {
  const auto phi = [&d](int p) { return -std::log2(d(100 - p)); };
  const double phi50 = phi(50);
  const double meio = phi(84) - phi(16);
  const double todo = phi(95) - phi(5);
  const double quartis = phi(75) - phi(25);
  FOLKWARD f;
  f.media = (phi(16) + phi50 + phi(84)) / 3;
  f.selecao = meio / 4 + todo / 6.6;
  if (meio > 0 && todo > 0) {
    f.assimetria =
        (phi(16) + phi(84) - 2 * phi50) / (2 * meio) + (phi(5) + phi(95) - 2 * phi50) / (2 * todo);
  }
  if (quartis > 0) f.curtose = todo / (2.44 * quartis);
  return f;
}

}  // namespace measure
