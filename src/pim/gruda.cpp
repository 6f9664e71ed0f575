#include "pim/gruda.h"

#include <algorithm>

namespace pim {

cv::Mat_<unsigned char> grudaH(const cv::Mat_<unsigned char>& a, const cv::Mat_<unsigned char>& b,
                               int espaco, unsigned char cor) {
  if (a.empty()) return b;
  if (b.empty()) return a;
  const int rows = std::max(a.rows, b.rows);
  cv::Mat_<unsigned char> junta(rows, a.cols + espaco + b.cols, cor);
  a.copyTo(junta(cv::Rect(0, (rows - a.rows) / 2, a.cols, a.rows)));
  b.copyTo(junta(cv::Rect(a.cols + espaco, (rows - b.rows) / 2, b.cols, b.rows)));
  return junta;
}

cv::Mat_<unsigned char> grudaV(const cv::Mat_<unsigned char>& a, const cv::Mat_<unsigned char>& b,
                               int espaco, unsigned char cor) {
  if (a.empty()) return b;
  if (b.empty()) return a;
  const int cols = std::max(a.cols, b.cols);
  cv::Mat_<unsigned char> junta(a.rows + espaco + b.rows, cols, cor);
  a.copyTo(junta(cv::Rect((cols - a.cols) / 2, 0, a.cols, a.rows)));
  b.copyTo(junta(cv::Rect((cols - b.cols) / 2, a.rows + espaco, b.cols, b.rows)));
  return junta;
}

}  // namespace pim
