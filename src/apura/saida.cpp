#include "apura/saida.h"

#include <filesystem>
#include <system_error>
#include <vector>

#include "apura/frases.h"
#include "estampa/contornos.h"
#include "export/graoscsv.h"
#include "export/parcial.h"
#include "pim/codecs.h"
#include "pim/imagem.h"
#include "pim/texto.h"

namespace fs = std::filesystem;

namespace apura {
namespace {

bool formatoDeImagem(const std::string& tipo) {
  if (tipo == "pgm" || tipo == "ppm" || tipo == "pnm") return true;
  std::vector<unsigned char> bytes;
  return pim::codecs().codifica(tipo, cv::Mat::zeros(1, 1, CV_8UC3), bytes);
}

void impLista(const measure::FOTOGRAFIA& foto, const std::string& nome) {
  std::vector<MAXLOCAL> v;
  v.reserve(foto.graos.size());
  for (const measure::GRAO& g : foto.graos) v.push_back(measure::registro(g));
  exporta::gravaAparte(nome, [&v](const std::string& aparte) { impMaxLocais(v, aparte); });
}

void impImagem(const OPCOES& o, const measure::FOTOGRAFIA& foto, cv::Mat_<pim::VEC3B>& cores) {
  estampa::desenhaContornos(cores, foto.graos);
  if (o.indices) estampa::desenhaIndices(cores, foto.graos);
  exporta::gravaAparte(o.saida, [&](const std::string& aparte) { pim::imp(cores, aparte); });
}

}  // namespace

TIPO tipoDaSaida(const std::string& nome) {
  const std::string sufixo = pim::minuscula(pim::sufixo(nome));
  if (sufixo == "csv") return TIPO::tabela;
  if (sufixo == "ho2") return TIPO::lista;
  return !sufixo.empty() && formatoDeImagem(sufixo) ? TIPO::imagem : TIPO::desconhecido;
}

std::string motivoDaSaida(const OPCOES& o) {
  std::error_code falha;
  const auto diga = [&o](const exporta::FRASE& f) {
    return cv::format(diz(f, o.idioma), o.saida.c_str());
  };
  if (fs::is_directory(o.saida, falha)) return diga(falas::saidaEhPasta);
  const fs::path pasta = fs::path(o.saida).parent_path();
  const bool temPasta = pasta.empty() || fs::is_directory(pasta, falha);
  return temPasta ? "" : diga(falas::semPasta);
}

bool apagaEntrada(const OPCOES& o) {
  std::error_code falha;
  return fs::equivalent(o.saida, o.foto, falha) || fs::equivalent(o.saida, o.lista, falha);
}

void impSaida(const OPCOES& o, TIPO tipo, const measure::FOTOGRAFIA& foto,
              cv::Mat_<pim::VEC3B> cores) {
  if (tipo == TIPO::tabela) exporta::impGraosCsv(foto, o.saida, o.idioma);
  if (tipo == TIPO::lista) impLista(foto, o.saida);
  if (tipo == TIPO::imagem) impImagem(o, foto, cores);
}

}  // namespace apura
