// kernel.cfg: any file either ends in an error or gives the number of kernels that its statements
// ask for, each with zero mean; without images it ends alike, and draws the same kernels later.

#include <algorithm>
#include <cmath>

#include "apoio/erros.h"
#include "confere.h"
#include "entrada.h"
#include "kernels/lekernels.h"
#include "kernels/normaliza.h"
#include "memoria.h"
#include "pim/texto.h"
#include "simples.h"

namespace {

// What the statements before the first bad word ask for.
struct PEDIDO {
  double kernels = 0;
  double trabalho = 0;  // pixels drawn, about
};

struct LEITURA {
  const std::vector<std::string>& tokens;
  std::size_t i = 0;
  double passoAng = 10;
  double escOitava = 5;
  double escMin = 0.5;
  double escMax = 1;
  PEDIDO pedido{};

  bool numero(double& x) { return i < tokens.size() && pim::paraNumero(tokens[i++], x); }

  double angulos(char forma) const {
    const double limite = forma == 'c' ? 0 : forma == 'q' ? 90 : 180;
    double n = 1;
    if (!(passoAng > 0)) return n;
    for (double ang = passoAng; ang < limite && n < (1 << 20); ang += passoAng) ++n;
    return n;
  }

  bool forma(char letra) {
    double d1 = 0;
    double d2 = 0;
    if (!numero(d1) || ((letra == 'r' || letra == 'e') && !numero(d2))) return false;
    const double escalas = std::nearbyint(1 + escOitava * std::log2(escMax / escMin));
    if (!(escalas >= 1)) return true;
    const double lado = 2 * escMax * std::max(d1, d2);
    if (!(lado < 2.0 * maiorLadoKernel)) return false;  // refused before anything is drawn
    const double kernels = escalas * angulos(letra);
    pedido.kernels += kernels;
    pedido.trabalho += angulos(letra) * std::min(escalas, 1.5 * escOitava + 1) * lado * lado;
    pedido.trabalho += std::min(kernels, 1e6) * 500;
    return true;
  }

  // False when nothing more can be known.
  bool comando(const std::string& palavra) {
    double ignorado = 0;
    if (palavra == "passoang") return numero(passoAng);
    if (palavra == "escoitava") return numero(escOitava);
    if (palavra == "escala" || palavra == "escmin") return numero(escMin);
    if (palavra == "a" || palavra == "escmax") return numero(escMax);
    if (palavra == "piramide" || palavra == "escpir") return numero(ignorado);
    return !palavra.empty() && palavra != "eof" && forma(palavra[0]);
  }
};

PEDIDO pedidoDe(const std::vector<std::string>& tokens) {
  LEITURA leitura{.tokens = tokens};
  while (leitura.i < tokens.size()) {
    const std::string palavra = pim::minuscula(tokens[leitura.i++]);
    if (!leitura.comando(palavra)) break;
  }
  return leitura.pedido;
}

void confereKernel(const MASCARA& m) {
  confere(std::string("cqre").find(m.forma) != std::string::npos, "letra");
  // A scale above escPir, which the order of the settings can bring about, is applied to no level:
  // its last one is below 0.
  confere((m.sPir >= 0 || m.esc > m.escPir) && m.inic >= 0 && m.inic <= 2, "sPir ou inic");
  confere(m.kernel.rows % 2 == 1 && m.kernel.rows == m.kernel.cols, "lado do kernel");
  confere(m.mascara.rows % 2 == 1 || m.mascara.empty(), "lado da mascara");
  confere(m.contorno.size() == m.mascara.size() || m.mascara.empty(), "lado do contorno");
  double positivos = 0;
  double negativos = 0;
  for (const float x : m.kernel) (x > 0 ? positivos : negativos) += static_cast<double>(x);
  confere(std::abs(positivos - 1) < 1e-5 && std::abs(negativos + 1) < 1e-5, "soma do kernel");
}

// From memory as from the file. No text file has a zero, and that one says so.
void confereDoTexto(std::string_view texto, const std::string& nome, const std::string& erro,
                    std::size_t quantos) {
  std::vector<MASCARA> doTexto;
  const std::string erroDoTexto =
      erroDe([&] { kernels::leKernelsDoTexto(texto, nome, doTexto, IMAGENS::nenhuma); });
  if (texto.find('\0') != std::string_view::npos) {
    confere(!erroDoTexto.empty(), "zero aceito");
    return;
  }
  confere(erroDoTexto == erro, "erro do arquivo: " + erro + "; do texto: " + erroDoTexto);
  confere(doTexto.size() == quantos, "numero de kernels do texto");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t n) {
  const PEDIDO pedido = pedidoDe(tokensSimples(semMarca(comoTexto(bytes, n))));
  // Large sets are legal, up to 2 GiB, and take their time.
  if (pedido.trabalho > 2e6) return -1;
  const MEMORIA arquivo(comoTexto(bytes, n));
  std::vector<MASCARA> kernels;
  const std::string erro = erroDe([&] { leKernels(arquivo.nome, kernels); });
  std::vector<MASCARA> semImagens;
  const std::string erroSem =
      erroDe([&] { leKernels(arquivo.nome, semImagens, IMAGENS::nenhuma); });
  confere(erroSem == erro, "erro com imagens: " + erro + "; sem: " + erroSem);
  confereDoTexto(comoTexto(bytes, n), arquivo.nome, erro, semImagens.size());
  if (!erro.empty()) return 0;  // images may be half drawn
  confere(static_cast<double>(kernels.size()) == pedido.kernels, "numero de kernels");
  confere(semImagens.size() == kernels.size(), "numero de kernels sem imagens");
  for (std::size_t i = 0; i < kernels.size(); ++i) {
    confereKernel(kernels[i]);
    const cv::Mat_<float> K = kernels::imagemDoKernel(semImagens[i]);
    confere(K.size() == kernels[i].kernel.size() &&
                std::equal(K.begin(), K.end(), kernels[i].kernel.begin()),
            "imagem desenhada depois");
  }
  return 0;
}
