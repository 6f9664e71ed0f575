// The steps of learning that are the program's own: fitting, looking, choosing and comparing.
#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "detect/maxlocal.h"
#include "fim/fim.h"
#include "pim/erro.h"
#include "pim/imagem.h"
#include "pim/token.h"
#include "refine/juizo.h"
#include "treino/nomes.h"
#include "treino/tabela.h"
#include "treino/verdade.h"

namespace {

using namespace refine;
using treino::TABELA;
using LINHA = std::span<const double>;

constexpr std::array<std::string_view, 9> colunasDoCandidato = {
    "iou", "grao", "forma", "l", "c", "d1", "d2", "ang", "correl"};
constexpr std::array<std::string_view, 3> colunasDoExame = {"contraste", "dentro", "fora"};
constexpr std::array<std::string_view, 2> colunasDoEscolhido = {"candidato", "nota"};
constexpr std::size_t larguraDoExame = colunasDoExame.size() + quantosTracos;

void nomeiaExame(TABELA& t) {
  t.nomeia(colunasDoExame);
  t.nomeia(treino::nomesDosTracos);
}

void poe(TABELA& t, const EXAME& e) {
  t.valores.insert(t.valores.end(), {e.contraste, e.dentro, e.fora});
  t.valores.insert(t.valores.end(), e.tracos.begin(), e.tracos.end());
}

EXAME exame(LINHA x) {
  EXAME e;
  e.contraste = static_cast<float>(x[0]);
  e.dentro = static_cast<float>(x[1]);
  e.fora = static_cast<float>(x[2]);
  for (std::size_t k = 0; k < quantosTracos; ++k) e.tracos[k] = static_cast<float>(x[k + 3]);
  return e;
}

CAMPO campoDe(const std::string& foto) {
  cv::Mat_<unsigned char> imagem;
  pim::le(imagem, foto);
  return preparaCampo(imagem);
}

std::vector<DETECCAO> deteccoesDe(const std::string& lista) {
  std::vector<MAXLOCAL> v;
  leMaxLocais(v, lista);
  std::vector<DETECCAO> d;
  for (const MAXLOCAL& m : v) d.push_back({figura(m), m.correl});
  return d;
}

// Mean, deviation and coefficient of each feature, and the constant.
NOTA<quantosTracos> leNota(const std::string& nome) {
  NOTA<quantosTracos> nota;
  std::FILE* f = std::fopen(nome.c_str(), "r");
  if (f == nullptr) pim::erro("Erro: Impossivel ler ", nome);
  for (TERMO_DA_NOTA& t : nota.termos) {
    pim::leNum(f, t.media, nome);
    pim::leNum(f, t.desvio, nome);
    pim::leNum(f, t.coeficiente, nome);
  }
  pim::leNum(f, nota.constante, nome);
  std::fclose(f);
  return nota;
}

// All fits of a picture, none sifted out, and how well each meets the truth.
void candidatos(const std::string& foto, const std::string& lista, const treino::VERDADE& verdade,
                const std::string& saida) {
  MODO_DE_AJUSTAR modo;
  modo.todos = true;
  TABELA t;
  t.nomeia(colunasDoCandidato);
  nomeiaExame(t);
  for (const CANDIDATO& c :
       ajustaTodos(campoDe(foto), deteccoesDe(lista), modo, pesosAprendidos())) {
    const FIGURA& f = c.figura;
    const treino::ACERTO a = acerto(verdade, f);
    t.valores.insert(t.valores.end(),
                     {a.iou, static_cast<double>(a.grao), static_cast<double>(f.forma), f.l, f.c,
                      f.d1, f.d2, f.ang, c.correl});
    poe(t, c.exame);
  }
  grava(t, saida);
}

CANDIDATO candidato(LINHA x) {
  CANDIDATO c;
  c.figura = {static_cast<char>(x[2]), x[3], x[4], x[5], x[6], x[7]};
  c.correl = static_cast<float>(x[8]);
  c.exame = exame(x.subspan(colunasDoCandidato.size()));
  return c;
}

// Which candidates are chosen by a score of shapes alone.
void escolhidos(const std::string& foto, const std::string& tabela, const std::string& nota,
                const std::string& saida) {
  const TABELA lida = treino::leTabela(tabela, colunasDoCandidato.size() + larguraDoExame);
  std::vector<CANDIDATO> v;
  for (std::size_t k = 0; k < lida.linhas(); ++k) v.push_back(candidato(lida.linha(k)));
  const JUIZO j = julga(campoDe(foto), v, {}, leNota(nota));
  TABELA t;
  t.nomeia(colunasDoEscolhido);
  nomeiaExame(t);
  for (const std::size_t k : j.escolhidos) {
    t.valores.insert(t.valores.end(), {static_cast<double>(k), j.notas[k]});
    poe(t, j.exames[k]);
  }
  grava(t, saida);
}

// The chosen ones of a picture, each in the company of the others.
void compara(const std::string& tabela, const std::string& probabilidades,
             const std::string& saida) {
  const TABELA lida = treino::leTabela(tabela, colunasDoEscolhido.size() + larguraDoExame);
  const TABELA p = treino::leTabela(probabilidades, 1);
  if (p.linhas() != lida.linhas()) pim::erro("Erro: Tabela invalida ", probabilidades);
  std::vector<EXAME> exames;
  std::vector<double> notas;
  for (std::size_t k = 0; k < lida.linhas(); ++k) {
    notas.push_back(lida.linha(k)[1]);
    exames.push_back(exame(lida.linha(k).subspan(colunasDoEscolhido.size())));
  }
  TABELA t;
  t.nomeia(treino::nomesDaCompanhia);
  for (const COMPANHIA& c : comparaTodos(exames, notas, p.valores)) {
    t.valores.insert(t.valores.end(), c.begin(), c.end());
  }
  grava(t, saida);
}

// The coarse fits of up to some 8000 detections, and the score that each reaches in the end.
void esboca(const std::string& foto, const std::string& lista, const std::string& nota,
            const std::string& saida) {
  constexpr std::size_t bastam = 8000;
  constexpr double notaDosPerdidos = -12;
  const CAMPO campo = campoDe(foto);
  const std::vector<DETECCAO> v = deteccoesDe(lista);
  const NOTA<quantosTracos> sozinha = leNota(nota);
  TABELA t;
  t.colunas = {"nota"};
  t.nomeia(treino::nomesDosEsbocados);
  BANCADA b;
  for (std::size_t k = 0; k < v.size(); k += v.size() / bastam + 1) {
    FIGURA f = v[k].figura;
    const std::optional<ESBOCADOS> visto = ajustaGrosso(campo, f, v[k].correl, b);
    if (!visto) continue;
    const std::vector<CANDIDATO> fim = ajustaTodos(campo, {v[k]}, {}, pesosAprendidos());
    t.valores.push_back(fim.empty() ? notaDosPerdidos : sozinha.de(fim[0].exame.tracos));
    t.valores.insert(t.valores.end(), visto->begin(), visto->end());
  }
  grava(t, saida);
}

int treina(const std::vector<std::string>& a) {
  const auto e = [&](std::string_view passo, std::size_t n) {
    return a.size() == n + 1 && a[0] == passo;
  };
  if (e("candidatos", 5)) {
    candidatos(a[1], a[2], treino::leVerdade(a[3], a[4] == "-" ? "" : a[4]), a[5]);
  } else if (e("escolhe", 4)) {
    escolhidos(a[1], a[2], a[3], a[4]);
  } else if (e("compara", 3)) {
    compara(a[1], a[2], a[3]);
  } else if (e("esboca", 4)) {
    esboca(a[1], a[2], a[3], a[4]);
  } else {
    std::puts("treino candidatos FOTO LISTA.ho1 VERDADE.csv ROTULOS.png|- SAIDA");
    std::puts("treino escolhe FOTO CANDIDATOS NOTA SAIDA");
    std::puts("treino compara ESCOLHIDOS PROBABILIDADES SAIDA");
    std::puts("treino esboca FOTO LISTA.ho1 NOTA SAIDA");
    pim::erro("Erro: Argumentos invalidos");
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  return fim::executa([&] { return treina({argv + 1, argv + argc}); });
}
