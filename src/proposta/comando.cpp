#include "proposta/comando.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <system_error>

#include "apura/saida.h"
#include "batch/escolha/frases.h"
#include "batch/pedido/frases.h"
#include "batch/processo/processo.h"
#include "export/parcial.h"
#include "linha/ajuda.h"
#include "linha/geral.h"
#include "linha/linha.h"
#include "linha/nomes.h"
#include "linha/roda.h"
#include "linha/traducao.h"
#include "pim/imagem.h"
#include "proposta/figura.h"
#include "proposta/frases.h"
#include "proposta/opcoes.h"
#include "proposta/tabela.h"

namespace fs = std::filesystem;

namespace proposta {
namespace {

enum ESTADO_FINAL { tudoBem = 0, falhou = 1, usoErrado = 2 };

template <class... PARTES>
std::string frase(const OPCOES& o, const exporta::FRASE& f, const PARTES&... partes) {
  return cv::format(diz(f, o.idioma), partes.c_str()...);
}

void dizErro(const std::string& texto) {
  std::fprintf(stderr, "%s\n", batch::emUmaLinha(texto).c_str());
}

int recusa(const OPCOES& o, const std::string& porque, ESTADO_FINAL estado) {
  std::fflush(stdout);
  dizErro(diz(linha::frases::erro, o.idioma) + porque);
  if (estado == usoErrado) {
    dizErro(frase(o, linha::frases::vejaAjuda, std::string(programa.nome)));
  }
  return estado;
}

// What is wrong with the name of the picture, as far as it can be told before the work.
std::string motivoDaFigura(const OPCOES& o, const std::vector<batch::ALVO>& alvos) {
  if (o.figura.empty()) return "";
  if (apura::tipoDaSaida(o.figura) != apura::TIPO::imagem) {
    return frase(o, falas::sufixoDesconhecido, o.figura);
  }
  const bool apaga = std::any_of(alvos.begin(), alvos.end(), [&](const batch::ALVO& a) {
    std::error_code falha;
    return fs::equivalent(o.figura, a.arquivo, falha);
  });
  return apaga ? frase(o, falas::figuraEhFoto, o.figura) : "";
}

void dizAvisos(const OPCOES& o, const batch::AMOSTRA& a) {
  for (std::size_t i = 0; i < a.fotos.size(); ++i) {
    if (!a.lidas[i]) dizErro(frase(o, falas::ilegivel, a.fotos[i].string()));
  }
  if (!batch::algumaLida(a)) return;
  for (const std::string& aviso : batch::avisos(a, o.idioma)) dizErro(aviso);
}

int executa(const OPCOES& o) {
  const std::vector<batch::ALVO> alvos =
      batch::achaAlvos(linha::comNomesDe(stdin, o.entradas), o.recursivo, "");
  if (alvos.empty()) {
    std::string onde;
    for (const std::string& e : o.entradas) onde += (onde.empty() ? "" : ", ") + e;
    return recusa(o, frase(o, batch::falas::semFotos, onde), usoErrado);
  }
  const std::string semFigura = motivoDaFigura(o, alvos);
  if (!semFigura.empty()) return recusa(o, semFigura, usoErrado);

  const std::optional<bool> inverte = o.inverte ? std::optional(true) : std::nullopt;
  const batch::AMOSTRA a = batch::olhaFotos(alvos, o.amostra, {inverte, o.modo, o.fios});
  dizAvisos(o, a);
  if (!batch::algumaLida(a)) {
    return recusa(o, frase(o, batch::falas::nenhumaLida, std::to_string(a.fotos.size())), falhou);
  }
  if (!o.figura.empty()) {
    exporta::gravaAparte(o.figura,
                         [&](const std::string& aparte) { pim::imp(figura(a.sugestao), aparte); });
  }
  std::fputs(batch::kernelCfg(a, o.idioma).c_str(), stdout);
  std::fflush(stdout);
  if (!o.quieto) dizErro(batch::resumo(a, alvos.size(), o.idioma));
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

}  // namespace proposta
