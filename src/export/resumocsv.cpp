#include "export/resumocsv.h"

#include <algorithm>
#include <array>
#include <utility>

#include "export/parcial.h"
#include "export/valor.h"
#include "pim/erro.h"

namespace exporta {
namespace {

struct CELULA {
  std::string nome;
  VALOR valor;
};

// To seven significant digits.
VALOR numero(const std::optional<double>& x) {
  return x ? VALOR(emDigitos(*x, 7)) : VALOR();
}

std::string medido(const FRASE& f, const measure::RESUMO& r, IDIOMA idioma,
                   const char* sufixo = "") {
  return std::string(diz(f, idioma)) + '_' + nomeDaUnidade(r.unidade) + sufixo;
}

std::string emPhi(const FRASE& f, const measure::RESUMO& r, IDIOMA idioma) {
  return std::string(diz(f, idioma)) + (r.unidade == measure::UNIDADE::px ? "_phi_px" : "_phi");
}

void poeContagens(std::vector<CELULA>& c, const measure::RESUMO& r, IDIOMA idioma) {
  constexpr std::array<FRASE, measure::letras.size()> formas = {
      frases::circulos, frases::quadrados, frases::retangulos, frases::elipses};
  c.push_back({diz(frases::fotos, idioma), r.fotos});
  c.push_back({diz(frases::graos, idioma), r.graos});
  for (std::size_t k = 0; k < measure::letras.size(); ++k) {
    c.push_back({diz(formas[k], idioma), r.porForma[k]});
  }
  c.push_back({diz(frases::naBorda, idioma), r.naBorda});
  c.push_back({medido(frases::areaDaFoto, r, idioma, "2"), emDigitos(r.area, 12)});
  c.push_back({medido(frases::densidade, r, idioma, "2"), numero(r.densidade)});
  c.push_back({diz(frases::grandeza, idioma), std::string(nomeDaGrandeza(r.grandeza, idioma))});
  c.push_back({diz(frases::peso, idioma), std::string(nomeDoPeso(r.peso, idioma))});
}

void poeDistribuicao(std::vector<CELULA>& c, const measure::RESUMO& r,
                     const measure::DISTRIBUICAO& d, IDIOMA idioma) {
  for (std::size_t i = 0; i < measure::percentis.size(); ++i) {
    const std::string nome =
        'd' + std::to_string(measure::percentis[i]) + '_' + nomeDaUnidade(r.unidade);
    c.push_back({nome, numero(d.d[i])});
  }
  c.push_back({medido(frases::media, r, idioma), numero(d.media)});
  c.push_back({medido(frases::desvio, r, idioma), numero(d.desvio)});
  c.push_back({emPhi(frases::mediaPhi, r, idioma), numero(d.mediaPhi)});
  c.push_back({emPhi(frases::selecao, r, idioma), numero(d.selecao)});
  c.push_back({diz(frases::assimetria, idioma), numero(d.assimetria)});
  c.push_back({diz(frases::curtose, idioma), numero(d.curtose)});
  c.push_back({diz(frases::uniformidade, idioma), numero(d.uniformidade)});
  c.push_back({diz(frases::curvatura, idioma), numero(d.curvatura)});
}

void poePeneiras(std::vector<CELULA>& c, const measure::RESUMO& r,
                 const std::vector<measure::PENEIRA>& peneiras, IDIOMA idioma) {
  for (const measure::PENEIRA& p : peneiras) {
    if (p.de == 0) {
      c.push_back({std::string(diz(frases::retida, idioma)) + '_' + diz(frases::fundo, idioma),
                   numero(p.retida)});
      continue;
    }
    std::string malha = "_";
    poeNumero(malha, p.de);
    malha += std::string("_") + nomeDaUnidade(r.unidade);
    c.push_back({diz(frases::retida, idioma) + malha, numero(p.retida)});
    c.push_back({diz(frases::passante, idioma) + malha, numero(p.passante)});
  }
}

// Both ends of each number of the distribution and its sieves.
void poeIntervalos(std::vector<CELULA>& c, const measure::RESUMO& r, IDIOMA idioma) {
  const measure::INTERVALOS& i = r.intervalos;
  std::vector<CELULA> de;
  std::vector<CELULA> ate;
  poeDistribuicao(de, r, i.de, idioma);
  poePeneiras(de, r, i.peneirasDe, idioma);
  poeDistribuicao(ate, r, i.ate, idioma);
  poePeneiras(ate, r, i.peneirasAte, idioma);
  for (std::size_t k = 0; k < de.size(); ++k) {
    c.push_back({de[k].nome + '_' + diz(frases::de, idioma), de[k].valor});
    c.push_back({de[k].nome + '_' + diz(frases::ate, idioma), ate[k].valor});
  }
}

// What makes the numbers doubtful, and what the intervals don't know.
std::string reparo(const LINHA_RESUMO& linha, IDIOMA idioma) {
  std::vector<std::string> v = linha.avisos;
  if (linha.resumo.intervalos.fotos == 1) v.emplace_back(diz(frases::umaFoto, idioma));
  std::string s;
  for (const std::string& um : v) s += (s.empty() ? "" : "; ") + um;
  return s;
}

std::vector<CELULA> celulas(const LINHA_RESUMO& linha, IDIOMA idioma) {
  const measure::RESUMO& r = linha.resumo;
  std::vector<CELULA> c = {{diz(frases::foto, idioma), linha.foto}};
  poeContagens(c, r, idioma);
  poeDistribuicao(c, r, r.distribuicao, idioma);
  poePeneiras(c, r, r.peneiras, idioma);
  poeIntervalos(c, r, idioma);
  c.push_back({diz(frases::cobertura, idioma), numero(r.cobertura)});
  c.push_back({diz(frases::reparo, idioma), reparo(linha, idioma)});
  return c;
}

void poeLinha(PARCIAL& p, const std::vector<CELULA>& c) {
  for (const CELULA& celula : c) {
    poeCsv(p.pendente, celula.valor);
    p.pendente += ',';
  }
  p.pendente.back() = '\n';
  adianta(p);
}

bool mesmasColunas(const std::vector<CELULA>& a, const std::vector<CELULA>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const CELULA& x, const CELULA& y) { return x.nome == y.nome; });
}

}  // namespace

void impResumoCsv(const std::vector<LINHA_RESUMO>& linhas, const LINHA_RESUMO& total,
                  const std::string& nome, IDIOMA idioma) {
  PARCIAL p = abreParcial(nome);
  LINHA_RESUMO soma = total;
  soma.foto = diz(frases::total, idioma);
  const std::vector<CELULA> ultima = celulas(soma, idioma);
  for (const CELULA& celula : ultima) {
    poeCsv(p.pendente, celula.nome);
    p.pendente += ',';
  }
  p.pendente.back() = '\n';
  for (const LINHA_RESUMO& linha : linhas) {
    const std::vector<CELULA> c = celulas(linha, idioma);
    if (!mesmasColunas(c, ultima)) pim::erro("Erro: Resumo com outras colunas: ", linha.foto);
    poeLinha(p, c);
  }
  poeLinha(p, ultima);
  conclui(std::move(p));
}

namespace {

void poeObjeto(std::string& s, const std::vector<CELULA>& c, const std::string& margem) {
  s += "{";
  for (const CELULA& celula : c) {
    s += (&celula == c.data() ? "\n  " : ",\n  ") + margem;
    poeJson(s, celula.nome);
    s += ": ";
    poeJson(s, celula.valor);
  }
  s += '\n' + margem + '}';
}

}  // namespace

std::string resumoJson(const std::vector<LINHA_RESUMO>& linhas, const LINHA_RESUMO& total,
                       const std::vector<std::string>& falharam, IDIOMA idioma) {
  const auto chave = [idioma](const FRASE& f) {
    return '"' + std::string(diz(f, idioma)) + "\": ";
  };
  std::string s = "{\n  " + chave(frases::fotos) + "[";
  for (const LINHA_RESUMO& linha : linhas) {
    s += &linha == linhas.data() ? "\n    " : ",\n    ";
    poeObjeto(s, celulas(linha, idioma), "    ");
  }
  s += (linhas.empty() ? "],\n  " : "\n  ],\n  ") + chave(frases::total);
  LINHA_RESUMO soma = total;
  soma.foto = diz(frases::total, idioma);
  poeObjeto(s, celulas(soma, idioma), "  ");
  s += ",\n  " + chave(frases::falharam) + '[';
  for (const std::string& nome : falharam) {
    if (&nome != falharam.data()) s += ", ";
    poeJson(s, nome);
  }
  return s + "]\n}\n";
}

std::string resumoJson(const std::vector<LINHA_RESUMO>& linhas, const measure::RESUMO& total,
                       const std::vector<std::string>& falharam, IDIOMA idioma) {
  return resumoJson(linhas, LINHA_RESUMO{"", total}, falharam, idioma);
}

void impResumoCsv(const std::vector<LINHA_RESUMO>& linhas, const measure::RESUMO& total,
                  const std::string& nome, IDIOMA idioma) {
  impResumoCsv(linhas, LINHA_RESUMO{"", total}, nome, idioma);
}

}  // namespace exporta
