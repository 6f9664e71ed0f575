#include "proposta/figura.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "estampa/contornos.h"
#include "measure/grao.h"
#include "pim/letreiro.h"

namespace proposta {
namespace {

constexpr int vao = 8;  // between pictures, pixels

cv::Mat_<pim::VEC3B> quadro(const sugere::OLHADA& o, bool inverte) {
  cv::Mat_<pim::VEC3B> img;
  pim::converte(o.vista.cinza, img);
  std::vector<refine::APURADO> graos;
  for (const sugere::INDICIO& i : inverte ? o.claros : o.escuros) {
    graos.push_back({i.figura, static_cast<float>(i.correl), i.apoio, i.contraste, {}});
  }
  estampa::desenhaContornos(img, measure::medeApurados(graos, img.rows, img.cols));
  pim::putTxt(img, 0, 0, std::to_string(o.vista.foto + 1), pim::VEC3B(0, 0, 255), 1, false,
              pim::VEC3B(255, 255, 255));
  return img;
}

// Where to put the pictures: side by side, in rows about as wide together as high.
std::vector<cv::Rect> arranjo(const std::vector<cv::Mat_<pim::VEC3B>>& quadros) {
  double area = 0;
  int largura = 0;
  for (const auto& q : quadros) {
    area += static_cast<double>(q.rows + vao) * (q.cols + vao);
    largura = std::max(largura, q.cols);
  }
  largura = std::max(largura, static_cast<int>(1.2 * std::sqrt(area)));
  std::vector<cv::Rect> v;
  int x = 0;
  int y = 0;
  int altura = 0;
  for (const auto& q : quadros) {
    if (x > 0 && x + q.cols > largura) {
      x = 0;
      y += altura + vao;
      altura = 0;
    }
    v.emplace_back(x, y, q.cols, q.rows);
    x += q.cols + vao;
    altura = std::max(altura, q.rows);
  }
  return v;
}

}  // namespace

cv::Mat_<pim::VEC3B> figura(const sugere::SUGESTAO& s) {
  std::vector<cv::Mat_<pim::VEC3B>> quadros;
  for (const sugere::OLHADA& o : s.olhadas) quadros.push_back(quadro(o, s.escolha.inverte));
  const std::vector<cv::Rect> lugares = arranjo(quadros);
  cv::Size tudo;
  for (const cv::Rect& r : lugares) {
    tudo.width = std::max(tudo.width, r.x + r.width);
    tudo.height = std::max(tudo.height, r.y + r.height);
  }
  cv::Mat_<pim::VEC3B> img(tudo, pim::VEC3B(255, 255, 255));
  for (std::size_t i = 0; i < quadros.size(); ++i) quadros[i].copyTo(img(lugares[i]));
  return img;
}

}  // namespace proposta
