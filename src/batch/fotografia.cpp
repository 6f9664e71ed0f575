#include "batch/fotografia.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

#include "batch/medicao.h"
#include "batch/obra/cabecalho.h"
#include "batch/obra/soma.h"
#include "batch/pedido/frases.h"
#include "batch/processo/processo.h"
#include "detect/maxlocal.h"
#include "detect/procura.h"
#include "draw/traca.h"
#include "export/geojson.h"
#include "export/graoscsv.h"
#include "export/qml.h"
#include "export/roi.h"
#include "filter/filtinter.h"
#include "filter/filtra.h"
#include "filter/filtraveis.h"
#include "kernels/lekernels.h"
#include "linha/linha.h"
#include "measure/resumo.h"
#include "pim/erro.h"
#include "pim/imagem.h"
#include "pim/texto.h"
#include "report/relat.h"

namespace fs = std::filesystem;

namespace batch {
namespace {

using COLORIDA = cv::Mat_<pim::VEC3B>;

constexpr std::size_t maisCandidatos = 100;  // of a photograph, for the report

std::string frase(const RECEITA& r, const exporta::FRASE& f) {
  return diz(f, r.opcoes.idioma);
}

// What ends a photograph before its results are complete; fazFotografia catches it.
struct DESISTENCIA {
  int fim;
};

// Says what is about to be done.
void comeca(const RECEITA& r, const exporta::FRASE& passo) {
  anuncia(frase(r, passo));
}

// The share of the search in the time of a photograph: where fits follow, about seven tenths.
double parteDaProcura(const RECEITA& r) {
  return r.opcoes.metodo == measure::METODO::apurado ? 0.7 : 1;
}

bool dizAndamento(const RECEITA& r, const detect::ANDAMENTO& a) {
  if (a.etapa == detect::ETAPA::grupo) {
    anuncia(cv::format(frase(r, falas::passoProcura).c_str(), a.primeiro, a.ultimo));
    const double feitos = static_cast<double>(a.grupo) / static_cast<double>(a.nGrupos);
    anunciaParte(feitos * parteDaProcura(r));
  }
  if (a.etapa == detect::ETAPA::ordenacao) comeca(r, falas::passoOrdem);
  return true;
}

// What is searched: the photograph in grey, or its negative.
cv::Mat_<unsigned char> vista(const RECEITA& r, const ALVO& alvo, const COLORIDA& foto) {
  cv::Mat_<unsigned char> cinza;
  pim::converte(foto, cinza);
  if (claros(r.opcoes, alvo)) cinza = 255 - cinza;
  return cinza;
}

// What `correla` finds.
std::vector<MAXLOCAL> procura(const RECEITA& r, const ALVO& alvo, const COLORIDA& foto) {
  comeca(r, falas::passoKernels);
  double minCorr = detect::minCorrPadrao;
  const std::string pedida = minCorrDaProcura(r.opcoes);
  if (!pedida.empty()) pim::convArg(minCorr, pedida);
  std::vector<MASCARA> kernels;
  leKernels(r.kernel, kernels, IMAGENS::nenhuma);
  return detect::procura(vista(r, alvo, foto), kernels, minCorr,
                         [&](const detect::ANDAMENTO& a) { return dizAndamento(r, a); });
}

std::vector<MAXLOCAL> lista(const std::string& nome) {
  std::vector<MAXLOCAL> v;
  leMaxLocais(v, nome);
  return v;
}

// What `filtra` leaves of the list `ho1`.
std::vector<MAXLOCAL> filtra(const RECEITA& r, const std::string& ho1, cv::Size tamanho) {
  pim::ISTR parametros;
  parametros.texto = r.opcoes.filtra;
  const LIMIARES limiares = leParametros(parametros);
  const std::vector<MAXLOCAL> originais = lista(ho1);
  filter::exigeFiltraveis(originais, limiares, ho1);
  std::vector<MAXLOCAL> mantidos;
  filtInter(originais, mantidos, tamanho, limiares);
  return mantidos;
}

void conta(const RECEITA& r, const std::vector<MAXLOCAL>& v, const std::string& nome) {
  comeca(r, falas::passoAreas);
  impTabelas(contaAreas(v, nome + ".ho2"), nome + ".rel");
}

void traca(const RECEITA& r, COLORIDA foto, const std::vector<MAXLOCAL>& v,
           const std::string& nome) {
  comeca(r, falas::passoTraco);
  draw::TRACOS tracos;
  tracos.contornoBold = true;
  tracos.indices = true;
  pim::imp(draw::traca(std::move(foto), v, tracos, nome + ".ho2"), nome + ".png");
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
  comeca(r, falas::passoMedida);
  const OPCOES_LOTE& o = r.opcoes;
  const measure::FOTOGRAFIA foto = leFotografia(o, ".", alvo, tamanho);
  impGraosCsv(foto, "graos.csv", o.idioma);
  impGeojson(foto, "graos.geojson", o.idioma);
  exporta::impEstiloQgis("graos.qml", o.idioma);
  exporta::impRois(foto, "rois.zip");  // none without grains
  return foto.graos.size();
}

// What was corrected by hand in this photograph; null when nothing was.
const corrige::CORRECOES* correcoesDe(const RECEITA& r, const std::string& fotoSoma) {
  return r.correcoes == nullptr ? nullptr : acha(*r.correcoes, fotoSoma);
}

// Which of the detections are grains: leaves the .ho2 and what the method keeps beside it.
corrige::FEITAS escolhe(const RECEITA& r, const ALVO& alvo, const COLORIDA& foto,
                        const std::string& soma) {
  const std::string nome = "./" + alvo.nome;
  if (r.opcoes.metodo == measure::METODO::apurado) {
    comeca(r, falas::passoAjuste);
    refine::MODO_DE_APURAR modo = r.opcoes.modo;
    modo.fios = r.fios;
    modo.candidatos = maisCandidatos;
    return apuraLista(vista(r, alvo, foto), nome, modo, correcoesDe(r, soma));
  }
  comeca(r, falas::passoFiltro);
  impMaxLocais(filtra(r, nome + ".ho1", foto.size()), nome + ".ho2");
  return {};
}

// The steps that are not taken over from `antigo`. Each list is read back from its file, which
// rounds it, as those do who go on from the file.
void detecta(const RECEITA& r, const ALVO& alvo, ESTADO& novo,
             const std::optional<ESTADO>& antigo) {
  const ORIGEM& nova = novo.origem;
  const fs::path antiga = pronta(r.obra, alvo.nome);
  const bool mesmaProcura = antigo && antigo->origem.procura == nova.procura;
  const bool mesmoFiltro = mesmaProcura && antigo->origem.filtro == nova.filtro;
  const auto serve = [&](bool mesma, const char* sufixo) {
    return mesma && aproveita(*antigo, antiga, alvo.nome + sufixo);
  };
  const bool temHo1 = serve(mesmaProcura, ".ho1");
  const bool temOutro = temHo1 && mesmoFiltro &&
                        (r.opcoes.metodo == measure::METODO::classico ||
                         (aproveita(*antigo, antiga, arquivoDosApurados) &&
                          aproveita(*antigo, antiga, arquivoDosCandidatos)));
  const bool temHo2 = serve(temOutro, ".ho2");
  const bool temRel = serve(temHo2, ".rel");
  const bool temPng = serve(temHo2, ".png");

  const std::string nome = "./" + alvo.nome;  // as messages give it
  COLORIDA foto;
  if (!temPng) {
    comeca(r, falas::passoLeitura);
    pim::le(foto, alvo.arquivo.string());
  }
  if (!temHo1) impMaxLocais(procura(r, alvo, foto), nome + ".ho1");
  anunciaParte(parteDaProcura(r));
  novo.correcoes = temHo2 ? antigo->correcoes : escolhe(r, alvo, foto, novo.foto);
  const std::vector<MAXLOCAL> v = lista(nome + ".ho2");
  if (!temRel) conta(r, v, nome);
  novo.sinais = temPng ? antigo->sinais
                       : sinais(vista(r, alvo, foto),
                                leGraos(r.opcoes.metodo, ".", alvo.nome, foto.size()), r.alcance);
  if (!temPng) traca(r, std::move(foto), v, nome);
}

// All that the choice of the grains depends on; no parameters of filtra read like it.
std::string emTexto(const refine::MODO_DE_APURAR& m) {
  return cv::format("apurado %s %a %a %a %a %d", m.familias.c_str(), m.menor, m.maior,
                    m.sobreposicao, m.sensibilidade, m.semLetras ? 1 : 0);
}

}  // namespace

ORIGEM origem(const RECEITA& r, const ALVO& alvo, const std::string& fotoSoma) {
  const OPCOES_LOTE& o = r.opcoes;
  ORIGEM e;
  SOMA soma;
  for (const std::string& s : {r.versao, fotoSoma, r.kernelSoma, minCorrDaProcura(o)}) {
    soma.poe(s);
  }
  soma.poe(claros(o, alvo) ? "1" : "0");
  e.procura = soma.texto();
  soma.poe(o.metodo == measure::METODO::apurado ? emTexto(o.modo) : o.filtra);
  if (const corrige::CORRECOES* c = correcoesDe(r, fotoSoma); c != nullptr) {
    soma.poe(corrige::emTexto(std::vector<corrige::CORRECOES>{
        {c->soma, "", c->lista}}));  // whatever the photograph is called
  }
  e.filtro = soma.texto();
  const measure::ESCALA escala = escalaDe(o, alvo);
  soma.poe(cv::format("%a %s %d %d", escala.lado, nomeDaUnidade(escala.unidade),
                      static_cast<int>(o.borda), static_cast<int>(o.idioma)));
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
  novo.foto = soma;
  novo.origem = origem(r, alvo, soma);
  const std::optional<ESTADO> antigo = r.opcoes.refaz ? std::nullopt : leEstado(antiga);
  if (antigo && antigo->origem.medida == novo.origem.medida &&
      completos(*antigo, antiga, alvo.nome, r.opcoes.metodo)) {
    return fins::jaPronta;
  }

  fs::create_directory(emObra(r.obra, alvo.nome));
  fs::current_path(emObra(r.obra, alvo.nome));
  detecta(r, alvo, novo, antigo);
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
