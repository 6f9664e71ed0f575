#include "batch/medicao.h"

#include <vector>

#include "apura/registros.h"
#include "batch/obra/estado.h"
#include "detect/maxlocal.h"

namespace fs = std::filesystem;

namespace batch {
namespace {

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

}  // namespace

void apuraLista(const cv::Mat_<unsigned char>& vista, const std::string& base,
                const refine::MODO_DE_APURAR& modo) {
  std::vector<MAXLOCAL> lista;
  leMaxLocais(lista, base + ".ho1");
  const refine::APURACAO r = refine::apura(vista, lista, modo);
  std::vector<MAXLOCAL> graos;
  for (const measure::GRAO& g : measure::medeApurados(r.graos, vista.rows, vista.cols)) {
    graos.push_back(measure::registro(g));
  }
  impMaxLocais(graos, base + ".ho2");
  apura::impApurados(r.graos, arquivoDosApurados);
}

measure::FOTOGRAFIA leFotografia(const OPCOES_LOTE& o, const fs::path& pasta,
                                 const std::string& nome, cv::Size tamanho) {
  measure::FOTOGRAFIA foto{
      nome,    tamanho.height, tamanho.width, o.escala, leGraos(o.metodo, pasta, nome, tamanho),
      o.metodo};
  if (o.semBorda) std::erase_if(foto.graos, [](const measure::GRAO& g) { return g.tocaBorda; });
  return foto;
}

}  // namespace batch
