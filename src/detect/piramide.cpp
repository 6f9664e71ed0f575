#include "detect/piramide.h"

#include "motor/motor.h"
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

namespace detect {

cv::Mat_<float> emReais(const cv::Mat_<unsigned char>& cinza) {
  cv::Mat_<float> imagem;
  pim::converte(cinza, imagem, motor::valorDoByte, 0.0);
  return imagem;
}

}  // namespace detect
