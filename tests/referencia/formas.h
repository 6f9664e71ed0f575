#pragma once

#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "kernels/mascara.h"

// The shape images and the kernel set in their plain form: pixel by pixel, by the definitions.
namespace referencia {

// The values of the settings of a kernel file.
struct AJUSTE {
  double passoAng = 10;
  int escOitava = 5;
  double escMin = 0.5;
  double escMax = 1;
  double escPir = 4;
};

// Whether the pixel at row and column offsets (dl, dc) belongs to the shape of half-extents h1, h2.
bool pertence(char forma, int h1, int h2, double ang, int dl, int dc);

// The filled shape (0 on 255), its inner outline, and the normalised kernel, of full sizes d1, d2.
cv::Mat_<unsigned char> mascara(char forma, double d1, double d2, double ang);
cv::Mat_<unsigned char> contorno(const cv::Mat_<unsigned char>& mascara);
cv::Mat_<float> kernel(char forma, double d1, double d2, double ang);

// The records, without images, of one shape statement.
std::vector<MASCARA> expansao(const AJUSTE& a, char forma, double d1, double d2);

// The image drawn as rows separated by '/': '+' is 1, '-' is -1, '0' is 0.
cv::Mat_<float> desenho(const std::string& linhas);

// The same in bytes: '+' is 255.
cv::Mat_<unsigned char> figura(const std::string& linhas);

}  // namespace referencia
