#include "detect/piramide.h"

#include "pim/converte.h"

void constroiPiramide(PIRAMIDE& piramide, cv::Mat_<float> imagem, int maximo) {
  piramide.clear();
  if (maximo < 1) maximo = pim::maxint;
  piramide.push_back(imagem);
  for (int n = 1; piramide.back().rows > 1 && maximo > n && piramide.back().cols > 1; ++n) {
    cv::Mat_<float> menor;
    pim::myPyrDown(piramide.back(), menor);
    piramide.push_back(menor);
  }
}
