#include <cstdio>
#include <string>
#include <vector>

#include "export/coco.h"
#include "export/geojson.h"
#include "export/graoscsv.h"
#include "export/qml.h"
#include "export/resumocsv.h"
#include "export/roi.h"
#include "fim/fim.h"
#include "pim/erro.h"
#include "pim/texto.h"

using namespace measure;
using namespace exporta;

// amostra LIST.ho2 ROWS COLS NAME FOLDER [SCALE]: measures a list of detections and writes
// graos.csv, todos.csv, resumo.csv, graos.geojson, graos.qml, coco.json and rois.zip into the
// folder. NAME is what the photograph is called in the tables.

namespace {

FOTOGRAFIA leFoto(char** argv, const ESCALA& escala) {
  FOTOGRAFIA foto;
  std::vector<MAXLOCAL> v;
  leMaxLocais(v, argv[1]);
  pim::convArg(foto.rows, argv[2]);
  pim::convArg(foto.cols, argv[3]);
  foto.nome = argv[4];
  foto.escala = escala;
  foto.graos = medeTodos(v, foto.rows, foto.cols);
  return foto;
}

void gravaTudo(const FOTOGRAFIA& foto, const std::string& pasta) {
  impGraosCsv(foto, pasta + "/graos.csv");
  TABELA_GRAOS todos = abreGraosCsv(pasta + "/todos.csv", foto.escala.unidade);
  acrescenta(todos, foto);
  conclui(std::move(todos));
  const RESUMO resumo = resume(foto, GRANDEZA::menor, PESO::volume, {5, 10, 20});
  const FOTOGRAFIA vazia = {"vazia", foto.rows, foto.cols, foto.escala, {}};
  const RESUMO nada = resume(vazia, GRANDEZA::menor, PESO::volume, {5, 10, 20});
  impResumoCsv({{foto.nome, resumo}, {vazia.nome, nada}}, resumo, pasta + "/resumo.csv");
  impGeojson(foto, pasta + "/graos.geojson");
  impEstiloQgis(pasta + "/graos.qml");
  COCO coco = abreCoco(pasta + "/coco.json");
  acrescenta(coco, foto, foto.nome);
  conclui(std::move(coco));
  impRois(foto, pasta + "/rois.zip");
}

int amostra(int argc, char** argv) {
  if (argc != 6 && argc != 7) {
    std::puts("amostra lista.ho2 rows cols nome pasta [escala]");
    pim::erro("Erro: Numero de argumentos invalido");
  }
  gravaTudo(leFoto(argv, argc == 7 ? leEscala(argv[6]) : ESCALA{}), argv[5]);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  return fim::executa([&] { return amostra(argc, argv); });
}
