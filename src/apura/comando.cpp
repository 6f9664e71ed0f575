#include "apura/comando.h"

#include <cstdio>
#include <opencv2/imgproc.hpp>

#include "apura/frases.h"
#include "apura/opcoes.h"
#include "apura/saida.h"
#include "apura/tabela.h"
#include "detect/maxlocal.h"
#include "export/valor.h"
#include "linha/ajuda.h"
#include "linha/geral.h"
#include "linha/linha.h"
#include "linha/roda.h"
#include "linha/traducao.h"
#include "pim/erro.h"
#include "pim/imagem.h"
#include "pim/texto.h"

namespace apura {
namespace {

enum ESTADO_FINAL { tudoBem = 0, falhou = 1, usoErrado = 2 };

// One line, whatever the names in it hold.
std::string emUmaLinha(const std::string& texto) {
  return pim::semControles(exporta::emUtf8(texto));
}

template <class... PARTES>
std::string frase(const OPCOES& o, const exporta::FRASE& f, const PARTES&... partes) {
  return cv::format(diz(f, o.idioma), partes.c_str()...);
}

int recusa(const OPCOES& o, const std::string& porque, ESTADO_FINAL estado) {
  std::fflush(stdout);
  std::fprintf(stderr, "%s%s\n", diz(linha::frases::erro, o.idioma), emUmaLinha(porque).c_str());
  if (estado == usoErrado)
    std::fprintf(stderr, "%s\n",
                 frase(o, linha::frases::vejaAjuda, std::string(programa.nome)).c_str());
  return estado;
}

struct FOTO {
  cv::Mat_<unsigned char> cinza;  // with dark grains
  cv::Mat_<pim::VEC3B> cores;     // as it is; only when it is needed
};

FOTO leFoto(const OPCOES& o, TIPO tipo) {
  FOTO f;
  if (tipo == TIPO::imagem) {
    pim::le(f.cores, o.foto);  // once only: it may come through a pipe
    cv::cvtColor(f.cores, f.cinza, cv::COLOR_BGR2GRAY);
  } else {
    pim::le(f.cinza, o.foto);
  }
  if (o.inverte) f.cinza = 255 - f.cinza;
  return f;
}

void dizResultado(const OPCOES& o, std::size_t graos, std::size_t lidas, std::size_t recusadas) {
  const std::string todas = std::to_string(lidas);
  if (!o.quieto) {
    const std::string s = frase(o, falas::resultado, std::to_string(graos), todas, o.saida);
    std::printf("%s\n", emUmaLinha(s).c_str());
  }
  if (recusadas == 0) return;
  std::fflush(stdout);
  std::fprintf(stderr, "%s\n",
               frase(o, falas::recusados, std::to_string(recusadas), todas).c_str());
}

int executa(const OPCOES& o) {
  const TIPO tipo = tipoDaSaida(o.saida);
  if (tipo == TIPO::desconhecido) {
    return recusa(o, frase(o, falas::sufixoDesconhecido, o.saida), usoErrado);
  }
  if (apagaEntrada(o)) return recusa(o, frase(o, falas::saidaEhEntrada, o.saida), usoErrado);
  const std::string semSaida = motivoDaSaida(o);
  if (!semSaida.empty()) return recusa(o, semSaida, falhou);

  std::vector<MAXLOCAL> lista;
  leMaxLocais(lista, o.lista);
  const FOTO foto = leFoto(o, tipo);
  const refine::APURACAO r = refine::apura(foto.cinza, lista, o.modo);
  if (!lista.empty() && r.recusados == lista.size()) {
    return recusa(o, frase(o, falas::nenhumaServe, o.lista, o.foto), falhou);
  }
  const int rows = foto.cinza.rows;
  const int cols = foto.cinza.cols;
  impSaida(o, tipo,
           {o.foto,
            rows,
            cols,
            {},
            measure::medeApurados(r.graos, rows, cols),
            measure::METODO::apurado},
           foto.cores);
  dizResultado(o, r.graos.size(), lista.size(), r.recusados);
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

}  // namespace apura
