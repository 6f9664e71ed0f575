#pragma once

#include <opencv2/core.hpp>
#include <string>
#include <utility>

#include "vorplex/vorplex.h"

// What the tests of the public headers share.

inline vorplex::Image vista(const cv::Mat_<unsigned char>& img) {
  return {img.data, {img.rows, img.cols}, static_cast<std::ptrdiff_t>(img.step[0])};
}

// The message of the vorplex::Error that `acao` throws; "nada" when it throws none.
template <class ACAO>
std::string erroDe(ACAO acao) {
  try {
    acao();
  } catch (const vorplex::Error& e) {
    return e.what();
  }
  return "nada";
}
