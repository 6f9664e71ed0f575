#include "batch/escolha/amostra.h"

#include <algorithm>
#include <opencv2/core.hpp>

#include "batch/escolha/frases.h"
#include "pim/erro.h"
#include "pim/imagem.h"
#include "sugere/texto.h"

namespace batch {
namespace {

using exporta::IDIOMA;

const char* polaridade(bool inverte, IDIOMA idioma) {
  return diz(inverte ? falas::claros : falas::escuros, idioma);
}

// "circulo, elipse".
std::string familias(const sugere::ESCOLHA& e, IDIOMA idioma) {
  std::string letras;
  std::string s;
  for (const sugere::LINHA& l : e.linhas) {
    if (letras.find(l.forma) != std::string::npos) continue;
    letras += l.forma;
    s += (s.empty() ? "" : ", ") + exporta::nomeDaForma(l.forma, idioma);
  }
  return s;
}

}  // namespace

AMOSTRA olhaFotos(const std::vector<ALVO>& alvos, std::size_t quantas,
                  const sugere::PEDIDO& pedido) {
  std::vector<std::filesystem::path> todas;
  for (const ALVO& alvo : alvos) todas.push_back(alvo.arquivo);
  std::sort(todas.begin(), todas.end());
  AMOSTRA a;
  for (const std::size_t i : sugere::espalhados(todas.size(), quantas)) {
    a.fotos.push_back(todas[i]);
  }
  a.lidas.resize(a.fotos.size());
  const auto le = [&a](std::size_t i) {
    cv::Mat_<unsigned char> foto;
    try {
      pim::le(foto, a.fotos[i].string());
    } catch (const pim::ERRO&) {
      foto.release();  // it is told when its turn comes
    }
    a.lidas[i] = !foto.empty();
    return foto;
  };
  a.sugestao = sugere::sugere(a.fotos.size(), le, pedido);
  return a;
}

bool algumaLida(const AMOSTRA& a) {
  return std::find(a.lidas.begin(), a.lidas.end(), true) != a.lidas.end();
}

std::string kernelCfg(const AMOSTRA& a, IDIOMA idioma) {
  return sugere::emKernelCfg(a.sugestao.escolha,
                             idioma == IDIOMA::en ? sugere::LINGUA::en : sugere::LINGUA::pt);
}

std::string resumo(const AMOSTRA& a, std::size_t todas, IDIOMA idioma) {
  const sugere::ESCOLHA& e = a.sugestao.escolha;
  if (e.geral) return cv::format(diz(falas::geral, idioma), a.fotos.size(), todas);
  return cv::format(diz(falas::escolhido, idioma), a.fotos.size(), todas,
                    polaridade(e.inverte, idioma), e.menor, e.maior, familias(e, idioma).c_str());
}

std::vector<std::string> avisos(const AMOSTRA& a, IDIOMA idioma) {
  const sugere::ESCOLHA& e = a.sugestao.escolha;
  if (e.geral) return {diz(falas::nada, idioma)};
  std::vector<std::string> v;
  if (sugere::temAmbas(e)) {
    v.push_back(
        cv::format(diz(falas::ambas, idioma), polaridade(!e.inverte, idioma), 100 * (1 - e.parte)));
  }
  for (std::size_t i = 0; i < a.fotos.size(); ++i) {
    const std::string foto = a.fotos[i].string();
    if (!a.lidas[i]) continue;
    if (sugere::destoa(e, e.fotos[i])) {
      v.push_back(
          cv::format(diz(falas::destoa, idioma), foto.c_str(), polaridade(!e.inverte, idioma)));
    } else if (e.fotos[i].quantos == 0) {
      v.push_back(cv::format(diz(falas::vazia, idioma), foto.c_str()));
    }
  }
  return v;
}

}  // namespace batch
