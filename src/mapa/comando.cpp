#include "mapa/comando.h"

#include <cstdio>
#include <filesystem>
#include <opencv2/core.hpp>
#include <system_error>

#include "apura/frases.h"
#include "apura/saida.h"
#include "export/valor.h"
#include "linha/ajuda.h"
#include "linha/geral.h"
#include "linha/linha.h"
#include "linha/roda.h"
#include "linha/traducao.h"
#include "mapa/frases.h"
#include "mapa/opcoes.h"
#include "mapa/saida.h"
#include "mapa/tabela.h"
#include "pim/imagem.h"
#include "pim/texto.h"

namespace mapa {
namespace {

enum ESTADO_FINAL { tudoBem = 0, falhou = 1, usoErrado = 2 };

// One line, whatever the names in it hold.
std::string emUmaLinha(const std::string& texto) {
  return pim::semControles(exporta::emUtf8(texto));
}

int recusa(const OPCOES& o, const std::string& porque, ESTADO_FINAL estado) {
  std::fflush(stdout);
  std::fprintf(stderr, "%s%s\n", diz(linha::frases::erro, o.idioma), emUmaLinha(porque).c_str());
  if (estado == usoErrado) {
    const std::string veja = cv::format(diz(linha::frases::vejaAjuda, o.idioma), programa.nome);
    std::fprintf(stderr, "%s\n", veja.c_str());
  }
  return estado;
}

std::string sobre(const OPCOES& o, const exporta::FRASE& f, const std::string& nome) {
  return cv::format(diz(f, o.idioma), nome.c_str());
}

void mostraCartao(const textura::REDE& rede) {
  for (const std::string& linha : rede.cartao) std::printf("%s\n", emUmaLinha(linha).c_str());
}

int executa(const OPCOES& o) {
  const TIPO tipo = o.foto.empty() ? TIPO::lista : tipoDaSaida(o.saida);
  if (tipo == TIPO::desconhecido) {
    return recusa(o, sobre(o, apura::falas::sufixoDesconhecido, o.saida), usoErrado);
  }
  std::error_code falha;
  if (std::filesystem::equivalent(o.saida, o.foto, falha)) {
    return recusa(o, sobre(o, apura::falas::saidaEhEntrada, o.saida), usoErrado);
  }
  apura::OPCOES como;
  como.saida = o.saida;
  como.idioma = o.idioma;
  const std::string semSaida = o.foto.empty() ? "" : apura::motivoDaSaida(como);
  if (!semSaida.empty()) return recusa(o, semSaida, falhou);

  const textura::REDE rede = textura::leRede(textura::arquivoDosPesos(o.rede));
  if (o.cartao) mostraCartao(rede);
  if (o.foto.empty()) return tudoBem;
  cv::Mat_<pim::VEC3B> cores;
  pim::le(cores, o.foto);
  cv::Mat_<unsigned char> cinza;
  pim::converte(cores, cinza);
  const textura::ACHADOS a = textura::acha(cinza, rede, o.modo);
  impSaida(o, tipo, a, cores);
  if (!o.quieto) {
    const std::string s = cv::format(diz(falas::resultado, o.idioma),
                                     std::to_string(a.graos.size()).c_str(), o.saida.c_str());
    std::printf("%s\n", emUmaLinha(s).c_str());
  }
  return tudoBem;
}

}  // namespace

int comando(const std::vector<std::string>& args, const std::string& versao) {
  linha::garanteSaidas();
  OPCOES o;
  o.idioma = linha::idiomaDoAmbiente();
  const std::string erro = leOpcoes(args, o);
  return linha::roda(
      programa, versao, o, erro, [&] { return executa(o); },
      [&](const std::string& porque, int estado) {
        return recusa(o, porque, static_cast<ESTADO_FINAL>(estado));
      });
}

}  // namespace mapa
