#pragma once

namespace measure {

// The length of an ellipse's outline, from its full axes (in either order, at least 0; 0 gives a
// segment walked both ways). Within 1e-14 of the true length, by the arithmetic-geometric mean of
// Gauss and Legendre: 4 a E(k) with E as in the NIST Digital Library of Mathematical Functions,
// 19.8.6.
double perimetroElipse(double eixo1, double eixo2);

}  // namespace measure
