#include "batch/escolha/escolhido.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <system_error>

#include "batch/escolha/amostra.h"
#include "batch/escolha/frases.h"
#include "batch/obra/cabecalho.h"
#include "batch/obra/estado.h"
#include "batch/pedido/frases.h"
#include "batch/processo/processo.h"
#include "batch/processo/recursos.h"
#include "kernels/lekernels.h"
#include "linha/linha.h"
#include "linha/traducao.h"
#include "pim/erro.h"

namespace fs = std::filesystem;

namespace batch {
namespace {

constexpr const char* arquivoAnterior = "kernel-anterior.cfg";

std::string conteudo(const fs::path& nome) {
  std::ostringstream s;
  s << std::ifstream(nome, std::ios::binary).rdbuf();
  return s.str();
}

// In a process of its own: leaves the text as `nome`, and says what was chosen, then the doubts.
int escolhe(const OPCOES_LOTE& o, const std::vector<ALVO>& alvos, const fs::path& nome) {
  const std::optional<bool> inverte = o.inverte ? std::optional(true) : std::nullopt;
  const AMOSTRA a = olhaFotos(alvos, o.amostra, {inverte, o.modo, processadores()});
  if (!algumaLida(a)) {
    pim::erro(
        diz(linha::frases::erro, o.idioma),
        cv::format(diz(falas::nenhumaLida, o.idioma), std::to_string(a.fotos.size()).c_str()));
  }
  std::ofstream saida(nome, std::ios::binary);
  if (!(saida << kernelCfg(a, o.idioma)).flush()) {
    pim::erro("Erro gravacao arquivo ", nome.string());
  }
  std::printf("%s\n", emUmaLinha(resumo(a, alvos.size(), o.idioma)).c_str());
  for (const std::string& aviso : avisos(a, o.idioma)) {
    std::printf("%s\n", emUmaLinha(aviso).c_str());
  }
  return 0;
}

// Puts the choice in its place; why it can't be, or an empty text.
std::string publica(const OBRA& obra, const fs::path& nova, exporta::IDIOMA idioma) {
  std::error_code falha;
  const fs::path lugar = obra.saida / arquivoDaEscolha;
  if (fs::exists(lugar, falha) && conteudo(lugar) != conteudo(nova)) {
    fs::rename(lugar, obra.saida / arquivoAnterior, falha);
  }
  if (!falha) fs::rename(nova, lugar, falha);
  return falha ? linha::erroDoSistema(falha.value(), idioma) : "";
}

}  // namespace

bool escolheKernel(const OBRA& obra, const OPCOES_LOTE& o, const std::vector<ALVO>& alvos,
                   ESCOLHIDO& e) {
  std::error_code falha;
  const fs::path lugar = obra.saida / arquivoDaEscolha;
  if (!o.refaz && fs::exists(lugar, falha)) {
    e.dito = cv::format(diz(falas::escolhaAnterior, o.idioma),
                        (fs::path(o.saida) / arquivoDaEscolha).c_str());
    return true;
  }
  const fs::path nova = obra.pasta / arquivoDaEscolha;
  TAREFAS t;
  t.quantas = 1;
  t.idioma = o.idioma;
  t.faz = [&](std::size_t) { return escolhe(o, alvos, nova); };
  t.acabou = [&](std::size_t, const TERMINO& fim) {
    if (fim.estado != 0) {
      e.erro = motivo(fim, "vorplex-lote", o.idioma);
      return;
    }
    std::istringstream linhas(fim.fala);
    std::getline(linhas, e.dito);
    for (std::string s; std::getline(linhas, s);) e.avisos.push_back(s);
  };
  if (!executaTarefas(t)) return false;
  if (!e.erro.empty()) return true;
  const std::string porque = publica(obra, nova, o.idioma);
  if (!porque.empty()) {
    e.erro = cv::format(diz(falas::saidaRuim, o.idioma), o.saida.c_str(), porque.c_str());
  }
  return true;
}

bool ehFotografiaOuPasta(const std::string& palavra) {
  std::error_code falha;
  if (fs::is_directory(palavra, falha)) return true;
  const bool porNome = temSufixoDeFoto(palavra);
  if (!fs::is_regular_file(palavra, falha)) return porNome;
  if (tamanhoNoCabecalho(palavra).area() > 0) return true;
  if (!porNome) return false;
  try {
    std::vector<MASCARA> kernels;
    leKernels(palavra, kernels, IMAGENS::nenhuma);
    return false;
  } catch (const pim::ERRO&) {
    return true;
  }
}

}  // namespace batch
