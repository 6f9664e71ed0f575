#include "batch/fotografia.h"

#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <optional>
#include <system_error>
#include <vector>

#include "batch/cabecalho.h"
#include "batch/frases.h"
#include "batch/medicao.h"
#include "batch/processo.h"
#include "batch/soma.h"
#include "detect/maxlocal.h"
#include "export/geojson.h"
#include "export/graoscsv.h"
#include "export/roi.h"
#include "linha/linha.h"
#include "measure/resumo.h"
#include "pim/erro.h"
#include "pim/imagem.h"

namespace fs = std::filesystem;

namespace batch {
namespace {

constexpr const char* invertida = "invertida.pgm";

std::string frase(const RECEITA& r, const exporta::FRASE& f) {
  return diz(f, r.opcoes.idioma);
}

// What ends a photograph before its results are complete; fazFotografia catches it.
struct DESISTENCIA {
  int fim;
};

// Nothing more is done when a sub-program has failed, the reason standing in its output.
void exigeBom(const RECEITA& r, const TERMINO& t, const std::vector<std::string>& args) {
  if (t.estado == 0) return;
  const std::string porque = motivo(t, args[0], r.opcoes.idioma);
  // One that could say why has said so; one that was ended by a signal could not.
  if (t.fala.find(porque) == std::string::npos) pim::erro(frase(r, linha::frases::erro), porque);
  throw DESISTENCIA{fins::falhou};
}

void executa(const RECEITA& r, const std::vector<std::string>& args) {
  exigeBom(r, executaPrograma(r.vorplex, args), args);
}

// The assertion in which `correla` ends when it has found nothing at all.
bool nadaAchado(const TERMINO& t) {
  return t.sinal == SIGABRT && t.fala.find("Ordenando os 0 maximos locais") != std::string::npos &&
         t.fala.find("void ordena(std::vector<MAXLOCAL>&, int, int): Assertion `l<=r' failed") !=
             std::string::npos;
}

void inverte(const std::string& foto) {
  cv::Mat_<unsigned char> img;
  pim::le(img, foto);
  pim::imp(cv::Mat_<unsigned char>(255 - img), invertida);
}

void procura(const RECEITA& r, const std::string& foto, const std::string& ho1) {
  std::vector<std::string> args = {"correla", foto, r.kernel, ho1};
  const std::string minCorr = minCorrDaProcura(r.opcoes);
  if (!minCorr.empty()) args.push_back(minCorr);
  const TERMINO t = executaPrograma(r.vorplex, args);
  if (nadaAchado(t)) return impMaxLocais({}, ho1);
  exigeBom(r, t, args);
}

// Takes a file of the earlier results over: never changed in place, it may be the same file.
bool aproveita(const ESTADO& e, const fs::path& antiga, const std::string& arquivo) {
  if (!intacto(e, antiga, arquivo)) return false;
  std::error_code falha;
  fs::create_hard_link(antiga / arquivo, arquivo, falha);
  return !falha || fs::copy_file(antiga / arquivo, arquivo, falha);
}

// Measures what was found and writes the exports; returns how many grains are in them.
std::size_t mede(const RECEITA& r, const ALVO& alvo, cv::Size tamanho) {
  const OPCOES_LOTE& o = r.opcoes;
  const measure::FOTOGRAFIA foto = leFotografia(o, ".", alvo.nome, tamanho);
  impGraosCsv(foto, "graos.csv", o.idioma);
  impGeojson(foto, "graos.geojson", o.idioma);
  exporta::impRois(foto, "rois.zip");  // none without grains
  return foto.graos.size();
}

// Which of the detections are grains: leaves the .ho2 and what the method keeps beside it.
void escolhe(const RECEITA& r, const std::string& vista, const std::string& nome) {
  if (r.opcoes.metodo == measure::METODO::apurado) {
    refine::MODO_DE_APURAR modo = r.opcoes.modo;
    modo.fios = r.fios;
    return apuraLista(vista, nome, modo);
  }
  std::vector<std::string> args = {"filtra", vista, nome + ".ho1", nome + ".ho2"};
  if (!r.opcoes.filtra.empty()) args.push_back(r.opcoes.filtra);
  executa(r, args);
}

// The steps that are not taken over from `antigo`.
void detecta(const RECEITA& r, const ALVO& alvo, const ORIGEM& nova,
             const std::optional<ESTADO>& antigo) {
  const fs::path antiga = pronta(r.obra, alvo.nome);
  const std::string nome = "./" + alvo.nome;  // no word that begins with a dash
  const std::string foto = alvo.arquivo.string();
  const bool mesmaProcura = antigo && antigo->origem.procura == nova.procura;
  const bool mesmoFiltro = mesmaProcura && antigo->origem.filtro == nova.filtro;
  const auto serve = [&](bool mesma, const char* sufixo) {
    return mesma && aproveita(*antigo, antiga, alvo.nome + sufixo);
  };
  const bool temHo1 = serve(mesmaProcura, ".ho1");
  const bool temHo2 = temHo1 && serve(mesmoFiltro, ".ho2") &&
                      (r.opcoes.metodo == measure::METODO::classico ||
                       aproveita(*antigo, antiga, arquivoDosApurados));
  if (r.opcoes.inverte && !temHo2) inverte(foto);
  const std::string vista = r.opcoes.inverte ? invertida : foto;
  if (!temHo1) procura(r, vista, nome + ".ho1");
  if (!temHo2) escolhe(r, vista, nome);
  if (!temHo2 || !serve(true, ".rel")) executa(r, {"relat", nome + ".ho2", nome + ".rel"});
  if (!temHo2 || !serve(true, ".png")) {
    executa(r, {"traca", foto, nome + ".ho2", nome + ".png", "C", "i"});
  }
  std::error_code falha;
  fs::remove(invertida, falha);
}

}  // namespace

namespace {

// All that the choice of the grains depends on; no parameters of filtra read like it.
std::string emTexto(const refine::MODO_DE_APURAR& m) {
  return cv::format("apurado %s %a %a %a %a %d", m.familias.c_str(), m.menor, m.maior,
                    m.sobreposicao, m.sensibilidade, m.semLetras ? 1 : 0);
}

}  // namespace

ORIGEM origem(const RECEITA& r, const std::string& fotoSoma) {
  const OPCOES_LOTE& o = r.opcoes;
  ORIGEM e;
  SOMA soma;
  for (const std::string& s : {r.versao, fotoSoma, r.kernelSoma, minCorrDaProcura(o)}) {
    soma.poe(s);
  }
  soma.poe(o.inverte ? "1" : "0");
  e.procura = soma.texto();
  soma.poe(o.metodo == measure::METODO::apurado ? emTexto(o.modo) : o.filtra);
  e.filtro = soma.texto();
  soma.poe(cv::format("%a %s %d %d", o.escala.lado, nomeDaUnidade(o.escala.unidade),
                      o.semBorda ? 1 : 0, static_cast<int>(o.idioma)));
  e.medida = soma.texto();
  return e;
}

bool completos(const ESTADO& e, const fs::path& pasta, const std::string& nome,
               measure::METODO metodo) {
  const auto feitos = arquivosDaFoto(nome, metodo, e.graos > 0);
  // Nor is anything there that this version would not make.
  const bool estes = e.completo && e.arquivos.size() == feitos.size();
  return estes && std::all_of(feitos.begin(), feitos.end(), [&](const std::string& arquivo) {
           return intacto(e, pasta, arquivo);
         });
}

namespace {

// Nothing can be done for this photograph.
[[noreturn]] void desiste(const RECEITA& r, int fim, const std::string& porque) {
  std::puts((frase(r, linha::frases::erro) + porque).c_str());
  throw DESISTENCIA{fim};
}

// The checksum of the photograph.
std::string exigeSoma(const RECEITA& r, const std::string& foto) {
  const std::optional<std::string> soma = somaDoArquivo(foto);
  if (!soma) desiste(r, fins::ilegivel, frase(r, falas::fotoIlegivel));
  return *soma;
}

// What is in the working folder, the current directory.
void registra(ESTADO& e, const std::string& nome, measure::METODO metodo) {
  for (const std::string& arquivo : arquivosDaFoto(nome, metodo, e.graos > 0)) {
    const std::optional<std::string> soma = somaDoArquivo("./" + arquivo);
    if (!soma) pim::erro("Erro leitura arquivo ", arquivo);
    e.arquivos[arquivo] = *soma;
  }
  e.completo = true;
  impEstado(e, ".");
}

int faz(const RECEITA& r, const ALVO& alvo) {
  const std::string foto = alvo.arquivo.string();
  const fs::path antiga = pronta(r.obra, alvo.nome);
  if (!livre(r.obra, alvo.nome)) {
    desiste(r, fins::semLugar, cv::format(frase(r, falas::ocupada).c_str(), antiga.c_str()));
  }
  const std::string soma = exigeSoma(r, foto);
  ESTADO novo;
  novo.origem = origem(r, soma);
  const std::optional<ESTADO> antigo = r.opcoes.refaz ? std::nullopt : leEstado(antiga);
  if (antigo && antigo->origem.medida == novo.origem.medida &&
      completos(*antigo, antiga, alvo.nome, r.opcoes.metodo)) {
    return fins::jaPronta;
  }

  fs::create_directory(emObra(r.obra, alvo.nome));
  fs::current_path(emObra(r.obra, alvo.nome));
  detecta(r, alvo, novo.origem, antigo);
  const cv::Size tamanho = tamanhoNoCabecalho("./" + alvo.nome + ".png");  // upright, as searched
  novo.rows = tamanho.height;
  novo.cols = tamanho.width;
  novo.graos = mede(r, alvo, tamanho);
  if (exigeSoma(r, foto) != soma) desiste(r, fins::falhou, frase(r, falas::mudou));
  registra(novo, alvo.nome, r.opcoes.metodo);
  return fins::feita;
}

}  // namespace

int fazFotografia(const RECEITA& r, const ALVO& alvo) {
  try {
    return faz(r, alvo);
  } catch (const DESISTENCIA& d) {
    return d.fim;
  }
}

}  // namespace batch
