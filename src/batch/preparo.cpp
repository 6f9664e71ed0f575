#include "batch/preparo.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <vector>

#include "batch/obra/soma.h"
#include "batch/pedido/frases.h"
#include "batch/pedido/leitura.h"
#include "batch/processo/processo.h"
#include "filter/filtra.h"
#include "kernels/grupos.h"
#include "kernels/lekernels.h"
#include "linha/linha.h"
#include "linha/traducao.h"
#include "pim/erro.h"

namespace fs = std::filesystem;

namespace batch {
namespace {

int confereParametros(const RECEITA& r) {
  pim::ISTR parametros;
  parametros.texto = r.opcoes.filtra;
  leParametros(parametros);
  return 0;
}

// Of the records, and of the images of the group that takes most: a search draws one at a time.
std::uint64_t bytesDosKernels(const std::vector<MASCARA>& kernels) {
  std::uint64_t maior = 0;
  std::uint64_t doGrupo = 0;
  for (const MASCARA& m : kernels) {
    const auto lado = static_cast<std::uint64_t>(kernels::ladoDaImagem(m.molde));
    doGrupo += lado * lado * sizeof(float);
    if (m.inic != 2) continue;
    maior = std::max(maior, doGrupo);
    doGrupo = 0;
  }
  return kernels.size() * sizeof(MASCARA) + maior;
}

// Says how many bytes the kernels take.
int confereKernels(const RECEITA& r, const std::string& conteudo) {
  const fs::path kernel = r.kernel;
  fs::current_path(kernel.parent_path());  // messages give the name alone
  std::vector<MASCARA> kernels;
  leKernels(kernel.filename().string(), kernels, IMAGENS::nenhuma);
  sugere::leRecado(conteudo, kernel.filename().string());
  if (kernels::grupos(kernels).empty()) {
    pim::erro(diz(linha::frases::erro, r.opcoes.idioma), diz(falas::semGrupo, r.opcoes.idioma));
  }
  const std::uint64_t bytes = bytesDosKernels(kernels);
  std::printf("%llu %zu\n", static_cast<unsigned long long>(bytes), kernels.size());
  return 0;
}

}  // namespace

bool prepara(RECEITA& r, PREPARO& p) {
  const OPCOES_LOTE& o = r.opcoes;
  std::string porque;
  const std::string conteudo = o.kernelTexto ? *o.kernelTexto : leTudo(o.kernel, porque, o.idioma);
  if (!porque.empty()) {
    p.erro = cv::format(diz(falas::kernelIlegivel, o.idioma), o.kernel.c_str(), porque.c_str());
    return true;
  }
  SOMA soma;
  soma.poe(conteudo);
  p.texto = conteudo;
  r.kernelSoma = soma.texto();
  const fs::path pasta = r.obra.pasta / "kernel";
  std::error_code falha;
  fs::create_directory(pasta, falha);
  r.kernel = (pasta / fs::path(o.kernel).filename()).string();
  std::ofstream copia(r.kernel, std::ios::binary);
  if (!(copia << conteudo).flush()) {
    p.erro = cv::format(diz(falas::saidaRuim, o.idioma), o.saida.c_str(),
                        linha::erroDoSistema(errno, o.idioma).c_str());
    return true;
  }
  TAREFAS t;
  t.quantas = 2;
  t.idioma = o.idioma;
  t.faz = [&](std::size_t i) {
    return i == 0 ? confereParametros(r) : confereKernels(r, conteudo);
  };
  t.acabou = [&](std::size_t i, const TERMINO& fim) {
    char* resto = nullptr;
    p.bytes = std::strtoull(fim.fala.c_str(), &resto, 10);
    p.kernels = std::strtoull(resto, nullptr, 10);
    const std::string quem = i == 0 ? diz(falas::opcaoFiltra, o.idioma) : o.kernel;
    if (fim.estado != 0 && p.erro.empty()) p.erro = quem + ": " + motivo(fim, quem, o.idioma);
  };
  if (!executaTarefas(t)) return false;
  if (p.erro.empty()) p.recado = sugere::leRecado(conteudo, o.kernel);
  return true;
}

}  // namespace batch
