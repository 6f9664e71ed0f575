#pragma once

// Elementary functions in additions and products alone: those of the C library choose other
// instructions on other processors, and their last bits with them.

namespace refine {

// Sine and cosine of an angle in degrees; exact at multiples of 90.
struct DIRECAO {
  double cosseno = 1;
  double seno = 0;
};
DIRECAO direcao(double graus);

// e to the x; 0 below -700, x at most 700.
double exponencial(double x);

// Natural logarithm; x > 0 and finite.
double logaritmo(double x);

// Share of the normal distribution below x, within 1e-7.
double acumulada(double x);

// Angle of the vector (x, y) in degrees, -180 to 180; 0 for the null vector.
double angulo(double y, double x);

}  // namespace refine
