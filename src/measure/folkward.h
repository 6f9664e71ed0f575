#pragma once

#include <functional>
#include <optional>

namespace measure {

// The graphic measures of Folk and Ward (1957), "Brazos River bar: a study in the significance of
// grain size parameters", in phi = -log2(size in mm). phi[p] is exceeded in fineness by 100 - p
// percent: coarse grains have low phi, so phi[p] comes from the size D[100-p].
//   mean      (phi16 + phi50 + phi84) / 3
//   sorting   (phi84 - phi16) / 4 + (phi95 - phi5) / 6.6
//   skewness  (phi16 + phi84 - 2 phi50) / (2 (phi84 - phi16))
//             + (phi5 + phi95 - 2 phi50) / (2 (phi95 - phi5))
//   kurtosis  (phi95 - phi5) / (2.44 (phi75 - phi25))
struct FOLKWARD {
  double media = 0;
  double selecao = 0;
  std::optional<double> assimetria;  // positive: a tail of fine grains. Empty at a zero divisor
  std::optional<double> curtose;     // 1 for a normal curve. Empty at a zero divisor
};

// `d` gives the size, in millimetres, that so many percent of the weight lies below; it is asked
// for 5, 16, 25, 50, 75, 84 and 95.
FOLKWARD folkWard(const std::function<double(int)>& d);

}  // namespace measure
