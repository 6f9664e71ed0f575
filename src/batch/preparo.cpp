#include "batch/preparo.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <sstream>
#include <vector>

#include "batch/obra/soma.h"
#include "batch/pedido/frases.h"
#include "batch/pedido/leitura.h"
#include "batch/processo/processo.h"
#include "filter/filtra.h"
#include "filter/limiares.h"
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
  const LIMIARES l = leParametros(parametros);
  for (const LIMIAR& um : {l.circulo, l.retangulo, l.quadrado, l.elipse}) {
    // NaN stands for what the parameters don't say.
    for (const double x : {um.minCorr, um.maxInter}) {
      if (x <= 1 || std::isnan(x)) continue;
      pim::erro(diz(linha::frases::erro, r.opcoes.idioma),
                cv::format(diz(falas::limiarRuim, r.opcoes.idioma), x));
    }
  }
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

// The sizes that are searched, on all levels of the pyramid.
ALCANCE alcance(const std::vector<MASCARA>& kernels) {
  ALCANCE a;
  for (const MASCARA& m : kernels) {
    const bool redonda = m.forma == 'c' || m.forma == 'e';
    const double d = std::sqrt(m.d1 * m.d2 * (redonda ? 1 : 4 / std::numbers::pi));
    if (a.menor == 0 || d < a.menor) a.menor = d;
    a.maior = std::max(a.maior, d * std::pow(2, m.sPir));
  }
  return a;
}

// Says how many bytes the kernels take, and which sizes they have.
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
  const ALCANCE a = alcance(kernels);
  std::printf("%llu %zu %.9g %.9g\n", static_cast<unsigned long long>(bytes), kernels.size(),
              a.menor, a.maior);
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
    std::istringstream(fim.fala) >> p.bytes >> p.kernels >> r.alcance.menor >> r.alcance.maior;
    const std::string quem = i == 0 ? diz(falas::opcaoFiltra, o.idioma) : o.kernel;
    if (fim.estado != 0 && p.erro.empty()) p.erro = quem + ": " + motivo(fim, quem, o.idioma);
  };
  if (!executaTarefas(t)) return false;
  if (p.erro.empty()) p.recado = sugere::leRecado(conteudo, o.kernel);
  return true;
}

}  // namespace batch
