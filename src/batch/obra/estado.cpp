#include "batch/obra/estado.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <system_error>

#include "batch/obra/soma.h"
#include "pim/arquivo.h"

namespace fs = std::filesystem;

namespace batch {
namespace {

constexpr std::string_view marca = "vorplex-lote";
constexpr std::string_view formato = "vorplex-lote 1";

}  // namespace

std::vector<std::string> arquivosDaFoto(const std::string& nome, measure::METODO metodo,
                                        bool comGraos) {
  std::vector<std::string> v = {nome + ".ho1", nome + ".ho2",   nome + ".rel", nome + ".png",
                                "graos.csv",   "graos.geojson", "graos.qml"};
  if (comGraos) v.emplace_back("rois.zip");
  if (metodo == measure::METODO::apurado) {
    v.insert(v.end(), {arquivoDosApurados, arquivoDosCandidatos});
  }
  return v;
}

void marcaFalha(const fs::path& pasta) {
  std::ofstream(pasta / arquivoDoEstado, std::ios::binary) << formato << '\n';
}

void impEstado(const ESTADO& e, const fs::path& pasta) {
  const std::string nome = (pasta / arquivoDoEstado).string();
  pim::ARQUIVO arquivo = pim::abre(nome, "wb");
  std::FILE* f = arquivo.get();
  std::fprintf(f, "%s\n", formato.data());
  if (e.completo) {
    std::fprintf(f, "procura %s\nfiltro %s\nmedida %s\n", e.origem.procura.c_str(),
                 e.origem.filtro.c_str(), e.origem.medida.c_str());
    std::fprintf(f, "tamanho %d %d\ngraos %zu\nfoto %s\n", e.rows, e.cols, e.graos, e.foto.c_str());
    const corrige::FEITAS& c = e.correcoes;
    std::fprintf(f, "correcoes %zu %zu %zu %zu\n", c.rejeitados, c.recuperados, c.desenhados,
                 c.semPar);
    std::fprintf(f, "sinais %.6g %.6g %.6g\n", e.sinais.escuros, e.sinais.claros,
                 e.sinais.desfoque);
    for (const auto& [quem, soma] : e.arquivos) {
      std::fprintf(f, "arquivo %s %s\n", soma.c_str(), quem.c_str());
    }
    std::fputs("completo\n", f);
  }
  pim::fechaEscrita(std::move(arquivo), nome);
}

std::optional<ESTADO> leEstado(const fs::path& pasta) {
  std::ifstream f(pasta / arquivoDoEstado, std::ios::binary);
  std::string linha;
  if (!std::getline(f, linha) || linha != formato) return std::nullopt;
  ESTADO e;
  while (std::getline(f, linha)) {
    std::istringstream partes(linha);
    std::string chave;
    partes >> chave;
    if (chave == "procura") partes >> e.origem.procura;
    if (chave == "filtro") partes >> e.origem.filtro;
    if (chave == "medida") partes >> e.origem.medida;
    if (chave == "tamanho") partes >> e.rows >> e.cols;
    if (chave == "graos") partes >> e.graos;
    if (chave == "foto") partes >> e.foto;
    if (chave == "correcoes") {
      corrige::FEITAS& c = e.correcoes;
      partes >> c.rejeitados >> c.recuperados >> c.desenhados >> c.semPar;
    }
    if (chave == "sinais") partes >> e.sinais.escuros >> e.sinais.claros >> e.sinais.desfoque;
    if (chave == "completo") e.completo = true;
    if (chave == "arquivo") {
      std::string soma;
      std::string quem;
      partes >> soma;
      partes.get();
      std::getline(partes, quem);
      e.arquivos[quem] = soma;
    }
  }
  return e;
}

bool ehPastaDeResultados(const fs::path& pasta) {
  std::ifstream f(pasta / arquivoDoEstado, std::ios::binary);
  std::string inicio(marca.size(), '\0');
  f.read(inicio.data(), static_cast<std::streamsize>(inicio.size()));
  return f && inicio == marca;
}

bool intacto(const ESTADO& e, const fs::path& pasta, const std::string& arquivo) {
  const auto posto = e.arquivos.find(arquivo);
  if (posto == e.arquivos.end()) return false;
  return somaDoArquivo((pasta / arquivo).string()) == posto->second;
}

}  // namespace batch
