#include "batch/medicao.h"

#include <algorithm>
#include <vector>

#include "apura/registros.h"
#include "batch/obra/estado.h"
#include "detect/maxlocal.h"

namespace fs = std::filesystem;

namespace batch {

std::vector<measure::GRAO> leGraos(measure::METODO metodo, const fs::path& pasta,
                                   const std::string& nome, cv::Size tamanho) {
  if (metodo == measure::METODO::apurado) {
    const auto v = apura::leApurados((pasta / arquivoDosApurados).string());
    return measure::medeApurados(v, tamanho.height, tamanho.width);
  }
  std::vector<MAXLOCAL> v;
  leMaxLocais(v, (pasta / (nome + ".ho2")).string());
  return measure::medeTodos(v, tamanho.height, tamanho.width);
}

namespace {

bool contem(const std::vector<refine::APURADO>& v, const refine::APURADO& a) {
  return std::any_of(v.begin(), v.end(), [&](const refine::APURADO& b) {
    const refine::FIGURA& f = a.figura;
    const refine::FIGURA& g = b.figura;
    return f.forma == g.forma && f.l == g.l && f.c == g.c && f.d1 == g.d1 && f.d2 == g.d2;
  });
}

}  // namespace

corrige::FEITAS apuraLista(const cv::Mat_<unsigned char>& vista, const std::string& base,
                           const refine::MODO_DE_APURAR& modo,
                           const corrige::CORRECOES* correcoes) {
  std::vector<MAXLOCAL> lista;
  leMaxLocais(lista, base + ".ho1");
  refine::APURACAO r = refine::apura(vista, lista, modo);
  const std::vector<refine::APURADO> achados = r.graos;
  corrige::FEITAS feitas;
  if (correcoes != nullptr) feitas = corrige::aplica(vista, correcoes->lista, r.graos);
  std::vector<MAXLOCAL> graos;
  for (const measure::GRAO& g : measure::medeApurados(r.graos, vista.rows, vista.cols)) {
    graos.push_back(measure::registro(g));
  }
  impMaxLocais(graos, base + ".ho2");
  apura::impApurados(r.graos, arquivoDosApurados);
  // What was taken away by hand can be brought back, too.
  for (const refine::APURADO& a : achados) {
    if (!contem(r.graos, a)) r.candidatos.push_back(a);
  }
  apura::impApurados(r.candidatos, arquivoDosCandidatos);
  return feitas;
}

measure::ESCALA escalaDe(const OPCOES_LOTE& o, const ALVO& alvo) {
  return alvo.escala.value_or(o.escala);
}

bool claros(const OPCOES_LOTE& o, const ALVO& alvo) {
  return alvo.claros.value_or(o.inverte);
}

measure::FOTOGRAFIA leFotografia(const OPCOES_LOTE& o, const fs::path& pasta, const ALVO& alvo,
                                 cv::Size tamanho) {
  measure::FOTOGRAFIA foto{alvo.nome,
                           tamanho.height,
                           tamanho.width,
                           escalaDe(o, alvo),
                           leGraos(o.metodo, pasta, alvo.nome, tamanho),
                           o.metodo};
  foto.borda = o.borda;
  ponderaBorda(foto.graos, foto.rows, foto.cols, o.borda);
  return foto;
}

std::vector<measure::GRAO> leCandidatos(const fs::path& pasta, cv::Size tamanho,
                                        std::size_t primeiro) {
  const auto v = apura::leApurados((pasta / arquivoDosCandidatos).string());
  std::vector<measure::GRAO> candidatos = measure::medeApurados(v, tamanho.height, tamanho.width);
  for (measure::GRAO& g : candidatos) g.indice += primeiro;
  return candidatos;
}

}  // namespace batch
