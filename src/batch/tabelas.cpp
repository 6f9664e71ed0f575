#include "batch/tabelas.h"

#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "batch/estado.h"
#include "batch/frases.h"
#include "detect/maxlocal.h"
#include "export/graoscsv.h"
#include "export/resumocsv.h"
#include "export/valor.h"
#include "measure/resumo.h"
#include "page/pagina.h"
#include "pim/arquivo.h"
#include "pim/erro.h"
#include "pim/texto.h"

namespace fs = std::filesystem;

namespace {

FOTOGRAFIA leFotografia(const OBRA& obra, const OPCOES_LOTE& o, const std::string& nome) {
  const fs::path pasta = pronta(obra, nome);
  const std::optional<ESTADO> e = leEstado(pasta);
  if (!e || !e->completo) pim::erro("Erro leitura ", (pasta / arquivoDoEstado).string());
  std::vector<MAXLOCAL> v;
  leMaxLocais(v, (pasta / (nome + ".ho2")).string());
  FOTOGRAFIA foto{nome, e->rows, e->cols, o.escala, medeTodos(v, e->rows, e->cols)};
  if (o.semBorda) std::erase_if(foto.graos, [](const GRAO& g) { return g.tocaBorda; });
  return foto;
}

// The photograph; the picture with the outlines if it has been taken away meanwhile.
std::string figura(const OBRA& obra, const ALVO& alvo) {
  const pim::ARQUIVO arquivo(std::fopen(alvo.arquivo.c_str(), "rbe"));
  if (arquivo) return alvo.arquivo.string();
  return (pronta(obra, alvo.nome) / (alvo.nome + ".png")).string();
}

PAGINA comecaPagina(const OPCOES_LOTE& o, const std::string& comando) {
  PAGINA p;
  const std::string pasta = fs::path(o.saida).lexically_normal().string();
  p.titulo = cv::format(diz(falas::tituloDaPagina, o.idioma), pasta.c_str());
  p.idioma = o.idioma;
  p.escala = o.escala;
  p.grandeza = o.grandeza;
  p.peso = o.peso;
  p.peneiras = o.peneiras;
  if (!o.minCorr.empty()) pim::convArg(p.minCorr, o.minCorr);
  p.comando = comando;
  return p;
}

void assume(const OBRA& obra, const char* nome) {
  std::error_code falha;
  fs::rename(obra.pasta / nome, obra.saida / nome, falha);
  if (falha) pim::erro("Erro gravacao arquivo ", (obra.saida / nome).string());
}

}  // namespace

void impConjunto(const OBRA& obra, const OPCOES_LOTE& o, const std::vector<ALVO>& prontas,
                 const std::string& comando) {
  const auto aqui = [&](const char* nome) { return (obra.pasta / nome).string(); };
  TABELA_GRAOS tabela = abreGraosCsv(aqui("graos.csv"), o.escala.unidade, o.idioma);
  ACUMULADO total;
  total.grandeza = o.grandeza;
  total.peso = o.peso;
  total.unidade = o.escala.unidade;
  std::vector<LINHA_RESUMO> linhas;
  PAGINA pagina = comecaPagina(o, comando);
  for (const ALVO& alvo : prontas) {
    FOTOGRAFIA foto = leFotografia(obra, o, alvo.nome);
    acrescenta(tabela, foto);
    acumula(total, foto);
    linhas.push_back({foto.nome, resume(foto, o.grandeza, o.peso, o.peneiras)});
    pagina.fotos.push_back(
        {foto.nome, figura(obra, alvo), cv::Size(foto.cols, foto.rows), std::move(foto.graos)});
  }
  conclui(std::move(tabela));
  impResumoCsv(linhas, resume(total, o.peneiras), aqui("resumo.csv"), o.idioma);
  impPagina(pagina, aqui("relatorio.html"));
  for (const char* nome : arquivosDoConjunto) assume(obra, nome);
}
