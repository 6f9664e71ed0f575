#include "bench/ajustes.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>

#include "bench/corridas.h"
#include "detect/maxlocal.h"
#include "pim/imagem.h"
#include "referencia/bordas.h"
#include "refine/candidatos.h"

namespace {

using refine::ANDAR;
using refine::BANCADA;
using refine::CAMPO;
using refine::DETECCAO;
using refine::FIGURA;

constexpr std::size_t quantosSimples = 20000;  // detections that the plain form is timed on

template <class ACAO>
double segundos(ACAO acao) {
  const auto inicio = std::chrono::steady_clock::now();
  acao();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - inicio).count();
}

// One step of the plain fit; false when the shape got lost.
bool passoSimples(const ANDAR& andar, FIGURA& f, double alcance, double passo, BANCADA& b) {
  refine::amostra(f, 64, b.amostras);
  referencia::procuraBordas(andar, b.amostras, {alcance, passo}, b.bordas);
  b.deslocamentos.clear();
  for (std::size_t i = 0; i < b.bordas.size(); ++i) {
    const double borrado = std::clamp(b.bordas[i].largura2 - 1.0 / 3, 0.64, 9.0);
    b.deslocamentos.push_back(b.bordas[i].desvio + b.amostras[i].curvatura * borrado / 2);
  }
  const auto v =
      refine::resolve(refine::equacoes(andar, f, b.deslocamentos, 0.35 * alcance + 0.5, b), 0.02);
  if (!v) return false;
  refine::move(f, *v);
  return !refine::perdida(andar, f);
}

bool ajustaSimples(const ANDAR& andar, FIGURA& f, const refine::MODO& modo, BANCADA& b) {
  for (int k = 0; k < modo.passos; ++k) {
    const double parte = k == 0 ? 1 : k == 1 ? 0.7 : 0.5;
    const double alcance = std::max(1.5, refine::alcanceUsual(f) * modo.alcance * parte);
    if (!passoSimples(andar, f, alcance, modo.passoDoPerfil, b)) return false;
  }
  return true;
}

// Coarsely, finely, looked at: as ajustaTodos does, without leaving any out.
std::size_t todosSimples(const CAMPO& campo, const std::vector<DETECCAO>& lista) {
  BANCADA b;
  std::size_t bons = 0;
  for (const DETECCAO& d : lista) {
    FIGURA f = d.figura;
    bool boa = true;
    for (const refine::MODO& modo : {refine::MODO{64, 3, 1, 1, 0}, {64, 5, 0.5, 0.6, 0}}) {
      const ANDAR& andar = campo.andarPara(refine::menorMetade(f));
      FIGURA g = refine::noAndar(f, andar.nivel);
      boa = boa && ajustaSimples(andar, g, modo, b);
      if (boa) f = refine::naFoto(g, andar.nivel);
    }
    if (!boa) continue;
    const ANDAR& andar = campo.andarPara(refine::menorMetade(f));
    bons += refine::examina(andar, refine::noAndar(f, andar.nivel), d.correl, {}, b).contraste > 0;
  }
  return bons;
}

// Every so many-th, so that about `n` remain.
std::vector<DETECCAO> poucas(const std::vector<DETECCAO>& todas, std::size_t n) {
  const std::size_t passo = std::max<std::size_t>(1, todas.size() / n);
  std::vector<DETECCAO> v;
  for (std::size_t i = 0; i < todas.size(); i += passo) v.push_back(todas[i]);
  return v;
}

// One step over all of the detections: as the fit does it, with `modo` samples, and plainly.
LINHA umPasso(const std::string& nome, const CAMPO& campo, const std::vector<DETECCAO>& lista,
              refine::MODO modo) {
  modo.passos = 1;
  BANCADA b;
  const auto porTodas = [&](auto ajusta) {
    return segundos([&] {
      for (const DETECCAO& d : lista) {
        const ANDAR& andar = campo.andarPara(refine::menorMetade(d.figura));
        FIGURA f = refine::noAndar(d.figura, andar.nivel);
        ajusta(andar, f, modo, b);
      }
    });
  };
  const double rapida = porTodas(refine::ajusta);
  const double simples = porTodas(ajustaSimples);
  char nota[96];
  const double nano = 1e9 / static_cast<double>(lista.size());
  std::snprintf(nota, sizeof nota, "%.0f ns a candidate, plain %.0f", rapida * nano,
                simples * nano);
  return {nome, simples, rapida, nota};
}

// The plain form is timed on some of the detections, and its time told in proportion.
LINHA todos(const CAMPO& campo, const std::vector<DETECCAO>& lista) {
  const std::vector<DETECCAO> algumas = poucas(lista, quantosSimples);
  const double rapida = segundos([&] {
    refine::ajustaTodos(campo, lista, {true, true, 1}, refine::pesosAprendidos());
  });
  std::size_t bons = 0;
  const double simples = segundos([&] { bons = todosSimples(campo, algumas); });
  const double n = static_cast<double>(lista.size());
  const double inteira = simples * n / static_cast<double>(algumas.size());
  char nota[96];
  std::snprintf(nota, sizeof nota, "%.0f candidates, %.0f ns each, plain %.0f", n, rapida / n * 1e9,
                inteira / n * 1e9);
  return {"fit of all detections, 3 MP", inteira, rapida, bons > 0 ? nota : "none is good"};
}

// A whole run, and the search that it follows.
LINHA programa(const std::string& nome, const std::string& cena, double megapixels) {
  const CORRIDA busca = corre({"Vorplex", "correla", cena, "banco.cfg", "a.ho1", "0.02"});
  const CORRIDA c = corre({"vorplex-apura", "-j", "1", cena, "a.ho1", "a.csv"});
  char nota[128];
  std::snprintf(nota, sizeof nota, "%.2f s a megapixel, %.0f MB; the search took %.2f s",
                c.segundos / megapixels, c.megabytes, busca.segundos);
  return {nome, 0, c.segundos, nota};
}

}  // namespace

std::vector<LINHA> medeAjustes() {
  std::ofstream("banco.cfg") << "circulo 21 quadrado 20 retangulo 30 12 elipse 30 18\n";
  corre({"cena", "c3.pgm", "c3.csv", "1536", "2048"});
  std::vector<LINHA> linhas;
  linhas.push_back(programa("vorplex-apura, 12 MP, minCorr 0.02", "c12.pgm", 12));
  linhas.push_back(programa("vorplex-apura, 3 MP, minCorr 0.02", "c3.pgm", 1536.0 * 2048 / 1e6));
  cv::Mat_<unsigned char> imagem;
  pim::le(imagem, "c3.pgm");
  std::vector<MAXLOCAL> registros;
  leMaxLocais(registros, "a.ho1");
  std::vector<DETECCAO> lista;
  for (const MAXLOCAL& m : registros) lista.push_back({refine::figura(m), m.correl});
  const CAMPO campo = refine::preparaCampo(imagem);
  const std::vector<DETECCAO> algumas = poucas(lista, quantosSimples);
  linhas.push_back(umPasso("a step of the coarse fit, 3 MP", campo, algumas, {16, 3, 1, 1, 0.1}));
  linhas.push_back(
      umPasso("a step of the fine fit, 3 MP", campo, algumas, {32, 5, 0.5, 0.6, 0.02}));
  linhas.push_back(todos(campo, lista));
  for (const LINHA& l : linhas) {
    std::fprintf(stderr, "  %s: %.2f s, plain %.2f s; %s\n", l.trabalho.c_str(), l.rapida,
                 l.simples, l.nota.c_str());
  }
  return linhas;
}
