#include <algorithm>
#include <cstdio>
#include <fstream>
#include <opencv2/imgproc.hpp>
#include <random>
#include <string>
#include <vector>

#include "export/graoscsv.h"
#include "export/valor.h"
#include "fim/fim.h"
#include "measure/contorno.h"
#include "measure/incerteza/intervalo.h"
#include "measure/resumo.h"
#include "page/figura.h"
#include "page/pagina.h"
#include "pim/erro.h"
#include "pim/imagem.h"
#include "pim/texto.h"

using namespace measure;
using namespace exporta;
using namespace page;

// amostra_pagina FOLDER [PHOTOGRAPHS GRAINS ROWS COLS]: draws photographs with known grains and
// writes NAME.html, NAME.csv (the table of all grains) and NAME.json (what src/measure says of the
// grains at several thresholds) for pages of every kind; with numbers, for one page of that size.

namespace {

double entre(std::mt19937& sorteio, double de, double ate) {
  return std::uniform_real_distribution<double>(de, ate)(sorteio);
}

MAXLOCAL sorteiaGrao(std::mt19937& sorteio, int rows, int cols) {
  MAXLOCAL m;
  m.forma = letras[sorteio() % letras.size()];
  m.d1 = std::exp(std::normal_distribution<double>(std::log(34), 0.4)(sorteio));
  const bool dois = m.forma == 'r' || m.forma == 'e';
  m.d2 = dois ? m.d1 * entre(sorteio, 0.4, 0.9) : m.d1;
  m.ang = m.forma == 'c' ? 0 : 10 * static_cast<int>(entre(sorteio, 2, 14));
  m.li = static_cast<int>(entre(sorteio, 0, rows));
  m.ci = static_cast<int>(entre(sorteio, 0, cols));
  m.correl = static_cast<float>(static_cast<int>(entre(sorteio, 1e5, 8e5))) / 1e6F;
  return m;
}

std::vector<MAXLOCAL> sorteiaGraos(std::mt19937& sorteio, int quantos, int rows, int cols) {
  std::vector<MAXLOCAL> v;
  for (int i = 0; i < quantos; ++i) v.push_back(sorteiaGrao(sorteio, rows, cols));
  return v;
}

// The same as fitted ones, at fractions of a pixel.
std::vector<refine::APURADO> apura(std::mt19937& sorteio, const std::vector<MAXLOCAL>& v) {
  std::vector<refine::APURADO> apurados;
  for (const MAXLOCAL& m : v) {
    refine::APURADO a;
    a.figura = refine::figura(m);
    a.figura.l += entre(sorteio, -0.5, 0.5);
    a.figura.c += entre(sorteio, -0.5, 0.5);
    a.correl = m.correl;
    a.apoio = entre(sorteio, 0.35, 1);
    a.contraste = entre(sorteio, 0.1, 0.5);
    for (double& s : a.erro) s = entre(sorteio, 0.02, 0.2);
    apurados.push_back(a);
  }
  return apurados;
}

// Bright sand with dark grains, noise on all of it.
void desenhaFoto(const std::vector<MAXLOCAL>& v, int rows, int cols, const std::string& nome) {
  cv::RNG sorteio(static_cast<std::uint64_t>(rows) + v.size());
  cv::Mat_<pim::VEC3B> img(rows, cols, pim::VEC3B(150, 178, 196));
  for (const MAXLOCAL& m : v) {
    std::vector<cv::Point> pontos;
    for (const PONTO& p : contorno(refine::figura(m), 0.25)) {
      pontos.emplace_back(pim::arredonda(p.x), pim::arredonda(p.y));
    }
    const int tom = sorteio.uniform(0, 60);
    cv::fillPoly(img, std::vector<std::vector<cv::Point>>{pontos},
                 cv::Scalar(52 + tom, 60 + tom, 70 + tom), cv::LINE_AA);
  }
  cv::Mat_<cv::Vec<signed char, 3>> ruido(rows, cols);
  sorteio.fill(ruido, cv::RNG::NORMAL, 0, 12);
  cv::GaussianBlur(img, img, cv::Size(3, 3), 0);
  cv::add(img, ruido, img, cv::noArray(), CV_8U);
  pim::imp(img, nome);
}

FOTO_DA_PAGINA novaFoto(const std::string& pasta, const std::string& nome,
                        const std::vector<MAXLOCAL>& v, cv::Size tamanho) {
  static int quantas = 0;
  const std::string arquivo = pasta + "/foto" + std::to_string(quantas++) + ".jpg";
  desenhaFoto(v, tamanho.height, tamanho.width, arquivo);
  impFigura(arquivo, limiteDaFigura(50), arquivo + ".figura");
  return {nome, arquivo + ".figura", tamanho, medeTodos(v, tamanho.height, tamanho.width)};
}

using MINIMOS = decltype(PAGINA::limiares);

MINIMOS todosIguais(double minimo) {
  MINIMOS m;
  m.fill(minimo);
  return m;
}

// Both ends of every number, by the names of the page.
void poeIntervalos(std::string& s, const INTERVALOS& i) {
  const auto faixa = [&s](const std::optional<double>& de, const std::optional<double>& ate) {
    if (!de || !ate) {
      s += "null";
      return;
    }
    s += '[';
    poeNumero(s, *de);
    s += ',';
    poeNumero(s, *ate);
    s += ']';
  };
  const auto membro = [&](const char* nome, std::optional<double> DISTRIBUICAO::*campo) {
    s += std::string(",\"") + nome + "\":";
    faixa(i.de.*campo, i.ate.*campo);
  };
  s += "{\"fotos\":" + std::to_string(i.fotos) + ",\"d\":{";
  for (std::size_t k = 0; k < percentis.size(); ++k) {
    s += (k == 0 ? "\"" : ",\"") + std::to_string(percentis[k]) + "\":";
    faixa(i.de.d[k], i.ate.d[k]);
  }
  s += '}';
  membro("media", &DISTRIBUICAO::media);
  membro("desvio", &DISTRIBUICAO::desvio);
  membro("mediaPhi", &DISTRIBUICAO::mediaPhi);
  membro("selecao", &DISTRIBUICAO::selecao);
  membro("assimetria", &DISTRIBUICAO::assimetria);
  membro("curtose", &DISTRIBUICAO::curtose);
  membro("uniformidade", &DISTRIBUICAO::uniformidade);
  membro("curvatura", &DISTRIBUICAO::curvatura);
  s += ",\"peneiras\":[";
  for (std::size_t k = 0; k < i.peneirasDe.size(); ++k) {
    s += k == 0 ? "{\"retida\":" : ",{\"retida\":";
    faixa(i.peneirasDe[k].retida, i.peneirasAte[k].retida);
    s += ",\"passante\":";
    faixa(i.peneirasDe[k].passante, i.peneirasAte[k].passante);
    s += '}';
  }
  s += "]}";
}

// Lists of sizes, weights, errors and photographs drawn at random, with their intervals, for a page
// in millimetres.
void escreveListas(const std::string& nome) {
  std::mt19937 sorteio(21);
  const std::vector<double> aberturas = {12, 18.5, 40};
  std::string s = "[";
  for (const int n : {2, 3, 7, 40, 150, 600}) {
    std::vector<MEDIDA> v;
    const std::size_t fotos = 1 + sorteio() % 6;
    const bool comErros = sorteio() % 3 != 0;
    for (int i = 0; i < n; ++i) {
      const std::size_t foto = sorteio() % fotos;
      const double x = std::round(entre(sorteio, 8, 30) * 20) / 20 + static_cast<double>(foto);
      v.push_back({x, entre(sorteio, 0.5, 4), comErros ? entre(sorteio, 0, 2) : 0, foto});
    }
    s += s.size() == 1 ? "{\"v\":[" : ",{\"v\":[";
    for (const MEDIDA& m : v) {
      s += s.back() == '[' ? "[" : ",[";
      for (const double x : {m.tamanho, m.peso, m.erro, static_cast<double>(m.foto)}) {
        poeNumero(s, x);
        s += ',';
      }
      s.back() = ']';
    }
    s += "],\"aberturas\":[12,18.5,40],\"intervalos\":";
    poeIntervalos(s, intervalos(v, UNIDADE::mm, aberturas, {120, 3}));
    s += '}';
  }
  std::ofstream(nome) << s << "]\n";
}

// What is said of the grains whose support, or else correlation, is at least that of their family.
std::string esperado(const PAGINA& pagina, const MINIMOS& minimos) {
  std::vector<MEDIDA> medidas;
  std::size_t quantas = 0;
  for (const FOTO_DA_PAGINA& foto : pagina.fotos) {
    ++quantas;
    for (const GRAO& g : foto.graos) {
      // The decimals of the lists decide, not the float that stands for them.
      std::string decimais;
      poeNumero(decimais, g.correl);
      const auto k = std::find(letras.begin(), letras.end(), g.figura.forma) - letras.begin();
      const double minimo = minimos[static_cast<std::size_t>(k)];
      if ((g.medido ? g.medido->apoio : std::stod(decimais)) < minimo) continue;
      if (g.vezes == 0) continue;
      medidas.push_back(
          medida(g, foto.escala.value_or(pagina.escala), pagina.grandeza, pagina.peso));
      medidas.back().foto = quantas;
    }
  }
  const CURVA c = curva(medidas);
  const DISTRIBUICAO d = distribui(c, pagina.escala.unidade);
  const INTERVALOS i = intervalos(medidas, pagina.escala.unidade, pagina.peneiras);
  std::string s = "{\"graos\":";
  poeJson(s, d.graos);
  s += ",\"d\":{";
  for (const int p : percentis) {
    s += (s.back() == '{' ? "\"" : ",\"") + std::to_string(p) + "\":";
    poeJson(s, valor(valorD(d, p)));
  }
  s += '}';
  const auto membro = [&s](const char* nome, const std::optional<double>& x) {
    s += std::string(",\"") + nome + "\":";
    poeJson(s, valor(x));
  };
  membro("media", d.media);
  membro("desvio", d.desvio);
  membro("mediaPhi", d.mediaPhi);
  membro("selecao", d.selecao);
  membro("assimetria", d.assimetria);
  membro("curtose", d.curtose);
  membro("uniformidade", d.uniformidade);
  membro("curvatura", d.curvatura);
  s += ",\"peneiras\":[";
  for (const PENEIRA& p : peneira(c, pagina.peneiras)) {
    s += s.back() == '[' ? "[" : ",[";
    poeJson(s, p.graos);
    s += ',';
    poeJson(s, valor(p.retida));
    s += ',';
    poeJson(s, valor(p.passante));
    s += ']';
  }
  s += "],\"intervalos\":";
  if (medidas.size() < 2) {
    s += "null";
  } else {
    poeIntervalos(s, i);
  }
  return s + "}";
}

// The same for every size and weight, as the page calls them.
std::string esperadoComOutras(PAGINA pagina) {
  std::string s = "{";
  for (const auto& [grandeza, nomeDela] : {std::pair{GRANDEZA::equivalente, "equivalente"},
                                           {GRANDEZA::menor, "menor"},
                                           {GRANDEZA::maior, "maior"}}) {
    for (const auto& [peso, nomeDele] :
         {std::pair{PESO::numero, "numero"}, {PESO::area, "area"}, {PESO::volume, "volume"}}) {
      pagina.grandeza = grandeza;
      pagina.peso = peso;
      s += (s.back() == '{' ? "\"" : ",\"") + std::string(nomeDela) + ' ' + nomeDele + "\":";
      s += esperado(pagina, pagina.limiares);
    }
  }
  return s + "}";
}

void escreve(const PAGINA& pagina, const std::string& nome) {
  impPagina(pagina, nome + ".html");
  TABELA_GRAOS tabela =
      abreGraosCsv(nome + ".csv", pagina.escala.unidade, pagina.idioma, pagina.metodo);
  for (const FOTO_DA_PAGINA& f : pagina.fotos) {
    acrescenta(tabela, {f.nome, f.tamanho.height, f.tamanho.width, f.escala.value_or(pagina.escala),
                        f.graos, pagina.metodo});
  }
  conclui(std::move(tabela));
  std::ofstream(nome + ".json") << '[' << esperado(pagina, pagina.limiares) << ','
                                << esperado(pagina, todosIguais(0.3)) << ','
                                << esperado(pagina, todosIguais(0.9)) << ','
                                << esperadoComOutras(pagina) << "]\n";
}

// Two groups of four photographs; the grains of the second are a fifth larger, half of it by the
// scale of its photographs. What was refused and corrected by hand is there too.
void escreveGrupos(const std::string& pasta, std::mt19937& sorteio) {
  PAGINA p;
  p.idioma = IDIOMA::en;
  p.titulo = "Two beaches";
  p.escala = {0.05, UNIDADE::mm};
  p.metodo = METODO::apurado;
  p.minCorr = 0.02;
  p.limiares.fill(0.33);
  p.corrigidas = {2, 1, 0, 3};
  const cv::Size tamanho(800, 600);
  for (int k = 0; k < 8; ++k) {
    std::vector<MAXLOCAL> v = sorteiaGraos(sorteio, 60, tamanho.height, tamanho.width);
    for (MAXLOCAL& m : v) {
      if (k % 2 == 0) continue;
      m.d1 *= 1.1F;
      m.d2 *= 1.1F;
    }
    FOTO_DA_PAGINA f = novaFoto(pasta, cv::format("%d.jpg", k), v, tamanho);
    f.graos = medeApurados(apura(sorteio, v), tamanho.height, tamanho.width);
    f.candidatos = medeApurados(apura(sorteio, sorteiaGraos(sorteio, 5, 600, 800)), 600, 800);
    for (GRAO& g : f.candidatos) g.indice += f.graos.size();
    f.soma = cv::format("%016d", k);
    f.grupo = k % 2 == 0 ? "north" : "south <b>";
    f.escala = measure::ESCALA{k % 2 == 0 ? 0.05 : 0.055, UNIDADE::mm};
    p.fotos.push_back(std::move(f));
  }
  p.fotos[0].correcoes = {{corrige::GESTO::rejeita, {'c', 10, 20.5, 30, 30, 0}}};
  escreve(p, pasta + "/grupos");
}

void escrevePequenas(const std::string& pasta) {
  std::mt19937 sorteio(7);
  const cv::Size tamanho(1200, 900);
  const std::string ruim = "<img src=x onerror=\"document.title='mau'\">\n</script>&amp;'\xFF.jpg";
  PAGINA p;
  p.titulo = "Amostra <b>7</b> </title><script>document.title='mau'</script>";
  p.escala = {0.05, UNIDADE::mm};
  p.peso = PESO::volume;
  p.peneiras = {0.5, 1, 1.4, 2, 2.8, 4};
  p.limiares.fill(0.1);
  p.comando = "vorplex-lote -e 0.05mm -w volume -p 0.5,1,1.4,2,2.8,4 kernel.cfg 'pilha & <areia>'";
  for (const char* nome : {"areia grossa.jpg", "pilha 1, \"úmida\".jpg", "=SOMA(A1).jpg"}) {
    p.fotos.push_back(novaFoto(pasta, nome, sorteiaGraos(sorteio, 160, 900, 1200), tamanho));
  }
  p.fotos.push_back(novaFoto(pasta, ruim, sorteiaGraos(sorteio, 5, 700, 300), {300, 700}));
  p.fotos.push_back(novaFoto(pasta, "sem grãos.jpg", {}, {640, 480}));
  p.falharam = {"queimada", ruim};
  escreve(p, pasta + "/cheia");

  PAGINA en = p;
  en.falharam.clear();
  en.idioma = IDIOMA::en;
  en.titulo = "River sand, site 4";
  en.peneiras.clear();
  en.peso = PESO::numero;
  en.grandeza = GRANDEZA::menor;
  en.fotos.resize(3);
  escreve(en, pasta + "/ingles");

  PAGINA apurada = en;
  apurada.metodo = METODO::apurado;
  apurada.titulo = "River sand, fitted";
  apurada.minCorr = 0.02;
  apurada.borda = BORDA::corrige;
  apurada.limiares.fill(0.33);
  for (FOTO_DA_PAGINA& f : apurada.fotos) {
    std::vector<MAXLOCAL> v;
    for (const GRAO& g : f.graos) v.push_back(registro(g));
    f.graos = medeApurados(apura(sorteio, v), f.tamanho.height, f.tamanho.width);
    ponderaBorda(f.graos, f.tamanho.height, f.tamanho.width, apurada.borda);
  }
  escreve(apurada, pasta + "/apurada");

  escreveGrupos(pasta, sorteio);

  PAGINA area = p;
  area.falharam = {"um"};
  area.fotos.back().figura = "";
  area.titulo = "Areia em polegadas";
  area.escala = {0.002, UNIDADE::in};
  area.grandeza = GRANDEZA::maior;
  area.peso = PESO::area;
  area.peneiras = {0.05, 0.06};
  area.limiares = {0.2345, 0.3, 0.3, 0.25};
  escreve(area, pasta + "/area");

  PAGINA vazia;
  vazia.titulo = "Nada";
  escreve(vazia, pasta + "/vazia");
  vazia.fotos = {novaFoto(pasta, "lisa.jpg", {}, {640, 480})};
  escreve(vazia, pasta + "/semgraos");
  vazia.fotos = {novaFoto(pasta, "um.jpg", {{0.5F, 'e', 240, 300, 120, 80, 30}}, {640, 480})};
  escreve(vazia, pasta + "/umgrao");
}

void escreveGrande(char** argv) {
  std::vector<int> n(4);
  for (std::size_t k = 0; k < n.size(); ++k) pim::convArg(n[k], argv[k + 2]);
  std::mt19937 sorteio(1);
  PAGINA p;
  p.titulo = "Grande";
  p.escala = {0.05, UNIDADE::mm};
  p.limiares.fill(0.1);
  for (int k = 0; k < n[0]; ++k) {
    const auto v = sorteiaGraos(sorteio, n[1] / n[0], n[2], n[3]);
    p.fotos.push_back(novaFoto(argv[1], cv::format("IMG_%04d.jpg", k), v, {n[3], n[2]}));
  }
  escreve(p, std::string(argv[1]) + "/grande");
}

int amostra(int argc, char** argv) {
  if (argc == 2) {
    escrevePequenas(argv[1]);
    escreveListas(std::string(argv[1]) + "/listas.json");
  } else if (argc == 6) {
    escreveGrande(argv);
  } else {
    std::puts("amostra_pagina pasta [fotos graos rows cols]");
    pim::erro("Erro: Numero de argumentos invalido");
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  return fim::executa([&] { return amostra(argc, argv); });
}
