#include "batch/tabelas.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <system_error>
#include <utility>

#include "batch/avisos/avisos.h"
#include "batch/medicao.h"
#include "batch/obra/estado.h"
#include "batch/obra/soma.h"
#include "batch/pedido/frases.h"
#include "batch/processo/processo.h"
#include "detect/procura.h"
#include "export/coco.h"
#include "export/graoscsv.h"
#include "export/parcial.h"
#include "export/resumocsv.h"
#include "export/valor.h"
#include "filter/filtra.h"
#include "measure/resumo.h"
#include "page/figura.h"
#include "page/pagina.h"
#include "pim/arquivo.h"
#include "pim/codecs.h"
#include "pim/erro.h"
#include "pim/texto.h"
#include "refine/apura.h"

namespace fs = std::filesystem;

namespace batch {
namespace {

ESTADO estadoDe(const OBRA& obra, const ALVO& alvo) {
  const fs::path pasta = pronta(obra, alvo.nome);
  const std::optional<ESTADO> e = leEstado(pasta);
  if (!e || !e->completo) pim::erro("Erro leitura ", (pasta / arquivoDoEstado).string());
  return *e;
}

// What the page shows of a photograph beside its grains.
page::FOTO_DA_PAGINA naPagina(const OBRA& obra, const CONJUNTO& c, const ALVO& alvo,
                              const ESTADO& e, measure::FOTOGRAFIA foto) {
  page::FOTO_DA_PAGINA f;
  f.nome = foto.nome;
  f.tamanho = {foto.cols, foto.rows};
  f.soma = e.foto;
  f.grupo = alvo.grupo;
  f.escala = foto.escala;
  if (foto.metodo == measure::METODO::apurado) {
    const std::size_t primeiro = foto.graos.empty() ? 0 : foto.graos.back().indice + 1;
    f.candidatos = leCandidatos(pronta(obra, alvo.nome), f.tamanho, primeiro);
  }
  const corrige::CORRECOES* feitas = acha(*c.correcoes, e.foto);
  if (feitas != nullptr) f.correcoes = feitas->lista;
  f.graos = std::move(foto.graos);
  return f;
}

// What a photograph says beside its grains.
OBSERVADO observado(const measure::FOTOGRAFIA& foto, const ESTADO& e) {
  OBSERVADO visto;
  for (const measure::GRAO& g : foto.graos) {
    if (g.vezes > 0) visto.diametros.push_back(g.equivalente);
  }
  visto.sinais.push_back(e.sinais);
  return visto;
}

// Makes the pictures of the page, each in a process of its own: one that has been taken away or
// damaged since it was searched ends that process alone. Then the picture with the outlines serves;
// where that fails too there is no name.
std::vector<std::string> fazFiguras(const OBRA& obra, const CONJUNTO& c) {
  const fs::path pasta = obra.pasta / "figuras";
  fs::create_directory(pasta);
  pim::codecs();  // loaded once for all of these processes
  std::vector<std::string> nomes(c.prontas.size());
  for (const bool tracada : {false, true}) {
    std::vector<std::size_t> faltam;
    for (std::size_t i = 0; i < nomes.size(); ++i) {
      if (nomes[i].empty()) faltam.push_back(i);
    }
    const auto nome = [&](std::size_t k) { return (pasta / std::to_string(faltam[k])).string(); };
    TAREFAS t;
    t.quantas = faltam.size();
    t.aoMesmoTempo = c.processos;
    t.faz = [&](std::size_t k) {
      const ALVO& alvo = c.prontas[faltam[k]];
      const fs::path fonte =
          tracada ? pronta(obra, alvo.nome) / (alvo.nome + ".png") : alvo.arquivo;
      if (!fs::is_regular_file(fonte)) return 1;  // a pipe would be waited for
      page::impFigura(fonte.string(), page::limiteDaFigura(nomes.size()), nome(k));
      return 0;
    };
    t.acabou = [&](std::size_t k, const TERMINO& fim) {
      if (fim.estado == 0) nomes[faltam[k]] = nome(k);
    };
    executaTarefas(t);
  }
  return nomes;
}

// The thresholds by which the grains were chosen.
void poeLimiares(page::PAGINA& p, const OPCOES_LOTE& o) {
  const std::string minCorr = minCorrDaProcura(o);
  p.minCorr = detect::minCorrPadrao;
  if (!minCorr.empty()) pim::convArg(p.minCorr, minCorr);
  if (o.metodo == measure::METODO::apurado) {
    p.limiares.fill(refine::menorApoio(o.modo.sensibilidade));
    return;
  }
  pim::ISTR parametros;
  parametros.texto = o.filtra;
  const LIMIARES limiares = leParametros(parametros);
  for (std::size_t k = 0; k < p.limiares.size(); ++k) {
    p.limiares[k] = std::max(p.minCorr, limiares.de(measure::letras[k]).minCorr);
  }
}

// The last folder that all of the photographs are in.
fs::path pastaComum(const std::vector<ALVO>& v) {
  if (v.empty()) return {};
  fs::path pasta = v.front().arquivo.parent_path();
  const auto fora = [&](const ALVO& a) {
    return *a.arquivo.lexically_relative(pasta).begin() == "..";
  };
  while (pasta.has_relative_path() && std::any_of(v.begin(), v.end(), fora)) {
    pasta = pasta.parent_path();
  }
  return pasta;
}

page::PAGINA comecaPagina(const OPCOES_LOTE& o, const CONJUNTO& c) {
  page::PAGINA p;
  p.titulo = c.proveniencia.titulo;
  p.idioma = o.idioma;
  p.escala = o.escala;
  p.grandeza = o.grandeza;
  p.peso = o.peso;
  p.peneiras = o.peneiras;
  p.metodo = o.metodo;
  p.borda = o.borda;
  poeLimiares(p, o);
  p.comando = c.comando;
  p.falharam = c.falharam;
  p.proveniencia = emJson(c.proveniencia, false);
  return p;
}

void junta(OBSERVADO& todos, const OBSERVADO& um) {
  todos.diametros.insert(todos.diametros.end(), um.diametros.begin(), um.diametros.end());
  todos.sinais.insert(todos.sinais.end(), um.sinais.begin(), um.sinais.end());
}

std::vector<std::string> ditos(const OBSERVADO& o, const ALCANCE& a, exporta::IDIOMA idioma) {
  std::vector<std::string> v;
  for (const AVISO& aviso : avisos(o, a)) v.push_back(frase(aviso, idioma));
  return v;
}

void impAvisos(const std::vector<std::string>& avisos, const std::string& nome) {
  std::ofstream arquivo(nome, std::ios::binary);
  for (const std::string& aviso : avisos) arquivo << aviso << '\n';
}

void assume(const OBRA& obra, const char* nome) {
  std::error_code falha;
  fs::rename(obra.pasta / nome, obra.saida / nome, falha);
  if (falha) pim::erro("Erro gravacao arquivo ", (obra.saida / nome).string());
}

// Writes from what all was made, and checksums of all results.
void impProveniencia(const OBRA& obra, const CONJUNTO& c) {
  PROVENIENCIA p = c.proveniencia;
  for (const ALVO& alvo : c.prontas) {
    for (const auto& [nome, soma] : estadoDe(obra, alvo).arquivos) {
      p.resultados[alvo.nome + '/' + nome] = soma;
    }
  }
  for (const std::string nome : arquivosDoConjunto) {
    if (nome == arquivoDaProveniencia) continue;
    p.resultados[nome] = somaDoArquivo((obra.pasta / nome).string()).value_or("");
  }
  const std::string texto = emJson(p, true);
  pim::gravaBytes((obra.pasta / arquivoDaProveniencia).string(), {texto.begin(), texto.end()});
}

}  // namespace

std::string tituloDaPagina(const OPCOES_LOTE& o) {
  constexpr std::size_t ditas = 3;
  std::string s;
  for (std::size_t i = 0; i < std::min(o.entradas.size(), ditas); ++i) {
    fs::path p = fs::path(o.entradas[i]).lexically_normal();
    if (!p.has_filename()) p = p.parent_path();  // a slash at the end
    if (p == "." || p.filename() == "..") p = fs::weakly_canonical(p).filename();
    s += (i == 0 ? "" : ", ") + p.string();
  }
  if (o.entradas.size() > ditas) s += ", ...";
  return cv::format(diz(falas::tituloDaPagina, o.idioma), s.c_str());
}

void impConjunto(const OBRA& obra, const OPCOES_LOTE& o, const CONJUNTO& c) {
  const std::vector<std::string> figuras = fazFiguras(obra, c);
  const auto aqui = [&](const char* nome) { return (obra.pasta / nome).string(); };
  exporta::TABELA_GRAOS tabela =
      abreGraosCsv(aqui("graos.csv"), o.escala.unidade, o.idioma, o.metodo);
  exporta::COCO coco = exporta::abreCoco(aqui("coco.json"), o.idioma);
  const fs::path pasta = pastaComum(c.prontas);
  measure::ACUMULADO total;
  total.grandeza = o.grandeza;
  total.peso = o.peso;
  total.unidade = o.escala.unidade;
  std::vector<exporta::LINHA_RESUMO> linhas;
  OBSERVADO todos;
  page::PAGINA pagina = comecaPagina(o, c);
  corrige::FEITAS feitas;
  for (std::size_t i = 0; i < c.prontas.size(); ++i) {
    const ALVO& alvo = c.prontas[i];
    const ESTADO e = estadoDe(obra, alvo);
    measure::FOTOGRAFIA foto =
        leFotografia(o, pronta(obra, alvo.nome), alvo, cv::Size(e.cols, e.rows));
    feitas += e.correcoes;
    const OBSERVADO visto = observado(foto, e);
    junta(todos, visto);
    acrescenta(tabela, foto);
    acrescenta(coco, foto, c.prontas[i].arquivo.lexically_relative(pasta).generic_string());
    acumula(total, foto);
    linhas.push_back({foto.nome, resume(foto, o.grandeza, o.peso, o.peneiras),
                      ditos(visto, c.alcance, o.idioma)});
    pagina.fotos.push_back(naPagina(obra, c, alvo, e, std::move(foto)));
    pagina.fotos.back().figura = figuras[i];
  }
  if (!o.correcoes.empty()) pagina.corrigidas = feitas;
  conclui(std::move(tabela));
  conclui(std::move(coco));
  pagina.avisos = ditos(todos, c.alcance, o.idioma);
  if (c.prontas.empty()) pagina.avisos.clear();
  const exporta::LINHA_RESUMO soma{"", resume(total, o.peneiras), pagina.avisos};
  impResumoCsv(linhas, soma, aqui("resumo.csv"), o.idioma);
  impAvisos(pagina.avisos, aqui(arquivoDosAvisos));
  if (o.json) {
    exporta::PARCIAL p = exporta::abreParcial(aqui(arquivoDoJson));
    p.pendente = resumoJson(linhas, soma, c.falharam, o.idioma);
    conclui(std::move(p));
  }
  impPagina(pagina, aqui("relatorio.html"));
  impProveniencia(obra, c);
  for (const char* nome : arquivosDoConjunto) assume(obra, nome);
}

}  // namespace batch
