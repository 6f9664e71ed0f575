#include <memory>
#include <opencv2/dnn.hpp>

#include "textura/rede.h"

namespace textura {
namespace {

using cv::dnn::LayerParams;

LayerParams convolucao(const CAMADA& c, const std::vector<float>& pesos) {
  LayerParams p;
  p.set("kernel_size", c.lado);
  p.set("stride", c.passo);
  p.set("pad", c.lado / 2);
  p.set("num_output", c.sai);
  p.set("bias_term", true);
  const float* de = &pesos[c.onde];
  cv::Mat w(std::vector<int>{c.sai, c.entra, c.lado, c.lado}, CV_32F);
  std::copy(de, de + w.total(), w.ptr<float>());
  cv::Mat b(1, c.sai, CV_32F);
  std::copy(de + w.total(), de + w.total() + c.sai, b.ptr<float>());
  p.blobs = {w, b};
  return p;
}

// Adds the layer; returns its number.
int poe(cv::dnn::Net& net, const CAMADA& c, const std::vector<float>& pesos) {
  LayerParams p;
  if (c.tipo == CAMADA::TIPO::junta) {
    p.set("axis", 1);
    return net.addLayer(c.nome, "Concat", p);
  }
  if (c.tipo == CAMADA::TIPO::dobra) {
    p.set("interpolation", "nearest");
    p.set("zoom_factor", 2);
    return net.addLayer(c.nome, "Resize", p);
  }
  p = convolucao(c, pesos);
  return net.addLayer(c.nome, "Convolution", p);
}

CALCULO constroi(const REDE& rede) {
  cv::dnn::Net net;
  net.setInputsNames({"foto"});
  std::map<std::string, int> numeros = {{"foto", 0}};
  for (const CAMADA& c : rede.camadas) {
    int n = poe(net, c, rede.pesos);
    for (std::size_t i = 0; i < c.entradas.size(); ++i) {
      net.connect(numeros.at(c.entradas[i]), 0, n, static_cast<int>(i));
    }
    if (c.tipo == CAMADA::TIPO::conv && c.relu) {
      LayerParams p;
      const int relu = net.addLayer(c.nome + " relu", "ReLU", p);
      net.connect(n, 0, relu, 0);
      n = relu;
    }
    numeros[c.nome] = n;
  }
  net.setPreferableBackend(cv::dnn::DNN_BACKEND_OPENCV);
  net.setPreferableTarget(cv::dnn::DNN_TARGET_CPU);
  return [net](const cv::Mat_<float>& foto) mutable {
    net.setInput(cv::Mat(std::vector<int>{1, 1, foto.rows, foto.cols}, CV_32F,
                         const_cast<float*>(foto.ptr<float>())));
    return net.forward().clone();
  };
}

}  // namespace
}  // namespace textura

// The one symbol that the program looks up in the module.
extern "C" __attribute__((visibility("default"))) const textura::MODULO pimTabelaDoMapa;
const textura::MODULO pimTabelaDoMapa = {textura::constroi};
